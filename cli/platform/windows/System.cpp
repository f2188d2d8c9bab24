#include "cli/platform/System.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <windows.h>

#include <shellapi.h>

#include "cli/Utf8.h"

namespace System
{

const bool c_openFilesAreReplaceable = false;

namespace
{

HANDLE g_interrupted = nullptr;  // an event, while a Waiter lives

BOOL WINAPI Interrupt(DWORD)
{
    return ::SetEvent(g_interrupted);
}

// One console write takes at most so many UTF-16 units; longer ones are known to fail on older consoles.
constexpr std::size_t c_consoleBlock = 8192;

HANDLE StreamHandle(Stream stream)
{
    return ::GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

HANDLE FileHandle(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

bool IsConsole(HANDLE handle)
{
    DWORD mode = 0;
    return ::GetConsoleMode(handle, &mode) != 0;
}

std::string ErrorText(DWORD error)
{
    switch (error)
    {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return "No such file or directory";
    case ERROR_ACCESS_DENIED:
        return "Permission denied";
    case ERROR_SHARING_VIOLATION:
        return "The file is in use by another program";
    default:
        return "system error " + std::to_string(error);
    }
}

// The reader of a pipe has gone: each of these is reported, depending on the pipe and the moment.
bool IsClosedPipe(DWORD error)
{
    return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
}

WriteResult WriteConsole(HANDLE console, std::string_view text)
{
    const std::wstring wide = ToWideLossy(text);
    for (std::size_t begin = 0; begin < wide.size();)
    {
        const DWORD count = static_cast<DWORD>(std::min(c_consoleBlock, wide.size() - begin));
        DWORD written = 0;
        if (!::WriteConsoleW(console, wide.data() + begin, count, &written, nullptr) || written == 0)
            return WriteResult::Failed;
        begin += written;
    }
    return WriteResult::Done;
}

// Reads what the user typed, as UTF-8. Ctrl+Z at the start of a line ends the input.
std::optional<std::size_t> ReadConsole(HANDLE console, char* buffer, std::size_t capacity, std::string& problem)
{
    constexpr wchar_t c_endOfInput = 0x1A;
    wchar_t typed[1024];
    // A UTF-16 unit takes three bytes of UTF-8 at most.
    const DWORD room = static_cast<DWORD>(std::min<std::size_t>(std::size(typed), capacity / 3));
    DWORD count = 0;
    if (!::ReadConsoleW(console, typed, room, &count, nullptr))
    {
        problem = ErrorText(::GetLastError());
        return std::nullopt;
    }
    if (count > 0 && typed[0] == c_endOfInput)
        return 0;
    const std::string text = ToUtf8(std::wstring_view(typed, count));
    std::copy(text.begin(), text.end(), buffer);
    return text.size();
}

}  // namespace

std::vector<std::string> Arguments(int, char**)
{
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> arguments(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                                    &::LocalFree);
    std::vector<std::string> texts;
    for (int index = 1; index < count; ++index)
        texts.push_back(ToUtf8(arguments.get()[index]));
    return texts;
}

std::wstring LongPath(const std::wstring& path)
{
    constexpr std::size_t c_longestPlainPath = 247;  // so that 12 characters remain for a name beside it
    if (path.size() <= c_longestPlainPath || path.starts_with(L"\\\\"))
        return path;
    const DWORD capacity = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(capacity, L'\0');
    const DWORD size = ::GetFullPathNameW(path.c_str(), capacity, full.data(), nullptr);
    if (size == 0 || size >= capacity)
        return path;
    full.resize(size);
    return L"\\\\?\\" + full;
}

WriteResult Write(Stream stream, std::string_view text)
{
    const HANDLE handle = StreamHandle(stream);
    if (IsConsole(handle))
        return WriteConsole(handle, text);
    while (!text.empty())
    {
        const DWORD count = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1u << 20));
        DWORD written = 0;
        if (!::WriteFile(handle, text.data(), count, &written, nullptr))
            return IsClosedPipe(::GetLastError()) ? WriteResult::Closed : WriteResult::Failed;
        text.remove_prefix(written);
    }
    return WriteResult::Done;
}

bool IsTerminal(Stream stream)
{
    return IsConsole(StreamHandle(stream));
}

std::string FromNarrow(std::string_view text)
{
    // A message longer than the system converts at once would be one of 2 GB.
    const int size = static_cast<int>(std::min<std::size_t>(text.size(), std::numeric_limits<int>::max()));
    const int length = ::MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(length, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), length);
    return ToUtf8(wide);
}

std::string TextServices()
{
    return "code page " + std::to_string(::GetACP());
}

InputFile InputFile::StandardInput()
{
    return InputFile(reinterpret_cast<std::intptr_t>(::GetStdHandle(STD_INPUT_HANDLE)), false);
}

std::optional<InputFile> InputFile::Open(const std::string& path, std::string& problem)
{
    const std::wstring name = LongPath(ToWideLossy(path));
    const HANDLE handle =
        ::CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle != INVALID_HANDLE_VALUE)
        return InputFile(reinterpret_cast<std::intptr_t>(handle), true);
    const DWORD error = ::GetLastError();
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    problem = isFolder ? "Is a directory" : ErrorText(error);
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
        ::CloseHandle(FileHandle(m_handle));
}

std::optional<std::size_t> InputFile::Read(char* buffer, std::size_t capacity, std::string& problem)
{
    if (IsTerminal())
        return ReadConsole(FileHandle(m_handle), buffer, capacity, problem);
    DWORD count = 0;
    if (::ReadFile(FileHandle(m_handle), buffer, static_cast<DWORD>(capacity), &count, nullptr))
        return count;
    const DWORD error = ::GetLastError();
    if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF)
        return 0;
    problem = ErrorText(error);
    return std::nullopt;
}

std::optional<std::uint64_t> InputFile::Size() const
{
    LARGE_INTEGER size = {};
    if (::GetFileType(FileHandle(m_handle)) != FILE_TYPE_DISK || !::GetFileSizeEx(FileHandle(m_handle), &size))
        return std::nullopt;
    return static_cast<std::uint64_t>(size.QuadPart);
}

bool InputFile::IsTerminal() const
{
    return IsConsole(FileHandle(m_handle));
}

FileIdentity InputFile::Identity() const
{
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!::GetFileInformationByHandle(FileHandle(m_handle), &information))
        return {};
    return {information.dwVolumeSerialNumber,
            std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

bool InputFile::Seek(std::uint64_t position)
{
    LARGE_INTEGER distance = {};
    distance.QuadPart = static_cast<LONGLONG>(position);
    return ::SetFilePointerEx(FileHandle(m_handle), distance, nullptr, FILE_BEGIN) != 0;
}

Waiter::Waiter()
{
    g_interrupted = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    ::SetConsoleCtrlHandler(Interrupt, TRUE);
}

Waiter::~Waiter()
{
    ::SetConsoleCtrlHandler(Interrupt, FALSE);
    ::CloseHandle(g_interrupted);
}

Waiter::Answer Waiter::Wait(std::chrono::milliseconds time)
{
    if (::WaitForSingleObject(g_interrupted, static_cast<DWORD>(time.count())) == WAIT_OBJECT_0)
        return Answer::Interrupted;
    const HANDLE output = StreamHandle(Stream::Output);
    DWORD written = 0;
    // A pipe whose reader has left does not even take nothing.
    const bool isClosed = ::GetFileType(output) == FILE_TYPE_PIPE && !::WriteFile(output, "", 0, &written, nullptr) &&
                          IsClosedPipe(::GetLastError());
    return isClosed ? Answer::OutputClosed : Answer::Elapsed;
}

}  // namespace System
