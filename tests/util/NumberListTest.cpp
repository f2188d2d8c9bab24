#include "vetools/util/NumberList.h"

#include <gtest/gtest.h>

#include <list>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>

namespace
{

std::list<long> Read(const CString& text, int allowZero = 0)
{
    std::list<long> values = {99, 98};
    ParseStringToLong(text, values, allowZero);
    return values;
}

struct Row
{
    std::list<long> expected;
    const wchar_t* text;
    int allowZero = 0;
};

template <std::size_t Count>
void ExpectLists(const Row (&rows)[Count])
{
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, Read(row.text, row.allowZero))
            << testing::PrintToString(std::wstring(row.text)) << ", allowZero " << row.allowZero;
}

TEST(NumberList, ReadsNumbersAndRangesAscendingWithoutDuplicates)
{
    const Row rows[] = {
        {{}, L""},
        {{}, L"  , ,"},
        {{7}, L"7"},
        {{1, 3, 4, 5, 7}, L"1,3-5 7"},
        {{1, 2}, L"2 2 1"},
        {{3, 4, 5}, L"5-3"},
        {{3, 4, 5, 6, 7}, L"7-3"},
        {{3}, L"3-3"},
        {{1, 2, 3, 4, 5, 6}, L"3-6 1-4"},
        {{1, 2, 8, 9}, L"8-9 1-2"},
        {{1, 2, 3}, L",,1,,2,  ,3,,"},
        {{5}, L"+5"},
        {{5}, L"5mm"},
        {{5}, L"5.9"},
        {{1, 2}, L"1,2 -"},
        {{1, 2}, L"1,2 --- "},
        {{5}, L"5-"},
        {{1, 2}, L"1-2-"},
        {{1, 5}, L"1-,5"},
        {{5, 7}, L"5 - - 7"},
    };
    ExpectLists(rows);
}

TEST(NumberList, AnExclusionTakesASingleNumberAwayWhereverItStands)
{
    const Row rows[] = {
        {{1, 2, 4}, L"1-4 !3"}, {{1, 2, 4}, L"!3 1-4"},  {{}, L"!3"},
        {{1}, L"1 3 !3 !3"},    {{1, 2}, L"1-2 !9 !-1"}, {{}, L"!"},
        {{1}, L"1 !"},          {{1}, L"1 !x"},          {{3}, L"3 !!3"},
    };
    ExpectLists(rows);
}

TEST(NumberList, AZeroIsTakenOnlyWhenAllowed)
{
    const Row rows[] = {
        {{1}, L"0 1"},          {{0, 1}, L"0 1", 1}, {{1}, L"0 1", 2}, {{1}, L"0 1", -1},      {{0}, L"00", 1},
        {{0, 1, 2}, L"0-2", 1}, {{}, L"0-2"},        {{2}, L"2-0"},    {{0, 1, 2}, L"2-0", 1}, {{1, 2}, L"0-2 !0", 1},
        {{0}, L"0x5", 1},       {{}, L"+0", 1},      {{}, L"x0", 1},
    };
    ExpectLists(rows);
}

TEST(NumberList, WhatIsNotANumberAddsNothing)
{
    const Row rows[] = {{{}, L"a b"}, {{1, 2}, L"1 b 2"}, {{}, L"a-b"}, {{}, L"* / ?"}, {{}, L"\x0661"}};
    ExpectLists(rows);
}

TEST(NumberList, KeptABadFirstBoundDropsTheRangeAndABadSecondOneLeavesTheFirst)
{
    const Row rows[] = {
        {{3}, L"3-x"}, {{}, L"x-3"}, {{1, 5}, L"1- 5"}, {{1, 2, 3}, L"1-3-5"}, {{4}, L"3x-4 !3"}, {{3, 4}, L"3x-4"},
    };
    ExpectLists(rows);
}

TEST(NumberList, KeptADashBeforeAnItemIsSkippedAndOneBehindTheDashOfARangeIsASign)
{
    const Row rows[] = {
        {{5}, L"-5"},
        {{5}, L"---5"},
        {{5}, L"1 - 5 !1"},
        {{}, L"-"},
        {{}, L"- -"},
        {{}, L"- -5"},  // one run of dashes is skipped, the next makes a range without a first bound
        {{1, 7}, L"- -5 1 7"},
        {{-5, -4, -3, -2, -1, 0, 1, 2, 3}, L"3--5"},
        {{-2, -1, 0, 1}, L"1--2"},
        {{1, 5}, L"1 -5"},
    };
    ExpectLists(rows);
}

TEST(NumberList, KeptAnExclusionMarkMakesABoundABadOne)
{
    const Row rows[] = {{{}, L"!3-5"}, {{}, L"!-5"}, {{1, 2, 3, 4}, L"1-4 !2-3"}, {{3}, L"3-!5"}};
    ExpectLists(rows);
}

TEST(NumberList, OnlyBlanksAndCommasSeparate)
{
    const Row rows[] = {{{1}, L"1\t2"}, {{2}, L"\t2"}, {{1}, L"1;2"}, {{1}, L"1\n2"}};
    ExpectLists(rows);
}

TEST(NumberList, NumbersAreThoseOf32Bits)
{
    const Row rows[] = {
        {{2147483647}, L"2147483647"},
        {{2147483647}, L"99999999999999999999"},
        {{2147483646, 2147483647}, L"2147483646-3000000000"},
        {{2147483647}, L"2147483648 4294967297"},
    };
    ExpectLists(rows);
}

TEST(NumberList, AListThatIsTooLongIsRefusedBeforeItIsMade)
{
    for (const wchar_t* text : {L"1-2147483647", L"1--2147483648", L"1-33554433", L"5 1-20000000 40000000-60000000"})
    {
        std::list<long> values = {1, 2, 3};
        try
        {
            ParseStringToLong(text, values, 0);
            ADD_FAILURE() << testing::PrintToString(std::wstring(text));
        }
        catch (const std::length_error& error)
        {
            EXPECT_STREQ("list<T> too long", error.what());
        }
        EXPECT_TRUE(values.empty());
    }
}

TEST(NumberList, TheSameNumbersAgainAndAgainDoNotMakeAListTooLong)
{
    CString text;
    for (int i = 0; i < 100'000; ++i)
        text += L"1-1000 ";
    EXPECT_EQ(1000u, Read(text).size());
}

TEST(NumberList, ReadsMillionsOfCharacters)
{
    EXPECT_EQ(1'000'000u, Read(L"1-1000000").size());
    std::wstring numbers;
    for (int i = 200'000; i > 0; --i)
        numbers += std::to_wstring(i) + L",!" + std::to_wstring(2 * i) + L" ";
    EXPECT_EQ(100'000u, Read(CString(numbers.c_str())).size());
    EXPECT_EQ(0u, Read(CString(std::wstring(2'000'000, L'-').c_str())).size());
    EXPECT_EQ(0u, Read(CString(std::wstring(2'000'000, L'!').c_str())).size());
    EXPECT_EQ(1u, Read(CString(std::wstring(2'000'000, L'9').c_str())).size());
}

}  // namespace
