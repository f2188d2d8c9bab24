#pragma once

#include "vetools/framework/CDBVariant.h"
#include "vetools/framework/COleVariant.h"
#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

// VARIANTs of OLE Automation from and to numbers, texts and bytes. Nothing here throws on account of a value: what does
// not convert gives 0, 0.0, false, null or an empty text, and so does a null pointer.

/// Stores `size` bytes in *value as an array of them: VT_ARRAY | VT_UI1, one dimension from 0. Returns 1.
/// Returns 0, and leaves *value, when `value` is null, when `data` is null although `size` is not 0, or when there is no
/// memory for such an array.
/// Kept: what *value held is overwritten, not freed. Clear it before, unless it owns nothing; it need not be initialised.
VETOOLS_API int PutBinaryIntoVariant(VARIANT* value, BYTE* data, unsigned long size);

/// Copies the bytes of a VT_ARRAY | VT_UI1 into new memory, which *out receives and the caller frees with delete[], and returns
/// their number: that of the elements of the first dimension, whatever its lower bound. An array of no elements gives memory
/// of size 0 and returns 0.
/// Returns 0, and leaves *out, for any other type, a null array or pointer, and when there is no memory. The array may be locked.
VETOOLS_API unsigned long GetBinaryFromVariant(BYTE** out, const VARIANT* value);

/// The value as a whole number of 32 bits, whatever the size of a long.
///
/// VT_I2, VT_I4, VT_INT, VT_UI1, VT_UI2    the value
/// VT_UI4, VT_UINT                         its 32 bits: 4294967295 gives -1
/// VT_R4, VT_R8                            cut towards zero: -2.7 gives -2; the nearest number beyond the range, 0 for no number
/// any other type                          0 when the system cannot convert it to VT_I4
///
/// Kept: where the system can convert any other type, the result is not what it converts to, but the first 32 bits of the
/// VARIANT's own value field: for a VT_BSTR "12" the lower half of the text's address.
VETOOLS_API long VariantToLong(const VARIANT* value);
/// The same.
VETOOLS_API int VariantToInt(const VARIANT* value);

/// The value of a VT_I2, VT_I4, VT_INT, VT_R4, VT_R8, VT_UI1, VT_UI2, VT_UI4 or VT_UINT. For any other type 0.0 when the system
/// cannot convert it to VT_R8.
/// Kept: where it can, the 64 bits of the VARIANT's own value field read as a double, as for VariantToLong.
VETOOLS_API double VariantToDouble(const VARIANT* value);

/// For VT_BOOL whether the value is VARIANT_TRUE, all 16 bits set; for other types whether VariantToLong is not 0.
/// Kept: a VT_BOOL of 1 is false.
VETOOLS_API bool VariantToBool(const VARIANT* value);

/// The text of a VT_BSTR, which stays the VARIANT's and may be null. For other types null, or with `convert` what the system
/// makes of them as VT_BSTR, null when it cannot: 0.5 gives 0.5, VARIANT_TRUE gives -1.
/// Kept: a converted text is never released here. It is a BSTR, and the caller's: SysFreeString(const_cast<BSTR>(text)) frees it.
/// VariantToString gives the same text and leaves nothing behind.
VETOOLS_API const wchar_t* VariantToLPCSTR(const VARIANT* value, bool convert);

/// The text of VariantToLPCSTR up to its first null character; empty where that is null.
VETOOLS_API CString VariantToString(const VARIANT* value, bool convert);

/// A value for the eyes of a developer.
///
/// VT_EMPTY, VT_NULL    NULL                         VT_BOOL    TRUE, or FALSE for 0
/// VT_I2, VT_I4         42                           VT_UI1     0x2A
/// VT_R4, VT_R8         4.200000e+01                 VT_CY      42.5, as COleCurrency::Format(0, 0x400) writes it
/// VT_BSTR              the text up to its first null character
/// VT_DATE              01 18 21, as COleDateTime::Format(L"%m %d %y") writes it
/// 9, 10, 12, 13, 16, 18 to 31, 64 to 72    the name of the type: VT_UI4
/// arrays               Array of VT_I4; with VT_BYREF as well Array of Pointer to VT_I4
///
/// Kept: any other type reads Fish, so VT_DECIMAL does. A reference that is no array reads FishPointer to VT_I4.
VETOOLS_API CString VariantToString(const COleVariant& value);

/// 0.0 for DBVT_NULL and a null pointer, else m_dblVal.
/// Kept: whatever the type is: a DBVT_LONG of 1 gives what its bits mean as a double.
VETOOLS_API double DBVariantToR8(CDBVariant* value);
