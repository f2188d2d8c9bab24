#pragma once

#include <cstddef>

/// The display units that a manager starts with and those that it is reset to (internal).
///
/// Kept: the two differ on purpose. The first is the starting display of a new manager, the second the set of "back to the
/// defaults". Neither depends on the length system, which acts through the metrics factor alone.
struct DisplayUnitRow
{
    unsigned int idUnit;
    unsigned int range;
    unsigned int precision;  ///< decimals
};

constexpr unsigned int c_unitIdCount = 26;

// clang-format off
constexpr DisplayUnitRow c_initialUnits[] = {
//   id  range  precision
    { 1,  4,  2},
    { 2,  2,  2},
    { 3,  2,  2},
    { 4,  1,  2},
    { 5,  0,  2},
    { 6,  1,  2},
    { 7,  2,  2},
    { 8,  0,  2},
    { 9,  2,  2},
    {10,  0,  2},
    {11,  0,  2},
    {12,  2,  2},
    {13,  2,  2},
    {14,  1,  0},
    {15,  0,  2},
    {16,  2,  2},
    {17,  2,  2},
    {18,  1,  0},
    {19,  1,  1},
    {20,  0,  2},
    {21,  4,  3},
    {22,  4,  2},
    {23,  2,  2},
    {24,  2,  2},
    {25,  1,  2},
    {26,  1,  2},
};

constexpr DisplayUnitRow c_defaultUnits[] = {
//   id  range  precision
    { 1,  4,  2},
    { 2,  5,  2},
    { 3,  0,  2},
    { 4,  1,  2},
    { 5,  0,  1},
    { 6,  1,  1},
    { 7,  2,  0},
    { 8,  0,  3},
    { 9,  4,  3},
    {10,  0,  3},
    {11,  0,  3},
    {12,  2,  0},
    {13,  4,  3},
    {14,  4,  1},
    {15,  0,  3},
    {16,  2,  3},
    {17,  2,  3},
    {18,  0,  3},
    {19,  4,  1},
    {20,  4,  3},  // Kept: the frequencies have no range 4, so this unit has no symbol, no title and the coefficient 1
    {21,  2,  0},
    {22,  4,  2},
    {23,  2,  2},
    {24,  2,  2},
    {25,  1,  2},
    {26,  2,  2},
};
// clang-format on

/// Whether there is one row for each id, in ascending order: readers index by id - 1.
template <std::size_t count>
constexpr bool IsInOrder(const DisplayUnitRow (&rows)[count])
{
    for (std::size_t i = 0; i < count; ++i)
    {
        if (rows[i].idUnit != i + 1)
            return false;
    }
    return count == c_unitIdCount;
}

static_assert(IsInOrder(c_initialUnits));
static_assert(IsInOrder(c_defaultUnits));
