#pragma once

#include <cstring>

#include "vetools/platform/posix/WinTypes.h"

// The component object model, as far as the library uses it.

struct GUID
{
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};

inline bool operator==(const GUID& a, const GUID& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

using IID = GUID;
using REFIID = const IID&;
using ULONG = std::uint32_t;
using OLECHAR = wchar_t;
using BSTR = OLECHAR*;

#define STDMETHODCALLTYPE

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);

constexpr IID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// Interfaces have no virtual destructor: Release ends an object, and the order of the slots is fixed.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

struct IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

#pragma GCC diagnostic pop

using LPUNKNOWN = IUnknown*;

/// A text with its length in front of it, in memory of its own: free it with SysFreeString. Null when there is no memory.
/// The characters are those of wchar_t, the byte length counts them so.
BSTR SysAllocString(const OLECHAR* text);
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);
UINT SysStringByteLen(BSTR text);
