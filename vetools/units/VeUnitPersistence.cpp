#include <array>

#include "vetools/framework/CArchive.h"
#include "vetools/framework/CFile.h"
#include "vetools/framework/NumberText.h"
#include "vetools/units/UnitRecord.h"
#include "vetools/units/UnitSeparator.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

using UnitRecord::Field;
using UnitRecord::FieldRow;
using UnitRecord::FieldText;

constexpr std::size_t c_largestBlock = UnitRecord::SizeOf(UnitRecord::c_block1012);

/// What the fields of a block say.
struct BlockContents
{
    unsigned int idUnit = 0;
    unsigned int range = 0;
    unsigned int precision = 0;
    unsigned int unitFormat = 0;
    wchar_t separator = 0;
    FieldText title;
    FieldText name;
    FieldText coefficient;
};

unsigned int ReadUnsigned(std::span<const std::byte> field)
{
    // Written as signed numbers: 4294967295 is -1 in the file.
    return static_cast<unsigned int>(ReadInteger(FieldText(field).View()));
}

/// A title or name, cut as the unit's buffers are: the last place of the field is the terminator's.
FieldText ReadTerminated(std::span<const std::byte> field)
{
    return FieldText(field.first(field.size() - UnitRecord::c_placeSize));
}

/// Reads a block in one go. A field that the file does not deliver is empty.
BlockContents ReadBlock(CFile& file, std::span<const FieldRow> rows)
{
    std::array<std::byte, c_largestBlock> bytes{};
    file.Read(bytes.data(), static_cast<UINT>(UnitRecord::SizeOf(rows)));

    BlockContents contents;
    std::span<const std::byte> rest(bytes);
    for (const FieldRow& row : rows)
    {
        const std::span<const std::byte> field = rest.first(row.size);
        rest = rest.subspan(row.size);
        switch (row.field)
        {
        case Field::IdUnit:
            contents.idUnit = ReadUnsigned(field);
            break;
        case Field::Range:
            contents.range = ReadUnsigned(field);
            break;
        case Field::Precision:
            contents.precision = ReadUnsigned(field);
            break;
        case Field::Ignored:
            break;
        case Field::UnitFormat:
            contents.unitFormat = ReadUnsigned(field);
            break;
        case Field::Separator:
            contents.separator = *FieldText(field).GetString();
            break;
        case Field::Title:
            contents.title = ReadTerminated(field);
            break;
        case Field::Name:
            contents.name = ReadTerminated(field);
            break;
        case Field::Coefficient:
            contents.coefficient = FieldText(field);
            break;
        }
    }
    return contents;
}

void WriteNumber(std::span<std::byte> field, unsigned int value)
{
    std::array<wchar_t, 11> text;  // -2147483648
    UnitRecord::WriteText(field, {text.data(), WriteInteger(text.data(), static_cast<int>(value))});
}

/// All the digits that tell one double from every other, and more: "%.33g".
CString CoefficientText(double coefficient)
{
    CString text;
    text.Format(L"%.33g", coefficient);
    return text;
}

}  // namespace

void CVeUnitBase::Save(CFile& file) const
{
    std::array<std::byte, UnitRecord::SizeOf(UnitRecord::c_block)> bytes{};
    std::span<std::byte> rest(bytes);
    for (const FieldRow& row : UnitRecord::c_block)
    {
        const std::span<std::byte> field = rest.first(row.size);
        rest = rest.subspan(row.size);
        switch (row.field)
        {
        case Field::IdUnit:
            WriteNumber(field, IdUnit);
            break;
        case Field::Range:
            WriteNumber(field, Range);
            break;
        case Field::Precision:
            WriteNumber(field, Precision);
            break;
        case Field::Ignored:
            break;
        case Field::UnitFormat:
            WriteNumber(field, UnitFormat);
            break;
        case Field::Separator:
            UnitRecord::WriteText(field, {&Sep, 1});
            break;
        case Field::Title:
            UnitRecord::WriteText(field, Title);
            break;
        case Field::Name:
            UnitRecord::WriteText(field, Name);
            break;
        case Field::Coefficient:
            UnitRecord::WriteText(field, CoefficientText(Coef).View());
            break;
        }
    }
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
}

void CVeUnitBase::Load(CFile& file)
{
    const BlockContents contents = ReadBlock(file, UnitRecord::c_oldBlock);
    IdUnit = contents.idUnit;
    Range = contents.range;
    Precision = contents.precision;
    const wchar_t separator = CVeUnitSeparator::m_cSep;
    SetUnitValues(contents.title.GetString(), contents.name.GetString(),
                  UnitRecord::ReadCoefficient(contents.coefficient, separator, separator));
    UpdateDataUnit(false);
}

void CVeUnitBase::Load(CFile& file, unsigned int version)
{
    const BlockContents contents = ReadBlock(file, UnitRecord::BlockOfVersion(version));
    IdUnit = contents.idUnit;
    Range = contents.range;
    Precision = contents.precision;
    UnitFormat = static_cast<Unit::enumUNITFORMAT>(contents.unitFormat);
    SetUnitValues(contents.title.GetString(), contents.name.GetString(),
                  UnitRecord::ReadCoefficient(contents.coefficient, contents.separator, CVeUnitSeparator::m_cSep));
    UpdateDataUnit(false);
}

CArchive& operator<<(CArchive& archive, CVeUnitBase& unit)
{
    if (!archive.IsStoring())
        AfxThrowArchiveException(CArchiveException::readOnly);
    return archive << unit.IdUnit << unit.Range << unit.Precision << unit.Sep;
}

CArchive& operator>>(CArchive& archive, CVeUnitBase& unit)
{
    if (!archive.IsLoading())
        AfxThrowArchiveException(CArchiveException::writeOnly);
    unsigned int idUnit = 0;
    unsigned int range = 0;
    unsigned int precision = 0;
    wchar_t separator = 0;
    archive >> idUnit >> range >> precision >> separator;
    // Kept: the target's metrics factor becomes 1.0 and its remove-trailing-zeroes flag 1, whatever they were.
    unit = CVeUnitBase(idUnit, range, precision, separator, 1.0, 1);
    return archive;
}
