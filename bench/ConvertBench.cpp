// Values through SI, one and a million, beside plain function calls and beside memcpy. The answers are compared bit by bit.

#include <benchmark/benchmark.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr std::size_t c_many = 1'000'000;

CVeUnitBase Millimetre()
{
    return {Unit::UNIT_ID_LENGTH, 1, 3, L'.', 1.0, 0};
}

std::vector<double> Metres()
{
    std::vector<double> values;
    for (std::size_t i = 0; i < c_many; ++i)
        values.push_back(static_cast<double>(i) * 0.000123);
    return values;
}

bool IsSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void OneValueThereAndBack(benchmark::State& state)
{
    const CVeUnitBase unit = Millimetre();
    double value = 1.2345678;
    for (auto _ : state)
    {
        unit.SI2Double(value, 0);
        unit.Double2SI(value, 0);
        benchmark::DoNotOptimize(std::as_const(value));
    }
    if (!IsSame(value, 1.2345678 * 1000.0 / 1000.0))
        state.SkipWithError("a wrong value");
}
BENCHMARK(OneValueThereAndBack);

__attribute__((noinline)) void Multiply(double& value, const double& coef)
{
    value = coef * value;
}

__attribute__((noinline)) void Divide(double& value, const double& coef)
{
    value = value / coef;
}

/// The peer: the same two operations, each behind a function that is called.
void OneValueByTwoPlainCalls(benchmark::State& state)
{
    const volatile double given = 1000.0;
    const double coef = given;
    double value = 1.2345678;
    for (auto _ : state)
    {
        Multiply(value, coef);
        Divide(value, coef);
        benchmark::DoNotOptimize(std::as_const(value));
    }
    if (!IsSame(value, 1.2345678 * 1000.0 / 1000.0))
        state.SkipWithError("a wrong value");
}
BENCHMARK(OneValueByTwoPlainCalls);

void MillionValues(benchmark::State& state)
{
    const CVeUnitBase unit = Millimetre();
    const std::vector<double> metres = Metres();
    std::vector<double> values = metres;
    unit.SI2Double(values, 0);
    for (std::size_t i = 0; i < c_many; ++i)
    {
        double value = metres[i];
        unit.SI2Double(value, 0);
        if (!IsSame(values[i], value))
            state.SkipWithError("not the value of the scalar call");
    }
    // The coefficient 1.0 keeps the values in range however often they are converted.
    const CVeUnitBase metre(Unit::UNIT_ID_LENGTH, 4, 3, L'.', 1.0, 0);
    for (auto _ : state)
    {
        metre.SI2Double(values, 0);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(c_many * sizeof(double)));
}
BENCHMARK(MillionValues)->Unit(benchmark::kMicrosecond);

void MillionValuesByMemcpy(benchmark::State& state)
{
    const std::vector<double> metres = Metres();
    std::vector<double> values(c_many);
    for (auto _ : state)
    {
        std::memcpy(values.data(), metres.data(), c_many * sizeof(double));
        benchmark::ClobberMemory();
    }
    if (!IsSame(values.back(), metres.back()))
        state.SkipWithError("a wrong value");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(c_many * sizeof(double)));
}
BENCHMARK(MillionValuesByMemcpy)->Unit(benchmark::kMicrosecond);

}  // namespace
