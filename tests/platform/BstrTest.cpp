#include <cstring>
#include <cwchar>
#include <string>

#include <gtest/gtest.h>

#include "vetools/platform/Platform.h"

namespace
{

/// The length in bytes where clients of other languages read it: in front of the text.
DWORD LengthInFrontOf(BSTR text)
{
    DWORD length = 0;
    std::memcpy(&length, reinterpret_cast<const BYTE*>(text) - sizeof length, sizeof length);
    return length;
}

}  // namespace

TEST(SystemText, CopiesATextWithItsLength)
{
    for (const std::wstring text :
         {L"", L"m", L"mm\u00B2", L"Millim\u00E8tre", L"a text that is longer than sixteen characters"})
    {
        const BSTR copy = ::SysAllocString(text.c_str());
        ASSERT_NE(nullptr, copy) << testing::PrintToString(text);
        EXPECT_EQ(text, copy);
        EXPECT_EQ(text.size(), ::SysStringLen(copy));
        EXPECT_EQ(text.size() * sizeof(OLECHAR), ::SysStringByteLen(copy));
        EXPECT_EQ(text.size() * sizeof(OLECHAR), LengthInFrontOf(copy));
        ::SysFreeString(copy);
    }
}

TEST(SystemText, OfNullIsNull)
{
    EXPECT_EQ(nullptr, ::SysAllocString(nullptr));
    EXPECT_EQ(0u, ::SysStringLen(nullptr));
    EXPECT_EQ(0u, ::SysStringByteLen(nullptr));
    ::SysFreeString(nullptr);
}

TEST(SystemText, OfALengthHoldsTerminatorsAndEndsWithOne)
{
    const wchar_t characters[] = {L'a', L'\0', L'b', L'\0', L'c'};
    for (UINT length = 0; length <= 5; ++length)
    {
        const BSTR copy = ::SysAllocStringLen(characters, length);
        ASSERT_NE(nullptr, copy);
        EXPECT_EQ(length, ::SysStringLen(copy));
        EXPECT_EQ(std::wstring(characters, length), std::wstring(copy, length));
        EXPECT_EQ(L'\0', copy[length]);
        ::SysFreeString(copy);
    }
}

TEST(SystemText, OfALengthWithoutCharactersIsRoomForThem)
{
    const BSTR room = ::SysAllocStringLen(nullptr, 3);
    ASSERT_NE(nullptr, room);
    EXPECT_EQ(3u, ::SysStringLen(room));
    EXPECT_EQ(L'\0', room[3]);
    room[0] = room[1] = room[2] = L'x';
    EXPECT_EQ(std::wstring(L"xxx"), room);
    ::SysFreeString(room);
}

TEST(SystemText, OfALengthBeyondItsCountOfBytesIsNull)
{
    for (const UINT length : {0xFFFFFFFFu, 0xFFFFFFF0u, 0x80000000u})
        EXPECT_EQ(nullptr, ::SysAllocStringLen(nullptr, length)) << length;
}

TEST(SystemText, OfBytesHasAsManyBytes)
{
    const BSTR text = ::SysAllocStringByteLen("abcde", 5);
    ASSERT_NE(nullptr, text);
    EXPECT_EQ(5u, ::SysStringByteLen(text));
    EXPECT_EQ(5u / sizeof(OLECHAR), ::SysStringLen(text));
    EXPECT_EQ(0, std::memcmp("abcde", text, 5));
    ::SysFreeString(text);

    const BSTR room = ::SysAllocStringByteLen(nullptr, 3);
    ASSERT_NE(nullptr, room);
    EXPECT_EQ(3u, ::SysStringByteLen(room));
    ::SysFreeString(room);
}

TEST(SystemText, OfBytesEndsWithAWholeTerminatorBehindAPartOfACharacter)
{
    const std::string bytes(3 * sizeof(OLECHAR), '\x01');
    for (UINT size = 0; size <= bytes.size(); ++size)
    {
        const BSTR text = ::SysAllocStringByteLen(bytes.data(), size);
        ASSERT_NE(nullptr, text);
        EXPECT_EQ((size + sizeof(OLECHAR) - 1) / sizeof(OLECHAR), std::wcslen(text)) << size;
        ::SysFreeString(text);
    }
}

TEST(SystemText, IsReplacedByAnother)
{
    BSTR text = ::SysAllocString(L"hello");
    EXPECT_EQ(1, ::SysReAllocString(&text, L"world!"));
    EXPECT_STREQ(L"world!", text);
    EXPECT_EQ(1, ::SysReAllocStringLen(&text, L"abc", 2));
    EXPECT_STREQ(L"ab", text);
    EXPECT_EQ(2u, ::SysStringLen(text));
    EXPECT_EQ(1, ::SysReAllocString(&text, nullptr));
    EXPECT_EQ(nullptr, text);
    EXPECT_EQ(1, ::SysReAllocString(&text, L"again"));
    EXPECT_STREQ(L"again", text);
    EXPECT_EQ(1, ::SysReAllocStringLen(&text, text, 3));
    EXPECT_STREQ(L"aga", text);
    ::SysFreeString(text);
}
