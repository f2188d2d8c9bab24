#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/UnitTestSupport.h"
#include "vetools/framework/CArchive.h"
#include "vetools/framework/CFile.h"

namespace
{

/// A block as it stands in a file, made by hand.
struct Block
{
    std::wstring idUnit = L"1";
    std::wstring range = L"4";
    std::wstring precision = L"3";
    std::wstring unitFormat = L"0";
    std::wstring separator = L".";
    std::wstring title = L"Mètre";
    std::wstring name = L"m";
    std::wstring coefficient = L"1";

    Bytes Make(bool withIgnoredField = false) const
    {
        const Bytes ignored = withIgnoredField ? FieldOf(L"4711", 100) : Bytes{};
        return FieldOf(idUnit, 100) + FieldOf(range, 100) + FieldOf(precision, 100) + ignored +
               FieldOf(unitFormat, 100) + FieldOf(separator, 100) + FieldOf(title, 100) + FieldOf(name, 40) +
               FieldOf(coefficient, 100);
    }
    Bytes MakeOld() const
    {
        return FieldOf(idUnit, 60) + FieldOf(range, 60) + FieldOf(precision, 60) + FieldOf(title, 100) +
               FieldOf(name, 40) + FieldOf(coefficient, 60);
    }
};

/// An id that the catalogue does not know: what was loaded stays.
constexpr const wchar_t* c_unknownId = L"77";

Bytes BytesOf(const CMemFile& file)
{
    return {file.GetBytes(), file.GetBytes() + file.GetLength()};
}

Bytes Saved(const CVeUnitBase& unit)
{
    CMemFile file;
    unit.Save(file);
    return BytesOf(file);
}

CMemFile& Fill(CMemFile& file, const Bytes& bytes)
{
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    return file;
}

CVeUnitBase Loaded(const Bytes& bytes, unsigned int version = 1002)
{
    CMemFile file;
    CVeUnitBase unit;
    unit.Load(Fill(file, bytes), version);
    return unit;
}

CVeUnitBase LoadedOld(const Bytes& bytes)
{
    CMemFile file;
    CVeUnitBase unit;
    unit.Load(Fill(file, bytes));
    return unit;
}

bool SameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

CVeUnitBase UnknownUnit(double coefficient)
{
    CVeUnitBase unit;
    unit.SetIdUnitAndRange(77, 3);
    unit.SetUnitValues(L"Sack", L"sk", coefficient);
    return unit;
}

}  // namespace

TEST(UnitSave, WritesEightFieldsOfFixedSizeFilledUpWithZeros)
{
    CVeUnitBase unknown = UnknownUnit(0.5);
    unknown.SetPrecision(0xFFFFFFFF);
    unknown.SetUnitFormat(Unit::UNITFORMAT_FEET_INCHES);
    unknown.SetSep(L';');
    CVeUnitBase full = UnknownUnit(-0.0);
    full.SetUnitValues(std::wstring(60, L'T').c_str(), std::wstring(30, L'n').c_str(), -1e-300);

    const struct
    {
        CVeUnitBase unit;
        Block block;
    } rows[] = {
        {CVeUnitBase(), {}},
        {CVeUnitBase(1, 0, 0, L'.', 7.0, 1),
         {.range = L"0", .precision = L"0", .title = L"Micromètre", .name = L"µm", .coefficient = L"1000000"}},
        {CVeUnitBase(1, 5, 4, L'.', 1.0, 0),
         {.range = L"5",
          .precision = L"4",
          .unitFormat = L"3",
          .title = L"Pouce",
          .name = L"\"",
          .coefficient = L"39.370078740157481433925568126142"}},
        {unknown,
         {.idUnit = L"77",
          .range = L"3",
          .precision = L"-1",
          .unitFormat = L"2",
          .separator = L";",
          .title = L"Sack",
          .name = L"sk",
          .coefficient = L"0.5"}},
        {full,
         {.idUnit = L"77",
          .range = L"3",
          .title = std::wstring(49, L'T'),
          .name = std::wstring(19, L'n'),
          .coefficient = L"-1.00000000000000002505909183520876e-300"}},
    };
    for (const auto& row : rows)
    {
        const Bytes saved = Saved(row.unit);
        ASSERT_EQ(740u, saved.size());
        const Bytes expected = row.block.Make();
        for (std::size_t i = 0; i < saved.size(); ++i)
            ASSERT_EQ(expected[i], saved[i])
                << "byte " << i << " of id " << row.unit.GetIDUnit() << ':' << row.unit.GetRange();
    }
}

TEST(UnitSave, BeginsWithTheIdAsLittleEndianText)
{
    const Bytes saved = Saved(CVeUnitBase(12, 0, 0, L'.', 1.0, 1));
    EXPECT_EQ((Bytes{0x31, 0, 0x32, 0, 0, 0}), Bytes(saved.begin(), saved.begin() + 6));
    EXPECT_EQ((Bytes{0xB5, 0, 0x6D, 0, 0, 0}), Bytes(saved.begin() + 600, saved.begin() + 606));
}

TEST(UnitSave, WritesTheCoefficientWithThirtyThreeDigits)
{
    const struct
    {
        const wchar_t* text;
        double coefficient;
    } rows[] = {
        {L"0", 0.0},
        {L"-0", -0.0},
        {L"0.100000000000000005551115123125783", 0.1},
        {L"999999999999999945575230987042816", 1e33},
        {L"9.99999999999999945575230987042816e+33", 1e34},
        {L"0.00010000000000000000479217360238593", 1e-4},
        {L"1.00000000000000008180305391403131e-05", 1e-5},
        {L"4.94065645841246544176568792868221e-324", 5e-324},
        {L"1.79769313486231570814527423731704e+308", std::numeric_limits<double>::max()},
        {L"1.#INF", std::numeric_limits<double>::infinity()},
    };
    for (const auto& row : rows)
    {
        const Bytes saved = Saved(UnknownUnit(row.coefficient));
        EXPECT_EQ(FieldOf(row.text, 100), Bytes(saved.begin() + 640, saved.end())) << row.coefficient;
    }
}

TEST(UnitSave, StoresTheSymbolAndTitleAsTheyAreNotAsTheyAreShown)
{
    CVeUnitBase unit = UnknownUnit(1.0);
    unit.SetUnitValues(L"Pouce \"", L"\"²", 1.0);
    ASSERT_EQ(L"sq in", NameOf(unit));
    Block block{.idUnit = L"77", .range = L"3", .title = L"Pouce \"", .name = L"\"²"};
    EXPECT_EQ(block.Make(), Saved(unit));
}

TEST(UnitSave, GivesTheFileOneBlockAtATime)
{
    const TestFolder folder;
    {
        CFile file(folder[L"units"], CFile::modeCreate | CFile::modeWrite);
        CVeUnitBase().Save(file);
        CVeUnitBase(2, 2, 1, L'.', 1.0, 0).Save(file);
    }
    EXPECT_EQ(Saved(CVeUnitBase()) + Saved(CVeUnitBase(2, 2, 1, L'.', 1.0, 0)), ReadBytes(folder / "units"));
    CFile file(folder[L"units"], CFile::modeRead);
    CVeUnitBase unit;
    unit.Load(file, 1002);
    EXPECT_EQ(1u, unit.GetIDUnit());
    unit.Load(file, 1002);
    EXPECT_EQ(2u, unit.GetIDUnit());
    EXPECT_EQ(1u, unit.GetPrecision());
    EXPECT_EQ(L"kN", NameOf(unit));
}

TEST(UnitLoad, KeptReadsOneFieldMoreFromVersion1012ThoughSaveWritesNone)
{
    const struct
    {
        unsigned int version;
        ULONGLONG consumed;
    } rows[] = {{0, 740}, {1000, 740}, {1002, 740}, {1011, 740}, {1012, 840}, {1013, 840}, {0xFFFFFFFF, 840}};
    for (const auto& row : rows)
    {
        const Block block{.idUnit = L"7", .range = L"8", .precision = L"5"};
        CMemFile file;
        CVeUnitBase unit;
        unit.Load(Fill(file, block.Make(row.consumed == 840) + Bytes(100, 0xFF)), row.version);
        EXPECT_EQ(row.consumed, file.GetPosition()) << row.version;
        EXPECT_EQ(7u, unit.GetIDUnit()) << row.version;
        EXPECT_EQ(8u, unit.GetRange()) << row.version;
        EXPECT_EQ(5u, unit.GetPrecision()) << row.version;
        EXPECT_EQ(L"psi", NameOf(unit)) << row.version;
    }
}

TEST(UnitLoad, ReadsTheOldBlockOf380Bytes)
{
    CMemFile file;
    CVeUnitBase unit(2, 2, 1, L'.', 9.0, 1);
    unit.SetUnitFormat(Unit::UNITFORMAT_FRACTION);
    const Block block{.idUnit = c_unknownId,
                      .range = L"12",
                      .precision = L"6",
                      .title = L"Sack",
                      .name = L"sk",
                      .coefficient = L"2.5e-3"};
    unit.Load(Fill(file, block.MakeOld() + Bytes(50, 0x41)));
    EXPECT_EQ(380u, file.GetPosition());
    EXPECT_EQ(77u, unit.GetIDUnit());
    EXPECT_EQ(12u, unit.GetRange());
    EXPECT_EQ(6u, unit.GetPrecision());
    EXPECT_EQ(L"Sack", TitleOf(unit));
    EXPECT_EQ(L"sk", NameOf(unit));
    EXPECT_EQ(0.0025, unit.GetCoef());
    EXPECT_EQ(Unit::UNITFORMAT_FRACTION, unit.GetUnitFormat());
    EXPECT_EQ(9.0, unit.GetMetricsFactor());
    EXPECT_EQ(1, unit.GetRemoveTrailingZeroes());
}

TEST(UnitLoad, TakesTextsCoefficientTypeAndFormatOfAKnownUnitFromTheCatalogue)
{
    const Block block{.range = L"9", .unitFormat = L"0", .title = L"Wrong", .name = L"wrong", .coefficient = L"7"};
    for (CVeUnitBase unit : {Loaded(block.Make()), LoadedOld(block.MakeOld())})
    {
        const CVeUnitBase expected = MakeCatalogueUnit(1, 9);
        EXPECT_EQ(NameOf(expected), NameOf(unit));
        EXPECT_EQ(TitleOf(expected), TitleOf(unit));
        EXPECT_EQ(expected.GetCoef(), unit.GetCoef());
        EXPECT_EQ(Unit::UNIT_TYPE_IMPERIAL, unit.GetType());
        EXPECT_EQ(Unit::UNITFORMAT_FRACTION, unit.GetUnitFormat());
    }
}

TEST(UnitLoad, KeepsWhatItReadOfAUnitThatTheCatalogueDoesNotKnow)
{
    const Block block{.idUnit = c_unknownId,
                      .range = L"3",
                      .unitFormat = L"4",
                      .title = L"Sack",
                      .name = L"sk",
                      .coefficient = L"-12.25"};
    CVeUnitBase unit = Loaded(block.Make());
    EXPECT_EQ(L"Sack", TitleOf(unit));
    EXPECT_EQ(L"sk", NameOf(unit));
    EXPECT_EQ(-12.25, unit.GetCoef());
    EXPECT_EQ(Unit::UNITFORMAT_FRACTION, unit.GetUnitFormat());
}

TEST(UnitLoad, LeavesExponentMetricsFactorAndTrailingZerosAsTheyWere)
{
    CMemFile file;
    CVeUnitBase unit(1, 1, 2, L'.', 25.0, 1);
    unit.SetExponent(2);
    unit.Load(Fill(file, Block{}.Make()), 1002);
    EXPECT_EQ(2, unit.GetExponent());
    EXPECT_EQ(25.0, unit.GetMetricsFactor());
    EXPECT_EQ(1, unit.GetRemoveTrailingZeroes());
    EXPECT_EQ(1.0, unit.GetCoef());
}

TEST(UnitLoad, SetsTheSeparatorToTheCurrentOneWhateverWasSaved)
{
    const ScopedSeparator comma(L',');
    EXPECT_EQ(L',', Loaded(Block{.separator = L";"}.Make()).GetSep());
    EXPECT_EQ(L',', LoadedOld(Block{}.MakeOld()).GetSep());
}

TEST(UnitLoad, ReadsACoefficientByTheCurrentSeparatorOrTheSavedOne)
{
    const struct
    {
        double expected;
        const wchar_t* text;
        wchar_t saved;
        wchar_t current;
    } rows[] = {
        {0.001, L"0,001", L',', L'.'},     {0.001, L"0.001", L'.', L','},   {0.001, L"0.001", L',', L'.'},
        {0.001, L"0,001", L'.', L','},     {0.001, L"0.001", L'.', L'.'},   {0.001, L"0,001", L',', L','},
        {0.001, L"0.001", L',', L','},  // as it is saved while ',' is current
        {0.0, L"0,001", L'.', L'.'},    // nothing says that the comma is a decimal mark
        {0.001, L"0.001", L';', L','},     {0.5, L"0;5", L';', L','},       {0.5, L"0;5", L';', L'.'},
        {-1250.0, L"-1,25e3", L',', L'.'}, {1.234, L"1,234,5", L',', L'.'}, {1.5, L"1,5 and more", L',', L'.'},
        {0.25, L",25", L',', L'.'},        {0.0, L"", L',', L'.'},          {0.0, L"abc", L',', L'.'},
        {0.0, L"inf", L'.', L'.'},         {0.0, L"nan", L'.', L'.'},       {0.0, L"0x10", L'.', L'.'},
    };
    for (const auto& row : rows)
    {
        const ScopedSeparator separator(row.current);
        const Block block{.idUnit = c_unknownId, .separator = {row.saved}, .coefficient = row.text};
        EXPECT_EQ(row.expected, Loaded(block.Make()).GetCoef())
            << testing::PrintToString(block.coefficient) << " saved " << testing::PrintToString(row.saved)
            << " current " << testing::PrintToString(row.current);
    }
}

TEST(UnitLoad, BringsACoefficientBackBitForBitWhateverTheSeparators)
{
    std::vector<double> coefficients = {0.0,
                                        -0.0,
                                        0.1,
                                        1.0 / 3.0,
                                        5e-324,
                                        2.2250738585072014e-308,
                                        2.225073858507201e-308,
                                        1e23,
                                        9007199254740993.0,
                                        39.37007874015748,
                                        3.2808398950131235,
                                        8.988465674311579e307,
                                        std::numeric_limits<double>::max(),
                                        -std::numeric_limits<double>::min()};
    std::mt19937_64 random(20231121);
    while (coefficients.size() < 2000)
    {
        const std::uint64_t bits = random();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value))
            coefficients.push_back(value);
    }
    const wchar_t separators[] = {L'.', L',', L';', L' '};
    for (std::size_t i = 0; i < coefficients.size(); ++i)
    {
        const wchar_t atSaving = separators[i % 4];
        const wchar_t atLoading = separators[i / 4 % 4];
        Bytes saved;
        {
            const ScopedSeparator separator(atSaving);
            saved = Saved(UnknownUnit(coefficients[i]));
        }
        const ScopedSeparator separator(atLoading);
        EXPECT_TRUE(SameBits(coefficients[i], Loaded(saved).GetCoef()))
            << std::hexfloat << coefficients[i] << testing::PrintToString(atSaving)
            << testing::PrintToString(atLoading);
    }
}

TEST(UnitLoad, ReadsNumbersAsFarAsTheyGo)
{
    const struct
    {
        unsigned int expected;
        std::wstring text;
    } rows[] = {
        {0, L""},
        {0, L"x"},
        {12, L"12"},
        {12, L" \t+12mm"},
        {12, L"12.9"},
        {0xFFFFFFFF, L"-1"},
        {2147483647, L"99999999999"},
        {0x80000000, L"-99999999999"},
        {12, std::wstring(48, L'0') + L"12"},  // the field has no room for a terminator
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Loaded(Block{.idUnit = row.text}.Make()).GetIDUnit())
            << testing::PrintToString(row.text);
    EXPECT_EQ(12u, LoadedOld(Block{.idUnit = std::wstring(28, L'0') + L"12"}.MakeOld()).GetIDUnit());
}

TEST(UnitLoad, CutsTextsWithoutATerminatorToTheirFields)
{
    const Block block{
        .idUnit = c_unknownId, .title = std::wstring(50, L'T'), .name = std::wstring(20, L'n'), .coefficient = L"2"};
    for (CVeUnitBase unit : {Loaded(block.Make()), LoadedOld(block.MakeOld())})
    {
        EXPECT_EQ(std::wstring(49, L'T'), TitleOf(unit));
        EXPECT_EQ(std::wstring(19, L'n'), NameOf(unit));
        EXPECT_EQ(2.0, unit.GetCoef());
    }
}

TEST(UnitLoad, IgnoresWhatStandsBehindATerminator)
{
    Bytes bytes = Block{.idUnit = c_unknownId, .title = L"Sack", .name = L"sk", .coefficient = L"2"}.Make();
    const std::size_t fields[] = {0, 100, 200, 300, 400, 500, 600, 640, 740};
    for (std::size_t field = 0; field + 1 < std::size(fields); ++field)
    {
        std::size_t i = fields[field];
        while (bytes[i] != 0 || bytes[i + 1] != 0)
            i += 2;
        for (i += 2; i < fields[field + 1]; ++i)
            bytes[i] = 0x39;
    }
    CVeUnitBase unit = Loaded(bytes);
    EXPECT_EQ(77u, unit.GetIDUnit());
    EXPECT_EQ(L"Sack", TitleOf(unit));
    EXPECT_EQ(L"sk", NameOf(unit));
    EXPECT_EQ(2.0, unit.GetCoef());
}

TEST(UnitLoad, TakesAFieldThatTheFileDoesNotDeliverAsEmpty)
{
    const Block block{.idUnit = L"-5",
                      .range = L"3",
                      .precision = L"5",
                      .unitFormat = L"2",
                      .title = L"Sack",
                      .name = L"sk",
                      .coefficient = L"2.5"};
    const Bytes bytes = block.Make();
    for (std::size_t length = 0; length <= bytes.size(); ++length)
    {
        CMemFile file;
        CVeUnitBase unit(2, 2, 1, L'.', 1.0, 0);
        unit.SetUnitValues(L"Before", L"before", 99.0);
        unit.Load(Fill(file, Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length))), 1002);
        // A character whose second byte, a zero, is missing is there.
        EXPECT_EQ(length > 2 ? 0xFFFFFFFBu : 0u, unit.GetIDUnit()) << length;
        EXPECT_EQ(length > 100 ? 3u : 0u, unit.GetRange()) << length;
        EXPECT_EQ(length > 200 ? 5u : 0u, unit.GetPrecision()) << length;
        EXPECT_EQ(length > 300 ? 2 : 0, static_cast<int>(unit.GetUnitFormat())) << length;
        EXPECT_EQ(length > 506 ? L"Sack" : std::wstring(L"Sac").substr(0, length <= 500 ? 0 : (length - 499) / 2),
                  TitleOf(unit))
            << length;
        EXPECT_EQ(length > 602 ? L"sk" : length > 600 ? L"s" : L"", NameOf(unit)) << length;
        EXPECT_EQ(length > 644 ? 2.5 : length > 640 ? 2.0 : 0.0, unit.GetCoef()) << length;
    }
}

TEST(UnitLoad, TakesAnyBytes)
{
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round)
    {
        Bytes bytes(random() % 900);
        for (std::uint8_t& value : bytes)
            value = static_cast<std::uint8_t>(random() % 4 ? random() : 0x30 + random() % 10);
        for (CVeUnitBase unit : {Loaded(bytes), Loaded(bytes, 1012), LoadedOld(bytes)})
        {
            EXPECT_LE(NameOf(unit).size(), 19u);
            EXPECT_EQ(740u, Saved(unit).size());
        }
    }
}

TEST(UnitLoad, KeepsAPairOfSurrogatesThroughAFile)
{
    Block block{.idUnit = c_unknownId,
                .range = L"3",
                .title = {wchar_t{0xD83D}, wchar_t{0xDCD0}, L'T'},
                .name = std::wstring(17, L'n') + std::wstring{wchar_t{0xD83D}, wchar_t{0xDCD0}}};
    EXPECT_EQ(block.Make(), Saved(Loaded(block.Make())));
    block.title = {wchar_t{0xDCD0}, wchar_t{0xD83D}};
    EXPECT_EQ(block.Make(), Saved(Loaded(block.Make())));
}

TEST(UnitLoad, RaisesTheFileErrorOfAFileThatCannotBeRead)
{
    const TestFolder folder;
    CFile file(folder[L"unit"], CFile::modeCreate | CFile::modeWrite);
    CVeUnitBase unit(2, 2, 1, L'.', 1.0, 0);
    try
    {
        unit.Load(file, 1002);
        FAIL() << "nothing was thrown";
    }
    catch (CFileException* exception)
    {
        EXPECT_EQ(CFileException::accessDenied, exception->m_cause);
        exception->Delete();
    }
    EXPECT_EQ(2u, unit.GetIDUnit());
}

namespace
{

Bytes Archived(CVeUnitBase unit)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    archive << unit;
    archive.Close();
    return BytesOf(file);
}

int CauseOf(void (*action)(CArchive&, CVeUnitBase&), CArchive& archive, CVeUnitBase& unit)
{
    try
    {
        action(archive, unit);
    }
    catch (CArchiveException* exception)
    {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
    return CArchiveException::none;
}

}  // namespace

TEST(UnitArchive, WritesFourteenBytes)
{
    CVeUnitBase unit(0x01020304, 0x05060708, 0xFFFFFFFE, L'.', 3.0, 0);
    unit.SetSep(L'\x20AC');
    EXPECT_EQ((Bytes{4, 3, 2, 1, 8, 7, 6, 5, 0xFE, 0xFF, 0xFF, 0xFF, 0xAC, 0x20}), Archived(unit));
    EXPECT_EQ((Bytes{1, 0, 0, 0, 4, 0, 0, 0, 3, 0, 0, 0, 0x2E, 0}), Archived(CVeUnitBase()));
}

TEST(UnitArchive, KeptReadingSetsMetricsFactorOneAndRemovesTrailingZeros)
{
    CMemFile file;
    CArchive archive(&Fill(file, Archived(CVeUnitBase(1, 5, 6, L'.', 4.0, 0))), CArchive::load);
    CVeUnitBase unit(26, 1, 2, L'.', 25.0, 0);
    unit.SetExponent(2);
    archive >> unit;
    EXPECT_EQ(1u, unit.GetIDUnit());
    EXPECT_EQ(5u, unit.GetRange());
    EXPECT_EQ(6u, unit.GetPrecision());
    EXPECT_EQ(1, unit.GetExponent());
    EXPECT_EQ(1.0, unit.GetMetricsFactor());
    EXPECT_EQ(1, unit.GetRemoveTrailingZeroes());
    EXPECT_EQ(L"\"", NameOf(unit));
    EXPECT_EQ(Unit::UNIT_TYPE_IMPERIAL, unit.GetType());
}

TEST(UnitArchive, ReadsAUnitWithTheCurrentSeparator)
{
    CVeUnitBase unit;
    unit.SetSep(L';');
    const Bytes bytes = Archived(unit);
    const ScopedSeparator comma(L',');
    CMemFile file;
    CArchive archive(&Fill(file, bytes), CArchive::load);
    archive >> unit;
    EXPECT_EQ(L',', unit.GetSep());
}

TEST(UnitArchive, GivesAUnitOutsideTheCatalogueEmptyTextsAndCoefficientOne)
{
    CMemFile file;
    CArchive archive(&Fill(file, Archived(UnknownUnit(12.5))), CArchive::load);
    CVeUnitBase unit(2, 2, 1, L'.', 1.0, 0);
    archive >> unit;
    EXPECT_EQ(77u, unit.GetIDUnit());
    EXPECT_EQ(L"", NameOf(unit));
    EXPECT_EQ(L"", TitleOf(unit));
    EXPECT_EQ(1.0, unit.GetCoef());
}

TEST(UnitArchive, RefusesTheWrongDirection)
{
    CVeUnitBase unit(2, 2, 1, L'.', 1.0, 0);
    CMemFile file;
    CArchive loading(&file, CArchive::load);
    EXPECT_EQ(2, CauseOf([](CArchive& archive, CVeUnitBase& value) { archive << value; }, loading, unit));
    CArchive storing(&file, CArchive::store);
    EXPECT_EQ(4, CauseOf([](CArchive& archive, CVeUnitBase& value) { archive >> value; }, storing, unit));
    storing.Close();
    EXPECT_EQ(0u, file.GetLength());
    EXPECT_EQ(2u, unit.GetIDUnit());
}

TEST(UnitArchive, RaisesTheEndOfTheFileForAShortRecordAndLeavesTheUnit)
{
    const Bytes record = Archived(CVeUnitBase());
    for (std::size_t length = 0; length < record.size(); ++length)
    {
        CMemFile file;
        CArchive archive(&Fill(file, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length))),
                         CArchive::load);
        CVeUnitBase unit(2, 2, 1, L'.', 7.0, 0);
        EXPECT_EQ(3, CauseOf([](CArchive& source, CVeUnitBase& value) { source >> value; }, archive, unit)) << length;
        EXPECT_EQ(2u, unit.GetIDUnit()) << length;
        EXPECT_EQ(7.0, unit.GetMetricsFactor()) << length;
    }
}

TEST(UnitArchive, KeepsManyUnitsInAFile)
{
    const TestFolder folder;
    {
        CFile file(folder[L"archive"], CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store, 128);
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        {
            CVeUnitBase unit(idUnit, idUnit % 3, idUnit, L'.', 1.0, 1);
            archive << unit;
        }
    }
    EXPECT_EQ(26u * 14u, std::filesystem::file_size(folder / "archive"));
    CFile file(folder[L"archive"], CFile::modeRead);
    CArchive archive(&file, CArchive::load, 128);
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        CVeUnitBase unit;
        archive >> unit;
        EXPECT_TRUE(unit == CVeUnitBase(idUnit, idUnit % 3, idUnit, L'.', 1.0, 1)) << idUnit;
    }
}
