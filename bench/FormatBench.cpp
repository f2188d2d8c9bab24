// A value as text, beside the bare number by std::to_chars and std::swprintf. The last answer of every benchmark is checked.

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string>
#include <string_view>

#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr unsigned int c_precision = 3;
constexpr std::size_t c_count = 256;

/// Metres as a drawing has them: 0.001 to some 60, in steps without a pattern.
std::array<double, c_count> Metres()
{
    std::array<double, c_count> values{};
    std::uint32_t state = 12345;
    for (double& value : values)
    {
        state = state * 1664525u + 1013904223u;
        value = 0.001 + state / 4294967296.0 * 60.0;
    }
    values.back() = 1.2345678;
    return values;
}

CVeUnitBase Millimetre()
{
    return {Unit::UNIT_ID_LENGTH, 1, c_precision, L'.', 1.0, 1};
}

/// Runs one formatter over the values, and checks what it makes of the last one.
template <typename Format>
void Run(benchmark::State& state, std::wstring_view expected, Format format)
{
    const std::array<double, c_count> values = Metres();
    std::wstring_view text;
    for (auto _ : state)
    {
        for (const double value : values)
        {
            text = format(value);
            benchmark::DoNotOptimize(text);
        }
    }
    if (text != expected)
        state.SkipWithError("wrong text");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(c_count));
}

void Double2StringWithUnit(benchmark::State& state)
{
    const CVeUnitBase unit = Millimetre();
    wchar_t buffer[64];
    CString text;
    Run(state, L"1234.568 mm",
        [&](double value)
        {
            text = unit.Double2String(buffer, value, 1, L"%.*f", 0, 0, 64, 0, 0, 0);
            return text.View();
        });
}
BENCHMARK(Double2StringWithUnit);

void Double2StringIntoSpan(benchmark::State& state)
{
    const CVeUnitBase unit = Millimetre();
    wchar_t buffer[64];
    Run(state, L"1234.568 mm",
        [&](double value)
        {
            const std::size_t length = unit.Double2String(buffer, value, {.withUnit = true});
            return std::wstring_view(buffer, length);
        });
}
BENCHMARK(Double2StringIntoSpan);

void ToCharsBareNumber(benchmark::State& state)
{
    char buffer[64];
    std::string_view text;
    for (const std::array<double, c_count> values = Metres(); auto _ : state)
    {
        for (const double value : values)
        {
            const auto [end, error] =
                std::to_chars(buffer, buffer + sizeof buffer, value * 1000.0, std::chars_format::fixed, c_precision);
            text = {buffer, static_cast<std::size_t>(end - buffer)};
            benchmark::DoNotOptimize(text);
        }
    }
    if (text != "1234.568")
        state.SkipWithError("wrong text");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(c_count));
}
BENCHMARK(ToCharsBareNumber);

void SwprintfWithUnit(benchmark::State& state)
{
    wchar_t buffer[64];
    Run(state, L"1234.568 mm",
        [&](double value)
        {
            const int length = std::swprintf(buffer, std::size(buffer), L"%.*f %ls", 3, value * 1000.0, L"mm");
            return std::wstring_view(buffer, static_cast<std::size_t>(length));
        });
}
BENCHMARK(SwprintfWithUnit);

}  // namespace
