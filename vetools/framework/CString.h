#pragma once

#include <climits>
#include <compare>
#include <cstdarg>
#include <cstddef>
#include <cwchar>
#include <string_view>
#include <type_traits>
#include <utility>

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

// The system's headers make LoadString a macro. The member is offered under each of its spellings instead.
#pragma push_macro("LoadString")
#pragma push_macro("LoadStringA")
#pragma push_macro("LoadStringW")
#undef LoadString
#undef LoadStringA
#undef LoadStringW

/// The framework's wide string: a text that owns its characters, with its length and a terminator.
///
/// Texts of up to c_shortLength characters stand in the object itself, without allocation; longer ones in memory that
/// grows by half. Moving never allocates and never throws. Wherever a text is taken as a pointer, null reads as the
/// empty text, and the text may be part of this very string: s = s.GetString() + 2, s.Insert(0, s), s.Replace(L"a", s).
///
/// Lengths, indices and counts are in elements of wchar_t, of 2 bytes on Windows and of 4 elsewhere. A text taken by
/// pointer ends at its first null character. One that is given with its length may hold null characters: they count as
/// any other, in searches and comparisons too.
///
/// Failures are the framework's: CInvalidArgException* for an index outside the text where the function says so,
/// CMemoryException* when memory runs out or a length would exceed INT_MAX. The string then holds what it held before.
class VETOOLS_API CString
{
public:
    using XCHAR = wchar_t;
    using PXSTR = wchar_t*;
    using PCXSTR = const wchar_t*;

    /// The longest text that takes no allocation.
    static constexpr int c_shortLength = 23;

    CString() noexcept { m_short[0] = L'\0'; }
    CString(const CString& other)
        : CString(other.m_text, other.m_length)
    {
    }
    CString(CString&& other) noexcept { TakeFrom(other); }
    CString(const wchar_t* text)
        : CString(ViewOf(text))
    {
    }
    /// The text in wide characters. Its bytes are in the system's narrow encoding: the ANSI code page on Windows, UTF-8
    /// elsewhere. Bytes that encode nothing become U+FFFD off Windows, and what the system chooses on Windows.
    CString(const char* text);
    /// The first `length` characters of a text, null characters included; the empty text for null or a negative length.
    CString(const wchar_t* text, int length)
        : CString(std::wstring_view(text, CheckedLength(text, length)))
    {
    }
    /// A character `repeat` times; the empty text when that is less than 1.
    explicit CString(wchar_t character, int repeat = 1);
    explicit CString(std::wstring_view text)
    {
        if (text.size() > static_cast<std::size_t>(c_shortLength))
            AllocateFor(text.size());
        CopyIn(text);
    }
    ~CString()
    {
        if (m_text != m_short)
            Free(m_text);
    }

    CString& operator=(const CString& other)
    {
        Assign(other.View());
        return *this;
    }
    CString& operator=(CString&& other) noexcept
    {
        if (this == &other)
            return *this;
        if (m_text != m_short)
            Free(m_text);
        TakeFrom(other);
        return *this;
    }
    CString& operator=(const wchar_t* text)
    {
        Assign(ViewOf(text));
        return *this;
    }
    CString& operator=(const char* text) { return *this = CString(text); }
    CString& operator=(wchar_t character)
    {
        Assign(std::wstring_view(&character, 1));
        return *this;
    }
    CString& operator+=(const CString& other)
    {
        AppendView(other.View());
        return *this;
    }
    CString& operator+=(const wchar_t* text)
    {
        AppendView(ViewOf(text));
        return *this;
    }
    CString& operator+=(wchar_t character)
    {
        AppendChar(character);
        return *this;
    }

    operator const wchar_t*() const noexcept { return m_text; }
    /// As GetAt.
    wchar_t operator[](int index) const { return GetAt(index); }
    /// The text with its length. Valid until the string changes.
    std::wstring_view View() const noexcept { return std::wstring_view(m_text, static_cast<std::size_t>(m_length)); }

    /// The text with a terminator. Valid until the string changes.
    const wchar_t* GetString() const noexcept { return m_text; }
    int GetLength() const noexcept { return m_length; }
    bool IsEmpty() const noexcept { return m_length == 0; }
    /// Makes the text empty and gives its memory back.
    void Empty() noexcept
    {
        if (m_text != m_short)
            Free(m_text);
        ResetToShort();
    }

    /// The character at `index`, 0 to GetLength(): the terminator at the latter. Any other index throws
    /// CInvalidArgException*.
    wchar_t GetAt(int index) const
    {
        if (static_cast<unsigned>(index) > static_cast<unsigned>(m_length))
            ThrowInvalidIndex();
        return m_text[index];
    }
    /// Replaces the character at `index`, 0 to GetLength() - 1. Any other index throws CInvalidArgException*.
    void SetAt(int index, wchar_t character);

    void SetString(const wchar_t* text) { Assign(ViewOf(text)); }
    /// The first `length` characters of a text, null characters included; the empty text for null or a negative length.
    void SetString(const wchar_t* text, int length) { Assign(std::wstring_view(text, CheckedLength(text, length))); }
    void Append(const wchar_t* text) { AppendView(ViewOf(text)); }
    /// Appends the first `length` characters of a text, null characters included; nothing for null or a negative
    /// length.
    void Append(const wchar_t* text, int length) { AppendView(std::wstring_view(text, CheckedLength(text, length))); }
    void Append(const CString& text) { AppendView(text.View()); }
    void AppendChar(wchar_t character)
    {
        if (m_length == m_capacity)
            Grow(static_cast<std::size_t>(m_length) + 1);
        m_text[m_length] = character;
        m_text[++m_length] = L'\0';
    }

    /// Orders two texts by their elements, one by one: -1 when this one comes first, 0 when they are equal, 1
    /// otherwise.
    int Compare(const wchar_t* other) const noexcept { return Sign(View().compare(ViewOf(other))); }
    /// As Compare, each element read as its lower case: CString(L"ÉTÉ").CompareNoCase(L"été") is 0.
    int CompareNoCase(const wchar_t* other) const noexcept;
    /// Orders two texts as the readers of a dictionary expect: by letters, then by accents, then by case. The rules are
    /// those of the user's language on Windows and those common to all languages elsewhere.
    int Collate(const wchar_t* other) const;
    /// As Collate, upper and lower case alike.
    int CollateNoCase(const wchar_t* other) const;

    /// The text from `first` on, or `count` characters of it. Negative arguments count as 0; what lies beyond the end
    /// is left out: CString(L"metre").Mid(3, 10) is "re".
    CString Mid(int first) const { return Mid(first, INT_MAX); }
    CString Mid(int first, int count) const;
    /// The first `count` characters: the whole text when there are fewer, none when `count` is negative.
    CString Left(int count) const;
    /// The last `count` characters: the whole text when there are fewer, none when `count` is negative.
    CString Right(int count) const;
    /// The longest beginning made of the given characters only: CString(L"12 mm").SpanIncluding(L"0123") is "12".
    CString SpanIncluding(const wchar_t* characters) const;
    /// The longest beginning without any of the given characters: CString(L"12 mm").SpanExcluding(L" ") is "12".
    CString SpanExcluding(const wchar_t* characters) const;
    /// The next token from `position` on: leading delimiters are skipped, the token ends before the next one, and
    /// `position` moves behind that. When no token is left, the result is empty and `position` -1, and so it stays.
    /// Without delimiters the rest of the text is one token.
    ///
    ///     int position = 0;
    ///     for (CString token = text.Tokenize(L" ;", position); position != -1; token = text.Tokenize(L" ;", position))
    CString Tokenize(const wchar_t* delimiters, int& position) const;

    /// Maps each letter to its upper case, element by element: the length stays, ß and ŉ stay, é becomes É.
    CString& MakeUpper();
    /// Maps each letter to its lower case, element by element.
    CString& MakeLower();
    /// Reverses the order of the elements.
    CString& MakeReverse();

    /// Replaces every `oldCharacter`; returns how many there were, 0 when both are the same.
    int Replace(wchar_t oldCharacter, wchar_t newCharacter);
    /// Replaces every `oldText`, found from left to right without overlap; returns how many there were. Texts that
    /// arise from the replacement are left alone. An empty `oldText` is never found.
    int Replace(const wchar_t* oldText, const wchar_t* newText);
    /// Removes every such character, returns how many there were.
    int Remove(wchar_t character);
    /// Inserts before the character at `index`, which is clamped to 0 … GetLength(); returns the new length.
    int Insert(int index, wchar_t character);
    int Insert(int index, const wchar_t* text);
    /// Deletes up to `count` characters from `index` on, negative arguments counting as 0; returns the new length.
    int Delete(int index, int count = 1);

    /// Trim… remove, from both ends or from one: white space; one character; any of several characters. White space are
    /// U+0009 to U+000D, U+0020, U+0085, U+00A0, U+1680, U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F and U+3000.
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& Trim(wchar_t character) { return TrimRight(character).TrimLeft(character); }
    CString& Trim(const wchar_t* characters);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t character);
    CString& TrimLeft(const wchar_t* characters);
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& TrimRight(const wchar_t* characters);

    /// The index of the first such character at or behind `start`; -1 when there is none, or when `start` is negative
    /// or not less than the length.
    int Find(wchar_t character, int start = 0) const noexcept;
    /// The index of the first such text at or behind `start`; -1 when there is none, or when `start` is negative or
    /// greater than the length. The empty text is found at `start`.
    int Find(const wchar_t* text, int start = 0) const noexcept;
    /// The index of the last such character, -1 when there is none.
    int ReverseFind(wchar_t character) const noexcept;
    /// The index of the first character that is one of those given, -1 when there is none.
    int FindOneOf(const wchar_t* characters) const noexcept;

    /// Replaces the text by a printed one; the conventions are those of Windows for wide formats on both builds: %s and
    /// %c take wide arguments, %S and %hs narrow ones, %I64d a 64-bit integer. Arguments may point into this string.
    void Format(const wchar_t* format, ...);
    /// The same with a format from the string table of the current resource module; throws CInvalidArgException* when
    /// there is no such string.
    void Format(UINT formatId, ...);
    void FormatV(const wchar_t* format, va_list arguments);
    /// Appends a printed text, as Format makes it.
    void AppendFormat(const wchar_t* format, ...);
    void AppendFormat(UINT formatId, ...);
    void AppendFormatV(const wchar_t* format, va_list arguments);

    /// Loads a string of the current resource module, or of `module`. Returns false, and leaves the text as it is, when
    /// there is no string with that id.
    bool LoadString(UINT id) { return LoadText(id); }
    bool LoadString(HINSTANCE module, UINT id) { return LoadText(module, id); }
    /// LoadString under the names that the system's macro makes of it.
    bool LoadStringW(UINT id) { return LoadText(id); }
    bool LoadStringW(HINSTANCE module, UINT id) { return LoadText(module, id); }
    bool LoadStringA(UINT id) { return LoadText(id); }
    bool LoadStringA(HINSTANCE module, UINT id) { return LoadText(module, id); }

    /// The characters for writing: at least `minimumLength` of them and a terminator, beginning with the present text.
    /// Call ReleaseBuffer before anything else is done with the string. A negative length throws CInvalidArgException*.
    wchar_t* GetBuffer() { return m_text; }
    wchar_t* GetBuffer(int minimumLength);
    /// As GetBuffer, the length being `length` at once. What lies beyond the present text is not set.
    wchar_t* GetBufferSetLength(int length);
    /// Ends writing: the length becomes `newLength`, or what the first null character says when that is -1. A length
    /// below -1 or above GetAllocLength() throws CInvalidArgException*.
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength) { SetLength(newLength); }
    /// Cuts the text to `newLength` characters. Does nothing when it is not longer; a negative length throws
    /// CInvalidArgException*.
    void Truncate(int newLength);
    /// Takes memory for a text of `length` characters beforehand.
    void Preallocate(int length);
    /// Gives back memory that the text does not need.
    void FreeExtra();
    /// The longest text for which there is memory.
    int GetAllocLength() const noexcept { return m_capacity; }

    // What the operators behind the class are made of.

    /// Two texts one behind the other, in a string made to measure.
    static CString Concatenate(std::wstring_view left, std::wstring_view right);
    /// A text up to its terminator, the empty one for null.
    static std::wstring_view ViewOf(const wchar_t* text) noexcept
    {
        return text != nullptr ? std::wstring_view(text) : std::wstring_view();
    }
    /// `Result`, for comparisons whose texts are CString or derive from it; no other type is considered.
    template <class Result, class... Texts>
    using ForTexts = std::enable_if_t<(std::is_base_of_v<CString, Texts> && ...), Result>;

private:
    static std::size_t CheckedLength(const wchar_t* text, int length) noexcept
    {
        return text != nullptr && length > 0 ? static_cast<std::size_t>(length) : 0;
    }
    static int Sign(int comparison) noexcept { return (comparison > 0) - (comparison < 0); }
    [[noreturn]] static void ThrowInvalidIndex();
    static void Free(wchar_t* text) noexcept;

    /// Holds the empty text without memory; whatever was held before is forgotten.
    void ResetToShort() noexcept
    {
        m_text = m_short;
        m_length = 0;
        m_capacity = c_shortLength;
        m_short[0] = L'\0';
    }
    /// Takes the text out of `other`, which becomes empty; whatever was held before is forgotten.
    void TakeFrom(CString& other) noexcept
    {
        m_length = other.m_length;
        if (other.m_text == other.m_short)
        {
            m_text = m_short;
            m_capacity = c_shortLength;
            std::wmemcpy(m_short, other.m_short, static_cast<std::size_t>(m_length) + 1);
            other.m_length = 0;
            other.m_short[0] = L'\0';
            return;
        }
        m_text = other.m_text;
        m_capacity = other.m_capacity;
        other.ResetToShort();
    }
    /// Copies a text for which there is memory; it may be part of the present one.
    void CopyIn(std::wstring_view text) noexcept
    {
        if (!text.empty())
            std::wmemmove(m_text, text.data(), text.size());
        m_length = static_cast<int>(text.size());
        m_text[m_length] = L'\0';
    }
    void Assign(std::wstring_view text)
    {
        if (text.size() > static_cast<std::size_t>(m_capacity))
            AllocateFor(text.size());
        CopyIn(text);
    }
    void AppendView(std::wstring_view text);
    /// Takes memory for that many characters, no more, and lets go of the present text. `length` exceeds the capacity.
    void AllocateFor(std::size_t length);
    /// Makes room for a text of `length` characters, geometrically; the present text stays.
    void Grow(std::size_t length);
    void Reallocate(std::size_t capacity);
    void ReplaceRange(std::size_t first, std::size_t count, std::wstring_view replacement);
    void SetLength(int length);
    bool LoadText(UINT id);
    bool LoadText(HINSTANCE module, UINT id);
    bool Owns(const wchar_t* text) const noexcept;

    wchar_t* m_text = m_short;
    int m_length = 0;
    int m_capacity = c_shortLength;
    wchar_t m_short[c_shortLength + 1];
};

#pragma pop_macro("LoadStringW")
#pragma pop_macro("LoadStringA")
#pragma pop_macro("LoadString")

// Comparisons by elements, as CString::Compare; the language derives the other operators and the reversed order of
// arguments. They are templates in order that a derived class with comparisons of its own is compared with other texts
// without ambiguity.
template <class Left, class Right>
CString::ForTexts<bool, Left, Right> operator==(const Left& left, const Right& right) noexcept
{
    return left.View() == right.View();
}
template <class Left>
CString::ForTexts<bool, Left> operator==(const Left& left, const wchar_t* right) noexcept
{
    return left.Compare(right) == 0;
}
template <class Left, class Right>
CString::ForTexts<std::strong_ordering, Left, Right> operator<=>(const Left& left, const Right& right) noexcept
{
    return left.View().compare(right.View()) <=> 0;
}
template <class Left>
CString::ForTexts<std::strong_ordering, Left> operator<=>(const Left& left, const wchar_t* right) noexcept
{
    return left.Compare(right) <=> 0;
}

inline CString operator+(const CString& left, const CString& right)
{
    return CString::Concatenate(left.View(), right.View());
}
inline CString operator+(const CString& left, const wchar_t* right)
{
    return CString::Concatenate(left.View(), CString::ViewOf(right));
}
inline CString operator+(const CString& left, wchar_t right)
{
    return CString::Concatenate(left.View(), std::wstring_view(&right, 1));
}
inline CString operator+(const wchar_t* left, const CString& right)
{
    return CString::Concatenate(CString::ViewOf(left), right.View());
}
inline CString operator+(wchar_t left, const CString& right)
{
    return CString::Concatenate(std::wstring_view(&left, 1), right.View());
}
inline CString operator+(CString&& left, const CString& right)
{
    return std::move(left += right);
}
inline CString operator+(CString&& left, const wchar_t* right)
{
    return std::move(left += right);
}
inline CString operator+(CString&& left, wchar_t right)
{
    return std::move(left += right);
}
