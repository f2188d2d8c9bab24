#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

/// A string with filters by character, whose assignment and comparisons a derived class can replace. It has no data of its
/// own; the virtual functions stand in the order that modules compiled against it rely on.
class VETOOLS_API CVeString : public CString
{
public:
    CVeString();
    CVeString(const CVeString& other);
    CVeString(const CString& text);
    /// The first `length` characters of the text.
    CVeString(const wchar_t* text, int length);
    /// The character, `repeat` times over.
    CVeString(wchar_t character, int repeat);
    CVeString(const wchar_t* text);
    virtual ~CVeString();

    virtual CVeString& operator=(const CVeString& other);

    /// Kept: the two comparisons call themselves through the object, so that the override of a derived class answers. For an
    /// object without an override the call never returns. Compare() is what compares plain strings.
    virtual int operator==(const CVeString& other) const;
    virtual int operator!=(const CVeString& other) const;

    /// Does nothing: a place for a derived class to show itself.
    virtual void Dump() const;

    /// Removes every character that occurs in `chars`: "a-b-c" without "-b" is "ac".
    void ExcludeChar(const CString& chars);

    /// Keeps the characters that occur in `chars` and removes the others: "1a2b" on the digits is "12".
    /// Kept: when the first character is removed, the one behind it is not looked at and stays: "ab12" gives "b12".
    void IncludeChar(const CString& chars);

    /// Rewrites the number in `text` as drawing-text mark-up, its finer digits as a small superscript; always true.
    /// Defined in valuetext/.
    static bool FormatStringWithExponent(CString& text, double coef, wchar_t separator, CString prefix, CString pattern,
                                         CString suffix, double subUnitsPerUnit, bool dropZeroSuperscript);
};

/// Compares the texts in upper case, character by character: below 0, 0 or above 0, as CString::Compare.
VETOOLS_API int CompareUpperCase(CString a, CString b);

/// L"TRUE" for any number but 0, else L"FALSE". The texts live as long as the library is loaded.
VETOOLS_API const wchar_t* BoolToString(int b);
