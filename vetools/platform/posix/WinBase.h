#pragma once

#include <cstdarg>

#include "vetools/platform/Export.h"
#include "vetools/platform/posix/WinErrors.h"
#include "vetools/platform/posix/WinFiles.h"
#include "vetools/platform/posix/WinModules.h"
#include "vetools/platform/posix/WinOle.h"
#include "vetools/platform/posix/WinTime.h"
#include "vetools/platform/posix/WinTypes.h"
#include "vetools/platform/posix/WinVariant.h"

// What the library calls of the system's base services, under the system's names and with its documented results. Texts
// are counted in elements of wchar_t, which hold whole characters here.

// Last error

/// The error code of the calling thread. A function sets it when it fails; success leaves it as it is, unless said
/// otherwise.
VETOOLS_API DWORD GetLastError();
VETOOLS_API void SetLastError(DWORD code);

constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x0100;
constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x0200;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

/// The text of an error code, in English, with a line break "\r\n" at its end. FORMAT_MESSAGE_FROM_SYSTEM and
/// FORMAT_MESSAGE_IGNORE_INSERTS must be set. With FORMAT_MESSAGE_ALLOCATE_BUFFER, `buffer` is a `LPWSTR*` that receives
/// a new text, freed by LocalFree; else `size` counts its characters with the terminator. Returns the length; 0 with the
/// last error set when that fails: ERROR_MR_MID_NOT_FOUND for a code without a text, ERROR_INSUFFICIENT_BUFFER,
/// ERROR_INVALID_PARAMETER for other flags or a null buffer. The other arguments are not read.
VETOOLS_API DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD code, DWORD language, LPWSTR buffer, DWORD size,
                                 va_list* arguments);

using HLOCAL = void*;
/// Frees what FormatMessageW allocated, or null. Returns null.
VETOOLS_API HLOCAL LocalFree(HLOCAL memory);

/// What a user answers to a message box that offers another attempt.
constexpr int IDRETRY = 4;

// Text

/// The system's narrow encoding, which is UTF-8 here, and UTF-8 by its name. Other code pages are not known.
constexpr UINT CP_ACP = 0;
constexpr UINT CP_UTF8 = 65001;

/// Fails on bytes or characters that the other encoding cannot express, instead of writing U+FFFD.
constexpr DWORD MB_ERR_INVALID_CHARS = 0x08;
constexpr DWORD WC_ERR_INVALID_CHARS = 0x80;

/// Converts `textSize` bytes, or with -1 a terminated text and its terminator, to wide characters. Returns how many it
/// wrote, or with `bufferSize` 0 how many it would write. 0 with the last error set when that fails:
/// ERROR_INVALID_PARAMETER for an unknown code page, a null or empty text or a negative size,
/// ERROR_INSUFFICIENT_BUFFER, ERROR_NO_UNICODE_TRANSLATION.
VETOOLS_API int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int textSize, LPWSTR buffer,
                                    int bufferSize);
/// The way back, with the same results. Lone surrogates and values beyond U+10FFFF have no encoding. `defaultCharacter`
/// and `usedDefaultCharacter` must be null, as the system demands for UTF-8.
VETOOLS_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textSize, LPSTR buffer,
                                    int bufferSize, LPCSTR defaultCharacter, BOOL* usedDefaultCharacter);

/// Maps each element to its upper or lower case in place and returns `length`. As on Windows a pair of letters is
/// mapped only when each is the other's counterpart, and only within the first 65536 characters: µ, ß, ı, İ, ſ and the
/// title-case digraphs stay.
VETOOLS_API DWORD CharUpperBuffW(LPWSTR text, DWORD length);
VETOOLS_API DWORD CharLowerBuffW(LPWSTR text, DWORD length);

constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
constexpr DWORD NORM_IGNORECASE = 1;
constexpr int CSTR_LESS_THAN = 1;
constexpr int CSTR_EQUAL = 2;
constexpr int CSTR_GREATER_THAN = 3;

/// Compares two texts as a dictionary of no language in particular does; -1 as a length stands for a terminated text.
/// Returns CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN; 0 with ERROR_INVALID_PARAMETER for a null text, with
/// ERROR_INVALID_FLAGS for flags other than NORM_IGNORECASE. `locale` is not read.
VETOOLS_API int CompareStringW(LCID locale, DWORD flags, LPCWSTR left, int leftLength, LPCWSTR right, int rightLength);

// Debugger output

/// Shows a text to a debugger. Here it goes to the standard error as UTF-8, but only when the environment variable
/// VETOOLS_DEBUG_OUTPUT is set. Null shows nothing.
VETOOLS_API void OutputDebugStringA(LPCSTR text);
VETOOLS_API void OutputDebugStringW(LPCWSTR text);
