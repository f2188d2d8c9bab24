#include "vetools/platform/posix/SharedObjectFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

#include "vetools/platform/posix/ErrnoMapping.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

class OpenedFile
{
public:
    /// Does not wait for the other end of a pipe.
    explicit OpenedFile(const std::string& path)
        : m_descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
    {
    }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile()
    {
        if (IsOpen())
            ::close(m_descriptor);
    }

    bool IsOpen() const { return m_descriptor >= 0; }
    int Descriptor() const { return m_descriptor; }

    /// Reads a whole record from a place in the file.
    template <class Record>
    bool Read(Record& record, std::uint64_t position) const
    {
        return ::pread(m_descriptor, &record, sizeof record, static_cast<off_t>(position)) ==
               static_cast<ssize_t>(sizeof record);
    }

private:
    int m_descriptor;
};

DWORD ErrorOfOpening(int number)
{
    return number == ENOENT || number == ENOTDIR ? ERROR_MOD_NOT_FOUND : ErrorFromErrno(number);
}

bool IsHeaderOfSharedObject(const ElfW(Ehdr) & header)
{
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_type == ET_DYN &&
           header.e_phentsize == sizeof(ElfW(Phdr));
}

bool IsWithin(const ElfW(Phdr) & segment, std::uint64_t fileSize)
{
    return segment.p_type != PT_LOAD ||
           (segment.p_filesz <= fileSize && segment.p_offset <= fileSize - segment.p_filesz);
}

bool IsWholeSharedObject(const OpenedFile& file, std::uint64_t fileSize)
{
    ElfW(Ehdr) header;
    if (!file.Read(header, 0) || !IsHeaderOfSharedObject(header))
        return false;
    for (unsigned int number = 0; number < header.e_phnum; ++number)
    {
        ElfW(Phdr) segment;
        if (!file.Read(segment, header.e_phoff + number * sizeof segment) || !IsWithin(segment, fileSize))
            return false;
    }
    return true;
}

}  // namespace

DWORD CheckSharedObject(const std::string& path)
{
    const OpenedFile file(path);
    struct stat status
    {
    };
    if (!file.IsOpen() || ::fstat(file.Descriptor(), &status) != 0)
        return ErrorOfOpening(errno);
    if (S_ISDIR(status.st_mode))
        return ERROR_ACCESS_DENIED;
    const bool isWhole =
        S_ISREG(status.st_mode) && IsWholeSharedObject(file, static_cast<std::uint64_t>(status.st_size));
    return isWhole ? ERROR_SUCCESS : ERROR_BAD_EXE_FORMAT;
}
