#include "vetools/util/VeFile.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "vetools/logging/LogFileBase.h"
#include "vetools/platform/WindowsPath.h"

namespace
{

constexpr char c_sourceName[] = "veutilitiescommon";

/// What a write fails with when there is no room: on the disk, or in the user's part of it.
constexpr DWORD c_diskFullErrors[] = {ERROR_DISK_FULL, ERROR_DISK_QUOTA_EXCEEDED};

DiskFullRetryHook s_diskFullRetryHook = nullptr;
bool s_isDiskFull = false;  // Kept: never reset

bool IsDiskFull(DWORD error)
{
    return std::find(std::begin(c_diskFullErrors), std::end(c_diskFullErrors), error) != std::end(c_diskFullErrors);
}

/// What a failure of writing calls for.
enum class Reaction
{
    None,
    Retry,
    Report,
};

/// May ask the hook, and notes that the disk is full.
Reaction ReactionToWriteError(DWORD error)
{
    if (s_isDiskFull)
        return Reaction::None;  // Kept
    if (!IsDiskFull(error))
        return Reaction::Report;
    if (s_diskFullRetryHook)
        return s_diskFullRetryHook() == IDRETRY ? Reaction::Retry : Reaction::None;
    s_isDiskFull = true;
    return Reaction::Report;
}

/// Writes an error entry to the log of the process, which may change the last error.
template <class... Arguments>
void Report(int line, const wchar_t* format, Arguments... arguments)
{
    if (LogFileBase* const log = LogFileBase::GetInstance())
        log->WriteEntryBegin(LogFileBase::Error, true, true, c_sourceName, line).WriteEntryEnd(format, arguments...);
}

/// The system's text for an error, with the line break at its end; empty when it has none.
std::wstring SystemMessage(DWORD error)
{
    constexpr DWORD c_flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    wchar_t* text = nullptr;
    const DWORD length = ::FormatMessageW(c_flags, nullptr, error, 0, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    const std::wstring message(text, length);
    ::LocalFree(text);
    return message;
}

void Store(DWORD* target, DWORD value)
{
    if (target)
        *target = value;
}

}  // namespace

HANDLE gCreateFile(const wchar_t* path, DWORD access, DWORD share, DWORD disposition, DWORD flagsAndAttributes)
{
    if (!path)
        return INVALID_HANDLE_VALUE;
    const auto open = [=](const wchar_t* name)
    {
        return ::CreateFileW(name, access, share, nullptr, disposition, flagsAndAttributes, nullptr);
    };
    HANDLE file = open(path);
    if (file != INVALID_HANDLE_VALUE)
        return file;
    file = open(ExtendedPath(path).c_str());
    if (file != INVALID_HANDLE_VALUE)
        return file;
    const DWORD error = ::GetLastError();
    Report(__LINE__, L"error opening file %s\n%s", path, SystemMessage(error).c_str());
    ::SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

int gWriteFile(HANDLE file, const void* buffer, DWORD bytesToWrite, DWORD* bytesWritten)
{
    for (;;)
    {
        DWORD written = 0;
        const int result = ::WriteFile(file, buffer, bytesToWrite, &written, nullptr);
        const DWORD error = ::GetLastError();
        const Reaction reaction = result ? Reaction::None : ReactionToWriteError(error);
        if (reaction == Reaction::Retry)
            continue;
        if (reaction == Reaction::Report)
            Report(__LINE__, L"error (%d) writing in file", static_cast<int>(error));
        Store(bytesWritten, written);
        ::SetLastError(error);
        return result;
    }
}

int gReadFile(HANDLE file, void* buffer, DWORD bytesToRead, DWORD* bytesRead)
{
    DWORD read = 0;
    const int result = ::ReadFile(file, buffer, bytesToRead, &read, nullptr);
    const DWORD error = ::GetLastError();
    if (!result && error != ERROR_SUCCESS)
        Report(__LINE__, L"error (%d) reading from file", static_cast<int>(error));
    Store(bytesRead, read);
    ::SetLastError(error);
    return read != 0 ? result : 0;  // Kept: the end of the file reads as a failure
}

DiskFullRetryHook gSetDiskFullRetryHook(DiskFullRetryHook hook)
{
    return std::exchange(s_diskFullRetryHook, hook);
}
