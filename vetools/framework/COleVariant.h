#pragma once

#include "vetools/framework/COleCurrency.h"
#include "vetools/framework/COleDateTime.h"
#include "vetools/framework/COleException.h"
#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

using LPCVARIANT = const VARIANT*;

/// A VARIANT that owns its value: copied with it, freed with it. It is a VARIANT, with no further members, and stands
/// wherever one is asked for; its own members may be set directly.
///
/// What the system refuses is thrown: a CMemoryException* when memory is exhausted, otherwise a COleException* whose
/// m_sc is the system's code. The value is then what it was before. The destructor throws nothing.
class VETOOLS_API COleVariant : public VARIANT
{
public:
    /// VT_EMPTY.
    COleVariant() noexcept;
    /// A copy of the value with what it owns: texts, arrays, references. A null pointer gives VT_EMPTY.
    COleVariant(const VARIANT& value);
    COleVariant(LPCVARIANT value);
    COleVariant(const COleVariant& value);
    /// VT_BSTR. A null text gives the null BSTR, which reads as the empty text.
    COleVariant(const wchar_t* text);
    /// The same; `type` must be VT_BSTR, or a CInvalidArgException* is thrown.
    COleVariant(const wchar_t* text, VARTYPE type);
    COleVariant(const CString& text);
    /// VT_UI1.
    COleVariant(BYTE number) noexcept;
    /// `type` is VT_I2 or VT_BOOL; anything else throws a CInvalidArgException*. As VT_BOOL every number but 0 is
    /// VARIANT_TRUE.
    COleVariant(short number, VARTYPE type = VT_I2);
    /// `type` is VT_I4, VT_ERROR or VT_BOOL; anything else throws a CInvalidArgException*. A long beyond 32 bits, which
    /// only Linux has, counts as the nearest number that fits.
    COleVariant(int number, VARTYPE type = VT_I4);
    COleVariant(long number, VARTYPE type = VT_I4);
    /// VT_I8, VT_UI8, VT_R4, VT_R8.
    COleVariant(long long number) noexcept;
    COleVariant(unsigned long long number) noexcept;
    COleVariant(float number) noexcept;
    COleVariant(double number) noexcept;
    /// VT_CY, VT_DATE; the status is lost.
    COleVariant(const COleCurrency& amount) noexcept;
    COleVariant(const COleDateTime& date) noexcept;
    /// A bool would become a number; write COleVariant(VARIANT_TRUE, VT_BOOL).
    COleVariant(bool) = delete;
    ~COleVariant();

    COleVariant& operator=(const VARIANT& value);
    COleVariant& operator=(LPCVARIANT value);
    COleVariant& operator=(const COleVariant& value);
    /// Any of the plain values that a constructor takes.
    template <class Plain>
    COleVariant& operator=(const Plain& plain)
    {
        COleVariant value(plain);
        Attach(value);
        return *this;
    }

    /// Frees the value; VT_EMPTY afterwards. Throws for an array that somebody has locked, and for a type that no value has.
    void Clear();

    /// Converts `source`, or with null this value itself, to `type`: in the language of the user on Windows, in that of the
    /// United States elsewhere. Throws DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW and the like; this value stays then.
    void ChangeType(VARTYPE type, LPVARIANT source = nullptr);

    /// Frees the value and takes over another one, which is VT_EMPTY afterwards.
    void Attach(VARIANT& value);
    /// Hands the value over to the caller, who frees it with VariantClear; VT_EMPTY afterwards.
    VARIANT Detach() noexcept;

    /// VT_BSTR, or a CInvalidArgException* is thrown.
    void SetString(const wchar_t* text, VARTYPE type);

    /// Whether type and value are equal: texts by their characters, arrays by bounds and bytes (VT_UI1) or by their
    /// address, objects and references by their address. 1 as VT_I2 differs from 1 as VT_I4.
    bool operator==(const VARIANT& other) const;
    bool operator==(const COleVariant& other) const;
    bool operator==(LPCVARIANT other) const;

    operator LPVARIANT() noexcept { return this; }
    operator LPCVARIANT() const noexcept { return this; }
};
