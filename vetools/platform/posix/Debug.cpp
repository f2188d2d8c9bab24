#include <cstdio>
#include <cstdlib>

#include "vetools/platform/posix/NativePath.h"
#include "vetools/platform/posix/WinBase.h"

// What a debugger would show goes to the standard error, but only when the environment variable VETOOLS_DEBUG_OUTPUT asks
// for it: a library does not write to its host's terminal unasked.

void OutputDebugStringA(LPCSTR text)
{
    if (text && std::getenv("VETOOLS_DEBUG_OUTPUT"))
        std::fputs(text, stderr);
}

void OutputDebugStringW(LPCWSTR text)
{
    if (text)
        OutputDebugStringA(Utf8Text(text).c_str());
}
