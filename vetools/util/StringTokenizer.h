#pragma once

#include <cstddef>

#include "vetools/framework/CStringArray.h"

class VETOOLS_API CStringTokenizer : public CStringArray
{
public:
    CStringTokenizer(CString& text, wchar_t delimiter);
    CStringTokenizer(CString& text, wchar_t delimiter, int);

    int CountElements() const;
    bool ElementAt(long i, CString& out) const;
    CString ElementAt(long i) const;
    bool GetNextElement(CString& out);

private:
    int m_cursor = 0;
    std::ptrdiff_t m_count = 0;
};
