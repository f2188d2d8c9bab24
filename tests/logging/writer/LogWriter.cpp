// log_writer COUNT MAXSIZE: opens the log file of the current folder, says so by a line, and waits for a line. Then it writes
// COUNT entries to the log file, and as many lines to a design log there. Each has its own number and a length of its own.
#include <cstdlib>
#include <iostream>
#include <string>

#include "vetools/logging/LogFileBase.h"
#include "vetools/logging/VeDesignLog.h"

namespace
{

void WriteEntries(int count, const VeDesignLog& designLog)
{
    const std::wstring id = std::to_wstring(::GetCurrentProcessId());
    for (int i = 0; i < count; ++i)
    {
        const int length = i % 50 == 0 ? 20000 : i % 200;
        const std::wstring rest(static_cast<std::size_t>(length), static_cast<wchar_t>(L'a' + i % 26));
        LogFileBase::GetInstance()
            ->WriteEntryBegin(i % 10 == 0 ? LogFileBase::Error : LogFileBase::Message, true, true, "writer", i)
            .WriteEntryEnd(L"%s/%d %s.", id.c_str(), i, rest.c_str());
        designLog.Write(id + L"/" + std::to_wstring(i) + L" " + rest + L".", static_cast<short>(i % 6));
    }
}

}  // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 3)
        return 2;
    LogFileBase::CreateInstance(L".", std::atoi(arguments[2]));
    // The beginning of a name, not a folder: the file of the processes that have begun before is not the one that this deletes.
    const VeDesignLog* const designLog = VeDesignLog::CreateLogFileManagerInstance(GUID{}, L"./shared");

    std::cout << "open" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    WriteEntries(std::atoi(arguments[1]), *designLog);
    LogFileBase::ReleaseInstance();
    return 0;
}
