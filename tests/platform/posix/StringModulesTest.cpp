#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "vetools/platform/LibraryModule.h"
#include "vetools/platform/Platform.h"

// Modules where the system has none of its own: what is accepted as one. The build makes the shared objects of
// tests/platform/modules/Module.c in the folder of this program.

namespace
{

std::filesystem::path Program()
{
    return std::filesystem::read_symlink("/proc/self/exe");
}

std::wstring TextOf(HINSTANCE module, UINT id)
{
    wchar_t buffer[80] = L"";
    ::LoadStringW(module, id, buffer, 80);
    return buffer;
}

DWORD ErrorOfLoading(const wchar_t* name)
{
    ::SetLastError(ERROR_SUCCESS);
    const HINSTANCE module = ::LoadLibraryW(name);
    if (module != nullptr)
        ::FreeLibrary(module);
    return ::GetLastError();
}

}  // namespace

TEST(StringModules, TheRecordMayBeMadeInC)
{
    for (const wchar_t* name : {L"TestModule_MADE_IN_C", L"TestModule_LARGER_RECORD"})
    {
        const HINSTANCE module = ::LoadLibraryW(name);
        ASSERT_NE(nullptr, module) << testing::PrintToString(name);
        EXPECT_EQ(L"one", TextOf(module, 1));
        EXPECT_EQ(L"two", TextOf(module, 2));
        EXPECT_EQ(L"", TextOf(module, 3));
        EXPECT_EQ(1, ::FreeLibrary(module));
    }
}

TEST(StringModules, SharedObjectsWithoutAUsableRecordAreNotLoaded)
{
    for (const wchar_t* form :
         {L"NO_RECORD", L"SMALL_RECORD", L"OTHER_VERSION", L"NO_STRINGS", L"TOO_MANY_STRINGS", L"DESCENDING",
          L"TWICE_THE_SAME", L"LARGE_ID", L"NEGATIVE_LENGTH", L"NO_TEXT", L"NEEDS_A_MODULE"})
    {
        const std::wstring name = std::wstring(L"TestModule_") + form;
        EXPECT_EQ(ERROR_BAD_EXE_FORMAT, ErrorOfLoading(name.c_str())) << testing::PrintToString(name);
    }
}

TEST(StringModules, AModuleThatWasCutOffIsNotLoaded)
{
    const TestFolder folder;
    const Bytes whole = ReadBytes(Program().parent_path() / "TestFrench.so");
    ASSERT_LT(4096u, whole.size());
    std::vector<std::size_t> sizes = {1, 4, 15, 16, 63, 64, 65, 100, 1000};
    for (std::size_t size = 4096; size < whole.size() / 2; size += 4096)
        sizes.push_back(size);
    for (const std::size_t size : sizes)
    {
        WriteBytes(folder / "part.so", Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        EXPECT_EQ(ERROR_BAD_EXE_FORMAT, ErrorOfLoading(folder[L"part.so"])) << size;
    }
}

TEST(StringModules, ProgramsPipesAndDevicesAreNotLoaded)
{
    const TestFolder folder;
    ASSERT_EQ(0, ::mkfifo((folder / "pipe.so").c_str(), 0600));
    EXPECT_EQ(ERROR_BAD_EXE_FORMAT, ErrorOfLoading(folder[L"pipe.so"]));  // nobody waits for its other end
    EXPECT_EQ(ERROR_BAD_EXE_FORMAT, ErrorOfLoading(L"/dev/zero."));
    EXPECT_EQ(ERROR_BAD_EXE_FORMAT, ErrorOfLoading((Program().wstring() + L".").c_str()));
}

TEST(StringModules, APathMayHaveTheWindowsFormAndNoExtension)
{
    const std::wstring folder = Program().parent_path().wstring();
    std::wstring backslashes = folder;
    for (wchar_t& character : backslashes)
        character = character == L'/' ? L'\\' : character;
    const HINSTANCE module = ::LoadLibraryW(L"TestFrench");
    for (const std::wstring& name : {folder + L"/TestFrench.so", folder + L"/TestFrench",
                                     backslashes + L"\\TestFrench.so", L"\\\\?\\" + backslashes + L"\\TestFrench"})
    {
        const HINSTANCE again = ::LoadLibraryW(name.c_str());
        EXPECT_EQ(module, again) << testing::PrintToString(name);
        ::FreeLibrary(again);
    }
    ::FreeLibrary(module);
}

TEST(StringModules, AHandleIsNotGivenTwice)
{
    const HINSTANCE before = ::LoadLibraryW(L"TestFrench");
    ::FreeLibrary(before);
    const HINSTANCE after = ::LoadLibraryW(L"TestFrench");
    EXPECT_NE(before, after);
    EXPECT_EQ(0, ::FreeLibrary(before));
    EXPECT_EQ(L"Poutre", TextOf(after, 1001));
    ::FreeLibrary(after);
}

TEST(StringModules, TheLibraryIsNotUnloaded)
{
    EXPECT_EQ(1, ::FreeLibrary(LibraryModule()));
    EXPECT_EQ(L"Mètre", TextOf(LibraryModule(), 20925));
}

TEST(StringModules, AreLoadedAndReadByManyThreads)
{
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
    {
        threads.emplace_back(
            []
            {
                for (int round = 0; round < 200; ++round)
                {
                    const HINSTANCE module = ::LoadLibraryW(L"TestFrench");
                    EXPECT_EQ(L"Poutre", TextOf(module, 1001));
                    EXPECT_EQ(1, ::FreeLibrary(module));
                }
            });
    }
    for (std::thread& thread : threads)
        thread.join();
}
