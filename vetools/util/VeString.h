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

    /// Defined in valuetext/.
    static bool FormatStringWithExponent(CString& text, double coef, wchar_t separator, CString prefix, CString pattern,
                                         CString suffix, double subUnitsPerUnit, bool dropZeroSuperscript);
};

VETOOLS_API int CompareUpperCase(CString a, CString b);
VETOOLS_API const wchar_t* BoolToString(int b);
