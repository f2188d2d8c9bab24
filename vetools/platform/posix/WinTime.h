#pragma once

#include "vetools/platform/posix/WinFiles.h"
#include "vetools/platform/posix/WinTypes.h"

// Time, under the system's names and with the system's documented results.

/// The local date and time of the calling process, to the millisecond, as the time zone of the environment says.
VETOOLS_API void GetLocalTime(SYSTEMTIME* time);

constexpr DWORD DATE_LONGDATE = 0x0002;
constexpr DWORD TIME_FORCE24HOURFORMAT = 0x0008;

/// Writes a date as the user's language writes it in full: Monday, January 18, 2021 or lundi 18 janvier 2021.
///
/// locale   not read: the language is that of the environment, by LC_ALL, else LC_TIME, else LANG; the locales C and POSIX
///          stand for English (United States)
/// flags    DATE_LONGDATE; anything else fails with ERROR_INVALID_FLAGS
/// date     null for today. The day of the week is not read: it follows from the date
/// picture  null; anything else fails with ERROR_INVALID_PARAMETER
/// size     characters that `buffer` holds, the terminator included; 0 asks how many there would be
/// Returns the characters written, with the terminator; 0 with the last error set when that fails:
/// ERROR_INVALID_PARAMETER for a date that does not exist, ERROR_INSUFFICIENT_BUFFER.
VETOOLS_API int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* date, LPCWSTR picture, LPWSTR buffer,
                               int size);

/// Writes a time by a picture of hours, minutes and seconds: "hh':'mm':'ss" gives 14:05:09.
///
/// locale   not read: digits are the same everywhere
/// flags    0, or TIME_FORCE24HOURFORMAT, by which h counts to 24 as H does; anything else fails with ERROR_INVALID_FLAGS
/// time     null for now
/// picture  h hh, H HH, m mm, s ss: hours of twelve, hours, minutes, seconds, of two digits where the letter is doubled;
///          text within '…', where '' is an apostrophe; any other character but t stands for itself. A null picture,
///          and one with t, fail with ERROR_INVALID_PARAMETER
/// Size and result are those of GetDateFormatW.
VETOOLS_API int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR buffer,
                               int size);

/// A count that grows steadily, whatever happens to the clock, and how much it grows in a second. Both always succeed.
VETOOLS_API BOOL QueryPerformanceCounter(LARGE_INTEGER* count);
VETOOLS_API BOOL QueryPerformanceFrequency(LARGE_INTEGER* countsPerSecond);
