#include "vetools/util/VeString.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace
{

std::wstring TextOf(const CString& text)
{
    return std::wstring(text.View());
}

TEST(VeString, IsMadeFromNothingTextsPartsAndRepeatedCharacters)
{
    EXPECT_STREQ(L"", CVeString().GetString());
    EXPECT_STREQ(L"abc", CVeString(L"abc").GetString());
    EXPECT_STREQ(L"ab", CVeString(L"abc", 2).GetString());
    EXPECT_STREQ(L"xxx", CVeString(L'x', 3).GetString());
    EXPECT_STREQ(L"", CVeString(L'x', 0).GetString());
    const CVeString original(CString(L"abc"));
    const CVeString copy(original);
    EXPECT_STREQ(L"abc", copy.GetString());
    CVeString assigned;
    assigned = original;
    EXPECT_STREQ(L"abc", assigned.GetString());
}

TEST(VeString, HasNoDataOfItsOwn)
{
    EXPECT_EQ(sizeof(CString) + sizeof(void*), sizeof(CVeString));
}

/// Answers from the overrides, and counts how often they were asked.
class Answering : public CVeString
{
public:
    using CVeString::CVeString;

    Answering& operator=(const CVeString& other) override
    {
        ++assignments;
        CVeString::operator=(other);
        return *this;
    }
    int operator==(const CVeString& other) const override
    {
        ++questions;
        return Compare(other) == 0 ? 7 : 0;
    }
    int operator!=(const CVeString& other) const override
    {
        ++questions;
        return Compare(other) != 0 ? 8 : 0;
    }
    void Dump() const override { ++dumps; }

    int assignments = 0;
    mutable int questions = 0;
    mutable int dumps = 0;
};

TEST(VeString, ADerivedClassReplacesAssignmentComparisonsAndDump)
{
    Answering derived(L"abc");
    CVeString& base = derived;
    EXPECT_EQ(7, base == CVeString(L"abc"));
    EXPECT_EQ(0, base != CVeString(L"abc"));
    EXPECT_EQ(8, base != CVeString(L"abd"));
    base = CVeString(L"xyz");
    EXPECT_STREQ(L"xyz", derived.GetString());
    base.Dump();
    EXPECT_EQ(1, derived.assignments);
    EXPECT_EQ(3, derived.questions);
    EXPECT_EQ(1, derived.dumps);
}

TEST(VeString, KeptTheBaseComparisonsAskTheObjectAgain)
{
    const Answering derived(L"abc");
    for (int i = 1; i <= 3; ++i)
    {
        EXPECT_EQ(7, derived.CVeString::operator==(CVeString(L"abc")));
        EXPECT_EQ(8, derived.CVeString::operator!=(CVeString(L"abd")));
        EXPECT_EQ(2 * i, derived.questions);
    }
}

/// Whether the question is answered within the time that a comparison of two short texts could ever take. The thread that
/// asks stays behind where it is not: nothing can call it back.
bool IsAnswered(int (*question)(const CVeString&, const CVeString&))
{
    static std::atomic<bool> s_answered;
    static const CVeString* const s_left = new CVeString(L"abc");
    static const CVeString* const s_right = new CVeString(L"abc");
    s_answered = false;
    std::thread([question] { s_answered = question(*s_left, *s_right) >= 0; }).detach();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return s_answered;
}

TEST(VeString, KeptComparingPlainStringsNeverReturns)
{
    EXPECT_FALSE(IsAnswered([](const CVeString& left, const CVeString& right) { return left == right; }));
    EXPECT_FALSE(IsAnswered([](const CVeString& left, const CVeString& right) { return left != right; }));
}

struct FilterRow
{
    const wchar_t* expected;
    const wchar_t* text;
    const wchar_t* characters;
};

TEST(VeString, ExcludeCharRemovesEveryOccurrence)
{
    const FilterRow rows[] = {
        {L"", L"", L""},          {L"", L"", L"abc"},  {L"abc", L"abc", L""},        {L"abc", L"abc", L"xyz"},
        {L"ac", L"a-b-c", L"-b"}, {L"", L"aaa", L"a"}, {L"12", L"a1b2c", L"abcabc"}, {L"A", L"aAa", L"a"},
    };
    for (const FilterRow& row : rows)
    {
        CVeString text(row.text);
        text.ExcludeChar(row.characters);
        EXPECT_EQ(row.expected, TextOf(text)) << testing::PrintToString(std::wstring(row.text));
    }
}

TEST(VeString, IncludeCharKeepsTheCharacters)
{
    const FilterRow rows[] = {
        {L"", L"", L""},           {L"", L"", L"abc"},    {L"12", L"1a2b", L"0123456789"}, {L"12", L"1abc2xyz", L"12"},
        {L"1221", L"1221", L"12"}, {L"1", L"1abc", L"1"},
    };
    for (const FilterRow& row : rows)
    {
        CVeString text(row.text);
        text.IncludeChar(row.characters);
        EXPECT_EQ(row.expected, TextOf(text)) << testing::PrintToString(std::wstring(row.text));
    }
}

TEST(VeString, KeptIncludeCharDoesNotLookAtTheCharacterBehindARemovedFirstOne)
{
    const FilterRow rows[] = {
        {L"b12", L"ab12", L"0123456789"}, {L"b", L"ab", L""},     {L"", L"a", L""},
        {L"b", L"abcd", L"12"},           {L"12", L"a12", L"12"},
    };
    for (const FilterRow& row : rows)
    {
        CVeString text(row.text);
        text.IncludeChar(row.characters);
        EXPECT_EQ(row.expected, TextOf(text)) << testing::PrintToString(std::wstring(row.text));
    }
}

TEST(VeString, AStringMayFilterItself)
{
    CVeString text(L"a text that is too long to be held in the object itself");
    text.IncludeChar(text);
    EXPECT_STREQ(L"a text that is too long to be held in the object itself", text.GetString());
    text.ExcludeChar(text);
    EXPECT_STREQ(L"", text.GetString());
}

TEST(CompareUpperCase, ComparesWithoutRegardToCase)
{
    EXPECT_EQ(0, CompareUpperCase(L"", L""));
    EXPECT_EQ(0, CompareUpperCase(L"abc", L"ABC"));
    EXPECT_EQ(0, CompareUpperCase(L"\xE9t\xE9", L"\xC9T\xC9"));
    EXPECT_GT(0, CompareUpperCase(L"abc", L"ABD"));
    EXPECT_LT(0, CompareUpperCase(L"b", L"ABC"));
    EXPECT_GT(0, CompareUpperCase(L"ab", L"ABC"));
    EXPECT_LT(0, CompareUpperCase(L"_", L"a"));  // in lower case it would stand before
}

TEST(BoolToString, GivesOneOfTwoStaticTexts)
{
    EXPECT_STREQ(L"TRUE", BoolToString(5));
    EXPECT_STREQ(L"TRUE", BoolToString(-1));
    EXPECT_STREQ(L"FALSE", BoolToString(0));
    EXPECT_EQ(BoolToString(1), BoolToString(2));
}

}  // namespace
