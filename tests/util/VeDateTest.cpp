#include "vetools/util/VeDate.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

TEST(VeDate, NumbersTheDaysOfTheGregorianCalendar)
{
    struct Row
    {
        int expected;
        int day;
        int month;
        int year;
    };
    // clang-format off
    const Row rows[] = {
        {0, 16, 11, 1858},
        {51545, 1, 1, 2000},
        {51604, 29, 2, 2000},
        {51605, 1, 3, 2000},
        {59229, 14, 1, 2021},
        {15079, 28, 2, 1900},
        {15080, 1, 3, 1900},   // no leap year
        {51605, 30, 2, 2000},  // a day beyond the month counts on
        {51544, 0, 1, 2000},
        {51911, 1, 13, 2000},
        {-99, 9, 8, 1858},
    };
    // clang-format on
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, GetModifiedJulianDay(row.day, row.month, row.year))
            << row.day << '.' << row.month << '.' << row.year;
}

TEST(VeDate, KeptTheNumberIsOneMoreThanTheUsualModifiedJulianDay)
{
    EXPECT_EQ(1, GetModifiedJulianDay(17, 11, 1858));    // 0
    EXPECT_EQ(40588, GetModifiedJulianDay(1, 1, 1970));  // 40587
    EXPECT_EQ(51545, GetModifiedJulianDay(1, 1, 2000));  // 51544
}

TEST(VeDate, EveryDayHasTheNumberAfterTheDayBefore)
{
    constexpr int c_daysOfMonths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int expected = GetModifiedJulianDay(1, 1, 1600);
    for (int year = 1600; year <= 2400; ++year)
    {
        const bool isLeapYear = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        for (int month = 1; month <= 12; ++month)
        {
            const int days = c_daysOfMonths[month - 1] + (month == 2 && isLeapYear ? 1 : 0);
            for (int day = 1; day <= days; ++day)
                ASSERT_EQ(expected++, GetModifiedJulianDay(day, month, year)) << day << '.' << month << '.' << year;
        }
    }
}

TEST(VeDate, AnyArgumentsAreAllowedAndWrapAround)
{
    constexpr int c_values[] = {INT_MIN, INT_MIN + 1, -1461, -1, 0, 1, 14, 367, 1461, INT_MAX - 1, INT_MAX};
    for (const int day : c_values)
        for (const int month : c_values)
            for (const int year : c_values)
                GetModifiedJulianDay(day, month, year);
    // A day is added last, modulo 2^32.
    EXPECT_EQ(GetModifiedJulianDay(1, 1, 2000) - 2, GetModifiedJulianDay(-1, 1, 2000));
    EXPECT_EQ(INT_MIN + GetModifiedJulianDay(0, 1, 2000), GetModifiedJulianDay(INT_MIN, 1, 2000));
}

TEST(BuildNumber, CountsTheDaysSinceTheFirstOfJanuary2009)
{
    struct Row
    {
        int expected;
        const char* date;
    };
    // clang-format off
    const Row rows[] = {
        {0, "Jan  1 2009"},
        {1, "Jan  2 2009"},
        {31, "Feb  1 2009"},
        {59, "Mar  1 2009"},
        {90, "Apr  1 2009"},
        {120, "May  1 2009"},
        {151, "Jun  1 2009"},
        {181, "Jul  1 2009"},
        {212, "Aug  1 2009"},
        {243, "Sep  1 2009"},
        {273, "Oct  1 2009"},
        {304, "Nov  1 2009"},
        {334, "Dec  1 2009"},
        {364, "Dec 31 2009"},
        {4396, "Jan 14 2021"},
        {-1, "Dec 31 2008"},
    };
    // clang-format on
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, BuildNumberFromDate(row.date)) << row.date;
}

TEST(BuildNumber, IsMinusOneWithoutAMonth)
{
    for (const char* date : {"", "J", "Ja", "jan 14 2021", "JAN 14 2021", "Jänner 14 2021", " Jan 14 2021",
                             "14 Jan 2021", "Jaz 14 2021", "2021-01-14", "\xFF\xFF\xFF 14 2021"})
        EXPECT_EQ(-1, BuildNumberFromDate(date)) << date;
    EXPECT_EQ(-1, BuildNumberFromDate(nullptr));
}

TEST(BuildNumber, ReadsDayAndYearFromTheirPlacesWhateverStandsThere)
{
    const int noDayNoYear = BuildNumberFromDate("Jan");
    EXPECT_GT(-700000, noDayNoYear);
    struct Row
    {
        int expected;
        const char* date;
    };
    // clang-format off
    const Row rows[] = {
        {noDayNoYear, "Jan "},
        {noDayNoYear, "January"},
        {noDayNoYear, "Jan xx yyyy"},
        {noDayNoYear + 1, "Jan 1"},
        {noDayNoYear + 14, "Jan 14"},
        {noDayNoYear + 14, "Jan 14 "},
        {noDayNoYear + 14, "Jan 145"},  // two characters
        {4396, "Jan-14-2021"},
        {4396, "Jan 14    2021, a Thursday"},
        {4396, "Jan 14 +2021"},
        {4391, "Jan 9x 2021"},
        {4391 - 18, "Jan -9 2021"},
        {noDayNoYear + 14, "Jan 14 x2021"},
    };
    // clang-format on
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, BuildNumberFromDate(row.date)) << row.date;
}

TEST(BuildNumber, NumbersOfAnyLengthAreNoHarm)
{
    // A year beyond the range is the nearest of 32 bits.
    EXPECT_EQ(BuildNumberFromDate("Jan 14 2147483647"), BuildNumberFromDate("Jan 14 99999999999999999999999"));
    EXPECT_EQ(BuildNumberFromDate("Jan 14 -2147483648"), BuildNumberFromDate("Jan 14 -99999999999999999999999"));
    EXPECT_EQ(BuildNumberFromDate("Jan 14 0"), BuildNumberFromDate(("Jan 14 " + std::string(100000, '0')).c_str()));
}

TEST(BuildNumber, IsThatOfTheBuildDate)
{
    EXPECT_EQ(BuildNumberFromDate(GetBuildDate()), GetBuildNumber());
    EXPECT_EQ(11u, std::strlen(GetBuildDate())) << GetBuildDate();
    EXPECT_EQ(' ', GetBuildDate()[3]) << GetBuildDate();
    EXPECT_EQ(' ', GetBuildDate()[6]) << GetBuildDate();
}

TEST(BuildNumber, TheVersionHasThreeNumbers)
{
    int major = -1;
    int minor = -1;
    int patch = -1;
    char rest = '\0';
    EXPECT_EQ(3, std::sscanf(GetVeToolsVersion(), "%d.%d.%d%c", &major, &minor, &patch, &rest)) << GetVeToolsVersion();
}
