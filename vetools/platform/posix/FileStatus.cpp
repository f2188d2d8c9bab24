#include "vetools/platform/posix/FileStatus.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace
{

FILETIME FileTimeOf(const struct timespec& time)
{
    constexpr std::int64_t c_ticksPerSecond = 10'000'000;
    constexpr std::int64_t c_nanosecondsPerTick = 100;
    constexpr std::int64_t c_secondsFrom1601To1970 = 11'644'473'600;
    const auto ticks = static_cast<std::uint64_t>((time.tv_sec + c_secondsFrom1601To1970) * c_ticksPerSecond +
                                                  time.tv_nsec / c_nanosecondsPerTick);
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

DWORD AttributesOf(const struct stat& status)
{
    const DWORD kind = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    const DWORD readOnly = status.st_mode & 0222 ? 0 : FILE_ATTRIBUTE_READONLY;
    return kind | readOnly;
}

}  // namespace

std::optional<WIN32_FILE_ATTRIBUTE_DATA> StatusOf(int folder, const char* path)
{
    struct stat status
    {
    };
    if (::fstatat(folder, path, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    DWORD link = 0;
    if (S_ISLNK(status.st_mode))
    {
        link = FILE_ATTRIBUTE_REPARSE_POINT;
        struct stat target
        {
        };
        if (::fstatat(folder, path, &target, 0) == 0)
            status = target;
    }
    const std::uint64_t size = S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
    return WIN32_FILE_ATTRIBUTE_DATA{
        .dwFileAttributes = AttributesOf(status) | link,
        .ftCreationTime = {},
        .ftLastAccessTime = FileTimeOf(status.st_atim),
        .ftLastWriteTime = FileTimeOf(status.st_mtim),
        .nFileSizeHigh = static_cast<DWORD>(size >> 32),
        .nFileSizeLow = static_cast<DWORD>(size),
    };
}
