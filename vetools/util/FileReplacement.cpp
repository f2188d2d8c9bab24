#include "vetools/util/FileReplacement.h"

#include <algorithm>

#include "vetools/framework/CFile.h"
#include "vetools/framework/CString.h"

namespace
{

/// A file beside `path` that did not exist before, removed again unless it took that path's place.
class AsideFile
{
public:
    explicit AsideFile(const CString& path)
    {
        const int folderLength = std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/')) + 1;
        for (unsigned int attempt = 0; attempt < c_attempts; ++attempt)
        {
            m_path.Format(L"%s~ve%u-%u.tmp", path.Left(folderLength).GetString(), ::GetCurrentProcessId(), attempt);
            m_file.m_hFile =
                ::CreateFileW(m_path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
            if (IsOpen())
                return;
            // Another program's, or left by one that died: not ours to delete.
            if (::GetLastError() != ERROR_FILE_EXISTS)
                break;
        }
        m_path.Empty();
    }

    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    ~AsideFile()
    {
        if (m_path.IsEmpty())
            return;
        m_file.Abort();
        ::DeleteFileW(m_path);
    }

    bool IsOpen() const { return m_file.m_hFile != INVALID_HANDLE_VALUE; }

    void Write(const void* bytes, UINT size)
    {
        m_file.Write(bytes, size);
        m_file.Close();
    }

    /// False when the system refuses; both files are as they were then.
    bool TakePlaceOf(const CString& path, bool exists)
    {
        const bool done =
            exists ? ::ReplaceFileW(path, m_path, nullptr, 0, nullptr, nullptr) : ::MoveFileExW(m_path, path, 0);
        if (done)
            m_path.Empty();
        return done;
    }

private:
    static constexpr unsigned int c_attempts = 100;

    CString m_path;
    CFile m_file;
};

/// The path of an open file with every link resolved; empty when the system does not tell.
CString FinalPath(const CFile& file)
{
    CString path;
    const DWORD capacity = ::GetFinalPathNameByHandleW(file.m_hFile, nullptr, 0, 0);
    if (capacity == 0)
        return path;
    const DWORD length =
        ::GetFinalPathNameByHandleW(file.m_hFile, path.GetBuffer(static_cast<int>(capacity)), capacity, 0);
    path.ReleaseBufferSetLength(length < capacity ? static_cast<int>(length) : 0);
    return path;
}

/// Writes a file anew where it is. What stands there is not given up before: overwritten, the same place on the disk holds
/// it, full as that may be.
bool WriteInPlace(const wchar_t* path, const void* bytes, UINT size)
{
    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite))
        return false;
    file.Write(bytes, size);
    file.SetLength(size);
    file.Close();
    return true;
}

}  // namespace

bool ReplaceFileContents(const wchar_t* path, const void* bytes, UINT size)
{
    // Opening tells whether the file may be written at all, and which file it is; nothing is changed yet.
    CFile target;
    const bool exists = target.Open(path, CFile::modeWrite);
    if (!exists && ::GetLastError() != ERROR_FILE_NOT_FOUND)
        return false;
    if (exists && ::GetFileType(target.m_hFile) != FILE_TYPE_DISK)
    {
        // Not opened a second time: the reader of a pipe would take that for its end.
        target.Write(bytes, size);
        target.Close();
        return true;
    }
    const CString place = exists ? FinalPath(target) : CString(path);
    if (!place.IsEmpty())
    {
        AsideFile aside(place);
        if (aside.IsOpen())
        {
            aside.Write(bytes, size);
            target.Close();
            if (aside.TakePlaceOf(place, exists))
                return true;
        }
    }
    target.Abort();
    return WriteInPlace(path, bytes, size);
}
