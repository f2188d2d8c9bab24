#pragma once

#include <cstddef>
#include <list>

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

/// A text that names more different numbers than this is refused.
inline constexpr std::size_t c_maximumNumberListLength = std::size_t{1} << 25;

/// Reads numbers and ranges of numbers, separated by blanks or commas, into an ascending list without duplicates.
///
///     text          allowZero  values
///     1,3-5 7       0          1 3 4 5 7
///     7-5 6         0          5 6 7         a range may be written backwards
///     1-4 !3        0          1 2 4         an exclusion, wherever it stands
///     0 1           0          1
///     0 1           1          0 1
///     a b           0          (empty)       what is not a number adds nothing
///     3-x           0          3
///     x-3           0          (empty)
///
/// values     is emptied first.
/// allowZero  1 accepts zeros, as single numbers and as bounds; any other value drops a zero, and with it what else a range
///            would add: 0-3 adds nothing, 3-0 adds 3. A range across zero contains it in either case.
///
/// Numbers beyond the range of a 32-bit integer count as its nearer end. The time and the memory taken are in proportion to
/// the text and to the list. Throws std::length_error, "list<T> too long", with `values` empty, when the text names more than
/// c_maximumNumberListLength different numbers, exclusions not counted off.
///
/// Kept: the first bound of a range decides alone: a bad one drops the range, a bad second one leaves the first.
/// Kept: a '-' in front of an item is skipped, so there are no negative numbers, except behind the '-' of a range: 1--2 is
/// the range from -2 to 1.
/// Kept: '!' excludes single numbers; in front of a range it makes the first bound a bad one.
VETOOLS_API void ParseStringToLong(const CString& text, std::list<long>& values, int allowZero);
