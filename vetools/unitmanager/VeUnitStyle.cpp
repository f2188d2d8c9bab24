#include <array>

#include "vetools/framework/CFile.h"
#include "vetools/framework/NumberText.h"
#include "vetools/unitmanager/UnitDefaults.h"
#include "vetools/unitmanager/VeUnitManager.h"
#include "vetools/units/UnitRecord.h"
#include "vetools/util/FileReplacement.h"

namespace
{

constexpr int c_currentVersion = 1002;
constexpr int c_lastVersionWithoutLastUnits = 1001;  ///< files up to this one have no records of the ids 22 to 26
constexpr int c_lastOldVersion = 1000;               ///< of these, each loader skips ids of its own as well
constexpr unsigned int c_firstOfLastUnits = 22;

constexpr std::size_t c_headerSize = 40;
constexpr std::size_t c_largestStyle = c_headerSize + c_unitIdCount * UnitRecord::SizeOf(UnitRecord::c_block1012);

void WriteHeader(CFile& file)
{
    std::array<wchar_t, 12> text{};
    const wchar_t* end = WriteInteger(text.data(), c_currentVersion);
    std::array<std::byte, c_headerSize> header{};
    UnitRecord::WriteText(header, {text.data(), end});
    file.Write(header.data(), static_cast<UINT>(header.size()));
}

/// The version that the header names, 0 when it names none.
int ReadHeader(CFile& file)
{
    std::array<std::byte, c_headerSize> header{};
    file.Read(header.data(), static_cast<UINT>(header.size()));
    return ReadInteger(UnitRecord::FieldText(header).View());
}

/// Whether a file of this version has a record for an id. `isInOldFiles` says so for the loader's oldest files.
bool HasRecord(unsigned int idUnit, int version, bool isInOldFiles)
{
    if (idUnit >= c_firstOfLastUnits)
        return version > c_lastVersionWithoutLastUnits;
    return isInOldFiles || version > c_lastOldVersion;
}

}  // namespace

CString CVeUnitManager::StylePath() const
{
    CString path(m_folder);
    path += m_styleName;
    path += m_extension;
    return path;
}

int CVeUnitManager::SaveStyleUnit()
{
    CMemFile style;
    WriteHeader(style);
    for (const CVeUnit* unit : m_units)
    {
        if (unit)
            unit->Save(style);
    }
    ReplaceFileContents(StylePath(), style.GetBytes(), static_cast<UINT>(style.GetLength()));
    return 1;
}

int CVeUnitManager::SaveAsStyleUnit(const wchar_t* name)
{
    SetNameStyleUnit(name);
    return SaveStyleUnit();
}

/// Reads the records of the ids for which `hasRecord(idUnit, version)` holds, in ascending order of ids.
template <typename Predicate>
void CVeUnitManager::ReadStyle(Predicate hasRecord)
{
    CFile file;
    if (!file.Open(StylePath(), CFile::modeRead))
        return;
    // One read for all: no record lies beyond the largest style.
    std::array<BYTE, c_largestStyle> bytes;
    CMemFile style(bytes.data(), file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
    file.Close();

    const int version = ReadHeader(style);
    for (unsigned int idUnit = 1; idUnit <= c_unitIdCount; ++idUnit)
    {
        if (m_units[idUnit - 1] && hasRecord(idUnit, version))
            m_units[idUnit - 1]->Load(style, static_cast<unsigned int>(version));
    }
}

int CVeUnitManager::LoadStyleUnit(const wchar_t* name)
{
    SetNameStyleUnit(name);
    // Kept: of the oldest files this loader skips the ids 13 and 14, the other one the id 12.
    ReadStyle([](unsigned int idUnit, int version)
              { return HasRecord(idUnit, version, idUnit != 13 && idUnit != 14); });
    for (CVeUnit* unit : m_units)
    {
        if (unit)
            unit->UpdateDataUnit(false);
    }
    return 1;
}

int CVeUnitManager::LoadStyleUnit()
{
    ReadStyle([](unsigned int idUnit, int version) { return HasRecord(idUnit, version, idUnit != 12); });
    return 1;
}
