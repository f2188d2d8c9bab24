#include <algorithm>
#include <cwchar>

#include "vetools/platform/LibraryModule.h"
#include "vetools/platform/posix/ModuleRecord.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

const VeStringResource* FindString(const VeModuleRecord& module, UINT id)
{
    const VeStringResource* const end = module.strings + module.stringCount;
    const VeStringResource* const found = std::lower_bound(
        module.strings, end, id, [](const VeStringResource& entry, UINT searched) { return entry.id < searched; });
    return found != end && found->id == id ? found : nullptr;
}

}  // namespace

HINSTANCE LibraryModule() noexcept
{
    return &c_libraryModule;
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int bufferSize)
{
    if (buffer == nullptr || bufferSize < 0)
        return 0;
    const VeModuleRecord& record = module != nullptr ? *module : c_libraryModule;
    const VeStringResource* const entry = FindString(record, id);
    if (entry == nullptr)
        ::SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    if (bufferSize == 0)
    {
        *reinterpret_cast<LPCWSTR*>(buffer) = entry != nullptr ? entry->text : nullptr;
        return entry != nullptr ? entry->length : 0;
    }
    const int copied = entry != nullptr ? std::min(entry->length, bufferSize - 1) : 0;
    if (copied > 0)
        std::wmemcpy(buffer, entry->text, static_cast<std::size_t>(copied));
    buffer[copied] = L'\0';
    return copied;
}
