#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The fields of a unit's text block in a file (internal): texts in UTF-16LE, each in a field of fixed size, ended by a
/// zero. What stands behind the zero has no meaning and is written as zeros.
namespace UnitRecord
{

enum class Field
{
    IdUnit,
    Range,
    Precision,
    Ignored,  ///< read and dropped; nothing is known of its meaning
    UnitFormat,
    Separator,
    Title,
    Name,
    Coefficient,
};

struct FieldRow
{
    Field field;
    std::size_t size;  ///< in bytes
};

// clang-format off
/// What Save writes, and what Load reads of versions before 1012: 740 bytes.
constexpr FieldRow c_block[] = {
    {Field::IdUnit,      100},
    {Field::Range,       100},
    {Field::Precision,   100},
    {Field::UnitFormat,  100},
    {Field::Separator,   100},
    {Field::Title,       100},
    {Field::Name,         40},
    {Field::Coefficient, 100},
};

/// Read from version 1012 on: 840 bytes. Kept: Save writes no such block, whoever calls Load chooses the version.
constexpr FieldRow c_block1012[] = {
    {Field::IdUnit,      100},
    {Field::Range,       100},
    {Field::Precision,   100},
    {Field::Ignored,     100},
    {Field::UnitFormat,  100},
    {Field::Separator,   100},
    {Field::Title,       100},
    {Field::Name,         40},
    {Field::Coefficient, 100},
};

/// The block of the oldest files, which have no version: 380 bytes.
constexpr FieldRow c_oldBlock[] = {
    {Field::IdUnit,       60},
    {Field::Range,        60},
    {Field::Precision,    60},
    {Field::Title,       100},
    {Field::Name,         40},
    {Field::Coefficient,  60},
};
// clang-format on

constexpr unsigned int c_firstVersionWithIgnoredField = 1012;

constexpr std::size_t SizeOf(std::span<const FieldRow> block)
{
    std::size_t size = 0;
    for (const FieldRow& row : block)
        size += row.size;
    return size;
}

static_assert(SizeOf(c_block) == 740);
static_assert(SizeOf(c_block1012) == 840);
static_assert(SizeOf(c_oldBlock) == 380);

/// The block that a file of this version holds.
constexpr std::span<const FieldRow> BlockOfVersion(unsigned int version)
{
    if (version >= c_firstVersionWithIgnoredField)
        return c_block1012;
    return c_block;
}

/// The bytes of a field in a block that consists of `rows`, among which the field is.
template <typename Byte>
constexpr std::span<Byte> FieldOf(std::span<Byte> block, std::span<const FieldRow> rows, Field field)
{
    std::size_t offset = 0;
    std::size_t index = 0;
    for (; rows[index].field != field; ++index)
        offset += rows[index].size;
    return block.subspan(offset, rows[index].size);
}

/// Writes `text` into a field and zeros behind it, cut so that a zero follows it. A character beyond 16 bits takes two
/// places and is never cut in half.
void WriteText(std::span<std::byte> field, std::wstring_view text);

/// The bytes of a character in a field.
constexpr std::size_t c_placeSize = 2;

/// What a field says, without memory of its own from the heap.
class FieldText
{
public:
    /// The text of a field up to its zero; all of the field when it has none. Two places that make one character beyond
    /// 16 bits are read as what holds that character here.
    explicit FieldText(std::span<const std::byte> field);

    std::wstring_view View() const { return {m_characters.data(), m_length}; }
    const wchar_t* GetString() const { return m_characters.data(); }

    /// Puts one character in the place of another, wherever that occurs, and returns whether it did.
    bool Replace(wchar_t from, wchar_t to);
    void SetAt(std::size_t index, wchar_t character) { m_characters[index] = character; }

private:
    static constexpr std::size_t c_largestField = 100;

    std::array<wchar_t, c_largestField / c_placeSize + 1> m_characters;  ///< as far as the text and its terminator go
    std::size_t m_length = 0;
};

/// The coefficient that a field's text stands for: a number with '.' or with the current separator as its decimal
/// mark. When the text is not a number as it stands, every `savedSeparator` in it is read as the current one, so a
/// file saved where ',' was current is read where '.' is, and back.
double ReadCoefficient(FieldText text, wchar_t savedSeparator, wchar_t currentSeparator);

}  // namespace UnitRecord
