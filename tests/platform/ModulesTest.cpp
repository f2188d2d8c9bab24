#include "vetools/platform/Platform.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "vetools/framework/ModuleState.h"

// What the system and its stand-in both answer for modules: the last error is set to a sentinel, and result and error are read
// together. TestFrench and TestEnglish are modules that the build makes beside this program.

namespace
{

constexpr DWORD c_sentinel = 0xDEADBEEF;
constexpr UINT c_beam = 1001;
constexpr UINT c_frenchOnly = 1003;

struct Loaded
{
    HINSTANCE module;
    DWORD error;
};

Loaded Load(const wchar_t* name)
{
    ::SetLastError(c_sentinel);
    const HINSTANCE module = ::LoadLibraryW(name);
    return {module, ::GetLastError()};
}

struct Freed
{
    BOOL result;
    DWORD error;
};

Freed Free(HINSTANCE module)
{
    ::SetLastError(c_sentinel);
    const BOOL result = ::FreeLibrary(module);
    return {result, ::GetLastError()};
}

struct Text
{
    std::wstring text;
    DWORD error;
};

Text TextOf(HINSTANCE module, UINT id)
{
    wchar_t buffer[80] = L"";
    ::SetLastError(c_sentinel);
    const int length = ::LoadStringW(module, id, buffer, 80);
    return {std::wstring(buffer, static_cast<std::size_t>(length)), ::GetLastError()};
}

}  // namespace

TEST(Modules, LoadsAModuleThatStandsBesideTheProgram)
{
    const Loaded french = Load(L"TestFrench");
    ASSERT_NE(nullptr, french.module);
    EXPECT_EQ(L"Poutre", TextOf(french.module, c_beam).text);
    EXPECT_EQ(1, Free(french.module).result);
}

TEST(Modules, GivesTheSameHandleForAModuleThatIsLoadedAndCountsItsUses)
{
    const HINSTANCE first = Load(L"TestFrench").module;
    const HINSTANCE second = Load(L"TestFrench").module;
    const HINSTANCE other = Load(L"TestEnglish").module;
    EXPECT_EQ(first, second);
    EXPECT_NE(first, other);
    EXPECT_EQ(1, Free(first).result);
    EXPECT_EQ(L"Poutre", TextOf(second, c_beam).text);
    EXPECT_EQ(1, Free(second).result);
    EXPECT_EQ(L"Beam", TextOf(other, c_beam).text);
    EXPECT_EQ(1, Free(other).result);
}

TEST(Modules, AFreedHandleIsNoHandleAnyMore)
{
    const HINSTANCE french = Load(L"TestFrench").module;
    ASSERT_EQ(1, Free(french).result);
    const Freed again = Free(french);
    EXPECT_EQ(0, again.result);
    EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, again.error);
    const Text text = TextOf(french, c_beam);
    EXPECT_EQ(L"", text.text);
    EXPECT_EQ(DWORD{ERROR_RESOURCE_DATA_NOT_FOUND}, text.error);
}

TEST(Modules, WhatIsNoHandleIsNotFreed)
{
    EXPECT_EQ(0, Free(nullptr).result);
    EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, Free(nullptr).error);
    const HINSTANCE unknown = reinterpret_cast<HINSTANCE>(std::uintptr_t{0x70000});
    EXPECT_EQ(0, Free(unknown).result);
    EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, Free(unknown).error);
    EXPECT_EQ(L"", TextOf(unknown, c_beam).text);
    EXPECT_EQ(DWORD{ERROR_RESOURCE_DATA_NOT_FOUND}, TextOf(unknown, c_beam).error);
}

TEST(Modules, ANullModuleIsTheProgramWhichHasNoTexts)
{
    EXPECT_EQ(L"", TextOf(nullptr, c_beam).text);
}

TEST(Modules, AnIdWithoutATextGivesNone)
{
    const HINSTANCE english = Load(L"TestEnglish").module;
    EXPECT_EQ(L"", TextOf(english, c_frenchOnly).text);
    EXPECT_EQ(L"", TextOf(english, 30000).text);
    EXPECT_EQ(DWORD{ERROR_RESOURCE_NAME_NOT_FOUND}, TextOf(english, 30000).error);
    ::FreeLibrary(english);
}

TEST(Modules, WhatIsNotThereIsNotLoaded)
{
    for (const std::wstring& name : {std::wstring(L"TestNowhere"), std::wstring(L"TestNowhere.dll"), std::wstring(L" "),
                                     std::wstring(L"no\\such\\folder\\TestFrench"), std::wstring(L"TestFrench.")})
    {
        const Loaded loaded = Load(name.c_str());
        EXPECT_EQ(nullptr, loaded.module) << testing::PrintToString(name);
        EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, loaded.error) << testing::PrintToString(name);
    }
    EXPECT_EQ(nullptr, Load(nullptr).module);
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, Load(nullptr).error);
    EXPECT_EQ(nullptr, Load(L"").module);
    EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, Load(L"").error);
}

TEST(Modules, ANameOfAnyLengthIsNoHarm)
{
    for (const std::size_t length : {255u, 259u, 260u, 261u, 4096u, 40000u})
    {
        EXPECT_EQ(nullptr, Load(std::wstring(length, L'a').c_str()).module) << length;
        EXPECT_EQ(nullptr, Load((L"a\\" + std::wstring(length, L'b')).c_str()).module) << length;
    }
}

TEST(Modules, WhatIsNoModuleIsNotLoaded)
{
    const TestFolder folder;
    WriteBytes(folder / "text.dll", {'h', 'e', 'l', 'l', 'o', '\n'});
    WriteBytes(folder / "empty.dll", {});
    WriteBytes(folder / "start.dll", {'M', 'Z'});
    std::filesystem::create_directory(folder / "folder.dll");
    for (const wchar_t* name : {L"text.dll", L"empty.dll", L"start.dll"})
    {
        const Loaded loaded = Load(folder[name]);
        EXPECT_EQ(nullptr, loaded.module) << testing::PrintToString(name);
        EXPECT_EQ(DWORD{ERROR_BAD_EXE_FORMAT}, loaded.error) << testing::PrintToString(name);
    }
    EXPECT_EQ(nullptr, Load(folder[L"folder.dll"]).module);
    EXPECT_EQ(DWORD{ERROR_ACCESS_DENIED}, Load(folder[L"folder.dll"]).error);
    EXPECT_EQ(nullptr, Load(folder[L"folder.dll\\"]).module);
}

TEST(Modules, TheLibraryItselfCountsAsLoaded)
{
    EXPECT_EQ(L"Mètre", TextOf(GetVeToolsModule(), 20925).text);
}
