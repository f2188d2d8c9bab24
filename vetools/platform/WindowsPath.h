#pragma once

#include <string>
#include <string_view>

// What can be said of a Windows path by its text alone, the same on both builds (internal). Nothing here asks the system.
// Where no other is named, separators are backslashes and slashes.

/// In front of a path that the system takes as it stands and whatever its length: `\\?\C:\out`.
inline constexpr std::wstring_view c_extendedPrefix = L"\\\\?\\";
/// The same for a path on the network: `\\?\UNC\server\share\out`, which is `\\server\share\out`.
inline constexpr std::wstring_view c_extendedUncPrefix = L"\\\\?\\UNC\\";

bool HasExtendedPrefix(std::wstring_view path);
/// "UNC" may be in small letters.
bool HasExtendedUncPrefix(std::wstring_view path);

/// Whether a path names a server and a share: it begins with two backslashes, and not with the extended prefix unless
/// "UNC\" follows.
bool IsUncPath(std::wstring_view path);

/// The extended name of a path:
///
///     C:\out\a.txt          \\?\C:\out\a.txt
///     \\server\share\a      \\?\UNC\server\share\a
///     \\?\C:\out            \\?\C:\out
///     out\a.txt             \\?\out\a.txt             which the system does not find: it completes no extended name
///
/// A path on the network that names no server (that of a mapped drive) is extended as a local one. Hence only UNC paths
/// count here, and they are always on the network: nothing has to be asked of the system.
std::wstring ExtendedPath(std::wstring_view path);

/// Whether a path names the root of a drive, by its text: `\`, `C:\`, `C:\a\..`, `\\?\C:\`. Components of points and blanks
/// alone are taken for none, as the system does. Not for what depends on a current folder, nor for the root of a share.
bool IsRootPath(std::wstring_view path);

/// What stands before the last component, with the separator: "C:\out\" of "C:\out\a.txt", nothing of "a.txt".
std::wstring_view FolderPart(std::wstring_view path);
/// What stands behind the last separator: "a.txt" of "C:\out\a.txt", nothing of "C:\out\".
std::wstring_view LastComponent(std::wstring_view path);

/// The name of a file without drive and folder, cut before its last point: "calc.v2" and ".txt" of "C:\out\calc.v2.txt".
/// The extension is empty when there is no point.
struct FileNameParts
{
    std::wstring_view base;
    std::wstring_view extension;  ///< with its point
};
FileNameParts SplitFileName(std::wstring_view path);
