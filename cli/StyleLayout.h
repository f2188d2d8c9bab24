#pragma once

#include <cstddef>
#include <span>

/// How the bytes of a style file lie: a header of 40 bytes that names the version, then one record of texts per unit id,
/// in ascending order without gaps. Texts are UTF-16LE in fields of fixed size, each ended by a zero; what stands behind
/// the zero has no meaning.

constexpr unsigned int c_unitCount = 26;
constexpr int c_styleVersion = 1002;  ///< what the library writes today
constexpr std::size_t c_styleHeaderSize = 40;

/// The library reads a style by name or without one, and the two skip different records of the oldest files.
enum class StyleLoader
{
    Named,
    Unnamed,
};

enum class StyleField
{
    UnitId,
    Range,
    Precision,
    Ignored,  ///< read and dropped by the library
    Format,
    Separator,
    Title,
    Symbol,
    Coefficient,
};

struct StyleFieldRow
{
    StyleField field;
    const char* name;
    std::size_t size;      ///< in bytes
    int firstVersion = 0;  ///< files of lower versions do not have it
};

// clang-format off
constexpr StyleFieldRow c_styleFields[] = {
//   field                     name              size  first version
    {StyleField::UnitId,      "unit id",         100},
    {StyleField::Range,       "range",           100},
    {StyleField::Precision,   "precision",       100},
    {StyleField::Ignored,     "ignored field",   100,  1012},
    {StyleField::Format,      "unit format",     100},
    {StyleField::Separator,   "separator",       100},
    {StyleField::Title,       "title",           100},
    {StyleField::Symbol,      "symbol",           40},
    {StyleField::Coefficient, "coefficient",     100},
};
// clang-format on

constexpr std::size_t StyleRecordSize(int version)
{
    std::size_t size = 0;
    for (const StyleFieldRow& row : c_styleFields)
        if (version >= row.firstVersion)
            size += row.size;
    return size;
}

static_assert(StyleRecordSize(c_styleVersion) == 740);
static_assert(StyleRecordSize(1012) == 840);

/// Whether a loader looks for the record of a unit id in files of this version.
bool HasStyleRecord(unsigned int id, int version, StyleLoader loader);

/// Bytes of a whole file: 19280 for version 1002.
std::size_t StyleFileSize(int version, StyleLoader loader);

/// Whether the version is one that files have: 1 to 1002, and 1012 or more, whose records hold a further field.
bool IsStyleVersion(int version);
