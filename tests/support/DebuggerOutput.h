#pragma once

#include <memory>
#include <string>

/// Gathers what is shown to a debugger, instead of showing it, while it lives. One at a time.
class DebuggerOutput
{
public:
    DebuggerOutput();
    DebuggerOutput(const DebuggerOutput&) = delete;
    DebuggerOutput& operator=(const DebuggerOutput&) = delete;
    ~DebuggerOutput();

    /// Everything so far, one text behind the other.
    std::wstring Text() const;

private:
    struct Capture;
    std::unique_ptr<Capture> m_capture;
};
