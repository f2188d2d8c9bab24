#pragma once

#include "vetools/framework/CCmdTarget.h"
#include "vetools/platform/Export.h"
#include "vetools/unitmanager/ComUnit.h"
#include "vetools/units/VeUnitBase.h"

/// A unit of measure that is also reached through the component object model, by its interface IComUnit: the kind of unit
/// that the unit manager holds and hands out. What it does as a unit is CVeUnitBase's.
///
///     IComUnit* unit = nullptr;
///     if (SUCCEEDED(manager.GetVisUnit(1).ExternalQueryInterface(&IID_IComUnit, reinterpret_cast<void**>(&unit))))
///         unit->Release();
///
/// Copies share nothing: each has its own reference count, which starts at 1 for its owner. A client releases the interface
/// before the owner deletes the unit, through a pointer to any of its classes.
class VETOOLS_API CVeUnit : public CCmdTarget, public CVeUnitBase
{
    DECLARE_INTERFACE_MAP()

public:
    BEGIN_EXPORTED_INTERFACE_PART(VETOOLS_API, ComUnit, IComUnit)
    HRESULT STDMETHODCALLTYPE SetRange(unsigned int range) override;
    HRESULT STDMETHODCALLTYPE SetPrecision(unsigned int precision) override;
    HRESULT STDMETHODCALLTYPE SetSeparator(const wchar_t* separator) override;
    HRESULT STDMETHODCALLTYPE GetRange(unsigned int* range) override;
    HRESULT STDMETHODCALLTYPE GetCoefficient(double* coefficient) override;
    HRESULT STDMETHODCALLTYPE GetName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE GetTitle(BSTR* title) override;
    HRESULT STDMETHODCALLTYPE GetUnit(CVeUnit** unit) override;
    END_INTERFACE_PART(ComUnit)

    /// The metre with 3 decimals, as CVeUnitBase makes it.
    CVeUnit();
    /// A copy of the unit, with a reference count of its own.
    CVeUnit(const CVeUnitBase& unit);
    CVeUnit(const CVeUnit& other);
    /// As the constructor of CVeUnitBase with the same arguments.
    CVeUnit(unsigned int idUnit, unsigned int range, unsigned int precision, wchar_t separator, double metricsFactor,
            int removeTrailingZeroes);
    ~CVeUnit() override;

    /// A new copy, which the caller deletes; null when there is no memory.
    CVeUnit* GetClone() const;

    /// Both assign what CVeUnitBase assigns; the reference count and the interface stay the object's own.
    CVeUnit& operator=(const CVeUnit& other);
    CVeUnit& operator=(const CVeUnitBase& unit);

    /// 1 when CVeUnitBase compares the two as equal: exponent, coefficient, type and texts don't count.
    int operator==(const CVeUnit& other) const;
    int operator!=(const CVeUnit& other) const;
    // A plain unit on either side is compared in the same way.
    int operator==(const CVeUnitBase& other) const { return CVeUnitBase::operator==(other); }
    int operator!=(const CVeUnitBase& other) const { return CVeUnitBase::operator!=(other); }
    friend int operator==(const CVeUnitBase& left, const CVeUnit& right) { return left.operator==(right); }
    friend int operator!=(const CVeUnitBase& left, const CVeUnit& right) { return left.operator!=(right); }

    /// The product or quotient of two units, as CVeUnitBase makes it, with a reference count of its own.
    /// Kept: although the operators are const, the left unit becomes the result too: after c = a * b, a is the product.
    CVeUnit operator*(CVeUnit& other) const;
    CVeUnit operator/(CVeUnit& other) const;
    CVeUnit& operator*=(CVeUnit& other);
    CVeUnit& operator/=(CVeUnit& other);
};
