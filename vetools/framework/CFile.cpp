#include "vetools/framework/CFile.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace
{

struct ErrorCause
{
    DWORD error;
    int cause;
};

// clang-format off
constexpr ErrorCause c_errorCauses[] = {
//   system's error               cause
    {ERROR_SUCCESS,               CFileException::none},
    {ERROR_FILE_NOT_FOUND,        CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND,        CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES,   CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED,         CFileException::accessDenied},
    {ERROR_INVALID_HANDLE,        CFileException::invalidFile},
    {ERROR_CURRENT_DIRECTORY,     CFileException::removeCurrentDir},
    {ERROR_WRITE_PROTECT,         CFileException::accessDenied},
    {ERROR_SEEK,                  CFileException::badSeek},
    {ERROR_WRITE_FAULT,           CFileException::hardIO},
    {ERROR_READ_FAULT,            CFileException::hardIO},
    {ERROR_GEN_FAILURE,           CFileException::hardIO},
    {ERROR_SHARING_VIOLATION,     CFileException::sharingViolation},
    {ERROR_LOCK_VIOLATION,        CFileException::lockViolation},
    {ERROR_HANDLE_EOF,            CFileException::endOfFile},
    {ERROR_HANDLE_DISK_FULL,      CFileException::diskFull},
    {ERROR_FILE_EXISTS,           CFileException::accessDenied},
    {ERROR_CANNOT_MAKE,           CFileException::directoryFull},
    {ERROR_DISK_FULL,             CFileException::diskFull},
    {ERROR_INVALID_NAME,          CFileException::badPath},
    {ERROR_NEGATIVE_SEEK,         CFileException::badSeek},
    {ERROR_BAD_PATHNAME,          CFileException::badPath},
    {ERROR_ALREADY_EXISTS,        CFileException::accessDenied},
    {ERROR_FILENAME_EXCED_RANGE,  CFileException::badPath},
    {ERROR_IO_DEVICE,             CFileException::hardIO},
    {ERROR_DISK_QUOTA_EXCEEDED,   CFileException::diskFull},
};
// clang-format on

constexpr UINT c_accessMask = 0x0003;
constexpr UINT c_shareMask = 0x0070;

DWORD AccessOf(UINT flags)
{
    switch (flags & c_accessMask)
    {
    case CFile::modeRead:
        return GENERIC_READ;
    case CFile::modeWrite:
        return GENERIC_WRITE;
    default:
        return GENERIC_READ | GENERIC_WRITE;
    }
}

DWORD ShareOf(UINT flags)
{
    switch (flags & c_shareMask)
    {
    case CFile::shareDenyWrite:
        return FILE_SHARE_READ;
    case CFile::shareDenyRead:
        return FILE_SHARE_WRITE;
    case CFile::shareDenyNone:
        return FILE_SHARE_READ | FILE_SHARE_WRITE;
    default:
        return 0;
    }
}

DWORD DispositionOf(UINT flags)
{
    if (!(flags & CFile::modeCreate))
        return OPEN_EXISTING;
    return flags & CFile::modeNoTruncate ? OPEN_ALWAYS : CREATE_ALWAYS;
}

}  // namespace

IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(CFile, CObject)
IMPLEMENT_DYNAMIC(CMemFile, CFile)

CFileException::CFileException(int cause, LONG osError, const wchar_t* fileName)
    : m_cause(cause)
    , m_lOsError(osError)
    , m_strFileName(fileName)
{
}

int CFileException::OsErrorToException(LONG osError)
{
    const auto found =
        std::find_if(std::begin(c_errorCauses), std::end(c_errorCauses),
                     [osError](const ErrorCause& row) { return row.error == static_cast<DWORD>(osError); });
    return found == std::end(c_errorCauses) ? genericException : found->cause;
}

void CFileException::ThrowOsError(LONG osError, const wchar_t* fileName)
{
    AfxThrowFileException(OsErrorToException(osError), osError, fileName);
}

void AfxThrowFileException(int cause, LONG osError, const wchar_t* fileName)
{
    throw new CFileException(cause, osError, fileName);
}

CFile::CFile()
    : m_hFile(INVALID_HANDLE_VALUE)
{
}

CFile::CFile(HANDLE file)
    : m_hFile(file)
{
}

CFile::CFile(const wchar_t* path, UINT flags)
    : m_hFile(INVALID_HANDLE_VALUE)
{
    CFileException error;
    if (!Open(path, flags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_hFile != INVALID_HANDLE_VALUE)
        ::CloseHandle(m_hFile);
}

bool CFile::Open(const wchar_t* path, UINT flags, CFileException* error)
{
    Abort();
    m_hFile = ::CreateFileW(path, AccessOf(flags), ShareOf(flags), nullptr, DispositionOf(flags), FILE_ATTRIBUTE_NORMAL,
                            nullptr);
    if (m_hFile != INVALID_HANDLE_VALUE)
    {
        m_strFileName = path;
        return true;
    }
    if (error)
    {
        error->m_lOsError = static_cast<LONG>(::GetLastError());
        error->m_cause = CFileException::OsErrorToException(error->m_lOsError);
        error->m_strFileName = path;
    }
    return false;
}

UINT CFile::Read(void* buffer, UINT size)
{
    DWORD read = 0;
    if (size > 0 && !::ReadFile(m_hFile, buffer, size, &read, nullptr))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return read;
}

void CFile::Write(const void* buffer, UINT size)
{
    DWORD written = 0;
    if (size > 0 && !::WriteFile(m_hFile, buffer, size, &written, nullptr))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    if (written != size)
        AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    LARGE_INTEGER distance{};
    distance.QuadPart = offset;
    LARGE_INTEGER position{};
    if (!::SetFilePointerEx(m_hFile, distance, &position, from))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::SeekToEnd()
{
    return Seek(0, end);
}

void CFile::SeekToBegin()
{
    Seek(0, begin);
}

ULONGLONG CFile::GetPosition() const
{
    LARGE_INTEGER position{};
    if (!::SetFilePointerEx(m_hFile, LARGE_INTEGER{}, &position, FILE_CURRENT))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::GetLength() const
{
    LARGE_INTEGER length{};
    if (!::GetFileSizeEx(m_hFile, &length))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return static_cast<ULONGLONG>(length.QuadPart);
}

void CFile::SetLength(ULONGLONG length)
{
    Seek(static_cast<LONGLONG>(length), begin);
    if (!::SetEndOfFile(m_hFile))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

void CFile::Flush()
{
    if (m_hFile != INVALID_HANDLE_VALUE && !::FlushFileBuffers(m_hFile))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

void CFile::Close()
{
    if (m_hFile == INVALID_HANDLE_VALUE)
        return;
    const bool closed = ::CloseHandle(m_hFile);
    const DWORD error = closed ? ERROR_SUCCESS : ::GetLastError();
    m_hFile = INVALID_HANDLE_VALUE;
    const CString path = std::move(m_strFileName);
    m_strFileName.Empty();
    if (!closed)
        CFileException::ThrowOsError(static_cast<LONG>(error), path);
}

void CFile::Abort()
{
    if (m_hFile != INVALID_HANDLE_VALUE)
        ::CloseHandle(m_hFile);
    m_hFile = INVALID_HANDLE_VALUE;
    m_strFileName.Empty();
}

CString CFile::GetFilePath() const
{
    return m_strFileName;
}

struct CMemFile::Storage
{
    std::vector<BYTE> bytes;
    std::size_t position = 0;
};

CMemFile::CMemFile()
    : m_storage(new Storage)
{
}

CMemFile::CMemFile(const BYTE* bytes, UINT size)
    : m_storage(new Storage{{bytes, bytes + size}})
{
}

CMemFile::~CMemFile()
{
    delete m_storage;
}

UINT CMemFile::Read(void* buffer, UINT size)
{
    const std::size_t length = m_storage->bytes.size();
    const std::size_t left = length - std::min(m_storage->position, length);
    const std::size_t count = std::min<std::size_t>(size, left);
    if (count > 0)
        std::memcpy(buffer, m_storage->bytes.data() + m_storage->position, count);
    m_storage->position += count;
    return static_cast<UINT>(count);
}

void CMemFile::Write(const void* buffer, UINT size)
{
    if (size == 0)
        return;
    const std::size_t start = m_storage->position;
    m_storage->position += size;
    if (m_storage->position > m_storage->bytes.size())
        m_storage->bytes.resize(m_storage->position);
    std::memcpy(m_storage->bytes.data() + start, buffer, size);
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    const std::size_t origin = from == begin ? 0 : from == current ? m_storage->position : m_storage->bytes.size();
    const LONGLONG position = static_cast<LONGLONG>(origin) + offset;
    if (position < 0)
        AfxThrowFileException(CFileException::badSeek);
    m_storage->position = static_cast<std::size_t>(position);
    return m_storage->position;
}

ULONGLONG CMemFile::GetPosition() const
{
    return m_storage->position;
}

ULONGLONG CMemFile::GetLength() const
{
    return m_storage->bytes.size();
}

void CMemFile::SetLength(ULONGLONG length)
{
    m_storage->bytes.resize(static_cast<std::size_t>(length));
    m_storage->position = m_storage->bytes.size();
}

void CMemFile::Flush() {}

void CMemFile::Close()
{
    *m_storage = Storage{};
}

void CMemFile::Abort()
{
    Close();
}

const BYTE* CMemFile::GetBytes() const
{
    return m_storage->bytes.data();
}
