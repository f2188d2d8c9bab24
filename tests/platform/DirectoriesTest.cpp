#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/SystemCallSupport.h"
#include "tests/support/TextPrinting.h"
#include "vetools/platform/Platform.h"

// What the system and its stand-in both answer about folders, and about messages.

namespace
{

using Names = std::vector<std::wstring>;

/// What a search finds, in its order; the last error of a search that finds nothing goes to `error`.
Names Find(const CString& pattern, DWORD* error = nullptr)
{
    Names names;
    WIN32_FIND_DATAW found{};
    ::SetLastError(c_sentinel);
    const HANDLE search = ::FindFirstFileW(pattern, &found);
    if (search == INVALID_HANDLE_VALUE)
    {
        if (error)
            *error = ::GetLastError();
        return names;
    }
    do
        names.emplace_back(found.cFileName);
    while (::FindNextFileW(search, &found));
    EXPECT_EQ(static_cast<DWORD>(ERROR_NO_MORE_FILES), ::GetLastError());
    EXPECT_EQ(c_done, OutcomeOf([&] { return ::FindClose(search); }));
    return names;
}

DWORD ErrorOfSearch(const CString& pattern)
{
    DWORD error = c_sentinel;
    EXPECT_EQ(Names(), Find(pattern, &error)) << testing::PrintToString(pattern);
    return error;
}

class Directories : public testing::Test
{
protected:
    void Make(std::wstring_view name, std::string_view text = "") const
    {
        WriteBytes(m_folder / PathOf(name), Bytes(text.begin(), text.end()));
    }
    void MakeFolder(std::wstring_view name) const { std::filesystem::create_directory(m_folder / PathOf(name)); }

    TestFolder m_folder;
};

using SystemMessages = testing::Test;

/// The text of an error in a buffer of its own; empty when there is none.
std::wstring MessageOf(DWORD code)
{
    constexpr DWORD c_flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    wchar_t* buffer = nullptr;
    const DWORD length = ::FormatMessageW(c_flags, nullptr, code, 0, reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
    const std::wstring text = length > 0 ? std::wstring(buffer) : std::wstring();
    EXPECT_EQ(length, text.size());
    EXPECT_EQ(nullptr, ::LocalFree(buffer));
    return text;
}

}  // namespace

// clang-format off
TEST_F(Directories, AreSearchedByPatternsWithoutRegardToCaseAndInTheOrderOfUpperCase)
{
    for (const wchar_t* name : {L"b.TXT", L"a.txt", L"_x", L"Z", L"noext", L"a.b.txt", L"~", L"é.txt", L"É2.dat", L"ab.t"})
        Make(name);
    const struct
    {
        const wchar_t* pattern;
        Names names;
    } rows[] = {
        {L"*.*",     {L".", L"..", L"a.b.txt", L"a.txt", L"ab.t", L"b.TXT", L"noext", L"Z", L"_x", L"~", L"é.txt", L"É2.dat"}},
        {L"*",       {L".", L"..", L"a.b.txt", L"a.txt", L"ab.t", L"b.TXT", L"noext", L"Z", L"_x", L"~", L"é.txt", L"É2.dat"}},
        {L"***",     {L".", L"..", L"a.b.txt", L"a.txt", L"ab.t", L"b.TXT", L"noext", L"Z", L"_x", L"~", L"é.txt", L"É2.dat"}},
        {L"*.*.*",   {L".", L"..", L"a.b.txt", L"a.txt", L"ab.t", L"b.TXT", L"noext", L"Z", L"_x", L"~", L"é.txt", L"É2.dat"}},
        {L".*",      {L".", L".."}},
        {L"*.txt",   {L"a.b.txt", L"a.txt", L"b.TXT", L"é.txt"}},
        {L"*.TXT",   {L"a.b.txt", L"a.txt", L"b.TXT", L"é.txt"}},
        {L"*.t*",    {L"a.b.txt", L"a.txt", L"ab.t", L"b.TXT", L"é.txt"}},
        {L"*.tx?",   {L"a.b.txt", L"a.txt", L"b.TXT", L"é.txt"}},
        {L"a*.txt",  {L"a.b.txt", L"a.txt"}},
        {L"a*b*",    {L"a.b.txt", L"ab.t"}},
        {L"?",       {L".", L"Z", L"~"}},
        {L"??.?",    {L"ab.t"}},
        {L"?.???",   {L"a.txt", L"b.TXT", L"é.txt"}},
        {L"?É*",     {}},
        {L"É*",      {L"é.txt", L"É2.dat"}},
        {L"noext.*", {L"noext"}},
        {L"noext",   {L"noext"}},
        {L"a.txt",   {L"a.txt"}},
        {L"missing", {}},
        {L"*q*",     {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.names, Find(m_folder[row.pattern])) << testing::PrintToString(row.pattern);
}
// clang-format on

TEST_F(Directories, WithoutAMatchAreNotSearched)
{
    Make(L"file");
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), ErrorOfSearch(m_folder[L"q*"]));
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), ErrorOfSearch(m_folder[L"missing"]));
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), ErrorOfSearch(m_folder[L""]));
    EXPECT_EQ(static_cast<DWORD>(ERROR_PATH_NOT_FOUND), ErrorOfSearch(m_folder[L"missing\\*"]));
    EXPECT_EQ(static_cast<DWORD>(ERROR_PATH_NOT_FOUND), ErrorOfSearch(m_folder[L"missing\\other\\*.*"]));
    EXPECT_EQ(static_cast<DWORD>(ERROR_PATH_NOT_FOUND), ErrorOfSearch(m_folder[L"missing\\file"]));
    EXPECT_EQ(static_cast<DWORD>(ERROR_PATH_NOT_FOUND), ErrorOfSearch(CString()));
}

TEST_F(Directories, OfTheRootHaveNeitherDotsNorDotDots)
{
    for (const std::wstring& name : Find(L"\\*.*"))
        EXPECT_TRUE(name != L"." && name != L"..");
}

TEST_F(Directories, AreSearchedByHandlesThatAreNoFiles)
{
    WIN32_FIND_DATAW found{};
    for (const HANDLE none : {INVALID_HANDLE_VALUE, HANDLE{nullptr}})
    {
        EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::FindNextFileW(none, &found); }));
        EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::FindClose(none); }));
    }
    const HANDLE search = ::FindFirstFileW(m_folder[L"*"], &found);
    ASSERT_NE(INVALID_HANDLE_VALUE, search);
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::ReadFile(search, &found, 1, nullptr, nullptr); }));
    EXPECT_EQ(c_done, OutcomeOf([&] { return ::FindClose(search); }));
}

TEST_F(Directories, MayBeEmptiedWhileTheyAreSearched)
{
    constexpr int c_files = 300;
    for (int i = 0; i < c_files; ++i)
        Make(L"file" + std::to_wstring(i));
    int deleted = 0;
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(m_folder[L"*"], &found);
    ASSERT_NE(INVALID_HANDLE_VALUE, search);
    do
        deleted += ::DeleteFileW(m_folder[found.cFileName]);
    while (::FindNextFileW(search, &found));
    EXPECT_TRUE(::FindClose(search));
    EXPECT_EQ(c_files, deleted);
    EXPECT_EQ(0u, m_folder.Count());
}

TEST_F(Directories, TellAttributesSizesAndTimesOfTheirEntries)
{
    Make(L"five", "12345");
    MakeFolder(L"folder");
    for (const wchar_t* name : {L"five", L"folder"})
    {
        WIN32_FIND_DATAW found{};
        const HANDLE search = ::FindFirstFileW(m_folder[name], &found);
        ASSERT_NE(INVALID_HANDLE_VALUE, search);
        EXPECT_TRUE(::FindClose(search));
        WIN32_FILE_ATTRIBUTE_DATA data{};
        EXPECT_EQ(c_done,
                  OutcomeOf([&] { return ::GetFileAttributesExW(m_folder[name], GetFileExInfoStandard, &data); }));
        EXPECT_EQ(found.dwFileAttributes, data.dwFileAttributes);
        EXPECT_EQ(found.dwFileAttributes, ::GetFileAttributesW(m_folder[name]));
        EXPECT_EQ(found.ftLastWriteTime.dwLowDateTime, data.ftLastWriteTime.dwLowDateTime);
        EXPECT_EQ(found.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwHighDateTime);
        EXPECT_EQ(found.nFileSizeLow, data.nFileSizeLow);
        const bool isFolder = name == std::wstring_view(L"folder");
        EXPECT_EQ(isFolder, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
        EXPECT_EQ(isFolder ? 0u : 5u, data.nFileSizeLow);
        EXPECT_EQ(0u, data.nFileSizeHigh);
        // Between 2020 and 2100.
        EXPECT_LT(0x01D5C000u, data.ftLastWriteTime.dwHighDateTime);
        EXPECT_GT(0x02300000u, data.ftLastWriteTime.dwHighDateTime);
    }
}

TEST_F(Directories, HaveNoAttributesOfWhatIsMissing)
{
    Make(L"file");
    const auto outcome = [this](std::wstring_view name, GET_FILEEX_INFO_LEVELS level = GetFileExInfoStandard)
    {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        return OutcomeOf([&] { return ::GetFileAttributesExW(m_folder[name], level, &data); });
    };
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND), outcome(L"missing"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), outcome(L"missing\\file"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), outcome(L"file\\file"));
    EXPECT_EQ(Failed(ERROR_INVALID_PARAMETER), outcome(L"file", GetFileExMaxInfoLevel));
    WIN32_FILE_ATTRIBUTE_DATA data{};
    for (const wchar_t* path : {static_cast<const wchar_t*>(nullptr), L""})
    {
        EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND),
                  OutcomeOf([&] { return ::GetFileAttributesExW(path, GetFileExInfoStandard, &data); }));
    }
}

TEST_F(Directories, AreMadeOneAtATime)
{
    Make(L"file");
    const auto make = [this](std::wstring_view name)
    {
        return OutcomeOf([&] { return ::CreateDirectoryW(m_folder[name], nullptr); });
    };
    EXPECT_EQ(c_done, make(L"new"));
    EXPECT_EQ(c_done, make(L"new\\inner"));
    EXPECT_EQ(c_done, make(L"other\\"));
    EXPECT_EQ(Failed(ERROR_ALREADY_EXISTS), make(L"new"));
    EXPECT_EQ(Failed(ERROR_ALREADY_EXISTS), make(L"file"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), make(L"missing\\inner"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), make(L"file\\inner"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), OutcomeOf([] { return ::CreateDirectoryW(L"", nullptr); }));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), OutcomeOf([] { return ::CreateDirectoryW(nullptr, nullptr); }));
    EXPECT_TRUE(std::filesystem::is_directory(m_folder / "new" / "inner"));
}

TEST_F(Directories, AreRemovedWhenTheyAreEmpty)
{
    Make(L"file");
    MakeFolder(L"full");
    Make(L"full/file");
    MakeFolder(L"empty");
    MakeFolder(L"other");
    const auto remove = [this](std::wstring_view name)
    {
        return OutcomeOf([&] { return ::RemoveDirectoryW(m_folder[name]); });
    };
    EXPECT_EQ(Failed(ERROR_DIR_NOT_EMPTY), remove(L"full"));
    EXPECT_EQ(Failed(ERROR_DIRECTORY), remove(L"file"));
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND), remove(L"missing"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), remove(L"missing\\inner"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), remove(L"file\\inner"));
    EXPECT_EQ(c_done, remove(L"empty"));
    EXPECT_EQ(c_done, remove(L"other\\"));
    EXPECT_EQ(2u, m_folder.Count());
    EXPECT_FALSE(::RemoveDirectoryW(L""));
    EXPECT_FALSE(::RemoveDirectoryW(nullptr));
}

TEST_F(Directories, GiveCopiesOfTheirFiles)
{
    Make(L"file", "abc");
    Make(L"other", "old");
    MakeFolder(L"folder");
    const auto copy = [this](std::wstring_view from, std::wstring_view to, BOOL failIfExists)
    {
        return OutcomeOf([&] { return ::CopyFileW(m_folder[from], m_folder[to], failIfExists); });
    };
    // clang-format off
    const struct
    {
        const wchar_t* from;
        const wchar_t* to;
        BOOL failIfExists;
        Outcome outcome;
    } rows[] = {
        {L"file",          L"new",           1, c_done},
        {L"file",          L"new",           1, Failed(ERROR_FILE_EXISTS)},
        {L"file",          L"other",         1, Failed(ERROR_FILE_EXISTS)},
        {L"file",          L"other",         0, c_done},
        {L"file",          L"folder",        1, Failed(ERROR_FILE_EXISTS)},
        {L"file",          L"folder",        0, Failed(ERROR_ACCESS_DENIED)},
        {L"file",          L"file",          1, Failed(ERROR_FILE_EXISTS)},
        {L"file",          L"file",          0, Failed(ERROR_SHARING_VIOLATION)},
        {L"folder",        L"copy",          1, Failed(ERROR_ACCESS_DENIED)},
        {L".",             L"folder\\.",     1, Failed(ERROR_ACCESS_DENIED)},
        {L"..",            L"folder\\..",    1, Failed(ERROR_ACCESS_DENIED)},
        {L"missing",       L"copy",          1, Failed(ERROR_FILE_NOT_FOUND)},
        {L"missing\\file", L"copy",          1, Failed(ERROR_PATH_NOT_FOUND)},
        {L"file",          L"missing\\copy", 1, Failed(ERROR_PATH_NOT_FOUND)},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.outcome, copy(row.from, row.to, row.failIfExists))
            << testing::PrintToString(row.from) << ' ' << testing::PrintToString(row.to) << ' ' << row.failIfExists;
    }
    for (const char* name : {"file", "new", "other"})
        EXPECT_EQ((Bytes{'a', 'b', 'c'}), ReadBytes(m_folder / name)) << name;
    EXPECT_EQ(4u, m_folder.Count());
    EXPECT_EQ(Failed(ERROR_INVALID_PARAMETER), OutcomeOf([&] { return ::CopyFileW(nullptr, m_folder[L"n"], 1); }));
    EXPECT_EQ(Failed(ERROR_INVALID_PARAMETER), OutcomeOf([&] { return ::CopyFileW(m_folder[L"file"], nullptr, 1); }));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), OutcomeOf([&] { return ::CopyFileW(L"", m_folder[L"n"], 1); }));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), OutcomeOf([&] { return ::CopyFileW(m_folder[L"file"], L"", 1); }));
}

TEST_F(Directories, GiveCopiesThatAreWholeAndAsOldAndAsFixed)
{
    std::string text;
    for (int i = 0; i < 200'000; ++i)
        text += static_cast<char>(i * 31 / 7);
    Make(L"file", text);
    std::filesystem::last_write_time(m_folder / "file",
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000));
    ASSERT_TRUE(::SetFileAttributesW(m_folder[L"file"], FILE_ATTRIBUTE_READONLY));
    ASSERT_TRUE(::CopyFileW(m_folder[L"file"], m_folder[L"copy"], 1));
    EXPECT_EQ(ReadBytes(m_folder / "file"), ReadBytes(m_folder / "copy"));
    EXPECT_TRUE(::GetFileAttributesW(m_folder[L"copy"]) & FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(std::filesystem::last_write_time(m_folder / "file"), std::filesystem::last_write_time(m_folder / "copy"));
    for (const wchar_t* name : {L"file", L"copy"})
        EXPECT_TRUE(::SetFileAttributesW(m_folder[name], FILE_ATTRIBUTE_NORMAL));
}

TEST_F(Directories, ThatNoLinksLeadOutOf)
{
    MakeFolder(L"outside");
    Make(L"outside/kept");
    std::error_code failure;
    std::filesystem::create_directory_symlink(m_folder / "outside", m_folder / "link", failure);
    if (failure)
        GTEST_LOG_(INFO) << "this system makes no links: " << failure.message();
    else
    {
        EXPECT_TRUE(::GetFileAttributesW(m_folder[L"link"]) & FILE_ATTRIBUTE_REPARSE_POINT);
        EXPECT_TRUE(::RemoveDirectoryW(m_folder[L"link"]));
        EXPECT_EQ(1u, m_folder.Count());
    }
    EXPECT_TRUE(std::filesystem::exists(m_folder / "outside" / "kept"));
}

TEST_F(SystemMessages, EndWithALineBreak)
{
    for (const DWORD code : {ERROR_SUCCESS, ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_ACCESS_DENIED,
                             ERROR_SHARING_VIOLATION, ERROR_DISK_FULL, ERROR_ALREADY_EXISTS})
    {
        const std::wstring text = MessageOf(static_cast<DWORD>(code));
        ASSERT_GT(text.size(), 2u) << code;
        EXPECT_EQ(L"\r\n", text.substr(text.size() - 2)) << code;
    }
}

TEST_F(SystemMessages, AreMissingForNumbersWithoutAMeaning)
{
    ::SetLastError(c_sentinel);
    EXPECT_EQ(L"", MessageOf(99'999));
}

TEST_F(SystemMessages, FitTheirBufferOrFail)
{
    constexpr DWORD c_flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    const std::wstring text = MessageOf(ERROR_FILE_NOT_FOUND);
    std::vector<wchar_t> buffer(text.size() + 1);
    const auto format = [&buffer](DWORD size)
    {
        return OutcomeOf(
            [&] { return ::FormatMessageW(c_flags, nullptr, ERROR_FILE_NOT_FOUND, 0, buffer.data(), size, nullptr); });
    };
    EXPECT_EQ(Failed(ERROR_INSUFFICIENT_BUFFER), format(static_cast<DWORD>(text.size())));
    EXPECT_EQ(c_done, format(static_cast<DWORD>(text.size() + 1)));
    EXPECT_EQ(text, buffer.data());
    EXPECT_EQ(Failed(ERROR_INVALID_PARAMETER),
              OutcomeOf([&] { return ::FormatMessageW(c_flags, nullptr, 2, 0, nullptr, 0, nullptr); }));
}
