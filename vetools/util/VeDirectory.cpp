#include "vetools/util/VeDirectory.h"

#include <algorithm>
#include <cstdlib>
#include <queue>
#include <stack>
#include <string_view>

#include "vetools/platform/WindowsPath.h"
#include "vetools/util/FolderSearch.h"

namespace
{

constexpr wchar_t c_allEntries[] = L"*.*";

/// What the paths of an older generation of programs could not hold: é è à â ê î ô ç.
constexpr wchar_t c_refusedCharacters[] = L"\u00E9\u00E8\u00E0\u00E2\u00EA\u00EE\u00F4\u00E7";

/// A path: `name` in `folder`, with a backslash between them unless there is a separator. Both end at their first null
/// character.
CString PathIn(const CString& folder, const wchar_t* name)
{
    CString path(folder.GetString());
    if (path.IsEmpty() || !LastComponent(path.View()).empty())
        path += L'\\';
    return path += name;
}

bool IsFolder(DWORD attributes)
{
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

/// A path without separators and "." at its end, which may stand for what a link leads to.
CString WithoutTail(CString path)
{
    while (!path.TrimRight(L"\\/").IsEmpty() && LastComponent(path.View()) == L"." && path.GetLength() > 1)
        path.Truncate(path.GetLength() - 1);
    return path;
}

bool IsLinkToFolder(const CString& path)
{
    const DWORD attributes = ::GetFileAttributesW(path);
    return IsFolder(attributes) && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

/// Removes a folder with all that is in it, without a call for each folder in a folder: a tree may be deeper than the
/// stack of a thread.
class TreeRemoval
{
public:
    /// ownFolder  the folder without which nothing is removed, with a separator at its end
    TreeRemoval(const CString& path, const CString& ownFolder)
        : m_path(path)
        , m_ownFolder(ownFolder)
    {
    }

    int Run()
    {
        Enter(0);
        while (!m_levels.empty())
        {
            if (m_levels.top().search.Found())
                RemoveEntry();
            else
                Leave();
        }
        return m_removed;
    }

private:
    /// A folder whose entries are being removed.
    struct Level
    {
        Level(const CString& path, int lengthOfParent)
            : search(PathIn(path, c_allEntries))
            , parentLength(lengthOfParent)
        {
        }

        FolderSearch search;
        int parentLength;  ///< of the path of the folder above
    };

    /// Goes into the folder at m_path, if it can be searched.
    void Enter(int parentLength)
    {
        m_levels.emplace(m_path, parentLength);
        if (m_levels.top().search.Found())
            return;
        m_levels.pop();
        m_path.Truncate(parentLength);
    }

    void RemoveEntry()
    {
        FolderSearch& search = m_levels.top().search;
        const bool isFolder = search.IsFolder();
        const bool isLink = search.IsLink();
        const bool isDots = search.IsDots();
        const int length = m_path.GetLength();
        m_path = PathIn(m_path, search.Name());
        search.Next();

        // Kept: asked for every folder, as the own one may be gone by now.
        const bool mayRemoveFolder = isFolder && !isDots && IsFolder(::GetFileAttributesW(m_ownFolder));
        if (mayRemoveFolder && !isLink)
            return Enter(length);
        if (mayRemoveFolder)
            ::RemoveDirectoryW(m_path);
        if (!isFolder)
            ::DeleteFileW(m_path);
        m_path.Truncate(length);
    }

    /// Removes the folder at m_path, whose search has closed itself at its end.
    void Leave()
    {
        m_removed = ::RemoveDirectoryW(m_path);
        m_path.Truncate(m_levels.top().parentLength);
        m_levels.pop();
    }

    CString m_path;  ///< of the folder that is being searched
    CString m_ownFolder;
    std::stack<Level> m_levels;
    int m_removed = 1;
};

using NameSlot = wchar_t[MAX_PATH];

/// The name without its extension, which is taken to have four characters.
void StoreShortened(std::wstring_view name, NameSlot& slot)
{
    constexpr std::size_t c_extensionLength = 4;
    if (name.size() == c_extensionLength)
        return;  // Kept: nothing is left of the name, and the slot stays as it is
    if (name.size() > c_extensionLength)
        name.remove_suffix(c_extensionLength);
    slot[name.copy(slot, MAX_PATH - 1)] = L'\0';
}

}  // namespace

CVeDirectory::CVeDirectory(CString path)
    : m_strPath(path.GetString())
{
    if (m_strPath.View().ends_with(L'\\'))
        m_strPath.Truncate(m_strPath.GetLength() - 1);
}

CVeDirectory::~CVeDirectory() = default;

int CVeDirectory::Create() const
{
    return ::CreateDirectoryW(m_strPath, nullptr);
}

int CVeDirectory::IsExist() const
{
    return FolderSearch(PathIn(m_strPath, c_allEntries)).Found();
}

int CVeDirectory::Destroy() const
{
    return IsExist() ? Remove(m_strPath) : 1;
}

int CVeDirectory::Purge() const
{
    return 1;  // Kept
}

int CVeDirectory::Remove(CString path) const
{
    path = PathIn(path, L"");
    if (!IsExist() || IsRootPath(path.View()))
        return 0;
    path = WithoutTail(path);
    if (IsLinkToFolder(path))
        return ::RemoveDirectoryW(path);

    return TreeRemoval(path, PathIn(m_strPath, L"")).Run();
}

int CVeDirectory::Copy(CString sourceFolder) const
{
    if (!IsExist())
        return 0;
    FolderSearch search(PathIn(sourceFolder, c_allEntries));
    if (!search.Found())
        return 0;
    // "." and "..", being folders, are refused by the system like any other.
    for (; search.Found(); search.Next())
        ::CopyFileW(PathIn(sourceFolder, search.Name()), PathIn(m_strPath, search.Name()), 1);
    return 1;
}

int CVeDirectory::IsValidPath() const
{
    return !m_strPath.IsEmpty() && m_strPath.FindOneOf(c_refusedCharacters) < 0;
}

int CVeDirectory::IsFileIn(CString) const  // Kept: the name is not read
{
    const CString ownName(LastComponent(m_strPath.View()));
    for (FolderSearch search(CString(FolderPart(m_strPath.View())) + c_allEntries); search.Found(); search.Next())
    {
        if (ownName.CompareNoCase(search.Name()) == 0)
            return 1;
    }
    return 0;
}

CString CVeDirectory::GetChild(CString name) const
{
    return GetDir(name, m_strPath);
}

CString CVeDirectory::GetFriend(CString name) const
{
    const std::wstring_view parent = FolderPart(m_strPath.View());
    return GetDir(name, parent.empty() ? CString(L".") : CString(parent.substr(0, parent.size() - 1)));
}

CString CVeDirectory::GetDir(CString name, CString root) const
{
    if (name.IsEmpty())
        return CString();  // without a look at all folders, of which none has that name
    // The folders of one depth stand before those of the next.
    std::queue<CString> folders;
    for (folders.push(root); !folders.empty(); folders.pop())
    {
        for (FolderSearch search(PathIn(folders.front(), c_allEntries)); search.Found(); search.Next())
        {
            if (!search.IsFolder() || search.IsDots())
                continue;
            CString folder = PathIn(folders.front(), search.Name());
            if (name.CompareNoCase(search.Name()) == 0)
                return folder;
            if (!search.IsLink())
                folders.push(std::move(folder));
        }
    }
    return CString();
}

void CVeDirectory::GetFileNames(wchar_t (**names)[260], unsigned int* count, wchar_t* filter) const
{
    if (!names || !count)
        return;
    *count = 0;
    const bool hasFilter = filter && *filter;
    FolderSearch search(hasFilter ? PathIn(m_strPath, L"*") + filter : PathIn(m_strPath, c_allEntries));
    if (!IsExist() || !search.Found())
    {
        std::free(*names);
        *names = nullptr;
        return;
    }

    const auto resize = [names](unsigned int slots)
    {
        auto* const resized = static_cast<NameSlot*>(std::realloc(*names, slots * sizeof(NameSlot)));
        if (resized)
            *names = resized;
        return resized != nullptr;
    };
    const bool isNew = *names == nullptr;
    unsigned int capacity = 0;
    for (; search.Found(); search.Next())
    {
        if (search.IsDots())
            continue;
        if (*count == capacity)
        {
            const unsigned int grown = std::max(16U, 2 * capacity);
            if (!resize(grown))
                break;
            capacity = grown;
        }
        NameSlot& slot = (*names)[(*count)++];
        if (isNew)
            slot[0] = L'\0';
        StoreShortened(search.Name(), slot);
    }
    if (*count > 0)
        resize(*count);
}

CString CVeDirectory::IncName(unsigned int* counter)
{
    const CString base = m_strPath;
    unsigned int number = 1;
    while (IsExist())
        m_strPath.Format(L"%s%d", base.GetString(), ++number);
    if (counter)
        *counter = number > 1 ? number : 0;
    return m_strPath;
}

CString CVeDirectory::GetIncName(CString name) const
{
    if (!IsExist())
        return CString();
    const FileNameParts parts = SplitFileName(name.GetString());
    const CString base(parts.base);
    const CString extension(parts.extension);

    int number = 1;
    FolderSearch search(PathIn(m_strPath, c_allEntries));
    if (!search.Found())
        return base + L"1" + extension;
    for (; search.Found(); search.Next())
    {
        // Kept: both anywhere in the name.
        const std::wstring_view entry = search.Name();
        const auto contains = [entry](const CString& part)
        {
            return entry.find(part.View()) != entry.npos;
        };
        if (!search.IsDots() && contains(base) && contains(extension))
            ++number;
    }
    CString candidate;
    do
        candidate.Format(L"%s%d%s", base.GetString(), number++, extension.GetString());
    while (::GetFileAttributesW(PathIn(m_strPath, candidate)) != INVALID_FILE_ATTRIBUTES);
    return candidate;
}
