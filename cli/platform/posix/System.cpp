#include "cli/platform/System.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unicode/uversion.h>
#include <unistd.h>

#include "cli/Utf8.h"

namespace System
{

const bool c_openFilesAreReplaceable = true;

namespace
{

constexpr std::array<int, 3> c_interruptions = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t g_interrupted = 0;
std::array<struct sigaction, c_interruptions.size()> g_formerActions;
struct sigaction g_formerPipeAction;

void Interrupt(int)
{
    g_interrupted = 1;
}

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

std::string FromNarrow(std::string_view text)
{
    return RepairUtf8(text);
}

std::string TextServices()
{
    UVersionInfo version;
    char text[U_MAX_VERSION_STRING_LENGTH];
    ::u_getVersion(version);
    ::u_versionToString(version, text);
    return std::string("ICU ") + text;
}

InputFile InputFile::StandardInput()
{
    return InputFile(STDIN_FILENO, false);
}

std::optional<InputFile> InputFile::Open(const std::string& path, std::string& problem)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
    {
        problem = std::strerror(errno);
        return std::nullopt;
    }
    InputFile file(descriptor, true);
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISDIR(status.st_mode))
        return file;
    problem = std::strerror(EISDIR);
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

FileIdentity InputFile::Identity() const
{
    struct stat status = {};
    if (::fstat(static_cast<int>(m_handle), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

bool InputFile::Seek(std::uint64_t position)
{
    return ::lseek(static_cast<int>(m_handle), static_cast<off_t>(position), SEEK_SET) >= 0;
}

Waiter::Waiter()
{
    g_interrupted = 0;
    struct sigaction action = {};
    action.sa_handler = Interrupt;
    for (std::size_t index = 0; index < c_interruptions.size(); ++index)
    {
        ::sigaction(c_interruptions[index], &action, &g_formerActions[index]);
        // What was to be ignored stays so, as in the background of a shell.
        if (g_formerActions[index].sa_handler == SIG_IGN)
            ::sigaction(c_interruptions[index], &g_formerActions[index], nullptr);
    }
    action.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &action, &g_formerPipeAction);
}

Waiter::~Waiter()
{
    for (std::size_t index = 0; index < c_interruptions.size(); ++index)
        ::sigaction(c_interruptions[index], &g_formerActions[index], nullptr);
    ::sigaction(SIGPIPE, &g_formerPipeAction, nullptr);
}

Waiter::Answer Waiter::Wait(std::chrono::milliseconds time)
{
    // Nothing is waited for but the end of the reader, of which a pipe always tells.
    pollfd output = {STDOUT_FILENO, 0, 0};
    const bool isTold = !g_interrupted && ::poll(&output, 1, static_cast<int>(time.count())) > 0;
    if (g_interrupted)
        return Answer::Interrupted;
    return isTold ? Answer::OutputClosed : Answer::Elapsed;
}

}  // namespace System
