#include "vetools/platform/posix/NativePath.h"

#include <algorithm>

#include "vetools/platform/posix/WinBase.h"

namespace
{

constexpr std::wstring_view c_extendedPrefix = L"\\\\?\\";
constexpr std::wstring_view c_extendedUncPrefix = L"\\\\?\\UNC\\";

}  // namespace

std::string NativePath(std::wstring_view path)
{
    std::string native;
    if (path.starts_with(c_extendedUncPrefix))
    {
        path.remove_prefix(c_extendedUncPrefix.size());
        native = "//";
    }
    else if (path.starts_with(c_extendedPrefix))
    {
        path.remove_prefix(c_extendedPrefix.size());
    }
    native += Utf8Text(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::string Utf8Text(std::wstring_view text)
{
    constexpr std::size_t c_mostBytes = 4;  // of one character
    const int capacity = static_cast<int>(text.size() * c_mostBytes);
    std::string narrow(text.size() * c_mostBytes, '\0');
    const int size = text.empty() ? 0
                                  : ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                          narrow.data(), capacity, nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(size));
    return narrow;
}

std::wstring WidePath(std::string_view path)
{
    std::wstring wide(path.size(), L'\0');
    const int capacity = static_cast<int>(path.size());
    const int size = path.empty() ? 0 : ::MultiByteToWideChar(CP_UTF8, 0, path.data(), capacity, wide.data(), capacity);
    wide.resize(static_cast<std::size_t>(size));
    return wide;
}
