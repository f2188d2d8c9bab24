#include "vetools/framework/real/RealFramework.h"

#include "vetools/platform/LibraryModule.h"

HINSTANCE GetVeToolsModule() noexcept
{
    return LibraryModule();
}
