#pragma once

#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>

#include "vetools/platform/Platform.h"

// Values of OLE Automation without the framework: owned, made in a line, and shown as a test compares them.

/// A value that is cleared in the end.
class SystemValue
{
public:
    SystemValue() { ::VariantInit(&m_value); }
    /// Takes over what the value owns.
    explicit SystemValue(const VARIANT& value)
        : m_value(value)
    {
    }
    SystemValue(SystemValue&& other) noexcept
        : m_value(std::exchange(other.m_value, VARIANT()))
    {
    }
    SystemValue(const SystemValue&) = delete;
    SystemValue& operator=(const SystemValue&) = delete;
    ~SystemValue() { ::VariantClear(&m_value); }

    VARIANT* operator&() { return &m_value; }
    VARIANT* operator->() { return &m_value; }
    const VARIANT* operator->() const { return &m_value; }
    const VARIANT& operator*() const { return m_value; }

private:
    VARIANT m_value;
};

/// A source as the system's functions take it, which leave it alone without saying so.
inline VARIANT* Source(const VARIANT& value)
{
    return const_cast<VARIANT*>(&value);
}

/// A value of a type whose value field holds an integer; a part of it for narrower types.
inline VARIANT Integer(int type, LONGLONG bits)
{
    VARIANT value = VARIANT();
    value.vt = static_cast<VARTYPE>(type);
    value.llVal = bits;
    return value;
}

inline VARIANT Real(int type, double number)
{
    VARIANT value = Integer(type, 0);
    value.dblVal = number;
    return value;
}

inline VARIANT Float(float number)
{
    VARIANT value = Integer(VT_R4, 0);
    value.fltVal = number;
    return value;
}

inline VARIANT Decimal(ULONG high, ULONGLONG low, int scale, int sign)
{
    VARIANT value = VARIANT();
    value.decVal.Hi32 = high;
    value.decVal.Lo64 = low;
    value.decVal.scale = static_cast<BYTE>(scale);
    value.decVal.sign = static_cast<BYTE>(sign);
    value.vt = VT_DECIMAL;
    return value;
}

inline VARIANT Text(const std::wstring& text)
{
    VARIANT value = Integer(VT_BSTR, 0);
    value.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return value;
}

inline VARIANT ArrayValue(int elementType, SAFEARRAY* array)
{
    VARIANT value = Integer(elementType | VT_ARRAY, 0);
    value.parray = array;
    return value;
}

/// An array of those bytes.
inline VARIANT Bytes(const std::string& bytes)
{
    const VARIANT value = ArrayValue(VT_UI1, ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size())));
    bytes.copy(static_cast<char*>(value.parray->pvData), bytes.size());
    return value;
}

/// The bytes of an array of one dimension.
inline std::string BytesIn(const VARIANT& array)
{
    return {static_cast<const char*>(array.parray->pvData), array.parray->rgsabound[0].cElements};
}

inline VARIANT Reference(int type, void* place)
{
    VARIANT value = Integer(type | VT_BYREF, 0);
    value.byref = place;
    return value;
}

/// A result in a word: "over" for a number that does not fit, "type" for what does not convert, "bad" for a type that no
/// value has, "arg" for a bad argument, "locked".
inline std::string Shown(HRESULT result)
{
    switch (static_cast<ULONG>(result))
    {
    case static_cast<ULONG>(S_OK):
        return "ok";
    case static_cast<ULONG>(DISP_E_OVERFLOW):
        return "over";
    case static_cast<ULONG>(DISP_E_TYPEMISMATCH):
        return "type";
    case static_cast<ULONG>(DISP_E_BADVARTYPE):
        return "bad";
    case static_cast<ULONG>(DISP_E_ARRAYISLOCKED):
        return "locked";
    case static_cast<ULONG>(DISP_E_BADINDEX):
        return "index";
    case static_cast<ULONG>(E_INVALIDARG):
        return "arg";
    case static_cast<ULONG>(E_UNEXPECTED):
        return "unexpected";
    default:
        return std::to_string(result);
    }
}

/// The shortest of three precisions that is read back as the same number.
template <class Float>
std::string ShownFloat(Float number, int digits)
{
    if (std::isnan(number))
        return "NAN";
    if (std::isinf(number))
        return number < 0 ? "-INF" : "INF";
    char text[40];
    for (int precision = digits;; ++precision)
    {
        const auto end = std::to_chars(text, std::end(text), number, std::chars_format::general, precision).ptr;
        Float back = 0;
        std::from_chars(text, end, back);
        if (back == number || precision == digits + 2)
            return std::string(text, end);
    }
}

/// Digits times a power of ten: 15e-1.
inline std::string ShownDecimal(const DECIMAL& decimal)
{
    std::string digits;
    ULONG words[] = {decimal.Hi32, decimal.Mid32, decimal.Lo32};
    do
    {
        ULONGLONG rest = 0;
        for (ULONG& word : words)
        {
            rest = (rest << 32) | word;
            word = static_cast<ULONG>(rest / 10);
            rest %= 10;
        }
        digits.insert(digits.begin(), static_cast<char>('0' + rest));
    } while (words[0] != 0 || words[1] != 0 || words[2] != 0);
    return (decimal.sign != 0 ? "-" : "") + digits + (decimal.scale > 0 ? "e-" + std::to_string(decimal.scale) : "");
}

/// The characters of a text, those beyond ASCII as '?'.
inline std::string ShownText(BSTR text)
{
    std::string shown;
    for (UINT i = 0; i < ::SysStringLen(text); ++i)
        shown += text[i] >= 32 && text[i] < 127 ? static_cast<char>(text[i]) : '?';
    return shown;
}

inline std::string Shown(const VARIANT& value)
{
    switch (value.vt)
    {
    case VT_EMPTY:
        return "empty";
    case VT_NULL:
        return "null";
    case VT_I1:
        return std::to_string(static_cast<signed char>(value.cVal));
    case VT_UI1:
        return std::to_string(value.bVal);
    case VT_I2:
    case VT_BOOL:
        return std::to_string(value.iVal);
    case VT_UI2:
        return std::to_string(value.uiVal);
    case VT_I4:
    case VT_INT:
    case VT_ERROR:
        return std::to_string(value.lVal);
    case VT_UI4:
    case VT_UINT:
        return std::to_string(value.ulVal);
    case VT_I8:
    case VT_CY:
        return std::to_string(value.llVal);
    case VT_UI8:
        return std::to_string(value.ullVal);
    case VT_R4:
        return ShownFloat(value.fltVal, 7);
    case VT_R8:
    case VT_DATE:
        return ShownFloat(value.dblVal, 15);
    case VT_DECIMAL:
        return ShownDecimal(value.decVal);
    case VT_BSTR:
        return ShownText(value.bstrVal);
    default:
        return "type " + std::to_string(value.vt);
    }
}

/// What a conversion to a type gives: the value, or the result in a word. A failure must leave the destination alone.
inline std::string Converted(const VARIANT& source, int type, USHORT flags = 0)
{
    SystemValue destination(Integer(VT_I4, 77));
    const HRESULT result = ::VariantChangeType(&destination, Source(source), flags, static_cast<VARTYPE>(type));
    if (SUCCEEDED(result))
        return destination->vt == type ? Shown(*destination) : "a value of another type";
    return destination->vt == VT_I4 && destination->lVal == 77 ? Shown(result) : "the destination has changed";
}
