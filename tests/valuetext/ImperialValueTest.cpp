#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "vetools/units/VeUnitBase.h"
#include "vetools/valuetext/VeImperialLength.h"

namespace
{

constexpr unsigned int c_metre = 4;
constexpr unsigned int c_inch = 5;
constexpr unsigned int c_foot = 6;
constexpr unsigned int c_feetInchesFraction = 9;
constexpr unsigned int c_inchesFraction = 10;

CVeUnitBase LengthUnit(unsigned int range, Unit::enumUNITFORMAT format, wchar_t separator = L'.')
{
    CVeUnitBase unit(Unit::UNIT_ID_LENGTH, range, 2, L'.', 1.0, 0);
    unit.SetSep(separator);
    unit.SetUnitFormat(format);
    return unit;
}

struct Row
{
    double expected;
    const wchar_t* text;
};

template <std::size_t Count>
void ExpectValues(const Row (&rows)[Count], const CVeUnitBase& unit)
{
    for (const Row& row : rows)
    {
        double value = 99.0;
        EXPECT_TRUE(CVeImperialLength::ImperialStr2Value(row.text, unit, value));
        EXPECT_EQ(row.expected, value) << testing::PrintToString(std::wstring(row.text)) << ", range "
                                       << unit.GetRange();
    }
}

TEST(ImperialValue, AUnitThatIsNotImperialIsRefusedAndTheValueLeft)
{
    double value = 99.0;
    EXPECT_FALSE(CVeImperialLength::ImperialStr2Value(L"3'", LengthUnit(c_metre, Unit::UNITFORMAT_FRACTION), value));
    EXPECT_EQ(99.0, value);
}

TEST(ImperialValue, TheRangeOfTheInchReadsInchesAndOthersReadFeet)
{
    const Row inches[] = {{36, L"3'"},     {3, L"3\""},       {3, L"3"},
                          {40, L"3'-4\""}, {-40, L"-3'-4\""}, {40.25, L"3'-4.25\""}};
    ExpectValues(inches, LengthUnit(c_inch, Unit::UNITFORMAT_FRACTION));
    const Row feet[] = {
        {3, L"3'"}, {3.0 / 12, L"3\""}, {3.0 / 12, L"3"}, {40.0 / 12, L"3'-4\""}, {-40.0 / 12, L"-3'-4\""}};
    for (const unsigned int range : {c_foot, c_feetInchesFraction, c_inchesFraction})
        ExpectValues(feet, LengthUnit(range, Unit::UNITFORMAT_FRACTION));
}

TEST(ImperialValue, TheUnitsSeparatorAndFormatAreUsed)
{
    const Row decimal[] = {{3.5, L"3.5"}, {42, L"3.5'"}, {3.5, L"-3.5"}};
    ExpectValues(decimal, LengthUnit(c_inch, Unit::UNITFORMAT_IMPERIAL_DECIMAL));
    const Row comma[] = {{3, L"3,5"}, {0, L"3.5"}};
    ExpectValues(comma, LengthUnit(c_inch, Unit::UNITFORMAT_FEET_INCHES, L','));
}

TEST(ImperialValue, KeptTheTextEndsBeforeAnAsteriskPlusOrSlash)
{
    const Row rows[] = {
        {3, L"3/4\""}, {3, L"3*4"},        {3, L"3+4"},     {0, L"3'-4 1/2\""}, {0, L"/4"},
        {0, L"+3"},    {40, L"3'-4+1/2*"}, {4, L"4*3+2/1"}, {4, L"4/3+2*1"},
    };
    ExpectValues(rows, LengthUnit(c_inch, Unit::UNITFORMAT_FRACTION));
}

TEST(ImperialValue, KeptATextThatIsNotUnderstoodIsZeroAndTheResultIsTrue)
{
    const Row rows[] = {{0, L""}, {0, L"abc"}, {0, L"1 2 3"}, {0, L"3''"}};
    ExpectValues(rows, LengthUnit(c_inch, Unit::UNITFORMAT_FRACTION));
    double value = 99.0;
    EXPECT_TRUE(CVeImperialLength::ImperialStr2Value(nullptr, LengthUnit(c_foot, Unit::UNITFORMAT_FRACTION), value));
    EXPECT_EQ(0.0, value);
}

}  // namespace
