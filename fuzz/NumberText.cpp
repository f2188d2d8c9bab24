// A number read from any text: what is taken is what the standard library takes and gives its value, and what is written
// of a value with all its digits is read as that value.
#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "vetools/framework/NumberText.h"

namespace
{

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool SameBits(double left, double right)
{
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// Reads the text that was taken as the standard library does, which knows neither white space nor a plus sign, and tells
/// nothing but the fact of a number too large or too small.
void CompareWithStandardLibrary(std::string_view taken, double value)
{
    taken.remove_prefix(std::min(taken.find_first_not_of("\t\n\v\f\r +"), taken.size()));
    double expected = 0.0;
    const auto result = std::from_chars(taken.data(), taken.data() + taken.size(), expected);
    Require(result.ptr == taken.data() + taken.size());
    if (result.ec == std::errc::result_out_of_range)
        Require(std::isinf(value) || std::fabs(value) < 1e-300);
    else
        Require(SameBits(expected, value));
}

void ReadBack(double value)
{
    constexpr int c_allDigits = 16;
    if (!std::isfinite(value))
        return;
    wchar_t text[ExponentTextCapacity(c_allDigits)];
    wchar_t* const end = WriteExponent(text, value, c_allDigits);
    Require(SameBits(value, ReadDouble({text, static_cast<std::size_t>(end - text)})));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text(data, data + size);
    std::size_t consumed = 0;
    const double value = ReadDouble(text, &consumed);
    Require(consumed <= size);
    if (consumed > 0)
        CompareWithStandardLibrary({reinterpret_cast<const char*>(data), consumed}, value);
    else
        Require(SameBits(value, 0.0));
    ReadBack(value);

    ReadInteger(text, &consumed);
    Require(consumed <= size);
    return 0;
}
