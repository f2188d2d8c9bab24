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

/// What the innermost guard of this thread made current; meant only while there is one.
thread_local HINSTANCE t_module = nullptr;
thread_local bool t_isGuarded = false;

}  // namespace

HINSTANCE AfxGetResourceHandle() noexcept
{
    return t_isGuarded ? t_module : ProcessResourceModule().load();
}

void AfxSetResourceHandle(HINSTANCE module) noexcept
{
    if (t_isGuarded)
        t_module = module;
    else
        ProcessResourceModule().store(module);
}

HINSTANCE AfxLoadLibrary(const wchar_t* name)
{
    return ::LoadLibraryW(name);
}

BOOL AfxFreeLibrary(HINSTANCE module)
{
    return ::FreeLibrary(module);
}

HINSTANCE GetVeToolsModule() noexcept
{
    return LibraryModule();
}

ScopedResourceModule::ScopedResourceModule(HINSTANCE module) noexcept
    : m_previous(t_module)
    , m_isNested(t_isGuarded)
{
    t_module = module;
    t_isGuarded = true;
}

ScopedResourceModule::~ScopedResourceModule()
{
    t_module = m_previous;
    t_isGuarded = m_isNested;
}
