#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "cli/StyleLayout.h"

/// Something about the bytes of a style file that its reader should know.
struct StyleFinding
{
    enum class Kind
    {
        Problem,  ///< the file is damaged
        Note,     ///< the file is whole, and yet not what one may think
    };

    Kind kind = Kind::Problem;
    std::size_t byte = 0;  ///< where, from 0
    unsigned int id = 0;   ///< the unit id whose record it is in; 0 for the header and the file as a whole
    std::string field;     ///< the record's field; empty for the record as a whole
    std::string text;      ///< what is there and what was expected
};

struct StyleReport
{
    int version = 0;                          ///< as the library reads it: 0 when the header holds no number
    StyleLoader loader = StyleLoader::Named;  ///< whose records the file has; they differ up to version 1000
    unsigned int records = 0;                 ///< number of whole records
    std::vector<StyleFinding> findings;       ///< ascending by byte

    bool IsWhole() const;
};

/// Compares the bytes of a style file with what the library writes.
///
/// A record is right when its texts are those that the library writes of the unit that id and range name, the
/// coefficient to the last bit. When they are not, the nearest unit of the catalogue decides which field is to blame: a
/// record with the symbol, title and coefficient of kN and the range of t has a wrong range, not three wrong texts.
/// The size is that of the version in the header; a header that cannot be right (no number, or records of another size
/// than the file has) is a problem, and the records are then read as those of the version that fits.
StyleReport CheckStyle(std::span<const std::byte> bytes);
