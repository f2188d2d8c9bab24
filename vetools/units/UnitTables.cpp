#include "vetools/units/UnitCatalogue.h"
#include "vetools/units/VeUnitBase.h"

// Hosts read these arrays directly, so they are plain and made when the library is compiled.

namespace
{

constexpr int UnitsOffered(unsigned int idUnit)
{
    return FindQuantity(idUnit)->offered;
}

}  // namespace

// clang-format off
constinit const int CVeUnitBase::c_arrayTypeNumber[26][2] = {
    { 1, UnitsOffered(1)},  { 2, UnitsOffered(2)},  { 3, UnitsOffered(3)},  { 4, UnitsOffered(4)},
    { 5, UnitsOffered(5)},  { 6, UnitsOffered(6)},  { 7, UnitsOffered(7)},  { 8, UnitsOffered(8)},
    { 9, UnitsOffered(9)},  {10, UnitsOffered(10)}, {11, UnitsOffered(11)}, {12, UnitsOffered(12)},
    {13, UnitsOffered(13)}, {14, UnitsOffered(14)}, {15, UnitsOffered(15)}, {16, UnitsOffered(16)},
    {17, UnitsOffered(17)}, {18, UnitsOffered(18)}, {19, UnitsOffered(19)}, {20, UnitsOffered(20)},
    {21, UnitsOffered(21)}, {22, UnitsOffered(22)}, {23, UnitsOffered(23)}, {24, UnitsOffered(24)},
    {25, UnitsOffered(25)}, {26, UnitsOffered(26)},
};

constinit const wchar_t* const CVeUnitBase::c_arrayPrecision[9] = {
    L"0", L"0.0", L"0.00", L"0.000", L"0.0000", L"0.00000", L"0.000000", L"0.0000000", L"0.00000000",
};

constinit const wchar_t* const CVeUnitBase::c_arrayImperialPrecision[9][2] = {
//   fractions  decimals of the inch
    {L"0",      L"0'-0\""},
    {L"1/2",    L"0'-0.0\""},
    {L"1/4",    L"0'-0.00\""},
    {L"1/8",    L"0'-0.000\""},
    {L"1/16",   L"0'-0.0000\""},
    {L"1/32",   L"0'-0.00000\""},
    {L"1/64",   L"0'-0.000000\""},
    {L"1/128",  L"0'-0.0000000\""},
    {L"1/256",  L"0'-0.00000000\""},
};
// clang-format on
static_assert(std::size(c_quantities) == std::size(CVeUnitBase::c_arrayTypeNumber));
