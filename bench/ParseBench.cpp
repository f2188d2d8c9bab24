// A text as a value, beside the bare number by std::from_chars and std::wcstod. Every benchmark checks its answers.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string>
#include <vector>

#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr std::size_t c_count = 256;

/// Millimetres as they are typed, 0.001 to some 60000.
std::vector<double> Millimetres()
{
    std::vector<double> values;
    std::uint32_t state = 12345;
    for (std::size_t i = 0; i < c_count; ++i)
    {
        state = state * 1664525u + 1013904223u;
        values.push_back((1 + state % 60000000u) / 1000.0);
    }
    return values;
}

template <typename Text>
std::vector<Text> Texts()
{
    std::vector<Text> texts;
    for (const double value : Millimetres())
    {
        char text[64];
        const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 3);
        texts.emplace_back(text, result.ptr);
    }
    return texts;
}

/// Runs one reader over the texts and compares the sum of the answers in millimetres.
template <typename Text, typename Read>
void Run(benchmark::State& state, double unitsPerMillimetre, Read read)
{
    const std::vector<Text> texts = Texts<Text>();
    double sum = 0.0;
    for (auto _ : state)
    {
        sum = 0.0;
        for (const Text& text : texts)
            sum += read(text);
        benchmark::DoNotOptimize(sum);
    }
    double expected = 0.0;
    for (const double value : Millimetres())
        expected += value / unitsPerMillimetre;
    if (sum != expected)
        state.SkipWithError("wrong values");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(c_count));
}

void String2DoubleOfMillimetres(benchmark::State& state)
{
    const CVeUnitBase unit(Unit::UNIT_ID_LENGTH, 1, 3, L'.', 1.0, 1);
    Run<std::wstring>(state, 1000.0,
                      [&](const std::wstring& text) { return unit.String2Double(text.c_str(), nullptr, 0); });
}
BENCHMARK(String2DoubleOfMillimetres);

void FromCharsBareNumber(benchmark::State& state)
{
    Run<std::string>(state, 1.0,
                     [](const std::string& text)
                     {
                         double value = 0.0;
                         std::from_chars(text.data(), text.data() + text.size(), value);
                         return value;
                     });
}
BENCHMARK(FromCharsBareNumber);

void WcstodBareNumber(benchmark::State& state)
{
    Run<std::wstring>(state, 1.0, [](const std::wstring& text) { return std::wcstod(text.c_str(), nullptr); });
}
BENCHMARK(WcstodBareNumber);

}  // namespace
