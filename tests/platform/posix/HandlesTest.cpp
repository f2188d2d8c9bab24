#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/SystemCallSupport.h"
#include "vetools/platform/Platform.h"

// Handles of what is no file of ours. The system gives the number of a closed file to the next one that anybody opens: a
// handle must not reach that.

namespace
{

HANDLE HandleOf(int descriptor)
{
    return reinterpret_cast<HANDLE>((static_cast<std::intptr_t>(descriptor) + 1) * 4);
}

void ExpectNothingWithout(HANDLE file)
{
    char letter = 'x';
    DWORD count = 99;
    LARGE_INTEGER size{};
    const Outcome invalid = Failed(ERROR_INVALID_HANDLE);
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::ReadFile(file, &letter, 1, &count, nullptr); }));
    EXPECT_EQ(0u, count);
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::WriteFile(file, &letter, 1, &count, nullptr); }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::FlushFileBuffers(file); }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::SetEndOfFile(file); }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::SetFilePointerEx(file, {}, nullptr, FILE_BEGIN); }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::GetFileSizeEx(file, &size); }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::GetFileType(file) != FILE_TYPE_UNKNOWN; }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::GetFinalPathNameByHandleW(file, nullptr, 0, 0) != 0; }));
    EXPECT_EQ(invalid, OutcomeOf([&] { return ::CloseHandle(file); }));
}

}  // namespace

TEST(Handles, ThatWereClosedReachNoFileThatTookTheirNumber)
{
    const TestFolder folder;
    const HANDLE closed =
        ::CreateFileW(folder[L"file"], GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_TRUE(::CloseHandle(closed));
    const int other = ::open((folder / "other").c_str(), O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(closed, HandleOf(other));
    EXPECT_EQ(4, ::write(other, "text", 4));
    ExpectNothingWithout(closed);
    EXPECT_EQ(0, ::close(other));
    EXPECT_EQ((Bytes{'t', 'e', 'x', 't'}), ReadBytes(folder / "other"));
}

TEST(Handles, ThatMayNotWriteDoNotCutTheirFile)
{
    const TestFolder folder;
    const HANDLE file = ::CreateFileW(folder[L"file"], GENERIC_READ, 0, nullptr, CREATE_NEW, 0, nullptr);
    EXPECT_EQ(Failed(ERROR_ACCESS_DENIED), OutcomeOf([&] { return ::SetEndOfFile(file); }));
    EXPECT_TRUE(::CloseHandle(file));
}

TEST(Handles, AreNotThoseOfTheStandardStreams)
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ExpectNothingWithout(HandleOf(descriptor));
}

TEST(Handles, OfPipesAreGivenWithoutWaitingForTheOtherEnd)
{
    const TestFolder folder;
    ASSERT_EQ(0, ::mkfifo((folder / "pipe").c_str(), 0666));
    const auto open = [&folder](DWORD access)
    {
        return ::CreateFileW(folder[L"pipe"], access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                             nullptr);
    };
    EXPECT_EQ(Failed(ERROR_FILE_NOT_FOUND), OutcomeOf([&] { return open(GENERIC_WRITE) != INVALID_HANDLE_VALUE; }));
    const HANDLE reader = open(GENERIC_READ);
    ASSERT_NE(INVALID_HANDLE_VALUE, reader);
    char letters[4] = {};
    DWORD count = 99;
    EXPECT_TRUE(::ReadFile(reader, letters, 4, &count, nullptr));
    EXPECT_EQ(0u, count);

    const HANDLE writer = open(GENERIC_WRITE);
    ASSERT_NE(INVALID_HANDLE_VALUE, writer);
    EXPECT_TRUE(::WriteFile(writer, "text", 4, nullptr, nullptr));
    EXPECT_TRUE(::ReadFile(reader, letters, 4, &count, nullptr));
    EXPECT_EQ("text", std::string(letters, count));
    EXPECT_TRUE(::CloseHandle(writer));
    EXPECT_TRUE(::CloseHandle(reader));
}
