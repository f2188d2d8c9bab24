#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cwchar>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <time.h>

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>

#include "vetools/platform/posix/ErrnoMapping.h"
#include "vetools/platform/posix/TextOutput.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

constexpr long c_nanosecondsPerMillisecond = 1'000'000;
/// As on the system: a count is 100 nanoseconds.
constexpr LONGLONG c_countsPerSecond = 10'000'000;
constexpr long c_nanosecondsPerCount = 100;

/// The local date and time of a second since 1970.
SYSTEMTIME ZoneTime(time_t second)
{
    tm local{};
    ::localtime_r(&second, &local);
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(local.tm_year + 1900);
    time.wMonth = static_cast<WORD>(local.tm_mon + 1);
    time.wDayOfWeek = static_cast<WORD>(local.tm_wday);
    time.wDay = static_cast<WORD>(local.tm_mday);
    time.wHour = static_cast<WORD>(local.tm_hour);
    time.wMinute = static_cast<WORD>(local.tm_min);
    time.wSecond = static_cast<WORD>(std::min(local.tm_sec, 59));  // the system knows no leap second
    return time;
}

SYSTEMTIME LocalTime()
{
    SYSTEMTIME time;
    ::GetLocalTime(&time);
    return time;
}

bool IsBuffer(LPCWSTR buffer, int size)
{
    return size == 0 || (size > 0 && buffer != nullptr);
}

// ------------------------------------------------------------------------------------------------ dates

/// The day of a date as the system knows them, from 1601 on.
std::optional<std::chrono::sys_days> DayOf(const SYSTEMTIME& time)
{
    // The calendar keeps only the lower byte of a month and of a day: 257 would be 1.
    if (time.wMonth > 12 || time.wDay > 31)
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(time.wYear), std::chrono::month(time.wMonth),
                                           std::chrono::day(time.wDay)};
    const bool isKnown = date.ok() && time.wYear >= 1601 && time.wYear <= 30827;
    return isKnown ? std::optional<std::chrono::sys_days>(date) : std::nullopt;
}

/// The name of the user's locale for dates, by the variables that the system's own programs read.
std::string_view UserLocaleName()
{
    for (const char* const variable : {"LC_ALL", "LC_TIME", "LANG"})
    {
        const char* const name = std::getenv(variable);
        if (name != nullptr && *name != '\0')
            return name;
    }
    return "C";
}

icu::Locale LocaleOf(std::string_view name)
{
    const std::string_view language = name.substr(0, name.find_first_of(".@"));
    if (language == "C" || language == "POSIX")
        return icu::Locale::getUS();
    const icu::Locale locale = icu::Locale::createCanonical(std::string(name).c_str());
    // A language without a code of three letters is none.
    return *locale.getISO3Language() != '\0' ? locale : icu::Locale::getUS();
}

/// Writes long dates, and keeps the formatter for the next one: it takes far longer to make than to use.
class LongDateWriter
{
public:
    /// False when there is no formatter.
    bool Write(TextOutput<wchar_t>& output, std::chrono::sys_days day)
    {
        if (const std::string_view name = UserLocaleName(); !m_format || name != m_localeName)
            UseLocale(name);
        if (!m_format)
            return false;
        icu::UnicodeString text;
        m_format->format(std::chrono::duration<UDate, std::milli>(day.time_since_epoch()).count(), text);
        for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
            output.Put(static_cast<wchar_t>(text.char32At(i)));
        return true;
    }

private:
    void UseLocale(std::string_view name)
    {
        m_localeName = name;
        m_format.reset(icu::DateFormat::createDateInstance(icu::DateFormat::kFull, LocaleOf(name)));
        if (m_format)
            m_format->setTimeZone(*icu::TimeZone::getGMT());
    }

    std::string m_localeName;
    std::unique_ptr<icu::DateFormat> m_format;
};

// ------------------------------------------------------------------------------------------------ times

/// Reads a picture such as hh':'mm and writes the time that it shows.
class TimePicture
{
public:
    TimePicture(std::wstring_view picture, const SYSTEMTIME& time, bool force24Hours)
        : m_picture(picture)
        , m_time(time)
        , m_force24Hours(force24Hours)
    {
    }

    /// False for a picture that asks for what is not known here.
    bool Write(TextOutput<wchar_t>& output)
    {
        while (!m_picture.empty())
        {
            if (m_picture.front() == L't')
                return false;
            if (m_picture.front() == L'\'')
                WriteQuoted(output);
            else if (const std::optional<int> value = ValueOf(m_picture.front()))
                WriteNumber(output, *value, ConsumeRepeated());
            else
                output.Put(Consume());
        }
        return true;
    }

private:
    wchar_t Consume()
    {
        const wchar_t character = m_picture.front();
        m_picture.remove_prefix(1);
        return character;
    }

    /// How often the next character stands there.
    std::size_t ConsumeRepeated()
    {
        const std::size_t count = std::min(m_picture.find_first_not_of(m_picture.front()), m_picture.size());
        m_picture.remove_prefix(count);
        return count;
    }

    /// 'text' without its marks; '' within it is one mark. A missing last mark stands at the end.
    void WriteQuoted(TextOutput<wchar_t>& output)
    {
        Consume();
        while (!m_picture.empty())
        {
            const wchar_t character = Consume();
            if (character == L'\'' && (m_picture.empty() || m_picture.front() != L'\''))
                return;
            if (character == L'\'')
                Consume();
            output.Put(character);
        }
    }

    std::optional<int> ValueOf(wchar_t letter) const
    {
        switch (letter)
        {
        case L'h':
            return m_force24Hours ? m_time.wHour : (m_time.wHour + 11) % 12 + 1;
        case L'H':
            return m_time.wHour;
        case L'm':
            return m_time.wMinute;
        case L's':
            return m_time.wSecond;
        default:
            return std::nullopt;
        }
    }

    static void WriteNumber(TextOutput<wchar_t>& output, int value, std::size_t digits)
    {
        if (digits > 1 || value > 9)
            output.Put(static_cast<wchar_t>(L'0' + value / 10));
        output.Put(static_cast<wchar_t>(L'0' + value % 10));
    }

    std::wstring_view m_picture;
    const SYSTEMTIME& m_time;
    bool m_force24Hours;
};

bool IsTimeOfDay(const SYSTEMTIME& time)
{
    return time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

}  // namespace

void GetLocalTime(SYSTEMTIME* time)
{
    // The zone is asked once in a second: a log writes many lines in one.
    thread_local time_t t_second = -1;
    thread_local SYSTEMTIME t_time{};

    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (now.tv_sec != t_second)
    {
        t_time = ZoneTime(now.tv_sec);
        t_second = now.tv_sec;
    }
    *time = t_time;
    time->wMilliseconds = static_cast<WORD>(now.tv_nsec / c_nanosecondsPerMillisecond);
}

int GetDateFormatW(LCID, DWORD flags, const SYSTEMTIME* date, LPCWSTR picture, LPWSTR buffer, int size)
{
    if (flags != DATE_LONGDATE)
        return Fail(ERROR_INVALID_FLAGS);
    const std::optional<std::chrono::sys_days> day = DayOf(date != nullptr ? *date : LocalTime());
    if (!day || picture != nullptr || !IsBuffer(buffer, size))
        return Fail(ERROR_INVALID_PARAMETER);

    static std::mutex s_guard;
    // Never destroyed: at the end of the process the destructor of a static object may close a log.
    static LongDateWriter& s_writer = *new LongDateWriter;
    const std::lock_guard guard(s_guard);
    TextOutput<wchar_t> output(buffer, size);
    if (!s_writer.Write(output, *day))
        return Fail(ERROR_INVALID_PARAMETER);
    output.Put(L'\0');
    return output.Result();
}

int GetTimeFormatW(LCID, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR buffer, int size)
{
    if ((flags & ~TIME_FORCE24HOURFORMAT) != 0)
        return Fail(ERROR_INVALID_FLAGS);
    const SYSTEMTIME shown = time != nullptr ? *time : LocalTime();
    if (!IsTimeOfDay(shown) || picture == nullptr || !IsBuffer(buffer, size))
        return Fail(ERROR_INVALID_PARAMETER);

    TextOutput<wchar_t> output(buffer, size);
    if (!TimePicture(picture, shown, (flags & TIME_FORCE24HOURFORMAT) != 0).Write(output))
        return Fail(ERROR_INVALID_PARAMETER);
    output.Put(L'\0');
    return output.Result();
}

BOOL QueryPerformanceCounter(LARGE_INTEGER* count)
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    count->QuadPart = now.tv_sec * c_countsPerSecond + now.tv_nsec / c_nanosecondsPerCount;
    return 1;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* countsPerSecond)
{
    countsPerSecond->QuadPart = c_countsPerSecond;
    return 1;
}
