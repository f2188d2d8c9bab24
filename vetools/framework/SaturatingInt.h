#pragma once

#include <limits>

/// Whole numbers that stay in the range of an int (internal). A conversion out of range is undefined in the language, and
/// what the processors make of it differs; here it is the nearest int.

/// The number cut towards zero, the nearest int beyond the range, 0 for a value that is not a number.
constexpr int TruncateToInt(double value)
{
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return value == value ? static_cast<int>(value) : 0;
}

/// The next number; the largest has none and stays.
constexpr int NextInt(int value)
{
    return value < std::numeric_limits<int>::max() ? value + 1 : value;
}
