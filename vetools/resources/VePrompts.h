#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

class VETOOLS_API VePrompts
{
public:
    using Provider = bool (*)(CString& text, unsigned id, const wchar_t* module, unsigned flags);

    static bool GetPrompt(CString& text, unsigned id, const wchar_t* module, unsigned flags);
    static Provider SetProvider(Provider provider);
};
