#include "vetools/platform/Platform.h"

#include <cstring>
#include <cwchar>
#include <string>

#include <gtest/gtest.h>

#include "vetools/framework/ModuleState.h"

// What the system and its stand-in both answer for entries of a string table: the last error is set to a sentinel, and
// result and error are read together.

namespace
{

constexpr DWORD c_sentinel = 0xDEADBEEF;
constexpr wchar_t c_guard = L'#';
constexpr UINT c_metre = 20925;
constexpr UINT c_noString = 1;
constexpr UINT c_gapAmongStrings = 20944;

struct Loaded
{
    int result;
    DWORD error;
    std::wstring buffer;  // as it was left, guards included
};

Loaded Load(UINT id, int bufferSize)
{
    wchar_t buffer[10];
    std::wmemset(buffer, c_guard, 10);
    ::SetLastError(c_sentinel);
    const int result = ::LoadStringW(GetVeToolsModule(), id, buffer, bufferSize);
    const DWORD error = ::GetLastError();
    return {result, error, std::wstring(buffer, 10)};
}

}  // namespace

TEST(StringTable, CopiesATextWithItsTerminator)
{
    const Loaded loaded = Load(c_metre, 10);
    EXPECT_EQ(5, loaded.result);
    EXPECT_EQ(c_sentinel, loaded.error);
    EXPECT_EQ(std::wstring(L"Mètre\0####", 10), loaded.buffer);
}

TEST(StringTable, CutsATextToTheBufferAndReturnsWhatItCopied)
{
    struct Row
    {
        int result;
        std::wstring buffer;
        int size;
    };
    const Row rows[] = {
        {5, std::wstring(L"Mètre\0####", 10), 6},
        {4, std::wstring(L"Mètr\0#####", 10), 5},
        {1, std::wstring(L"M\0########", 10), 2},
    };
    for (const Row& row : rows)
    {
        const Loaded loaded = Load(c_metre, row.size);
        EXPECT_EQ(row.result, loaded.result) << row.size;
        EXPECT_EQ(row.buffer, loaded.buffer) << row.size;
        EXPECT_EQ(c_sentinel, loaded.error) << row.size;
    }
}

TEST(StringTable, GivesThePlaceOfATextForABufferOfSizeZero)
{
    const wchar_t* text = nullptr;
    ::SetLastError(c_sentinel);
    const int length = ::LoadStringW(GetVeToolsModule(), c_metre, reinterpret_cast<LPWSTR>(&text), 0);
    EXPECT_EQ(c_sentinel, ::GetLastError());
    ASSERT_EQ(5, length);
    EXPECT_EQ(L"Mètre", std::wstring(text, 5));
    const wchar_t* again = nullptr;
    ::LoadStringW(GetVeToolsModule(), c_metre, reinterpret_cast<LPWSTR>(&again), 0);
    EXPECT_EQ(text, again);
}

/// Whether the first character becomes the terminator then is not the same on all systems; nothing behind it is
/// written.
TEST(StringTable, ReturnsZeroWithoutAnEntryOrWithoutRoom)
{
    struct Row
    {
        UINT id;
        int size;
    };
    for (const Row& row : {Row{c_noString, 10}, Row{c_gapAmongStrings, 10}, Row{c_metre, 1}})
    {
        const Loaded loaded = Load(row.id, row.size);
        EXPECT_EQ(0, loaded.result) << row.id;
        EXPECT_EQ(std::wstring(9, c_guard), loaded.buffer.substr(1)) << row.id;
    }
    for (const UINT id : {c_noString, c_gapAmongStrings})
    {
        const wchar_t* text = L"before";
        EXPECT_EQ(0, ::LoadStringW(GetVeToolsModule(), id, reinterpret_cast<LPWSTR>(&text), 0)) << id;
    }
}

TEST(StringTable, ReturnsZeroWithoutABuffer)
{
    EXPECT_EQ(0, ::LoadStringW(GetVeToolsModule(), c_metre, nullptr, 0));
    EXPECT_EQ(0, ::LoadStringW(GetVeToolsModule(), c_metre, nullptr, 10));
}
