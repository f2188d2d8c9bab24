#pragma once

#include "vetools/platform/Platform.h"

class CVeUnit;

/// {891D99E0-4799-4752-B800-5430F2CF6DDF}
constexpr IID IID_IComUnit = {0x891D99E0, 0x4799, 0x4752, {0xB8, 0x00, 0x54, 0x30, 0xF2, 0xCF, 0x6D, 0xDF}};

// An interface has no virtual destructor: Release ends an object, and the order of the slots is fixed.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// A unit of measure as clients of the component object model see it, in slot order. ComUnit.idl publishes the same
/// interface to other languages, ComUnitC.h to C.
///
/// While a method runs, the library is the current resource module.
struct IComUnit : IUnknown
{
    /// Chooses the unit within the quantity, 0 to 12: symbol, title, coefficient, type and format follow, and the separator
    /// becomes the current one. A range that the quantity does not have is stored and changes only the separator. S_OK.
    virtual HRESULT STDMETHODCALLTYPE SetRange(unsigned int range) = 0;
    /// Sets the number of decimals, unchecked; nothing else changes. S_OK.
    virtual HRESULT STDMETHODCALLTYPE SetPrecision(unsigned int precision) = 0;
    /// Takes the first character of the text as the unit's decimal separator; "." stands for the current one. S_OK; E_FAIL,
    /// and nothing is changed, for an empty text or null.
    virtual HRESULT STDMETHODCALLTYPE SetSeparator(const wchar_t* separator) = 0;

    // The following give S_OK, or E_POINTER for null.

    virtual HRESULT STDMETHODCALLTYPE GetRange(unsigned int* range) = 0;
    /// Units of this unit per reference unit: 1000.0 for the millimetre.
    virtual HRESULT STDMETHODCALLTYPE GetCoefficient(double* coefficient) = 0;
    /// The display symbol, as CVeUnitBase::GetName gives it. The caller frees it with SysFreeString. E_OUTOFMEMORY and a null
    /// text when there is no memory for it.
    virtual HRESULT STDMETHODCALLTYPE GetName(BSTR* name) = 0;
    /// The display title, as CVeUnitBase::GetTitle gives it; otherwise as GetName.
    virtual HRESULT STDMETHODCALLTYPE GetTitle(BSTR* title) = 0;
    /// The unit itself, for callers in the same process. Not counted: it lives as long as the interface is held.
    virtual HRESULT STDMETHODCALLTYPE GetUnit(CVeUnit** unit) = 0;

protected:
    ~IComUnit() = default;
};

#pragma GCC diagnostic pop
