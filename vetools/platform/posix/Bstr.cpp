#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>

#include "vetools/platform/posix/WinOle.h"

namespace
{

/// What stands in front of a text: the length where the system has it, and what keeps length and text aligned.
struct BstrHeader
{
    std::uint32_t padding;
    std::uint32_t byteLength;
};

constexpr UINT c_maxLength =
    static_cast<UINT>((std::numeric_limits<UINT>::max() - sizeof(BstrHeader)) / sizeof(OLECHAR) - 1);

BstrHeader* HeaderOf(BSTR text)
{
    return reinterpret_cast<BstrHeader*>(text) - 1;
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text)
{
    if (!text)
        return nullptr;
    const std::size_t length = std::wcslen(text);
    return length <= c_maxLength ? SysAllocStringLen(text, static_cast<UINT>(length)) : nullptr;
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    if (length > c_maxLength)
        return nullptr;
    const std::size_t byteLength = length * sizeof(OLECHAR);
    auto* header = static_cast<BstrHeader*>(std::malloc(sizeof(BstrHeader) + byteLength + sizeof(OLECHAR)));
    if (!header)
        return nullptr;
    *header = {0, static_cast<std::uint32_t>(byteLength)};
    auto* allocated = reinterpret_cast<BSTR>(header + 1);
    if (text)
        std::memcpy(allocated, text, byteLength);
    allocated[length] = L'\0';
    return allocated;
}

void SysFreeString(BSTR text)
{
    if (text)
        std::free(HeaderOf(text));
}

UINT SysStringByteLen(BSTR text)
{
    return text ? HeaderOf(text)->byteLength : 0;
}

UINT SysStringLen(BSTR text)
{
    return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
