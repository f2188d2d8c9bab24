#include <cstdarg>
#include <span>
#include <string_view>

#include "vetools/platform/Power.h"
#include "vetools/units/UnitText.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

using NameText = BoundedText<c_nameCapacity>;
using TitleText = BoundedText<c_titleCapacity>;

/// Takes the suffix of a power off: mm² without 2 is mm, cm3 without 3 is cm.
/// Kept: the text is cut where the number first appears, so m3/s3 without 3 is m.
template <std::size_t capacity>
void RemovePower(BoundedText<capacity>& text, int power)
{
    const std::wstring_view view = text.View();
    if (power == 1)
        return;
    if (power == 2)
    {
        if (view.size() >= 2 && view.ends_with(c_squareMark))
            text.Truncate(view.size() - c_squareMark.size());
        return;
    }
    BoundedText<c_nameCapacity> number;
    number << power;
    text.Truncate(view.find(number.View()));  // npos truncates nothing
}

template <std::size_t capacity>
void AppendPower(BoundedText<capacity>& text, int power)
{
    if (power == 2)
        text << c_squareMark;
    else
        text << power;
}

/// Rewrites a unit's text for another power; a text that would become empty stays as it is.
template <std::size_t capacity>
void ReplacePower(wchar_t (&buffer)[capacity], int oldPower, int newPower)
{
    BoundedText<capacity> text;
    text << buffer;
    RemovePower(text, oldPower);
    if (newPower >= 2)
        AppendPower(text, newPower);
    if (!text.View().empty())
        CopyTruncated(text.View(), buffer);
}

double Raise(double coef, int power)
{
    return power == 2 ? coef * coef : Power(coef, power);
}

/// What a further unit adds to the texts of a composed one: *m, *m², *m3, /m, /m² or,
/// Kept: with the sign, /m-3.
TitleText SuffixOfFactor(std::wstring_view name, int power)
{
    TitleText suffix;
    if (power == 0)
        return suffix;
    suffix << (power > 0 ? L"*" : L"/") << name;
    if (power == 2 || power == -2)
        suffix << c_squareMark;
    else if (power != 1 && power != -1)
        suffix << power;
    return suffix;
}

template <std::size_t capacity>
void AppendTo(wchar_t (&buffer)[capacity], std::wstring_view suffix)
{
    BoundedText<capacity> text;
    text << buffer << suffix;
    CopyTruncated(text.View(), buffer);
}

}  // namespace

void CVeUnitBase::SetExponent(int exponent)
{
    if (exponent != 1 || Exponent != 1)  // a plain unit that stays one keeps coefficient and texts
    {
        // In doubles: a unit whose power is 0 divides by zero, which gives an infinite or undefined coefficient.
        Coef = Power(Coef, static_cast<double>(exponent) / static_cast<double>(Exponent));
        ReplacePower(Name, Exponent, exponent);
        ReplacePower(Title, Exponent, exponent);
    }
    StoreShownName();  // Kept: "² becomes sq in for good
    GetTitle();
    Exponent = exponent;
}

CVeUnitBase CVeUnitBase::operator*(const CVeUnitBase& other) const
{
    CVeUnitBase product(*this);
    product *= other;
    return product;
}

CVeUnitBase CVeUnitBase::operator/(const CVeUnitBase& other) const
{
    CVeUnitBase quotient(*this);
    quotient /= other;
    return quotient;
}

CVeUnitBase& CVeUnitBase::operator*=(const CVeUnitBase& other)
{
    NameText name;
    name << GetName().View() << other.GetName().View();
    Coef = Coef * other.Coef;
    CopyTruncated(name.View(), Name);
    return *this;
}

CVeUnitBase& CVeUnitBase::operator/=(const CVeUnitBase& other)
{
    NameText name;
    name << GetName().View() << L"/" << other.GetName().View();
    Coef = Coef / other.Coef;
    CopyTruncated(name.View(), Name);
    return *this;
}

CVeUnitBase CVeUnitBase::MakeUnit(CVeUnitBase* unit, int exponent, ...)
{
    if (!unit)
        return {};
    va_list factors;
    va_start(factors, exponent);
    unit->Compose(exponent, factors);
    va_end(factors);
    return *unit;
}

void CVeUnitBase::MakeUnit(CVeUnitBase* result, CVeUnitBase* unit, int exponent, ...)
{
    if (!result || !unit)
        return;
    *result = *unit;
    va_list factors;
    va_start(factors, exponent);
    result->Compose(exponent, factors);
    va_end(factors);
}

void CVeUnitBase::Compose(int exponent, std::va_list factors)
{
    RaiseFirstFactor(exponent);
    while (const CVeUnitBase* factor = va_arg(factors, CVeUnitBase*))
    {
        const int power = va_arg(factors, int);
        MultiplyFurtherFactor(*factor, power);
    }
    CopyTruncated(GetName().View(), Name);
}

void CVeUnitBase::RaiseFirstFactor(int exponent)
{
    if (exponent < 2)
        return;
    TitleText suffix;
    if (exponent == 2)
        suffix << c_squareMark;
    else
        suffix << Exponent;  // Kept: the power that the unit had, usually 1, not the one it is raised to
    Coef = Raise(Coef, exponent);
    CopyTruncated(GetName().View(), Name);
    AppendTo(Name, suffix.View());
    GetTitle();
    AppendTo(Title, suffix.View());
}

void CVeUnitBase::MultiplyFurtherFactor(const CVeUnitBase& factor, int power)
{
    const TitleText suffix = SuffixOfFactor(factor.GetName().View(), power);
    Coef = Coef * Raise(factor.Coef, power);
    AppendTo(Name, suffix.View());
    AppendTo(Title, suffix.View());
}
