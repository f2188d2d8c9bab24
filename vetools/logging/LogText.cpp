#include "vetools/logging/LogText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "vetools/logging/LogLevels.h"
#include "vetools/platform/AppendWhole.h"

namespace
{

/// What a function of the system wrote, and counted with its terminator.
std::wstring_view ResultOf(const wchar_t* text, int count)
{
    return count > 0 ? std::wstring_view(text, static_cast<std::size_t>(count) - 1) : L"";
}

/// Most lines are shorter, and take no allocation.
constexpr std::size_t c_usualLineSize = 1024;

/// The most bytes that an element of a text becomes, and the most elements that the system is given at once.
constexpr std::size_t c_bytesPerElement = 4;
constexpr std::size_t c_pieceLength = 0x10000;

bool IsAscii(wchar_t character)
{
    return static_cast<std::uint32_t>(character) <= 0x7F;
}

/// Writes the beginning of a text that is plain ASCII, which is the same in every code page.
char* ConsumeAscii(char* out, std::wstring_view& text)
{
    const wchar_t* in = text.data();
    const wchar_t* const end = in + text.size();

    // By blocks of one size, which become a few instructions each.
    constexpr std::ptrdiff_t c_block = 16;
    for (; end - in >= c_block; in += c_block, out += c_block)
    {
        std::uint32_t allBits = 0;
        for (std::ptrdiff_t i = 0; i < c_block; ++i)
            allBits |= static_cast<std::uint32_t>(in[i]);
        if (!IsAscii(static_cast<wchar_t>(allBits)))
            break;
        for (std::ptrdiff_t i = 0; i < c_block; ++i)
            out[i] = static_cast<char>(in[i]);
    }
    for (; in != end && IsAscii(*in); ++in)
        *out++ = static_cast<char>(*in);
    text.remove_prefix(static_cast<std::size_t>(in - text.data()));
    return out;
}

/// Takes the next piece of a text, which does not end within a pair of surrogates.
std::wstring_view ConsumePiece(std::wstring_view& text)
{
    std::size_t length = std::min(text.size(), c_pieceLength);
    const bool isFirstOfPair = (text[length - 1] & ~0x3FF) == 0xD800;
    if (length < text.size() && isFirstOfPair)
        --length;
    const std::wstring_view piece = text.substr(0, length);
    text.remove_prefix(length);
    return piece;
}

/// Writes a text in a code page and returns the end of it. There is room for c_bytesPerElement for each element.
char* Encode(char* out, UINT codePage, std::wstring_view text)
{
    out = ConsumeAscii(out, text);
    while (!text.empty())
    {
        const std::wstring_view piece = ConsumePiece(text);
        out += ::WideCharToMultiByte(codePage, 0, piece.data(), static_cast<int>(piece.size()), out,
                                     static_cast<int>(piece.size() * c_bytesPerElement), nullptr, nullptr);
    }
    return out;
}

}  // namespace

std::wstring_view LogMoment::Date()
{
    return ResultOf(m_dateText,
                    ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &m_time, nullptr, m_dateText, c_capacity));
}

std::wstring_view LogMoment::Time()
{
    // Made once in a second, in which a log may write many lines.
    struct TimeText
    {
        int second = -1;  // of the day
        int count = 0;
        wchar_t text[c_capacity] = {};
    };
    static thread_local TimeText t_last;

    const int second = (m_time.wHour * 60 + m_time.wMinute) * 60 + m_time.wSecond;
    if (t_last.second != second)
    {
        t_last.second = second;
        t_last.count = ::GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT, &m_time, c_logTimePicture,
                                        t_last.text, c_capacity);
    }
    return ResultOf(t_last.text, t_last.count);
}

bool AppendTexts(HANDLE file, UINT codePage, std::initializer_list<std::wstring_view> texts)
{
    std::size_t capacity = 0;
    for (const std::wstring_view text : texts)
        capacity += text.size() * c_bytesPerElement;

    char usualLine[c_usualLineSize];
    std::unique_ptr<char[]> longLine;
    if (capacity > c_usualLineSize)
        longLine = std::make_unique_for_overwrite<char[]>(capacity);
    char* const line = longLine ? longLine.get() : usualLine;

    char* end = line;
    for (const std::wstring_view text : texts)
        end = Encode(end, codePage, text);
    return AppendWhole(file, {line, static_cast<std::size_t>(end - line)});
}
