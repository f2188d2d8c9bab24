#include <cstdlib>
#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/LogTestSupport.h"
#include "vetools/logging/LogFileBase.h"
#include "vetools/logging/VeDesignLog.h"

// The words of dates, by the variables of the environment that name the user's language.

namespace
{

/// Sets a variable, or removes it for null, and restores it at the end.
class Variable
{
public:
    Variable(const char* name, const char* value)
        : m_name(name)
    {
        if (const char* const previous = std::getenv(name))
            m_previous = previous;
        Set(value);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { Set(m_previous.empty() ? nullptr : m_previous.c_str()); }

private:
    void Set(const char* value) const
    {
        if (value != nullptr)
            ::setenv(m_name, value, 1);
        else
            ::unsetenv(m_name);
    }

    const char* m_name;
    std::string m_previous;
};

/// 18 January 2021.
std::wstring LongDate()
{
    SYSTEMTIME date{};
    date.wYear = 2021;
    date.wMonth = 1;
    date.wDay = 18;
    wchar_t text[128] = L"";
    EXPECT_LT(0, ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &date, nullptr, text, 128));
    return text;
}

}  // namespace

// clang-format off
TEST(LogLanguage, IsThatOfTheEnvironment)
{
    const struct
    {
        const wchar_t* expected;
        const char* all;
        const char* time;
        const char* lang;
    } rows[] = {
    //   expected                       LC_ALL             LC_TIME        LANG
        {L"Monday, January 18, 2021",   nullptr,           nullptr,       nullptr},
        {L"Monday, January 18, 2021",   "",                "",            ""},
        {L"Monday, January 18, 2021",   "C",               "fr_FR",       "fr_FR"},
        {L"Monday, January 18, 2021",   "POSIX",           nullptr,       nullptr},
        {L"Monday, January 18, 2021",   "C.UTF-8",         nullptr,       nullptr},
        {L"Monday, January 18, 2021",   "en_US.UTF-8",     nullptr,       nullptr},
        {L"Monday, January 18, 2021",   "no such locale",  nullptr,       nullptr},
        {L"Monday, January 18, 2021",   "\xFF\x01/../%s",  nullptr,       nullptr},
        {L"lundi 18 janvier 2021",      "fr_FR.UTF-8",     "de_DE",       "it_IT"},
        {L"lundi 18 janvier 2021",      nullptr,           "fr_FR",       "it_IT"},
        {L"lundi 18 janvier 2021",      "",                "",            "fr"},
        {L"Montag, 18. Januar 2021",    "de_DE@euro",      nullptr,       nullptr},
        {L"2021\u5E741\u670818\u65E5\u661F\u671F\u4E00", "zh_CN.GB18030", nullptr, nullptr},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        const Variable all("LC_ALL", row.all);
        const Variable time("LC_TIME", row.time);
        const Variable lang("LANG", row.lang);
        EXPECT_EQ(row.expected, LongDate())
            << (row.all ? row.all : "-") << ' ' << (row.time ? row.time : "-") << ' ' << (row.lang ? row.lang : "-");
    }
}

TEST(LogLanguage, IsTheSameInBothKindsOfLog)
{
    const TestFolder folder;
    const Variable all("LC_ALL", "fr_FR.UTF-8");
    LogFileBase::CreateInstance(folder.Path().wstring().c_str(), 0);
    LogFileBase::ReleaseInstance();
    VeDesignLog* const log = VeDesignLog::CreateLogFileManagerInstance(GUID{}, folder.Prefix());
    log->Write(L"text", 0);
    log->DeleteSessionLog();

    const std::string date =
        "(lundi|mardi|mercredi|jeudi|vendredi|samedi|dimanche) [1-3]?[0-9] [a-z\xC3\xA9\xBB]+ 20[0-9]{2}";
    EXPECT_TRUE(std::regex_match(LogTextOf(folder / "Log.txt"),
                                 std::regex("PID:# Log started\nPID:# " + date + ", TIME, PID = # QM2020.0.0\nPID:# " +
                                            date + ", TIME, PID = #, Entries = 0, Errors = 0 \nPID:# Log ended\n")))
        << LogTextOf(folder / "Log.txt");
    EXPECT_TRUE(std::regex_match(LogTextOf(folder / "VeDesignLog.log"),
                                 std::regex("\n" + date + R"( TIME \[INFORMATION\] : text)")))
        << LogTextOf(folder / "VeDesignLog.log");
}
