#include <chrono>
#include <climits>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/DebuggerOutput.h"
#include "tests/support/FileTestSupport.h"
#include "tests/support/LogTestSupport.h"
#include "vetools/logging/LogFileBase.h"

namespace
{

namespace fs = std::filesystem;

constexpr char c_started[] = "PID:# Log started\nPID:# DATE, TIME, PID = # QM2020.0.0\n";
constexpr char c_headerLine[] = "PID:# DATE, TIME, PID = # QM2020.0.0\n";
constexpr auto c_sameLevel = static_cast<LogFileBase::EntryLevel>(-1);

std::string Ended(int entries, int errors)
{
    return "PID:# DATE, TIME, PID = #, Entries = " + std::to_string(entries) + ", Errors = " + std::to_string(errors) +
           " \nPID:# Log ended\n";
}

/// A log that is not that of the process, and shows what a derived class sees.
class OwnLog : public LogFileBase
{
public:
    OwnLog() = default;
    ~OwnLog() override = default;
    OwnLog(const OwnLog&) = default;
    OwnLog& operator=(const OwnLog&) = default;

    HANDLE Handle() const { return m_hFile; }
    const std::wstring& Path() const { return m_strPath; }
    int MinLevel() const { return m_minLevel; }
    int Entries() const { return m_nEntries; }
    int Errors() const { return m_nErrors; }
    static const LogFileBase* Singleton() { return s_pSingleton; }
};

/// The folder of a test, in which the log of the process is "Log.txt" and other logs are "own.log".
class LogFile : public testing::Test
{
protected:
    ~LogFile() override { LogFileBase::ReleaseInstance(); }

    std::wstring Folder() const { return m_folder.Path().wstring(); }
    std::wstring OwnPath() const { return m_folder.Prefix() + L"own.log"; }
    std::string Text(const char* name = "own.log") const { return LogTextOf(m_folder / name); }

    LogFileBase& Create(int maxSize = 0)
    {
        EXPECT_TRUE(LogFileBase::CreateInstance(Folder().c_str(), maxSize));
        return *LogFileBase::GetInstance();
    }

    /// Opens a log that writes every level, without the lines that a log begins with.
    void OpenBare(OwnLog& log)
    {
        ASSERT_TRUE(log.Open(OwnPath().c_str(), LogFileBase::Comment, true, nullptr));
        Clear();
    }

    void Clear() { fs::resize_file(m_folder / "own.log", 0); }

    /// What the log holds since it was last asked.
    std::string Take()
    {
        const std::string text = Text();
        Clear();
        return text;
    }

    TestFolder m_folder;
};

/// Makes a folder the current one while it lives.
class CurrentFolder
{
public:
    explicit CurrentFolder(const fs::path& folder)
        : m_previous(fs::current_path())
    {
        fs::current_path(folder);
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { fs::current_path(m_previous); }

private:
    fs::path m_previous;
};

}  // namespace

// ------------------------------------------------------------------------------------------------ the log of the process

TEST_F(LogFile, OfAFreshProcessIsLogLogInTheCurrentFolder)
{
    const CurrentFolder current(m_folder.Path());
    LogFileBase* const log = LogFileBase::GetInstance();
    ASSERT_NE(nullptr, log);
    EXPECT_EQ(log, LogFileBase::GetInstance());
    EXPECT_EQ(c_started, Text("Log.log"));
    LogFileBase::ReleaseInstance();
    EXPECT_EQ(c_started + Ended(0, 0), Text("Log.log"));
    EXPECT_EQ(1u, m_folder.Count());
}

TEST_F(LogFile, InAFolderIsLogTxt)
{
    LogFileBase& log = Create();
    EXPECT_TRUE(log.IsOpen());
    EXPECT_EQ(c_started, Text("Log.txt"));
    EXPECT_EQ(1u, m_folder.Count());
}

TEST_F(LogFile, IsReleasedOnce)
{
    Create();
    EXPECT_NE(nullptr, OwnLog::Singleton());
    LogFileBase::ReleaseInstance();
    EXPECT_EQ(nullptr, OwnLog::Singleton());
    LogFileBase::ReleaseInstance();
    EXPECT_EQ(nullptr, OwnLog::Singleton());
    EXPECT_EQ(c_started + Ended(0, 0), Text("Log.txt"));
}

TEST_F(LogFile, IsEndedBeforeAnotherTakesItsPlace)
{
    Create().WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"first");
    LogFileBase& log = Create();
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"second");
    LogFileBase::ReleaseInstance();
    EXPECT_EQ(c_started + std::string("PID:#  Error : first\n") + Ended(1, 1) + c_started +
                  "PID:#  Message : second\n" + Ended(1, 0),
              Text("Log.txt"));
}

TEST_F(LogFile, IsMadeAlsoWhereNoFileCanBe)
{
    EXPECT_TRUE(LogFileBase::CreateInstance((Folder() + L"/missing").c_str(), 0));
    ASSERT_NE(nullptr, OwnLog::Singleton());
    EXPECT_TRUE(LogFileBase::GetInstance()->IsOpen());
    EXPECT_EQ(0u, m_folder.Count());
}

TEST_F(LogFile, LeavesOutCommentsAndWarningsUnlessItIsOpenedForThem)
{
    LogFileBase& log = Create();
    for (int level = LogFileBase::Comment; level <= LogFileBase::Exception; ++level)
        log.WriteEntryBegin(static_cast<LogFileBase::EntryLevel>(level), true, false, nullptr, 0)
            .WriteEntryEnd(L"text");
    LogFileBase::ReleaseInstance();
    EXPECT_EQ(c_started +
                  std::string("PID:#  Message : text\nPID:#  Exception Message : text\nPID:#  Error : text\n"
                              "PID:#  Exception : text\n") +
                  Ended(4, 2),
              Text("Log.txt"));
}

// clang-format off
TEST_F(LogFile, IsDeletedFirstWhenItIsLargerThanItMayBe)
{
    const struct
    {
        bool isKept;
        std::uintmax_t size;
        int maxSize;
        const char* why;
    } rows[] = {
        {true,  10000000,       10000000, "as large as it may be"},
        {false, 10000001,       10000000, "one byte more"},
        {true,  10000001,              0, "no limit"},
        {false, 1000,                 -1, "a limit below nothing"},
        {true,  0x7FFFFFFF,      INT_MAX, "the largest limit"},
        {true,  0x80000000,            1, "Kept: 2 GB are a negative number"},
        {true,  0xFFFFFFFF,      INT_MIN, "Kept: 4 GB less a byte are -1, which is no size"},
        {false, 0xFFFFFFFE,      INT_MIN, "Kept: -2, compared with a sign"},
        {true,  0x100000001,           1, "Kept: the lower 32 bits of 4 GB and a byte are 1"},
    };
    const fs::path path = m_folder / "Log.txt";
    for (const auto& row : rows)
    {
        fs::remove(path);
        WriteBytes(path, {});
        fs::resize_file(path, row.size);  // zeros that take no room on the disk
        Create(row.maxSize);
        EXPECT_EQ(row.isKept, fs::file_size(path) > row.size) << row.why;
        LogFileBase::ReleaseInstance();
    }
}
// clang-format on

TEST_F(LogFile, ThatIsKeptIsAppendedTo)
{
    WriteBytes(m_folder / "Log.txt", Bytes{'o', 'l', 'd', '\n'});
    Create(10);
    EXPECT_EQ(std::string("old\n") + c_started, Text("Log.txt"));
    LogFileBase::ReleaseInstance();
    Create(10);
    EXPECT_EQ(c_started, Text("Log.txt"));
}

// ------------------------------------------------------------------------------------------------ opening and closing

TEST_F(LogFile, BeginsWithTheHeaderAndALineOfDateTimeAndProcess)
{
    OwnLog log;
    EXPECT_FALSE(log.IsOpen());
    EXPECT_TRUE(log.Open(OwnPath().c_str(), LogFileBase::Warning, true, L"header\n"));
    EXPECT_TRUE(log.IsOpen());
    EXPECT_EQ(OwnPath(), log.Path());
    EXPECT_EQ(LogFileBase::Warning, log.MinLevel());
    EXPECT_EQ(std::string("PID:# header\n") + c_headerLine, Text());
}

TEST_F(LogFile, NeedsNoHeaderAndNoTrailer)
{
    OwnLog log;
    EXPECT_TRUE(log.Open(OwnPath().c_str(), LogFileBase::Comment, true, nullptr));
    log.Close(nullptr);
    EXPECT_EQ(c_headerLine + std::string("PID:# DATE, TIME, PID = #, Entries = 0, Errors = 0 \n"), Text());
}

TEST_F(LogFile, IsDeletedByAnOpenThatDoesNotAppend)
{
    OwnLog log;
    log.Open(OwnPath().c_str(), LogFileBase::Comment, true, L"old\n");
    log.Close(nullptr);
    EXPECT_TRUE(log.Open(OwnPath().c_str(), LogFileBase::Comment, false, L"new\n"));
    EXPECT_EQ(std::string("PID:# new\n") + c_headerLine, Text());
}

TEST_F(LogFile, KeepsItsThresholdWhenItIsOpenedWithMinusOne)
{
    OwnLog log;
    log.Open(OwnPath().c_str(), c_sameLevel, true, nullptr);
    EXPECT_EQ(LogFileBase::Comment, log.MinLevel());
    log.Close(nullptr);
    log.Open(OwnPath().c_str(), LogFileBase::Error, true, nullptr);
    log.Close(nullptr);
    log.Open(OwnPath().c_str(), c_sameLevel, true, nullptr);
    EXPECT_EQ(LogFileBase::Error, log.MinLevel());
}

TEST_F(LogFile, WritesItsSummaryOnceAndBeforeTheTrailer)
{
    {
        OwnLog log;
        log.Open(OwnPath().c_str(), LogFileBase::Comment, true, nullptr);
        log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"text");
        log.Close(L"trailer\n");
        EXPECT_FALSE(log.IsOpen());
        log.Close(L"trailer\n");
    }
    EXPECT_EQ(c_headerLine + std::string("PID:#  Error : text\nPID:# DATE, TIME, PID = #, Entries = 1, Errors = 1 \n"
                                         "PID:# trailer\n"),
              Text());
}

TEST_F(LogFile, IsClosedByItsDestructor)
{
    {
        OwnLog log;
        OpenBare(log);
    }
    EXPECT_EQ(Ended(0, 0), Text());
}

TEST_F(LogFile, KeepsItsCountersWhenItIsClosedAndOpenedAgain)
{
    OwnLog log;
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Exception, true, false, nullptr, 0).WriteEntryEnd(L"text");
    log.Close(nullptr);
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Comment, true, false, nullptr, 0).WriteEntryEnd(L"text");
    log.Close(nullptr);
    EXPECT_EQ("PID:#  Comment : text\nPID:# DATE, TIME, PID = #, Entries = 2, Errors = 1 \n", Text());
}

TEST_F(LogFile, AcceptsNoEntriesWhenItIsClosed)
{
    OwnLog log;
    log.WriteEntryBegin(LogFileBase::Error, true, true, "file", 1).WriteEntryEnd(L"never opened");
    OpenBare(log);
    log.Close(nullptr);
    Clear();
    log.WriteEntryBegin(LogFileBase::Error, true, true, "file", 1).WriteEntryEnd(L"closed");
    EXPECT_EQ("", Text());
    EXPECT_EQ(0, log.Entries());
}

TEST_F(LogFile, KeptCountsAsOpenWhenItCannotBeOpened)
{
    for (const std::wstring& path : {m_folder.Prefix() + L"missing/own.log", Folder(), std::wstring()})
    {
        OwnLog log;
        EXPECT_TRUE(log.Open(path.c_str(), LogFileBase::Comment, true, L"header\n")) << testing::PrintToString(path);
        EXPECT_TRUE(log.IsOpen());
        EXPECT_EQ(INVALID_HANDLE_VALUE, log.Handle());
        log.WriteEntryBegin(LogFileBase::Error, true, true, nullptr, 0).WriteEntryEnd(L"lost");
        EXPECT_EQ(1, log.Entries());
        log.Close(L"trailer\n");
        EXPECT_FALSE(log.IsOpen());
    }
    EXPECT_EQ(0u, m_folder.Count());
}

TEST_F(LogFile, ReadsANullPathAsAnEmptyOne)
{
    OwnLog log;
    EXPECT_TRUE(log.Open(nullptr, LogFileBase::Comment, false, nullptr));
    EXPECT_EQ(L"", log.Path());
    EXPECT_EQ(INVALID_HANDLE_VALUE, log.Handle());
}

TEST_F(LogFile, KeptLosesItsFirstHandleWhenItIsOpenedTwice)
{
    OwnLog log;
    OpenBare(log);
    const HANDLE first = log.Handle();
    log.Open((m_folder.Prefix() + L"second.log").c_str(), LogFileBase::Comment, true, nullptr);
    EXPECT_NE(first, log.Handle());
    log.WriteEntryBegin(LogFileBase::Comment, true, false, nullptr, 0).WriteEntryEnd(L"text");
    EXPECT_EQ("", Text());
    EXPECT_EQ(c_headerLine + std::string("PID:#  Comment : text\n"), Text("second.log"));
    EXPECT_TRUE(::CloseHandle(first));  // open until now
}

TEST_F(LogFile, KeptSharesItsHandleWithItsCopies)
{
    OwnLog log;
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"one");
    OwnLog copy(log);
    EXPECT_EQ(log.Handle(), copy.Handle());
    EXPECT_EQ(log.Path(), copy.Path());
    EXPECT_EQ(1, copy.Entries());
    EXPECT_EQ(1, copy.Errors());
    copy.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"two");
    EXPECT_EQ(1, log.Entries());
    EXPECT_EQ("PID:#  Error : one\nPID:#  Message : two\n", Take());

    OwnLog assigned;
    assigned = copy;
    EXPECT_EQ(log.Handle(), assigned.Handle());
    EXPECT_EQ(2, assigned.Entries());
    assigned.WriteEntryEnd(L" again");  // the entry under construction is copied too
    EXPECT_EQ("PID:#  Message : two\n again\n", Take());
    copy.Close(nullptr);
    EXPECT_TRUE(log.IsOpen());
    Clear();
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"lost");
    EXPECT_EQ("", Text());
}

TEST_F(LogFile, IsSharedWithOtherReadersAndWriters)
{
    OwnLog first;
    OwnLog second;
    OpenBare(first);
    OpenBare(second);
    first.WriteEntryBegin(LogFileBase::Comment, true, false, nullptr, 0).WriteEntryEnd(L"one");
    second.WriteEntryBegin(LogFileBase::Comment, true, false, nullptr, 0).WriteEntryEnd(L"two");
    first.WriteEntryBegin(LogFileBase::Comment, true, false, nullptr, 0).WriteEntryEnd(L"three");
    EXPECT_EQ("PID:#  Comment : one\nPID:#  Comment : two\nPID:#  Comment : three\n", Text());
}

TEST_F(LogFile, IsOpenAsADerivedClassSays)
{
    class ShutLog : public OwnLog
    {
    public:
        bool IsOpen() const override { return !m_isShut && OwnLog::IsOpen(); }
        bool m_isShut = false;
    };
    ShutLog log;
    OpenBare(log);
    log.m_isShut = true;
    log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"lost");
    log.Close(L"trailer\n");
    EXPECT_EQ("", Text());
    log.m_isShut = false;
    log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"written");
    EXPECT_EQ("PID:#  Error : written\n", Text());
}

// ------------------------------------------------------------------------------------------------ entries

// clang-format off
TEST_F(LogFile, EntriesAreSourceTimeLevelAndMessage)
{
    const auto Comment = LogFileBase::Comment;
    const auto Warning = LogFileBase::Warning;
    const auto Message = LogFileBase::Message;
    const auto ExceptionMessage = LogFileBase::ExceptionMessage;
    const auto Error = LogFileBase::Error;
    const auto Exception = LogFileBase::Exception;
    const struct
    {
        const char* expected;
        int entries;
        int errors;
        LogFileBase::EntryLevel level;
        bool withLevelText;
        bool withTime;
        const char* sourceFile;
        int line;
    } rows[] = {
    //   expected                                     entries     level              text   time   source     line
        {"PID:# text\n",                                 0, 0,    Comment,           false, false, nullptr,      0},
        {"PID:# TIMEtext\n",                             0, 0,    Comment,           false, true,  nullptr,      0},
        {"PID:#  Comment : text\n",                      1, 0,    Comment,           true,  false, nullptr,      0},
        {"PID:# TIME Comment : text\n",                  1, 0,    Comment,           true,  true,  nullptr,      0},
        {"PID:# TIME Warning : text\n",                  1, 0,    Warning,           true,  true,  "file.cpp",  12},
        {"PID:# TIME Message : text\n",                  1, 0,    Message,           true,  true,  "file.cpp",  12},
        {"PID:# TIME Exception Message : text\n",        1, 0,    ExceptionMessage,  true,  true,  "file.cpp",  12},
        {"PID:# TIME Error : text\n",                    1, 1,    Error,             true,  true,  nullptr,     12},
        {"PID:# file.cppTIME Error : text\n",            1, 1,    Error,             true,  true,  "file.cpp",   0},
        {"PID:# file.cpp(12)TIME Error : text\n",        1, 1,    Error,             true,  true,  "file.cpp",  12},
        {"PID:# file.cpp(12)TIMEtext\n",                 0, 0,    Error,             false, true,  "file.cpp",  12},
        {"PID:# file.cpp(12)text\n",                     0, 0,    Exception,         false, false, "file.cpp",  12},
        {"PID:# (-1) Exception : text\n",                1, 1,    Exception,         true,  false, "",          -1},
        {"PID:# f(-2147483648) Exception : text\n",      1, 1,    Exception,         true,  false, "f",    INT_MIN},
    };
    for (const auto& row : rows)
    {
        OwnLog log;
        OpenBare(log);
        EXPECT_EQ(&log, &log.WriteEntryBegin(row.level, row.withLevelText, row.withTime, row.sourceFile, row.line));
        log.WriteEntryEnd(L"text");
        EXPECT_EQ(row.expected, Text());
        EXPECT_EQ(row.entries, log.Entries()) << row.expected;
        EXPECT_EQ(row.errors, log.Errors()) << row.expected;
    }
}
// clang-format on

TEST_F(LogFile, KeptCountsNoEntryWithoutTheTextOfItsLevel)
{
    OwnLog log;
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Error, false, false, nullptr, 0).WriteEntryEnd(L"lost count");
    EXPECT_EQ("PID:# lost count\n", Text());
    EXPECT_EQ(0, log.Entries());
    EXPECT_EQ(0, log.Errors());
    log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"counted");
    EXPECT_EQ(1, log.Entries());
    EXPECT_EQ(1, log.Errors());
}

TEST_F(LogFile, LevelsBeyondTheEnumerationHaveNoText)
{
    const struct
    {
        int level;
        const char* expected;
    } rows[] = {
        {6, "PID:# file(1) : text\n"}, {99, "PID:# file(1) : text\n"}, {INT_MAX, "PID:# file(1) : text\n"},
        {-5, "PID:#  : text\n"},       {INT_MIN, "PID:#  : text\n"},
    };
    OwnLog log;
    log.Open(OwnPath().c_str(), static_cast<LogFileBase::EntryLevel>(INT_MIN), true, nullptr);
    Clear();
    for (const auto& row : rows)
    {
        log.WriteEntryBegin(static_cast<LogFileBase::EntryLevel>(row.level), true, false, "file", 1)
            .WriteEntryEnd(L"text");
        EXPECT_EQ(row.expected, Take()) << row.level;
    }
    EXPECT_EQ(5, log.Entries());
    EXPECT_EQ(3, log.Errors());
}

TEST_F(LogFile, EntriesHaveTheTimeAtWhichTheyWereBegun)
{
    const auto now = []
    {
        wchar_t text[16] = L"";
        ::GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT, nullptr, L"hh':'mm':'ss", text, 16);
        return std::string(text, text + 8);
    };
    OwnLog log;
    OpenBare(log);
    for (int i = 0; i < 2; ++i)
    {
        const std::string before = now();
        log.WriteEntryBegin(LogFileBase::Comment, false, true, nullptr, 0);
        const std::string after = now();
        log.WriteEntryEnd(L"text");
        const Bytes bytes = ReadBytes(m_folder / "own.log");
        const std::string text(bytes.begin(), bytes.end());
        EXPECT_TRUE(text.ends_with(" " + before + "text\n") || text.ends_with(" " + after + "text\n"))
            << before << ' ' << after << ' ' << text;
        std::this_thread::sleep_for(std::chrono::milliseconds(1100));  // the next one has another time
    }
}

TEST_F(LogFile, EntriesBelowTheThresholdLeaveTheLogAsItIs)
{
    OwnLog log;
    OpenBare(log);
    log.Open(OwnPath().c_str(), LogFileBase::Message, true, nullptr);
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"one");
    Clear();
    log.WriteEntryBegin(LogFileBase::Warning, true, false, nullptr, 0).WriteEntryEnd(L"two");
    EXPECT_EQ("", Text());
    EXPECT_EQ(1, log.Entries());
}

// clang-format off
TEST_F(LogFile, MessagesEndWithOneLineBreakUnlessTheyAreEmpty)
{
    const struct
    {
        const char* expected;
        const wchar_t* message;
    } rows[] = {
        {"PID:# ",               L""},
        {"PID:# ",               nullptr},
        {"PID:# \n",             L"\n"},
        {"PID:# a\n",            L"a"},
        {"PID:# a\n",            L"a\n"},
        {"PID:# a\n\n",          L"a\n\n"},
        {"PID:# a\nb\n",         L"a\nb"},
        {"PID:# a\rb\r\n",       L"a\rb\r"},
        {"PID:# 100%\n",         L"100%%"},
        {"PID:# cut off: \n",    L"cut off: %"},
        {"PID:# cut off: \n",    L"cut off: %-08.3l"},
        {"PID:# what is %? y\n", L"what is %%? %y"},
    };
    // clang-format on
    OwnLog log;
    OpenBare(log);
    for (const auto& row : rows)
    {
        log.WriteEntryBegin(LogFileBase::Comment, false, false, nullptr, 0).WriteEntryEnd(row.message);
        const Bytes bytes = ReadBytes(m_folder / "own.log");
        const std::string prefix = "PID:" + std::to_string(::GetCurrentProcessId());
        const std::string expected = prefix + (row.expected + 5);
        EXPECT_EQ(expected, std::string(bytes.begin(), bytes.end()));
        Clear();
    }
}

TEST_F(LogFile, MessagesAreFormattedByTheConventionsOfWindows)
{
    OwnLog log;
    OpenBare(log);
    const auto begin = [&log]() -> LogFileBase&
    {
        return log.WriteEntryBegin(LogFileBase::Comment, false, false, nullptr, 0);
    };

    begin().WriteEntryEnd(L"%s %S %hs %ls %c %C", L"wide", "narrow", "short", L"long", L'w', 'n');
    EXPECT_EQ("PID:# wide narrow short long w n\n", Take());
    begin().WriteEntryEnd(L"%d %i %u %x %X %o %5d|%-5d|%05d %+d", -1, 2, 3u, 0xabu, 0xabu, 8u, 42, 42, 42, 42);
    EXPECT_EQ("PID:# -1 2 3 ab AB 10    42|42   |00042 +42\n", Take());
    begin().WriteEntryEnd(L"%I64d %lld %ld", std::int64_t{1} << 40, std::int64_t{-1} << 40, 7L);
    EXPECT_EQ("PID:# 1099511627776 -1099511627776 7\n", Take());
    begin().WriteEntryEnd(L"%f %.2f %e %g %G %a", 0.1, 0.125, 12345.678, 1e-10, 1e10, 1.5);
    EXPECT_EQ("PID:# 0.100000 0.12 1.234568e+04 1e-10 1E+10 0x1.8000000000000p+0\n", Take());
    begin().WriteEntryEnd(L"%f %f", std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ("PID:# 1.#INF00 -1.#IND00\n", Take());
    begin().WriteEntryEnd(L"%p", reinterpret_cast<void*>(0x4015A0));
    EXPECT_EQ("PID:# 00000000004015A0\n", Take());
    begin().WriteEntryEnd(L"%s|%S", static_cast<const wchar_t*>(nullptr), static_cast<const char*>(nullptr));
    EXPECT_EQ("PID:# (null)|(null)\n", Take());
    int written = 77;
    begin().WriteEntryEnd(L"ab%ncd", &written);
    EXPECT_EQ("PID:# abcd\n", Take());
    EXPECT_EQ(77, written);
    begin().WriteEntryEnd(L"%*.*f|%.3s", 8, 2, 1.0, L"abcdef");
    EXPECT_EQ("PID:#     1.00|abc\n", Take());
}

TEST_F(LogFile, MessagesAreWholeWhateverTheirLength)
{
    OwnLog log;
    OpenBare(log);
    for (const std::size_t length : {127u, 128u, 255u, 256u, 1023u, 1024u, 4096u, 65535u, 65536u, 1048576u})
    {
        std::wstring message(length, L'x');
        for (std::size_t i = 0; i < length; i += 97)
            message[i] = static_cast<wchar_t>(L'a' + i % 26);
        log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"%s", message.c_str());
        EXPECT_EQ("PID:#  Message : " + std::string(message.begin(), message.end()) + "\n", Take()) << length;
    }
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"%65535d%65535d", 1, 2);
    EXPECT_EQ("PID:#  Message : " + std::string(65534, ' ') + "1" + std::string(65534, ' ') + "2\n", Take());
}

TEST_F(LogFile, TextsAreInTheNarrowEncoding)
{
    const std::wstring message = L"Tr\u00E4ger \u03B1 \u20AC " + std::wstring(300, L'\u00E9');
    char expected[4096];
    const int size = ::WideCharToMultiByte(CP_ACP, 0, message.c_str(), -1, expected, sizeof expected, nullptr, nullptr);
    ASSERT_LT(0, size);
    OwnLog log;
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"%s", message.c_str());
    EXPECT_EQ("PID:#  Message : " + std::string(expected) + "\n", Take());

    const std::wstring name = L"Tr\u00E4ger.cpp";
    ASSERT_LT(0, ::WideCharToMultiByte(CP_ACP, 0, name.c_str(), -1, expected, sizeof expected, nullptr, nullptr));
    log.WriteEntryBegin(LogFileBase::Error, false, false, expected, 7).WriteEntryEnd(L"text");
    EXPECT_EQ("PID:# " + std::string(expected) + "(7)text\n", Take());
}

TEST_F(LogFile, EntriesSurviveCharactersWithoutAnEncoding)
{
    OwnLog log;
    OpenBare(log);
    for (const wchar_t lone : {wchar_t(0xD800), wchar_t(0xDFFF)})
    {
        const std::wstring message = std::wstring(L"before ") + lone + L" behind";
        log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"%s", message.c_str());
        const std::string text = Take();
        EXPECT_TRUE(text.starts_with("PID:#  Message : before ")) << text;
        EXPECT_TRUE(text.ends_with(" behind\n")) << text;
    }
    log.WriteEntryBegin(LogFileBase::Error, false, false, "\xFF\xFE bytes", 1).WriteEntryEnd(L"text");
    EXPECT_TRUE(Take().ends_with(" bytes(1)text\n"));
}

TEST_F(LogFile, MessagesMayHoldNullCharacters)
{
    OwnLog log;
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"a%cb", 0);
    EXPECT_EQ(std::string("PID:#  Message : a\0b\n", 21), Take());
}

TEST_F(LogFile, KeptWritesTheFirstMessageAgainInFrontOfASecond)
{
    OwnLog log;
    OpenBare(log);
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"one");
    EXPECT_EQ("PID:#  Message : one\n", Take());
    log.WriteEntryEnd(L"two");
    EXPECT_EQ("PID:#  Message : one\ntwo\n", Take());
    log.WriteEntryEnd(L"");
    EXPECT_EQ("PID:#  Message : one\ntwo\n", Take());
    EXPECT_EQ(1, log.Entries());
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"three");
    EXPECT_EQ("PID:#  Message : three\n", Take());
}

TEST_F(LogFile, AnEndWithoutABeginningWritesNothing)
{
    OwnLog log;
    OpenBare(log);
    log.WriteEntryEnd(L"text");
    EXPECT_EQ("", Text());
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"one");
    log.Open(OwnPath().c_str(), LogFileBase::Error, true, nullptr);
    Clear();
    log.WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0).WriteEntryEnd(L"two");
    log.WriteEntryEnd(L"three");
    EXPECT_EQ("", Text());
}

TEST_F(LogFile, ErrorsGoToTheDebuggerWithoutTheProcess)
{
    OwnLog log;
    OpenBare(log);
    const DebuggerOutput debugger;
    for (int level = LogFileBase::Comment; level <= LogFileBase::ExceptionMessage; ++level)
        log.WriteEntryBegin(static_cast<LogFileBase::EntryLevel>(level), true, false, nullptr, 0).WriteEntryEnd(L"no");
    EXPECT_EQ(L"", debugger.Text());
    log.WriteEntryBegin(LogFileBase::Error, true, false, "file", 3).WriteEntryEnd(L"caf\u00E9");
    EXPECT_EQ(L"file(3) Error : caf\u00E9\n", debugger.Text());
    log.WriteEntryBegin(LogFileBase::Exception, false, false, "file", 0).WriteEntryEnd(L"%d", 5);
    EXPECT_EQ(L"file(3) Error : caf\u00E9\nfile5\n", debugger.Text());
    EXPECT_EQ(1, log.Errors());
}

TEST_F(LogFile, ErrorsThatAreDroppedDoNotReachTheDebugger)
{
    const DebuggerOutput debugger;
    OwnLog log;
    log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"closed");
    log.Open(OwnPath().c_str(), LogFileBase::Exception, true, nullptr);
    log.WriteEntryBegin(LogFileBase::Error, true, false, nullptr, 0).WriteEntryEnd(L"below");
    EXPECT_EQ(L"", debugger.Text());
}
