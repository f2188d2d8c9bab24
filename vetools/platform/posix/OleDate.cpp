#include "vetools/platform/posix/OleDate.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <ctime>
#include <iterator>

#include <unicode/uchar.h>

namespace
{

constexpr int c_secondsPerDay = 24 * 60 * 60;
constexpr std::chrono::sys_days c_dayZero = std::chrono::year{1899} / std::chrono::December / 30;

struct DayAndSecond
{
    int day = 0;
    int second = 0;
};

/// What a date may lack of half a second, in days: as a double it seldom holds the half exactly.
constexpr double c_halfSecondTolerance = 1e-11;

/// A second at a time counts from its midnight on, also before 1899; halves of a second count as one.
DayAndSecond NearestSecond(DATE date)
{
    const double day = std::trunc(date);
    const double time = std::fabs(date - day) + c_halfSecondTolerance;
    DayAndSecond nearest = {static_cast<int>(day), static_cast<int>(time * c_secondsPerDay + 0.5)};
    if (nearest.second == c_secondsPerDay)
        nearest = {nearest.day + 1, 0};
    return nearest;
}

DATE DateOf(int day, int hour, int minute, int second)
{
    const double time = hour / 24.0 + minute / 1440.0 + second / double{c_secondsPerDay};
    return day < 0 ? day - time : day + time;
}

std::chrono::year_month_day CalendarOf(int day)
{
    return std::chrono::year_month_day(c_dayZero + std::chrono::days(day));
}

int DayOf(const std::chrono::year_month_day& date)
{
    return (std::chrono::sys_days(date) - c_dayZero).count();
}

/// Years of two digits are those from 1950 to 2049.
int FullYear(int year)
{
    if (year < 50)
        return year + 2000;
    return year < 100 ? year + 1900 : year;
}

// Writing

wchar_t* WriteNumber(wchar_t* text, unsigned number)
{
    char digits[10];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return std::copy(digits, end, text);
}

wchar_t* WriteTwoDigits(wchar_t* text, int number)
{
    *text++ = static_cast<wchar_t>(L'0' + number / 10);
    *text++ = static_cast<wchar_t>(L'0' + number % 10);
    return text;
}

/// 1/18/2021
wchar_t* WriteDay(wchar_t* text, int day)
{
    const std::chrono::year_month_day date = CalendarOf(day);
    text = WriteNumber(text, static_cast<unsigned>(date.month()));
    *text++ = L'/';
    text = WriteNumber(text, static_cast<unsigned>(date.day()));
    *text++ = L'/';
    return WriteNumber(text, static_cast<unsigned>(static_cast<int>(date.year())));
}

/// 2:05:09 PM
wchar_t* WriteTime(wchar_t* text, int second)
{
    const int hour = second / 3600;
    text = WriteNumber(text, hour % 12 == 0 ? 12u : static_cast<unsigned>(hour % 12));
    *text++ = L':';
    text = WriteTwoDigits(text, second / 60 % 60);
    *text++ = L':';
    text = WriteTwoDigits(text, second % 60);
    *text++ = L' ';
    *text++ = hour < 12 ? L'A' : L'P';
    *text++ = L'M';
    return text;
}

// Reading

constexpr std::string_view c_months[] = {"january", "february", "march",     "april",   "may",      "june",
                                         "july",    "august",   "september", "october", "november", "december"};
constexpr std::string_view c_weekdays[] = {"monday", "tuesday",  "wednesday", "thursday",
                                           "friday", "saturday", "sunday"};
constexpr std::size_t c_shortNameLength = 3;

/// The place of a name, whole or cut to three letters, in a list of names; nothing for another word.
template <std::size_t count>
std::optional<int> IndexOfName(std::wstring_view word, const std::string_view (&names)[count])
{
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::string_view name = names[i];
        if (word.size() != name.size() && word.size() != c_shortNameLength)
            continue;
        if (std::equal(word.begin(), word.end(), name.begin(),
                       [](wchar_t letter, char lowerCase)
                       { return (letter | 0x20) == static_cast<wchar_t>(lowerCase); }))
            return static_cast<int>(i);
    }
    return std::nullopt;
}

/// What stands in a date, as it is written.
struct DateField
{
    int value = 0;
    bool isName = false;
};

struct TimeOfDay
{
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Which field is which: one letter for each, in the order of the text.
constexpr std::string_view c_threeFields[] = {"MDY", "YMD", "DMY", "YDM"};
constexpr std::string_view c_twoFields[] = {"MD", "DM", "MY", "YM"};

int CurrentYear()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return local.tm_year + 1900;
}

/// The day that fields are when they are read in an order; nothing when there is no such day, or when the name of a month
/// would have to be something else.
std::optional<int> DayIn(std::string_view order, const DateField* fields, bool hasName)
{
    constexpr int lastYear = 9999;
    int year = CurrentYear();
    int month = 0;
    int day = 1;
    for (std::size_t i = 0; i < order.size(); ++i)
    {
        if (hasName && fields[i].isName != (order[i] == 'M'))
            return std::nullopt;
        if (order[i] == 'M')
            month = fields[i].value;
        else if (order[i] == 'D')
            day = fields[i].value;
        else
            year = FullYear(fields[i].value);
    }
    if (year > lastYear || month < 1 || month > 12 || day < 1 || day > 31)
        return std::nullopt;
    const std::chrono::year_month_day date = std::chrono::year(year) / month / day;
    return date.ok() ? std::optional(DayOf(date)) : std::nullopt;
}

class DateTextReader
{
public:
    explicit DateTextReader(std::wstring_view text)
        : m_rest(text)
    {
    }

    std::optional<DATE> Read()
    {
        while (ConsumeSpaces(), !m_rest.empty())
        {
            if (!ConsumePart())
                return std::nullopt;
        }
        const std::optional<int> day = Day();
        if (m_mustContinue || !day || (m_count == 0 && !m_time))
            return std::nullopt;
        const TimeOfDay time = m_time.value_or(TimeOfDay());
        return DateOf(*day, time.hour, time.minute, time.second);
    }

private:
    bool AtDigit() const { return !m_rest.empty() && m_rest.front() >= L'0' && m_rest.front() <= L'9'; }

    static bool IsLetter(wchar_t character)
    {
        const wchar_t lower = character | 0x20;
        return lower >= L'a' && lower <= L'z';
    }

    bool Consume(wchar_t character)
    {
        if (m_rest.empty() || m_rest.front() != character)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    void ConsumeSpaces()
    {
        while (!m_rest.empty() && u_isUWhiteSpace(static_cast<UChar32>(m_rest.front())))
            m_rest.remove_prefix(1);
    }

    /// A number of the text; the largest there may be for a larger one.
    int ConsumeNumber()
    {
        constexpr int c_tooLarge = 10000;
        int number = 0;
        for (; AtDigit(); m_rest.remove_prefix(1))
            number = std::min(number * 10 + static_cast<int>(m_rest.front() - L'0'), c_tooLarge);
        return number;
    }

    std::wstring_view ConsumeWord()
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), IsLetter);
        const auto word = m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
        m_rest.remove_prefix(word.size());
        return word;
    }

    /// A field of the date, a time, or the name of a weekday.
    bool ConsumePart()
    {
        if (AtDigit())
        {
            const int number = ConsumeNumber();
            return ConsumeTime(number) || AddField({number, false});
        }
        const std::wstring_view word = ConsumeWord();
        if (const std::optional<int> month = IndexOfName(word, c_months))
            return AddField({*month + 1, true});
        if (!IndexOfName(word, c_weekdays))
            return false;
        while (ConsumeSpaces(), Consume(L','))
        {
        }
        return true;
    }

    bool AddField(DateField field)
    {
        if (m_count == std::size(m_fields) || (field.isName && m_hasName))
            return false;
        m_fields[m_count++] = field;
        m_hasName = m_hasName || field.isName;
        ConsumeSpaces();
        const bool hasComma = Consume(L',');
        m_mustContinue = !hasComma && (Consume(L'/') || Consume(L'-'));
        return true;
    }

    /// What makes an hour of the number in front: ":05", ":05:09 PM", " PM". Otherwise nothing is taken.
    bool ConsumeTime(int hour)
    {
        const std::wstring_view start = m_rest;
        TimeOfDay time = {hour, 0, 0};
        const bool hasMinute = ConsumeTimePart(time.minute);
        const bool hasSecond = hasMinute && ConsumeTimePart(time.second);
        const bool hasHalf = ConsumeHalfOfDay(time.hour);
        const bool isTime =
            (hasMinute || hasSecond || hasHalf) && time.hour < 24 && time.minute < 60 && time.second < 60;
        if (!isTime || m_time || m_mustContinue)
        {
            m_rest = start;
            return false;
        }
        m_time = time;
        return true;
    }

    bool ConsumeTimePart(int& number)
    {
        const std::wstring_view start = m_rest;
        ConsumeSpaces();
        if (Consume(L':') || Consume(L'.'))
        {
            ConsumeSpaces();
            if (AtDigit())
            {
                number = ConsumeNumber();
                return true;
            }
        }
        m_rest = start;
        return false;
    }

    /// AM or PM, in any case. An hour of the afternoon may already be one: 14:05 PM.
    bool ConsumeHalfOfDay(int& hour)
    {
        const std::wstring_view start = m_rest;
        ConsumeSpaces();
        const std::wstring_view word = ConsumeWord();
        const wchar_t half = word.size() == 2 && (word[1] | 0x20) == L'm' ? word[0] | 0x20 : L'\0';
        if (half == L'p' && hour < 12)
            hour += 12;
        else if (half == L'a' && hour == 12)
            hour = 0;
        if (half == L'a' || half == L'p')
            return true;
        m_rest = start;
        return false;
    }

    /// Day zero when there is only a time.
    std::optional<int> Day() const
    {
        if (m_count == 0)
            return 0;
        for (const std::string_view order : m_count == 3 ? c_threeFields : c_twoFields)
        {
            const std::optional<int> day = order.size() == m_count ? DayIn(order, m_fields, m_hasName) : std::nullopt;
            if (day)
                return day;
        }
        return std::nullopt;
    }

    std::wstring_view m_rest;
    DateField m_fields[3];
    std::size_t m_count = 0;
    bool m_hasName = false;
    bool m_mustContinue = false;
    std::optional<TimeOfDay> m_time;
};

}  // namespace

bool IsDate(DATE date)
{
    // Before 1899 the time of day counts away from the midnight: -657434.75 is the evening of the first day.
    return date > c_firstDate - 1 && date < c_endOfDates;
}

wchar_t* WriteDateText(wchar_t* text, DATE date)
{
    if (!IsDate(date))
        return nullptr;
    const DayAndSecond moment = NearestSecond(date);
    if (moment.day >= static_cast<int>(c_endOfDates))
        return nullptr;
    // The number says what is written, before it is rounded: a day of 1 or more, a fraction.
    const bool hasDay = std::fabs(date) >= 1.0;
    const bool hasTime = !hasDay || date != std::trunc(date);
    if (hasDay)
        text = WriteDay(text, moment.day);
    if (hasDay && hasTime)
        *text++ = L' ';
    return hasTime ? WriteTime(text, moment.second) : text;
}

std::optional<DATE> ReadDateText(std::wstring_view text)
{
    return DateTextReader(text).Read();
}

INT SystemTimeToVariantTime(LPSYSTEMTIME systemTime, DOUBLE* variantTime)
{
    constexpr int lastYear = 9999;
    constexpr int hoursPerDay = 24;
    const SYSTEMTIME& time = *systemTime;
    if (time.wYear > lastYear || time.wMonth < 1 || time.wMonth > 12 || time.wDay < 1 || time.wDay > 31 ||
        time.wHour > hoursPerDay || time.wMinute > 60 || time.wSecond > 60)
        return 0;
    // A day that the month does not have is one of the next month: 29 February 2021 is 1 March.
    const std::chrono::sys_days month = std::chrono::year(FullYear(time.wYear)) / time.wMonth / 1;
    const int day = (month - c_dayZero).count() + time.wDay - 1;
    const DATE date = DateOf(day, time.wHour, time.wMinute, time.wSecond);
    if (!IsDate(date))
        return 0;
    *variantTime = date;
    return 1;
}

INT VariantTimeToSystemTime(DOUBLE variantTime, LPSYSTEMTIME systemTime)
{
    if (!IsDate(variantTime))
        return 0;
    const DayAndSecond moment = NearestSecond(variantTime);
    if (moment.day >= static_cast<int>(c_endOfDates))
        return 0;
    const std::chrono::year_month_day date = CalendarOf(moment.day);
    systemTime->wYear = static_cast<WORD>(static_cast<int>(date.year()));
    systemTime->wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    systemTime->wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    systemTime->wDayOfWeek = static_cast<WORD>(std::chrono::weekday(std::chrono::sys_days(date)).c_encoding());
    systemTime->wHour = static_cast<WORD>(moment.second / 3600);
    systemTime->wMinute = static_cast<WORD>(moment.second / 60 % 60);
    systemTime->wSecond = static_cast<WORD>(moment.second % 60);
    systemTime->wMilliseconds = 0;
    return 1;
}
