#include "vetools/framework/COleVariant.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "vetools/framework/SafeArrayBytes.h"
#include "vetools/platform/VariantConversion.h"

namespace
{

constexpr VARTYPE c_byteArray = VT_ARRAY | VT_UI1;

/// The functions of the system take sources that they do not change without saying so.
VARIANT* Source(const VARIANT& value)
{
    return const_cast<VARIANT*>(&value);
}

LONG ToLong(long number)
{
    return static_cast<LONG>(
        std::clamp<LONGLONG>(number, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()));
}

VARIANT_BOOL ToVariantBool(long number)
{
    return number != 0 ? VARIANT_TRUE : VARIANT_FALSE;
}

BSTR AllocateText(const wchar_t* text, UINT length)
{
    const BSTR allocated = ::SysAllocStringLen(text, length);
    if (allocated == nullptr)
        AfxThrowMemoryException();
    return allocated;
}

bool EqualTexts(BSTR left, BSTR right)
{
    const UINT size = ::SysStringByteLen(left);
    return size == ::SysStringByteLen(right) && (size == 0 || std::memcmp(left, right, size) == 0);
}

bool EqualBounds(const SAFEARRAY& left, const SAFEARRAY& right)
{
    const auto equal = [](const SAFEARRAYBOUND& a, const SAFEARRAYBOUND& b)
    {
        return a.cElements == b.cElements && a.lLbound == b.lLbound;
    };
    return left.cDims == right.cDims && left.cbElements == right.cbElements &&
           std::equal(left.rgsabound, left.rgsabound + left.cDims, right.rgsabound, equal);
}

bool EqualByteArrays(SAFEARRAY* left, SAFEARRAY* right)
{
    if (left == right)
        return true;
    if (left == nullptr || right == nullptr || !EqualBounds(*left, *right))
        return false;
    const SafeArrayBytes leftBytes(left);
    const SafeArrayBytes rightBytes(right);
    return leftBytes.IsLocked() && rightBytes.IsLocked() && std::ranges::equal(leftBytes.Bytes(), rightBytes.Bytes());
}

bool EqualDecimals(const DECIMAL& left, const DECIMAL& right)
{
    return left.signscale == right.signscale && left.Hi32 == right.Hi32 && left.Lo64 == right.Lo64;
}

/// Whether two values of one type are equal.
bool EqualValues(const VARIANT& left, const VARIANT& right)
{
    if ((left.vt & VT_BYREF) != 0)
        return left.byref == right.byref;
    if ((left.vt & VT_ARRAY) != 0)
        return left.vt == c_byteArray ? EqualByteArrays(left.parray, right.parray) : left.parray == right.parray;
    switch (left.vt)
    {
    case VT_EMPTY:
    case VT_NULL:
        return true;
    case VT_I1:
    case VT_UI1:
        return left.bVal == right.bVal;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return left.iVal == right.iVal;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
        return left.lVal == right.lVal;
    case VT_I8:
    case VT_UI8:
    case VT_CY:
        return left.llVal == right.llVal;
    case VT_R4:
        return left.fltVal == right.fltVal;
    case VT_R8:
    case VT_DATE:
        return left.dblVal == right.dblVal;
    case VT_BSTR:
        return EqualTexts(left.bstrVal, right.bstrVal);
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return left.punkVal == right.punkVal;
    case VT_DECIMAL:
        return EqualDecimals(left.decVal, right.decVal);
    default:
        return false;
    }
}

}  // namespace

COleVariant::COleVariant() noexcept
    : VARIANT()
{
}

COleVariant::COleVariant(const VARIANT& value)
    : COleVariant()
{
    AfxCheckError(::VariantCopy(this, Source(value)));
}

COleVariant::COleVariant(LPCVARIANT value)
    : COleVariant()
{
    if (value != nullptr)
        AfxCheckError(::VariantCopy(this, Source(*value)));
}

COleVariant::COleVariant(const COleVariant& value)
    : COleVariant(static_cast<const VARIANT&>(value))
{
}

COleVariant::COleVariant(const wchar_t* text)
    : COleVariant(text, VT_BSTR)
{
}

COleVariant::COleVariant(const wchar_t* text, VARTYPE type)
    : COleVariant()
{
    SetString(text, type);
}

COleVariant::COleVariant(const CString& text)
    : COleVariant()
{
    bstrVal = AllocateText(text.GetString(), static_cast<UINT>(text.GetLength()));
    vt = VT_BSTR;
}

COleVariant::COleVariant(BYTE number) noexcept
    : COleVariant()
{
    vt = VT_UI1;
    bVal = number;
}

COleVariant::COleVariant(short number, VARTYPE type)
    : COleVariant()
{
    if (type != VT_I2 && type != VT_BOOL)
        AfxThrowInvalidArgException();
    vt = type;
    iVal = type == VT_BOOL ? ToVariantBool(number) : number;
}

COleVariant::COleVariant(int number, VARTYPE type)
    : COleVariant(static_cast<long>(number), type)
{
}

COleVariant::COleVariant(long number, VARTYPE type)
    : COleVariant()
{
    if (type != VT_I4 && type != VT_ERROR && type != VT_BOOL)
        AfxThrowInvalidArgException();
    vt = type;
    if (type == VT_BOOL)
        boolVal = ToVariantBool(number);
    else
        lVal = ToLong(number);
}

COleVariant::COleVariant(long long number) noexcept
    : COleVariant()
{
    vt = VT_I8;
    llVal = number;
}

COleVariant::COleVariant(unsigned long long number) noexcept
    : COleVariant()
{
    vt = VT_UI8;
    ullVal = number;
}

COleVariant::COleVariant(float number) noexcept
    : COleVariant()
{
    vt = VT_R4;
    fltVal = number;
}

COleVariant::COleVariant(double number) noexcept
    : COleVariant()
{
    vt = VT_R8;
    dblVal = number;
}

COleVariant::COleVariant(const COleCurrency& amount) noexcept
    : COleVariant()
{
    vt = VT_CY;
    cyVal = amount.m_cur;
}

COleVariant::COleVariant(const COleDateTime& dateTime) noexcept
    : COleVariant()
{
    vt = VT_DATE;
    date = dateTime.m_dt;
}

COleVariant::~COleVariant()
{
    ::VariantClear(this);
}

COleVariant& COleVariant::operator=(const VARIANT& value)
{
    AfxCheckError(::VariantCopy(this, Source(value)));
    return *this;
}

COleVariant& COleVariant::operator=(LPCVARIANT value)
{
    if (value != nullptr)
        return *this = *value;
    Clear();
    return *this;
}

COleVariant& COleVariant::operator=(const COleVariant& value)
{
    return *this = static_cast<const VARIANT&>(value);
}

void COleVariant::Clear()
{
    AfxCheckError(::VariantClear(this));
}

void COleVariant::ChangeType(VARTYPE type, LPVARIANT source)
{
    const VARIANT* const from = source != nullptr ? source : this;
    if (from == this && type == vt)
        return;
    AfxCheckError(ConvertVariant(*this, *from, type));
}

void COleVariant::Attach(VARIANT& value)
{
    if (&value == this)
        return;
    Clear();
    static_cast<VARIANT&>(*this) = value;
    value.vt = VT_EMPTY;
}

VARIANT COleVariant::Detach() noexcept
{
    const VARIANT value = *this;
    vt = VT_EMPTY;
    return value;
}

void COleVariant::SetString(const wchar_t* text, VARTYPE type)
{
    if (type != VT_BSTR)
        AfxThrowInvalidArgException();
    VARIANT value = {};
    value.vt = VT_BSTR;
    if (text != nullptr)
    {
        value.bstrVal = ::SysAllocString(text);
        if (value.bstrVal == nullptr)
            AfxThrowMemoryException();
    }
    COleVariant owner;
    static_cast<VARIANT&>(owner) = value;
    Attach(owner);
}

bool COleVariant::operator==(const VARIANT& other) const
{
    return this == &other || (vt == other.vt && EqualValues(*this, other));
}

bool COleVariant::operator==(const COleVariant& other) const
{
    return *this == static_cast<const VARIANT&>(other);
}

bool COleVariant::operator==(LPCVARIANT other) const
{
    return other != nullptr && *this == *other;
}
