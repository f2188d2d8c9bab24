// An entry of the log file, and a line of a design log, beside a bare write of the line that stands ready. The files are
// those of a folder for temporary ones, which are the same for both.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/FileTestSupport.h"
#include "vetools/logging/LogFileBase.h"
#include "vetools/logging/VeDesignLog.h"

namespace
{

constexpr std::string_view c_readyLine = "PID:4312 14:05:09 Message : 12 beams read from frame.vem, 3 warnings\n";

/// A file to append to, opened as the log opens its own.
class AppendedFile
{
public:
    explicit AppendedFile(const wchar_t* path)
        : m_file(::CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr))
    {
    }
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;
    ~AppendedFile() { ::CloseHandle(m_file); }

    bool Append(std::string_view text) const
    {
        DWORD written = 0;
        return ::WriteFile(m_file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
    }

private:
    HANDLE m_file;
};

void LogEntry(benchmark::State& state)
{
    const TestFolder folder;
    LogFileBase::CreateInstance(folder.Path().wstring().c_str(), 0);
    LogFileBase& log = *LogFileBase::GetInstance();
    for (auto _ : state)
        log.WriteEntryBegin(LogFileBase::Message, true, true, nullptr, 0)
            .WriteEntryEnd(L"%d beams read from %s, %d warnings", 12, L"frame.vem", 3);
    LogFileBase::ReleaseInstance();
    const auto least = static_cast<std::uintmax_t>(state.iterations()) * (c_readyLine.size() - 8);
    if (std::filesystem::file_size(folder / "Log.txt") < least)
        state.SkipWithError("entries are missing");
}
BENCHMARK(LogEntry);

void BareWriteOfEntry(benchmark::State& state)
{
    const TestFolder folder;
    const AppendedFile file(folder[L"Bare.txt"]);
    bool succeeded = true;
    for (auto _ : state)
        succeeded = file.Append(c_readyLine) && succeeded;
    if (!succeeded)
        state.SkipWithError("a write failed");
}
BENCHMARK(BareWriteOfEntry);

void DesignLogLine(benchmark::State& state)
{
    const TestFolder folder;
    VeDesignLog* const log = VeDesignLog::CreateLogFileManagerInstance(GUID{}, folder.Prefix());
    const std::wstring text = L"beam B12: 3 bars added";
    for (auto _ : state)
        log->Write(text, 1);
    const auto least = static_cast<std::uintmax_t>(state.iterations()) * text.size();
    if (std::filesystem::file_size(log->GetPath()) < least)
        state.SkipWithError("lines are missing");
    log->DeleteSessionLog();
}
BENCHMARK(DesignLogLine);

void BareOpenWriteClose(benchmark::State& state)
{
    const TestFolder folder;
    const CString path = folder[L"Bare.txt"];
    bool succeeded = true;
    for (auto _ : state)
        succeeded =
            AppendedFile(path).Append("\nMonday, January 18, 2021 14:05:09 [WARNING]     : beam B12: 3 bars added") &&
            succeeded;
    if (!succeeded)
        state.SkipWithError("a write failed");
}
BENCHMARK(BareOpenWriteClose);

}  // namespace
