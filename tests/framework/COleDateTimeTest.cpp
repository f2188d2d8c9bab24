#include "vetools/framework/COleDateTime.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "vetools/framework/COleVariant.h"
#include "vetools/framework/ModuleState.h"

namespace
{

constexpr double c_halfSecond = 0.5 / 86400;
constexpr double c_infinity = std::numeric_limits<double>::infinity();

}  // namespace

TEST(COleDateTime, BreaksADateDownToItsFields)
{
    const struct
    {
        const wchar_t* expected;
        DATE date;
    } rows[] = {
        {L"1899-12-30 00:00:00", 0.0},
        {L"1899-12-31 06:00:00", 1.25},
        {L"1899-12-30 06:00:00", -0.25},  // the fraction counts forward
        {L"1899-12-29 06:00:00", -1.25},
        {L"1899-12-29 18:00:00", -1.75},
        {L"1900-02-28 00:00:00", 60.0},  // 1900 is no leap year
        {L"1900-03-01 00:00:00", 61.0},
        {L"2000-02-29 12:00:00", 36585.5},
        {L"2021-01-18 14:05:09", 44214.58690972},
        {L"0100-01-01 00:00:00", -657434.0},
        {L"0100-01-01 23:59:59", -657434.99999},
        {L"9999-12-31 00:00:00", 2958465.0},
        {L"9999-12-31 23:59:59", 2958465.99999},
    };
    for (const auto& row : rows)
    {
        const COleDateTime date(row.date);
        EXPECT_EQ(COleDateTime::valid, date.GetStatus()) << row.date;
        EXPECT_EQ(CString(row.expected), date.Format(L"%Y-%m-%d %H:%M:%S")) << row.date;
    }
}

TEST(COleDateTime, RoundsATimeOfDayToTheNearestSecondHalvesUp)
{
    const struct
    {
        const wchar_t* expected;
        DATE date;
    } rows[] = {
        {L"1899-12-30 00:00:00", 0.98 * c_halfSecond},
        {L"1899-12-30 00:00:01", c_halfSecond},
        {L"1899-12-30 00:00:02", 3 * c_halfSecond},
        {L"1899-12-30 23:59:59", 1 - 1.2 * c_halfSecond},
        {L"1899-12-31 00:00:00", 1 - 0.8 * c_halfSecond},  // up into the next day
        {L"1899-12-30 00:00:00", -1 - (1 - 0.8 * c_halfSecond)},
        {L"2000-01-01 00:00:00", 36526 - 0.4 * c_halfSecond},
        {L"1899-12-29 00:09:33", -0x1.01b240795ceb2p+0},  // a double that holds the half not quite
    };
    for (const auto& row : rows)
        EXPECT_EQ(CString(row.expected), COleDateTime(row.date).Format(L"%Y-%m-%d %H:%M:%S")) << row.date;
}

TEST(COleDateTime, GivesTheDayOfTheWeekAndOfTheYearOfTheDayThatItWasRoundedTo)
{
    const struct
    {
        int dayOfWeek;
        int dayOfYear;
        DATE date;
    } rows[] = {
        {7, 364, 0.0},     {1, 365, 1 - 0.8 * c_halfSecond}, {2, 18, 44214.5}, {6, 1, -657434.0}, {6, 365, 2958465.0},
        {1, 366, 36891.0},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.dayOfWeek, COleDateTime(row.date).GetDayOfWeek()) << row.date;
        EXPECT_EQ(row.dayOfYear, COleDateTime(row.date).GetDayOfYear()) << row.date;
    }
}

TEST(COleDateTime, IsInvalidBeyondItsRangeAndWithoutANumber)
{
    for (const DATE date : {-657435.0, -657435.5, 2958465.999999, 2958466.0, 1e300, -1e300, c_infinity, -c_infinity,
                            std::numeric_limits<double>::quiet_NaN()})
    {
        const COleDateTime outOfRange(date);
        EXPECT_EQ(COleDateTime::invalid, outOfRange.GetStatus()) << date;
        EXPECT_EQ(CString(L"Invalid DateTime"), outOfRange.Format(L"%m %d %y")) << date;
        EXPECT_EQ(-1, outOfRange.GetYear()) << date;
        EXPECT_EQ(-1, outOfRange.GetDayOfYear()) << date;

        COleDateTime setDirectly;
        setDirectly.m_dt = date;
        EXPECT_EQ(COleDateTime::valid, setDirectly.GetStatus()) << date;
        EXPECT_EQ(CString(L"Invalid DateTime"), setDirectly.Format(L"%m %d %y")) << date;
    }
}

TEST(COleDateTime, OfANullDateGivesAnEmptyText)
{
    COleDateTime date(44214.0);
    date.SetStatus(COleDateTime::null);
    EXPECT_EQ(CString(), date.Format(L"%m %d %y"));
    EXPECT_EQ(-1, date.GetDay());
    date.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(CString(L"Invalid DateTime"), date.Format(L"%m %d %y"));
    date.SetStatus(COleDateTime::valid);
    EXPECT_EQ(CString(L"01 18 21"), date.Format(L"%m %d %y"));
}

TEST(COleDateTime, ReadsInvalidInTheDefaultWordsWhereTheResourceModuleHasNone)
{
    const ScopedResourceModule guard(nullptr);
    COleDateTime date;
    date.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(CString(L"Invalid DateTime"), date.Format(L"%Y"));
}

TEST(COleDateTime, ReadsInvalidInTheWordsOfTheResourceModule)
{
    const HINSTANCE french = AfxLoadLibrary(L"TestFrench");
    ASSERT_NE(nullptr, french);
    {
        const ScopedResourceModule guard(french);
        EXPECT_EQ(CString(L"Date incorrecte"), COleDateTime(1e300).Format(L"%m %d %y"));
        EXPECT_EQ(CString(L"01 18 21"), COleDateTime(44214.0).Format(L"%m %d %y"));
    }
    EXPECT_TRUE(AfxFreeLibrary(french));
}

TEST(COleDateTime, IsMadeOfFieldsThatAreADate)
{
    const struct
    {
        DATE expected;
        int year, month, day, hour, minute, second;
    } rows[] = {
        {44214.0, 2021, 1, 18, 0, 0, 0}, {0.25, 1899, 12, 30, 6, 0, 0},      {-1.25, 1899, 12, 29, 6, 0, 0},
        {-657434.0, 100, 1, 1, 0, 0, 0}, {2958465.0, 9999, 12, 31, 0, 0, 0},
    };
    for (const auto& row : rows)
    {
        const COleDateTime date(row.year, row.month, row.day, row.hour, row.minute, row.second);
        EXPECT_EQ(COleDateTime::valid, date.GetStatus()) << row.expected;
        EXPECT_DOUBLE_EQ(row.expected, date.m_dt);
        EXPECT_EQ(row.year, date.GetYear());
        EXPECT_EQ(row.month, date.GetMonth());
        EXPECT_EQ(row.day, date.GetDay());
        EXPECT_EQ(row.hour, date.GetHour());
        EXPECT_EQ(row.minute, date.GetMinute());
        EXPECT_EQ(row.second, date.GetSecond());
    }
}

TEST(COleDateTime, IsInvalidForFieldsThatAreNoDate)
{
    const int rows[][6] = {
        {2023, 2, 29, 0, 0, 0},  {1900, 2, 29, 0, 0, 0},  {2021, 0, 1, 0, 0, 0},     {2021, 13, 1, 0, 0, 0},
        {2021, 1, 0, 0, 0, 0},   {2021, 4, 31, 0, 0, 0},  {99, 1, 1, 0, 0, 0},       {21, 1, 1, 0, 0, 0},
        {10000, 1, 1, 0, 0, 0},  {2021, 1, 1, 24, 0, 0},  {2021, 1, 1, 0, 60, 0},    {2021, 1, 1, 0, 0, 60},
        {-2021, 1, 1, 0, 0, 0},  {67557, 1, 1, 0, 0, 0},  {2021, 65537, 1, 0, 0, 0}, {2021, 1, 1, -1, 0, 0},
        {2021, 257, 1, 0, 0, 0}, {2021, 1, 257, 0, 0, 0},
    };
    for (const auto& row : rows)
    {
        const COleDateTime date(row[0], row[1], row[2], row[3], row[4], row[5]);
        EXPECT_EQ(COleDateTime::invalid, date.GetStatus()) << testing::PrintToString(row);
        EXPECT_EQ(0.0, date.m_dt);
    }
}

TEST(COleDateTime, GivesTheFieldsThatItWasMadeOf)
{
    for (DATE day = -657434; day <= 2958465; day += 1009)
    {
        const COleDateTime date(day);
        SYSTEMTIME fields = {};
        ASSERT_TRUE(date.GetAsSystemTime(fields)) << day;
        ASSERT_EQ(day, COleDateTime(fields).m_dt) << day;
    }
}

TEST(COleDateTime, LeavesTheFieldsOfADateThatIsNotValid)
{
    SYSTEMTIME fields = {};
    fields.wYear = 7;
    EXPECT_FALSE(COleDateTime(1e300).GetAsSystemTime(fields));
    EXPECT_EQ(7, fields.wYear);
}

TEST(COleDateTime, IsMadeOfWhatTheSystemMakesOfAValue)
{
    VARIANT value = {};
    value.vt = VT_DATE;
    value.date = 44214.0;
    EXPECT_EQ(44214.0, COleDateTime(value).m_dt);
    value.date = 1e300;
    EXPECT_EQ(COleDateTime::invalid, COleDateTime(value).GetStatus());
    value.vt = VT_R8;
    value.dblVal = 1.5;
    EXPECT_EQ(1.5, COleDateTime(value).m_dt);
    value.vt = VT_NULL;
    EXPECT_EQ(COleDateTime::invalid, COleDateTime(value).GetStatus());
    value.vt = VT_BYREF | VT_DATE;
    value.pdate = nullptr;
    EXPECT_EQ(COleDateTime::invalid, COleDateTime(value).GetStatus()) << "a reference to nowhere";
    EXPECT_EQ(COleDateTime::invalid, COleDateTime(COleVariant(L"not a date")).GetStatus());
}

TEST(COleDateTime, WritesEachConversionOfItsFormat)
{
    const COleDateTime afternoon(2021, 1, 18, 14, 5, 9);
    const COleDateTime midnight(1905, 12, 3, 0, 0, 0);
    const struct
    {
        const wchar_t* expected;
        const wchar_t* format;
        const COleDateTime& date;
    } rows[] = {
        {L"", L"", afternoon},
        {L"01 18 21", L"%m %d %y", afternoon},
        {L"12 03 05", L"%m %d %y", midnight},
        {L"Mon Monday Jan January", L"%a %A %b %B", afternoon},
        {L"Sun Sunday Dec December", L"%a %A %b %B", midnight},
        {L"14 02 PM 05 09", L"%H %I %p %M %S", afternoon},
        {L"00 12 AM 00 00", L"%H %I %p %M %S", midnight},
        {L"018 1 2021", L"%j %w %Y", afternoon},
        {L"337 0 1905", L"%j %w %Y", midnight},
        {L"01/18/21|14:05:09|01/18/21 14:05:09", L"%x|%X|%c", afternoon},
        {L"100%", L"100%%", afternoon},
        {L"%q %", L"%q %", afternoon},
        {L"le 18", L"le %d", afternoon},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CString(row.expected), row.date.Format(row.format)) << CString(row.format).GetLength();
    EXPECT_EQ(CString(), afternoon.Format(nullptr));
}

TEST(COleDateTime, GivesAnEmptyTextBeyond255Characters)
{
    const COleDateTime date(44214.0);
    EXPECT_EQ(255, date.Format(std::wstring(255, L'x').c_str()).GetLength());
    EXPECT_EQ(0, date.Format(std::wstring(256, L'x').c_str()).GetLength());
}

TEST(COleDateTime, ComparesInTheOrderOfTime)
{
    const DATE ordered[] = {-657434.0, -2.0, -1.0, -1.25, -1.75, 0.0, 0.25, 1.0, 44214.5};
    for (std::size_t i = 0; i + 1 < std::size(ordered); ++i)
    {
        const COleDateTime earlier(ordered[i]);
        const COleDateTime later(ordered[i + 1]);
        EXPECT_TRUE(earlier < later && later > earlier && earlier <= later && later >= earlier) << ordered[i];
        EXPECT_FALSE(earlier == later || later < earlier) << ordered[i];
        EXPECT_TRUE(earlier == COleDateTime(ordered[i]));
    }
    COleDateTime null;
    null.SetStatus(COleDateTime::null);
    EXPECT_TRUE(null != COleDateTime());
}
