#include <sys/wait.h>
#include <unistd.h>

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
