#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

#include "vetools/valuetext/VeImperialLength.h"

using Type = CVeImperialLength::enumIMPERIAL_LENGTH_TYPE;

namespace
{

constexpr Type c_feetInches = CVeImperialLength::IMPERIAL_FEET_INCHES;
constexpr Type c_inchesOnly = CVeImperialLength::IMPERIAL_INCHES;
constexpr Type c_other = Type(7);
constexpr int c_maximum = std::numeric_limits<int>::max();

struct Parts
{
    bool understood = false;
    bool positive = false;
    int feet = 0;
    int inches = 0;
    int numerator = 0;
    int power = 0;

    bool operator==(const Parts&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Parts& parts)
{
    return out << (parts.understood ? "understood" : "not understood") << (parts.positive ? " +" : " -") << parts.feet
               << "' " << parts.inches << "\" " << parts.numerator << "/2^" << parts.power;
}

Parts Read(const wchar_t* text, Type type)
{
    Parts parts{false, false, -7, -7, -7, -7};
    parts.understood = CVeImperialLength::ImperialStr2Imperial(text, type, parts.positive, parts.feet, parts.inches,
                                                               parts.numerator, parts.power);
    return parts;
}

struct Row
{
    const wchar_t* text;
    Type type;
    Parts expected;
};

template <std::size_t Count>
void ExpectParts(const Row (&rows)[Count])
{
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, Read(row.text, row.type))
            << testing::PrintToString(std::wstring(row.text)) << ", type " << row.type;
}

constexpr bool c_yes = true;
constexpr bool c_no = false;
constexpr bool c_plus = true;
constexpr bool c_minus = false;

TEST(ImperialGrammar, AnEmptyTextIsZeroForEveryType)
{
    const Row rows[] = {
        {L"", c_feetInches, {c_yes, c_plus}}, {L"   ", c_inchesOnly, {c_yes, c_plus}},
        {L"", c_other, {c_yes, c_plus}},      {L"-", c_feetInches, {c_yes, c_minus}},
        {L" -  ", c_other, {c_yes, c_minus}},
    };
    ExpectParts(rows);
    EXPECT_EQ((Parts{c_yes, c_plus}), Read(nullptr, c_feetInches));
}

TEST(ImperialGrammar, ALeadingMinusIsTheSign)
{
    const Row rows[] = {
        {L"-2'", c_feetInches, {c_yes, c_minus, 2}},
        {L"  -  2'", c_feetInches, {c_yes, c_minus, 2}},
        {L"-5", c_inchesOnly, {c_yes, c_minus, 0, 5}},
        {L"--5", c_feetInches, {c_yes, c_minus, 0, 5}},  // the second one stands behind 0 feet
        {L"--5", c_inchesOnly, {c_no, c_minus}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, TheEndOfTheTextEndsFeetInchesOrADenominator)
{
    const Row rows[] = {
        {L"3", c_feetInches, {c_yes, c_plus, 3}},
        {L"3", c_inchesOnly, {c_yes, c_plus, 0, 3}},
        {L"3", c_other, {c_no, c_plus}},
        {L"3'4", c_feetInches, {c_yes, c_plus, 3, 4}},
        {L"1/8", c_feetInches, {c_yes, c_plus, 0, 0, 1, 3}},
        {L"3'-4 5", c_feetInches, {c_no, c_plus, 3, 4}},  // behind the inches
        {L"4\"5", c_feetInches, {c_no, c_plus, 0, 4}},    // behind the end
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, ABlankEndsFeetThenInchesThenANumeratorThenADenominator)
{
    const Row rows[] = {
        {L"3 ", c_feetInches, {c_yes, c_plus, 3}},
        {L"3   4 ", c_feetInches, {c_yes, c_plus, 3, 4}},
        {L"3 4 5 ", c_feetInches, {c_yes, c_plus, 3, 4, 5}},
        {L"3 4 5 6 ", c_feetInches, {c_yes, c_plus, 3, 4, 5}},  // a denominator without a '/' is not checked
        {L"3 4 5 6  ", c_feetInches, {c_yes, c_plus, 3, 4, 5}},
        {L"3 4 5 6 7 ", c_feetInches, {c_no, c_plus, 3, 4, 5}},
        {L"3 ", c_inchesOnly, {c_yes, c_plus, 0, 3}},
        {L"3 4 ", c_inchesOnly, {c_yes, c_plus, 0, 3, 4}},
        {L"3 ", c_other, {c_yes, c_plus, 0, 3}},
        {L"4\" ", c_feetInches, {c_no, c_plus, 0, 4}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, ADashBetweenBlanksMaySeparateFeetAndInches)
{
    const Row rows[] = {
        {L"3 - 4\"", c_feetInches, {c_yes, c_plus, 3, 4}}, {L"3  -   4", c_feetInches, {c_yes, c_plus, 3, 4}},
        {L"3 - ", c_feetInches, {c_yes, c_plus, 3}},       {L"3 -4\"", c_feetInches, {c_no, c_plus, 3}},
        {L"3 -", c_feetInches, {c_no, c_plus, 3}},         {L"3 - 4\"", c_inchesOnly, {c_no, c_plus, 0, 3}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, AnInchMarkEndsInchesOrADenominatorOnce)
{
    const Row rows[] = {
        {L"4\"", c_feetInches, {c_yes, c_plus, 0, 4}},   {L"4\"", c_other, {c_yes, c_plus, 0, 4}},
        {L"\"", c_feetInches, {c_yes, c_plus}},          {L"3'-4\"", c_feetInches, {c_yes, c_plus, 3, 4}},
        {L"3 4\"", c_inchesOnly, {c_yes, c_plus, 0, 4}}, {L"1/2\"", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"4\"\"", c_feetInches, {c_no, c_plus}},        {L"4\"5\"", c_feetInches, {c_no, c_plus, 0, 5}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, AFootMarkOrADashEndsTheFirstNumberOfFeetAndInches)
{
    const Row rows[] = {
        {L"3'", c_feetInches, {c_yes, c_plus, 3}},     {L"3'-", c_feetInches, {c_yes, c_plus, 3}},
        {L"3-", c_feetInches, {c_yes, c_plus, 3}},     {L"'", c_feetInches, {c_yes, c_plus}},
        {L"3-4", c_feetInches, {c_yes, c_plus, 3, 4}}, {L"3'-4", c_feetInches, {c_yes, c_plus, 3, 4}},
        {L"3'--4", c_feetInches, {c_no, c_plus, 3}},   {L"3-'4", c_feetInches, {c_no, c_plus, 3}},
        {L"3'4'", c_feetInches, {c_no, c_plus, 3}},    {L"3 4'", c_feetInches, {c_no, c_plus, 3}},
        {L"3'", c_inchesOnly, {c_no, c_plus}},         {L"3'", c_other, {c_no, c_plus}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, ASlashEndsANumeratorAndTurnsUnmarkedFeetIntoInches)
{
    const Row rows[] = {
        {L"1/2", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"1/2", c_other, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"5 3/4", c_feetInches, {c_yes, c_plus, 0, 5, 3, 2}},
        {L"5 3/4", c_inchesOnly, {c_yes, c_plus, 0, 5, 3, 2}},
        {L"5 - 3/4", c_feetInches, {c_yes, c_plus, 0, 5, 3, 2}},
        {L"3'3/4", c_feetInches, {c_yes, c_plus, 3, 0, 3, 2}},
        {L"3-3/4", c_feetInches, {c_yes, c_plus, 3, 0, 3, 2}},
        {L"3'-4 1/2\"", c_feetInches, {c_yes, c_plus, 3, 4, 1, 1}},
        {L"3 4 1/2", c_feetInches, {c_yes, c_plus, 3, 4, 1, 1}},
        {L"-3 4 1/2", c_feetInches, {c_yes, c_minus, 3, 4, 1, 1}},
        {L"3'-4 5 1/2", c_feetInches, {c_no, c_plus, 3, 4, 5}},  // a numerator has been read: no fraction is noted
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, ASlashWithoutANumberTakesTheNumberBeforeTheBlank)
{
    const Row rows[] = {
        {L"/2", c_feetInches, {c_yes, c_plus, 0, 0, 0, 1}},
        {L"5 /8", c_feetInches, {c_yes, c_plus, 0, 0, 5, 3}},
        {L"5 /8", c_inchesOnly, {c_yes, c_plus, 0, 0, 5, 3}},
        {L"4 5 /8", c_feetInches, {c_yes, c_plus, 0, 4, 5, 3}},
        {L"4'-5 /8", c_feetInches, {c_yes, c_plus, 0, 0, 5, 3}},  // marked feet are lost
        {L"4'/8", c_feetInches, {c_yes, c_plus, 4, 0, 0, 3}},
        {L"1//2", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"4\"/8", c_feetInches, {c_yes, c_plus, 0, 4, 0, 3}},
        {L"1/2\"/4", c_feetInches, {c_yes, c_plus, 0, 0, 1, 2}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, ADenominatorIsAPowerOfTwoUpTo256)
{
    for (int power = 0; power <= 8; ++power)
    {
        const std::wstring text = L"1/" + std::to_wstring(1 << power);
        EXPECT_EQ((Parts{c_yes, c_plus, 0, 0, 1, power}), Read(text.c_str(), c_feetInches)) << power;
    }
    for (const wchar_t* text : {L"1/", L"1/0", L"1/3", L"1/12", L"1/255", L"1/257", L"1/512", L"1/1024", L"1/515",
                                L"1/2147483648", L"1/99999999999999999999"})
        EXPECT_EQ((Parts{c_no, c_plus, 0, 0, 1, 0}), Read(text, c_feetInches))
            << testing::PrintToString(std::wstring(text));
}

TEST(ImperialGrammar, KeptADenominatorIsLookedAtUpToTheBit256)
{
    const Row rows[] = {
        {L"1/513", c_feetInches, {c_yes, c_plus, 0, 0, 1, 0}},
        {L"1/514", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"1/768", c_feetInches, {c_yes, c_plus, 0, 0, 1, 8}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, EveryOtherCharacterEndsTheReading)
{
    for (const wchar_t* text :
         {L"3.5", L"3,5", L"3x", L"x3", L"3+4", L"3*4", L"3:4", L"\t3", L"3'-4\t", L"\xFF13'", L"3'-4mm"})
    {
        const Parts parts = Read(text, c_feetInches);
        EXPECT_FALSE(parts.understood) << testing::PrintToString(std::wstring(text));
    }
}

TEST(ImperialGrammar, KeptABlankBehindAFootMarkEndsANumberZero)
{
    const Row rows[] = {
        {L"3' 4\"", c_feetInches, {c_yes, c_plus, 3, 4}},       {L"3'- 4\"", c_feetInches, {c_yes, c_plus, 3, 4}},
        {L"3' 4 1/2\"", c_feetInches, {c_no, c_plus, 3, 0, 4}}, {L"3' 4", c_feetInches, {c_no, c_plus, 3}},
        {L"3' 1/2", c_feetInches, {c_yes, c_plus, 3, 0, 1, 1}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, KeptWithAFractionTheDenominatorAloneDecides)
{
    const Row rows[] = {
        {L"1/2 x", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"1/2 3/4", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"1/2\"'", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"1/2\" ", c_feetInches, {c_yes, c_plus, 0, 0, 1, 1}},
        {L"1/2x", c_feetInches, {c_no, c_plus, 0, 0, 1}},  // the denominator has not been read
        {L"1/2/4", c_feetInches, {c_no, c_plus, 0, 0, 1}},
        {L"1/2 \"", c_feetInches, {c_no, c_plus, 0, 0, 1}},  // the inch mark ends a denominator 0
        {L"1/ 2", c_feetInches, {c_no, c_plus, 0, 0, 1}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, NumbersBeyondAnIntAreTheNearestInt)
{
    const Row rows[] = {
        {L"2147483648'", c_feetInches, {c_yes, c_plus, c_maximum}},
        {L"99999999999999999999'-99999999999\"", c_feetInches, {c_yes, c_plus, c_maximum, c_maximum}},
    };
    ExpectParts(rows);
}

TEST(ImperialGrammar, ARecordReceivesTheSameAndKeepsItsRemainder)
{
    CVeImperialLength::tagIMPERIAL_LENGTH_UNIT unit{true, 9, 9, 9, 0.125};
    int power = 9;
    EXPECT_TRUE(CVeImperialLength::ImperialStr2Imperial(L"-3'-4 1/2\"", c_feetInches, unit, power));
    EXPECT_FALSE(unit.positive);
    EXPECT_EQ(3, unit.feet);
    EXPECT_EQ(4, unit.inches);
    EXPECT_EQ(1, unit.fractionNumerator);
    EXPECT_EQ(1, power);
    EXPECT_EQ(0.125, unit.remainderInches);
}

TEST(ImperialGrammar, ALengthIsComputedFromWhatWasReadAlsoAfterAFailure)
{
    struct LengthRow
    {
        bool understood;
        double metres;
        const wchar_t* text;
        Type type;
    };
    const LengthRow rows[] = {
        {true, 0.0, L"", c_feetInches},
        {true, CVeImperialLength::Imperial2Meter(3, 4, 1, 1), L"3'-4 1/2\"", c_feetInches},
        {true, -CVeImperialLength::Imperial2Meter(3, 4, 1, 1), L"-3'-4 1/2\"", c_feetInches},
        {true, CVeImperialLength::Imperial2Meter(0, 7, 0, 0), L"7", c_inchesOnly},
        {false, CVeImperialLength::Imperial2Meter(3, 4, 0, 0), L"3'-4\"x", c_feetInches},
        {false, CVeImperialLength::Imperial2Meter(0, 0, 1, 0), L"1/12", c_inchesOnly},
        {false, 0.0, L"7", c_other},
    };
    for (const LengthRow& row : rows)
    {
        double length = 99.0;
        EXPECT_EQ(row.understood, CVeImperialLength::ImperialStr2Meter(row.text, row.type, length));
        EXPECT_EQ(row.metres, length) << testing::PrintToString(std::wstring(row.text));
        EXPECT_EQ(row.understood, CVeImperialLength::ImperialStr2Feet(row.text, row.type, length));
        EXPECT_EQ(row.metres * 3.2808398950131235, length) << testing::PrintToString(std::wstring(row.text));
        EXPECT_EQ(row.understood, CVeImperialLength::ImperialStr2Inches(row.text, row.type, length));
        EXPECT_EQ(row.metres * 39.37007874015748, length) << testing::PrintToString(std::wstring(row.text));
    }
}

}  // namespace
