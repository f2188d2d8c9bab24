#include "vetools/platform/VariantConversion.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace
{

/// The value that a reference refers to, once; the value itself for any other. Null for a reference to nowhere.
const VARIANT* Referenced(const VARIANT& value)
{
    if (value.vt != (VT_BYREF | VT_VARIANT))
        return &value;
    return value.pvarVal;
}

/// The text of a VT_BSTR, or of a reference to one; nothing for any other value.
std::wstring_view TextIn(const VARIANT& value)
{
    BSTR text = nullptr;
    if (value.vt == VT_BSTR)
        text = value.bstrVal;
    else if (value.vt == (VT_BYREF | VT_BSTR))
        text = *value.pbstrVal;
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

/// Whether a text is read as a number for that type.
bool IsNumber(VARTYPE type)
{
    return type != VT_BSTR && type != VT_DATE && (type & VT_ARRAY) == 0;
}

/// The text with an exponent of nine digits, which no number has, in the place of a longer one; nothing when it has none.
std::optional<std::wstring> WithShortExponent(std::wstring_view text)
{
    constexpr std::wstring_view beyondAll = L"999999999";
    const std::size_t mark = text.find_first_of(L"eE");
    if (mark == std::wstring_view::npos || text.find(L'&') != std::wstring_view::npos)
        return std::nullopt;
    const std::size_t first = text.find_first_not_of(L",+-0", mark + 1);
    if (first == std::wstring_view::npos)
        return std::nullopt;
    const std::wstring_view rest = text.substr(first);
    const std::size_t length = std::min(rest.find_first_not_of(L"0123456789"), rest.size());
    if (length <= beyondAll.size())
        return std::nullopt;
    std::wstring shortened(text.substr(0, first));
    shortened += beyondAll;
    return shortened += rest.substr(length);
}

/// Whether a value is a DECIMAL, or a reference to one, that is no number: of more decimals than there are digits, say.
bool IsInvalidDecimal(const VARIANT& value)
{
    constexpr BYTE maxScale = 28;
    const bool isReference = value.vt == (VT_BYREF | VT_DECIMAL);
    if (value.vt != VT_DECIMAL && !isReference)
        return false;
    const DECIMAL& decimal = isReference ? *value.pdecVal : value.decVal;
    return decimal.scale > maxScale || (decimal.sign & ~DECIMAL_NEG) != 0;
}

HRESULT ConvertText(VARIANT& destination, const std::wstring& text, VARTYPE type)
{
    VARIANT value{};
    value.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (value.bstrVal == nullptr)
        return E_OUTOFMEMORY;
    value.vt = VT_BSTR;
    const HRESULT result = ::VariantChangeType(&destination, &value, 0, type);
    ::VariantClear(&value);
    return result;
}

}  // namespace

HRESULT ConvertVariant(VARIANT& destination, const VARIANT& source, VARTYPE type)
{
    const VARIANT* const value = Referenced(source);
    if (value == nullptr || ((value->vt & VT_BYREF) != 0 && value->byref == nullptr))
        return E_INVALIDARG;
    if (type == VT_BSTR && IsInvalidDecimal(*value))
        return E_INVALIDARG;
    if (IsNumber(type))
    {
        if (const std::optional<std::wstring> text = WithShortExponent(TextIn(*value)))
            return ConvertText(destination, *text, type);
    }
    return ::VariantChangeType(&destination, const_cast<VARIANT*>(&source), 0, type);
}
