#include "vetools/platform/Platform.h"

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <string>

#include <gtest/gtest.h>

// What the system and its stand-in both answer for narrow and wide text, case and order.

namespace
{

constexpr DWORD c_sentinel = 0xDEADBEEF;

struct Converted
{
    int result;
    DWORD error;
};

Converted ToWide(const char* text, int textSize, wchar_t* buffer, int bufferSize, UINT codePage = CP_UTF8,
                 DWORD flags = 0)
{
    ::SetLastError(c_sentinel);
    const int result = ::MultiByteToWideChar(codePage, flags, text, textSize, buffer, bufferSize);
    return {result, ::GetLastError()};
}

Converted ToNarrow(const wchar_t* text, int textSize, char* buffer, int bufferSize, UINT codePage = CP_UTF8,
                   DWORD flags = 0)
{
    ::SetLastError(c_sentinel);
    const int result = ::WideCharToMultiByte(codePage, flags, text, textSize, buffer, bufferSize, nullptr, nullptr);
    return {result, ::GetLastError()};
}

void ExpectResult(int result, DWORD error, Converted converted)
{
    EXPECT_EQ(result, converted.result);
    EXPECT_EQ(error, converted.error);
}

}  // namespace

TEST(PlatformText, ConvertsNarrowToWideAndBack)
{
    struct Row
    {
        const char* narrow;
        const wchar_t* wide;
    };
    const Row rows[] = {
        {"", L""},
        {"mm", L"mm"},
        {"\xC2\xB5m", L"µm"},
        {"M\xC3\xA8tre", L"Mètre"},
        {"\xE2\x82\xAC", L"\x20AC"},
        {"\xEF\xBF\xBD", L"\xFFFD"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.narrow);
        const int wideSize = static_cast<int>(std::wcslen(row.wide)) + 1;
        const int narrowSize = static_cast<int>(std::strlen(row.narrow)) + 1;
        wchar_t wide[20];
        char narrow[20];
        ExpectResult(wideSize, c_sentinel, ToWide(row.narrow, -1, nullptr, 0));
        ExpectResult(wideSize, c_sentinel, ToWide(row.narrow, -1, wide, 20));
        EXPECT_STREQ(row.wide, wide);
        ExpectResult(narrowSize, c_sentinel, ToNarrow(row.wide, -1, nullptr, 0));
        ExpectResult(narrowSize, c_sentinel, ToNarrow(row.wide, -1, narrow, 20));
        EXPECT_STREQ(row.narrow, narrow);
    }
}

TEST(PlatformText, ConvertsAGivenNumberWithoutATerminator)
{
    wchar_t wide[] = L"####";
    ExpectResult(2, c_sentinel, ToWide("abc", 2, wide, 4));
    EXPECT_STREQ(L"ab##", wide);
    char narrow[] = "####";
    ExpectResult(2, c_sentinel, ToNarrow(L"abc", 2, narrow, 4));
    EXPECT_STREQ("ab##", narrow);
}

TEST(PlatformText, RefusesABufferThatIsTooSmall)
{
    wchar_t wide[] = L"####";
    ExpectResult(0, ERROR_INSUFFICIENT_BUFFER, ToWide("abcd", -1, wide, 4));
    EXPECT_EQ(L'\0', wide[4]);
    char narrow[] = "####";
    ExpectResult(0, ERROR_INSUFFICIENT_BUFFER, ToNarrow(L"abcd", -1, narrow, 4));
    EXPECT_EQ('\0', narrow[4]);
}

TEST(PlatformText, RefusesInvalidParameters)
{
    wchar_t wide[4];
    char narrow[4];
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToWide("a", 0, wide, 4));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToWide(nullptr, 1, wide, 4));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToWide("a", 1, wide, -1));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToWide("a", 1, nullptr, 4));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToWide("a", 1, wide, 4, 12345));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToNarrow(L"a", 0, narrow, 4));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToNarrow(nullptr, 1, narrow, 4));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToNarrow(L"a", 1, narrow, -1));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToNarrow(L"a", 1, nullptr, 4));
    ExpectResult(0, ERROR_INVALID_PARAMETER, ToNarrow(L"a", 1, narrow, 4, 12345));
}

TEST(PlatformText, WritesAReplacementForWhatIsNoEncodingOrRefusesIt)
{
    wchar_t wide[8] = {};
    ExpectResult(3, c_sentinel, ToWide("a\xFFz", 3, wide, 8));
    EXPECT_STREQ(L"a\xFFFDz", wide);
    ExpectResult(0, ERROR_NO_UNICODE_TRANSLATION, ToWide("a\xFFz", 3, wide, 8, CP_UTF8, MB_ERR_INVALID_CHARS));
    const wchar_t lone[] = {L'a', static_cast<wchar_t>(0xD800), L'z'};
    char narrow[8] = {};
    ExpectResult(5, c_sentinel, ToNarrow(lone, 3, narrow, 8));
    EXPECT_STREQ("a\xEF\xBF\xBDz", narrow);
    ExpectResult(0, ERROR_NO_UNICODE_TRANSLATION, ToNarrow(lone, 3, narrow, 8, CP_UTF8, WC_ERR_INVALID_CHARS));
}

TEST(PlatformText, MapsTheCaseOfEachElementInPlace)
{
    wchar_t text[] = L"Mètre µßıİſÿǅ !";
    EXPECT_EQ(5U, ::CharUpperBuffW(text, 5));
    EXPECT_STREQ(L"MÈTRE µßıİſÿǅ !", text);
    EXPECT_EQ(15U, ::CharUpperBuffW(text, 15));
    EXPECT_STREQ(L"MÈTRE µßıİſ\x0178ǅ !", text);
    EXPECT_EQ(15U, ::CharLowerBuffW(text, 15));
    EXPECT_STREQ(L"mètre µßıİſÿǅ !", text);
}

/// Both systems give one number over all mappings: a table that differed in one character would give another.
TEST(PlatformText, MapsCaseAlikeOverAllCharacters)
{
    std::uint64_t sum = 14695981039346656037U;
    const auto add = [&sum](wchar_t character)
    {
        sum = (sum ^ static_cast<std::uint64_t>(character)) * 1099511628211U;
    };
    int changed = 0;
    for (unsigned code = 1; code < 0x10000; ++code)
    {
        wchar_t upper = static_cast<wchar_t>(code);
        wchar_t lower = static_cast<wchar_t>(code);
        ::CharUpperBuffW(&upper, 1);
        ::CharLowerBuffW(&lower, 1);
        add(upper);
        add(lower);
        changed += upper != static_cast<wchar_t>(code);
        changed += lower != static_cast<wchar_t>(code);
    }
    EXPECT_EQ(2326, changed);
    EXPECT_EQ(2128885369176558391U, sum);
}

TEST(PlatformText, ComparesTextsAsADictionaryDoes)
{
    struct Row
    {
        int expected;
        const wchar_t* left;
        const wchar_t* right;
        DWORD flags;
    };
    const Row rows[] = {
        {CSTR_EQUAL, L"", L"", 0},          {CSTR_LESS_THAN, L"", L"a", 0},  {CSTR_LESS_THAN, L"a", L"B", 0},
        {CSTR_GREATER_THAN, L"b", L"A", 0}, {CSTR_LESS_THAN, L"a", L"A", 0}, {CSTR_EQUAL, L"a", L"A", NORM_IGNORECASE},
        {CSTR_LESS_THAN, L"e", L"é", 0},    {CSTR_LESS_THAN, L"é", L"f", 0}, {CSTR_EQUAL, L"É", L"é", NORM_IGNORECASE},
        {CSTR_LESS_THAN, L"1", L"a", 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, ::CompareStringW(LOCALE_USER_DEFAULT, row.flags, row.left, -1, row.right, -1))
            << ::testing::PrintToString(row.left) << " against " << ::testing::PrintToString(row.right);
}

TEST(PlatformText, CountsTheElementsThatItCompares)
{
    EXPECT_EQ(CSTR_EQUAL, ::CompareStringW(LOCALE_USER_DEFAULT, 0, L"abc", 2, L"abd", 2));
    EXPECT_EQ(CSTR_LESS_THAN, ::CompareStringW(LOCALE_USER_DEFAULT, 0, L"abc", 2, L"abd", -1));
    ::SetLastError(c_sentinel);
    EXPECT_EQ(0, ::CompareStringW(LOCALE_USER_DEFAULT, 0, nullptr, -1, L"a", -1));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, ::GetLastError());
}
