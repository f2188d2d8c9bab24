// A force and a length as an engineer reads them, and back from what the engineer types.
#include <cstdio>

#include "vetools/vetools.h"

int main()
{
    // Quantity, unit, precision (decimals, or the power of two of the finest fraction), separator, factor, flag.
    const CVeUnitBase kiloNewton(Unit::UNIT_ID_FORCE, 2, 2, L'.', 1.0, 0);
    const CVeUnitBase feetAndInches(Unit::UNIT_ID_LENGTH, 9, 4, L'.', 1.0, 0);

    wchar_t text[64];
    kiloNewton.Double2String(text, 12500.0, {.withUnit = true});  // newtons
    std::printf("%ls\n", text);
    feetAndInches.Double2String(text, 1.03, {});  // metres
    std::printf("%ls\n", text);

    int understood = 0;
    const double metres = feetAndInches.String2Double(L"3'-4 1/2\"", &understood, 1);
    std::printf("%.4f m, %s\n", metres, understood ? "understood" : "not understood");
}
