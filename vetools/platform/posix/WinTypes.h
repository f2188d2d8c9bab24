#pragma once

#ifdef __cplusplus
#include <cstdint>
#else
#include <stdint.h>
#include <wchar.h>
#endif

// The system's basic types. Clients in C read this file too: hence typedef.

typedef int BOOL;
typedef uint8_t BYTE;
typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef char CHAR;
typedef int16_t SHORT;
typedef uint16_t USHORT;
typedef uint32_t ULONG;
typedef unsigned int UINT;
typedef int INT;
typedef int32_t LONG;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG;
/// A macro, as the system's headers have it: `unsigned __int64` is a type as well.
#define __int64 long long
typedef float FLOAT;
typedef double DOUBLE;
typedef void* PVOID;
typedef intptr_t INT_PTR;
typedef int32_t HRESULT;
typedef wchar_t WCHAR;
typedef wchar_t* LPWSTR;
typedef const wchar_t* LPCWSTR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef struct HINSTANCE__* HINSTANCE;
typedef HINSTANCE HMODULE;
typedef DWORD LCID;

/// A date and a time of day as the calendar writes them: wMonth 1 to 12, wDayOfWeek 0 for Sunday.
typedef struct _SYSTEMTIME
{
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME, *LPSYSTEMTIME;

/// A point, a size and a rectangle in whole units; right and bottom lie outside of a rectangle.
typedef struct tagPOINT
{
    LONG x;
    LONG y;
} POINT;

typedef struct tagSIZE
{
    LONG cx;
    LONG cy;
} SIZE;

typedef struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *LPRECT;
typedef const RECT* LPCRECT;
