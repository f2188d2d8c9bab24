// A unit's display name and its refresh from the catalogue, beside copies of the same texts.

#include <benchmark/benchmark.h>

#include <cwchar>

#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr unsigned int c_kilonewton = 2;

CVeUnitBase Kilonewton()
{
    return {Unit::UNIT_ID_FORCE, c_kilonewton, 3, L'.', 1.0, 0};
}

void Name(benchmark::State& state)
{
    const CVeUnitBase unit = Kilonewton();
    for (auto _ : state)
        benchmark::DoNotOptimize(unit.GetName().GetString());
    if (unit.GetName() != L"kN")
        state.SkipWithError("a wrong name");
}
BENCHMARK(Name);

/// The peer: the text copied out of a buffer as long as a unit's.
void NameByCopy(benchmark::State& state)
{
    wchar_t name[20] = L"kN";
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(name);
        benchmark::DoNotOptimize(CString(name).GetString());
    }
}
BENCHMARK(NameByCopy);

void Refresh(benchmark::State& state)
{
    CVeUnitBase unit = Kilonewton();
    unsigned int range = 0;
    for (auto _ : state)
    {
        unit.SetRange(range);
        benchmark::DoNotOptimize(unit);
        range ^= c_kilonewton;
    }
    unit.SetRange(c_kilonewton);
    if (unit.GetName() != L"kN" || unit.GetCoef() != Kilonewton().GetCoef())
        state.SkipWithError("a wrong unit");
}
BENCHMARK(Refresh);

/// The peer: units kept ready, and assigned whole.
void RefreshByCopy(benchmark::State& state)
{
    const CVeUnitBase units[] = {{Unit::UNIT_ID_FORCE, 0, 3, L'.', 1.0, 0}, Kilonewton()};
    CVeUnitBase unit;
    unsigned int next = 0;
    for (auto _ : state)
    {
        unit = units[next];
        benchmark::DoNotOptimize(unit);
        next ^= 1;
    }
    if (unit.GetIDUnit() != Unit::UNIT_ID_FORCE)
        state.SkipWithError("a wrong unit");
}
BENCHMARK(RefreshByCopy);

}  // namespace
