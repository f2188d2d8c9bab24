#pragma once

// The application framework itself, for hosts that have it: with VETOOLS_USE_REAL_FRAMEWORK the headers of this folder that
// carry the framework's names come down to this one.
#include <afxwin.h>

#include <afxdb.h>
#include <afxole.h>

#include "vetools/platform/Export.h"

/// The library's own module, which holds the titles and names of the units.
VETOOLS_API HINSTANCE GetVeToolsModule() noexcept;

/// Makes a module the framework's current resource module while it lives, and restores the previous one at its end.
class ScopedResourceModule
{
public:
    explicit ScopedResourceModule(HINSTANCE module)
        : m_previous(AfxGetResourceHandle())
    {
        AfxSetResourceHandle(module);
    }
    ~ScopedResourceModule() { AfxSetResourceHandle(m_previous); }

    ScopedResourceModule(const ScopedResourceModule&) = delete;
    ScopedResourceModule& operator=(const ScopedResourceModule&) = delete;

private:
    HINSTANCE m_previous;
};
