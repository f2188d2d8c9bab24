#include "vetools/util/ConsoleOutput.h"

CConsoleOutput::Handler CConsoleOutput::m_handleDisplay = nullptr;

CConsoleOutput::CConsoleOutput() = default;
CConsoleOutput::CConsoleOutput(const CConsoleOutput& other) = default;
CConsoleOutput& CConsoleOutput::operator=(const CConsoleOutput& other) = default;
CConsoleOutput::~CConsoleOutput() = default;

void CConsoleOutput::SetHandle(Handler handler)
{
    m_handleDisplay = handler;
}

void CConsoleOutput::WriteMessage(const wchar_t* text, int flag)
{
    if (m_handleDisplay != nullptr)
        m_handleDisplay(text, flag != 0 ? 1 : 0);
}
