#include "vetools/resources/VePrompts.h"

#include <atomic>

static std::atomic<VePrompts::Provider> s_provider = nullptr;

bool VePrompts::GetPrompt(CString& text, unsigned id, const wchar_t* module, unsigned flags)
{
    const Provider provider = s_provider.load(std::memory_order_acquire);
    return provider != nullptr && provider(text, id, module, flags);
}

VePrompts::Provider VePrompts::SetProvider(Provider provider)
{
    return s_provider.exchange(provider, std::memory_order_acq_rel);
}

bool VePrompts::HasProvider() noexcept
{
    return s_provider.load(std::memory_order_acquire) != nullptr;
}
