#pragma once

#include <cstddef>

#include "vetools/framework/CString.h"
#include "vetools/framework/CStringArray.h"
#include "vetools/platform/Export.h"

/// The pieces of a text between delimiters, as an array of strings: n delimiters make n + 1 elements, empty ones included,
/// and nothing is trimmed. "a;b;" at ';' is "a", "b" and "".
///
/// The count is taken when the tokenizer is made. The array may be changed afterwards; the count then stays, and asking for an
/// element below the count that the array no longer has throws CInvalidArgException.
class VETOOLS_API CStringTokenizer : public CStringArray
{
public:
    /// Kept: at the delimiters '\n' and '\\' the last character before each delimiter is dropped, whatever it is. That takes the
    /// carriage returns out of "x\r\ny", and the letters out of "a\\b\\c", which gives "", "" and "c".
    CStringTokenizer(CString& text, wchar_t delimiter);

    /// The same with no character dropped, whatever the delimiter. The number is not read.
    CStringTokenizer(CString& text, wchar_t delimiter, int);

    /// The number of elements when the tokenizer was made.
    int CountElements() const;

    /// Copies element i. Returns false, and leaves `out`, for i below 0 or not below the count.
    bool ElementAt(long i, CString& out) const;

    /// Element i, empty for i below 0 or not below the count.
    CString ElementAt(long i) const;

    /// Copies the next element, starting with the first. Returns false, and leaves `out`, when there is none.
    /// Kept: the last element is never delivered: over "a;b;c" the walk gives a and b.
    bool GetNextElement(CString& out);

private:
    enum class BeforeDelimiter
    {
        KeepAll,
        DropOne,
    };

    void Split(const CString& text, wchar_t delimiter, BeforeDelimiter before);

    int m_cursor = 0;
    std::ptrdiff_t m_count = 0;
};
