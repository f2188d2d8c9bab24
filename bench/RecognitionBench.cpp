// The unit that a text stands for, beside a copy of a unit that is filled already.

#include <benchmark/benchmark.h>

#include "vetools/unitmanager/VeUnit.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

void RecogniseUnit(benchmark::State& state)
{
    const CString text(L"mm");
    CVeUnit unit;
    for (auto _ : state)
    {
        CVeUnitManager::UnitFromString(text, unit);
        benchmark::DoNotOptimize(unit.GetCoef());
    }
    if (unit.GetName() != L"mm")
        state.SkipWithError("a wrong unit");
}
BENCHMARK(RecogniseUnit);

void RecogniseQuotient(benchmark::State& state)
{
    const CString text(L"mm/m");
    CVeUnit unit;
    for (auto _ : state)
    {
        CVeUnitManager::UnitFromString(text, unit);
        benchmark::DoNotOptimize(unit.GetCoef());
    }
    if (unit.GetName() != L"mm/m")
        state.SkipWithError("a wrong unit");
}
BENCHMARK(RecogniseQuotient);

/// The peer: no text, only the result.
void CopyFilledUnit(benchmark::State& state)
{
    const CVeUnit filled(Unit::UNIT_ID_LENGTH, 1, 3, L'.', 1.0, 0);
    CVeUnit unit;
    for (auto _ : state)
    {
        unit = filled;
        benchmark::DoNotOptimize(unit.GetCoef());
    }
    if (unit.GetName() != L"mm")
        state.SkipWithError("a wrong unit");
}
BENCHMARK(CopyFilledUnit);

}  // namespace
