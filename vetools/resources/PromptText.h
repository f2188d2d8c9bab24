#pragma once

#include <span>

#include "vetools/framework/CString.h"

// Built-in texts as the prompts service wants them shown (internal): the provider, if there is one, is asked each time,
// with the built-in text, "TOOLS" and 0, while the library is the current resource module. Whatever current module
// there was before is so again afterwards.

/// The text of an id: PromptText(IDS_WORD_SQUARE_INCH) is "sq in" without a provider.
CString PromptText(unsigned int id);

/// The same, cut to what the buffer holds before a terminator. Without a provider nothing but the characters is copied.
void CopyPromptText(unsigned int id, std::span<wchar_t> buffer);
