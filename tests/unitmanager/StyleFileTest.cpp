#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/UnitTestSupport.h"
#include "vetools/framework/CFile.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

constexpr std::size_t c_headerSize = 40;
constexpr std::size_t c_recordSize = 740;
constexpr std::size_t c_styleSize = 19280;

/// A manager whose styles lie in a folder, with the extension ".units".
CVeUnitManager ManagerIn(const TestFolder& folder, std::wstring name = L"style")
{
    std::wstring prefix = folder.Prefix();
    std::wstring extension = L".units";
    return CVeUnitManager(prefix.data(), name.data(), extension.data(), L'.', 1.0, 0);
}

/// The precision that tells which record a unit was read from.
constexpr unsigned int PrecisionOf(unsigned int record)
{
    return 100 + record;
}

Bytes RecordOf(unsigned int idUnit, unsigned int precision, bool withIgnoredField)
{
    return FieldOf(std::to_wstring(idUnit), 100) + FieldOf(L"1", 100) + FieldOf(std::to_wstring(precision), 100) +
           (withIgnoredField ? FieldOf(L"9", 100) : Bytes{}) + FieldOf(L"0", 100) + FieldOf(L".", 100) +
           FieldOf(L"Title", 100) + FieldOf(L"name", 40) + FieldOf(L"2.5", 100);
}

/// A file with this text as header and records for these ids, in this order; the k-th has the precision 100 + k.
Bytes StyleOf(const std::wstring& header, const std::vector<unsigned int>& ids, bool withIgnoredField = false)
{
    Bytes style = FieldOf(header, c_headerSize);
    unsigned int record = 0;
    for (const unsigned int idUnit : ids)
        style = style + RecordOf(idUnit, PrecisionOf(++record), withIgnoredField);
    return style;
}

std::vector<unsigned int> IdsWithout(std::vector<unsigned int> absent)
{
    std::vector<unsigned int> ids;
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        if (std::find(absent.begin(), absent.end(), idUnit) == absent.end())
            ids.push_back(idUnit);
    }
    return ids;
}

enum class Loader
{
    Named,
    Unnamed,
};

int Load(CVeUnitManager& manager, Loader loader)
{
    return loader == Loader::Named ? manager.LoadStyleUnit(L"style") : manager.LoadStyleUnit();
}

std::vector<CVeUnit> UnitsOf(CVeUnitManager& manager)
{
    std::vector<CVeUnit> units(26);
    manager.GetTabUnit(units.data());
    return units;
}

/// Units of all kinds: other ranges, precisions, a foreign separator, a composed one, one that the catalogue lacks.
void Personalise(CVeUnitManager& manager)
{
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        manager.SetVisUnit(idUnit, idUnit * 7 % 3, idUnit % 9);
    manager.SetVisUnit(1, 8, 4);
    manager.SetVisUnit(9, 10, 5);
    manager.SetVisUnit(20, 4, 3);
    manager.SetVisUnit(10, 1, 0);
}

}  // namespace

TEST(StyleFile, IsAHeaderAndTheRecordsOfThe26Units)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder);
    Personalise(manager);
    manager.GetVisUnit(3).SetSep(L';');
    EXPECT_EQ(1, manager.SaveStyleUnit());

    const Bytes style = ReadBytes(folder / "style.units");
    ASSERT_EQ(c_styleSize, style.size());
    EXPECT_EQ(FieldOf(L"1002", c_headerSize), Bytes(style.begin(), style.begin() + c_headerSize));
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        CMemFile record;
        manager.GetVisUnit(idUnit).Save(record);
        const auto begin = style.begin() + static_cast<std::ptrdiff_t>(c_headerSize + c_recordSize * (idUnit - 1));
        EXPECT_EQ(Bytes(record.GetBytes(), record.GetBytes() + c_recordSize), Bytes(begin, begin + c_recordSize))
            << idUnit;
    }
    EXPECT_EQ(1u, folder.Count());
}

TEST(StyleFile, IsTheSameOnBothBuilds)
{
    const Bytes golden = ReadBytes("golden/style.units");
    ASSERT_EQ(c_styleSize, golden.size());
    for (const Loader loader : {Loader::Named, Loader::Unnamed})
    {
        const TestFolder folder;
        WriteBytes(folder / "style.units", golden);
        CVeUnitManager manager = ManagerIn(folder);
        EXPECT_EQ(1, Load(manager, loader));
        EXPECT_EQ(1, manager.SaveAsStyleUnit(L"again"));
        EXPECT_EQ(golden, ReadBytes(folder / "again.units"));

        CVeUnitManager expected = ManagerIn(folder);
        Personalise(expected);
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
            EXPECT_TRUE(expected.GetVisUnit(idUnit) == manager.GetVisUnit(idUnit)) << idUnit;
    }
}

TEST(StyleFile, RestoresAllUnitsByEitherLoader)
{
    const TestFolder folder;
    CVeUnitManager saved = ManagerIn(folder);
    Personalise(saved);
    EXPECT_EQ(1, saved.SaveStyleUnit());
    for (const Loader loader : {Loader::Named, Loader::Unnamed})
    {
        CVeUnitManager loaded = ManagerIn(folder);
        EXPECT_EQ(1, Load(loaded, loader));
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        {
            const CVeUnit& expected = saved.GetVisUnit(idUnit);
            const CVeUnit& actual = loaded.GetVisUnit(idUnit);
            EXPECT_TRUE(expected == actual) << idUnit;
            EXPECT_EQ(NameOf(expected), NameOf(actual)) << idUnit;
            EXPECT_EQ(TitleOf(expected), TitleOf(actual)) << idUnit;
            EXPECT_EQ(expected.GetCoef(), actual.GetCoef()) << idUnit;
        }
    }
}

TEST(StyleFile, HasTheRecordsThatItsVersionAndTheLoaderSay)
{
    const struct
    {
        std::wstring header;
        Loader loader;
        std::vector<unsigned int> absent;
        bool withIgnoredField = false;
    } rows[] = {
        {L"1002", Loader::Named, {}},
        {L"1002", Loader::Unnamed, {}},
        {L"1001", Loader::Named, {22, 23, 24, 25, 26}},
        {L"1001", Loader::Unnamed, {22, 23, 24, 25, 26}},
        {L"1000", Loader::Named, {13, 14, 22, 23, 24, 25, 26}},
        {L"1000", Loader::Unnamed, {12, 22, 23, 24, 25, 26}},
        {L"999", Loader::Named, {13, 14, 22, 23, 24, 25, 26}},
        {L"999", Loader::Unnamed, {12, 22, 23, 24, 25, 26}},
        {L"", Loader::Named, {13, 14, 22, 23, 24, 25, 26}},
        {L"style", Loader::Unnamed, {12, 22, 23, 24, 25, 26}},
        {L" 1001x", Loader::Named, {22, 23, 24, 25, 26}},
        {L"1011", Loader::Named, {}},
        {L"1012", Loader::Named, {}, true},
        {L"1012", Loader::Unnamed, {}, true},
        {L"99999999999", Loader::Named, {}, true},
        {L"00000000000000001002", Loader::Named, {}},  // the header has no room for a terminator
        // Handed on as the unsigned number that it is there, a negative version has the longer records.
        {L"-1", Loader::Named, {13, 14, 22, 23, 24, 25, 26}, true},
        {L"-1", Loader::Unnamed, {12, 22, 23, 24, 25, 26}, true},
    };
    for (const auto& row : rows)
    {
        const TestFolder folder;
        const std::vector<unsigned int> ids = IdsWithout(row.absent);
        WriteBytes(folder / "style.units", StyleOf(row.header, ids, row.withIgnoredField));
        CVeUnitManager manager = ManagerIn(folder);
        const std::vector<CVeUnit> before = UnitsOf(manager);
        EXPECT_EQ(1, Load(manager, row.loader));
        for (unsigned int record = 1; record <= ids.size(); ++record)
        {
            const CVeUnit& unit = manager.GetVisUnit(ids[record - 1]);
            EXPECT_EQ(ids[record - 1], unit.GetIDUnit()) << testing::PrintToString(row.header);
            EXPECT_EQ(PrecisionOf(record), unit.GetPrecision()) << testing::PrintToString(row.header);
        }
        for (const unsigned int idUnit : row.absent)
            EXPECT_TRUE(before[idUnit - 1] == manager.GetVisUnit(idUnit))
                << testing::PrintToString(row.header) << idUnit;
    }
}

TEST(StyleFile, KeptTheLoadersDisagreeOnTheOldestFiles)
{
    const TestFolder folder;
    WriteBytes(folder / "style.units", StyleOf(L"1000", IdsWithout({22, 23, 24, 25, 26})));
    CVeUnitManager manager = ManagerIn(folder);
    // By name, 13 and 14 are passed over and the records that follow 12 slide up; without a name, those that follow 11.
    EXPECT_EQ(1, manager.LoadStyleUnit(L"style"));
    EXPECT_EQ(PrecisionOf(12), manager.GetVisUnit(12).GetPrecision());
    EXPECT_EQ(2u, manager.GetVisUnit(13).GetPrecision());
    EXPECT_EQ(0u, manager.GetVisUnit(14).GetPrecision());
    EXPECT_EQ(PrecisionOf(13), manager.GetVisUnit(15).GetPrecision());
    EXPECT_EQ(1, manager.LoadStyleUnit());
    EXPECT_EQ(PrecisionOf(11), manager.GetVisUnit(11).GetPrecision());
    EXPECT_EQ(PrecisionOf(12), manager.GetVisUnit(13).GetPrecision());
    EXPECT_EQ(PrecisionOf(13), manager.GetVisUnit(14).GetPrecision());
    EXPECT_EQ(PrecisionOf(20), manager.GetVisUnit(21).GetPrecision());
}

TEST(StyleFile, PutsTheUnitOfARecordIntoItsPlaceWhateverItsId)
{
    const TestFolder folder;
    std::vector<unsigned int> ids(26, 2);
    WriteBytes(folder / "style.units", StyleOf(L"1002", ids));
    CVeUnitManager manager = ManagerIn(folder);
    EXPECT_EQ(1, manager.LoadStyleUnit());
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        EXPECT_EQ(2u, manager.GetVisUnit(idUnit).GetIDUnit());
        EXPECT_EQ(PrecisionOf(idUnit), manager.GetVisUnit(idUnit).GetPrecision());
    }
}

TEST(StyleFile, LeavesWhatIsNotPartOfIt)
{
    const TestFolder folder;
    ManagerIn(folder).SaveStyleUnit();
    CVeUnitManager manager = ManagerIn(folder);
    manager.SetUnitType(1);
    EXPECT_EQ(1, manager.LoadStyleUnit(L"style"));
    EXPECT_EQ(1000.0, manager.GetMetricsFactor());
    EXPECT_EQ(1000.0, manager.GetVisUnit(1).GetMetricsFactor());
    EXPECT_EQ(1, manager.GetVisUnit(1).GetRemoveTrailingZeroes());
    EXPECT_EQ(L'.', CVeUnitManager::m_cSep);
}

TEST(StyleFile, IsLoadedByTheConstructorOnRequest)
{
    const TestFolder folder;
    CVeUnitManager saved = ManagerIn(folder);
    Personalise(saved);
    EXPECT_EQ(1, saved.SaveStyleUnit());

    std::wstring prefix = folder.Prefix();
    wchar_t name[] = L"style";
    wchar_t extension[] = L".units";
    const ScopedSeparator restored(L'.');
    CVeUnitManager loaded(prefix.data(), name, extension, L',', 100.0, 1);
    EXPECT_EQ(8u, loaded.GetVisUnit(1).GetRange());
    EXPECT_EQ(100.0, loaded.GetVisUnit(1).GetMetricsFactor());
    EXPECT_EQ(L',', loaded.GetVisUnit(1).GetSep());

    CVeUnitManager plain(prefix.data(), name, extension, L'.', 100.0, 0);
    EXPECT_EQ(4u, plain.GetVisUnit(1).GetRange());
    EXPECT_EQ(L',', plain.GetVisUnit(1).GetSep());  // made before the separator changed
}

TEST(StyleFile, ThatCannotBeReadByTheConstructorLeavesNothingBehind)
{
    // A file of the system's that opens and whose first byte cannot be read; where there is none, there is no style.
    try
    {
        const CVeUnitManager manager(L"/proc/self/", L"mem", L"", L'.', 1.0, 1);
    }
    catch (CFileException* exception)
    {
        EXPECT_EQ(CString(L"/proc/self/mem"), exception->m_strFileName);
        exception->Delete();
    }
}

TEST(StyleFile, KeptRefreshesEveryUnitAfterLoadingByNameOnlyAlsoWithoutAFile)
{
    const TestFolder folder;
    for (const Loader loader : {Loader::Named, Loader::Unnamed})
    {
        CVeUnitManager manager = ManagerIn(folder);
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        {
            manager.GetVisUnit(idUnit).SetName(L"changed");
            manager.GetVisUnit(idUnit).SetSep(L';');
        }
        EXPECT_EQ(1, Load(manager, loader));
        const bool refreshed = loader == Loader::Named;
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        {
            EXPECT_EQ(refreshed, NameOf(manager.GetVisUnit(idUnit)) != L"changed") << idUnit;
            EXPECT_EQ(refreshed ? L'.' : L';', manager.GetVisUnit(idUnit).GetSep()) << idUnit;
        }
    }
}

TEST(StyleFile, ThatIsMissingChangesTheNameAlone)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder);
    const std::vector<CVeUnit> before = UnitsOf(manager);
    EXPECT_EQ(1, manager.LoadStyleUnit(L"missing"));
    EXPECT_EQ(CString(L"missing"), manager.GetNameStyleUnit());
    EXPECT_EQ(1, manager.LoadStyleUnit());
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        EXPECT_TRUE(before[idUnit - 1] == manager.GetVisUnit(idUnit)) << idUnit;
    EXPECT_EQ(0u, folder.Count());
}

TEST(StyleFile, ThatIsAFolderIsNeitherReadNorWritten)
{
    const TestFolder folder;
    std::filesystem::create_directory(folder / "style.units");
    CVeUnitManager manager = ManagerIn(folder);
    EXPECT_EQ(1, manager.SaveStyleUnit());
    EXPECT_EQ(1, manager.LoadStyleUnit());
    EXPECT_EQ(1, manager.LoadStyleUnit(L"style"));
    EXPECT_EQ(4u, manager.GetVisUnit(1).GetRange());
    EXPECT_TRUE(std::filesystem::is_directory(folder / "style.units"));
    EXPECT_EQ(1u, folder.Count());
}

TEST(StyleFile, IsNotWrittenIntoAMissingFolderNorOverAReadOnlyFile)
{
    const TestFolder folder;
    CVeUnitManager elsewhere = ManagerIn(folder, L"missing/style");
    EXPECT_EQ(1, elsewhere.SaveStyleUnit());
    EXPECT_EQ(0u, folder.Count());

    namespace fs = std::filesystem;
    WriteBytes(folder / "style.units", {1, 2, 3});
    const fs::perms writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(folder / "style.units", writing, fs::perm_options::remove);
    // Wine lets root write the file.
    const bool refused = !CFile().Open(folder[L"style.units"], CFile::modeWrite);
    EXPECT_EQ(1, ManagerIn(folder).SaveStyleUnit());
    EXPECT_EQ(refused, ReadBytes(folder / "style.units") == (Bytes{1, 2, 3}));
    EXPECT_EQ(1u, folder.Count());
    fs::permissions(folder / "style.units", fs::perms::owner_write, fs::perm_options::add);
}

TEST(StyleFile, ThatIsOpenElsewhereIsNeitherReadNorWritten)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder);
    manager.SetVisUnit(1, 1, 1);
    EXPECT_EQ(1, manager.SaveStyleUnit());
    manager.SetVisUnit(1, 2, 2);
    {
        const CFile exclusive(folder[L"style.units"], CFile::modeRead | CFile::shareExclusive);
        EXPECT_EQ(1, manager.SaveStyleUnit());
        EXPECT_EQ(1, manager.LoadStyleUnit());
        EXPECT_EQ(2u, manager.GetVisUnit(1).GetRange());
    }
    EXPECT_EQ(1, manager.LoadStyleUnit());
    EXPECT_EQ(1u, manager.GetVisUnit(1).GetRange());
}

TEST(StyleFile, ReplacesAShorterAndALongerOne)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder);
    for (const std::size_t size : {0u, 1u, 100000u})
    {
        WriteBytes(folder / "style.units", Bytes(size, 0x7F));
        EXPECT_EQ(1, manager.SaveStyleUnit());
        EXPECT_EQ(c_styleSize, ReadBytes(folder / "style.units").size()) << size;
        EXPECT_EQ(1u, folder.Count());
    }
}

TEST(StyleFile, IsSavedUnderANewNameThatIsKept)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder);
    EXPECT_EQ(1, manager.SaveStyleUnit());
    EXPECT_EQ(1, manager.SaveAsStyleUnit(L"other"));
    EXPECT_EQ(CString(L"other"), manager.GetNameStyleUnit());
    EXPECT_EQ(ReadBytes(folder / "style.units"), ReadBytes(folder / "other.units"));
    EXPECT_EQ(2u, folder.Count());
}

TEST(StyleFile, TakesNamesWithAnyCharacters)
{
    const TestFolder folder;
    for (const wchar_t* name :
         {L"mètres et pouces", L"%s%d%n", L"単位", L"\xFFFD", L"..style", L"a.b.c", L"[x] {y} ~ #&'"})
    {
        CVeUnitManager manager = ManagerIn(folder);
        manager.SetVisUnit(1, 1, 7);
        EXPECT_EQ(1, manager.SaveAsStyleUnit(name));
        manager.SetVisUnit(1, 2, 2);
        EXPECT_EQ(1, manager.LoadStyleUnit(name));
        EXPECT_EQ(7u, manager.GetVisUnit(1).GetPrecision()) << testing::PrintToString(name);
        EXPECT_TRUE(std::filesystem::exists(folder / PathOf(std::wstring(name) + L".units")))
            << testing::PrintToString(name);
    }
}

TEST(StyleFile, ThatIsCutAnywhereGivesEmptyRecordsFromThere)
{
    const Bytes whole = StyleOf(L"1002", IdsWithout({}));
    std::vector<std::size_t> lengths = {0, 1, 2, 7, 39, 40, 41};
    for (std::size_t record = 1; record <= 26; ++record)
    {
        const std::size_t begin = c_headerSize + c_recordSize * (record - 1);
        for (const std::size_t offset : {0, 1, 3, 100, 205, 399, 640, 739, 740})
            lengths.push_back(begin + offset);
    }
    const TestFolder folder;
    for (const std::size_t length : lengths)
    {
        WriteBytes(folder / "style.units", Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        for (const Loader loader : {Loader::Named, Loader::Unnamed})
        {
            CVeUnitManager manager = ManagerIn(folder);
            EXPECT_EQ(1, Load(manager, loader));
            // Without its header whole, the file names an older version, or none.
            if (length < 7)
                continue;
            for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
            {
                const std::size_t begin = c_headerSize + c_recordSize * (idUnit - 1);
                const bool isWhole = begin + c_recordSize <= length;
                const bool isAbsent = begin >= length;
                if (isWhole)
                {
                    EXPECT_EQ(PrecisionOf(idUnit), manager.GetVisUnit(idUnit).GetPrecision()) << length;
                }
                if (isWhole || isAbsent)
                {
                    EXPECT_EQ(isWhole ? idUnit : 0, manager.GetVisUnit(idUnit).GetIDUnit())
                        << length << " id " << idUnit;
                }
            }
        }
    }
}

TEST(StyleFile, MayHoldAnything)
{
    const Bytes whole = StyleOf(L"1002", IdsWithout({}));
    const TestFolder folder;
    std::mt19937 random(1002);
    for (int round = 0; round < 200; ++round)
    {
        Bytes damaged = whole;
        for (int change = 0; change < 1 + round / 2; ++change)
            damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
        if (round % 10 == 0)
            std::generate(damaged.begin(), damaged.end(), [&random] { return static_cast<std::uint8_t>(random()); });
        if (round % 7 == 0)
            damaged.resize(random() % 60000);
        WriteBytes(folder / "style.units", damaged);
        for (const Loader loader : {Loader::Named, Loader::Unnamed})
        {
            CVeUnitManager manager = ManagerIn(folder);
            EXPECT_EQ(1, Load(manager, loader));
            EXPECT_EQ(1, manager.SaveAsStyleUnit(L"again"));
            EXPECT_EQ(c_styleSize, std::filesystem::file_size(folder / "again.units")) << round;
        }
    }
}

TEST(StyleFile, ChangesNothingElseWhenOneByteIsDamaged)
{
    const Bytes whole = StyleOf(L"1002", IdsWithout({}));
    const TestFolder folder;
    for (std::size_t i = c_headerSize; i < whole.size(); i += 97)
    {
        Bytes damaged = whole;
        damaged[i] ^= 0xFF;
        WriteBytes(folder / "style.units", damaged);
        CVeUnitManager manager = ManagerIn(folder);
        EXPECT_EQ(1, manager.LoadStyleUnit());
        const unsigned int damagedId = static_cast<unsigned int>((i - c_headerSize) / c_recordSize) + 1;
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        {
            if (idUnit != damagedId)
            {
                EXPECT_EQ(PrecisionOf(idUnit), manager.GetVisUnit(idUnit).GetPrecision()) << "byte " << i;
            }
        }
    }
}
