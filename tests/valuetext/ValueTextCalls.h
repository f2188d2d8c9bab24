#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "vetools/units/VeUnitBase.h"

/// Calls of the value-text functions by named settings, for the tests of this folder.
namespace valuetext
{

/// Room for the longest number, a long format and a name; what a call does not write keeps c_guard.
constexpr unsigned int c_bufferLength = 2000;
constexpr wchar_t c_guard = L'#';

/// The settings of the ten- and the twelve-argument forms, each at its plainest.
struct Settings
{
    int withUnit = 0;
    const wchar_t* format = L"%.*f";
    int applyMetricsFactor = 0;
    int removeTrailingZeros = 0;
    unsigned int bufferSize = c_bufferLength;
    int smallValuesAsExponent = 0;
    int smallValueThreshold = 0;
    int superscriptSubUnits = 0;
    int dropZeroSuperscript = 0;
};

inline std::vector<wchar_t> GuardedBuffer()
{
    return std::vector<wchar_t>(c_bufferLength, c_guard);
}

inline CVeUnitBase MakeUnit(unsigned int idUnit, unsigned int range, unsigned int precision)
{
    return CVeUnitBase(idUnit, range, precision, L'.', 1.0, 1);
}

inline std::wstring Ten(const CVeUnitBase& unit, wchar_t* buffer, double value, const Settings& settings = {})
{
    return unit
        .Double2String(buffer, value, settings.withUnit, settings.format, settings.applyMetricsFactor,
                       settings.removeTrailingZeros, settings.bufferSize, 0, settings.smallValuesAsExponent,
                       settings.smallValueThreshold)
        .GetString();
}

inline std::wstring Ten(const CVeUnitBase& unit, double value, const Settings& settings = {})
{
    std::vector<wchar_t> buffer = GuardedBuffer();
    const std::wstring text = Ten(unit, buffer.data(), value, settings);
    EXPECT_EQ(text, std::wstring(buffer.data())) << "the buffer receives the text that is returned";
    return text;
}

inline std::wstring Twelve(const CVeUnitBase& unit, wchar_t* buffer, double value, const Settings& settings = {})
{
    return unit
        .Double2String(buffer, settings.superscriptSubUnits, value, settings.withUnit, settings.format,
                       settings.applyMetricsFactor, settings.removeTrailingZeros, settings.bufferSize,
                       settings.dropZeroSuperscript, 0, settings.smallValuesAsExponent, settings.smallValueThreshold)
        .GetString();
}

inline std::wstring Twelve(const CVeUnitBase& unit, double value, const Settings& settings = {})
{
    std::vector<wchar_t> buffer = GuardedBuffer();
    const std::wstring text = Twelve(unit, buffer.data(), value, settings);
    EXPECT_EQ(text, std::wstring(buffer.data())) << "the buffer receives the text that is returned";
    return text;
}

/// The bounded form with all the room that it asks for.
inline std::wstring Bounded(const CVeUnitBase& unit, double value, const ValueTextOptions& options)
{
    std::vector<wchar_t> buffer(c_bufferLength, c_guard);
    const std::size_t length = unit.Double2String(buffer, value, options);
    EXPECT_LT(length, buffer.size());
    EXPECT_EQ(c_guard, buffer[length + 1]);
    return buffer.data();
}

}  // namespace valuetext
