#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The English names of the library's 26 quantities, and which of them measure the same: the twelve lengths convert into
/// each other, as do the two angles.
struct Quantity
{
    unsigned int id;
    const char* name;
    unsigned int family;  ///< lowest id of those that measure the same
};

/// All of them, ascending by id without a gap.
std::span<const Quantity> Quantities();

/// Nothing for an id that the library does not know.
const Quantity* QuantityById(unsigned int id);

/// By id ("2") or name ("force"), whatever the case; "pressure" and "speed" are understood as well.
const Quantity* FindQuantity(std::string_view text);

/// What a unit of the quantity raised to a power measures: "force", "area", "volume", "length^4".
std::string DescribeMeasure(unsigned int id, int exponent);

/// ASCII letters in lower case, everything else as it is.
std::string FoldCase(std::string_view text);

/// A whole number of at most six digits, and nothing else.
std::optional<unsigned int> ReadWholeNumber(std::string_view text);
