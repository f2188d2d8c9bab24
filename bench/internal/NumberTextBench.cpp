// Numbers written and read, against the C++ and the C library on the same numbers.
#include "vetools/framework/NumberText.h"
#include "vetools/framework/WideFormat.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr std::size_t c_count = 1024;
constexpr int c_precision = 3;

/// Values as a user sees them: some thousand, of either sign, with more decimals than are shown.
std::vector<double> Values()
{
    std::mt19937_64 random(1);
    std::vector<double> values(c_count);
    for (double& value : values)
        value = static_cast<double>(static_cast<std::int64_t>(random() % 20'000'000) - 10'000'000) / 3000.0;
    return values;
}

std::vector<std::string> Texts(int significantDigits)
{
    std::vector<std::string> texts;
    for (const double value : Values())
    {
        char text[64];
        const auto end =
            std::to_chars(text, text + sizeof text, value, std::chars_format::general, significantDigits).ptr;
        texts.emplace_back(text, end);
    }
    return texts;
}

std::vector<std::wstring> WideTexts(int significantDigits)
{
    std::vector<std::wstring> wide;
    for (const std::string& text : Texts(significantDigits))
        wide.emplace_back(text.begin(), text.end());
    return wide;
}

/// Calls `work` with one input after the other and counts them.
template <typename Inputs, typename Work>
void ForEach(benchmark::State& state, const Inputs& inputs, Work work)
{
    for (auto _ : state)
    {
        for (const auto& input : inputs)
            benchmark::DoNotOptimize(work(input));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(inputs.size()));
}

void WriteFixed_VeTools(benchmark::State& state)
{
    wchar_t text[FixedTextCapacity(c_precision)];
    ForEach(state, Values(), [&](double value) { return WriteFixed(text, value, c_precision); });
}
BENCHMARK(WriteFixed_VeTools);

void WriteFixed_ToChars(benchmark::State& state)
{
    char text[512];
    ForEach(state, Values(),
            [&](double value)
            { return std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, c_precision).ptr; });
}
BENCHMARK(WriteFixed_ToChars);

void WriteFixed_Swprintf(benchmark::State& state)
{
    wchar_t text[512];
    ForEach(state, Values(), [&](double value) { return std::swprintf(text, 512, L"%.*f", c_precision, value); });
}
BENCHMARK(WriteFixed_Swprintf);

void Format_VeTools(benchmark::State& state)
{
    ForEach(state, Values(), [&](double value) { return FormatWide(L"%.*f", c_precision, value); });
}
BENCHMARK(Format_VeTools);

void ReadDouble_VeTools(benchmark::State& state)
{
    ForEach(state, WideTexts(static_cast<int>(state.range(0))),
            [](const std::wstring& text) { return ReadDouble(text); });
}
BENCHMARK(ReadDouble_VeTools)->ArgName("digits")->Arg(6)->Arg(12)->Arg(17);

void ReadDouble_FromChars(benchmark::State& state)
{
    ForEach(state, Texts(static_cast<int>(state.range(0))),
            [](const std::string& text)
            {
                double value = 0.0;
                std::from_chars(text.data(), text.data() + text.size(), value);
                return value;
            });
}
BENCHMARK(ReadDouble_FromChars)->ArgName("digits")->Arg(6)->Arg(12)->Arg(17);

void ReadDouble_Wcstod(benchmark::State& state)
{
    ForEach(state, WideTexts(static_cast<int>(state.range(0))),
            [](const std::wstring& text) { return std::wcstod(text.c_str(), nullptr); });
}
BENCHMARK(ReadDouble_Wcstod)->ArgName("digits")->Arg(6)->Arg(12)->Arg(17);

}  // namespace
