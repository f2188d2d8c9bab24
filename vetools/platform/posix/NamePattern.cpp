#include "vetools/platform/posix/NamePattern.h"

#include "vetools/platform/posix/WinBase.h"

NamePattern::NamePattern(std::wstring_view pattern)
    : m_pattern(UpperName(pattern))
{
}

bool NamePattern::HasWildcards() const
{
    return m_pattern.find_first_of(L"*?") != std::wstring::npos;
}

bool NamePattern::Matches(std::wstring_view upperName) const
{
    const std::wstring_view pattern = m_pattern;
    std::size_t inPattern = 0;
    std::size_t inName = 0;
    // The last star met, and where the name goes on behind what it has taken so far. Only the last one has to take more
    // when something does not fit: what the earlier ones took was the least that let the rest fit.
    std::size_t star = std::wstring_view::npos;
    std::size_t behindStar = 0;
    while (inName < upperName.size())
    {
        if (inPattern < pattern.size() && pattern[inPattern] == L'*')
        {
            star = inPattern++;
            behindStar = inName;
        }
        else if (inPattern < pattern.size() && (pattern[inPattern] == L'?' || pattern[inPattern] == upperName[inName]))
        {
            ++inPattern;
            ++inName;
        }
        else if (star != std::wstring_view::npos)
        {
            inPattern = star + 1;
            inName = ++behindStar;
        }
        else
            return false;
    }
    return pattern.find_first_not_of(L"*.", inPattern) == std::wstring_view::npos;
}

std::wstring UpperName(std::wstring_view name)
{
    std::wstring upper(name);
    ::CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
    return upper;
}
