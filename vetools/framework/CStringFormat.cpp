#include "vetools/framework/CString.h"

#include <utility>

#include "vetools/framework/CException.h"
#include "vetools/framework/WideFormat.h"

namespace
{

/// A text made aside: format and arguments may point into the string that receives it.
CString PrintedText(const wchar_t* format, va_list arguments)
{
    CString text;
    if (format != nullptr)
        AppendFormattedV(text, format, arguments);
    return text;
}

CString LoadedFormat(UINT formatId)
{
    CString format;
    if (!format.LoadString(formatId))
        AfxThrowInvalidArgException();
    return format;
}

}  // namespace

void CString::Format(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::Format(UINT formatId, ...)
{
    const CString format = LoadedFormat(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::FormatV(const wchar_t* format, va_list arguments)
{
    *this = PrintedText(format, arguments);
}

void CString::AppendFormat(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormat(UINT formatId, ...)
{
    const CString format = LoadedFormat(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormatV(const wchar_t* format, va_list arguments)
{
    *this += PrintedText(format, arguments);
}
