#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

/// The buffer that a caller of the ten- and twelve-argument forms of Double2String hands in (internal). A null buffer
/// takes nothing; the texts that the function returns are then those of a buffer of the given size.
class CallerBuffer
{
public:
    /// size: the capacity in characters, as the caller states it; nothing relies on it where the contract does not.
    CallerBuffer(wchar_t* buffer, unsigned int size)
        : m_buffer(buffer)
        , m_size(size)
        , m_limit(std::int64_t{size} - 1)
    {
    }

    /// No buffer, and no text is cut.
    static CallerBuffer None() { return {nullptr, std::numeric_limits<unsigned int>::max()}; }

    wchar_t* Data() const { return m_buffer; }

    /// False for a size of 0 or 1: CopyOut then does nothing.
    bool TakesCopies() const { return m_limit > 0; }

    /// Where a text of which CopyOut cuts nothing may be made, so that it needs no copy.
    std::span<wchar_t> Room() const
    {
        if (m_buffer == nullptr || !TakesCopies())
            return {};
        return {m_buffer, static_cast<std::size_t>(m_limit - 1)};
    }

    /// What CopyOut keeps of a text: one character less than its limit, which is one less than the size.
    /// Kept: the last character of the buffer stays unused.
    std::wstring_view Cut(std::wstring_view text) const
    {
        return text.substr(0, std::min<std::uint64_t>(text.size(), static_cast<std::uint64_t>(m_limit - 1)));
    }

    /// Copies the text as far as the limit goes and terminates it. Call it for texts without a NUL.
    void CopyOut(std::wstring_view text) const
    {
        if (TakesCopies())
            CopyWhole(Cut(text));
    }

    /// Copies as many characters as the buffer has. Kept: a text at least that long gets its terminator one past the buffer.
    void CopyBack(std::wstring_view text) const { CopyWhole(text.substr(0, m_size)); }

    /// Writes a text of which the first `certain` characters are written whatever the size, the rest as CopyOut does.
    /// Kept: where the copy is shorter than these, they stand behind its terminator.
    void CopyCertainly(std::wstring_view text, std::size_t certain) const
    {
        if (text.data() == m_buffer)  // made in its room
        {
            m_buffer[text.size()] = L'\0';
            return;
        }
        if (!TakesCopies() || Cut(text).size() < certain)
            CopyWhole(text.substr(0, certain));
        CopyOut(text);
    }

    /// Kept: copies the text whole and terminates it, whatever the size.
    void CopyWhole(std::wstring_view text) const
    {
        if (m_buffer != nullptr)
            *std::copy(text.begin(), text.end(), m_buffer) = L'\0';
    }

private:
    wchar_t* m_buffer;
    std::size_t m_size;
    std::int64_t m_limit;
};
