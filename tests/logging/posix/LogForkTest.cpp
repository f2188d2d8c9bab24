#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "vetools/logging/LogFileBase.h"

TEST(LogFileOfAFork, NamesTheChildInItsEntries)
{
    const TestFolder folder;
    LogFileBase::CreateInstance(folder.Path().wstring().c_str(), 0);
    const auto write = [](const wchar_t* message)
    {
        LogFileBase::GetInstance()
            ->WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0)
            .WriteEntryEnd(L"%s", message);
    };
    write(L"parent");
    const pid_t child = ::fork();
    if (child == 0)
    {
        write(L"child");
        ::_exit(0);
    }
    ASSERT_LT(0, child);
    EXPECT_EQ(child, ::waitpid(child, nullptr, 0));
    write(L"parent again");

    const Bytes bytes = ReadBytes(folder / "Log.txt");
    const std::string text(bytes.begin(), bytes.end());
    const std::string own = "PID:" + std::to_string(::getpid());
    EXPECT_TRUE(text.ends_with(own + "  Message : parent\nPID:" + std::to_string(child) + "  Message : child\n" + own +
                               "  Message : parent again\n"))
        << text;
    LogFileBase::ReleaseInstance();
}

TEST(LogFileOfAFork, IsWrittenToAndReleasedAlsoAtTheEndOfTheProcess)
{
    const TestFolder folder;
    static const auto write = [](int length)
    {
        LogFileBase::GetInstance()
            ->WriteEntryBegin(LogFileBase::Message, true, false, nullptr, 0)
            .WriteEntryEnd(L"%s", std::wstring(static_cast<std::size_t>(length), L'x').c_str());
    };
    std::fflush(nullptr);  // what is in the buffers is not written by both
    const pid_t child = ::fork();
    if (child == 0)
    {
        // Runs behind the destructors of what is the thread's, or was made later.
        std::atexit(
            []
            {
                write(300);
                LogFileBase::ReleaseInstance();
            });
        LogFileBase::CreateInstance(folder.Path().wstring().c_str(), 0);
        write(1000);
        std::exit(0);
    }
    ASSERT_LT(0, child);
    int status = -1;
    EXPECT_EQ(child, ::waitpid(child, &status, 0));
    EXPECT_EQ(0, status);

    const Bytes bytes = ReadBytes(folder / "Log.txt");
    const std::string text(bytes.begin(), bytes.end());
    const std::string id = "PID:" + std::to_string(child);
    EXPECT_NE(std::string::npos, text.find(id + "  Message : " + std::string(1000, 'x') + "\n" + id +
                                           "  Message : " + std::string(300, 'x') + "\n"));
    EXPECT_TRUE(text.ends_with("Entries = 2, Errors = 0 \n" + id + " Log ended\n")) << text;
}
