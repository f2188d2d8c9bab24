#pragma once

#include <cstddef>
#include <string_view>

/// A place in a text being read (internal). A Consume member takes what it names and says so, or leaves the place as it was.
/// The text must outlive the cursor; a blank is U+0020, digits are 0 to 9.
class TextCursor
{
public:
    constexpr explicit TextCursor(std::wstring_view text)
        : m_rest(text)
    {
    }

    constexpr bool AtEnd() const { return m_rest.empty(); }

    /// What has not been taken yet.
    constexpr std::wstring_view Rest() const { return m_rest; }

    /// Takes one character, whatever it is; not at the end.
    constexpr wchar_t ConsumeCharacter()
    {
        const wchar_t character = m_rest.front();
        m_rest.remove_prefix(1);
        return character;
    }

    constexpr bool Consume(wchar_t character)
    {
        if (AtEnd() || m_rest.front() != character)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    /// Takes every repetition of the character from here on.
    constexpr bool ConsumeAll(wchar_t character)
    {
        const std::size_t before = m_rest.size();
        while (Consume(character))
        {
        }
        return m_rest.size() != before;
    }

    constexpr bool ConsumeBlanks() { return ConsumeAll(L' '); }

    /// Takes the digits from here on; empty when there are none.
    constexpr std::wstring_view ConsumeDigits()
    {
        std::size_t count = 0;
        while (count < m_rest.size() && IsDigit(m_rest[count]))
            ++count;
        return Take(count);
    }

    /// Takes the text before the character, or all of it where the character does not follow; the character is left.
    constexpr std::wstring_view ConsumeUntil(wchar_t character)
    {
        const std::size_t found = m_rest.find(character);
        return Take(found == std::wstring_view::npos ? m_rest.size() : found);
    }

    static constexpr bool IsDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

private:
    constexpr std::wstring_view Take(std::size_t count)
    {
        const std::wstring_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }

    std::wstring_view m_rest;
};
