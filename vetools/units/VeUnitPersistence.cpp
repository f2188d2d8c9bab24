#include <algorithm>
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

/// A block, read in one go. A field that the file does not deliver is empty.
class ReadBlock
{
public:
    ReadBlock(CFile& file, std::span<const FieldRow> rows)
        : m_rows(rows)
    {
        const UINT delivered = file.Read(m_bytes.data(), static_cast<UINT>(UnitRecord::SizeOf(rows)));
        std::fill(m_bytes.begin() + delivered, m_bytes.end(), std::byte{0});
    }

    unsigned int Number(Field field) const
    {
        // Written as signed numbers: 4294967295 is -1 in the file.
        return static_cast<unsigned int>(ReadInteger(Text(field).View()));
    }

    FieldText Text(Field field) const { return FieldText(Bytes(field)); }

    /// A title or name, cut as the unit's buffers are: the last place of the field is the terminator's.
    FieldText TerminatedText(Field field) const
    {
        const std::span<const std::byte> bytes = Bytes(field);
        return FieldText(bytes.first(bytes.size() - UnitRecord::c_placeSize));
    }

private:
    std::span<const std::byte> Bytes(Field field) const
    {
        return UnitRecord::FieldOf(std::span<const std::byte>(m_bytes), m_rows, field);
    }

    std::span<const FieldRow> m_rows;
    std::array<std::byte, c_largestBlock> m_bytes;
};

/// A block to be written in one go.
class WrittenBlock
{
public:
    void Put(Field field, std::wstring_view text)
    {
        const std::span<std::byte> bytes(m_bytes);
        UnitRecord::WriteText(UnitRecord::FieldOf(bytes, UnitRecord::c_block, field), text);
    }

    void Put(Field field, unsigned int value)
    {
        std::array<wchar_t, 11> text;  // -2147483648
        Put(field, {text.data(), WriteInteger(text.data(), static_cast<int>(value))});
    }

    void WriteTo(CFile& file) const { file.Write(m_bytes.data(), static_cast<UINT>(m_bytes.size())); }

private:
    std::array<std::byte, UnitRecord::SizeOf(UnitRecord::c_block)> m_bytes;
};

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
    WrittenBlock block;
    block.Put(Field::IdUnit, IdUnit);
    block.Put(Field::Range, Range);
    block.Put(Field::Precision, Precision);
    block.Put(Field::UnitFormat, UnitFormat);
    block.Put(Field::Separator, {&Sep, 1});
    block.Put(Field::Title, Title);
    block.Put(Field::Name, Name);
    block.Put(Field::Coefficient, CoefficientText(Coef).View());
    block.WriteTo(file);
}

void CVeUnitBase::Load(CFile& file)
{
    const ReadBlock block(file, UnitRecord::c_oldBlock);
    IdUnit = block.Number(Field::IdUnit);
    Range = block.Number(Field::Range);
    Precision = block.Number(Field::Precision);
    const wchar_t separator = CVeUnitSeparator::m_cSep;
    const double coefficient = UnitRecord::ReadCoefficient(block.Text(Field::Coefficient), separator, separator);
    SetUnitValues(block.TerminatedText(Field::Title).GetString(), block.TerminatedText(Field::Name).GetString(),
                  coefficient);
    UpdateDataUnit(false);
}

void CVeUnitBase::Load(CFile& file, unsigned int version)
{
    const ReadBlock block(file, UnitRecord::BlockOfVersion(version));
    IdUnit = block.Number(Field::IdUnit);
    Range = block.Number(Field::Range);
    Precision = block.Number(Field::Precision);
    UnitFormat = static_cast<Unit::enumUNITFORMAT>(block.Number(Field::UnitFormat));
    const wchar_t savedSeparator = *block.Text(Field::Separator).GetString();
    const double coefficient =
        UnitRecord::ReadCoefficient(block.Text(Field::Coefficient), savedSeparator, CVeUnitSeparator::m_cSep);
    SetUnitValues(block.TerminatedText(Field::Title).GetString(), block.TerminatedText(Field::Name).GetString(),
                  coefficient);
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
