// A value read from any text in any unit. Where the text of a number says all of it, it is read as what it was written for.
#include <cmath>
#include <cstdlib>

#include "fuzz/FuzzText.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

double ReadNumber(const CVeUnitBase& unit, const wchar_t* text, bool applyMetricsFactor)
{
    int ok = 0;
    return unit.String2Double(text, &ok, applyMetricsFactor);
}

CString WriteNumber(const CVeUnitBase& unit, double value)
{
    wchar_t buffer[512];
    return unit.Double2String(buffer, value, 0, L"%.*f", 0, 0, 512, 0, 0, 0);
}

/// A decimal of ordinary size is its text once it was rounded to it. Not so for temperatures, whose offset is added when
/// they are written and not taken away when they are read.
bool IsShownWhole(const CVeUnitBase& unit, double value)
{
    return unit.GetIDUnit() != Unit::UNIT_ID_TEMPERATURE && unit.GetUnitFormat() == Unit::UNITFORMAT_DECIMAL &&
           std::fabs(value) < 1e6 && unit.GetCoef() < 1e3;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Three bytes choose the unit, the rest is the text.
    if (size < 3)
        return 0;
    CVeUnitBase unit(1 + data[0] % 26, data[1] % 24, data[2] % 7, L'.', 1.0, 0);
    const std::wstring text = TextOf(data + 3, size - 3);

    const double value = ReadNumber(unit, text.c_str(), data[2] >= 0x80);
    const CString written = WriteNumber(unit, value);
    if (!IsShownWhole(unit, value))
        return 0;
    const double shown = ReadNumber(unit, written, false);
    if (ReadNumber(unit, WriteNumber(unit, shown), false) != shown)
        std::abort();
    return 0;
}
