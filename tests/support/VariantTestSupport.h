#pragma once

#include <algorithm>
#include <vector>

#include "vetools/framework/COleVariant.h"

/// An array of those bytes as a value: VT_ARRAY | VT_UI1.
inline COleVariant ByteArrayValue(const std::vector<BYTE>& bytes, LONG lowerBound = 0)
{
    COleVariant value;
    value.parray = ::SafeArrayCreateVector(VT_UI1, lowerBound, static_cast<ULONG>(bytes.size()));
    value.vt = VT_ARRAY | VT_UI1;
    std::copy(bytes.begin(), bytes.end(), static_cast<BYTE*>(value.parray->pvData));
    return value;
}

/// A value of that type whose value field holds those bits.
inline COleVariant ValueOfType(int type, LONGLONG bits = 0)
{
    COleVariant value;
    value.llVal = bits;
    value.vt = static_cast<VARTYPE>(type);
    return value;
}
