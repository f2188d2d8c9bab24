#include "vetools/platform/WindowsPath.h"

#include <algorithm>

namespace
{

constexpr std::wstring_view c_uncBeginning = L"\\\\";
constexpr wchar_t c_driveMark = L':';
constexpr std::wstring_view c_separators = L"\\/";
constexpr std::wstring_view c_devicePrefix = L"\\\\.\\";

/// Where the last component begins.
std::size_t NamePosition(std::wstring_view path)
{
    return path.find_last_of(c_separators) + 1;  // 0 where there is no separator
}

wchar_t UpperAscii(wchar_t character)
{
    return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A') : character;
}

/// Whether a path begins with a prefix, upper and lower case alike.
bool BeginsWith(std::wstring_view path, std::wstring_view upperPrefix)
{
    return path.size() >= upperPrefix.size() &&
           std::equal(upperPrefix.begin(), upperPrefix.end(), path.begin(),
                      [](wchar_t expected, wchar_t character) { return expected == UpperAscii(character); });
}

bool HasDrive(std::wstring_view path)
{
    return path.size() > 1 && path[1] == c_driveMark;
}

bool IsSeparator(wchar_t character)
{
    return c_separators.find(character) != c_separators.npos;
}

/// Takes off all that stands before the components. Returns whether they begin at a root.
bool RemovePrefix(std::wstring_view& path)
{
    const bool isUnc = HasExtendedUncPrefix(path);
    const bool isExtended = isUnc || HasExtendedPrefix(path) || BeginsWith(path, c_devicePrefix);
    if (isExtended)
        path.remove_prefix(isUnc ? c_extendedUncPrefix.size() : c_extendedPrefix.size());
    if (HasDrive(path))
        path.remove_prefix(2);
    return isExtended || (!path.empty() && IsSeparator(path.front()));
}

}  // namespace

bool HasExtendedPrefix(std::wstring_view path)
{
    return BeginsWith(path, c_extendedPrefix);
}

bool HasExtendedUncPrefix(std::wstring_view path)
{
    return BeginsWith(path, c_extendedUncPrefix);
}

bool IsUncPath(std::wstring_view path)
{
    return HasExtendedPrefix(path) ? HasExtendedUncPrefix(path) : BeginsWith(path, c_uncBeginning);
}

std::wstring ExtendedPath(std::wstring_view path)
{
    if (HasExtendedPrefix(path))
        return std::wstring(path);
    if (!IsUncPath(path))
        return std::wstring(c_extendedPrefix).append(path);
    path.remove_prefix(std::min(path.find_first_not_of(L'\\'), path.size()));
    return std::wstring(c_extendedUncPrefix).append(path);
}

bool IsRootPath(std::wstring_view path)
{
    if (!RemovePrefix(path))
        return false;
    std::size_t depth = 0;
    while (!path.empty())
    {
        const std::wstring_view component = path.substr(0, path.find_first_of(c_separators));
        if (component.find_first_not_of(L". ") != component.npos)
            ++depth;
        else if (component.size() == 2 && BeginsWith(component, L".."))
            depth -= std::min<std::size_t>(depth, 1);
        path.remove_prefix(std::min(component.size() + 1, path.size()));
    }
    return depth == 0;
}

std::wstring_view FolderPart(std::wstring_view path)
{
    return path.substr(0, NamePosition(path));
}

std::wstring_view LastComponent(std::wstring_view path)
{
    return path.substr(NamePosition(path));
}

FileNameParts SplitFileName(std::wstring_view path)
{
    if (HasDrive(path))
        path.remove_prefix(2);
    const std::wstring_view name = LastComponent(path);
    const std::size_t point = std::min(name.rfind(L'.'), name.size());
    return {name.substr(0, point), name.substr(point)};
}
