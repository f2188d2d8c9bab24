// Values as text and text as values, beside what the language offers for the bare number. Every benchmark checks its last
// answer, so that no fast wrong one counts.
#include <charconv>
#include <cstring>
#include <cwchar>

#include <benchmark/benchmark.h>

#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr unsigned c_millimetre = 1;
constexpr double c_length = 1.2345678;  // metres
constexpr wchar_t c_lengthText[] = L"1234.568mm";
constexpr char c_narrowNumber[] = "1234.568";

CVeUnitBase Millimetre()
{
    return {Unit::UNIT_ID_LENGTH, c_millimetre, 3, L'.', 1.0, 0};
}

void Double2StringWithUnit(benchmark::State& state)
{
    const CVeUnitBase unit = Millimetre();
    wchar_t buffer[64];
    CString text;
    double value = c_length;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(value);
        text = unit.Double2String(buffer, value, 1, L"%.*f", 0, 0, 64, 0, 0, 0);
        benchmark::DoNotOptimize(text);
    }
    if (std::wcscmp(text, c_lengthText) != 0)
        state.SkipWithError("wrong text");
}
BENCHMARK(Double2StringWithUnit);

void PeerToChars(benchmark::State& state)
{
    char buffer[64];
    std::to_chars_result result{};
    double value = c_length * 1000.0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(value);
        result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 3);
        benchmark::DoNotOptimize(buffer);
    }
    if (std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer)) != c_narrowNumber)
        state.SkipWithError("wrong text");
}
BENCHMARK(PeerToChars);

void PeerSwprintf(benchmark::State& state)
{
    wchar_t buffer[64];
    double value = c_length * 1000.0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(value);
        std::swprintf(buffer, 64, L"%.*f%ls", 3, value, L"mm");
        benchmark::DoNotOptimize(buffer);
    }
    if (std::wcscmp(buffer, c_lengthText) != 0)
        state.SkipWithError("wrong text");
}
BENCHMARK(PeerSwprintf);

void String2Double(benchmark::State& state)
{
    const CVeUnitBase unit = Millimetre();
    const wchar_t* text = c_lengthText;
    double value = 0.0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text);
        value = unit.String2Double(text, nullptr, 0);
        benchmark::DoNotOptimize(value);
    }
    if (value != 1234.568 / 1000.0)
        state.SkipWithError("wrong value");
}
BENCHMARK(String2Double);

void PeerFromChars(benchmark::State& state)
{
    const char* text = c_narrowNumber;
    double value = 0.0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text);
        std::from_chars(text, text + std::strlen(text), value);
        benchmark::DoNotOptimize(value);
    }
    if (value != 1234.568)
        state.SkipWithError("wrong value");
}
BENCHMARK(PeerFromChars);

void PeerWcstod(benchmark::State& state)
{
    const wchar_t* text = c_lengthText;
    double value = 0.0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text);
        value = std::wcstod(text, nullptr);
        benchmark::DoNotOptimize(value);
    }
    if (value != 1234.568)
        state.SkipWithError("wrong value");
}
BENCHMARK(PeerWcstod);

}  // namespace
