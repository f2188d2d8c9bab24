#include <shlwapi.h>

#include <gtest/gtest.h>

#include "vetools/platform/WindowsPath.h"

// What the system's shell says of paths without the extended prefix is what their text says here.
TEST(ShellPath, IsOnTheNetworkWhereItsTextNamesAServer)
{
    for (const wchar_t* path : {L"", L"\\", L"\\\\", L"\\\\s", L"\\\\s\\share", L"\\\\s\\share\\file", L"\\\\\\s",
                                L"//s/share", L"\\/s", L"C:\\x", L"C:x", L"x", L"\\x"})
    {
        EXPECT_EQ(::PathIsUNCW(path) != 0, IsUncPath(path)) << testing::PrintToString(path);
        EXPECT_TRUE(!::PathIsUNCW(path) || ::PathIsNetworkPathW(path)) << testing::PrintToString(path);
    }
}
