#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "vetools/framework/NumberWriter.h"
#include "vetools/framework/TextCopy.h"

/// How many characters a unit's symbol and title hold, terminator included (internal).
inline constexpr std::size_t c_nameCapacity = 20;
inline constexpr std::size_t c_titleCapacity = 50;

/// The mark of a squared unit; other powers are written as numbers.
inline constexpr std::wstring_view c_squareMark = L"²";

/// A text put together without allocation and cut at its capacity, terminator included (internal).
template <std::size_t capacity>
class BoundedText
{
public:
    BoundedText() { m_text[0] = L'\0'; }

    BoundedText& operator<<(std::wstring_view text)
    {
        const std::size_t length = std::min(text.size(), capacity - 1 - m_length);
        std::copy_n(text.data(), length, m_text.data() + m_length);
        m_length += length;
        m_text[m_length] = L'\0';
        return *this;
    }

    BoundedText& operator<<(int number)
    {
        wchar_t digits[11];  // -2147483648
        return *this << std::wstring_view(digits, static_cast<std::size_t>(WriteInteger(digits, number) - digits));
    }

    /// Keeps the first characters only.
    void Truncate(std::size_t length)
    {
        m_length = std::min(m_length, length);
        m_text[m_length] = L'\0';
    }

    std::wstring_view View() const { return {m_text.data(), m_length}; }

private:
    std::array<wchar_t, capacity> m_text;
    std::size_t m_length = 0;
};
