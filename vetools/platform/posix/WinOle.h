#pragma once

#include <string.h>

#include "vetools/platform/Export.h"
#include "vetools/platform/posix/WinTypes.h"

// The component object model, as far as the library and its clients use it. In C it has the names that a header generated
// from an interface description is written in.

typedef struct GUID
{
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
} GUID;
typedef GUID IID;

typedef wchar_t OLECHAR;
typedef OLECHAR* BSTR;

#define STDMETHODCALLTYPE

#define SUCCEEDED(result) ((HRESULT)(result) >= 0)
#define FAILED(result) ((HRESULT)(result) < 0)

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define E_NOTIMPL ((HRESULT)0x80004001)
#define E_NOINTERFACE ((HRESULT)0x80004002)
#define E_POINTER ((HRESULT)0x80004003)
#define E_FAIL ((HRESULT)0x80004005)
#define E_UNEXPECTED ((HRESULT)0x8000FFFF)
#define E_OUTOFMEMORY ((HRESULT)0x8007000E)
#define E_INVALIDARG ((HRESULT)0x80070057)

/// An id as a constant of each source that includes its header: nobody has to define it once more, and ids are compared by
/// value.
#define DEFINE_GUID(name, data1, data2, data3, b0, b1, b2, b3, b4, b5, b6, b7)                                         \
    static const GUID name __attribute__((unused)) = {data1, data2, data3, {b0, b1, b2, b3, b4, b5, b6, b7}}

DEFINE_GUID(IID_IUnknown, 0x00000000, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);

#ifdef __cplusplus

inline bool operator==(const GUID& a, const GUID& b)
{
    return memcmp(&a, &b, sizeof a) == 0;
}

inline bool IsEqualGUID(const GUID& a, const GUID& b)
{
    return a == b;
}

using REFIID = const IID&;

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

#else

#define interface struct
#define REFIID const IID*
#define CONST_VTBL
#define BEGIN_INTERFACE
#define END_INTERFACE
#define FORCEINLINE inline

typedef interface IUnknown IUnknown;
typedef struct IUnknownVtbl
{
    HRESULT (*QueryInterface)(IUnknown* This, REFIID iid, void** object);
    ULONG (*AddRef)(IUnknown* This);
    ULONG (*Release)(IUnknown* This);
} IUnknownVtbl;
interface IUnknown
{
    CONST_VTBL IUnknownVtbl* lpVtbl;
};

#endif

typedef IUnknown* LPUNKNOWN;

// clang-format off
#ifdef __cplusplus
extern "C" {
#endif

/// A text that knows its length, in memory of its own: the DWORD in front of it counts its bytes without the terminator, and
/// the text may hold further terminators. The characters are those of wchar_t. Freed with SysFreeString.
/// Null for a null text, and when there is no memory.
VETOOLS_API BSTR SysAllocString(const OLECHAR* text);
/// The first `length` characters of a text; a null text leaves them undefined.
VETOOLS_API BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
/// A text of so many bytes, which need not make whole characters, followed by a terminator of one character.
VETOOLS_API BSTR SysAllocStringByteLen(const char* bytes, UINT byteLength);
/// Replaces *text by a copy of another, which may be part of it, and frees the old one. 1 for success; 0 without memory,
/// where *text stays as it was. A null `source` of a length leaves the characters that are new undefined.
VETOOLS_API INT SysReAllocString(BSTR* text, const OLECHAR* source);
VETOOLS_API INT SysReAllocStringLen(BSTR* text, const OLECHAR* source, UINT length);
/// Null is freed already.
VETOOLS_API void SysFreeString(BSTR text);
/// The length in characters, and in bytes; 0 for null.
VETOOLS_API UINT SysStringLen(BSTR text);
VETOOLS_API UINT SysStringByteLen(BSTR text);

#ifdef __cplusplus
}
#endif
// clang-format on
