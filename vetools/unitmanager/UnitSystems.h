#pragma once

#include "vetools/units/ImperialFactors.h"

/// The length systems that a user chooses from (internal): the metrics factor, in display length units per metre, stands
/// for the system wherever a manager keeps it.
struct UnitSystemRow
{
    int code;
    double metricsFactor;
    const wchar_t* symbol;
    bool isMetric;
};

constexpr int c_noUnitSystem = -1;

// clang-format off
/// In the order in which a factor is compared with them.
constexpr UnitSystemRow c_unitSystems[] = {
//   code  units per metre        symbol   metric
    {4,       1.0,                L"m",    true},
    {3,      10.0,                L"dm",   true},
    {2,     100.0,                L"cm",   true},
    {1,    1000.0,                L"mm",   true},
    {6,    c_feetPerMetre,        L"'",    false},
    {5,    c_inchesPerMetre,      L"\"",   false},
};
// clang-format on
