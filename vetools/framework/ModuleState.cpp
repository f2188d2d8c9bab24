#include "vetools/framework/ModuleState.h"

#include <atomic>

#include "vetools/platform/LibraryModule.h"

namespace
{

std::atomic<HINSTANCE>& ProcessResourceModule() noexcept
{
    static std::atomic<HINSTANCE> s_module = LibraryModule();
    return s_module;
}

/// The innermost guard of this thread.
thread_local ScopedResourceModule* t_guard = nullptr;

} // namespace

HINSTANCE AfxGetResourceHandle() noexcept { return t_guard != nullptr ? t_guard->m_module : ProcessResourceModule().load(); }

void AfxSetResourceHandle(HINSTANCE module) noexcept
{
    if (t_guard != nullptr)
        t_guard->m_module = module;
    else
        ProcessResourceModule().store(module);
}

HINSTANCE GetVeToolsModule() noexcept { return LibraryModule(); }

ScopedResourceModule::ScopedResourceModule(HINSTANCE module) noexcept : m_module(module), m_previous(t_guard) { t_guard = this; }

ScopedResourceModule::~ScopedResourceModule() { t_guard = m_previous; }
