#include "tests/support/DebuggerOutput.h"

#include "vetools/framework/CString.h"

namespace
{

std::wstring s_text;

/// The system offers every text for a debugger as an exception of the program, wide first. One that is taken goes no further.
LONG CALLBACK TakeText(EXCEPTION_POINTERS* raised)
{
    constexpr DWORD c_wideText = 0x4001000A;
    constexpr DWORD c_narrowText = 0x40010006;
    const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
    if (record.ExceptionCode == c_wideText)
        s_text += reinterpret_cast<const wchar_t*>(record.ExceptionInformation[1]);
    else if (record.ExceptionCode == c_narrowText)
        s_text += CString(reinterpret_cast<const char*>(record.ExceptionInformation[1])).View();
    else
        return EXCEPTION_CONTINUE_SEARCH;
    return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

struct DebuggerOutput::Capture
{
    void* handler = ::AddVectoredExceptionHandler(1, TakeText);
};

DebuggerOutput::DebuggerOutput()
    : m_capture(std::make_unique<Capture>())
{
    s_text.clear();
}

DebuggerOutput::~DebuggerOutput()
{
    ::RemoveVectoredExceptionHandler(m_capture->handler);
}

std::wstring DebuggerOutput::Text() const
{
    return s_text;
}
