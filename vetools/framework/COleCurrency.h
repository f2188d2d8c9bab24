#pragma once

#include <compare>

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// An amount of money to four decimals, from -922337203685477.5808 to 922337203685477.5807, and whether it is one.
class VETOOLS_API COleCurrency
{
public:
    enum CurrencyStatus
    {
        valid = 0,
        invalid = 1,  ///< came from a value that is no amount, or lies out of range
        null = 2,     ///< no value, as in a database
    };

    /// 0, valid.
    COleCurrency() noexcept;
    COleCurrency(CURRENCY amount) noexcept;
    /// What the system makes of the value as VT_CY; 0 and invalid when it makes nothing of it.
    COleCurrency(const VARIANT& value);
    /// COleCurrency(12, 3400) is 12.34.
    COleCurrency(long units, long fractionalUnits) noexcept;

    COleCurrency& operator=(CURRENCY amount) noexcept;
    COleCurrency& operator=(const VARIANT& value);

    CurrencyStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(CurrencyStatus status) noexcept { m_status = status; }

    /// Whole units and ten-thousandths of a unit, which are added, each with its sign: (1, -5000) is 0.5. Both count as
    /// the nearest number of 32 bits. The status becomes valid.
    void SetCurrency(long units, long fractionalUnits) noexcept;

    operator CURRENCY() const noexcept { return m_cur; }

    /// Two values are equal when status and amount are.
    bool operator==(const COleCurrency& other) const noexcept;
    /// The order of the amounts, for valid values.
    std::strong_ordering operator<=>(const COleCurrency& other) const noexcept;

    /// The amount as the system writes it in the language `locale`: 12.34, with no more decimals than it needs and no
    /// symbol. An empty text for null, "Invalid Currency" for an invalid value.
    ///
    /// flags   0, or LOCALE_NOUSEROVERRIDE for the settings of the language rather than those of the user
    /// locale  read on Windows; elsewhere the text is that of the United States
    CString Format(DWORD flags = 0, LCID locale = LOCALE_USER_DEFAULT) const;

    CURRENCY m_cur;  ///< in ten-thousandths
    CurrencyStatus m_status;
};
