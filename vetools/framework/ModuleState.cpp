#include "vetools/framework/ModuleState.h"

#include <atomic>
#include <utility>

#include "vetools/platform/LibraryModule.h"

namespace
{

std::atomic<HINSTANCE>& ProcessResourceModule() noexcept
{
    static std::atomic<HINSTANCE> s_module = LibraryModule();
    return s_module;
}

/// The module of this thread's innermost guard, if there is one.
thread_local std::optional<HINSTANCE> t_guardedModule;

}  // namespace

HINSTANCE AfxGetResourceHandle() noexcept
{
    return t_guardedModule ? *t_guardedModule : ProcessResourceModule().load();
}

void AfxSetResourceHandle(HINSTANCE module) noexcept
{
    if (t_guardedModule)
        t_guardedModule = module;
    else
        ProcessResourceModule().store(module);
}

HINSTANCE GetVeToolsModule() noexcept
{
    return LibraryModule();
}

ScopedResourceModule::ScopedResourceModule(HINSTANCE module) noexcept
    : m_previous(std::exchange(t_guardedModule, module))
{
}

ScopedResourceModule::~ScopedResourceModule()
{
    t_guardedModule = m_previous;
}
