#include <gtest/gtest.h>

#include <cmath>
#include <cwchar>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "vetools/valuetext/ImperialFormat.h"
#include "vetools/valuetext/ImperialParse.h"

namespace
{

constexpr unsigned int c_seed = 20240229;
constexpr int c_valuesPerSetting = 2000;

/// A number in a text that the writer made: digits and at most one point.
double NumberOf(std::wstring_view text)
{
    return std::wcstod(std::wstring(text).c_str(), nullptr);
}

/// The inches that a text of the writer shows, read the slow way: -F'-I N/D" with any part missing.
double InchesShown(std::wstring_view text)
{
    const bool negative = text.starts_with(L'-');
    if (negative)
        text.remove_prefix(1);
    double inches = 0.0;
    if (const std::size_t foot = text.find(L'\''); foot != std::wstring_view::npos)
    {
        inches = NumberOf(text.substr(0, foot)) * 12.0;
        text.remove_prefix(foot + 1);
        if (text.starts_with(L'-'))
            text.remove_prefix(1);
    }
    if (const std::size_t slash = text.find(L'/'); slash != std::wstring_view::npos)
    {
        const std::size_t blank = text.find(L' ');
        const std::size_t numerator = blank == std::wstring_view::npos ? 0 : blank + 1;
        if (numerator != 0)
            inches += NumberOf(text.substr(0, blank));
        inches += NumberOf(text.substr(numerator, slash - numerator)) / NumberOf(text.substr(slash + 1));
    }
    else if (!text.empty())
    {
        inches += NumberOf(text);
    }
    return negative ? -inches : inches;
}

struct Setting
{
    LengthIn in;
    Unit::enumUNITFORMAT format;
    unsigned int precision;
};

std::vector<Setting> AllSettings()
{
    std::vector<Setting> settings;
    for (const LengthIn in : {LengthIn::Feet, LengthIn::Inches})
        for (const Unit::enumUNITFORMAT format : {Unit::UNITFORMAT_FEET_INCHES, Unit::UNITFORMAT_FRACTION})
            for (unsigned int precision = 0; precision <= 8; ++precision)
                settings.push_back({in, format, precision});
    return settings;
}

std::wstring Write(double value, const Setting& setting)
{
    wchar_t buffer[c_imperialTextCapacity];
    return {buffer, WriteImperialText(buffer, value, setting.in, setting.precision, L'.', setting.format)};
}

/// Values of every magnitude, and such as lie on and around the steps of the precision.
double RandomValue(std::mt19937& random, const Setting& setting)
{
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const double steps = std::ldexp(1.0, static_cast<int>(setting.precision) + 1);
    switch (random() % 4)
    {
    case 0:
        return unit(random);
    case 1:
        return unit(random) * 100'000.0;
    case 2:
        return std::round(unit(random) * 100.0 * steps) / steps;
    default:
        return std::round(unit(random) * 100.0 * 12.0 * steps) / steps / 12.0;
    }
}

/// Kept: where zeros are removed from a whole number, none of its digits may be left.
bool HasNoInchesLeft(const std::wstring& text)
{
    return text == L"\"" || text == L"-\"" || text.ends_with(L"-\"");
}

TEST(ImperialRoundTrip, EveryWrittenTextReadsBackAsTheValueThatItShows)
{
    std::mt19937 random(c_seed);
    for (const Setting& setting : AllSettings())
    {
        for (int i = 0; i < c_valuesPerSetting; ++i)
        {
            const double value = RandomValue(random, setting);
            const std::wstring text = Write(value, setting);
            const std::wstring inputs = text + L" from " + std::to_wstring(value) + L" at precision " +
                                        std::to_wstring(setting.precision) + L" in format " +
                                        std::to_wstring(setting.format) + L", seed " + std::to_wstring(c_seed);
            double read = 0.0;
            const bool understood = ReadImperialText(text, read, setting.in, L'.', setting.format);
            if (HasNoInchesLeft(text))
            {
                ASSERT_EQ(0u, setting.precision) << inputs;
                ASSERT_FALSE(understood) << inputs;
                continue;
            }
            ASSERT_TRUE(understood) << inputs;
            const double shown = InchesShown(text);
            ASSERT_DOUBLE_EQ(setting.in == LengthIn::Feet ? shown / 12.0 : shown, read) << inputs;
        }
    }
}

TEST(ImperialRoundTrip, AWrittenFractionIsWithinHalfAStepOfTheValue)
{
    std::mt19937 random(c_seed);
    for (const Setting& setting : AllSettings())
    {
        if (setting.format != Unit::UNITFORMAT_FRACTION)
            continue;
        const double halfStep = std::ldexp(0.5, -static_cast<int>(setting.precision));
        for (int i = 0; i < c_valuesPerSetting; ++i)
        {
            const double value = RandomValue(random, setting);
            const double inches = setting.in == LengthIn::Feet ? value * 12.0 : value;
            ASSERT_NEAR(inches, InchesShown(Write(value, setting)), halfStep + 1e-9)
                << "precision " << setting.precision << ", seed " << c_seed;
        }
    }
}

TEST(ImperialRoundTrip, KeptDecimalsAreWrittenWithAPointAndReadWithTheSeparatorAlone)
{
    wchar_t buffer[c_imperialTextCapacity];
    double read = 1.0;
    WriteImperialText(buffer, 3.375, LengthIn::Feet, 2, L',', Unit::UNITFORMAT_FEET_INCHES);
    EXPECT_STREQ(L"3'-4.5\"", buffer);
    EXPECT_FALSE(ReadImperialText(buffer, read, LengthIn::Feet, L',', Unit::UNITFORMAT_FEET_INCHES));
    EXPECT_EQ(0.0, read);
}

}  // namespace
