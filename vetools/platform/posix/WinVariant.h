#pragma once

#include "vetools/platform/Export.h"
#include "vetools/platform/posix/WinOle.h"
#include "vetools/platform/posix/WinTypes.h"

// OLE Automation: values that know their type, arrays of them, and their conversion. Names, layout, results and error codes
// are those of the system's documentation. Clients in C read this file too.

// Result codes

#define DISP_E_PARAMNOTFOUND ((HRESULT)0x80020004)
#define DISP_E_TYPEMISMATCH ((HRESULT)0x80020005)
#define DISP_E_BADVARTYPE ((HRESULT)0x80020008)
#define DISP_E_OVERFLOW ((HRESULT)0x8002000A)
#define DISP_E_BADINDEX ((HRESULT)0x8002000B)
#define DISP_E_ARRAYISLOCKED ((HRESULT)0x8002000D)
#define DISP_E_DIVBYZERO ((HRESULT)0x80020012)

// Types of values

typedef unsigned short VARTYPE;

// clang-format off
enum VARENUM
{
    VT_EMPTY    = 0,   VT_NULL     = 1,   VT_I2        = 2,   VT_I4      = 3,
    VT_R4       = 4,   VT_R8       = 5,   VT_CY        = 6,   VT_DATE    = 7,
    VT_BSTR     = 8,   VT_DISPATCH = 9,   VT_ERROR     = 10,  VT_BOOL    = 11,
    VT_VARIANT  = 12,  VT_UNKNOWN  = 13,  VT_DECIMAL   = 14,
    VT_I1       = 16,  VT_UI1      = 17,  VT_UI2       = 18,  VT_UI4     = 19,
    VT_I8       = 20,  VT_UI8      = 21,  VT_INT       = 22,  VT_UINT    = 23,
    VT_VOID     = 24,  VT_HRESULT  = 25,  VT_PTR       = 26,  VT_SAFEARRAY = 27,
    VT_CARRAY   = 28,  VT_USERDEFINED = 29,  VT_LPSTR  = 30,  VT_LPWSTR  = 31,
    VT_RECORD   = 36,  VT_INT_PTR  = 37,  VT_UINT_PTR  = 38,
    VT_FILETIME = 64,  VT_BLOB     = 65,  VT_STREAM    = 66,  VT_STORAGE = 67,
    VT_STREAMED_OBJECT = 68,  VT_STORED_OBJECT = 69,  VT_BLOB_OBJECT = 70,
    VT_CF       = 71,  VT_CLSID    = 72,  VT_VERSIONED_STREAM = 73,

    VT_VECTOR   = 0x1000,
    VT_ARRAY    = 0x2000,
    VT_BYREF    = 0x4000,
    VT_RESERVED = 0x8000,
    VT_ILLEGAL  = 0xFFFF,
    VT_ILLEGALMASKED = 0x0FFF,
    VT_TYPEMASK = 0x0FFF
};
// clang-format on

typedef short VARIANT_BOOL;
#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)

typedef LONG SCODE;
/// Days since 30 December 1899; the fraction is the time of day, also of a negative date: -1.25 is 29 December, 6:00.
typedef double DATE;

/// Money: a whole number of ten-thousandths.
typedef union tagCY
{
    __extension__ struct
    {
        ULONG Lo;
        LONG Hi;
    };
    LONGLONG int64;
} CY;
typedef CY CURRENCY;

#define DECIMAL_NEG ((BYTE)0x80)

/// A number of 96 bits divided by 10 to the power of `scale`, which is 0 to 28. The first member is the type of the
/// VARIANT in which it stands.
typedef struct tagDEC
{
    USHORT wReserved;
    __extension__ union
    {
        __extension__ struct
        {
            BYTE scale;
            BYTE sign;
        };
        USHORT signscale;
    };
    ULONG Hi32;
    __extension__ union
    {
        __extension__ struct
        {
            ULONG Lo32;
            ULONG Mid32;
        };
        ULONGLONG Lo64;
    };
} DECIMAL;

typedef struct tagSAFEARRAYBOUND
{
    ULONG cElements;
    LONG lLbound;
} SAFEARRAYBOUND, *LPSAFEARRAYBOUND;

#define FADF_AUTO ((USHORT)0x0001)
#define FADF_STATIC ((USHORT)0x0002)
#define FADF_EMBEDDED ((USHORT)0x0004)
#define FADF_FIXEDSIZE ((USHORT)0x0010)
#define FADF_HAVEIID ((USHORT)0x0040)
#define FADF_HAVEVARTYPE ((USHORT)0x0080)
#define FADF_BSTR ((USHORT)0x0100)
#define FADF_UNKNOWN ((USHORT)0x0200)
#define FADF_DISPATCH ((USHORT)0x0400)
#define FADF_VARIANT ((USHORT)0x0800)

/// An array that knows its bounds. The bounds of the last dimension stand first.
typedef struct tagSAFEARRAY
{
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    PVOID pvData;
    SAFEARRAYBOUND rgsabound[1];
} SAFEARRAY, *LPSAFEARRAY;

// What an object that is asked for its properties by number looks like.

#define DISPID_VALUE 0
#define DISPATCH_METHOD 1
#define DISPATCH_PROPERTYGET 2

typedef LONG DISPID;
typedef DISPID MEMBERID;
typedef struct tagVARIANT VARIANT;
typedef VARIANT VARIANTARG;
typedef VARIANT* LPVARIANT;
typedef struct ITypeInfo ITypeInfo;
typedef struct IDispatch IDispatch;
typedef struct IRecordInfo IRecordInfo;
typedef IDispatch* LPDISPATCH;

typedef struct tagDISPPARAMS
{
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
} DISPPARAMS;

typedef struct tagEXCEPINFO
{
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    PVOID pvReserved;
    HRESULT (*pfnDeferredFillIn)(struct tagEXCEPINFO*);
    SCODE scode;
} EXCEPINFO;

/// A value and its type. With VT_BYREF the value stands elsewhere and belongs to somebody else, with VT_ARRAY it is a
/// SAFEARRAY; otherwise the VARIANT owns it. `decVal` lies over all of it: the type stands in its first member.
struct tagVARIANT
{
    __extension__ union
    {
        __extension__ struct
        {
            VARTYPE vt;
            WORD wReserved1;
            WORD wReserved2;
            WORD wReserved3;
            __extension__ union
            {
                LONGLONG llVal;
                LONG lVal;
                BYTE bVal;
                SHORT iVal;
                FLOAT fltVal;
                DOUBLE dblVal;
                VARIANT_BOOL boolVal;
                SCODE scode;
                CY cyVal;
                DATE date;
                BSTR bstrVal;
                IUnknown* punkVal;
                IDispatch* pdispVal;
                SAFEARRAY* parray;
                BYTE* pbVal;
                SHORT* piVal;
                LONG* plVal;
                LONGLONG* pllVal;
                FLOAT* pfltVal;
                DOUBLE* pdblVal;
                VARIANT_BOOL* pboolVal;
                SCODE* pscode;
                CY* pcyVal;
                DATE* pdate;
                BSTR* pbstrVal;
                IUnknown** ppunkVal;
                IDispatch** ppdispVal;
                SAFEARRAY** pparray;
                VARIANT* pvarVal;
                PVOID byref;
                CHAR cVal;
                USHORT uiVal;
                ULONG ulVal;
                ULONGLONG ullVal;
                INT intVal;
                UINT uintVal;
                DECIMAL* pdecVal;
                CHAR* pcVal;
                USHORT* puiVal;
                ULONG* pulVal;
                ULONGLONG* pullVal;
                INT* pintVal;
                UINT* puintVal;
                __extension__ struct
                {
                    PVOID pvRecord;
                    IRecordInfo* pRecInfo;
                };
            };
        };
        DECIMAL decVal;
    };
};

// clang-format off
#define V_UNION(variant, member) ((variant)->member)
#define V_VT(variant)         ((variant)->vt)
#define V_ISBYREF(variant)    (V_VT(variant) & VT_BYREF)
#define V_ISARRAY(variant)    (V_VT(variant) & VT_ARRAY)
#define V_ISVECTOR(variant)   (V_VT(variant) & VT_VECTOR)
#define V_I1(variant)         V_UNION(variant, cVal)
#define V_I1REF(variant)      V_UNION(variant, pcVal)
#define V_UI1(variant)        V_UNION(variant, bVal)
#define V_UI1REF(variant)     V_UNION(variant, pbVal)
#define V_I2(variant)         V_UNION(variant, iVal)
#define V_I2REF(variant)      V_UNION(variant, piVal)
#define V_UI2(variant)        V_UNION(variant, uiVal)
#define V_UI2REF(variant)     V_UNION(variant, puiVal)
#define V_I4(variant)         V_UNION(variant, lVal)
#define V_I4REF(variant)      V_UNION(variant, plVal)
#define V_UI4(variant)        V_UNION(variant, ulVal)
#define V_UI4REF(variant)     V_UNION(variant, pulVal)
#define V_I8(variant)         V_UNION(variant, llVal)
#define V_I8REF(variant)      V_UNION(variant, pllVal)
#define V_UI8(variant)        V_UNION(variant, ullVal)
#define V_UI8REF(variant)     V_UNION(variant, pullVal)
#define V_INT(variant)        V_UNION(variant, intVal)
#define V_INTREF(variant)     V_UNION(variant, pintVal)
#define V_UINT(variant)       V_UNION(variant, uintVal)
#define V_UINTREF(variant)    V_UNION(variant, puintVal)
#define V_R4(variant)         V_UNION(variant, fltVal)
#define V_R4REF(variant)      V_UNION(variant, pfltVal)
#define V_R8(variant)         V_UNION(variant, dblVal)
#define V_R8REF(variant)      V_UNION(variant, pdblVal)
#define V_CY(variant)         V_UNION(variant, cyVal)
#define V_CYREF(variant)      V_UNION(variant, pcyVal)
#define V_DATE(variant)       V_UNION(variant, date)
#define V_DATEREF(variant)    V_UNION(variant, pdate)
#define V_BSTR(variant)       V_UNION(variant, bstrVal)
#define V_BSTRREF(variant)    V_UNION(variant, pbstrVal)
#define V_BOOL(variant)       V_UNION(variant, boolVal)
#define V_BOOLREF(variant)    V_UNION(variant, pboolVal)
#define V_ERROR(variant)      V_UNION(variant, scode)
#define V_ERRORREF(variant)   V_UNION(variant, pscode)
#define V_UNKNOWN(variant)    V_UNION(variant, punkVal)
#define V_UNKNOWNREF(variant) V_UNION(variant, ppunkVal)
#define V_DISPATCH(variant)   V_UNION(variant, pdispVal)
#define V_DISPATCHREF(variant) V_UNION(variant, ppdispVal)
#define V_VARIANTREF(variant) V_UNION(variant, pvarVal)
#define V_DECIMAL(variant)    V_UNION(variant, decVal)
#define V_DECIMALREF(variant) V_UNION(variant, pdecVal)
#define V_ARRAY(variant)      V_UNION(variant, parray)
#define V_ARRAYREF(variant)   V_UNION(variant, pparray)
#define V_BYREF(variant)      V_UNION(variant, byref)
// clang-format on

// clang-format off
#ifdef __cplusplus
extern "C" {
#endif

// Values

/// Makes an empty value of whatever `value` holds, without freeing it.
VETOOLS_API void VariantInit(VARIANTARG* value);
/// Frees what a value owns (a text, an array, a reference to an object) and makes it empty. DISP_E_BADVARTYPE for a type
/// that no value has, DISP_E_ARRAYISLOCKED for an array in use; the value is left alone then.
VETOOLS_API HRESULT VariantClear(VARIANTARG* value);
/// Clears the destination and copies the source with all it owns; what it refers to by VT_BYREF is not copied. Copying
/// to itself does nothing. The results of VariantClear, and E_OUTOFMEMORY.
VETOOLS_API HRESULT VariantCopy(VARIANTARG* destination, const VARIANTARG* source);
/// The same, where a source with VT_BYREF gives the value that it refers to, through two references at most.
/// E_INVALIDARG for a reference to a reference beyond that, or to nothing.
VETOOLS_API HRESULT VariantCopyInd(VARIANT* destination, const VARIANTARG* source);

// Conversion

#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02
#define VARIANT_NOUSEROVERRIDE 0x04
#define VARIANT_LOCALBOOL 0x10

/// Converts a value to another type, in place when both are the same VARIANT; the destination is cleared first.
///
/// flags   VARIANT_ALPHABOOL and VARIANT_LOCALBOOL write a Boolean as True and False instead of -1 and 0
/// type    a number, VT_BOOL, VT_CY, VT_DATE, VT_DECIMAL, VT_BSTR, VT_ERROR, VT_UNKNOWN, VT_DISPATCH, or that of an array
///
/// A number becomes the nearest integer, halves the even one. A text is a number in the notation of the United States
/// ("(1,234.50)" is -1234.5, "&HFF" is 255), a Boolean or a date ("1/18/2021 2:05:09 PM"), whatever the user's language.
/// A number becomes a text of 15 digits, of 7 for VT_R4. An array of bytes, VT_ARRAY | VT_UI1, becomes the text that they
/// are in UTF-16, the lower byte first, and a text becomes such an array.
/// DISP_E_TYPEMISMATCH for what does not convert, DISP_E_OVERFLOW for what does not fit, DISP_E_BADVARTYPE for a type
/// that no value has, E_INVALIDARG for null. The destination keeps what it held then.
VETOOLS_API HRESULT VariantChangeType(VARIANTARG* destination, const VARIANTARG* source, USHORT flags, VARTYPE type);
/// The same. The locale is not read: it is that of the United States.
VETOOLS_API HRESULT VariantChangeTypeEx(VARIANTARG* destination, const VARIANTARG* source, LCID locale, USHORT flags,
                                        VARTYPE type);

/// A calendar date as a number of days, and back, from the year 100 to 9999; milliseconds are not regarded. 1 for
/// success, 0 for a date that does not exist, which leaves the output alone.
VETOOLS_API INT SystemTimeToVariantTime(LPSYSTEMTIME systemTime, DOUBLE* variantTime);
VETOOLS_API INT VariantTimeToSystemTime(DOUBLE variantTime, LPSYSTEMTIME systemTime);

// Arrays

/// An array of one of the types that a VARIANT holds, with all elements zero; `bounds` has one entry per dimension, the
/// first dimension first. Freed with SafeArrayDestroy. Null for a type that has no arrays, for no dimensions and when
/// there is no memory for it.
VETOOLS_API SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
/// One dimension, from `lowerBound`.
VETOOLS_API SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG elements);
/// Frees an array with what its elements own. DISP_E_ARRAYISLOCKED for one in use; null is freed already.
VETOOLS_API HRESULT SafeArrayDestroy(SAFEARRAY* array);
/// A copy with copies of what the elements own, not locked. A null array gives null.
VETOOLS_API HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);

/// An array is not freed while it is locked. E_UNEXPECTED for a lock too many or too few, E_INVALIDARG for null.
VETOOLS_API HRESULT SafeArrayLock(SAFEARRAY* array);
VETOOLS_API HRESULT SafeArrayUnlock(SAFEARRAY* array);
/// Locks an array and gives its elements, the first dimension running fastest.
VETOOLS_API HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
VETOOLS_API HRESULT SafeArrayUnaccessData(SAFEARRAY* array);

/// The number of dimensions, and the size of an element in bytes; 0 for null.
VETOOLS_API UINT SafeArrayGetDim(SAFEARRAY* array);
VETOOLS_API UINT SafeArrayGetElemsize(SAFEARRAY* array);
/// The first and the last index of a dimension, counted from 1. E_INVALIDARG for null, DISP_E_BADINDEX for a dimension
/// that the array does not have.
VETOOLS_API HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
VETOOLS_API HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
/// The type of the elements. E_INVALIDARG for null, or for an array that does not know.
VETOOLS_API HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);

#ifdef __cplusplus
}
#endif
// clang-format on

#ifdef __cplusplus

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

struct IDispatch : public IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, OLECHAR** names, UINT count, LCID locale,
                                                    DISPID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                             DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                             UINT* badArgument) = 0;
};

#pragma GCC diagnostic pop

#else

typedef struct IDispatchVtbl
{
    HRESULT (*QueryInterface)(IDispatch* This, REFIID iid, void** object);
    ULONG (*AddRef)(IDispatch* This);
    ULONG (*Release)(IDispatch* This);
    HRESULT (*GetTypeInfoCount)(IDispatch* This, UINT* count);
    HRESULT (*GetTypeInfo)(IDispatch* This, UINT index, LCID locale, ITypeInfo** info);
    HRESULT (*GetIDsOfNames)(IDispatch* This, REFIID reserved, OLECHAR** names, UINT count, LCID locale, DISPID* ids);
    HRESULT(*Invoke)
    (IDispatch* This, DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
     EXCEPINFO* exception, UINT* badArgument);
} IDispatchVtbl;
struct IDispatch
{
    CONST_VTBL IDispatchVtbl* lpVtbl;
};

#endif

DEFINE_GUID(IID_NULL, 0x00000000, 0x0000, 0x0000, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00);
DEFINE_GUID(IID_IDispatch, 0x00020400, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);
