#pragma once

#include <optional>
#include <string_view>

#include "vetools/platform/posix/WinVariant.h"

// Dates as numbers of days, as calendar fields and as text of the United States. Internal to the platform layer.

/// Midnight of 1 January 100, and the first midnight beyond the year 9999.
constexpr DATE c_firstDate = -657434.0;
constexpr DATE c_endOfDates = 2958466.0;

/// Whether a number of days lies in the years 100 to 9999. What is not a number does not.
bool IsDate(DATE date);

/// The longest text of a date: 12/31/9999 11:59:59 PM.
constexpr std::size_t c_maxDateText = 22;

/// Writes a date to the second: 1/18/2021 2:05:09 PM, without the time at midnight and without the date on 30 December
/// 1899. Returns the end; null for what is no date.
wchar_t* WriteDateText(wchar_t* text, DATE date);

/// Reads a date, a time, or both in any order, from the whole text. Numbers of a date stand in the order month, day, year;
/// when that is no date, year, month, day; then day, month, year; then year, day, month. A month may be a name. Without a
/// year it is the current one, without a day the first. Between numbers stand blanks, / - or a comma; between those of a
/// time : or a point. Years of two digits are 1950 to 2049.
std::optional<DATE> ReadDateText(std::wstring_view text);
