#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

/// The prompts service: the place where a host puts its own texts, such as translated titles of units, before the
/// built-in ones.
class VETOOLS_API VePrompts
{
public:
    /// Gives the text for `id` by replacing `text`, which holds the built-in one, and returns true; or leaves it and
    /// returns false. `module` names who asks: "TOOLS" for this library; `flags` is 0. While the library asks, it is
    /// the current resource module of the thread. A provider may answer otherwise from one call to the next, and may
    /// throw: whatever asked lets it through.
    using Provider = bool (*)(CString& text, unsigned id, const wchar_t* module, unsigned flags);

    /// Asks the provider for the text for `id`. Returns whether it replaced `text`; false, and the text as it was,
    /// without a provider.
    static bool GetPrompt(CString& text, unsigned id, const wchar_t* module, unsigned flags);
    /// Installs a provider for the whole process, or none when it is null; returns the previous one. There is none at
    /// start.
    static Provider SetProvider(Provider provider);
    /// Whether a provider is installed: whoever has none to ask need not make the text that it would replace.
    static bool HasProvider() noexcept;
};
