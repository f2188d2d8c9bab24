#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <mutex>
#include <pthread.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "vetools/platform/posix/ErrnoMapping.h"
#include "vetools/platform/posix/FileStatus.h"
#include "vetools/platform/posix/NativePath.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

/// One open file as the sharing rules see it.
struct OpenFile
{
    int descriptor;
    dev_t device;
    ino_t inode;
    DWORD access;  ///< FILE_SHARE_READ | FILE_SHARE_WRITE for what it does itself
    DWORD share;   ///< the same bits for what it lets others do
};

std::mutex s_openFilesGuard;

/// All that is open in this process. Never destroyed: objects that end after everything else may still close a log.
std::vector<OpenFile>& OpenFiles()
{
    static std::vector<OpenFile>& s_openFiles = *new std::vector<OpenFile>;
    return s_openFiles;
}

// Handles are multiples of 4, never null, as the system's are.
HANDLE HandleOf(int descriptor)
{
    return reinterpret_cast<HANDLE>((static_cast<std::intptr_t>(descriptor) + 1) * 4);
}

/// The number that a handle stands for, be it open or not; -1 for what is no handle of a file.
int NumberOf(HANDLE file)
{
    const auto value = reinterpret_cast<std::intptr_t>(file);
    const bool isFile = value > 0 && value % 4 == 0 && value / 4 <= std::numeric_limits<int>::max();
    return isFile ? static_cast<int>(value / 4 - 1) : -1;
}

std::vector<OpenFile>::iterator FindOpen(HANDLE file)
{
    return std::find_if(OpenFiles().begin(), OpenFiles().end(),
                        [number = NumberOf(file)](const OpenFile& opened) { return opened.descriptor == number; });
}

/// What is open by a handle: nothing for one that was closed, whose number the system may have given to a file of somebody
/// else since, nor for that of the standard input.
std::optional<OpenFile> OpenFileOf(HANDLE file)
{
    const std::lock_guard guard(s_openFilesGuard);
    const auto found = FindOpen(file);
    return found != OpenFiles().end() ? std::optional(*found) : std::nullopt;
}

int DescriptorOf(HANDLE file)
{
    const std::optional<OpenFile> opened = OpenFileOf(file);
    return opened ? opened->descriptor : -1;
}

/// The descriptor of a handle that is open for `use`, FILE_SHARE_READ or FILE_SHARE_WRITE; -1 with the last error set for
/// any other.
int DescriptorFor(DWORD use, HANDLE file)
{
    const std::optional<OpenFile> opened = OpenFileOf(file);
    if (opened && (opened->access & use))
        return opened->descriptor;
    Fail(opened ? ERROR_ACCESS_DENIED : ERROR_INVALID_HANDLE);
    return -1;
}

DWORD UsedAccess(DWORD access)
{
    return ((access & GENERIC_READ) ? FILE_SHARE_READ : 0) |
           ((access & (GENERIC_WRITE | FILE_APPEND_DATA)) ? FILE_SHARE_WRITE : 0);
}

bool IsShared(const OpenFile& opened)
{
    return std::all_of(OpenFiles().begin(), OpenFiles().end(),
                       [&opened](const OpenFile& other)
                       {
                           const bool isSameFile = other.device == opened.device && other.inode == opened.inode;
                           return !isSameFile ||
                                  ((opened.access & ~other.share) == 0 && (other.access & ~opened.share) == 0);
                       });
}

/// Whether every handle that the file is open by lets others delete it.
bool MayDelete(const struct stat& status)
{
    const std::lock_guard guard(s_openFilesGuard);
    return std::all_of(OpenFiles().begin(), OpenFiles().end(),
                       [&status](const OpenFile& opened)
                       {
                           const bool isSameFile = opened.device == status.st_dev && opened.inode == status.st_ino;
                           return !isSameFile || (opened.share & FILE_SHARE_DELETE);
                       });
}

// Other processes know nothing of OpenFiles(). Whoever writes to a file, and does not let others delete it, therefore holds
// a shared lock on it, and whoever deletes it takes the lock for himself first. Where the file system locks nothing,
// nothing is guarded.

bool IsGuarded(DWORD access, DWORD share)
{
    return (UsedAccess(access) & FILE_SHARE_WRITE) && !(share & FILE_SHARE_DELETE);
}

bool IsLockedByOthers(int descriptor, int lock)
{
    return ::flock(descriptor, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

/// Guards an open file. False when it was deleted before that.
bool Guard(int descriptor)
{
    // Who deletes holds the lock for a moment, or until a busy machine lets him go on. The lock of a program that we do not
    // know is not waited for any longer.
    constexpr int c_attempts = 500;
    constexpr timespec c_moment = {0, 1'000'000};
    for (int i = 0; i < c_attempts && IsLockedByOthers(descriptor, LOCK_SH); ++i)
        ::nanosleep(&c_moment, nullptr);
    struct stat status
    {
    };
    return ::fstat(descriptor, &status) != 0 || status.st_nlink > 0;
}

bool IsStillThere(int descriptor, const std::string& native)
{
    struct stat opened
    {
    };
    struct stat named
    {
    };
    return ::fstat(descriptor, &opened) == 0 && ::lstat(native.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

/// Unlinks a plain file, unless another process guards it or has put another one in its place.
BOOL UnlinkUnguarded(const std::string& native)
{
    const int descriptor = ::open(native.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)  // one who may not read it may delete it
        return ::unlink(native.c_str()) == 0 ? 1 : FailOfPath(native);
    const bool isFree = !IsLockedByOthers(descriptor, LOCK_EX) && IsStillThere(descriptor, native);
    const BOOL succeeded = !isFree                         ? Fail(ERROR_SHARING_VIOLATION)
                           : ::unlink(native.c_str()) == 0 ? 1
                                                           : FailOfPath(native);
    ::close(descriptor);
    return succeeded;
}

/// A file that nobody may write: it is refused to everybody, also to the user whom the system's rights don't bind.
bool IsReadOnly(const struct stat& status)
{
    return S_ISREG(status.st_mode) && !(status.st_mode & 0222);
}

bool IsDevice(const struct stat& status)
{
    return S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode);
}

int OpenFlags(DWORD access)
{
    const bool reads = access & GENERIC_READ;
    const bool appends = (access & FILE_APPEND_DATA) && !(access & GENERIC_WRITE);
    const bool writes = (access & GENERIC_WRITE) || appends;
    return (reads && writes ? O_RDWR : writes ? O_WRONLY : O_RDONLY) | (appends ? O_APPEND : 0) | O_CLOEXEC;
}

/// Opens without waiting for the other end of a pipe, but for whoever has a lease on the file.
int OpenAtOnce(const char* path, int flags, mode_t mode)
{
    const int descriptor = ::open(path, flags | O_NONBLOCK, mode);
    return descriptor < 0 && errno == EWOULDBLOCK ? ::open(path, flags, mode) : descriptor;
}

/// Opens an existing file, or creates it where the disposition allows: -1 with errno set when neither succeeds.
int OpenByDisposition(const char* path, int flags, DWORD disposition, mode_t mode, bool& existed)
{
    existed = false;
    if (disposition == CREATE_NEW)
        return OpenAtOnce(path, flags | O_CREAT | O_EXCL, mode);
    const int descriptor = OpenAtOnce(path, flags, mode);
    const bool mayCreate = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    existed = descriptor >= 0;
    if (existed || errno != ENOENT || !mayCreate)
        return descriptor;
    // Not exclusively: the path may be a link to a file that is missing.
    return OpenAtOnce(path, flags | O_CREAT, mode);
}

/// The same for a file that is guarded, where `isGuarded` says so.
int OpenAndGuard(const char* path, int flags, DWORD disposition, mode_t mode, bool isGuarded, bool& existed)
{
    constexpr int c_attempts = 10;
    int descriptor = OpenByDisposition(path, flags, disposition, mode, existed);
    for (int i = 1; isGuarded && descriptor >= 0 && !Guard(descriptor) && i < c_attempts; ++i)
    {
        ::close(descriptor);  // and what is written to it would be lost
        descriptor = OpenByDisposition(path, flags, disposition, mode, existed);
    }
    return descriptor;
}

bool IsCompletePath(LPCWSTR path)
{
    return path && *path;
}

constexpr DWORD c_shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle that is closed at its end.
class FileHandle
{
public:
    explicit FileHandle(HANDLE file)
        : m_file(file)
    {
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle()
    {
        if (IsOpen())
            CloseHandle(m_file);
    }

    operator HANDLE() const { return m_file; }
    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_file;
};

bool CopyContents(HANDLE from, HANDLE to)
{
    std::vector<char> buffer(std::size_t{1} << 16);
    DWORD count = 0;
    while (ReadFile(from, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr))
    {
        if (count == 0)
            return true;
        if (!WriteFile(to, buffer.data(), count, nullptr, nullptr))
            return false;
    }
    return false;
}

bool GiveWriteTime(HANDLE file, const struct timespec& time)
{
    const struct timespec times[] = {{0, UTIME_OMIT}, time};
    return ::futimens(DescriptorOf(file), times) == 0 || FailWithErrno();
}

/// Takes a file's contents away: by its descriptor where that may write, as the name may be another file's by now.
bool Empty(const OpenFile& opened, const std::string& native)
{
    const bool mayWrite = opened.access & FILE_SHARE_WRITE;
    return (mayWrite ? ::ftruncate(opened.descriptor, 0) : ::truncate(native.c_str(), 0)) == 0;
}

HANDLE FailToOpen(DWORD error)
{
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

/// Opens or makes a file as CreateFileW does; one that is made has the access rights `mode`.
HANDLE OpenNative(const std::string& native, DWORD access, DWORD share, DWORD disposition, mode_t mode)
{
    bool existed = false;
    const int flags = OpenFlags(access);
    const int descriptor = OpenAndGuard(native.c_str(), flags, disposition, mode, IsGuarded(access, share), existed);
    if (descriptor < 0)
        return FailToOpen(errno == EEXIST ? ERROR_FILE_EXISTS : ErrorOfPath(errno, native));

    const auto closeAndFail = [descriptor](DWORD error)
    {
        ::close(descriptor);
        return FailToOpen(error);
    };
    struct stat status
    {
    };
    if (::fstat(descriptor, &status) != 0)
        return closeAndFail(ErrorFromErrno(errno));
    // Reading and writing may wait.
    if (!S_ISREG(status.st_mode) && ::fcntl(descriptor, F_SETFL, flags) != 0)
        return closeAndFail(ErrorFromErrno(errno));
    const bool changes = (UsedAccess(access) & FILE_SHARE_WRITE) || disposition == CREATE_ALWAYS;
    if (S_ISDIR(status.st_mode) || (existed && changes && IsReadOnly(status)))
        return closeAndFail(ERROR_ACCESS_DENIED);
    const OpenFile opened{descriptor, status.st_dev, status.st_ino, UsedAccess(access), share};
    {
        const std::lock_guard guard(s_openFilesGuard);
        if (S_ISREG(status.st_mode) && !IsShared(opened))
            return closeAndFail(ERROR_SHARING_VIOLATION);
        OpenFiles().push_back(opened);
    }
    // Only now: a file that others do not share must not lose its contents.
    const bool truncates = disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    if (truncates && S_ISREG(status.st_mode) && status.st_size > 0 && !Empty(opened, native))
    {
        const DWORD error = ErrorFromErrno(errno);
        CloseHandle(HandleOf(descriptor));
        return FailToOpen(error);
    }
    const bool reportsExisting = existed && (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS);
    SetLastError(reportsExisting ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return HandleOf(descriptor);
}

}  // namespace

HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, void*, DWORD disposition, DWORD flagsAndAttributes, HANDLE)
{
    if (!IsCompletePath(path))
        return FailToOpen(ERROR_PATH_NOT_FOUND);
    if (disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING)
        return FailToOpen(ERROR_INVALID_PARAMETER);
    if (disposition == TRUNCATE_EXISTING && !(access & GENERIC_WRITE))
        return FailToOpen(ERROR_INVALID_PARAMETER);
    const mode_t mode = flagsAndAttributes & FILE_ATTRIBUTE_READONLY ? 0444 : 0666;
    return OpenNative(NativePath(path), access, share, disposition, mode);
}

BOOL CloseHandle(HANDLE file)
{
    const int descriptor = NumberOf(file);
    {
        const std::lock_guard guard(s_openFilesGuard);
        const auto found = FindOpen(file);
        if (found == OpenFiles().end())
            return Fail(ERROR_INVALID_HANDLE);
        OpenFiles().erase(found);
    }
    return ::close(descriptor) == 0 ? 1 : FailWithErrno();
}

BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, void*)
{
    DWORD done = 0;
    const int descriptor = DescriptorFor(FILE_SHARE_READ, file);
    bool succeeded = descriptor >= 0 && (buffer || size == 0 || Fail(ERROR_NOACCESS));
    while (succeeded && done < size)
    {
        const ssize_t count = ::read(descriptor, static_cast<char*>(buffer) + done, size - done);
        if (count == 0)
            break;
        if (count > 0)
            done += static_cast<DWORD>(count);
        else if (errno != EINTR)
            succeeded = FailWithErrno();
    }
    if (read)
        *read = done;
    return succeeded;
}

BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD written, void*)
{
    DWORD done = 0;
    const int descriptor = DescriptorFor(FILE_SHARE_WRITE, file);
    bool succeeded = descriptor >= 0 && (buffer || size == 0 || Fail(ERROR_INVALID_USER_BUFFER));
    while (succeeded && done < size)
    {
        const ssize_t count = ::write(descriptor, static_cast<const char*>(buffer) + done, size - done);
        if (count > 0)
            done += static_cast<DWORD>(count);
        else if (count == 0)
        {
            // A device that takes nothing and gives no reason would be asked for ever.
            succeeded = Fail(ERROR_WRITE_FAULT);
            break;
        }
        else if (errno != EINTR)
            succeeded = FailWithErrno();
    }
    if (written)
        *written = done;
    return succeeded;
}

BOOL FlushFileBuffers(HANDLE file)
{
    const int descriptor = DescriptorFor(FILE_SHARE_WRITE, file);
    return descriptor >= 0 && (::fsync(descriptor) == 0 || FailWithErrno());
}

BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD from)
{
    if (from > FILE_END)
        return Fail(ERROR_INVALID_PARAMETER);
    const int whence = from == FILE_BEGIN ? SEEK_SET : from == FILE_CURRENT ? SEEK_CUR : SEEK_END;
    const off_t moved = ::lseek(DescriptorOf(file), distance.QuadPart, whence);
    if (moved < 0)
        return Fail(errno == EINVAL ? ERROR_NEGATIVE_SEEK : ErrorFromErrno(errno));
    if (position)
        position->QuadPart = moved;
    return 1;
}

DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD from)
{
    LARGE_INTEGER wide{};
    wide.QuadPart = distance;
    if (distanceHigh)
    {
        wide.u.LowPart = static_cast<DWORD>(distance);
        wide.u.HighPart = *distanceHigh;
    }
    LARGE_INTEGER position{};
    if (!SetFilePointerEx(file, wide, &position, from))
        return INVALID_SET_FILE_POINTER;
    if (distanceHigh)
        *distanceHigh = position.u.HighPart;
    SetLastError(ERROR_SUCCESS);
    return position.u.LowPart;
}

BOOL SetEndOfFile(HANDLE file)
{
    const int descriptor = DescriptorFor(FILE_SHARE_WRITE, file);
    if (descriptor < 0)
        return 0;
    const off_t position = ::lseek(descriptor, 0, SEEK_CUR);
    return position >= 0 && ::ftruncate(descriptor, position) == 0 ? 1 : FailWithErrno();
}

BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size)
{
    struct stat status
    {
    };
    if (::fstat(DescriptorOf(file), &status) != 0)
        return FailWithErrno();
    size->QuadPart = status.st_size;
    return 1;
}

BOOL DeleteFileW(LPCWSTR path)
{
    if (!IsCompletePath(path))
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string native = NativePath(path);
    struct stat status
    {
    };
    if (::lstat(native.c_str(), &status) != 0)
        return FailOfPath(native);
    // The system deletes no folder, no device and no read-only file by this call.
    if (S_ISDIR(status.st_mode) || IsDevice(status) || IsReadOnly(status))
        return Fail(ERROR_ACCESS_DENIED);
    if (!MayDelete(status))
        return Fail(ERROR_SHARING_VIOLATION);
    if (S_ISREG(status.st_mode))
        return UnlinkUnguarded(native);
    return ::unlink(native.c_str()) == 0 ? 1 : FailOfPath(native);
}

BOOL CopyFileW(LPCWSTR from, LPCWSTR to, BOOL failIfExists)
{
    if (!from || !to)
        return Fail(ERROR_INVALID_PARAMETER);
    if (!*from || !*to)
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string source = NativePath(from);
    const std::string target = NativePath(to);
    struct stat status
    {
    };
    if (::stat(source.c_str(), &status) != 0)
        return FailOfPath(source);
    // Neither a folder nor what may wait or go on for ever: a pipe, a device.
    if (!S_ISREG(status.st_mode))
        return Fail(ERROR_ACCESS_DENIED);
    const FileHandle reader(OpenNative(source, GENERIC_READ, c_shareAll, OPEN_EXISTING, 0));
    if (!reader.IsOpen())
        return 0;
    const DWORD disposition = failIfExists ? CREATE_NEW : CREATE_ALWAYS;
    const FileHandle writer(OpenNative(target, GENERIC_WRITE, 0, disposition, status.st_mode & 0777));
    if (!writer.IsOpen())
        return 0;
    if (CopyContents(reader, writer) && GiveWriteTime(writer, status.st_mtim))
        return 1;
    const DWORD error = GetLastError();
    if (GetFileType(writer) == FILE_TYPE_DISK)  // not a device, which is no copy of ours
        ::unlink(target.c_str());
    return Fail(error);
}

BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags)
{
    if (!IsCompletePath(from) || !IsCompletePath(to))
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string source = NativePath(from);
    const std::string target = NativePath(to);
    struct stat status
    {
    };
    if (::lstat(source.c_str(), &status) != 0)
        return FailOfPath(source);
    if (!MayDelete(status))
        return Fail(ERROR_SHARING_VIOLATION);
    const bool exists = ::lstat(target.c_str(), &status) == 0;
    if (exists && !(flags & MOVEFILE_REPLACE_EXISTING))
        return Fail(ERROR_ALREADY_EXISTS);
    if (exists && (S_ISDIR(status.st_mode) || IsReadOnly(status) || !MayDelete(status)))
        return Fail(ERROR_ACCESS_DENIED);
    // The check above names the usual fault; the rename itself refuses a file that has appeared since.
    const unsigned int renameFlags = flags & MOVEFILE_REPLACE_EXISTING ? 0 : RENAME_NOREPLACE;
    if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), renameFlags) == 0)
        return 1;
    // Some file systems cannot do that.
    if (errno == EINVAL && renameFlags != 0 && ::rename(source.c_str(), target.c_str()) == 0)
        return 1;
    return FailOfPath(target);
}

DWORD GetFileAttributesW(LPCWSTR path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    return GetFileAttributesExW(path, GetFileExInfoStandard, &data) ? data.dwFileAttributes : INVALID_FILE_ATTRIBUTES;
}

BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data)
{
    if (level != GetFileExInfoStandard || !data)
        return Fail(ERROR_INVALID_PARAMETER);
    if (!IsCompletePath(path))
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string native = NativePath(path);
    const std::optional<WIN32_FILE_ATTRIBUTE_DATA> status = StatusOf(AT_FDCWD, native.c_str());
    if (!status)
        return FailOfPath(native);
    *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data) = *status;
    return 1;
}

BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes)
{
    if (!IsCompletePath(path))
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string native = NativePath(path);
    struct stat status
    {
    };
    if (::stat(native.c_str(), &status) != 0)
        return FailOfPath(native);
    const mode_t mode = attributes & FILE_ATTRIBUTE_READONLY ? status.st_mode & ~0222u : status.st_mode | 0200u;
    return ::chmod(native.c_str(), mode & 07777) == 0 ? 1 : FailOfPath(native);
}

DWORD GetFileType(HANDLE file)
{
    struct stat status
    {
    };
    if (::fstat(DescriptorOf(file), &status) != 0)
    {
        SetLastError(ErrorFromErrno(errno));
        return FILE_TYPE_UNKNOWN;
    }
    SetLastError(ERROR_SUCCESS);
    if (S_ISREG(status.st_mode))
        return FILE_TYPE_DISK;
    return S_ISCHR(status.st_mode) ? FILE_TYPE_CHAR : FILE_TYPE_PIPE;
}

DWORD GetFinalPathNameByHandleW(HANDLE file, LPWSTR path, DWORD capacity, DWORD)
{
    const int descriptor = DescriptorOf(file);
    if (descriptor < 0)
        return static_cast<DWORD>(Fail(ERROR_INVALID_HANDLE));
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    if (length < 0)
    {
        SetLastError(ErrorFromErrno(errno));
        return 0;
    }
    const std::wstring wide = WidePath({target.data(), static_cast<std::size_t>(length)});
    if (capacity <= wide.size())
        return static_cast<DWORD>(wide.size() + 1);
    std::copy_n(wide.c_str(), wide.size() + 1, path);
    return static_cast<DWORD>(wide.size());
}

BOOL ReplaceFileW(LPCWSTR replaced, LPCWSTR replacement, LPCWSTR, DWORD, LPVOID, LPVOID)
{
    if (!IsCompletePath(replaced) || !IsCompletePath(replacement))
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string target = NativePath(replaced);
    const std::string source = NativePath(replacement);
    struct stat status
    {
    };
    struct stat own
    {
    };
    if (::stat(target.c_str(), &status) != 0)
        return FailOfPath(target);
    if (::stat(source.c_str(), &own) != 0)
        return FailOfPath(source);
    if (S_ISDIR(status.st_mode) || IsReadOnly(status))
        return Fail(ERROR_ACCESS_DENIED);
    if (!MayDelete(status) || !MayDelete(own))
        return Fail(ERROR_SHARING_VIOLATION);
    // The owner as far as the system lets us; then the rights, which a change of owner may have cut.
    const bool sameOwner = status.st_uid == own.st_uid && status.st_gid == own.st_gid;
    const bool given = sameOwner || ::chown(source.c_str(), status.st_uid, status.st_gid) == 0;
    const mode_t rights = status.st_mode & (given ? 07777 : 0777);
    if (::chmod(source.c_str(), rights) != 0 || ::rename(source.c_str(), target.c_str()) != 0)
        return FailOfPath(source);
    return 1;
}

DWORD GetCurrentProcessId()
{
    // Kept, because every line of a log asks for it and the system takes a while to answer. A child has another one.
    static std::atomic<DWORD> s_processId = 0;
    static const bool s_forgetsInChild = ::pthread_atfork(nullptr, nullptr, [] { s_processId = 0; }) == 0;
    if (s_processId == 0 || !s_forgetsInChild)
        s_processId = static_cast<DWORD>(::getpid());
    return s_processId;
}
