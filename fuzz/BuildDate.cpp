// A build date of any bytes: the number is that of the day, month and year that stand in their places, or -1.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "vetools/util/VeDate.h"

namespace
{

constexpr std::array<std::string_view, 12> c_months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool HasMonth(std::string_view date)
{
    for (const std::string_view month : c_months)
        if (date.starts_with(month))
            return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string date(reinterpret_cast<const char*>(data), size);
    const std::string_view terminated = date.c_str();
    const int number = BuildNumberFromDate(date.c_str());
    if (!HasMonth(terminated))
        Require(number == -1);

    // What stands behind the year's digits, and in place of the blanks, does not matter.
    if (HasMonth(terminated) && terminated.size() > 7)
    {
        std::string other(terminated);
        other[3] = '-';
        other[6] = '-';
        Require(BuildNumberFromDate((other + " x").c_str()) == number);
    }

    // A day later by its arguments is a day later by its number, whatever they are: both wrap around.
    std::array<std::uint32_t, 3> arguments{};
    for (std::size_t i = 0; i < size && i < sizeof arguments; ++i)
        arguments[i / 4] = arguments[i / 4] << 8 | data[i];
    const auto numberOf = [&arguments](std::uint32_t day)
    {
        return static_cast<std::uint32_t>(GetModifiedJulianDay(static_cast<int>(day), static_cast<int>(arguments[1]),
                                                               static_cast<int>(arguments[2])));
    };
    Require(numberOf(arguments[0] + 1) == numberOf(arguments[0]) + 1);
    return 0;
}
