#pragma once

#include "vetools/platform/Export.h"

/// Where modules send messages for a console that the host may have: the host sets a handler, and without one the messages are
/// dropped. Nothing is locked: set the handler before other threads write.
class VETOOLS_API CConsoleOutput
{
public:
    /// text  as it was given to WriteMessage, also null; belongs to the caller
    /// flag  0 or 1
    using Handler = void (*)(const wchar_t* text, int flag);

    CConsoleOutput();
    CConsoleOutput(const CConsoleOutput& other);
    CConsoleOutput& operator=(const CConsoleOutput& other);
    ~CConsoleOutput();

    /// Sets the handler of the process in place of the one before; null removes it.
    static void SetHandle(Handler handler);

    /// Calls the handler with the text and with 1 for any `flag` but 0. Does nothing without a handler: the message goes to
    /// no console and no debugger.
    static void WriteMessage(const wchar_t* text, int flag);

    /// The handler; null at start.
    static Handler m_handleDisplay;
};
