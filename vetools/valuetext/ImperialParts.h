#pragma once

#include <string_view>

/// A length in whole numbers: feet, inches and a fraction of an inch.
struct ImperialParts
{
    bool positive = true;
    int feet = 0;
    int inches = 0;
    int numerator = 0;
    int denominatorPower = 0;  ///< of 2
};

/// What a first number without a mark counts as.
enum class FirstNumber
{
    Feet,
    Inches,
    Nothing,  ///< a mark has to follow
};

/// Reads whole numbers of feet and inches and a binary fraction down to 1/256 of an inch (internal), allocating nothing.
///
///     text          first    feet  inches  fraction
///     3'-4 1/2"     Feet     3     4       1/2^1
///     3             Feet     3
///     3             Inches         3
///     5 3/4         Feet           5       3/2^2     the feet turn out to be inches
///     3 - 4"        Feet     3     4
///     -2'           Feet     2                       not positive
///     (blanks)      any                              zero
///
/// Returns false for any other text, with those of the parts that had been read.
///
/// Kept: a blank behind a foot mark ends a number of its own, 0, so 3' 4" reads, and 3' 4 1/2" fails.
/// Kept: once a '/' has been met, the denominator alone decides: a power of two from 1 to 256 is a success whatever
/// follows, as in "1/2 x".
/// Kept: of the denominator the bits 1 to 256 alone are looked at, so 1/514 reads as 1/2.
bool ReadImperialParts(std::wstring_view text, FirstNumber first, ImperialParts& parts);
