#include "vetools/framework/COleDateTime.h"

#include <chrono>
#include <cmath>
#include <string_view>

#include "vetools/platform/VariantConversion.h"

namespace
{

constexpr int c_invalidDateTextId = 0xD800;
constexpr const wchar_t* c_invalidDateText = L"Invalid DateTime";
constexpr int c_longestDateText = 255;
constexpr int c_noField = -1;

constexpr std::wstring_view c_dayNames[] = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                            L"Thursday", L"Friday", L"Saturday"};
constexpr std::wstring_view c_monthNames[] = {L"January",   L"February", L"March",    L"April",
                                              L"May",       L"June",     L"July",     L"August",
                                              L"September", L"October",  L"November", L"December"};
constexpr std::size_t c_shortNameLength = 3;

std::chrono::year_month_day CalendarDate(const SYSTEMTIME& time) noexcept
{
    using namespace std::chrono;
    return {year(time.wYear), month(time.wMonth), day(time.wDay)};
}

int DayOfYear(const SYSTEMTIME& time) noexcept
{
    using namespace std::chrono;
    const sys_days newYear = CalendarDate(time).year() / January / 1;
    return static_cast<int>((sys_days(CalendarDate(time)) - newYear).count()) + 1;
}

WORD DayOfWeek(const SYSTEMTIME& time) noexcept
{
    return static_cast<WORD>(std::chrono::weekday(CalendarDate(time)).c_encoding());
}

int HourOfTwelve(const SYSTEMTIME& time) noexcept
{
    return time.wHour % 12 == 0 ? 12 : time.wHour % 12;
}

/// A number with zeros in front up to `digits` digits, which it does not exceed.
void AppendNumber(CString& text, int number, int digits)
{
    for (int unit = digits == 4 ? 1000 : digits == 3 ? 100 : digits == 2 ? 10 : 1; unit > 0; unit /= 10)
        text += static_cast<wchar_t>(L'0' + number / unit % 10);
}

void AppendDate(CString& text, const wchar_t* format, const SYSTEMTIME& time);

/// What stands for one conversion character; false for one that has no meaning.
bool AppendField(CString& text, wchar_t conversion, const SYSTEMTIME& time)
{
    // clang-format off
    switch (conversion)
    {
        case L'a': text.Append(c_dayNames[time.wDayOfWeek].data(), c_shortNameLength);     return true;
        case L'A': text += c_dayNames[time.wDayOfWeek].data();                             return true;
        case L'b': text.Append(c_monthNames[time.wMonth - 1].data(), c_shortNameLength);   return true;
        case L'B': text += c_monthNames[time.wMonth - 1].data();                           return true;
        case L'c': AppendDate(text, L"%x %X", time);                                       return true;
        case L'd': AppendNumber(text, time.wDay, 2);                                       return true;
        case L'H': AppendNumber(text, time.wHour, 2);                                      return true;
        case L'I': AppendNumber(text, HourOfTwelve(time), 2);                              return true;
        case L'j': AppendNumber(text, DayOfYear(time), 3);                                 return true;
        case L'm': AppendNumber(text, time.wMonth, 2);                                     return true;
        case L'M': AppendNumber(text, time.wMinute, 2);                                    return true;
        case L'p': text += time.wHour < 12 ? L"AM" : L"PM";                                return true;
        case L'S': AppendNumber(text, time.wSecond, 2);                                    return true;
        case L'w': AppendNumber(text, time.wDayOfWeek, 1);                                 return true;
        case L'x': AppendDate(text, L"%m/%d/%y", time);                                    return true;
        case L'X': AppendDate(text, L"%H:%M:%S", time);                                    return true;
        case L'y': AppendNumber(text, time.wYear % 100, 2);                                return true;
        case L'Y': AppendNumber(text, time.wYear, 4);                                      return true;
        case L'%': text += L'%';                                                           return true;
        default:                                                                           return false;
    }
    // clang-format on
}

void AppendDate(CString& text, const wchar_t* format, const SYSTEMTIME& time)
{
    for (; *format != L'\0'; ++format)
    {
        if (*format == L'%' && AppendField(text, format[1], time))
            ++format;
        else
            text += *format;
    }
}

CString InvalidDateText()
{
    CString text;
    return text.LoadString(c_invalidDateTextId) ? text : CString(c_invalidDateText);
}

SYSTEMTIME SystemTimeOf(int year, int month, int day, int hour, int minute, int second) noexcept
{
    // A field that does not fit becomes one that no date has.
    const auto field = [](int value)
    {
        return value < 0 || value > 0xFFFE ? WORD{0xFFFF} : static_cast<WORD>(value);
    };
    SYSTEMTIME time = {};
    time.wYear = field(year);
    time.wMonth = field(month);
    time.wDay = field(day);
    time.wHour = field(hour);
    time.wMinute = field(minute);
    time.wSecond = field(second);
    return time;
}

/// Whether the fields are a date and a time of day: the system's own functions take and give some that are none, such as
/// year 21 for 2021, 31 November for 1 December, and 1 January 10000.
bool IsDate(const SYSTEMTIME& time) noexcept
{
    return time.wYear >= 100 && time.wYear <= 9999 && time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 &&
           CalendarDate(time).ok();
}

int FieldOf(const COleDateTime& date, WORD SYSTEMTIME::*field) noexcept
{
    SYSTEMTIME fields;
    return date.GetAsSystemTime(fields) ? fields.*field : c_noField;
}

/// A number that grows with time, where that of the date before day 0 does not within a day.
double TimeLine(DATE date) noexcept
{
    const double days = std::trunc(date);
    return days + std::fabs(date - days);
}

}  // namespace

COleDateTime::COleDateTime() noexcept
    : m_dt(0.0)
    , m_status(valid)
{
}

COleDateTime::COleDateTime(DATE date) noexcept
{
    *this = date;
}

COleDateTime::COleDateTime(const VARIANT& value)
{
    *this = value;
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
{
    SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime::COleDateTime(const SYSTEMTIME& systemTime) noexcept
{
    *this = systemTime;
}

COleDateTime& COleDateTime::operator=(DATE date) noexcept
{
    m_dt = date;
    m_status = valid;
    SYSTEMTIME fields;
    if (!GetAsSystemTime(fields))
        m_status = invalid;
    return *this;
}

COleDateTime& COleDateTime::operator=(const VARIANT& value)
{
    if (value.vt == VT_DATE)
        return *this = value.date;
    VARIANT converted;
    ::VariantInit(&converted);
    if (SUCCEEDED(ConvertVariant(converted, value, VT_DATE)))
        return *this = converted.date;
    m_dt = 0.0;
    m_status = invalid;
    return *this;
}

COleDateTime& COleDateTime::operator=(const SYSTEMTIME& systemTime) noexcept
{
    SYSTEMTIME fields = systemTime;
    m_dt = 0.0;
    m_status = IsDate(fields) && ::SystemTimeToVariantTime(&fields, &m_dt) != 0 ? valid : invalid;
    return *this;
}

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
{
    *this = SystemTimeOf(year, month, day, hour, minute, second);
    return m_status;
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& systemTime) const noexcept
{
    if (m_status != valid || !std::isfinite(m_dt))
        return false;
    SYSTEMTIME fields = {};
    if (::VariantTimeToSystemTime(m_dt, &fields) == 0 || !IsDate(fields))
        return false;
    // A time of day that is rounded up to midnight gives the next day, but the system may leave the day of the week.
    fields.wDayOfWeek = DayOfWeek(fields);
    systemTime = fields;
    return true;
}

int COleDateTime::GetYear() const noexcept
{
    return FieldOf(*this, &SYSTEMTIME::wYear);
}

int COleDateTime::GetMonth() const noexcept
{
    return FieldOf(*this, &SYSTEMTIME::wMonth);
}

int COleDateTime::GetDay() const noexcept
{
    return FieldOf(*this, &SYSTEMTIME::wDay);
}

int COleDateTime::GetHour() const noexcept
{
    return FieldOf(*this, &SYSTEMTIME::wHour);
}

int COleDateTime::GetMinute() const noexcept
{
    return FieldOf(*this, &SYSTEMTIME::wMinute);
}

int COleDateTime::GetSecond() const noexcept
{
    return FieldOf(*this, &SYSTEMTIME::wSecond);
}

int COleDateTime::GetDayOfWeek() const noexcept
{
    SYSTEMTIME fields;
    return GetAsSystemTime(fields) ? fields.wDayOfWeek + 1 : c_noField;
}

int COleDateTime::GetDayOfYear() const noexcept
{
    SYSTEMTIME fields;
    return GetAsSystemTime(fields) ? DayOfYear(fields) : c_noField;
}

bool COleDateTime::operator==(const COleDateTime& other) const noexcept
{
    return m_status == other.m_status && m_dt == other.m_dt;
}

bool COleDateTime::operator<(const COleDateTime& other) const noexcept
{
    return TimeLine(m_dt) < TimeLine(other.m_dt);
}

CString COleDateTime::Format(const wchar_t* format) const
{
    if (m_status == null || format == nullptr)
        return CString();
    SYSTEMTIME fields;
    if (!GetAsSystemTime(fields))
        return InvalidDateText();
    CString text;
    AppendDate(text, format, fields);
    return text.GetLength() <= c_longestDateText ? text : CString();
}
