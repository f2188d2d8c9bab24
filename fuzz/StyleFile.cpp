// Any bytes as a style file, by both loaders, and as a unit block of every version: nothing breaks, what was loaded is
// saved as a whole style, and a saved style comes back as it was.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tests/support/FileTestSupport.h"
#include "vetools/framework/CFile.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

constexpr std::size_t c_styleSize = 19280;

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

void LoadAsBlocks(const std::uint8_t* data, std::size_t size)
{
    CMemFile file(data, static_cast<UINT>(size));
    CVeUnitBase unit;
    for (const unsigned int version : {1002u, 1012u})
    {
        file.SeekToBegin();
        unit.Load(file, version);
        Check(file.GetPosition() == std::min<ULONGLONG>(size, version < 1012 ? 740 : 840));
    }
    file.SeekToBegin();
    unit.Load(file);
    Check(file.GetPosition() == std::min<ULONGLONG>(size, 380));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    LoadAsBlocks(data, size);

    static const TestFolder s_folder;
    const std::wstring prefix = s_folder.Prefix();
    WriteBytes(s_folder / "style", Bytes(data, data + size));
    for (const bool named : {true, false})
    {
        CVeUnitManager manager(prefix.c_str(), L"style", L"", L'.', 1.0, 0);
        Check((named ? manager.LoadStyleUnit(L"style") : manager.LoadStyleUnit()) == 1);
        Check(manager.SaveAsStyleUnit(L"saved") == 1);
        const Bytes saved = ReadBytes(s_folder / "saved");
        Check(saved.size() == c_styleSize);
        Check(manager.LoadStyleUnit() == 1);
        Check(manager.SaveAsStyleUnit(L"again") == 1);
        Check(ReadBytes(s_folder / "again") == saved);
    }
    return 0;
}
