#include "vetools/platform/posix/OleDate.h"
#include "vetools/platform/posix/VariantBytes.h"
#include "vetools/platform/posix/VariantContent.h"
#include "vetools/platform/posix/VariantNumber.h"
#include "vetools/platform/posix/VariantText.h"
#include "vetools/platform/posix/VariantTypes.h"

// Each conversion reads the number that the source stands for and writes it in the type that is wanted; only texts, dates,
// objects and arrays have ways of their own. A source is never a reference here, a result is made before the destination
// is touched, and is owned by whoever made it.

namespace
{

constexpr VARTYPE c_bytes = VT_ARRAY | VT_UI1;

bool IsObject(VARTYPE type)
{
    return type == VT_UNKNOWN || type == VT_DISPATCH;
}

/// The characters of a text up to its first terminator.
std::wstring_view CharactersOf(BSTR text)
{
    if (text == nullptr)
        return {};
    const std::wstring_view all(text, ::SysStringLen(text));
    return all.substr(0, all.find(L'\0'));
}

HRESULT ReadDecimal(const DECIMAL& decimal, Number& number)
{
    const std::optional<ScaledNumber> scaled = NumberOf(decimal);
    if (!scaled)
        return E_INVALIDARG;
    number = *scaled;
    return S_OK;
}

/// The number that a value other than a text stands for.
HRESULT ReadNumber(const VARIANT& source, Number& number)
{
    switch (source.vt)
    {
    case VT_EMPTY:
        number = ScaledNumber();
        return S_OK;
    case VT_I1:
        number = NumberOf(LONGLONG{static_cast<signed char>(source.cVal)});
        return S_OK;
    case VT_UI1:
        number = NumberOf(ULONGLONG{source.bVal});
        return S_OK;
    case VT_I2:
        number = NumberOf(LONGLONG{source.iVal});
        return S_OK;
    case VT_UI2:
        number = NumberOf(ULONGLONG{source.uiVal});
        return S_OK;
    case VT_I4:
    case VT_INT:
        number = NumberOf(LONGLONG{source.lVal});
        return S_OK;
    case VT_UI4:
    case VT_UINT:
        number = NumberOf(ULONGLONG{source.ulVal});
        return S_OK;
    case VT_I8:
        number = NumberOf(source.llVal);
        return S_OK;
    case VT_UI8:
        number = NumberOf(source.ullVal);
        return S_OK;
    case VT_CY:
        number = NumberOf(source.cyVal);
        return S_OK;
    case VT_R4:
        number = source.fltVal;
        return S_OK;
    case VT_R8:
    case VT_DATE:
        number = source.dblVal;
        return S_OK;
    case VT_BOOL:
        number = BooleanNumber{source.boolVal};
        return S_OK;
    case VT_DECIMAL:
        return ReadDecimal(source.decVal, number);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

HRESULT ReadText(BSTR text, Number& number)
{
    switch (ReadNumberText(CharactersOf(text), number))
    {
    case NumberTextError::None:
        return S_OK;
    case NumberTextError::TooLarge:
        return DISP_E_OVERFLOW;
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

/// A text that was made for the result; none where there was no memory for it.
HRESULT ResultText(BSTR text, VARIANT& result)
{
    if (text == nullptr)
        return E_OUTOFMEMORY;
    result.bstrVal = text;
    result.vt = VT_BSTR;
    return S_OK;
}

HRESULT MakeText(const wchar_t* text, const wchar_t* end, VARIANT& result)
{
    return ResultText(::SysAllocStringLen(text, static_cast<UINT>(end - text)), result);
}

HRESULT BooleanToText(VARIANT_BOOL value, USHORT flags, VARIANT& result)
{
    if ((flags & (VARIANT_ALPHABOOL | VARIANT_LOCALBOOL)) != 0)
    {
        const std::wstring_view word = value != VARIANT_FALSE ? L"True" : L"False";
        return MakeText(word.data(), word.data() + word.size(), result);
    }
    wchar_t text[c_maxNumberText];
    return MakeText(text, WriteNumberText(text, NumberOf(LONGLONG{value})), result);
}

HRESULT DateToText(DATE date, VARIANT& result)
{
    wchar_t text[c_maxDateText];
    const wchar_t* const end = WriteDateText(text, date);
    return end != nullptr ? MakeText(text, end, result) : E_INVALIDARG;
}

/// Bytes of one dimension as the text that they are on Windows.
HRESULT BytesToText(SAFEARRAY* bytes, VARIANT& result)
{
    if (bytes == nullptr || ::SafeArrayGetDim(bytes) != 1)
        return E_INVALIDARG;
    void* data = nullptr;
    const HRESULT access = ::SafeArrayAccessData(bytes, &data);
    if (FAILED(access))
        return access;
    BSTR const text = TextOfBytes(static_cast<const BYTE*>(data), bytes->rgsabound[0].cElements);
    ::SafeArrayUnaccessData(bytes);
    return ResultText(text, result);
}

HRESULT TextToBytes(BSTR text, VARIANT& result)
{
    result.parray = BytesOfText(text);
    if (result.parray == nullptr)
        return E_OUTOFMEMORY;
    result.vt = c_bytes;
    return S_OK;
}

HRESULT ToText(const VARIANT& source, USHORT flags, VARIANT& result)
{
    switch (source.vt)
    {
    case VT_BOOL:
        return BooleanToText(source.boolVal, flags, result);
    case VT_DATE:
        return DateToText(source.date, result);
    case c_bytes:
        return BytesToText(source.parray, result);
    case VT_EMPTY:
        return ResultText(::SysAllocStringLen(L"", 0), result);
    default:
        break;
    }

    Number number;
    const HRESULT read = ReadNumber(source, number);
    if (FAILED(read))
        return read;
    wchar_t text[c_maxNumberText];
    if (const auto* const scaled = std::get_if<ScaledNumber>(&number))
        return MakeText(text, WriteNumberText(text, *scaled), result);
    const auto* const narrow = std::get_if<float>(&number);
    return MakeText(text,
                    narrow != nullptr ? WriteNumberText(text, *narrow, c_floatDigits)
                                      : WriteNumberText(text, std::get<double>(number), c_doubleDigits),
                    result);
}

HRESULT MakeDate(DATE date, VARIANT& result)
{
    result.date = date;
    result.vt = VT_DATE;
    return S_OK;
}

HRESULT NumberToDate(const Number& number, VARIANT& result)
{
    const std::optional<double> date = DoubleOf(number);
    if (!date || (!IsDate(*date) && *date == *date))
        return DISP_E_OVERFLOW;
    return MakeDate(*date, result);
}

HRESULT TextToDate(BSTR text, VARIANT& result)
{
    const std::optional<DATE> date = ReadDateText(CharactersOf(text));
    return date ? MakeDate(*date, result) : DISP_E_TYPEMISMATCH;
}

HRESULT MakeBoolean(bool value, VARIANT& result)
{
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    result.vt = VT_BOOL;
    return S_OK;
}

HRESULT TextToNumber(BSTR text, VARTYPE type, VARIANT& result)
{
    if (type == VT_BOOL)
    {
        const std::optional<bool> word = ReadBooleanText(CharactersOf(text));
        if (word)
            return MakeBoolean(*word, result);
    }
    Number number;
    const HRESULT read = ReadText(text, number);
    return FAILED(read) ? read : WriteNumber(number, type, result);
}

/// A number or a date from anything that stands for one.
HRESULT ToNumber(const VARIANT& source, VARTYPE type, VARIANT& result)
{
    if (source.vt == VT_BSTR)
        return type == VT_DATE ? TextToDate(source.bstrVal, result) : TextToNumber(source.bstrVal, type, result);
    Number number;
    const HRESULT read = ReadNumber(source, number);
    if (FAILED(read))
        return read;
    return type == VT_DATE ? NumberToDate(number, result) : WriteNumber(number, type, result);
}

/// An object by its other interface.
HRESULT ToObject(const VARIANT& source, VARTYPE type, VARIANT& result)
{
    if (!IsObject(source.vt))
        return DISP_E_TYPEMISMATCH;
    void* other = nullptr;
    if (source.punkVal != nullptr)
    {
        const HRESULT found =
            source.punkVal->QueryInterface(type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown, &other);
        if (FAILED(found))
            return found;
    }
    result.punkVal = static_cast<IUnknown*>(other);
    result.vt = type;
    return S_OK;
}

HRESULT Converted(const VARIANT& source, LCID locale, USHORT flags, VARTYPE type, VARIANT& result);

/// The conversion of the value that an object gives of itself.
HRESULT FromObject(IDispatch* object, LCID locale, USHORT flags, VARTYPE type, VARIANT& result)
{
    if (object == nullptr)
        return DISP_E_BADVARTYPE;
    if ((flags & VARIANT_NOVALUEPROP) != 0)
        return DISP_E_TYPEMISMATCH;
    VARIANT value{};
    DISPPARAMS noArguments{};
    if (FAILED(object->Invoke(DISPID_VALUE, IID_NULL, locale, DISPATCH_PROPERTYGET, &noArguments, &value, nullptr,
                              nullptr)))
        return DISP_E_TYPEMISMATCH;
    // An object whose value is an object is not asked further.
    const std::optional<VARIANT> referenced = IsValueType(value.vt) ? Dereferenced(value) : std::nullopt;
    const HRESULT converted =
        referenced ? Converted(*referenced, locale, flags | VARIANT_NOVALUEPROP, type, result) : DISP_E_TYPEMISMATCH;
    ::VariantClear(&value);
    return converted;
}

/// Nothing and null of anything but null, errors and arrays.
HRESULT ToNothing(const VARIANT& source, USHORT flags, VARTYPE type, VARIANT& result)
{
    const bool keepsValue = source.vt == VT_DISPATCH && (flags & VARIANT_NOVALUEPROP) != 0;
    if (source.vt == VT_NULL || source.vt == VT_ERROR || (source.vt & VT_ARRAY) != 0 || keepsValue)
        return DISP_E_TYPEMISMATCH;
    result.vt = type;
    return S_OK;
}

/// Makes a result of its own from a value that is no reference.
HRESULT Converted(const VARIANT& source, LCID locale, USHORT flags, VARTYPE type, VARIANT& result)
{
    if (source.vt == VT_BSTR && type == VT_BSTR)
        return ResultText(CopyOf(source.bstrVal), result);
    if (source.vt == type && type != VT_VARIANT)
        return ::VariantCopy(&result, &source);
    if (AreIntegersOfOneWidth(source.vt, type))
    {
        result = source;
        result.vt = type;
        return S_OK;
    }
    switch (type)
    {
    case VT_EMPTY:
    case VT_NULL:
        return ToNothing(source, flags, type, result);
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return ToObject(source, type, result);
    case c_bytes:
        return source.vt == VT_BSTR ? TextToBytes(source.bstrVal, result) : DISP_E_TYPEMISMATCH;
    case VT_ERROR:
    case VT_VARIANT:
        return DISP_E_TYPEMISMATCH;
    default:
        break;
    }
    if ((type & VT_ARRAY) != 0)
        return DISP_E_TYPEMISMATCH;
    if (source.vt == VT_DISPATCH)
        return FromObject(source.pdispVal, locale, flags, type, result);
    return type == VT_BSTR ? ToText(source, flags, result) : ToNumber(source, type, result);
}

}  // namespace

HRESULT VariantChangeType(VARIANTARG* destination, const VARIANTARG* source, USHORT flags, VARTYPE type)
{
    constexpr LCID userDefault = 0x0400;
    return ::VariantChangeTypeEx(destination, source, userDefault, flags, type);
}

HRESULT VariantChangeTypeEx(VARIANTARG* destination, const VARIANTARG* source, LCID locale, USHORT flags, VARTYPE type)
{
    if (destination == nullptr || source == nullptr)
        return E_INVALIDARG;
    if (!IsValueType(source->vt) || !IsValueType(type))
        return DISP_E_BADVARTYPE;
    const std::optional<VARIANT> value = Dereferenced(*source);
    if (!value)
        return E_INVALIDARG;
    if ((type & VT_BYREF) != 0)
        return DISP_E_TYPEMISMATCH;

    VARIANT result{};
    const HRESULT converted = Converted(*value, locale, flags, type, result);
    return FAILED(converted) ? converted : HandOver(result, *destination);
}
