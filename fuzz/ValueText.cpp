// Any value in any unit by any settings: the classic forms and the bounded one give the same text, and nothing is written
// outside what they promise.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/FuzzText.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr wchar_t c_guard = 0x2592;
constexpr std::size_t c_room = 2000;  // for a number of 400 decimals and its unit

/// What a file says: the bytes in front are settings, the rest is the unit's own name.
struct Input
{
    std::uint8_t idUnit;
    std::uint8_t range;
    std::uint8_t exponent;
    std::uint8_t flags;
    std::uint8_t threshold;
    std::uint8_t separator;
    std::uint8_t bufferSize;
    std::uint8_t precision[2];
    std::uint8_t value[8];
};

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

CVeUnitBase UnitOf(const Input& input, const std::wstring& name)
{
    const unsigned int precision = (input.precision[0] | input.precision[1] << 8) % 400u;
    CVeUnitBase unit(input.idUnit % 28u, input.range % 13u, precision, L'.', 2.5, 0);
    if (input.exponent % 8u != 0)
        unit.SetExponent(input.exponent % 8 - 2);
    if (input.separator != 0)
        unit.SetSep(static_cast<wchar_t>(input.separator));
    if (!name.empty())
        unit.SetName(name.c_str());
    return unit;
}

/// The text of one classic form in an ample buffer, and whether a small buffer is left alone where it should be.
template <typename Form>
std::wstring ClassicText(Form form, unsigned int smallSize)
{
    std::vector<wchar_t> ample(c_room, L'\0');
    const CString text = form(ample.data(), static_cast<unsigned int>(c_room));
    Require(std::wstring_view(text) == ample.data());

    std::vector<wchar_t> small(c_room, c_guard);
    small[0] = L'\0';
    form(small.data(), smallSize);
    const std::size_t written = std::max<std::size_t>(smallSize, static_cast<std::size_t>(text.GetLength())) + 1;
    Require(std::all_of(small.begin() + static_cast<std::ptrdiff_t>(std::min(written, small.size())), small.end(),
                        [](wchar_t character) { return character == c_guard; }));
    return text.GetString();
}

std::wstring BoundedText(const CVeUnitBase& unit, double value, const ValueTextOptions& options, std::size_t smallSize)
{
    std::vector<wchar_t> ample(c_room);
    const std::size_t length = unit.Double2String(ample, value, options);
    Require(length < c_room && std::wstring_view(ample.data()).size() == length);

    std::vector<wchar_t> small(smallSize);  // of exactly that size: an address sanitizer guards its end
    Require(unit.Double2String(small, value, options) == length);
    Require(small.empty() || std::wstring_view(ample.data()).starts_with(small.data()));
    return ample.data();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input;
    if (size < sizeof input)
        return 0;
    std::memcpy(&input, data, sizeof input);
    const CVeUnitBase unit = UnitOf(input, TextOf(data + sizeof input, std::min<std::size_t>(size - sizeof input, 30)));
    double value;
    std::memcpy(&value, input.value, sizeof value);

    const auto flag = [&input](int bit)
    {
        return input.flags >> bit & 1;
    };
    const int threshold = input.threshold % 8 - 1;
    ValueTextOptions options{
        .withUnit = flag(0) != 0,
        .applyMetricsFactor = flag(1) != 0,
        .removeTrailingZeros = flag(2) != 0,
        .smallValuesAsExponent = flag(3) != 0,
        .smallValueThreshold = threshold,
    };
    const std::wstring ten = ClassicText(
        [&](wchar_t* buffer, unsigned int bufferSize) {
            return unit.Double2String(buffer, value, flag(0), L"%.*f", flag(1), flag(2), bufferSize, 0, flag(3),
                                      threshold);
        },
        input.bufferSize);
    Require(ten == BoundedText(unit, value, options, input.bufferSize));

    options.temperatureOffset = false;
    options.superscriptSubUnits = flag(4) != 0;
    options.dropZeroSuperscript = flag(5) != 0;
    const std::wstring twelve = ClassicText(
        [&](wchar_t* buffer, unsigned int bufferSize)
        {
            return unit.Double2String(buffer, flag(4), value, flag(0), L"%.*f", flag(1), flag(2), bufferSize, flag(5),
                                      0, flag(3), threshold);
        },
        input.bufferSize);
    Require(twelve == BoundedText(unit, value, options, input.bufferSize));

    unit.String2Double(ten.c_str(), nullptr, flag(1));
    CString eliminated(ten.c_str());
    CVeUnitBase::EliminatePrecision(eliminated);
    Require(eliminated.Find(L'.') < 0 && eliminated.Find(L',') < 0);
    return 0;
}
