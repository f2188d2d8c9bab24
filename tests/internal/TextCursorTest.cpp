#include "vetools/util/TextCursor.h"

#include <gtest/gtest.h>

namespace
{

TEST(TextCursor, TakesWhatItNamesOrLeavesThePlace)
{
    TextCursor cursor(L"--  12x 3");
    EXPECT_FALSE(cursor.Consume(L'x'));
    EXPECT_FALSE(cursor.ConsumeBlanks());
    EXPECT_EQ(L"", cursor.ConsumeDigits());
    EXPECT_EQ(L"--  12x 3", cursor.Rest());
    EXPECT_TRUE(cursor.Consume(L'-'));
    EXPECT_TRUE(cursor.ConsumeAll(L'-'));
    EXPECT_TRUE(cursor.ConsumeBlanks());
    EXPECT_EQ(L"12", cursor.ConsumeDigits());
    EXPECT_EQ(L'x', cursor.ConsumeCharacter());
    EXPECT_EQ(L"", cursor.ConsumeUntil(L' '));
    EXPECT_EQ(L" ", cursor.ConsumeUntil(L'3'));
    EXPECT_EQ(L"3", cursor.ConsumeUntil(L' '));
    EXPECT_TRUE(cursor.AtEnd());
}

TEST(TextCursor, NothingIsTakenAtTheEnd)
{
    TextCursor cursor(L"");
    EXPECT_TRUE(cursor.AtEnd());
    EXPECT_FALSE(cursor.Consume(L'\0'));
    EXPECT_FALSE(cursor.ConsumeBlanks());
    EXPECT_EQ(L"", cursor.ConsumeDigits());
    EXPECT_EQ(L"", cursor.ConsumeUntil(L' '));
}

TEST(TextCursor, DigitsAreThoseOfAscii)
{
    static_assert(TextCursor::IsDigit(L'0') && TextCursor::IsDigit(L'9'));
    static_assert(!TextCursor::IsDigit(L'/') && !TextCursor::IsDigit(L':') && !TextCursor::IsDigit(L'\x0661'));
}

}  // namespace
