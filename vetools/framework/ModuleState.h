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

/// Loads a module, or counts one more use of a module that is loaded already, whose handle it gives then.
///
/// name  a path, or a name without a folder, which is looked for in the folder of the program and then where the system looks for
///       libraries. Where it has no extension, that of the system's libraries is meant: .dll, natively .so
/// Null where there is nothing under the name that can be loaded, the last error telling why; also for an empty name and for
/// null. Natively a module is the library itself or a shared object with a string table (vetools/platform/posix/StringModule.h):
/// others are not loaded.
VETOOLS_API HINSTANCE AfxLoadLibrary(const wchar_t* name);

/// Gives up one use of a module, and unloads it after the last one. Returns 1, or 0 for what is no handle of a module or no
/// longer. A current resource module that is unloaded so stays current: until another one is set, no text is found.
VETOOLS_API BOOL AfxFreeLibrary(HINSTANCE module);

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
