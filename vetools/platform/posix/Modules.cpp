#include <dlfcn.h>
#include <link.h>
#include <mutex>
#include <shared_mutex>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cwchar>
#include <string>
#include <string_view>
#include <unordered_map>

#include "vetools/platform/LibraryModule.h"
#include "vetools/platform/posix/LibraryStrings.h"
#include "vetools/platform/posix/NativePath.h"
#include "vetools/platform/posix/SharedObjectFile.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

constexpr const char* c_recordName = "VeToolsStringModule";
constexpr std::string_view c_defaultExtension = ".so";
constexpr std::size_t c_mostStrings = 65536;  // ids have 16 bits

// What a file holds

bool Precedes(const VeStringResource& entry, UINT id)
{
    return entry.id < id;
}

bool IsUsable(const VeStringResource& entry)
{
    return entry.id < c_mostStrings && entry.length >= 0 && (entry.text != nullptr || entry.length == 0);
}

/// The record comes from a file that anybody may have made.
bool IsUsable(const VeStringModule* record)
{
    if (record == nullptr || record->size < sizeof(VeStringModule) ||
        record->version != VETOOLS_STRING_MODULE_VERSION || record->stringCount > c_mostStrings ||
        (record->strings == nullptr && record->stringCount != 0))
        return false;
    const VeStringResource* const end = record->strings + record->stringCount;
    const auto isOutOfOrder = [](const VeStringResource& left, const VeStringResource& right)
    {
        return left.id >= right.id;
    };
    return std::all_of(record->strings, end, [](const VeStringResource& entry) { return IsUsable(entry); }) &&
           std::adjacent_find(record->strings, end, isOutOfOrder) == end;
}

const VeStringResource* FindString(const VeStringModule& module, UINT id)
{
    const VeStringResource* const end = module.strings + module.stringCount;
    const VeStringResource* const found = std::lower_bound(module.strings, end, id, Precedes);
    return found != end && found->id == id ? found : nullptr;
}

// What is loaded

/// The modules that are loaded, by their handles.
class LoadedModules
{
public:
    /// They live until the process ends: objects that end after everything else may still free modules.
    static LoadedModules& Instance()
    {
        static LoadedModules& s_modules = *new LoadedModules;
        return s_modules;
    }

    /// Takes over one use of an object that the loader gave.
    HINSTANCE Add(void* object, const VeStringModule* strings)
    {
        const std::unique_lock guard(m_guard);
        for (auto& [handle, module] : m_modules)
        {
            if (module.object == object)
            {
                ++module.uses;
                return handle;
            }
        }
        const HINSTANCE handle = reinterpret_cast<HINSTANCE>(++m_handlesGiven * c_handleStep);
        m_modules.emplace(handle, Module{object, strings, 1});
        return handle;
    }

    /// Gives back the object of one use; null for what is no handle.
    void* Remove(HINSTANCE handle)
    {
        const std::unique_lock guard(m_guard);
        const auto found = m_modules.find(handle);
        if (found == m_modules.end())
            return nullptr;
        void* const object = found->second.object;
        if (--found->second.uses == 0)
            m_modules.erase(found);
        return object;
    }

    /// Calls `use` with the strings of a module, which is not unloaded meanwhile; with null for what is no handle.
    template <class Use>
    auto WithStrings(HINSTANCE handle, const Use& use)
    {
        if (handle == LibraryModule())
            return use(&c_libraryStrings);
        const std::shared_lock guard(m_guard);
        const auto found = m_modules.find(handle);
        return use(found != m_modules.end() ? found->second.strings : nullptr);
    }

private:
    struct Module
    {
        void* object;
        const VeStringModule* strings;
        std::size_t uses;
    };

    static constexpr std::uintptr_t c_handleStep = 0x10000;  // as the system's handles are

    std::shared_mutex m_guard;
    std::unordered_map<HINSTANCE, Module> m_modules;
    std::uintptr_t m_handlesGiven = 0;
};

// How a file is found

bool HasFolder(std::string_view path)
{
    return path.find('/') != std::string_view::npos;
}

/// french -> french.so, french.dll -> french.dll, french. -> french
std::string WithDefaultExtension(std::string path)
{
    const std::size_t lastSlash = path.find_last_of('/');  // none: npos + 1 is 0
    if (path.find('.', lastSlash + 1) == std::string::npos)
        return path.append(c_defaultExtension);
    if (path.back() == '.')
        path.pop_back();
    return path;
}

/// The folder of the program, with a slash behind it; empty when the system does not tell.
std::string ProgramFolder()
{
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    const std::string_view program(path, length > 0 ? static_cast<std::size_t>(length) : 0);
    return std::string(program.substr(0, program.find_last_of('/') + 1));
}

struct OpenedObject
{
    void* object;
    DWORD error;
};

OpenedObject OpenFile(const std::string& path)
{
    const DWORD error = CheckSharedObject(path);
    if (error != ERROR_SUCCESS)
        return {nullptr, error};
    void* const object = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    return {object, object != nullptr ? ERROR_SUCCESS : ERROR_BAD_EXE_FORMAT};
}

/// A name without a folder: beside the program, then where the system looks.
OpenedObject OpenByName(const std::string& name)
{
    const OpenedObject beside = OpenFile(ProgramFolder() + name);
    if (beside.error != ERROR_MOD_NOT_FOUND)
        return beside;
    void* const object = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    return {object, object != nullptr ? ERROR_SUCCESS : ERROR_MOD_NOT_FOUND};
}

// Whose strings an object gives

/// What the loader has noted down about the object that holds an address; null when none does.
const link_map* NoteOfHolder(const void* address)
{
    Dl_info info;
    void* note = nullptr;
    return ::dladdr1(address, &info, &note, RTLD_DL_LINKMAP) != 0 ? static_cast<const link_map*>(note) : nullptr;
}

bool IsHeldBy(const void* address, void* object)
{
    link_map* note = nullptr;
    return ::dlinfo(object, RTLD_DI_LINKMAP, &note) == 0 && NoteOfHolder(address) == note;
}

/// The record of the object itself, null where it has none: the loader also finds that of an object which it needs.
const VeStringModule* FindRecord(void* object)
{
    const void* const record = ::dlsym(object, c_recordName);
    return record != nullptr && IsHeldBy(record, object) ? static_cast<const VeStringModule*>(record) : nullptr;
}

HINSTANCE FailToLoad(DWORD error)
{
    ::SetLastError(error);
    return nullptr;
}

}  // namespace

HINSTANCE LibraryModule() noexcept
{
    return reinterpret_cast<HINSTANCE>(const_cast<VeStringModule*>(&c_libraryStrings));
}

HINSTANCE LoadLibraryW(LPCWSTR name)
{
    if (name == nullptr)
        return FailToLoad(ERROR_INVALID_PARAMETER);
    if (*name == L'\0')
        return FailToLoad(ERROR_MOD_NOT_FOUND);
    const std::string path = WithDefaultExtension(NativePath(name));
    const OpenedObject opened = HasFolder(path) ? OpenFile(path) : OpenByName(path);
    if (opened.object == nullptr)
        return FailToLoad(opened.error);
    if (IsHeldBy(&c_libraryStrings, opened.object))
    {
        ::dlclose(opened.object);  // the library stays as long as this code runs
        return LibraryModule();
    }
    const VeStringModule* const strings = FindRecord(opened.object);
    if (IsUsable(strings))
        return LoadedModules::Instance().Add(opened.object, strings);
    ::dlclose(opened.object);
    return FailToLoad(ERROR_BAD_EXE_FORMAT);
}

BOOL FreeLibrary(HINSTANCE module)
{
    if (module == LibraryModule())
        return 1;
    void* const object = LoadedModules::Instance().Remove(module);
    if (object == nullptr)
    {
        ::SetLastError(module == nullptr ? ERROR_INVALID_HANDLE : ERROR_MOD_NOT_FOUND);
        return 0;
    }
    ::dlclose(object);
    return 1;
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int bufferSize)
{
    if (buffer == nullptr || bufferSize < 0)
        return 0;
    return LoadedModules::Instance().WithStrings(
        module,
        [id, buffer, bufferSize](const VeStringModule* strings)
        {
            const VeStringResource* const entry = strings != nullptr ? FindString(*strings, id) : nullptr;
            if (entry == nullptr)
                ::SetLastError(strings != nullptr ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_DATA_NOT_FOUND);
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
        });
}
