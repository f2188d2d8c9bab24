#include <span>

#include "vetools/units/UnitCatalogue.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

template <class Convert>
void ConvertEach(std::span<double> values, Convert convert)
{
    for (double& value : values)
        value = convert(value);
}

}  // namespace

void CVeUnitBase::SI2Double(double& value, int useMetricsFactor) const
{
    value = Coef * value;
    if (useMetricsFactor)
        value = value / MetricsFactor;
    const double offset = OffsetAfterScaling(IdUnit, Range);
    if (offset != 0.0)  // adding 0.0 would lose the sign of a negative zero
        value = value + offset;
}

void CVeUnitBase::Double2SI(double& value, int useMetricsFactor) const
{
    const double offset = OffsetAfterScaling(IdUnit, Range);
    if (offset != 0.0)
        value = value - offset;
    value = value / Coef;
    if (useMetricsFactor)
        value = value * MetricsFactor;
}

// What a conversion does beyond the coefficient is decided once, before the values: each loop has one straight body
// that the compiler can turn into vector instructions, with the operations of the single value in the same order.

void CVeUnitBase::SI2Double(std::span<double> values, int useMetricsFactor) const
{
    const double coef = Coef;
    const double factor = MetricsFactor;
    const double offset = OffsetAfterScaling(IdUnit, Range);

    if (offset != 0.0 && useMetricsFactor)
        return ConvertEach(values, [=](double value) { return coef * value / factor + offset; });
    if (offset != 0.0)
        return ConvertEach(values, [=](double value) { return coef * value + offset; });
    if (useMetricsFactor)
        return ConvertEach(values, [=](double value) { return coef * value / factor; });
    ConvertEach(values, [=](double value) { return coef * value; });
}

void CVeUnitBase::Double2SI(std::span<double> values, int useMetricsFactor) const
{
    const double coef = Coef;
    const double factor = MetricsFactor;
    const double offset = OffsetAfterScaling(IdUnit, Range);

    if (offset != 0.0 && useMetricsFactor)
        return ConvertEach(values, [=](double value) { return (value - offset) / coef * factor; });
    if (offset != 0.0)
        return ConvertEach(values, [=](double value) { return (value - offset) / coef; });
    if (useMetricsFactor)
        return ConvertEach(values, [=](double value) { return value / coef * factor; });
    ConvertEach(values, [=](double value) { return value / coef; });
}
