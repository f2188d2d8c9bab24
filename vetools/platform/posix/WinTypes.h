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
typedef uint32_t ULONG;
typedef unsigned int UINT;
typedef int INT;
typedef int32_t LONG;
typedef intptr_t INT_PTR;
typedef int32_t HRESULT;
typedef wchar_t* LPWSTR;
typedef const wchar_t* LPCWSTR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef const struct VeModuleRecord* HINSTANCE;
typedef HINSTANCE HMODULE;
