#include "vetools/framework/COleCurrency.h"

#include <algorithm>
#include <limits>

#include "vetools/platform/VariantConversion.h"

namespace
{

constexpr LONGLONG c_fractionsPerUnit = 10000;

/// A long has the range of 32 bits on both builds.
LONGLONG InLongRange(long number) noexcept
{
    return std::clamp<LONGLONG>(number, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max());
}

/// LOCALE_NOUSEROVERRIDE of the flags that write a locale's texts, as the conversions of values spell it.
USHORT ConversionFlags(DWORD flags) noexcept
{
    constexpr DWORD noUserOverride = 0x80000000;
    return (flags & noUserOverride) != 0 ? VARIANT_NOUSEROVERRIDE : 0;
}

}  // namespace

COleCurrency::COleCurrency() noexcept
    : m_cur{}
    , m_status(valid)
{
}

COleCurrency::COleCurrency(CURRENCY amount) noexcept
    : m_cur(amount)
    , m_status(valid)
{
}

COleCurrency::COleCurrency(const VARIANT& value)
{
    *this = value;
}

COleCurrency::COleCurrency(long units, long fractionalUnits) noexcept
{
    SetCurrency(units, fractionalUnits);
}

COleCurrency& COleCurrency::operator=(CURRENCY amount) noexcept
{
    m_cur = amount;
    m_status = valid;
    return *this;
}

COleCurrency& COleCurrency::operator=(const VARIANT& value)
{
    VARIANT converted;
    ::VariantInit(&converted);
    m_status = SUCCEEDED(ConvertVariant(converted, value, VT_CY)) ? valid : invalid;
    m_cur = m_status == valid ? converted.cyVal : CURRENCY{};
    return *this;
}

void COleCurrency::SetCurrency(long units, long fractionalUnits) noexcept
{
    m_cur.int64 = InLongRange(units) * c_fractionsPerUnit + InLongRange(fractionalUnits);
    m_status = valid;
}

bool COleCurrency::operator==(const COleCurrency& other) const noexcept
{
    return m_status == other.m_status && m_cur.int64 == other.m_cur.int64;
}

std::strong_ordering COleCurrency::operator<=>(const COleCurrency& other) const noexcept
{
    return m_cur.int64 <=> other.m_cur.int64;
}

CString COleCurrency::Format(DWORD flags, LCID locale) const
{
    if (m_status == null)
        return CString();
    if (m_status == invalid)
        return L"Invalid Currency";
    VARIANT amount;
    ::VariantInit(&amount);
    amount.vt = VT_CY;
    amount.cyVal = m_cur;
    if (FAILED(::VariantChangeTypeEx(&amount, &amount, locale, ConversionFlags(flags), VT_BSTR)))
        return CString();
    CString text(amount.bstrVal);
    ::VariantClear(&amount);
    return text;
}
