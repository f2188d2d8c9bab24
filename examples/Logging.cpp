// The log of the process and the log of a design session, and what stands in them.
#include <cstdio>
#include <fstream>
#include <regex>
#include <string>

#include "vetools/vetools.h"

namespace
{

/// Prints the lines of a log, with signs in place of what differs from run to run.
void Show(const char* name)
{
    std::printf("== %s\n", name);
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);)
    {
        line = std::regex_replace(line, std::regex("[0-9]{2}:[0-9]{2}:[0-9]{2}"), "TIME");
        line = std::regex_replace(line, std::regex("PID(:| = )[0-9]+"), "PID$1#");
        line = std::regex_replace(line, std::regex("^(PID:# )?.*[0-9](,?) TIME"), "$1DATE$2 TIME");
        std::printf("%s\n", line.c_str());
    }
}

}  // namespace

int main()
{
    // Log.txt in the current folder, begun afresh when it has grown beyond 10 MB.
    LogFileBase::CreateInstance(L".", 10000000);
    LogFileBase& log = *LogFileBase::GetInstance();
    log.WriteEntryBegin(LogFileBase::Message, true, true, nullptr, 0)
        .WriteEntryEnd(L"%d beams read from %s", 12, L"frame.vem");
    log.WriteEntryBegin(LogFileBase::Warning, true, true, nullptr, 0)
        .WriteEntryEnd(L"left out: this log begins with messages");
    log.WriteEntryBegin(LogFileBase::Error, true, true, "reader.cpp", 198)
        .WriteEntryEnd(L"beam %s has no bars", L"B12");
    LogFileBase::ReleaseInstance();
    Show("Log.txt");

    // VeDesignLog.log in a folder of the caller's choice. The separator at its end is needed.
    const GUID session = {0x5A1DB0F1, 0x3C52, 0x4E0B, {0x9A, 0x11, 0x20, 0x7E, 0x61, 0x0C, 0x44, 0xD8}};
    VeDesignLog::CreateLogFileManagerInstance(session, L"./");
    VeDesignLog::GetLog(session)->Write(L"beam B12: 3 bars added", 1);
    VeDesignLog::GetLog(session)->Write(L"a line of its own, without a tag", 7);
    VeDesignLog::GetLog(session)->DeleteSessionLog();
    Show("VeDesignLog.log");
}
