#include "vetools/util/VeVariant.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include "vetools/framework/SafeArrayBytes.h"
#include "vetools/framework/SaturatingInt.h"
#include "vetools/util/VariantTypeNames.h"
#include "vetools/util/VeString.h"

namespace
{

constexpr VARTYPE c_byteArray = VT_ARRAY | VT_UI1;
constexpr VARTYPE c_typeFlags = VT_ARRAY | VT_BYREF;
constexpr LCID c_userLocale = 0x400;
constexpr const wchar_t* c_otherTypeText = L"Fish";

/// What the system makes of a value as another type; VT_EMPTY when it cannot convert it.
COleVariant ConvertedTo(VARTYPE type, const VARIANT& value)
{
    COleVariant converted;
    try
    {
        converted.ChangeType(type, const_cast<VARIANT*>(&value));
    }
    catch (CException* exception)
    {
        exception->Delete();
    }
    return converted;
}

/// The first bits of the value field, whatever it holds; all bits 0 when the system cannot convert the value.
template <class Number>
Number OwnBits(const VARIANT& value, VARTYPE convertibleTo)
{
    Number bits = 0;
    if (ConvertedTo(convertibleTo, value).vt == convertibleTo)
        std::memcpy(&bits, &value.llVal, sizeof bits);
    return bits;
}

ULONG FirstDimension(SAFEARRAY* array)
{
    // The bounds of the last dimension stand first.
    const UINT dimensions = ::SafeArrayGetDim(array);
    return dimensions > 0 ? array->rgsabound[dimensions - 1].cElements : 0;
}

/// The text of a value whose type has no flags.
CString ValueText(const VARIANT& value)
{
    const VariantTypeRow* const row = FindVariantType(value.vt);
    if (row == nullptr)
        return c_otherTypeText;  // Kept: VT_DECIMAL and what else has no row
    CString text;
    switch (row->text)
    {
    case VariantText::Null:
        return L"NULL";
    case VariantText::Short:
        text.Format(L"%hd", value.iVal);
        return text;
    case VariantText::Long:
        text.Format(L"%d", static_cast<int>(value.lVal));
        return text;
    case VariantText::Single:
        text.Format(L"%e", static_cast<double>(value.fltVal));
        return text;
    case VariantText::Double:
        text.Format(L"%e", value.dblVal);
        return text;
    case VariantText::Currency:
        return COleCurrency(value.cyVal).Format(0, c_userLocale);
    case VariantText::Date:
        return COleDateTime(value.date).Format(L"%m %d %y");
    case VariantText::String:
        return CString(value.bstrVal);
    case VariantText::Boolean:
        return BoolToString(value.boolVal);
    case VariantText::Byte:
        text.Format(L"0x%02hX", value.bVal);
        return text;
    case VariantText::TypeName:
        break;
    }
    return row->name;
}

}  // namespace

int PutBinaryIntoVariant(VARIANT* value, BYTE* data, unsigned long size)
{
    if (value == nullptr || (data == nullptr && size > 0) || size > std::numeric_limits<ULONG>::max())
        return 0;
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(size));
    if (array == nullptr)
        return 0;
    {
        const SafeArrayBytes target(array);
        std::copy_n(data, target.Bytes().size(), target.Bytes().data());
    }
    ::VariantInit(value);  // Kept: what it held is not freed
    value->vt = c_byteArray;
    value->parray = array;
    return 1;
}

unsigned long GetBinaryFromVariant(BYTE** out, const VARIANT* value)
{
    if (out == nullptr || value == nullptr || value->vt != c_byteArray)
        return 0;
    const SafeArrayBytes source(value->parray);
    if (!source.IsLocked())
        return 0;
    const ULONG size = FirstDimension(value->parray);
    if (size > source.Bytes().size())  // another dimension has no elements
        return 0;
    auto* const bytes = new (std::nothrow) BYTE[size];
    if (bytes == nullptr)
        return 0;
    std::copy_n(source.Bytes().data(), size, bytes);
    *out = bytes;
    return size;
}

long VariantToLong(const VARIANT* value)
{
    if (value == nullptr)
        return 0;
    switch (value->vt)
    {
    case VT_I2:
        return value->iVal;
    case VT_I4:
    case VT_INT:
    case VT_UI4:
    case VT_UINT:
        return value->lVal;
    case VT_R4:
        return TruncateToInt(value->fltVal);
    case VT_R8:
        return TruncateToInt(value->dblVal);
    case VT_UI1:
        return value->bVal;
    case VT_UI2:
        return value->uiVal;
    default:
        return OwnBits<LONG>(*value, VT_I4);  // Kept: not the converted value
    }
}

int VariantToInt(const VARIANT* value)
{
    return static_cast<int>(VariantToLong(value));
}

double VariantToDouble(const VARIANT* value)
{
    if (value == nullptr)
        return 0.0;
    switch (value->vt)
    {
    case VT_I2:
        return value->iVal;
    case VT_I4:
    case VT_INT:
        return value->lVal;
    case VT_R4:
        return value->fltVal;
    case VT_R8:
        return value->dblVal;
    case VT_UI1:
        return value->bVal;
    case VT_UI2:
        return value->uiVal;
    case VT_UI4:
    case VT_UINT:
        return value->ulVal;
    default:
        return OwnBits<double>(*value, VT_R8);  // Kept: not the converted value
    }
}

bool VariantToBool(const VARIANT* value)
{
    if (value == nullptr)
        return false;
    if (value->vt == VT_BOOL)
        return value->boolVal == VARIANT_TRUE;  // Kept: 1 is false
    return VariantToLong(value) != 0;
}

const wchar_t* VariantToLPCSTR(const VARIANT* value, bool convert)
{
    if (value == nullptr)
        return nullptr;
    if (value->vt == VT_BSTR)
        return value->bstrVal;
    return convert ? ConvertedTo(VT_BSTR, *value).Detach().bstrVal : nullptr;  // Kept: nobody frees it here
}

CString VariantToString(const VARIANT* value, bool convert)
{
    if (value == nullptr)
        return CString();
    if (value->vt == VT_BSTR)
        return CString(value->bstrVal);
    return convert ? CString(ConvertedTo(VT_BSTR, *value).bstrVal) : CString();
}

CString VariantToString(const COleVariant& value)
{
    if ((value.vt & c_typeFlags) == 0)
        return ValueText(value);
    CString text = (value.vt & VT_ARRAY) != 0 ? L"Array of " : c_otherTypeText;  // Kept: FishPointer to VT_I4
    if ((value.vt & VT_BYREF) != 0)
        text += L"Pointer to ";
    if (const VariantTypeRow* const row = FindVariantType(value.vt & ~c_typeFlags))
        text += row->name;
    return text;
}

double DBVariantToR8(CDBVariant* value)
{
    if (value == nullptr || value->m_dwType == DBVT_NULL)
        return 0.0;
    return value->m_dblVal;  // Kept: whatever the type
}
