#include "vetools/framework/CString.h"

#include <algorithm>
#include <functional>
#include <new>
#include <span>

#include "vetools/framework/CException.h"
#include "vetools/framework/ModuleState.h"

namespace
{

constexpr std::size_t c_notFound = std::wstring_view::npos;

/// The white space that Trim… remove, the same on both builds.
constexpr std::wstring_view c_whiteSpace = L"\t\n\v\f\r "
                                           L"\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008"
                                           L"\u2009\u200A\u2028\u2029\u202F\u205F\u3000";

int IndexOrNotFound(std::size_t index) noexcept
{
    return index == c_notFound ? -1 : static_cast<int>(index);
}

std::size_t Clamped(int value, std::size_t highest) noexcept
{
    return value > 0 ? std::min(static_cast<std::size_t>(value), highest) : 0;
}

std::wstring_view TextOrEmpty(const wchar_t* text) noexcept
{
    return text != nullptr ? text : L"";
}

wchar_t LowerCase(wchar_t character) noexcept
{
    constexpr wchar_t lastAscii = 0x7F;
    if (character <= lastAscii)
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
    ::CharLowerBuffW(&character, 1);
    return character;
}

int CollateTexts(DWORD flags, std::wstring_view left, std::wstring_view right)
{
    const int result = ::CompareStringW(LOCALE_USER_DEFAULT, flags, left.data(), static_cast<int>(left.size()),
                                        right.data(), static_cast<int>(right.size()));
    return result - CSTR_EQUAL;
}

}  // namespace

// Memory

CString::CString(const char* text)
{
    // The length that the system gives counts the terminator, which is written with the rest.
    const int length = text != nullptr ? ::MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0) - 1 : 0;
    if (length <= 0)
    {
        m_short[0] = L'\0';
        return;
    }
    if (length > m_capacity)
        AllocateFor(static_cast<std::size_t>(length));
    ::MultiByteToWideChar(CP_ACP, 0, text, -1, m_text, length + 1);
    m_length = length;
}

CString::CString(wchar_t character, int repeat)
{
    const std::size_t length = Clamped(repeat, INT_MAX);
    if (length > static_cast<std::size_t>(m_capacity))
        AllocateFor(length);
    std::fill_n(m_text, length, character);
    m_length = static_cast<int>(length);
    m_text[length] = L'\0';
}

void CString::Free(wchar_t* text) noexcept
{
    delete[] text;
}

/// Memory for a text and its terminator.
static wchar_t* AllocateText(std::size_t length)
{
    wchar_t* const text = length < static_cast<std::size_t>(INT_MAX) ? new (std::nothrow) wchar_t[length + 1] : nullptr;
    if (text == nullptr)
        AfxThrowMemoryException();
    return text;
}

void CString::AllocateFor(std::size_t length)
{
    wchar_t* const text = AllocateText(length);
    if (m_text != m_short)
        Free(m_text);
    m_text = text;
    m_capacity = static_cast<int>(length);
}

void CString::Reallocate(std::size_t capacity)
{
    wchar_t* const text = AllocateText(capacity);
    std::wmemcpy(text, m_text, static_cast<std::size_t>(m_length) + 1);
    if (m_text != m_short)
        Free(m_text);
    m_text = text;
    m_capacity = static_cast<int>(capacity);
}

void CString::Grow(std::size_t length)
{
    const std::size_t capacity = static_cast<std::size_t>(m_capacity);
    if (length > capacity)
        Reallocate(std::max(length, std::min<std::size_t>(capacity + capacity / 2, INT_MAX - 1)));
}

bool CString::Owns(const wchar_t* text) const noexcept
{
    return !std::less<>()(text, m_text) && !std::less<>()(m_text + m_capacity, text);
}

void CString::SetLength(int length)
{
    if (length < 0 || length > m_capacity)
        AfxThrowInvalidArgException();
    m_length = length;
    m_text[length] = L'\0';
}

wchar_t* CString::GetBuffer(int minimumLength)
{
    if (minimumLength < 0)
        AfxThrowInvalidArgException();
    Grow(static_cast<std::size_t>(minimumLength));
    return m_text;
}

wchar_t* CString::GetBufferSetLength(int length)
{
    GetBuffer(length);
    SetLength(length);
    return m_text;
}

void CString::ReleaseBuffer(int newLength)
{
    if (newLength == -1)
        newLength = static_cast<int>(std::find(m_text, m_text + m_capacity, L'\0') - m_text);
    SetLength(newLength);
}

void CString::Truncate(int newLength)
{
    if (newLength < m_length)
        SetLength(newLength);
}

void CString::Preallocate(int length)
{
    if (length > m_capacity)
        Reallocate(static_cast<std::size_t>(length));
}

void CString::FreeExtra()
{
    if (m_text == m_short || m_length == m_capacity)
        return;
    if (m_length > c_shortLength)
        return Reallocate(static_cast<std::size_t>(m_length));
    wchar_t* const text = m_text;
    std::wmemcpy(m_short, text, static_cast<std::size_t>(m_length) + 1);
    m_text = m_short;
    m_capacity = c_shortLength;
    Free(text);
}

// Characters

void CString::ThrowInvalidIndex()
{
    AfxThrowInvalidArgException();
}

void CString::SetAt(int index, wchar_t character)
{
    if (index < 0 || index >= m_length)
        ThrowInvalidIndex();
    m_text[index] = character;
}

void CString::AppendView(std::wstring_view text)
{
    const std::size_t length = static_cast<std::size_t>(m_length);
    const std::size_t total = length + text.size();
    if (total > static_cast<std::size_t>(m_capacity))
    {
        // An own text moves with the string.
        const bool own = Owns(text.data());
        const std::ptrdiff_t offset = own ? text.data() - m_text : 0;
        Grow(total);
        if (own)
            text = std::wstring_view(m_text + offset, text.size());
    }
    std::copy(text.begin(), text.end(), m_text + length);
    m_length = static_cast<int>(total);
    m_text[total] = L'\0';
}

void CString::ReplaceRange(std::size_t first, std::size_t count, std::wstring_view replacement)
{
    if (Owns(replacement.data()))
    {
        const CString copy(replacement);
        return ReplaceRange(first, count, copy.View());
    }
    const std::size_t length = static_cast<std::size_t>(m_length);
    const std::size_t total = length - count + replacement.size();
    Grow(total);
    // The rest moves with its terminator.
    std::wmemmove(m_text + first + replacement.size(), m_text + first + count, length - first - count + 1);
    std::copy(replacement.begin(), replacement.end(), m_text + first);
    m_length = static_cast<int>(total);
}

int CString::Insert(int index, wchar_t character)
{
    ReplaceRange(Clamped(index, View().size()), 0, std::wstring_view(&character, 1));
    return m_length;
}

int CString::Insert(int index, const wchar_t* text)
{
    ReplaceRange(Clamped(index, View().size()), 0, TextOrEmpty(text));
    return m_length;
}

int CString::Delete(int index, int count)
{
    const std::size_t first = Clamped(index, View().size());
    ReplaceRange(first, Clamped(count, View().size() - first), std::wstring_view());
    return m_length;
}

int CString::Replace(wchar_t oldCharacter, wchar_t newCharacter)
{
    if (oldCharacter == newCharacter)
        return 0;
    int count = 0;
    for (wchar_t& character : std::span(m_text, View().size()))
    {
        if (character != oldCharacter)
            continue;
        character = newCharacter;
        ++count;
    }
    return count;
}

int CString::Replace(const wchar_t* oldText, const wchar_t* newText)
{
    const std::wstring_view text = View();
    const std::wstring_view searched = TextOrEmpty(oldText);
    const std::wstring_view replacement = TextOrEmpty(newText);
    if (searched.empty())
        return 0;

    int count = 0;
    for (std::size_t found = text.find(searched); found != c_notFound;
         found = text.find(searched, found + searched.size()))
        ++count;
    if (count == 0)
        return 0;

    const std::size_t kept = text.size() - static_cast<std::size_t>(count) * searched.size();
    const std::size_t total = kept + static_cast<std::size_t>(count) * replacement.size();
    if (total > static_cast<std::size_t>(INT_MAX))
        AfxThrowMemoryException();
    CString result;
    result.Preallocate(static_cast<int>(total));
    std::size_t from = 0;
    for (std::size_t found = text.find(searched); found != c_notFound; found = text.find(searched, from))
    {
        result.AppendView(text.substr(from, found - from));
        result.AppendView(replacement);
        from = found + searched.size();
    }
    result.AppendView(text.substr(from));
    *this = std::move(result);
    return count;
}

int CString::Remove(wchar_t character)
{
    wchar_t* const end = m_text + m_length;
    wchar_t* const newEnd = std::remove(m_text, end, character);
    m_length = static_cast<int>(newEnd - m_text);
    *newEnd = L'\0';
    return static_cast<int>(end - newEnd);
}

CString& CString::MakeUpper()
{
    ::CharUpperBuffW(m_text, static_cast<DWORD>(m_length));
    return *this;
}

CString& CString::MakeLower()
{
    ::CharLowerBuffW(m_text, static_cast<DWORD>(m_length));
    return *this;
}

CString& CString::MakeReverse()
{
    std::reverse(m_text, m_text + m_length);
    return *this;
}

// Parts

CString CString::Mid(int first, int count) const
{
    const std::wstring_view text = View();
    const std::size_t start = Clamped(first, text.size());
    return CString(text.substr(start, Clamped(count, text.size() - start)));
}

CString CString::Left(int count) const
{
    return CString(View().substr(0, Clamped(count, View().size())));
}

CString CString::Right(int count) const
{
    return CString(View().substr(View().size() - Clamped(count, View().size())));
}

CString CString::SpanIncluding(const wchar_t* characters) const
{
    return CString(View().substr(0, View().find_first_not_of(TextOrEmpty(characters))));
}

CString CString::SpanExcluding(const wchar_t* characters) const
{
    return CString(View().substr(0, View().find_first_of(TextOrEmpty(characters))));
}

CString CString::Tokenize(const wchar_t* delimiters, int& position) const
{
    const std::wstring_view text = View();
    const std::wstring_view separators = TextOrEmpty(delimiters);
    const std::size_t start =
        position >= 0 ? text.find_first_not_of(separators, static_cast<std::size_t>(position)) : c_notFound;
    if (start == c_notFound)
    {
        position = -1;
        return CString();
    }
    const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
    position = static_cast<int>(std::min<std::size_t>(end + 1, INT_MAX));
    return CString(text.substr(start, end - start));
}

// Trimming

static constexpr std::wstring_view TrimmedLeft(std::wstring_view text, std::wstring_view characters)
{
    return text.substr(std::min(text.find_first_not_of(characters), text.size()));
}

static constexpr std::wstring_view TrimmedRight(std::wstring_view text, std::wstring_view characters)
{
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

CString& CString::Trim(const wchar_t* characters)
{
    return TrimRight(characters).TrimLeft(characters);
}

CString& CString::TrimLeft()
{
    Assign(TrimmedLeft(View(), c_whiteSpace));
    return *this;
}

CString& CString::TrimLeft(wchar_t character)
{
    Assign(TrimmedLeft(View(), std::wstring_view(&character, 1)));
    return *this;
}

CString& CString::TrimLeft(const wchar_t* characters)
{
    Assign(TrimmedLeft(View(), TextOrEmpty(characters)));
    return *this;
}

CString& CString::TrimRight()
{
    SetLength(static_cast<int>(TrimmedRight(View(), c_whiteSpace).size()));
    return *this;
}

CString& CString::TrimRight(wchar_t character)
{
    SetLength(static_cast<int>(TrimmedRight(View(), std::wstring_view(&character, 1)).size()));
    return *this;
}

CString& CString::TrimRight(const wchar_t* characters)
{
    SetLength(static_cast<int>(TrimmedRight(View(), TextOrEmpty(characters)).size()));
    return *this;
}

// Searching and comparing

int CString::Find(wchar_t character, int start) const noexcept
{
    return start >= 0 ? IndexOrNotFound(View().find(character, static_cast<std::size_t>(start))) : -1;
}

int CString::Find(const wchar_t* text, int start) const noexcept
{
    return start >= 0 ? IndexOrNotFound(View().find(TextOrEmpty(text), static_cast<std::size_t>(start))) : -1;
}

int CString::ReverseFind(wchar_t character) const noexcept
{
    return IndexOrNotFound(View().rfind(character));
}

int CString::FindOneOf(const wchar_t* characters) const noexcept
{
    return IndexOrNotFound(View().find_first_of(TextOrEmpty(characters)));
}

int CString::CompareNoCase(const wchar_t* other) const noexcept
{
    const std::wstring_view left = View();
    const std::wstring_view right = TextOrEmpty(other);
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        if (left[i] == right[i])
            continue;
        const wchar_t leftCharacter = LowerCase(left[i]);
        const wchar_t rightCharacter = LowerCase(right[i]);
        if (leftCharacter != rightCharacter)
            return leftCharacter < rightCharacter ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

int CString::Collate(const wchar_t* other) const
{
    return CollateTexts(0, View(), TextOrEmpty(other));
}

int CString::CollateNoCase(const wchar_t* other) const
{
    return CollateTexts(NORM_IGNORECASE, View(), TextOrEmpty(other));
}

// Resources

bool CString::LoadText(UINT id)
{
    return LoadText(AfxGetResourceHandle(), id);
}

bool CString::LoadText(HINSTANCE module, UINT id)
{
    // The system takes an id that no string table can hold for another one.
    if (id > 0xFFFF)
        return false;
    // With a size of 0 the system gives a pointer to the resource itself, which has no terminator.
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(module, id, reinterpret_cast<LPWSTR>(&text), 0);
    if (length <= 0 || text == nullptr)
        return false;
    SetString(text, length);
    return true;
}

CString CString::Concatenate(std::wstring_view left, std::wstring_view right)
{
    CString result;
    const std::size_t total = left.size() + right.size();
    if (total > static_cast<std::size_t>(result.m_capacity))
        result.AllocateFor(total);
    result.CopyIn(left);
    result.AppendView(right);
    return result;
}
