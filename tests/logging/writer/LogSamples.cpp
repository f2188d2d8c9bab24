// log_samples: writes Log.txt and VeDesignLog.log into the current folder, with a piece of every shape that the logs write. What
// a reader must find in them stands in check_reading.py.
#include <string>

#include "vetools/logging/LogFileBase.h"
#include "vetools/logging/VeDesignLog.h"

namespace
{

using Level = LogFileBase::EntryLevel;

class SampleLog : public LogFileBase
{
public:
    SampleLog() = default;
    ~SampleLog() override = default;

    void Entry(Level level, const wchar_t* message, const char* source = nullptr, int line = 0)
    {
        WriteEntryBegin(level, true, true, source, line).WriteEntryEnd(L"%s", message);
    }
    void Bare(Level level, bool withTime, const wchar_t* message, const char* source = nullptr, int line = 0)
    {
        WriteEntryBegin(level, false, withTime, source, line).WriteEntryEnd(L"%s", message);
    }
    void Timeless(Level level, const wchar_t* message, const char* source = nullptr, int line = 0)
    {
        WriteEntryBegin(level, true, false, source, line).WriteEntryEnd(L"%s", message);
    }
};

void WriteLogFile()
{
    SampleLog log;
    log.Open(L"Log.txt", LogFileBase::Comment, false, L"Samples\n");
    for (int level = LogFileBase::Comment; level <= LogFileBase::Exception; ++level)
        log.Entry(static_cast<Level>(level), L"text");

    log.Entry(LogFileBase::Message, L"first\nsecond\n\nfourth\n");
    log.Entry(LogFileBase::Message, L"PID:5 has ended");
    log.Entry(LogFileBase::Message, L"he said PID:5 14:00:00 Error : no");
    log.Entry(LogFileBase::Message, L"14:00:00 Error : no error");
    log.Entry(LogFileBase::Warning, L"a.cpp(3)14:00:00 Error : no error");
    log.Entry(LogFileBase::Message, L"Tr\u00E4ger \u00DF");
    log.Entry(LogFileBase::Message, L"\ttab and blanks  ");

    log.Entry(LogFileBase::Error, L"text", "reader.cpp", 198);
    log.Entry(LogFileBase::Exception, L"text", "C:\\Program Files (x86)\\reader(2).cpp", 7);
    log.Entry(LogFileBase::Error, L"text", "reader.cpp");
    log.Entry(LogFileBase::Error, L"first\nsecond", "reader.cpp", 1);
    log.Entry(LogFileBase::Error, L"read : no Exception : at all", "reader.cpp", 1);
    log.Timeless(LogFileBase::Error, L"text", "reader.cpp", 1);
    log.Timeless(LogFileBase::Message, L"text");

    log.Bare(LogFileBase::Message, true, L"time alone");
    log.Bare(LogFileBase::Message, false, L"text alone");
    log.Bare(LogFileBase::Error, false, L"text", "reader.cpp", 1);

    log.Entry(LogFileBase::Message, L"");  // without a line break: the next piece stands on its line
    log.Entry(LogFileBase::Message, L"one");
    log.WriteEntryEnd(L"two");  // writes both
    log.Entry(LogFileBase::Error, L"", "reader.cpp", 1);
    log.Close(L"Samples ended");
}

void WriteDesignLog()
{
    VeDesignLog* const log = VeDesignLog::CreateLogFileManagerInstance(GUID{}, L"./");
    for (short level = 0; level <= 5; ++level)
        log->Write(L"text", level);
    log->Write(L"", 7);
    log->Write(L"first\nsecond", 4);
    log->Write(L"Tr\u00E4ger \u20AC \U0001F3D7", 3);
    log->Write(L"14:00:00 [ERROR]       : no error", 0);
    log->Write(L"PID:5 14:00:00 Error : no error", 1);
    log->Write(L"  blanks  ", 2);
    log->DeleteSessionLog();
}

}  // namespace

int main()
{
    WriteLogFile();
    WriteDesignLog();
}
