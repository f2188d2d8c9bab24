#include "vetools/util/VeDate.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "vetools/framework/NumberReader.h"

namespace
{

/// Arithmetic of 32 bits that wraps around, with divisions that truncate towards zero.
class WrappingInt
{
public:
    constexpr WrappingInt(std::int32_t value)
        : m_value(value)
    {
    }

    constexpr std::int32_t Value() const { return m_value; }

    friend constexpr WrappingInt operator+(WrappingInt left, WrappingInt right)
    {
        return FromBits(left.Bits() + right.Bits());
    }
    friend constexpr WrappingInt operator-(WrappingInt left, WrappingInt right)
    {
        return FromBits(left.Bits() - right.Bits());
    }
    friend constexpr WrappingInt operator*(WrappingInt left, WrappingInt right)
    {
        return FromBits(left.Bits() * right.Bits());
    }
    /// The divisors here are constants above 0.
    friend constexpr WrappingInt operator/(WrappingInt left, std::int32_t divisor) { return left.m_value / divisor; }

private:
    constexpr std::uint32_t Bits() const { return static_cast<std::uint32_t>(m_value); }
    static constexpr WrappingInt FromBits(std::uint32_t bits) { return static_cast<std::int32_t>(bits); }

    std::int32_t m_value;
};

/// The number of the day of the Gregorian calendar that begins at noon of the date.
constexpr WrappingInt JulianDay(WrappingInt day, WrappingInt month, WrappingInt year)
{
    const WrappingInt a = (month - 14) / 12;  // -1 in January and February, which end the year before
    return WrappingInt(1461) * (year + 4800 + a) / 4 + WrappingInt(367) * (month - 2 - WrappingInt(12) * a) / 12 -
           WrappingInt(3) * ((year + 4900 + a) / 100) / 4 + day - 32075;
}

// clang-format off
constexpr std::int32_t c_dayBeforeFirst = 2400000;  // Kept: one less than where modified Julian days begin
constexpr std::int32_t c_buildEpoch     = 2454833;  // 1 January 2009
// clang-format on
static_assert(JulianDay(17, 11, 1858).Value() - c_dayBeforeFirst == 1);
static_assert(JulianDay(1, 1, 2009).Value() == c_buildEpoch);

constexpr std::string_view c_months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// What a build date consists of: "Jan 14 2021".
constexpr std::size_t c_monthLength = 3;
constexpr std::size_t c_dayPosition = 4;
constexpr std::size_t c_dayLength = 2;
constexpr std::size_t c_yearPosition = 7;

/// The part of a text, empty where the text ends before it.
std::string_view Part(std::string_view text, std::size_t position, std::size_t length = std::string_view::npos)
{
    return position < text.size() ? text.substr(position, length) : std::string_view();
}

int Number(std::string_view text)
{
    return ReadInteger(std::wstring(text.begin(), text.end()));
}

}  // namespace

int GetModifiedJulianDay(int day, int month, int year)
{
    return (JulianDay(day, month, year) - c_dayBeforeFirst).Value();
}

int BuildNumberFromDate(const char* date)
{
    const std::string_view text = date != nullptr ? date : "";
    const auto* const month = std::find(std::begin(c_months), std::end(c_months), text.substr(0, c_monthLength));
    if (month == std::end(c_months))
        return -1;
    const int monthNumber = static_cast<int>(month - std::begin(c_months)) + 1;
    const int day = Number(Part(text, c_dayPosition, c_dayLength));
    const int year = Number(Part(text, c_yearPosition));
    return (JulianDay(day, monthNumber, year) - c_buildEpoch).Value();
}

int GetBuildNumber()
{
    return BuildNumberFromDate(GetBuildDate());
}
