// A list of numbers and ranges read from any text: ascending, without duplicates, and the same when it is read back.
#include <algorithm>
#include <cstdlib>
#include <functional>

#include "fuzz/FuzzText.h"
#include "vetools/util/NumberList.h"

namespace
{

/// A range holds all its numbers: longer ones than these ask for more memory than a test should take.
constexpr int c_digits = 3;

bool HasLongNumber(const std::wstring& text)
{
    int digits = 0;
    return std::any_of(text.begin(), text.end(),
                       [&digits](wchar_t character)
                       {
                           digits = character >= L'0' && character <= L'9' ? digits + 1 : 0;
                           return digits > c_digits;
                       });
}

std::list<long> Read(const std::wstring& text)
{
    std::list<long> values{-1};
    ParseStringToLong(CString(text.c_str()), values, 1);
    return values;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text = TextOf(data, size);
    if (HasLongNumber(text))
        return 0;

    const std::list<long> values = Read(text);
    if (std::adjacent_find(values.begin(), values.end(), std::greater_equal<>()) != values.end())
        std::abort();

    std::wstring plain;
    for (const long value : values)
        plain += std::to_wstring(value) + L',';
    const bool negative = !values.empty() && values.front() < 0;  // a minus sign is the mark of a range
    if (!negative && Read(plain) != values)
        std::abort();
    return 0;
}
