// The choices there are when a value becomes text, and what is understood when a text becomes a value.
#include <cstdio>

#include "vetools/vetools.h"

namespace
{

void Show(const CVeUnitBase& unit, double value, const ValueTextOptions& options)
{
    wchar_t text[64];
    unit.Double2String(text, value, options);
    std::printf("%ls\n", text);
}

}  // namespace

int main()
{
    const CVeUnitBase metre(Unit::UNIT_ID_LENGTH, 4, 3, L'.', 1.0, 0);
    const CVeUnitBase megaNewton(Unit::UNIT_ID_FORCE, 3, 3, L'.', 1.0, 0);

    Show(metre, 12.5, {});
    Show(metre, 12.5, {.withUnit = true});
    Show(metre, 12.5, {.withUnit = true, .removeTrailingZeros = true});
    Show(megaNewton, 20.0, {.withUnit = true});
    Show(megaNewton, 20.0, {.withUnit = true, .smallValuesAsExponent = true, .smallValueThreshold = 3});
    Show(metre, 1.235, {.withUnit = true, .superscriptSubUnits = true});

    // A text longer than the buffer is cut; the result is the length that it has whole.
    wchar_t cell[5];
    const std::size_t length = metre.Double2String(cell, 1234.5, {});
    std::printf("%ls of %zu characters\n", cell, length);

    // Reading: what follows the number is ignored, and only the full stop separates decimals.
    std::printf("%g %g\n", metre.String2Double(L"12.5 m", nullptr, 0), metre.String2Double(L"12,5 m", nullptr, 0));
    CString typed = L"12,5 m";
    CVeUnitBase::ReplaceNumberSeparator(L',', typed);
    std::printf("%g\n", metre.String2Double(typed, nullptr, 0));
}
