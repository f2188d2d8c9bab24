#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

class VETOOLS_API CVeString : public CString
{
public:
    CVeString();
    CVeString(const CVeString& other);
    CVeString(const CString& text);
    CVeString(const wchar_t* text, int length);
    CVeString(wchar_t character, int repeat);
    CVeString(const wchar_t* text);
    virtual ~CVeString();

    virtual CVeString& operator=(const CVeString& other);
    virtual int operator==(const CVeString& other) const;
    virtual int operator!=(const CVeString& other) const;
    virtual void Dump() const;

    void ExcludeChar(const CString& chars);
    void IncludeChar(const CString& chars);

    /// Rewrites a number as drawing-text mark-up whose finer digits are a small superscript, and returns true. Defined in
    /// valuetext/.
    ///
    /// text             the number, rewritten in place
    /// coef             units of the number per SI unit, and
    /// subUnitsPerUnit  sub-units per SI unit: the digits from the sub-unit on are raised. Nothing is raised unless one
    ///                  unit is a power of ten, at least 10, of sub-units.
    /// separator        the decimal separator of the number
    /// pattern          where every <> is replaced by the number and the suffix; a pattern of blanks gets one in front
    /// prefix           stands before the pattern
    /// dropZeroSuperscript   leaves out a superscript of zeros only
    ///
    ///     text      coef    subUnitsPerUnit   result
    ///     1.234     1       1000              \A1;1.23{\H0.6x;\S4^;}      metres: two decimals stand for centimetres
    ///     123.4     100     1000              \A1;123{\H0.6x;\S4^;}       centimetres: the separator goes as well
    ///     1234.5    1000    1000              \A1;1234.5                   millimetres
    ///
    /// \A1; is put in front unless the text holds it already.
    static bool FormatStringWithExponent(CString& text, double coef, wchar_t separator, CString prefix, CString pattern,
                                         CString suffix, double subUnitsPerUnit, bool dropZeroSuperscript);
};

VETOOLS_API int CompareUpperCase(CString a, CString b);
VETOOLS_API const wchar_t* BoolToString(int b);
