#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/SystemCallSupport.h"
#include "vetools/platform/Platform.h"

// What the system and its stand-in both answer about files. Every call is made with a last error that means nothing, and
// its result and the last error are checked together.

namespace
{

constexpr DWORD c_shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// An open file, closed at the end.
class Handle
{
public:
    Handle(const CString& path, DWORD access, DWORD share = c_shareAll, DWORD disposition = OPEN_EXISTING,
           DWORD attributes = FILE_ATTRIBUTE_NORMAL)
    {
        ::SetLastError(c_sentinel);
        m_handle = ::CreateFileW(path, access, share, nullptr, disposition, attributes, nullptr);
        m_outcome = {m_handle != INVALID_HANDLE_VALUE, ::GetLastError()};
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle()
    {
        if (m_handle != INVALID_HANDLE_VALUE)
            ::CloseHandle(m_handle);
    }

    operator HANDLE() const { return m_handle; }
    const Outcome& Opened() const { return m_outcome; }

private:
    HANDLE m_handle;
    Outcome m_outcome;
};

Outcome Write(HANDLE file, const char* text)
{
    DWORD written = 99;
    const auto size = static_cast<DWORD>(std::string_view(text).size());
    const Outcome outcome = OutcomeOf([&] { return ::WriteFile(file, text, size, &written, nullptr); });
    EXPECT_EQ(outcome.succeeded ? size : 0, written);
    return outcome;
}

/// The next bytes of a file; nothing when reading fails.
std::optional<std::string> Read(HANDLE file, DWORD size)
{
    std::string bytes(size, '?');
    DWORD read = 99;
    if (!::ReadFile(file, bytes.data(), size, &read, nullptr))
        return std::nullopt;
    bytes.resize(read);
    return bytes;
}

LONGLONG Seek(HANDLE file, LONGLONG distance, DWORD from)
{
    LARGE_INTEGER target{};
    target.QuadPart = distance;
    LARGE_INTEGER position{};
    EXPECT_TRUE(::SetFilePointerEx(file, target, &position, from));
    return position.QuadPart;
}

std::string TextOf(const std::filesystem::path& path)
{
    const Bytes bytes = ReadBytes(path);
    return {bytes.begin(), bytes.end()};
}

void Make(const std::filesystem::path& path, std::string_view text)
{
    WriteBytes(path, Bytes(text.begin(), text.end()));
}

/// A folder with a file "file" that holds "abc", a read-only file "fixed" that holds "fixed", and a folder "folder".
class Files : public testing::Test
{
protected:
    Files()
    {
        Make(m_folder / "file", "abc");
        Make(m_folder / "fixed", "fixed");
        EXPECT_TRUE(::SetFileAttributesW(m_folder[L"fixed"], FILE_ATTRIBUTE_READONLY));
        std::filesystem::create_directory(m_folder / "folder");
    }
    ~Files() override { ::SetFileAttributesW(m_folder[L"fixed"], FILE_ATTRIBUTE_NORMAL); }

    /// Whether read-only files are refused, as they must be. Wine refuses them only to users whom the rights of the system
    /// beneath it bind: not to root.
    bool AreReadOnlyFilesRefused() const
    {
        const bool refused = !Handle(m_folder[L"fixed"], GENERIC_WRITE).Opened().succeeded;
        constexpr bool isStandIn = sizeof(wchar_t) == 4;
        EXPECT_TRUE(refused || !isStandIn);
        return refused;
    }

    TestFolder m_folder;
};

}  // namespace

// clang-format off
TEST_F(Files, AreOpenedAndMadeAsTheDispositionSays)
{
    const struct
    {
        DWORD disposition;
        const wchar_t* name;
        Outcome outcome;
        const char* contents;  ///< afterwards; null for a file that is not there
    } rows[] = {
        {CREATE_NEW,        L"file",           Failed(ERROR_FILE_EXISTS),           "abc"},
        {CREATE_ALWAYS,     L"file",           {true, ERROR_ALREADY_EXISTS},        ""},
        {OPEN_EXISTING,     L"file",           {true, ERROR_SUCCESS},               "abc"},
        {OPEN_ALWAYS,       L"file",           {true, ERROR_ALREADY_EXISTS},        "abc"},
        {TRUNCATE_EXISTING, L"file",           {true, ERROR_SUCCESS},               ""},
        {CREATE_NEW,        L"missing",        {true, ERROR_SUCCESS},               ""},
        {CREATE_ALWAYS,     L"missing",        {true, ERROR_SUCCESS},               ""},
        {OPEN_EXISTING,     L"missing",        Failed(ERROR_FILE_NOT_FOUND),        nullptr},
        {OPEN_ALWAYS,       L"missing",        {true, ERROR_SUCCESS},               ""},
        {TRUNCATE_EXISTING, L"missing",        Failed(ERROR_FILE_NOT_FOUND),        nullptr},
        {CREATE_NEW,        L"missing/file",   Failed(ERROR_PATH_NOT_FOUND),        nullptr},
        {CREATE_ALWAYS,     L"missing\\file",  Failed(ERROR_PATH_NOT_FOUND),        nullptr},
        {OPEN_EXISTING,     L"missing/file",   Failed(ERROR_PATH_NOT_FOUND),        nullptr},
        {OPEN_EXISTING,     L"file/file",      Failed(ERROR_PATH_NOT_FOUND),        nullptr},
        {CREATE_NEW,        L"folder",         Failed(ERROR_FILE_EXISTS),           nullptr},
        {CREATE_ALWAYS,     L"folder",         Failed(ERROR_ACCESS_DENIED),         nullptr},
        {OPEN_EXISTING,     L"folder",         Failed(ERROR_ACCESS_DENIED),         nullptr},
        {CREATE_ALWAYS,     L"fixed",          Failed(ERROR_ACCESS_DENIED),         "fixed"},
        {OPEN_EXISTING,     L"fixed",          Failed(ERROR_ACCESS_DENIED),         "fixed"},
        {TRUNCATE_EXISTING, L"fixed",          Failed(ERROR_ACCESS_DENIED),         "fixed"},
        {0,                 L"file",           Failed(ERROR_INVALID_PARAMETER),     "abc"},
        {6,                 L"file",           Failed(ERROR_INVALID_PARAMETER),     "abc"},
    };
    const bool refused = AreReadOnlyFilesRefused();
    for (const auto& row : rows)
    {
        if (!refused && row.name == std::wstring_view(L"fixed"))
            continue;
        Make(m_folder / "file", "abc");
        std::filesystem::remove(m_folder / "missing");
        EXPECT_EQ(row.outcome, Handle(m_folder[row.name], GENERIC_WRITE, c_shareAll, row.disposition).Opened())
            << "disposition " << row.disposition << ' ' << testing::PrintToString(row.name);
        const std::filesystem::path path = m_folder / row.name;
        EXPECT_EQ(row.contents != nullptr, std::filesystem::is_regular_file(path)) << testing::PrintToString(row.name);
        if (row.contents)
        {
            EXPECT_EQ(row.contents, TextOf(path)) << row.disposition << ' ' << testing::PrintToString(row.name);
        }
    }
}
// clang-format on

TEST_F(Files, HavePathsOfAtLeastOneCharacter)
{
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), Handle(CString(), GENERIC_READ).Opened());
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), OutcomeOf([] { return ::DeleteFileW(L""); }));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND),
              OutcomeOf([] { return ::GetFileAttributesW(L"") != INVALID_FILE_ATTRIBUTES; }));
}

TEST_F(Files, ThatAreReadOnlyAreRead)
{
    const Handle file(m_folder[L"fixed"], GENERIC_READ);
    EXPECT_EQ((Outcome{true, ERROR_SUCCESS}), file.Opened());
    EXPECT_EQ("fixed", Read(file, 10));
}

TEST_F(Files, AreMadeReadOnlyOnRequest)
{
    {
        const Handle file(m_folder[L"new"], GENERIC_WRITE, c_shareAll, CREATE_NEW, FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ((Outcome{true, ERROR_SUCCESS}), file.Opened());
        EXPECT_EQ(c_done, Write(file, "text"));
    }
    EXPECT_EQ("text", TextOf(m_folder / "new"));
    if (AreReadOnlyFilesRefused())
    {
        EXPECT_EQ(Failed(ERROR_ACCESS_DENIED), Handle(m_folder[L"new"], GENERIC_WRITE).Opened());
    }
    EXPECT_TRUE(::GetFileAttributesW(m_folder[L"new"]) & FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(::SetFileAttributesW(m_folder[L"new"], FILE_ATTRIBUTE_NORMAL));
}

TEST_F(Files, AreSharedAsFarAsEverybodyAgrees)
{
    const struct
    {
        DWORD firstAccess;
        DWORD firstShare;
        DWORD secondAccess;
        DWORD secondShare;
        bool together;
    } rows[] = {
        {GENERIC_READ, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, true},
        {GENERIC_READ, 0, GENERIC_READ, c_shareAll, false},
        {GENERIC_READ, c_shareAll, GENERIC_READ, 0, false},
        {GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_WRITE, true},
        {GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, false},
        {GENERIC_WRITE, FILE_SHARE_READ, GENERIC_WRITE, c_shareAll, false},
        {GENERIC_WRITE, c_shareAll, GENERIC_WRITE, c_shareAll, true},
        {FILE_APPEND_DATA, FILE_SHARE_READ, GENERIC_READ, c_shareAll, true},
        {FILE_APPEND_DATA, FILE_SHARE_READ, FILE_APPEND_DATA, c_shareAll, false},
        {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, c_shareAll, true},
        {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, GENERIC_READ, c_shareAll, false},
    };
    for (const auto& row : rows)
    {
        const Handle first(m_folder[L"file"], row.firstAccess, row.firstShare);
        ASSERT_TRUE(first.Opened().succeeded);
        const Outcome expected = row.together ? Outcome{true, ERROR_SUCCESS} : Failed(ERROR_SHARING_VIOLATION);
        EXPECT_EQ(expected, Handle(m_folder[L"file"], row.secondAccess, row.secondShare).Opened())
            << std::hex << row.firstAccess << ' ' << row.firstShare << ' ' << row.secondAccess << ' '
            << row.secondShare;
    }
    EXPECT_TRUE(Handle(m_folder[L"file"], GENERIC_READ | GENERIC_WRITE, 0).Opened().succeeded);
}

TEST_F(Files, ThatAreNotSharedKeepTheirContents)
{
    const Handle reader(m_folder[L"file"], GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(Failed(ERROR_SHARING_VIOLATION),
              Handle(m_folder[L"file"], GENERIC_WRITE, c_shareAll, CREATE_ALWAYS).Opened());
    EXPECT_EQ("abc", Read(reader, 10));
}

TEST_F(Files, AreAppendedToWhereverThePointerStands)
{
    const Handle file(m_folder[L"file"], FILE_APPEND_DATA);
    EXPECT_EQ((Outcome{true, ERROR_SUCCESS}), file.Opened());
    EXPECT_EQ(0, Seek(file, 0, FILE_BEGIN));
    EXPECT_EQ(c_done, Write(file, "de"));
    {
        const Handle other(m_folder[L"file"], FILE_APPEND_DATA);
        EXPECT_EQ(c_done, Write(other, "f"));
    }
    EXPECT_EQ(c_done, Write(file, "g"));
    EXPECT_EQ("abcdefg", TextOf(m_folder / "file"));
}

TEST_F(Files, AreReadUpToTheirEnd)
{
    const Handle file(m_folder[L"file"], GENERIC_READ);
    EXPECT_EQ("ab", Read(file, 2));
    EXPECT_EQ("c", Read(file, 2));
    EXPECT_EQ("", Read(file, 2));
    DWORD read = 99;
    EXPECT_EQ(c_done, OutcomeOf([&] { return ::ReadFile(file, nullptr, 0, &read, nullptr); }));
    EXPECT_EQ(0u, read);
    EXPECT_EQ(100, Seek(file, 100, FILE_BEGIN));
    EXPECT_EQ("", Read(file, 2));
}

TEST_F(Files, AreNotReadNorWrittenWithoutThatAccess)
{
    const Outcome refused = Failed(ERROR_ACCESS_DENIED);
    const struct
    {
        DWORD access;
        Outcome reading;
        Outcome writing;
    } rows[] = {
        {GENERIC_READ, c_done, refused},
        {GENERIC_WRITE, refused, c_done},
        {FILE_APPEND_DATA, refused, c_done},
        {GENERIC_READ | GENERIC_WRITE, c_done, c_done},
        {0, refused, refused},
    };
    for (const auto& row : rows)
    {
        const Handle file(m_folder[L"file"], row.access);
        for (const DWORD size : {0u, 1u})
        {
            char letter = 'x';
            EXPECT_EQ(row.writing, OutcomeOf([&] { return ::WriteFile(file, &letter, size, nullptr, nullptr); }))
                << std::hex << row.access << ' ' << size;
            DWORD count = 99;
            EXPECT_EQ(row.reading, OutcomeOf([&] { return ::ReadFile(file, &letter, size, &count, nullptr); }))
                << std::hex << row.access << ' ' << size;
            EXPECT_GE(size, count);
        }
        EXPECT_EQ(row.writing, OutcomeOf([&] { return ::FlushFileBuffers(file); })) << std::hex << row.access;
        // Wine refuses it as well, but for another reason.
        EXPECT_EQ(row.writing == c_done, ::SetEndOfFile(file) != 0) << std::hex << row.access;
    }
}

TEST_F(Files, AreNothingWithoutAHandle)
{
    char character = 0;
    DWORD count = 99;
    LARGE_INTEGER size{};
    const HANDLE none = INVALID_HANDLE_VALUE;
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE),
              OutcomeOf([&] { return ::ReadFile(none, &character, 1, &count, nullptr); }));
    EXPECT_EQ(0u, count);
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), Write(none, "x"));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), Write(none, ""));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::ReadFile(none, nullptr, 0, &count, nullptr); }));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::GetFileSizeEx(none, &size); }));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::SetFilePointerEx(none, {}, &size, FILE_BEGIN); }));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::SetEndOfFile(none); }));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::FlushFileBuffers(none); }));
    EXPECT_EQ(Failed(ERROR_INVALID_HANDLE), OutcomeOf([&] { return ::GetFileType(none) != FILE_TYPE_UNKNOWN; }));
}

TEST_F(Files, HaveAPointerThatMovesFromBeginningHereOrEnd)
{
    const Handle file(m_folder[L"file"], GENERIC_READ | GENERIC_WRITE);
    EXPECT_EQ(2, Seek(file, 2, FILE_BEGIN));
    EXPECT_EQ(1, Seek(file, -1, FILE_CURRENT));
    EXPECT_EQ(2, Seek(file, -1, FILE_END));
    EXPECT_EQ("c", Read(file, 5));
    EXPECT_EQ(0x123456789, Seek(file, 0x123456789, FILE_BEGIN));

    LARGE_INTEGER distance{};
    LARGE_INTEGER position{};
    position.QuadPart = 77;
    distance.QuadPart = -1;
    EXPECT_EQ(Failed(ERROR_NEGATIVE_SEEK),
              OutcomeOf([&] { return ::SetFilePointerEx(file, distance, &position, FILE_BEGIN); }));
    EXPECT_EQ(77, position.QuadPart);
    EXPECT_EQ(Failed(ERROR_INVALID_PARAMETER), OutcomeOf([&] { return ::SetFilePointerEx(file, {}, nullptr, 3); }));
    EXPECT_EQ(c_done, OutcomeOf([&] { return ::SetFilePointerEx(file, {}, nullptr, FILE_BEGIN); }));
}

TEST_F(Files, HaveAPointerOfTwoHalves)
{
    const struct
    {
        DWORD expected;
        LONG expectedHigh;
        DWORD error;
        LONG distance;
        LONG high;
        DWORD from;
    } rows[] = {
        {2, 0, ERROR_SUCCESS, 2, 0, FILE_BEGIN},
        {1, 0, ERROR_SUCCESS, -1, -1, FILE_CURRENT},
        {0, 0, ERROR_SUCCESS, -3, -1, FILE_END},
        {5, 1, ERROR_SUCCESS, 5, 1, FILE_BEGIN},
        {0xFFFFFFFF, 0, ERROR_SUCCESS, -1, 0, FILE_BEGIN},  // a position, not the failure that it looks like
        {INVALID_SET_FILE_POINTER, -1, ERROR_NEGATIVE_SEEK, -1, -1, FILE_BEGIN},
    };
    const Handle file(m_folder[L"file"], GENERIC_READ);
    for (const auto& row : rows)
    {
        LONG high = row.high;
        ::SetLastError(c_sentinel);
        const DWORD low = ::SetFilePointer(file, row.distance, &high, row.from);
        const DWORD error = ::GetLastError();
        EXPECT_EQ(row.expected, low) << row.distance << ' ' << row.high;
        EXPECT_EQ(row.expectedHigh, high) << row.distance << ' ' << row.high;
        // A success is reported where the result could be taken for a failure; elsewhere it may leave the error alone.
        const bool mayKeepError = row.expected != INVALID_SET_FILE_POINTER && error == c_sentinel;
        EXPECT_TRUE(row.error == error || mayKeepError) << row.distance << ' ' << row.high << ": " << error;
    }
    EXPECT_EQ(3u, ::SetFilePointer(file, 3, nullptr, FILE_BEGIN));
    EXPECT_EQ(1u, ::SetFilePointer(file, -2, nullptr, FILE_CURRENT));
    EXPECT_EQ(INVALID_SET_FILE_POINTER, ::SetFilePointer(file, -2, nullptr, FILE_CURRENT));
    EXPECT_EQ(ERROR_NEGATIVE_SEEK, ::GetLastError());
}

TEST_F(Files, AreCutAndExtendedAtThePointer)
{
    const Handle file(m_folder[L"file"], GENERIC_WRITE);
    for (const LONGLONG length : {2, 5, 0})
    {
        Seek(file, length, FILE_BEGIN);
        EXPECT_EQ(c_done, OutcomeOf([&] { return ::SetEndOfFile(file); }));
        LARGE_INTEGER size{};
        EXPECT_EQ(c_done, OutcomeOf([&] { return ::GetFileSizeEx(file, &size); }));
        EXPECT_EQ(length, size.QuadPart);
    }
    EXPECT_EQ(c_done, OutcomeOf([&] { return ::FlushFileBuffers(file); }));
}

TEST_F(Files, AreOfTheTypeDisk)
{
    const Handle file(m_folder[L"file"], GENERIC_READ);
    EXPECT_EQ(static_cast<DWORD>(FILE_TYPE_DISK), ::GetFileType(file));
}

// clang-format off
TEST_F(Files, AreDeletedUnlessTheyAreReadOnlyOrOpenToOthers)
{
    const struct
    {
        const wchar_t* name;
        Outcome outcome;
    } rows[] = {
        {L"file",         c_done},
        {L"file",         Failed(ERROR_FILE_NOT_FOUND)},
        {L"missing/file", Failed(ERROR_PATH_NOT_FOUND)},
        {L"fixed",        Failed(ERROR_ACCESS_DENIED)},
        {L"folder",       Failed(ERROR_ACCESS_DENIED)},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.outcome, OutcomeOf([&] { return ::DeleteFileW(m_folder[row.name]); }))
            << testing::PrintToString(row.name);
    }
    Make(m_folder / "open", "open");
    const Handle open(m_folder[L"open"], GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(Failed(ERROR_SHARING_VIOLATION), OutcomeOf([&] { return ::DeleteFileW(m_folder[L"open"]); }));
    EXPECT_EQ("open", Read(open, 10));
}

TEST_F(Files, AreMoved)
{
    const struct
    {
        const wchar_t* from;
        const wchar_t* to;
        DWORD flags;
        Outcome outcome;
    } rows[] = {
        {L"file",    L"new",         0,                         c_done},
        {L"new",     L"file",        MOVEFILE_REPLACE_EXISTING, c_done},
        {L"other",   L"file",        0,                         Failed(ERROR_ALREADY_EXISTS)},
        {L"missing", L"new",         0,                         Failed(ERROR_FILE_NOT_FOUND)},
        {L"missing", L"file",        MOVEFILE_REPLACE_EXISTING, Failed(ERROR_FILE_NOT_FOUND)},
        {L"file",    L"missing/new", 0,                         Failed(ERROR_PATH_NOT_FOUND)},
        {L"file",    L"folder",      0,                         Failed(ERROR_ALREADY_EXISTS)},
        {L"file",    L"folder",      MOVEFILE_REPLACE_EXISTING, Failed(ERROR_ACCESS_DENIED)},
        {L"file",    L"fixed",       MOVEFILE_REPLACE_EXISTING, Failed(ERROR_ACCESS_DENIED)},
        {L"other",   L"file",        MOVEFILE_REPLACE_EXISTING, c_done},
        {L"file",    L"folder\\new", 0,                         c_done},
    };
    Make(m_folder / "other", "other");
    const bool refused = AreReadOnlyFilesRefused();
    for (const auto& row : rows)
    {
        if (!refused && row.to == std::wstring_view(L"fixed"))
            continue;
        EXPECT_EQ(row.outcome, OutcomeOf([&] { return ::MoveFileExW(m_folder[row.from], m_folder[row.to], row.flags); }))
            << testing::PrintToString(row.from) << " to " << testing::PrintToString(row.to) << ' ' << row.flags;
    }
    EXPECT_EQ("other", TextOf(m_folder / "folder" / "new"));
    EXPECT_EQ("fixed", TextOf(m_folder / "fixed"));
}
// clang-format on

TEST_F(Files, ThatAreOpenAreNotMoved)
{
    Make(m_folder / "other", "other");
    const Handle open(m_folder[L"file"], GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(Failed(ERROR_SHARING_VIOLATION),
              OutcomeOf([&] { return ::MoveFileExW(m_folder[L"file"], m_folder[L"new"], 0); }));
    EXPECT_EQ(
        Failed(ERROR_ACCESS_DENIED),
        OutcomeOf([&] { return ::MoveFileExW(m_folder[L"other"], m_folder[L"file"], MOVEFILE_REPLACE_EXISTING); }));
}

TEST_F(Files, TakeThePlaceOfOthers)
{
    Make(m_folder / "new", "new");
    const auto replace = [this](const wchar_t* replaced, const wchar_t* replacement)
    {
        return OutcomeOf(
            [&] { return ::ReplaceFileW(m_folder[replaced], m_folder[replacement], nullptr, 0, nullptr, nullptr); });
    };
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND), replace(L"missing", L"new"));
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND), replace(L"file", L"missing"));
    EXPECT_EQ(Failed(ERROR_ACCESS_DENIED), replace(L"fixed", L"new"));
    EXPECT_EQ("abc", TextOf(m_folder / "file"));
    EXPECT_EQ("new", TextOf(m_folder / "new"));
    EXPECT_EQ(c_done, replace(L"file", L"new"));
    EXPECT_EQ("new", TextOf(m_folder / "file"));
    EXPECT_FALSE(std::filesystem::exists(m_folder / "new"));

    Make(m_folder / "new", "newer");
    const Handle open(m_folder[L"file"], GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(Failed(ERROR_SHARING_VIOLATION), replace(L"file", L"new"));
    EXPECT_EQ("new", TextOf(m_folder / "file"));
}

TEST_F(Files, HaveAttributes)
{
    constexpr DWORD c_seen = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
    EXPECT_EQ(0u, ::GetFileAttributesW(m_folder[L"file"]) & c_seen);
    EXPECT_EQ(static_cast<DWORD>(FILE_ATTRIBUTE_READONLY), ::GetFileAttributesW(m_folder[L"fixed"]) & c_seen);
    EXPECT_EQ(static_cast<DWORD>(FILE_ATTRIBUTE_DIRECTORY), ::GetFileAttributesW(m_folder[L"folder"]) & c_seen);
    const auto attributesOf = [this](const wchar_t* name)
    {
        return OutcomeOf([&] { return ::GetFileAttributesW(m_folder[name]) != INVALID_FILE_ATTRIBUTES; });
    };
    EXPECT_EQ(c_done, attributesOf(L"file"));
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND), attributesOf(L"missing"));
    EXPECT_EQ(Failed(ERROR_PATH_NOT_FOUND), attributesOf(L"missing/file"));
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND),
              OutcomeOf([&] { return ::SetFileAttributesW(m_folder[L"missing"], FILE_ATTRIBUTE_NORMAL); }));
}

TEST_F(Files, TellTheirFinalPath)
{
    const Handle file(m_folder[L"file"], GENERIC_READ);
    const DWORD needed = ::GetFinalPathNameByHandleW(file, nullptr, 0, 0);
    ASSERT_GT(needed, 4u);
    std::wstring path(needed, L'?');
    EXPECT_EQ(needed, ::GetFinalPathNameByHandleW(file, path.data(), needed - 1, 0));
    EXPECT_EQ(needed - 1, ::GetFinalPathNameByHandleW(file, path.data(), needed, 0));
    path.resize(needed - 1);
    EXPECT_EQ(L"file", path.substr(path.size() - 4));
    EXPECT_EQ("abc", Read(Handle(CString(path.c_str()), GENERIC_READ), 10));
}

TEST_F(Files, HaveNamesWithAnyCharacters)
{
    for (const wchar_t* name : {L"mètre", L"単位", L"a b", L"%s", L"\x20AC"})
    {
        EXPECT_TRUE(Handle(m_folder[name], GENERIC_WRITE, 0, CREATE_NEW).Opened().succeeded)
            << testing::PrintToString(name);
        EXPECT_TRUE(std::filesystem::exists(m_folder / PathOf(name))) << testing::PrintToString(name);
    }
}

TEST_F(Files, AreReachedByAnExtendedPath)
{
    const Handle file(m_folder[L"file"], GENERIC_READ);
    std::wstring path(500, L'?');
    path.resize(::GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()), 0));
    const std::wstring prefix = L"\\\\?\\";
    if (!path.starts_with(prefix))
        path = prefix + path;
    EXPECT_EQ("abc", Read(Handle(CString(path.c_str()), GENERIC_READ), 10));
}
