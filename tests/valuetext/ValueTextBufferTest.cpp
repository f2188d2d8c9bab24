#include "ValueTextCalls.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "vetools/units/UnitTypes.h"

using namespace valuetext;

namespace
{

CVeUnitBase Newton(unsigned int precision)
{
    return MakeUnit(Unit::UNIT_ID_FORCE, 0, precision);
}

/// What a call leaves in a buffer that was full of guards: a terminator shows as '0'.
std::wstring Contents(const std::vector<wchar_t>& buffer, std::size_t length)
{
    std::wstring contents(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(length));
    std::replace(contents.begin(), contents.end(), L'\0', L'_');
    return contents;
}

}  // namespace

TEST(ValueTextBuffer, KeptTheTextIsCutTwoCharactersBelowTheSizeAndTheNumberWrittenWholeWhateverTheSize)
{
    const struct
    {
        const wchar_t* expected;  // what is returned, and stands in the buffer up to the first terminator
        const wchar_t* contents;  // all of the buffer; _ is a terminator, # was not written
        unsigned int bufferSize;
    } rows[] = {
        {L"1234.50", L"1234.50_####", 0},  // Kept: too small for any copy that regards the size
        {L"1234.50", L"1234.50_####", 1},
        {L"", L"_234.50_####", 2},
        {L"1", L"1_34.50_####", 3},
        {L"1234.5", L"1234.5__####", 8},
        {L"1234.50", L"1234.50_####", 9},
        {L"1234.50 ", L"1234.50 _###", 10},
        {L"1234.50 N", L"1234.50 N_##", 11},  // two more than the text
        {L"1234.50 N", L"1234.50 N_##", 12},
        {L"1234.50 N", L"1234.50 N_##", 0x7FFFFFFFu},
        {L"1234.50 N", L"1234.50 N_##", 0x80000000u},
        {L"1234.50 N", L"1234.50 N_##", 0xFFFFFFFFu},
    };
    for (const auto& row : rows)
    {
        std::vector<wchar_t> buffer(12, c_guard);
        const Settings settings{.withUnit = 1, .bufferSize = row.bufferSize};
        EXPECT_EQ(row.expected, Ten(Newton(2), buffer.data(), 1234.5, settings)) << row.bufferSize;
        EXPECT_EQ(row.contents, Contents(buffer, 12)) << row.bufferSize;
        EXPECT_EQ(row.expected, Twelve(Newton(2), buffer.data(), 1234.5, settings)) << row.bufferSize;
    }
}

TEST(ValueTextBuffer, CutsANumberWithoutUnitInTheSameWay)
{
    const struct
    {
        const wchar_t* expected;
        const wchar_t* contents;
        unsigned int bufferSize;
    } rows[] = {
        {L"1234.50", L"1234.50_####", 0}, {L"1234.50", L"1234.50_####", 1}, {L"", L"_234.50_####", 2},
        {L"1234.5", L"1234.5__####", 8},  {L"1234.50", L"1234.50_####", 9},
    };
    for (const auto& row : rows)
    {
        std::vector<wchar_t> buffer(12, c_guard);
        EXPECT_EQ(row.expected, Ten(Newton(2), buffer.data(), 1234.5, {.bufferSize = row.bufferSize}))
            << row.bufferSize;
        EXPECT_EQ(row.contents, Contents(buffer, 12)) << row.bufferSize;
    }
}

TEST(ValueTextBuffer, KeptTheNumberAsPrintedRemainsBehindAShorterText)
{
    std::vector<wchar_t> buffer(12, c_guard);
    EXPECT_EQ(L"12.5", Ten(Newton(3), buffer.data(), 12.5, {.removeTrailingZeros = 1, .bufferSize = 12}));
    EXPECT_EQ(L"12.5_0_#####", Contents(buffer, 12));
}

TEST(ValueTextBuffer, WritesNothingToANullBufferAndReturnsTheSameText)
{
    CVeUnitBase imperial = MakeUnit(Unit::UNIT_ID_LENGTH, 6, 2);
    imperial.SetUnitFormat(Unit::UNITFORMAT_FEET_INCHES);
    CVeUnitBase named = imperial;
    named.SetName(L"x");
    for (const CVeUnitBase& unit : {Newton(2), MakeUnit(Unit::UNIT_ID_LENGTH, 4, 3), imperial, named})
        for (const double value : {0.0, 1.0, -1234.5, 1e300, std::numeric_limits<double>::infinity()})
            for (unsigned int bufferSize = 0; bufferSize < 40; ++bufferSize)
            {
                const Settings settings{.withUnit = 1, .bufferSize = bufferSize, .superscriptSubUnits = 1};
                std::vector<wchar_t> buffer = GuardedBuffer();
                EXPECT_EQ(Ten(unit, buffer.data(), value, settings), Ten(unit, nullptr, value, settings))
                    << value << ' ' << bufferSize;
                EXPECT_EQ(Twelve(unit, buffer.data(), value, settings), Twelve(unit, nullptr, value, settings))
                    << value << ' ' << bufferSize;
            }
}

TEST(ValueTextBuffer, TheBoundedFormWritesAtMostWhatTheBufferHoldsAndTellsTheWholeLength)
{
    const CVeUnitBase unit = Newton(2);
    const ValueTextOptions options{.withUnit = true};
    const std::wstring whole = L"1234.50 N";
    for (std::size_t size = 0; size <= 12; ++size)
    {
        std::vector<wchar_t> buffer(12, c_guard);
        EXPECT_EQ(whole.size(), unit.Double2String(std::span(buffer).first(size), 1234.5, options)) << size;
        if (size > 0)
        {
            EXPECT_EQ(whole.substr(0, size - 1), std::wstring(buffer.data())) << size;
        }
        const std::size_t written = std::min(size, whole.size() + 1);
        EXPECT_EQ(std::wstring(12 - written, c_guard), Contents(buffer, 12).substr(written)) << size;
    }
    EXPECT_EQ(5u, unit.Double2String({}, 12.345, {}));
}

TEST(ValueTextBuffer, TheBoundedFormGivesTheTextsOfTheClassicForms)
{
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        for (unsigned int range = 0; range <= 10; ++range)
            for (const double value : {0.0, 1.0, -1.03, 0.0005, 2.345, 1e10, std::nan("")})
                for (const int flag : {0, 1})
                {
                    const CVeUnitBase unit(idUnit, range, 3, L'.', 2.0, 1);
                    const Settings settings{.withUnit = flag,
                                            .applyMetricsFactor = flag,
                                            .removeTrailingZeros = flag,
                                            .smallValuesAsExponent = flag,
                                            .smallValueThreshold = 2,
                                            .superscriptSubUnits = flag,
                                            .dropZeroSuperscript = flag};
                    ValueTextOptions options{.withUnit = flag != 0,
                                             .applyMetricsFactor = flag != 0,
                                             .removeTrailingZeros = flag != 0,
                                             .smallValuesAsExponent = flag != 0,
                                             .smallValueThreshold = 2};
                    EXPECT_EQ(Ten(unit, value, settings), Bounded(unit, value, options))
                        << idUnit << ':' << range << ' ' << value << ' ' << flag;
                    options.temperatureOffset = false;
                    options.superscriptSubUnits = options.dropZeroSuperscript = flag != 0;
                    EXPECT_EQ(Twelve(unit, value, settings), Bounded(unit, value, options))
                        << idUnit << ':' << range << ' ' << value << ' ' << flag;
                }
}
