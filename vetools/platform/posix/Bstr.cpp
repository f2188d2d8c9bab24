#include <cstdlib>
#include <cwchar>
#include <limits>

#include "vetools/platform/posix/WinOle.h"

namespace
{

/// What stands in front of a text: its length in bytes, and what keeps the text aligned.
struct BstrHeader
{
    std::uint64_t byteLength;
};

BstrHeader* HeaderOf(BSTR text)
{
    return reinterpret_cast<BstrHeader*>(text) - 1;
}

} // namespace

BSTR SysAllocString(const OLECHAR* text)
{
    return text ? SysAllocStringLen(text, static_cast<UINT>(std::wcslen(text))) : nullptr;
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    if (length > std::numeric_limits<UINT>::max() / sizeof(OLECHAR) - sizeof(BstrHeader))
        return nullptr;
    const std::size_t byteLength = length * sizeof(OLECHAR);
    auto* header = static_cast<BstrHeader*>(std::malloc(sizeof(BstrHeader) + byteLength + sizeof(OLECHAR)));
    if (!header)
        return nullptr;
    header->byteLength = byteLength;
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
    return text ? static_cast<UINT>(HeaderOf(text)->byteLength) : 0;
}

UINT SysStringLen(BSTR text)
{
    return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
