// Styles read beside opening, reading and closing the file, and written beside writing its bytes aside and renaming.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/support/FileTestSupport.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

constexpr unsigned int c_range = 7;  // the kip
constexpr unsigned int c_precision = 5;

CVeUnitManager ManagerIn(const TestFolder& folder)
{
    std::wstring prefix = folder.Prefix();
    std::wstring name = L"style";
    std::wstring extension = L".units";
    return CVeUnitManager(prefix.data(), name.data(), extension.data(), L'.', 1.0, 0);
}

std::string StyleIn(const TestFolder& folder)
{
    return (folder / "style.units").string();
}

/// A manager with a force of its own, whose style is in the folder.
CVeUnitManager SavedManagerIn(const TestFolder& folder)
{
    CVeUnitManager units = ManagerIn(folder);
    units.SetVisUnit(Unit::UNIT_ID_FORCE, c_range, c_precision);
    units.SaveStyleUnit();
    return units;
}

void CheckStyleIn(const TestFolder& folder, benchmark::State& state)
{
    CVeUnitManager units = ManagerIn(folder);
    units.LoadStyleUnit();
    const CVeUnitBase& force = units.GetVisUnit(Unit::UNIT_ID_FORCE);
    if (force.GetRange() != c_range || force.GetPrecision() != c_precision)
        state.SkipWithError("a wrong style");
}

void ReadStyle(benchmark::State& state)
{
    const TestFolder folder;
    CVeUnitManager units = SavedManagerIn(folder);
    for (auto _ : state)
        benchmark::DoNotOptimize(units.LoadStyleUnit());
    CheckStyleIn(folder, state);
}
BENCHMARK(ReadStyle);

void ReadStyleByOpenReadClose(benchmark::State& state)
{
    const TestFolder folder;
    SavedManagerIn(folder);
    const std::string path = StyleIn(folder);
    const Bytes style = ReadBytes(path);
    Bytes bytes(style.size());
    for (auto _ : state)
    {
        std::FILE* const file = std::fopen(path.c_str(), "rb");
        std::setvbuf(file, nullptr, _IONBF, 0);
        benchmark::DoNotOptimize(std::fread(bytes.data(), 1, bytes.size(), file));
        std::fclose(file);
    }
    if (bytes != style)
        state.SkipWithError("a wrong style");
}
BENCHMARK(ReadStyleByOpenReadClose);

void WriteStyle(benchmark::State& state)
{
    const TestFolder folder;
    CVeUnitManager units = SavedManagerIn(folder);
    for (auto _ : state)
        benchmark::DoNotOptimize(units.SaveStyleUnit());
    CheckStyleIn(folder, state);
}
BENCHMARK(WriteStyle);

void WriteStyleAsideAndRename(benchmark::State& state)
{
    const TestFolder folder;
    SavedManagerIn(folder);
    const std::string path = StyleIn(folder);
    const std::string aside = path + ".new";
    const Bytes style = ReadBytes(path);
    for (auto _ : state)
    {
        std::FILE* const file = std::fopen(aside.c_str(), "wb");
        std::setvbuf(file, nullptr, _IONBF, 0);
        benchmark::DoNotOptimize(std::fwrite(style.data(), 1, style.size(), file));
        std::fclose(file);
        std::filesystem::rename(aside, path);
    }
    CheckStyleIn(folder, state);
}
BENCHMARK(WriteStyleAsideAndRename);

}  // namespace
