#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "vetools/platform/Platform.h"

// What the system and its stand-in both answer about dates and times. The user's language is English (United States)
// where the tests run, unless a test says otherwise.

namespace
{

constexpr DWORD c_sentinel = 0xDEADBEEF;
constexpr int c_capacity = 128;

SYSTEMTIME DateOf(int year, int month, int day)
{
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    return time;
}

SYSTEMTIME TimeOf(int hour, int minute, int second)
{
    SYSTEMTIME time = DateOf(2021, 1, 18);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = static_cast<WORD>(minute);
    time.wSecond = static_cast<WORD>(second);
    return time;
}

/// What a call returned, the last error that it left (when it failed), and what the buffer holds.
struct Written
{
    int count;
    DWORD error;
    std::wstring text;
    bool operator==(const Written&) const = default;
};

void PrintTo(const Written& written, std::ostream* out)
{
    *out << written.count << ", last error " << written.error << ", " << testing::PrintToString(written.text);
}

Written Text(std::wstring text)
{
    return {static_cast<int>(text.size()) + 1, c_sentinel, text};
}

Written Failed(DWORD error)
{
    return {0, error, L"untouched"};
}

template <typename Call>
Written ResultOf(Call call)
{
    wchar_t buffer[c_capacity] = L"untouched";
    ::SetLastError(c_sentinel);
    const int count = call(buffer);
    const DWORD error = ::GetLastError();
    return {count, count != 0 ? c_sentinel : error, buffer};
}

Written LongDate(const SYSTEMTIME& date, int size = c_capacity)
{
    return ResultOf([&](LPWSTR buffer)
                    { return ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &date, nullptr, buffer, size); });
}

Written Time(const SYSTEMTIME& time, LPCWSTR picture, DWORD flags = TIME_FORCE24HOURFORMAT, int size = c_capacity)
{
    return ResultOf([&](LPWSTR buffer)
                    { return ::GetTimeFormatW(LOCALE_USER_DEFAULT, flags, &time, picture, buffer, size); });
}

std::int64_t MillisecondsOfDay(const SYSTEMTIME& time)
{
    return ((time.wHour * 60 + time.wMinute) * 60 + time.wSecond) * 1000 + time.wMilliseconds;
}

LONGLONG Count()
{
    LARGE_INTEGER count{};
    EXPECT_TRUE(::QueryPerformanceCounter(&count));
    return count.QuadPart;
}

}  // namespace

// clang-format off
TEST(LongDates, AreWrittenInTheWordsOfTheLanguage)
{
    const struct
    {
        Written expected;
        SYSTEMTIME date;
    } rows[] = {
        {Text(L"Monday, January 18, 2021"),     DateOf(2021, 1, 18)},
        {Text(L"Thursday, February 29, 2024"),  DateOf(2024, 2, 29)},
        {Text(L"Wednesday, December 31, 1969"), DateOf(1969, 12, 31)},
        {Text(L"Saturday, August 5, 2000"),     DateOf(2000, 8, 5)},
        {Failed(ERROR_INVALID_PARAMETER),       DateOf(2021, 13, 1)},
        {Failed(ERROR_INVALID_PARAMETER),       DateOf(2021, 0, 1)},
        {Failed(ERROR_INVALID_PARAMETER),       DateOf(2021, 1, 0)},
        {Failed(ERROR_INVALID_PARAMETER),       DateOf(0, 0, 0)},
        {Failed(ERROR_INVALID_PARAMETER),       DateOf(2021, 257, 1)},
        {Failed(ERROR_INVALID_PARAMETER),       DateOf(2021, 1, 257)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, LongDate(row.date)) << row.date.wYear << '-' << row.date.wMonth << '-' << row.date.wDay;
}

TEST(Times, AreWrittenByTheirPicture)
{
    const struct
    {
        const wchar_t* expected;
        int hour, minute, second;
        const wchar_t* picture;
        DWORD flags;
    } rows[] = {
        {L"14:05:09",    14,  5,  9, L"hh':'mm':'ss", TIME_FORCE24HOURFORMAT},
        {L"00:00:00",     0,  0,  0, L"hh':'mm':'ss", TIME_FORCE24HOURFORMAT},
        {L"23:59:59",    23, 59, 59, L"hh':'mm':'ss", TIME_FORCE24HOURFORMAT},
        {L"02:05:09",    14,  5,  9, L"hh':'mm':'ss", 0},
        {L"12:00",        0,  0,  0, L"hh:mm",        0},
        {L"12:00",       12,  0,  0, L"hh:mm",        0},
        {L"11:00",       23,  0,  0, L"h:mm",         0},
        {L"14.05.09",    14,  5,  9, L"HH.mm.ss",     0},
        {L"7 h 5 min 9", 7,   5,  9, L"h' h 'm' min 's", TIME_FORCE24HOURFORMAT},
        {L"it's 7",      7,   5,  9, L"'it''s 'h",    TIME_FORCE24HOURFORMAT},
        {L"",            7,   5,  9, L"",             TIME_FORCE24HOURFORMAT},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Text(row.expected), Time(TimeOf(row.hour, row.minute, row.second), row.picture, row.flags))
            << testing::PrintToString(row.picture) << ", flags " << row.flags;
}
// clang-format on

TEST(Times, AreRefusedBeyondADay)
{
    for (const SYSTEMTIME& time : {TimeOf(24, 0, 0), TimeOf(0, 60, 0), TimeOf(0, 0, 60)})
        EXPECT_EQ(Failed(ERROR_INVALID_PARAMETER), Time(time, L"hh")) << time.wHour << ':' << time.wMinute;
}

TEST(DatesAndTimes, AreCountedWhenThereIsNoBuffer)
{
    const SYSTEMTIME date = DateOf(2021, 1, 18);
    EXPECT_EQ((Written{25, c_sentinel, L"untouched"}), LongDate(date, 0));
    EXPECT_EQ((Written{9, c_sentinel, L"untouched"}), Time(date, L"hh':'mm':'ss", TIME_FORCE24HOURFORMAT, 0));
}

TEST(DatesAndTimes, NeedABufferThatHoldsThemWithTheirTerminator)
{
    const SYSTEMTIME date = DateOf(2021, 1, 18);
    EXPECT_EQ(Text(L"Monday, January 18, 2021"), LongDate(date, 25));
    EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, LongDate(date, 24).error);
    EXPECT_EQ(Text(L"00:00:00"), Time(date, L"hh':'mm':'ss", TIME_FORCE24HOURFORMAT, 9));
    EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, Time(date, L"hh':'mm':'ss", TIME_FORCE24HOURFORMAT, 8).error);
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, LongDate(date, -1).error);
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, Time(date, L"hh", TIME_FORCE24HOURFORMAT, -1).error);
}

TEST(DatesAndTimes, AreThoseOfTodayAndNowUnlessTheyAreGiven)
{
    SYSTEMTIME before;
    SYSTEMTIME after;
    Written date;
    Written time;
    do
    {
        ::GetLocalTime(&before);
        date = ResultOf(
            [](LPWSTR buffer)
            { return ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, nullptr, nullptr, buffer, c_capacity); });
        time = ResultOf(
            [](LPWSTR buffer)
            {
                return ::GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT, nullptr, L"hh':'mm':'ss", buffer,
                                        c_capacity);
            });
        ::GetLocalTime(&after);
    } while (before.wSecond != after.wSecond);
    EXPECT_EQ(LongDate(before), date);
    EXPECT_EQ(Time(before, L"hh':'mm':'ss"), time);
}

TEST(TheLocalTime, IsARealDateAndGrows)
{
    SYSTEMTIME first;
    SYSTEMTIME second;
    do
    {
        ::GetLocalTime(&first);
        ::GetLocalTime(&second);
    } while (first.wDay != second.wDay || first.wHour > second.wHour);
    EXPECT_LE(2020, first.wYear);
    EXPECT_EQ(LongDate(first), LongDate(second));
    EXPECT_GT(7, first.wDayOfWeek);
    EXPECT_LE(MillisecondsOfDay(first), MillisecondsOfDay(second));
}

TEST(ThePerformanceCounter, GrowsByItsFrequency)
{
    LARGE_INTEGER frequency{};
    EXPECT_TRUE(::QueryPerformanceFrequency(&frequency));
    EXPECT_LE(1000, frequency.QuadPart);
    const LONGLONG start = Count();
    LONGLONG end = start;
    while (end - start < frequency.QuadPart / 1000)
    {
        const LONGLONG next = Count();
        ASSERT_LE(end, next);
        end = next;
    }
}
