#pragma once

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

// The module from which texts are loaded by their id.
//
// The current resource module is the host's choice for the whole process, until a ScopedResourceModule makes another one
// current: for its own thread and its own lifetime.

/// The current resource module. It is the library's own until the host sets another.
VETOOLS_API HINSTANCE AfxGetResourceHandle() noexcept;

/// Makes `module` the current resource module: for the process, or within a ScopedResourceModule for what is left of that.
VETOOLS_API void AfxSetResourceHandle(HINSTANCE module) noexcept;

/// The library's own module, which holds the titles and names of the units.
VETOOLS_API HINSTANCE GetVeToolsModule() noexcept;

/// Makes a module the current resource module of this thread while it lives, and restores the previous one at its end, also
/// when an exception ends it. Guards nest.
class VETOOLS_API ScopedResourceModule
{
public:
    explicit ScopedResourceModule(HINSTANCE module) noexcept;
    ~ScopedResourceModule();

    ScopedResourceModule(const ScopedResourceModule&) = delete;
    ScopedResourceModule& operator=(const ScopedResourceModule&) = delete;

private:
    HINSTANCE m_previous;
    bool m_isNested;
};
