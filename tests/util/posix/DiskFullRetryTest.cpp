#include <fcntl.h>
#include <unistd.h>

#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/ScopedLog.h"
#include "vetools/util/VeFile.h"

// A disk on which there is room again: the full device gives way to a file under the same descriptor.

namespace
{

std::filesystem::path s_roomyFile;

int FullDescriptor()
{
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    {
        std::error_code ignored;
        if (std::filesystem::read_symlink(entry, ignored) == "/dev/full")
            return std::stoi(entry.path().filename().string());
    }
    return -1;
}

int MakeRoom()
{
    const int file = ::open(s_roomyFile.c_str(), O_WRONLY | O_CREAT, 0666);
    ::dup2(file, FullDescriptor());
    ::close(file);
    return IDRETRY;
}

}  // namespace

TEST(DiskFullRetry, KeptWritesAllBytesAgainOnceThereIsRoom)
{
    const TestFolder folder;
    const ScopedLog log;
    s_roomyFile = folder / "file";
    const HANDLE full = gCreateFile(L"/dev/full", GENERIC_WRITE, 0, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    ASSERT_NE(INVALID_HANDLE_VALUE, full);
    gSetDiskFullRetryHook(MakeRoom);
    DWORD count = 99;
    EXPECT_NE(0, gWriteFile(full, "text", 4, &count));
    gSetDiskFullRetryHook(nullptr);
    EXPECT_EQ(4u, count);
    EXPECT_TRUE(::CloseHandle(full));
    EXPECT_EQ((Bytes{'t', 'e', 'x', 't'}), ReadBytes(folder / "file"));
    EXPECT_TRUE(log.Errors().empty());
}
