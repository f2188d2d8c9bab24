#include "vetools/util/VeFile.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/ScopedLog.h"
#include "tests/support/SystemCallSupport.h"
#include "tests/support/TextPrinting.h"

namespace
{

namespace fs = std::filesystem;

using Messages = std::vector<std::string>;

constexpr DWORD c_shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle that is closed at its end.
class Handle
{
public:
    Handle(const wchar_t* path, DWORD access, DWORD disposition = OPEN_EXISTING)
        : m_handle(gCreateFile(path, access, c_shareAll, disposition, FILE_ATTRIBUTE_NORMAL))
    {
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle()
    {
        if (IsOpen())
            ::CloseHandle(m_handle);
    }

    operator HANDLE() const { return m_handle; }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

std::string Narrow(std::wstring_view ascii)
{
    return std::string(ascii.begin(), ascii.end());
}

/// The system's text for an error as the log shows it, without a carriage return in front of the line break.
std::string SystemText(DWORD error)
{
    wchar_t text[500] = {};
    ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text, 500, nullptr);
    std::string narrow = Narrow(text);
    std::erase(narrow, '\r');
    return narrow;
}

class LoggedFile : public testing::Test
{
protected:
    ~LoggedFile() override { gSetDiskFullRetryHook(nullptr); }

    Messages Errors() const { return m_log.Errors(); }
    CString Path(std::wstring_view name) const { return m_folder[name]; }
    /// A file of three letters.
    CString MakeFile() const
    {
        WriteBytes(m_folder / "file", {'a', 'b', 'c'});
        return Path(L"file");
    }

    TestFolder m_folder;

private:
    ScopedLog m_log;
};

int s_answers = 0;  ///< how often the hook was asked
int s_retries = 0;  ///< how often it says so

int RetrySometimes()
{
    ::SetLastError(c_sentinel);
    return s_answers++ < s_retries ? IDRETRY : 2;
}

}  // namespace

TEST_F(LoggedFile, IsMadeWrittenAndRead)
{
    const CString path = Path(L"new");
    DWORD count = 99;
    {
        const Handle file(path, GENERIC_WRITE, CREATE_NEW);
        ASSERT_TRUE(file.IsOpen());
        EXPECT_NE(0, gWriteFile(file, "hello", 5, &count));
        EXPECT_EQ(5u, count);
        EXPECT_NE(0, gWriteFile(file, "!", 1, nullptr));
        EXPECT_NE(0, gWriteFile(file, nullptr, 0, &count));
        EXPECT_EQ(0u, count);
    }
    char bytes[10] = {};
    const Handle file(path, GENERIC_READ);
    EXPECT_NE(0, gReadFile(file, bytes, 4, &count));
    EXPECT_EQ(4u, count);
    EXPECT_NE(0, gReadFile(file, bytes + 4, 6, nullptr));
    EXPECT_STREQ("hello!", bytes);
    EXPECT_EQ(Messages(), Errors());
}

TEST_F(LoggedFile, AtItsEndReadsNothingAndLogsNothing)
{
    const Handle file(MakeFile(), GENERIC_READ);
    char bytes[10];
    EXPECT_NE(0, gReadFile(file, bytes, 10, nullptr));
    DWORD count = 99;
    EXPECT_EQ(0, gReadFile(file, bytes, 10, &count));
    EXPECT_EQ(0u, count);
    EXPECT_EQ(0, gReadFile(file, bytes, 10, nullptr));
    EXPECT_EQ(Messages(), Errors());
}

TEST_F(LoggedFile, KeptOfWhichNothingIsWantedReadsAsAFailure)
{
    const Handle file(MakeFile(), GENERIC_READ);
    DWORD count = 99;
    EXPECT_EQ(0, gReadFile(file, nullptr, 0, &count));
    EXPECT_EQ(0u, count);
    EXPECT_EQ(Messages(), Errors());
}

TEST_F(LoggedFile, WithAPathOfThreeHundredCharactersIsOpened)
{
    std::wstring folder = m_folder.Path().wstring();
    while (folder.size() < 400)
    {
        folder += L'\\' + std::wstring(60, L'd');
        ASSERT_TRUE(::CreateDirectoryW((L"\\\\?\\" + folder).c_str(), nullptr)) << folder.size();
    }
    const std::wstring path = folder + L"\\file";
    const std::wstring extended = L"\\\\?\\" + path;
    {
        const Handle file(path.c_str(), GENERIC_WRITE, CREATE_NEW);
        ASSERT_TRUE(file.IsOpen());
        EXPECT_NE(0, gWriteFile(file, "text", 4, nullptr));
    }
    for (const std::wstring& name : {path, extended})
    {
        char bytes[10] = {};
        const Handle file(name.c_str(), GENERIC_READ);
        EXPECT_NE(0, gReadFile(file, bytes, 10, nullptr));
        EXPECT_STREQ("text", bytes);
    }
    EXPECT_EQ(Messages(), Errors());
}

TEST_F(LoggedFile, ThatCannotBeOpenedIsLoggedWithItsPathAndTheReason)
{
    const CString path = Path(L"missing");
    ::SetLastError(c_sentinel);
    EXPECT_FALSE(Handle(path, GENERIC_READ).IsOpen());
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), ::GetLastError());
    EXPECT_EQ((Messages{"error opening file " + Narrow(path.View()) + "\n" + SystemText(ERROR_FILE_NOT_FOUND)}),
              Errors());

    const CString existing = MakeFile();
    EXPECT_FALSE(Handle(existing, GENERIC_WRITE, CREATE_NEW).IsOpen());
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_EXISTS), ::GetLastError());
    ASSERT_EQ(2u, Errors().size());
    EXPECT_EQ("error opening file " + Narrow(existing.View()) + "\n" + SystemText(ERROR_FILE_EXISTS), Errors()[1]);
}

TEST_F(LoggedFile, WithAnExtendedPathIsLoggedByThatPath)
{
    const std::wstring path = L"\\\\?\\" + std::wstring(Path(L"missing").View());
    EXPECT_FALSE(Handle(path.c_str(), GENERIC_READ).IsOpen());
    const Messages errors = Errors();
    ASSERT_EQ(1u, errors.size());
    EXPECT_EQ(0u, errors[0].find("error opening file " + Narrow(path) + "\n"));
}

TEST_F(LoggedFile, WithoutAPathIsNotOpenedAndNotLogged)
{
    EXPECT_EQ(INVALID_HANDLE_VALUE, gCreateFile(nullptr, GENERIC_READ, c_shareAll, OPEN_EXISTING, 0));
    EXPECT_EQ(Messages(), Errors());
}

TEST_F(LoggedFile, WithAHostilePathIsRefusedWithOneEntry)
{
    const std::wstring missing(Path(L"missing\\").View());
    std::size_t entries = 0;
    for (const std::wstring& path :
         {std::wstring(), std::wstring(L"\\"), std::wstring(L"\\\\"), std::wstring(L"\\\\?\\"),
          std::wstring(L"\\\\?\\UNC\\"), missing + L"\\\\", missing + L"*?", missing + L"%s%n%d%*f",
          missing + L"a\nb\"", missing + L"%", missing + std::wstring(300, L'n'), missing + std::wstring(40'000, L'n')})
    {
        EXPECT_FALSE(Handle(path.c_str(), GENERIC_READ).IsOpen()) << testing::PrintToString(path);
        const Messages errors = Errors();
        ASSERT_EQ(++entries, errors.size()) << testing::PrintToString(path);
        EXPECT_EQ(0u, errors.back().find("error opening file " + Narrow(path) + "\n")) << testing::PrintToString(path);
    }
}

TEST_F(LoggedFile, WithoutAHandleFailsAndIsLogged)
{
    char bytes[2] = {};
    for (const HANDLE none : {INVALID_HANDLE_VALUE, HANDLE{nullptr}})
    {
        DWORD count = 99;
        EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return gWriteFile(none, "x", 1, &count); }));
        EXPECT_EQ(0u, count);
        count = 99;
        EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return gReadFile(none, bytes, 1, &count); }));
        EXPECT_EQ(0u, count);
        EXPECT_EQ(0, gWriteFile(none, "x", 1, nullptr));
        EXPECT_EQ(0, gReadFile(none, bytes, 1, nullptr));
    }
    const std::string writing = "error (6) writing in file\n";
    const std::string reading = "error (6) reading from file\n";
    EXPECT_EQ((Messages{writing, reading, writing, reading, writing, reading, writing, reading}), Errors());
}

TEST_F(LoggedFile, WithoutABufferFailsAndIsLogged)
{
    const Handle file(MakeFile(), GENERIC_READ | GENERIC_WRITE);
    EXPECT_EQ(0, gReadFile(file, nullptr, 2, nullptr));
    EXPECT_EQ(0, gWriteFile(file, nullptr, 2, nullptr));
    EXPECT_EQ((Messages{"error (998) reading from file\n", "error (1784) writing in file\n"}), Errors());
}

TEST_F(LoggedFile, IsNotWrittenByAHandleForReading)
{
    const Handle file(MakeFile(), GENERIC_READ);
    EXPECT_EQ(Failed(ERROR_ACCESS_DENIED), OutcomeOf([&] { return gWriteFile(file, "x", 1, nullptr); }));
    EXPECT_EQ((Messages{"error (5) writing in file\n"}), Errors());
}

TEST_F(LoggedFile, OnAFullDiskIsWrittenAgainAsLongAsTheHookSaysSo)
{
    const Handle full(L"/dev/full", GENERIC_WRITE);
    ASSERT_TRUE(full.IsOpen()) << "there is no full device here to test with";
    EXPECT_EQ(nullptr, gSetDiskFullRetryHook(RetrySometimes));
    for (const int retries : {0, 1, 5})
    {
        s_answers = 0;
        s_retries = retries;
        DWORD count = 99;
        EXPECT_EQ(Failed(ERROR_DISK_FULL), OutcomeOf([&] { return gWriteFile(full, "text", 4, &count); }));
        EXPECT_EQ(0u, count);
        EXPECT_EQ(retries + 1, s_answers);
    }
    EXPECT_EQ(Messages(), Errors());
    // Other failures don't concern it.
    s_answers = 0;
    EXPECT_EQ(0, gWriteFile(INVALID_HANDLE_VALUE, "text", 4, nullptr));
    EXPECT_EQ(0, s_answers);
    EXPECT_EQ((Messages{"error (6) writing in file\n"}), Errors());
    EXPECT_EQ(&RetrySometimes, gSetDiskFullRetryHook(nullptr));
    EXPECT_EQ(nullptr, gSetDiskFullRetryHook(nullptr));
}

TEST(FileWithoutALog, MakesOneInTheCurrentFolder)
{
    const TestFolder folder;
    const fs::path before = fs::current_path();
    LogFileBase::ReleaseInstance();
    fs::current_path(folder.Path());
    EXPECT_FALSE(Handle(folder[L"missing"], GENERIC_READ).IsOpen());
    LogFileBase::ReleaseInstance();
    fs::current_path(before);
    const Bytes log = ReadBytes(folder / "Log.log");
    const std::string text(log.begin(), log.end());
    EXPECT_NE(std::string::npos, text.find("Error : error opening file ")) << text;
}
