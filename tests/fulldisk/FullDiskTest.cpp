#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/ScopedLog.h"
#include "vetools/util/VeFile.h"

// That a disk was full is known to the process for the rest of its life: hence a program of its own, of one test.

namespace
{

using Messages = std::vector<std::string>;

int AskedInVain()
{
    ADD_FAILURE() << "the hook is not asked any more";
    return 0;
}

}  // namespace

TEST(FullDisk, KeptIsLoggedOnceAndEveryLaterFailureOfWritingIsSilent)
{
    const TestFolder folder;
    const ScopedLog log;
    const HANDLE full = gCreateFile(L"/dev/full", GENERIC_WRITE, 0, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    ASSERT_NE(INVALID_HANDLE_VALUE, full) << "there is no full device here to test with";
    DWORD count = 99;
    EXPECT_EQ(0, gWriteFile(full, "text", 4, &count));
    EXPECT_EQ(static_cast<DWORD>(ERROR_DISK_FULL), ::GetLastError());
    EXPECT_EQ(0u, count);
    const Messages once{"error (112) writing in file\n"};
    EXPECT_EQ(once, log.Errors());

    gSetDiskFullRetryHook(AskedInVain);
    count = 99;
    EXPECT_EQ(0, gWriteFile(full, "text", 4, &count));
    EXPECT_EQ(0u, count);
    EXPECT_EQ(0, gWriteFile(INVALID_HANDLE_VALUE, "text", 4, nullptr));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_HANDLE), ::GetLastError());
    EXPECT_EQ(once, log.Errors());
    EXPECT_TRUE(::CloseHandle(full));

    // What succeeds does so as ever, and other failures are logged.
    const HANDLE file = gCreateFile(folder[L"file"], GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
    EXPECT_NE(0, gWriteFile(file, "text", 4, &count));
    EXPECT_EQ(4u, count);
    EXPECT_TRUE(::CloseHandle(file));
    char bytes[2];
    EXPECT_EQ(0, gReadFile(INVALID_HANDLE_VALUE, bytes, 2, nullptr));
    EXPECT_EQ(2u, log.Errors().size());
    EXPECT_EQ(INVALID_HANDLE_VALUE, gCreateFile(folder[L"missing"], GENERIC_READ, 0, OPEN_EXISTING, 0));
    EXPECT_EQ(3u, log.Errors().size());
}
