#include <algorithm>
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

constexpr UINT c_maxByteLength =
    static_cast<UINT>(std::numeric_limits<UINT>::max() - sizeof(BstrHeader) - sizeof(OLECHAR));
constexpr UINT c_maxLength = c_maxByteLength / static_cast<UINT>(sizeof(OLECHAR));

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
    return ::SysAllocStringByteLen(reinterpret_cast<const char*>(text), length * static_cast<UINT>(sizeof(OLECHAR)));
}

BSTR SysAllocStringByteLen(const char* bytes, UINT byteLength)
{
    if (byteLength > c_maxByteLength)
        return nullptr;
    // The terminator is a whole character, also behind a part of one: who looks for it reads nothing beyond the memory.
    const std::size_t end = (byteLength + sizeof(OLECHAR) - 1) / sizeof(OLECHAR) * sizeof(OLECHAR) + sizeof(OLECHAR);
    auto* header = static_cast<BstrHeader*>(std::malloc(sizeof(BstrHeader) + end));
    if (!header)
        return nullptr;
    *header = {0, byteLength};
    auto* const text = reinterpret_cast<char*>(header + 1);
    if (bytes)
        std::memcpy(text, bytes, byteLength);
    std::memset(text + byteLength, 0, end - byteLength);
    return reinterpret_cast<BSTR>(text);
}

INT SysReAllocString(BSTR* text, const OLECHAR* source)
{
    if (!text)
        return 0;
    BSTR const made = ::SysAllocString(source);
    if (source && !made)
        return 0;
    ::SysFreeString(*text);
    *text = made;
    return 1;
}

INT SysReAllocStringLen(BSTR* text, const OLECHAR* source, UINT length)
{
    if (!text)
        return 0;
    BSTR const made = ::SysAllocStringLen(source, length);
    if (!made)
        return 0;
    // The old characters stay where there are no new ones.
    if (!source && *text)
        std::memcpy(made, *text, std::min(::SysStringByteLen(*text), ::SysStringByteLen(made)));
    ::SysFreeString(*text);
    *text = made;
    return 1;
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
