#pragma once

#include <string>
#include <string_view>

/// The native form of a Windows path (internal): backslashes become slashes, the extended-length prefix `\\?\` is dropped,
/// `\\?\UNC\` becomes `//`, and the text is written as UTF-8. Nothing else is changed: `C:\out` names a file called "C:" here.
///
/// Lone surrogates and values beyond U+10FFFF, which UTF-8 cannot hold, become U+FFFD.
std::string NativePath(std::wstring_view path);

/// The wide text of a native path. A byte that is not part of any UTF-8 character becomes U+FFFD.
std::wstring WidePath(std::string_view path);

/// A wide text as UTF-8; what UTF-8 cannot hold becomes U+FFFD.
std::string Utf8Text(std::wstring_view text);
