#include "vetools/units/VeUnitBase.h"

#include <algorithm>
#include <iterator>

#include "vetools/resources/PromptText.h"
#include "vetools/units/UnitCatalogue.h"
#include "vetools/units/UnitSeparator.h"
#include "vetools/units/UnitText.h"

namespace
{

constexpr unsigned int c_defaultRange = 4;  // the metre
constexpr unsigned int c_defaultPrecision = 3;

wchar_t SeparatorFor(wchar_t given)
{
    return given == L'.' ? CVeUnitSeparator::m_cSep : given;
}

}  // namespace

CVeUnitBase::CVeUnitBase()
    : CVeUnitBase(Unit::UNIT_ID_LENGTH, c_defaultRange, c_defaultPrecision, L'.', 1.0, 0)
{
}

CVeUnitBase::CVeUnitBase(unsigned int idUnit, unsigned int range, unsigned int precision, wchar_t sep,
                         double metricsFactor, int removeTrailingZeroes)
    : IdUnit(idUnit)
    , Range(range)
    , Precision(precision)
    , Exponent(1)
    , Sep(SeparatorFor(sep))
    , Name{}
    , Title{}
    , Coef(1.0)
    , UnitType(Unit::UNIT_TYPE_METRIC)
    , MetricsFactor(metricsFactor)  // Kept: as given, whatever the quantity
    , RemoveTrailingZeroes(removeTrailingZeroes)
    , UnitFormat(Unit::UNITFORMAT_DECIMAL)
{
    static_assert(sizeof(Name) == c_nameCapacity * sizeof(wchar_t) &&
                  sizeof(Title) == c_titleCapacity * sizeof(wchar_t));
    UpdateDataUnit(false);  // Kept: resets the separator, so the argument has no lasting effect
}

CVeUnitBase::CVeUnitBase(const CVeUnitBase& other)
{
    *this = other;
}

CVeUnitBase::~CVeUnitBase() = default;

CVeUnitBase& CVeUnitBase::operator=(const CVeUnitBase& other)
{
    IdUnit = other.IdUnit;
    Range = other.Range;
    Precision = other.Precision;
    Exponent = other.Exponent;
    UnitType = other.UnitType;
    UnitFormat = other.UnitFormat;
    Sep = SeparatorFor(other.Sep);
    // Whole buffers: a copy of fixed size costs less than looking for the terminators.
    std::char_traits<wchar_t>::move(Title, other.Title, std::size(Title));
    std::char_traits<wchar_t>::move(Name, other.Name, std::size(Name));
    Coef = other.Coef;
    MetricsFactor = other.MetricsFactor;
    RemoveTrailingZeroes = other.RemoveTrailingZeroes;
    return *this;
}

CVeUnitBase* CVeUnitBase::GetClone() const
{
    return new CVeUnitBase(*this);
}

int CVeUnitBase::operator==(const CVeUnitBase& other) const
{
    // Kept: coefficient, exponent, type, name and title are not compared.
    const bool equal = IdUnit == other.IdUnit && Range == other.Range && Precision == other.Precision &&
                       UnitFormat == other.UnitFormat && Sep == other.Sep && MetricsFactor == other.MetricsFactor &&
                       RemoveTrailingZeroes == other.RemoveTrailingZeroes;
    return equal ? 1 : 0;
}

int CVeUnitBase::operator!=(const CVeUnitBase& other) const
{
    return *this == other ? 0 : 1;
}

unsigned int CVeUnitBase::GetIDUnit() const
{
    return IdUnit;
}
unsigned int CVeUnitBase::GetRange() const
{
    return Range;
}
unsigned int CVeUnitBase::GetPrecision() const
{
    return Precision;
}
void CVeUnitBase::SetPrecision(unsigned int precision)
{
    Precision = precision;
}
int CVeUnitBase::GetExponent() const
{
    return Exponent;
}
wchar_t CVeUnitBase::GetSep() const
{
    return Sep;
}
void CVeUnitBase::SetSep(wchar_t sep)
{
    Sep = SeparatorFor(sep);
}
double CVeUnitBase::GetCoef() const
{
    return Coef;
}
void CVeUnitBase::SetCoef(double coef)
{
    Coef = coef;
}
Unit::UNIT_TYPE CVeUnitBase::GetType() const
{
    return UnitType;
}
double CVeUnitBase::GetMetricsFactor() const
{
    return MetricsFactor;
}
Unit::enumUNITFORMAT CVeUnitBase::GetUnitFormat() const
{
    return UnitFormat;
}
int CVeUnitBase::GetRemoveTrailingZeroes() const
{
    return RemoveTrailingZeroes;
}
void CVeUnitBase::SetRemoveTrailingZeroes(int remove)
{
    RemoveTrailingZeroes = remove;
}
void CVeUnitBase::Dump() const {}

void CVeUnitBase::SetIdUnit(unsigned int idUnit)
{
    SetIdUnitAndRange(idUnit, Range);
}

void CVeUnitBase::SetRange(unsigned int range)
{
    SetIdUnitAndRange(IdUnit, range);
}

void CVeUnitBase::SetIdUnitAndRange(unsigned int idUnit, unsigned int range)
{
    IdUnit = idUnit;
    Range = range;
    UpdateDataUnit(false);
}

bool CVeUnitBase::SetUnitFormat(Unit::enumUNITFORMAT format)
{
    UnitFormat = format;
    return true;
}

void CVeUnitBase::SetName(const wchar_t* name)
{
    if (name)
        CopyTruncated(name, Name);
}

void CVeUnitBase::SetUnitValues(const wchar_t* title, const wchar_t* name, double coef)
{
    if (title)
        CopyTruncated(title, Title);
    if (name)
        CopyTruncated(name, Name);
    Coef = coef;
}

void CVeUnitBase::SetMetricsFactor(double factor)
{
    MetricsFactor = IsLengthId(IdUnit) ? factor : 1.0;
}

void CVeUnitBase::SetUnitType(Unit::UNIT_TYPE type)
{
    UnitType = type;
    if (type == Unit::UNIT_TYPE_METRIC)
        UnitFormat = Unit::UNITFORMAT_DECIMAL;
    else if (type == Unit::UNIT_TYPE_IMPERIAL)
        UnitFormat = FormatOfImperialRange(Range);
}

void CVeUnitBase::UpdateDataUnit(bool alternativeTitles)
{
    Sep = CVeUnitSeparator::m_cSep;  // Kept: also when the catalogue does not know the unit

    const QuantityRow* quantity = FindQuantity(IdUnit);
    const UnitRow* unit = quantity ? FindUnit(*quantity, Range) : nullptr;
    if (!unit)
        return;

    SetUnitType(unit->type);
    Coef = unit->coef;
    if (alternativeTitles && unit->alternativeTitle != 0)
    {
        CopyPromptText(unit->alternativeTitle, Title);
        CopyTruncated(Title, Name);
        return;
    }
    CopyPromptText(quantity->hasSquareTitles ? unit->squareTitle : unit->title, Title);
    CopyTruncated(unit->symbol, Name);
}
