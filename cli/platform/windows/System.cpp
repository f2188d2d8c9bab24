#include "cli/platform/System.h"

#include <algorithm>
#include <memory>
#include <windows.h>

#include <shellapi.h>

#include "cli/Utf8.h"

namespace System
{

namespace
{

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

InputFile InputFile::StandardInput()
{
    return InputFile(reinterpret_cast<std::intptr_t>(::GetStdHandle(STD_INPUT_HANDLE)), false);
}

std::optional<InputFile> InputFile::Open(const std::string& path, std::string& problem)
{
    const HANDLE handle = ::CreateFileW(ToWideLossy(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle != INVALID_HANDLE_VALUE)
        return InputFile(reinterpret_cast<std::intptr_t>(handle), true);
    problem = ErrorText(::GetLastError());
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

}  // namespace System
