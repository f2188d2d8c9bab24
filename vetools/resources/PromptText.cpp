#include "vetools/resources/PromptText.h"

#include "vetools/framework/ModuleState.h"
#include "vetools/framework/TextCopy.h"
#include "vetools/resources/StringTable.h"
#include "vetools/resources/VePrompts.h"

namespace
{

/// Who asks the prompts service.
constexpr wchar_t c_promptModule[] = L"TOOLS";

}  // namespace

CString PromptText(unsigned int id)
{
    CString text(StringTableText(id));
    if (!VePrompts::HasProvider())
        return text;
    const ScopedResourceModule libraryIsCurrent(GetVeToolsModule());
    VePrompts::GetPrompt(text, id, c_promptModule, 0);
    return text;
}

void CopyPromptText(unsigned int id, std::span<wchar_t> buffer)
{
    if (VePrompts::HasProvider())
        CopyTruncated(PromptText(id).View(), buffer);
    else
        CopyTruncated(StringTableText(id), buffer);
}
