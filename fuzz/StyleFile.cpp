// Any bytes as a style file, by both loaders, and as a unit block of every version: nothing breaks, what was loaded is
// saved as a whole style, and a saved style comes back as it was.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "vetools/framework/CFile.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

namespace fs = std::filesystem;

constexpr std::uintmax_t c_styleSize = 19280;

/// A folder of this process's own, removed when it ends.
class Folder
{
public:
    Folder()
    {
        for (unsigned int number = 0; m_path.empty() || !fs::create_directory(m_path); ++number)
            m_path = fs::temp_directory_path() / ("vetools-fuzz-" + std::to_string(number));
    }
    ~Folder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    std::wstring Prefix() const { return (m_path / "").wstring(); }
    fs::path operator/(const char* name) const { return m_path / name; }

private:
    fs::path m_path;
};

std::vector<char> ReadAll(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

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

    static const Folder s_folder;
    const std::wstring prefix = s_folder.Prefix();
    std::ofstream(s_folder / "style", std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    for (const bool named : {true, false})
    {
        CVeUnitManager manager(prefix.c_str(), L"style", L"", L'.', 1.0, 0);
        Check((named ? manager.LoadStyleUnit(L"style") : manager.LoadStyleUnit()) == 1);
        Check(manager.SaveAsStyleUnit(L"saved") == 1);
        const std::vector<char> saved = ReadAll(s_folder / "saved");
        Check(saved.size() == c_styleSize);
        Check(manager.LoadStyleUnit() == 1);
        Check(manager.SaveAsStyleUnit(L"again") == 1);
        Check(ReadAll(s_folder / "again") == saved);
    }
    return 0;
}
