#pragma once

#include <string>
#include <string_view>

/// The native form of a Windows path (internal): backslashes become slashes, the extended-length prefix `\\?\` is dropped,
/// `\\?\UNC\` becomes `//`, and the text is written as UTF-8. Nothing else is changed: `C:\out` names a file called "C:" here.
///
/// A name here may hold backslashes, and bytes that are no UTF-8. WidePath makes each of them a lone surrogate, U+DC5C or
/// U+DC80 to U+DCFF, of which NativePath makes the byte again: such files are found, opened and deleted like any other.
/// Other lone surrogates and values beyond U+10FFFF, which UTF-8 cannot hold, become U+FFFD.
std::string NativePath(std::wstring_view path);

/// The wide text of a native path, of which NativePath makes the same path again.
std::wstring WidePath(std::string_view path);

/// A wide text as UTF-8; what UTF-8 cannot hold becomes U+FFFD.
std::string Utf8Text(std::wstring_view text);
