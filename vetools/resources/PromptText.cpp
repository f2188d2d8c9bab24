#include "vetools/resources/PromptText.h"

#include <algorithm>

#include "vetools/framework/ModuleState.h"
#include "vetools/resources/StringTable.h"
#include "vetools/resources/VePrompts.h"

namespace
{

/// Who asks the prompts service.
constexpr wchar_t c_promptModule[] = L"TOOLS";

void CopyCut(std::wstring_view text, std::span<wchar_t> buffer)
{
    if (buffer.empty())
        return;
    const std::size_t length = std::min(text.size(), buffer.size() - 1);
    text.copy(buffer.data(), length);
    buffer[length] = L'\0';
}

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
        CopyCut(PromptText(id).View(), buffer);
    else
        CopyCut(StringTableText(id), buffer);
}
