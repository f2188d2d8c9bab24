#pragma once

#include <string>
#include <string_view>

/// The last component of a search pattern (internal). FindFirstFileW says what it finds.
class NamePattern
{
public:
    explicit NamePattern(std::wstring_view pattern);

    /// Whether there is a `*` or a `?` at all.
    bool HasWildcards() const;
    /// Whether a name in upper case fits.
    bool Matches(std::wstring_view upperName) const;

private:
    std::wstring m_pattern;  // in upper case
};

/// A name as names are compared and put into order: in upper case.
std::wstring UpperName(std::wstring_view name);
