#include <string_view>

#include "vetools/framework/NumberText.h"
#include "vetools/units/ImperialFactors.h"
#include "vetools/units/UnitCatalogue.h"
#include "vetools/units/UnitSeparator.h"
#include "vetools/units/VeUnitBase.h"
#include "vetools/valuetext/DecimalParts.h"
#include "vetools/valuetext/DecimalText.h"
#include "vetools/valuetext/ImperialParse.h"

namespace
{

/// The SI value of inches typed for an imperial length. The metrics factor may itself say that the host's model is in
/// inches or in feet: the result then is in those.
double InchesToModel(double inches, double coef, double metricsFactor, bool applyMetricsFactor)
{
    if (IsSameFactor(metricsFactor, c_inchesPerMetre))
        return applyMetricsFactor ? inches : inches / c_inchesPerMetre;
    if (IsSameFactor(metricsFactor, c_feetPerMetre))
        return applyMetricsFactor ? inches / c_inchesPerFoot : inches / c_inchesPerMetre;
    if (IsSameFactor(coef, c_feetPerMetre))
    {
        // Kept: without the factor the inches count as feet.
        return applyMetricsFactor ? metricsFactor * (inches / c_inchesPerFoot / c_feetPerMetre)
                                  : metricsFactor * (inches / c_feetPerMetre);
    }
    return metricsFactor * (inches / c_inchesPerMetre);  // Kept: by the factor, whether it is asked for or not
}

}  // namespace

double CVeUnitBase::String2Double(const wchar_t* text, int* ok, int applyMetricsFactor) const
{
    if (text == nullptr || text[0] == L'\0')
        return 0.0;
    if (ok != nullptr)
        *ok = 1;

    if (UnitType == Unit::UNIT_TYPE_IMPERIAL && Exponent == 1)
    {
        double feet = 0.0;  // also for a range that is no imperial length: its text is not read
        if (IsImperialLengthRange(Range) && !ReadImperialText(text, feet, LengthIn::Feet, Sep, UnitFormat))
        {
            feet = 0.0;
            if (ok != nullptr)
                *ok = 0;
        }
        return InchesToModel(feet * c_inchesPerFoot, Coef, MetricsFactor, applyMetricsFactor != 0);
    }

    const double value = ReadDouble(text) / Coef;  // Kept: the unit's separator and temperature offset play no part
    return applyMetricsFactor != 0 ? value * MetricsFactorToThe(Exponent, MetricsFactor) : value;
}

void CVeUnitBase::EliminatePrecision(CString& text)
{
    for (const wchar_t separator : {L'.', L','})
    {
        if (text.View().find(separator) != std::wstring_view::npos)
            text = CString(WithoutDecimalParts(text.View(), separator));
    }
}

bool CVeUnitBase::ReplaceNumberSeparator(wchar_t separator, CString& text)
{
    if (text.View().find(separator) == std::wstring_view::npos || separator == CVeUnitSeparator::m_cSep)
        return false;
    text.Replace(separator, CVeUnitSeparator::m_cSep);
    return true;
}
