#include "cli/platform/System.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace System
{

namespace
{

int Descriptor(Stream stream)
{
    return stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

std::vector<std::string> Arguments(int argc, char** argv)
{
    if (argc < 1)
        return {};
    return {argv + 1, argv + argc};
}

std::wstring LongPath(const std::wstring& path)
{
    return path;
}

WriteResult Write(Stream stream, std::string_view text)
{
    while (!text.empty())
    {
        const ssize_t written = ::write(Descriptor(stream), text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return errno == EPIPE ? WriteResult::Closed : WriteResult::Failed;
    }
    return WriteResult::Done;
}

bool IsTerminal(Stream stream)
{
    return ::isatty(Descriptor(stream)) == 1;
}

InputFile InputFile::StandardInput()
{
    return InputFile(STDIN_FILENO, false);
}

std::optional<InputFile> InputFile::Open(const std::string& path, std::string& problem)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0)
        return InputFile(descriptor, true);
    problem = std::strerror(errno);
    return std::nullopt;
}

InputFile::InputFile(InputFile&& other) noexcept
    : m_handle(other.m_handle)
    , m_owned(other.m_owned)
{
    other.m_owned = false;
}

InputFile::~InputFile()
{
    if (m_owned)
        ::close(static_cast<int>(m_handle));
}

std::optional<std::size_t> InputFile::Read(char* buffer, std::size_t capacity, std::string& problem)
{
    for (;;)
    {
        const ssize_t count = ::read(static_cast<int>(m_handle), buffer, capacity);
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno == EINTR)
            continue;
        problem = std::strerror(errno);
        return std::nullopt;
    }
}

std::optional<std::uint64_t> InputFile::Size() const
{
    struct stat status = {};
    if (::fstat(static_cast<int>(m_handle), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

bool InputFile::IsTerminal() const
{
    return ::isatty(static_cast<int>(m_handle)) == 1;
}

}  // namespace System
