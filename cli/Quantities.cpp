#include "cli/Quantities.h"

#include <charconv>

namespace
{

// clang-format off
constexpr Quantity c_quantities[] = {
//   id  name            family
    { 1, "length",        1},
    { 2, "force",         2},
    { 3, "moment",        3},
    { 4, "mass",          4},
    { 5, "angle",         5},
    { 6, "angle-6",       5},
    { 7, "stress",        7},
    { 8, "time",          8},
    { 9, "length-9",      1},
    {10, "temperature",  10},
    {11, "dimensionless", 11},
    {12, "length-12",     1},
    {13, "length-13",     1},
    {14, "length-14",     1},
    {15, "energy",       15},
    {16, "velocity",     16},
    {17, "acceleration", 17},
    {18, "ratio",        18},
    {19, "length-19",     1},
    {20, "frequency",    20},
    {21, "length-21",     1},
    {22, "length-22",     1},
    {23, "length-23",     1},
    {24, "length-24",     1},
    {25, "length-25",     1},
    {26, "length-26",     1},
};

struct OtherName
{
    const char* name;
    unsigned int id;
};

constexpr OtherName c_otherNames[] = {
    {"pressure", 7},
    {"speed", 16},
};
// clang-format on

constexpr bool IdsAscendFromOne()
{
    unsigned int expected = 1;
    for (const Quantity& quantity : c_quantities)
        if (quantity.id != expected++)
            return false;
    return true;
}
static_assert(IdsAscendFromOne(), "QuantityById finds a row by its place");

}  // namespace

std::span<const Quantity> Quantities()
{
    return c_quantities;
}

const Quantity* QuantityById(unsigned int id)
{
    return id >= 1 && id <= std::size(c_quantities) ? &c_quantities[id - 1] : nullptr;
}

const Quantity* FindQuantity(std::string_view text)
{
    if (const std::optional<unsigned int> id = ReadWholeNumber(text))
        return QuantityById(*id);
    const std::string name = FoldCase(text);
    for (const Quantity& quantity : c_quantities)
        if (name == quantity.name)
            return &quantity;
    for (const OtherName& other : c_otherNames)
        if (name == other.name)
            return QuantityById(other.id);
    return nullptr;
}

std::string DescribeMeasure(unsigned int id, int exponent)
{
    const Quantity* quantity = QuantityById(id);
    if (!quantity)
        return "unknown";
    const std::string name = QuantityById(quantity->family)->name;
    if (exponent == 1)
        return name;
    if (exponent == 2)
        return "area";
    if (exponent == 3)
        return "volume";
    return name + "^" + std::to_string(exponent);
}

std::string FoldCase(std::string_view text)
{
    std::string folded(text);
    for (char& character : folded)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return folded;
}

std::optional<unsigned int> ReadWholeNumber(std::string_view text)
{
    constexpr std::size_t c_mostDigits = 6;
    unsigned int number = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (text.empty() || text.size() > c_mostDigits || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return number;
}
