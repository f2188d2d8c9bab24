#include "vetools/valuetext/ImperialParse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace
{

constexpr double c_untouched = 12345.0;

struct Row
{
    double inches;
    std::wstring_view text;
};

std::wstring Shown(std::wstring_view text)
{
    return L"\"" + std::wstring(text) + L"\"";
}

/// Every row reads in inches as it stands, and in feet as a twelfth of it.
template <std::size_t Count>
void ExpectRead(const Row (&rows)[Count], Unit::enumUNITFORMAT format, wchar_t separator = L'.')
{
    for (const Row& row : rows)
    {
        double value = c_untouched;
        EXPECT_TRUE(ReadImperialText(row.text, value, LengthIn::Inches, separator, format)) << Shown(row.text);
        EXPECT_EQ(row.inches, value) << Shown(row.text);
        value = c_untouched;
        EXPECT_TRUE(ReadImperialText(row.text, value, LengthIn::Feet, separator, format)) << Shown(row.text);
        EXPECT_EQ(row.inches / 12.0, value) << Shown(row.text);
    }
}

template <std::size_t Count>
void ExpectFailure(const std::wstring_view (&texts)[Count], wchar_t separator = L'.')
{
    for (const std::wstring_view text : texts)
        for (const LengthIn in : {LengthIn::Feet, LengthIn::Inches})
        {
            double value = c_untouched;
            EXPECT_FALSE(ReadImperialText(text, value, in, separator, Unit::UNITFORMAT_FRACTION)) << Shown(text);
            EXPECT_EQ(0.0, value) << Shown(text);
        }
}

TEST(ImperialParse, FourNumbersAreFeetInchesAndAFraction)
{
    const Row rows[] = {
        {40.5, L"3'-4 1/2\""}, {40.5, L"3'-4 1/2"},        {40.5, L"3'4 1/2\""},   {40.5, L"3-4 1/2\""},
        {40.5, L"3' 4 1/2\""}, {40.5, L"3'- 4   1/ 2 \""}, {40.5, L"3'-4\t1/2\""}, {-40.5, L"-3'-4 1/2\""},
    };
    ExpectRead(rows, Unit::UNITFORMAT_FRACTION);
    ExpectRead(rows, Unit::UNITFORMAT_FEET_INCHES);
    ExpectRead(rows, Unit::UNITFORMAT_IMPERIAL_DECIMAL);
}

TEST(ImperialParse, ThreeNumbersAreFeetOrInchesAndAFraction)
{
    const Row rows[] = {
        {4.5, L"4 1/2\""},  {4.5, L"4 1/2"},   {36.5, L"3'-1/2\""}, {36.5, L"3'1/2\""},
        {36.5, L"3-1/2\""}, {36.5, L"3' 1/2"}, {-4.5, L"-4 1/2\""}, {-36.5, L"-3'-1/2\""},
    };
    ExpectRead(rows, Unit::UNITFORMAT_FRACTION);
}

TEST(ImperialParse, TwoNumbersAreAFractionOrFeetAndInches)
{
    const Row rows[] = {
        {0.75, L"3/4\""}, {0.75, L"3/4"}, {-0.75, L"-3/4"}, {40, L"3'-4\""},
        {40, L"3'4\""},   {40, L"3-4"},   {40, L"3' 4"},    {40.25, L"3'-4.25\""},
    };
    ExpectRead(rows, Unit::UNITFORMAT_FRACTION);
}

TEST(ImperialParse, OneNumberIsFeetWithAFootMarkAndElseInches)
{
    const Row rows[] = {
        {36, L"3'"},   {3, L"3\""},   {3, L"3"},    {0, L"0\""},      {4.25, L"4.25\""}, {4.25, L"4.25"},
        {42, L"3.5'"}, {-3, L"-3\""}, {3, L"3 mm"}, {36, L"3' long"}, {0.5, L".5\""},    {0, L".\""},
    };
    ExpectRead(rows, Unit::UNITFORMAT_FRACTION);
}

TEST(ImperialParse, OtherShapesAndMarksFailWithZero)
{
    const std::wstring_view texts[] = {
        L"",        L" ",          L"-",         L"'",        L"\"",       L"abc",       L"--3'",    L"+3'",
        L"x3'",     L"3''",        L"3'-",       L"3\"\"",    L"3mm",      L"3 '4 1/2x", L"3 4",     L"3\"4",
        L"3/4'",    L"3'-4'",      L"3'-4 1/2'", L"3x4 1/2",  L"3'-4-1/2", L"3'-4 1 2",  L"3 4 5/6", L"1/2/3",
        L"1/2 3/4", L"1'-2 3/4 5", L"1 2 3 4 5", L"1'2'3'4'", L"3*4",      L"3:4",       L"\t-3'4/", L"3'--4\"",
    };
    ExpectFailure(texts);
}

TEST(ImperialParse, ADenominatorOfZeroGivesAnInfinityOrNoNumber)
{
    double value = 0.0;
    EXPECT_TRUE(ReadImperialText(L"1/0", value, LengthIn::Inches, L'.', Unit::UNITFORMAT_FRACTION));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), value);
    EXPECT_TRUE(ReadImperialText(L"0/0", value, LengthIn::Inches, L'.', Unit::UNITFORMAT_FRACTION));
    EXPECT_TRUE(std::isnan(value));
}

TEST(ImperialParse, TheSeparatorBelongsToANumberThatIsReadWithAPoint)
{
    const Row rows[] = {{3, L"3,5\""}, {36, L"3,5'"}, {40, L"3,5'-4,9\""}};
    ExpectRead(rows, Unit::UNITFORMAT_FRACTION, L',');
    const std::wstring_view texts[] = {L"3.5\"", L"3.5'"};
    ExpectFailure(texts, L',');
}

TEST(ImperialParse, AnyCharacterMayBeTheSeparator)
{
    double value = c_untouched;
    // The '-' is the sign and belongs to the number as well.
    EXPECT_TRUE(ReadImperialText(L"-3\"", value, LengthIn::Inches, L'-', Unit::UNITFORMAT_FRACTION));
    EXPECT_EQ(3.0, value);
    EXPECT_TRUE(ReadImperialText(L"1e2\"", value, LengthIn::Inches, L'e', Unit::UNITFORMAT_FRACTION));
    EXPECT_EQ(100.0, value);
    for (const wchar_t separator : {L'\0', L'/', L'\'', L'"', L' ', L'\t', L'5', L'e', L'\xFFFF'})
    {
        value = c_untouched;
        const bool understood =
            ReadImperialText(L"3'-4 1/2\"", value, LengthIn::Inches, separator, Unit::UNITFORMAT_FRACTION);
        EXPECT_EQ(understood, value != 0.0) << "separator " << static_cast<unsigned int>(separator);
    }
}

TEST(ImperialParse, KeptTheSignIsNotSeenBehindABlankAndAMarkEndsAtItsFirstBlank)
{
    const Row rows[] = {{36, L" -3'"}, {36, L"\t-3'"}, {36, L" abc3'"}, {3, L"3 -"}, {36, L" 3'"}};
    ExpectRead(rows, Unit::UNITFORMAT_FRACTION);
    const std::wstring_view texts[] = {L"- 3'", L"-\t3'", L"-- 3'", L"\n3'", L"3\n'"};
    ExpectFailure(texts);
}

TEST(ImperialParse, ATextWithAPointIsADecimalNumberInOtherFormats)
{
    const Row rows[] = {
        {3.5, L"3.5"},   {3.5, L"3.5\""}, {42, L"3.5'"}, {42, L"  3.5 x '"},
        {3.5, L"3.5-4"}, {0, L"."},       {0, L"x1.5"},  {150, L"1.5e2"},
    };
    ExpectRead(rows, Unit::UNITFORMAT_DECIMAL);
    // In feet, a number behind a foot mark is taken as it is.
    double value = c_untouched;
    EXPECT_TRUE(ReadImperialText(L"0.1'", value, LengthIn::Feet, L'.', Unit::UNITFORMAT_IMPERIAL_DECIMAL));
    EXPECT_EQ(0.1, value);
}

TEST(ImperialParse, KeptADecimalTextHasItsSignAppliedTwice)
{
    const Row rows[] = {{3.5, L"-3.5\""}, {42, L"-3.5'"}, {0, L"- 3.5"}};
    for (const Row& row : rows)
    {
        double value = c_untouched;
        EXPECT_TRUE(ReadImperialText(row.text, value, LengthIn::Inches, L'.', Unit::UNITFORMAT_DECIMAL));
        EXPECT_EQ(row.inches, value) << Shown(row.text);
    }
    // Behind a blank the sign is not looked for, and the number has it.
    double value = c_untouched;
    EXPECT_TRUE(ReadImperialText(L" -3.5\"", value, LengthIn::Inches, L'.', Unit::UNITFORMAT_DECIMAL));
    EXPECT_EQ(-3.5, value);
}

TEST(ImperialParse, ReadsMillionsOfCharacters)
{
    const std::wstring digits(2'000'000, L'7');
    const std::wstring marks(2'000'000, L'\'');
    std::wstring pairs;
    for (int i = 0; i < 1'000'000; ++i)
        pairs += L"1'";
    double value = 0.0;
    EXPECT_TRUE(ReadImperialText(digits, value, LengthIn::Inches, L'.', Unit::UNITFORMAT_FRACTION));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), value);
    EXPECT_FALSE(ReadImperialText(marks, value, LengthIn::Inches, L'.', Unit::UNITFORMAT_FRACTION));
    EXPECT_FALSE(ReadImperialText(pairs, value, LengthIn::Inches, L'.', Unit::UNITFORMAT_FRACTION));
}

}  // namespace
