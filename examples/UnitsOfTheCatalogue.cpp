// Units of the catalogue: what they are, values converted one by one and in arrays, units made of others.
#include <cstdio>
#include <vector>

#include "vetools/vetools.h"

namespace
{

void Print(const char* what, const CVeUnitBase& unit)
{
    std::printf("%-12s %-10ls %.10g\n", what, unit.GetName().GetString(), unit.GetCoef());
}

}  // namespace

int main()
{
    // From a symbol that a user has chosen to a unit.
    unsigned int range = 0;
    if (!CVeUnitBase::GetRangeFromUnitName(L"kip", &range))
        return 1;
    CVeUnitBase kip(Unit::UNIT_ID_FORCE, range, 3, L'.', 1.0, 0);
    Print("force", kip);

    // Values change in place: SI to the unit, and back.
    double force = 1000000.0;
    kip.SI2Double(force, 0);
    std::printf("%-12s %.3f kip\n", "1 MN", force);
    std::vector<double> column = {1000.0, 2000.0, 3000.0};
    kip.SI2Double(column, 0);
    std::printf("%-12s %.3f kip\n", "3 kN", column[2]);

    // Temperatures have an offset as well as a coefficient.
    const CVeUnitBase fahrenheit(Unit::UNIT_ID_TEMPERATURE, 1, 1, L'.', 1.0, 0);
    double boiling = 100.0;
    fahrenheit.SI2Double(boiling, 0);
    std::printf("%-12s %.1f\n", "100 Celsius", boiling);

    // Powers, products and quotients.
    CVeUnitBase squareInch(Unit::UNIT_ID_LENGTH, 5, 2, L'.', 1.0, 0);
    squareInch.SetExponent(2);
    Print("area", squareInch);
    CVeUnitBase metre;
    Print("load", kip / metre);
    CVeUnitBase kiloNewton(Unit::UNIT_ID_FORCE, 2, 2, L'.', 1.0, 0);
    Print("stiffness", CVeUnitBase::MakeUnit(&kiloNewton, 1, &metre, -1, nullptr));
}
