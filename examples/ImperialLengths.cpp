// Lengths in feet, inches and fractions: as text, as numbers, and read from what was typed.
#include <cstdio>

#include "vetools/vetools.h"

namespace
{

/// The unit of lengths with this range in the catalogue.
CVeUnitBase Length(unsigned int range, unsigned int precision)
{
    return CVeUnitBase(Unit::UNIT_ID_LENGTH, range, precision, L'.', 1.0, 0);
}

void Show(const CVeUnitBase& unit, double metres)
{
    wchar_t text[64];
    unit.Double2String(text, metres);
    std::printf("%ls\n", text);
}

}  // namespace

int main()
{
    Show(Length(6, 3), 1.8129);   // feet with decimals
    Show(Length(8, 2), 1.8129);   // feet, and inches with decimals
    Show(Length(9, 4), 1.8129);   // feet, inches and sixteenths
    Show(Length(10, 4), 1.8129);  // inches and sixteenths
    Show(Length(9, 2), 1.8129);   // feet, inches and quarters

    // What a user types: any shape, whatever the unit among these writes.
    const CVeUnitBase unit = Length(9, 4);
    for (const wchar_t* text : {L"3'-4 1/2\"", L"3' 4\"", L"40 1/2", L"-3/4\"", L"three feet"})
    {
        int understood = 0;
        const double metres = unit.String2Double(text, &understood, 1);
        std::printf("%-10ls %s %.5f\n", text, understood ? "yes" : "no ", metres);
    }

    // As whole numbers.
    double rest = 0.0;
    const int feet = CVeImperialLength::Meter2Feet(1.0, rest);
    std::printf("%d feet and %.4f m\n", feet, rest);
    std::printf("%.4f m\n", CVeImperialLength::Imperial2Meter(3, 4, 1, 1));  // 3 feet, 4 inches, 1/2 inch
}
