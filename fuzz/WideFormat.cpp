// Any format with arguments of known kinds: it ends, and its text stays in proportion to the format.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "vetools/framework/WideFormat.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t c_arguments = 6;
    constexpr std::size_t c_conversion = 2 * 65535 + 400;  // the longest text of one conversion
    const std::wstring format(data, data + size);
    if (format.find(L'\0') != std::wstring::npos)
        return 0;

    // The same arguments in several orders, so that a conversion meets its own kind and every other.
    const FormatArgument known[c_arguments] = {3, -1234.5678, L"wide", "narrow", static_cast<const void*>(data), 1e300};
    for (std::size_t first = 0; first < c_arguments; ++first)
    {
        CString text;
        AppendFormatted(text, format.c_str(), std::span(known).subspan(first));
        if (text.View().size() > size + (c_arguments - first) * c_conversion)
            std::abort();
    }
    return 0;
}
