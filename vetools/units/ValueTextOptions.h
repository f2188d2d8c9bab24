#pragma once

/// How CVeUnitBase::Double2String writes a value into a span of its own size. Members left out keep the plain form:
///
///     unit.Double2String(buffer, 1.25, {.withUnit = true, .removeTrailingZeros = true});
struct ValueTextOptions
{
    /// Append a blank and the unit's display name: 1.250 mm.
    bool withUnit = false;
    /// Divide by the unit's metrics factor.
    bool applyMetricsFactor = false;
    /// Strip zeros after the separator: 12.500 becomes 12.5, and 12.000 becomes 12.
    bool removeTrailingZeros = false;
    /// Write magnitudes below the threshold with an exponent: 5.000e-04. Zero never is.
    bool smallValuesAsExponent = false;
    /// 0 to 5 for the thresholds 0.1, 0.01, 0.001, 0.0001, 0.00001 and 0.000001; any other index switches nothing.
    int smallValueThreshold = 0;
    /// Add the offset of degrees Fahrenheit and of kelvin, as the ten-argument form does.
    /// Kept: the twelve-argument form never adds it; clear the flag to get its text.
    bool temperatureOffset = true;
    /// Raise millimetres and what is finer to a superscript of drawing-text mark-up (metric lengths only).
    bool superscriptSubUnits = false;
    /// Leave such a superscript out when it is made of zeros.
    bool dropZeroSuperscript = false;
};
