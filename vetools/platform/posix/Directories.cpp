#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <compare>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vetools/platform/posix/ErrnoMapping.h"
#include "vetools/platform/posix/FileStatus.h"
#include "vetools/platform/posix/NamePattern.h"
#include "vetools/platform/posix/NativePath.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

struct CloseFolder
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

/// Something that a search finds.
struct Entry
{
    std::wstring name;
    std::wstring upperName;
    WIN32_FILE_ATTRIBUTE_DATA status;
};

/// The rank of a character in an order by 16-bit units: characters beyond U+FFFF begin with a surrogate there, and stand
/// before U+E000.
std::uint32_t OrderOf(wchar_t character)
{
    constexpr std::uint32_t c_behindSurrogates = 0xE000;
    constexpr std::uint32_t c_supplementary = 0x10000;
    const auto value = static_cast<std::uint32_t>(character);
    return value >= c_behindSurrogates && value < c_supplementary ? value + 0x110000 : value;
}

std::strong_ordering Compare(const std::wstring& left, const std::wstring& right)
{
    return std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(), right.end(),
                                                  [](wchar_t a, wchar_t b) { return OrderOf(a) <=> OrderOf(b); });
}

bool IsBefore(const Entry& left, const Entry& right)
{
    const std::strong_ordering order = Compare(left.upperName, right.upperName);
    return order != 0 ? order < 0 : Compare(left.name, right.name) < 0;
}

void Store(const Entry& entry, WIN32_FIND_DATAW& found)
{
    found = {};
    found.dwFileAttributes = entry.status.dwFileAttributes;
    found.ftCreationTime = entry.status.ftCreationTime;
    found.ftLastAccessTime = entry.status.ftLastAccessTime;
    found.ftLastWriteTime = entry.status.ftLastWriteTime;
    found.nFileSizeHigh = entry.status.nFileSizeHigh;
    found.nFileSizeLow = entry.status.nFileSizeLow;
    entry.name.copy(found.cFileName, MAX_PATH - 1);
}

/// What a folder tells of an entry that may not be looked at: its kind.
WIN32_FILE_ATTRIBUTE_DATA StatusOfKind(unsigned char kind)
{
    WIN32_FILE_ATTRIBUTE_DATA status{};
    status.dwFileAttributes = kind == DT_DIR ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (kind == DT_LNK)
        status.dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    return status;
}

/// A search under way. "." and ".." are found without a look at the rest of the folder, so that asking whether a folder
/// exists costs the same for one of ten entries and of ten thousand. The rest is read at once when it is first needed, and
/// the folder closed: a search that goes down a tree holds no more than one folder open, however deep the tree.
class Search
{
public:
    /// A search that finds one entry and then nothing.
    explicit Search(Entry entry)
        : m_pattern(entry.name)
    {
        m_rest.push_back(std::move(entry));
    }
    Search(Folder folder, NamePattern pattern)
        : m_pattern(std::move(pattern))
        , m_folder(std::move(folder))
    {
        if (!IsRoot())
            m_dots = {"..", "."};
    }

    bool Next(WIN32_FIND_DATAW& found)
    {
        while (!m_dots.empty())
        {
            const char* name = m_dots.back();
            m_dots.pop_back();
            const std::optional<Entry> entry = Match(name, DT_DIR);
            if (!entry)
                continue;
            Store(*entry, found);
            return true;
        }
        if (m_folder)
            ReadRest();
        if (m_next == m_rest.size())
            return false;
        Store(m_rest[m_next++], found);
        return true;
    }

private:
    bool IsRoot() const
    {
        struct stat own
        {
        };
        struct stat parent
        {
        };
        const int descriptor = ::dirfd(m_folder.get());
        return ::fstat(descriptor, &own) == 0 && ::fstatat(descriptor, "..", &parent, 0) == 0 &&
               own.st_dev == parent.st_dev && own.st_ino == parent.st_ino;
    }

    /// The entry of that name, when it fits the pattern and still exists.
    std::optional<Entry> Match(const char* name, unsigned char kind) const
    {
        Entry entry{WidePath(name), {}, {}};
        entry.upperName = UpperName(entry.name);
        if (!m_pattern.Matches(entry.upperName))
            return std::nullopt;
        const auto status = StatusOf(::dirfd(m_folder.get()), name);
        if (!status && errno != EACCES)
            return std::nullopt;
        entry.status = status ? *status : StatusOfKind(kind);
        return entry;
    }

    void ReadRest()
    {
        while (const dirent* read = ::readdir(m_folder.get()))
        {
            const std::string_view name = read->d_name;
            if (name == "." || name == "..")
                continue;
            if (std::optional<Entry> entry = Match(read->d_name, read->d_type))
                m_rest.push_back(std::move(*entry));
        }
        std::sort(m_rest.begin(), m_rest.end(), IsBefore);
        m_folder.reset();
    }

    NamePattern m_pattern;
    Folder m_folder;
    std::vector<const char*> m_dots;  // the next one last
    std::vector<Entry> m_rest;
    std::size_t m_next = 0;
};

using Searches = std::unordered_map<HANDLE, std::unique_ptr<Search>>;

std::mutex s_searchesGuard;

/// The searches under way. Never destroyed: objects that end after everything else may still search folders.
Searches& OpenSearches()
{
    static Searches& s_searches = *new Searches;
    return s_searches;
}

Search* SearchOf(HANDLE handle)
{
    const std::lock_guard guard(s_searchesGuard);
    const auto found = OpenSearches().find(handle);
    return found != OpenSearches().end() ? found->second.get() : nullptr;
}

/// The folder of a path, without the separator, which would make the longest of paths too long; empty when there is none.
std::string FolderOf(const std::string& native)
{
    const std::size_t slash = native.find_last_of('/');
    return slash == std::string::npos ? "" : native.substr(0, std::max<std::size_t>(slash, 1));
}

/// Begins the search for a pattern; null with the last error set when that is not possible.
std::unique_ptr<Search> BeginSearch(std::wstring_view pattern)
{
    const std::size_t nameBegins = pattern.find_last_of(L"\\/") + 1;  // 0 without a separator
    const std::wstring_view name = pattern.substr(nameBegins);
    NamePattern namePattern(name);
    const std::string native = NativePath(pattern);
    if (!namePattern.HasWildcards())
    {
        const auto status = StatusOf(AT_FDCWD, native.c_str());
        if (status && !name.empty())
            return std::make_unique<Search>(Entry{std::wstring(name), {}, *status});
        Fail(status ? ERROR_FILE_NOT_FOUND : ErrorOfPath(errno, native));
        return nullptr;
    }
    Folder folder(::opendir(nameBegins == 0 ? "." : FolderOf(native).c_str()));
    if (!folder)
    {
        Fail(errno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
        return nullptr;
    }
    return std::make_unique<Search>(std::move(folder), std::move(namePattern));
}

}  // namespace

HANDLE FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW found)
{
    if (!pattern || !*pattern)
    {
        Fail(ERROR_PATH_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    std::unique_ptr<Search> search = BeginSearch(pattern);
    if (!search)
        return INVALID_HANDLE_VALUE;
    if (!search->Next(*found))
    {
        Fail(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    const std::lock_guard guard(s_searchesGuard);
    const HANDLE handle = search.get();
    OpenSearches().emplace(handle, std::move(search));
    return handle;
}

BOOL FindNextFileW(HANDLE handle, LPWIN32_FIND_DATAW found)
{
    Search* const search = SearchOf(handle);
    if (!search)
        return Fail(ERROR_INVALID_HANDLE);
    return search->Next(*found) ? 1 : Fail(ERROR_NO_MORE_FILES);
}

BOOL FindClose(HANDLE handle)
{
    const std::lock_guard guard(s_searchesGuard);
    return OpenSearches().erase(handle) != 0 ? 1 : Fail(ERROR_INVALID_HANDLE);
}

BOOL CreateDirectoryW(LPCWSTR path, void*)
{
    if (!path || !*path)
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string native = NativePath(path);
    return ::mkdir(native.c_str(), 0777) == 0 ? 1 : FailOfPath(native);
}

BOOL RemoveDirectoryW(LPCWSTR path)
{
    if (!path || !*path)
        return Fail(ERROR_PATH_NOT_FOUND);
    // Without separators at its end, which would stand for the target of a link.
    std::string native = NativePath(path);
    native.resize(std::max<std::size_t>(native.find_last_not_of('/') + 1, 1));
    const auto status = StatusOf(AT_FDCWD, native.c_str());
    if (!status)
        return FailOfPath(native);
    if (!(status->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return Fail(ERROR_DIRECTORY);
    const bool isLink = status->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT;
    return (isLink ? ::unlink(native.c_str()) : ::rmdir(native.c_str())) == 0 ? 1 : FailOfPath(native);
}
