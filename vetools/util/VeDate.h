#pragma once

#include "vetools/platform/Export.h"

// Day numbers, and which build of the library this is.

/// The number of a day of the Gregorian calendar: GetModifiedJulianDay(14, 1, 2021) is 59229.
///
/// Kept: 17 November 1858 has the number 1, one more than the usual modified Julian day.
/// A day or month beyond its range counts on into the next month or year where the formula for Julian day numbers does. All
/// arithmetic is that of 32-bit integers, which wrap around: any arguments are allowed.
VETOOLS_API int GetModifiedJulianDay(int day, int month, int year);

/// How many days after 1 January 2009 a date is: "Jan 14 2021" gives 4396, "Jan  1 2009" gives 0. That is the form of
/// GetBuildDate(): the English month in three letters, a blank, the day in two characters, a blank, the year.
///
/// -1 for null and where the first three characters are no month, in capitals and small letters as shown. Nothing else is
/// checked: where there is no number for the day or the year, it counts as 0.
VETOOLS_API int BuildNumberFromDate(const char* date);

/// The number of the library's build, which is that of its date: 4396 for one of 14 January 2021.
VETOOLS_API int GetBuildNumber();

/// The date on which the library was built, in UTC, as in "Jan 14 2021"; where SOURCE_DATE_EPOCH was set for the build, the
/// date of that second. Lives as long as the library is loaded.
VETOOLS_API const char* GetBuildDate();

/// The version of the library: "0.1.0". Lives as long as the library is loaded.
VETOOLS_API const char* GetVeToolsVersion();
