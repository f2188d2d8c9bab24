#include "vetools/util/StringTokenizer.h"

#include <algorithm>
#include <string_view>

#include "vetools/framework/SaturatingInt.h"

CStringTokenizer::CStringTokenizer(CString& text, wchar_t delimiter)
{
    // Kept: meant for the carriage returns of line ends, but it takes any character.
    const bool dropOne = delimiter == L'\n' || delimiter == L'\\';
    Split(text, delimiter, dropOne ? BeforeDelimiter::DropOne : BeforeDelimiter::KeepAll);
}

CStringTokenizer::CStringTokenizer(CString& text, wchar_t delimiter, int)
{
    Split(text, delimiter, BeforeDelimiter::KeepAll);
}

/// Counts first, so that the array takes its memory once.
void CStringTokenizer::Split(const CString& text, wchar_t delimiter, BeforeDelimiter before)
{
    std::wstring_view rest = text.View();
    m_count = std::count(rest.begin(), rest.end(), delimiter) + 1;
    SetSize(m_count);
    CString* element = GetData();
    for (CString* const last = element + m_count - 1; element != last; ++element)
    {
        const std::size_t end = rest.find(delimiter);
        const std::size_t dropped = before == BeforeDelimiter::DropOne && end != 0 ? 1 : 0;
        element->SetString(rest.data(), static_cast<int>(end - dropped));
        rest.remove_prefix(end + 1);
    }
    element->SetString(rest.data(), static_cast<int>(rest.size()));
}

int CStringTokenizer::CountElements() const
{
    return static_cast<int>(m_count);
}

bool CStringTokenizer::ElementAt(long i, CString& out) const
{
    if (i < 0 || i >= m_count)
        return false;
    out = GetAt(i);
    return true;
}

CString CStringTokenizer::ElementAt(long i) const
{
    CString element;
    ElementAt(i, element);
    return element;
}

bool CStringTokenizer::GetNextElement(CString& out)
{
    m_cursor = NextInt(m_cursor);
    // Kept: compared after the step, so the walk ends one element early.
    if (m_cursor >= m_count)
        return false;
    out = GetAt(m_cursor - 1);
    return true;
}
