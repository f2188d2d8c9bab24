#include "tests/support/DebuggerOutput.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#include "vetools/framework/CString.h"

/// The standard error, led into a file.
struct DebuggerOutput::Capture
{
    std::FILE* file = std::tmpfile();
    int standardError = ::dup(STDERR_FILENO);
};

DebuggerOutput::DebuggerOutput()
    : m_capture(std::make_unique<Capture>())
{
    ::dup2(::fileno(m_capture->file), STDERR_FILENO);
    ::setenv("VETOOLS_DEBUG_OUTPUT", "1", 1);
}

DebuggerOutput::~DebuggerOutput()
{
    ::unsetenv("VETOOLS_DEBUG_OUTPUT");
    ::dup2(m_capture->standardError, STDERR_FILENO);
    ::close(m_capture->standardError);
    std::fclose(m_capture->file);
}

std::wstring DebuggerOutput::Text() const
{
    std::string bytes;
    char byte = 0;
    for (off_t position = 0; ::pread(::fileno(m_capture->file), &byte, 1, position) == 1; ++position)
        bytes += byte;
    return std::wstring(CString(bytes.c_str()).View());
}
