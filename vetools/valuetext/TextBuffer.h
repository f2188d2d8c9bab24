#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

/// A text under construction (internal): in memory of the caller's or on the stack while it is short, on the heap for huge
/// precisions and mark-up.
/// There is no terminator; the arguments must not point into the buffer itself.
class TextBuffer
{
public:
    TextBuffer() {}
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    std::wstring_view View() const { return {m_text, m_length}; }

    /// Begins an empty text in memory of the caller's, which it leaves when it grows beyond that. Without memory, nothing
    /// changes.
    void BeginIn(std::span<wchar_t> room)
    {
        if (room.empty())
            return;
        m_text = room.data();
        m_length = 0;
        m_capacity = room.size();
    }

    /// Gives room for that many characters and forgets the text. End the new one with SetEnd.
    wchar_t* Overwrite(std::size_t capacity)
    {
        m_length = 0;
        Grow(capacity);
        return m_text;
    }

    /// The text ends before `end`, a place in the room that Overwrite gave.
    void SetEnd(const wchar_t* end) { m_length = static_cast<std::size_t>(end - m_text); }

    void Assign(std::wstring_view text)
    {
        m_length = 0;
        Append(text);
    }

    void Append(std::wstring_view text)
    {
        Grow(m_length + text.size());
        std::copy_n(text.data(), text.size(), m_text + m_length);
        m_length += text.size();
    }

    /// Appends a text of known length with a terminator. It is a few characters: the call of a copying function costs more.
    void AppendShort(const wchar_t* text, std::size_t length)
    {
        Grow(m_length + length);
        for (wchar_t* out = m_text + m_length; *text != L'\0'; ++text)
            *out++ = *text;
        m_length += length;
    }

    /// Keeps the first `length` characters, which are there.
    void Truncate(std::size_t length) { m_length = length; }

private:
    static constexpr std::size_t c_stackCapacity = 400;  // a fixed number with some 80 decimals

    void Grow(std::size_t capacity)
    {
        if (capacity <= m_capacity)
            return;
        if (capacity <= c_stackCapacity)
            return MoveTo(m_stack, c_stackCapacity);
        auto larger = std::make_unique_for_overwrite<wchar_t[]>(capacity);
        MoveTo(larger.get(), capacity);
        m_heap = std::move(larger);
    }

    void MoveTo(wchar_t* place, std::size_t capacity)
    {
        std::copy_n(m_text, m_length, place);
        m_text = place;
        m_capacity = capacity;
    }

    wchar_t m_stack[c_stackCapacity];
    std::unique_ptr<wchar_t[]> m_heap;
    wchar_t* m_text = m_stack;
    std::size_t m_length = 0;
    std::size_t m_capacity = c_stackCapacity;
};
