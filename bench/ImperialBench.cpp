// Feet, inches and fractions: written beside swprintf of the same parts, read beside the text cut into tokens and wcstod.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cwchar>
#include <cwctype>
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

const std::vector<double> c_metres = {1.0287, 0.3048, 12.7, 0.00635, 3.81, 1.8034, 100.2, 0.1};
const std::vector<std::wstring> c_texts = {L"3'-4 1/2\"", L"123'-11 13/16\"", L"5'-10 63/64\"", L"11 1/16\"",
                                           L"7'-3/8\""};

void WriteImperial(benchmark::State& state)
{
    const CVeUnitBase unit = FractionUnit();
    wchar_t buffer[c_bufferSize];
    std::size_t i = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(
            unit.Double2String(buffer, c_metres[i], 0, L"%.*f", 0, 0, c_bufferSize, 0, 0, 0).GetLength());
        i = (i + 1) % c_metres.size();
    }
    unit.Double2String(buffer, c_metres[0], 0, L"%.*f", 0, 0, c_bufferSize, 0, 0, 0);
    if (std::wcscmp(buffer, L"3'-4 1/2\"") != 0)
        state.SkipWithError("a wrong text");
}
BENCHMARK(WriteImperial);

/// The peer is given the parts ready.
void WriteImperialBySwprintf(benchmark::State& state)
{
    wchar_t buffer[c_bufferSize];
    int feet = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(
            std::swprintf(buffer, c_bufferSize, L"%d'-%d %d/%d\"", feet, feet % 12, feet % 16 | 1, 16));
        feet = (feet + 1) % 1000;
    }
}
BENCHMARK(WriteImperialBySwprintf);

void ReadImperial(benchmark::State& state)
{
    const CVeUnitBase unit = FractionUnit();
    std::size_t i = 0;
    int ok = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(unit.String2Double(c_texts[i].c_str(), &ok, 1));
        i = (i + 1) % c_texts.size();
    }
    if (std::fabs(unit.String2Double(L"3'-4 1/2\"", &ok, 1) - 1.0287) > 1e-12)
        state.SkipWithError("a wrong length");
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
    std::size_t i = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(InchesByTokens(c_texts[i]) / 39.37007874015748);
        i = (i + 1) % c_texts.size();
    }
    if (InchesByTokens(L"3'-4 1/2\"") != 40.5)
        state.SkipWithError("a wrong length");
}
BENCHMARK(ReadImperialByTokensAndWcstod);

}  // namespace
