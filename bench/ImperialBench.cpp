// Feet, inches and fractions: written beside swprintf of the same parts, read beside the text cut into tokens and wcstod.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <string>
#include <vector>

#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr unsigned int c_feetInchesFraction = 9;
constexpr std::size_t c_bufferSize = 64;

CVeUnitBase FractionUnit()
{
    CVeUnitBase unit(Unit::UNIT_ID_LENGTH, c_feetInchesFraction, 4, L'.', 1.0, 0);
    return unit;
}

struct Length
{
    double metres;
    const wchar_t* text;
    int feet;
    int inches;
    int numerator;
    int denominator;
};

// clang-format off
constexpr Length c_lengths[] = {
//   metres      text               feet  inches  fraction
    {1.0287,     L"3'-4 1/2\"",       3,    4,      1,  2},
    {37.7840875, L"123'-11 9/16\"", 123,   11,      9, 16},
    {1.806575,   L"5'-11 1/8\"",      5,   11,      1,  8},
    {2.149475,   L"7'-5/8\"",         7,    0,      5,  8},
    {0.2809875,  L"11 1/16\"",        0,   11,      1, 16},
    {30.7848,    L"101'",            101,    0,      0,  1},
    {3.1242,     L"10'-3\"",         10,    3,      0,  1},
    {12.7127,    L"41'-8 1/2\"",     41,    8,      1,  2},
};
// clang-format on

void WriteImperial(benchmark::State& state)
{
    const CVeUnitBase unit = FractionUnit();
    wchar_t buffer[c_bufferSize];
    for (auto _ : state)
    {
        for (const Length& length : c_lengths)
            benchmark::DoNotOptimize(
                unit.Double2String(buffer, length.metres, 0, L"%.*f", 0, 0, c_bufferSize, 0, 0, 0).GetLength());
    }
    for (const Length& length : c_lengths)
    {
        if (unit.Double2String(buffer, length.metres, 0, L"%.*f", 0, 0, c_bufferSize, 0, 0, 0) != length.text)
            state.SkipWithError("a wrong text");
    }
}
BENCHMARK(WriteImperial);

/// The peer is given the parts ready, and always writes all of them.
void WriteImperialBySwprintf(benchmark::State& state)
{
    wchar_t buffer[c_bufferSize];
    for (auto _ : state)
    {
        for (const Length& length : c_lengths)
            benchmark::DoNotOptimize(std::swprintf(buffer, c_bufferSize, L"%d'-%d %d/%d\"", length.feet, length.inches,
                                                   length.numerator, length.denominator));
    }
    if (std::wcscmp(buffer, c_lengths[std::size(c_lengths) - 1].text) != 0)
        state.SkipWithError("a wrong text");
}
BENCHMARK(WriteImperialBySwprintf);

/// The same length to some 14 digits: the factors are rounded.
bool IsAbout(double metres, double expected)
{
    return std::fabs(metres - expected) < 1e-12;
}

void ReadImperial(benchmark::State& state)
{
    const CVeUnitBase unit = FractionUnit();
    int ok = 0;
    for (auto _ : state)
    {
        for (const Length& length : c_lengths)
            benchmark::DoNotOptimize(unit.String2Double(length.text, &ok, 1));
    }
    for (const Length& length : c_lengths)
    {
        if (!IsAbout(unit.String2Double(length.text, &ok, 1), length.metres))
            state.SkipWithError("a wrong length");
    }
}
BENCHMARK(ReadImperial);

double InchesByTokens(const std::wstring& text)
{
    std::vector<std::wstring> numbers(1);
    std::wstring marks;
    for (const wchar_t character : text)
    {
        if (std::iswdigit(static_cast<std::wint_t>(character)))
            numbers.back() += character;
        else if (!numbers.back().empty())
        {
            marks += character;
            numbers.emplace_back();
        }
    }
    std::vector<double> values;
    for (const std::wstring& number : numbers)
    {
        if (!number.empty())
            values.push_back(std::wcstod(number.c_str(), nullptr));
    }
    double inches = 0.0;
    std::size_t i = 0;
    if (marks.find(L'\'') != std::wstring::npos)
        inches += 12.0 * values[i++];
    if (values.size() - i == 3 || values.size() - i == 1)
        inches += values[i++];
    if (values.size() - i == 2)
        inches += values[i] / values[i + 1];
    return inches;
}

void ReadImperialByTokensAndWcstod(benchmark::State& state)
{
    constexpr double c_inchesPerMetre = 39.37007874015748;
    std::vector<std::wstring> texts;
    for (const Length& length : c_lengths)
        texts.emplace_back(length.text);
    for (auto _ : state)
    {
        for (const std::wstring& text : texts)
            benchmark::DoNotOptimize(InchesByTokens(text) / c_inchesPerMetre);
    }
    for (const Length& length : c_lengths)
    {
        if (!IsAbout(InchesByTokens(length.text) / c_inchesPerMetre, length.metres))
            state.SkipWithError("a wrong length");
    }
}
BENCHMARK(ReadImperialByTokensAndWcstod);

}  // namespace
