#include "vetools/platform/LibraryModule.h"

/// The linker's name for the start of this module, which is its handle.
extern "C" IMAGE_DOS_HEADER __ImageBase;

HINSTANCE LibraryModule() noexcept
{
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}
