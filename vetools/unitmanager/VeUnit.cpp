#include "vetools/unitmanager/VeUnit.h"

#include <new>

namespace
{

/// Hands a text over to a client, who frees it.
HRESULT ReturnText(const CString& text, BSTR* out)
{
    *out = ::SysAllocStringLen(text, static_cast<UINT>(text.GetLength()));
    return *out ? S_OK : E_OUTOFMEMORY;
}

}  // namespace

BEGIN_INTERFACE_MAP(CVeUnit, CCmdTarget)
INTERFACE_PART(CVeUnit, IID_IComUnit, ComUnit)
END_INTERFACE_MAP()

CVeUnit::CVeUnit() = default;

CVeUnit::CVeUnit(const CVeUnitBase& unit)
    : CVeUnitBase(unit)
{
}

CVeUnit::CVeUnit(const CVeUnit& other)
    : CCmdTarget()
    , CVeUnitBase(other)
{
}

CVeUnit::CVeUnit(unsigned int idUnit, unsigned int range, unsigned int precision, wchar_t separator,
                 double metricsFactor, int removeTrailingZeroes)
    : CVeUnitBase(idUnit, range, precision, separator, metricsFactor, removeTrailingZeroes)
{
}

CVeUnit::~CVeUnit() = default;

CVeUnit* CVeUnit::GetClone() const
{
    return new (std::nothrow) CVeUnit(*this);
}

CVeUnit& CVeUnit::operator=(const CVeUnit& other)
{
    CVeUnitBase::operator=(other);
    return *this;
}

CVeUnit& CVeUnit::operator=(const CVeUnitBase& unit)
{
    CVeUnitBase::operator=(unit);
    return *this;
}

int CVeUnit::operator==(const CVeUnit& other) const
{
    return CVeUnitBase::operator==(other);
}

int CVeUnit::operator!=(const CVeUnit& other) const
{
    return CVeUnitBase::operator!=(other);
}

CVeUnit CVeUnit::operator*(CVeUnit& other) const
{
    // Kept: the left operand becomes the product.
    return const_cast<CVeUnit&>(*this) = CVeUnitBase::operator*(other);
}

CVeUnit CVeUnit::operator/(CVeUnit& other) const
{
    // Kept: the left operand becomes the quotient.
    return const_cast<CVeUnit&>(*this) = CVeUnitBase::operator/(other);
}

CVeUnit& CVeUnit::operator*=(CVeUnit& other)
{
    CVeUnitBase::operator*=(other);
    return *this;
}

CVeUnit& CVeUnit::operator/=(CVeUnit& other)
{
    CVeUnitBase::operator/=(other);
    return *this;
}

HRESULT CVeUnit::XComUnit::QueryInterface(REFIID iid, void** object)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    return pThis->ExternalQueryInterface(&iid, object);
}

ULONG CVeUnit::XComUnit::AddRef()
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    return pThis->ExternalAddRef();
}

ULONG CVeUnit::XComUnit::Release()
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    return pThis->ExternalRelease();
}

HRESULT CVeUnit::XComUnit::SetRange(unsigned int range)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    pThis->CVeUnitBase::SetRange(range);
    return S_OK;
}

HRESULT CVeUnit::XComUnit::SetPrecision(unsigned int precision)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    pThis->CVeUnitBase::SetPrecision(precision);
    return S_OK;
}

HRESULT CVeUnit::XComUnit::SetSeparator(const wchar_t* separator)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    if (!separator || !*separator)
        return E_FAIL;
    pThis->SetSep(*separator);
    return S_OK;
}

HRESULT CVeUnit::XComUnit::GetRange(unsigned int* range)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    if (!range)
        return E_POINTER;
    *range = pThis->CVeUnitBase::GetRange();
    return S_OK;
}

HRESULT CVeUnit::XComUnit::GetCoefficient(double* coefficient)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    if (!coefficient)
        return E_POINTER;
    *coefficient = pThis->GetCoef();
    return S_OK;
}

HRESULT CVeUnit::XComUnit::GetName(BSTR* name)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    if (!name)
        return E_POINTER;
    return ReturnText(pThis->CVeUnitBase::GetName(), name);
}

HRESULT CVeUnit::XComUnit::GetTitle(BSTR* title)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    if (!title)
        return E_POINTER;
    return ReturnText(pThis->CVeUnitBase::GetTitle(), title);
}

HRESULT CVeUnit::XComUnit::GetUnit(CVeUnit** unit)
{
    METHOD_PROLOGUE(CVeUnit, ComUnit)
    if (!unit)
        return E_POINTER;
    *unit = pThis;
    return S_OK;
}
