#pragma once

#include <string_view>

/// The units that are recognised in text (internal).
struct UnitSpellingRow
{
    std::wstring_view text;
    unsigned int idUnit;
    unsigned int range;
    int exponent = 1;
};

// clang-format off
/// Kept: a text is compared in lower case, and one with a "/" in it is taken apart before; rows with capitals or with "/"
/// therefore never match. Kept: forces stand under the id of the masses, with the ranges of the forces.
constexpr UnitSpellingRow c_unitSpellings[] = {
//   text       id  range  exponent
    {L"µm",      1,  0},
    {L"mm",      1,  1},
    {L"cm",      1,  2},
    {L"dm",      1,  3},
    {L"m",       1,  4},
    {L"\"",      1,  5},
    {L"''",      1,  5},
    {L"\"2",     1,  5,  2},
    {L"''2",     1,  5,  2},
    {L"'",       1,  6},
    {L"yd",      1,  7},
    {L"Yd",      1,  7},
    {L"m2",      1,  4,  2},
    {L"m3",      1,  4,  3},
    {L"cm2",     1,  2,  2},
    {L"cm3",     1,  2,  3},
    {L"cm4",     1,  2,  4},
    {L"cm6",     1,  2,  6},
    {L"mm2",     1,  1,  2},
    {L"n",       4,  0},
    {L"N",       4,  0},
    {L"dan",     4,  1},
    {L"daN",     4,  1},
    {L"kn",      4,  2},
    {L"kN",      4,  2},
    {L"mn",      4,  3},
    {L"MN",      4,  3},
    {L"kg",      4,  4},
    {L"t",       4,  5},
    {L"T",       4,  5},
    {L"lb",      4,  6},
    {L"kip",     4,  7},
    {L"pa",      7,  0},
    {L"Pa",      7,  0},
    {L"kpa",     7,  1},
    {L"kPa",     7,  1},
    {L"mpa",     7,  2},
    {L"MPa",     7,  2},
    {L"daN/mm²", 7,  3},
    {L"kg/mm²",  7,  4},
    {L"kg/cm²",  7,  5},
    {L"t/m²",    7,  6},
    {L"bar",     7,  7},
    {L"psi",     7,  8},
    {L"kg/m²",   7,  9},
    {L"lb/in²",  7, 10},
    {L"lb/ft²",  7, 11},
};
// clang-format on
