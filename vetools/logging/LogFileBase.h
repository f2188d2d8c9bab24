#pragma once

#include <string>
#include <string_view>

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// The log file of the process: one object that appends entries to one file, counts them, and shows errors to the debugger.
///
///     LogFileBase::CreateInstance(L"C:\\ProgramData\\Planner", 10000000);
///     LogFileBase::GetInstance()
///         ->WriteEntryBegin(LogFileBase::Message, true, true, nullptr, 0)
///         .WriteEntryEnd(L"%d beams read from %s", 12, L"frame.vem");
///     LogFileBase::ReleaseInstance();
///
///     PID:4312 Log started
///     PID:4312 Monday, January 18, 2021, 14:05:09, PID = 4312 QM2020.0.0
///     PID:4312 14:05:09 Message : 12 beams read from frame.vem
///     PID:4312 Monday, January 18, 2021, 14:05:10, PID = 4312, Entries = 1, Errors = 0
///     PID:4312 Log ended
///
/// Several processes may log to the same file at once. Every piece (header, entry, summary, trailer) is appended whole, by
/// one call of the system and whatever its length, and begins with the id of its process. The texts are in the ANSI code
/// page on Windows, where a character that the page lacks becomes what the system puts in its place, and in UTF-8
/// elsewhere. Dates are in the user's language, times in the 24 hours of the local clock.
///
/// For one thread at a time. Nothing throws or reports an error: an entry that cannot be written is lost.
/// What the lines are marked with stands in LogLevels.h.
class VETOOLS_API LogFileBase
{
public:
    /// How grave an entry is. Error and Exception, and whatever is above them, count as errors.
    enum EntryLevel : int
    {
        Comment = 0,
        Warning = 1,
        Message = 2,
        ExceptionMessage = 3,
        Error = 4,
        Exception = 5,
    };

    /// Makes a fresh log the log of the process; the present one is released before.
    ///
    /// directory  a folder without a separator at its end, in which the log is Log.txt; null for Log.log in the current
    ///            folder
    /// maxSize    bytes beyond which an existing file is deleted first, unless somebody writes to it; 0 keeps it whatever
    ///            its size. Kept: the lower 32 bits of the size are compared, as a signed number: a file of 3 GB counts as
    ///            small
    /// Returns false when there is no memory for the object, and true otherwise, whether or not the file could be opened.
    /// The new log leaves out entries below Message.
    static bool CreateInstance(const wchar_t* directory, int maxSize);

    /// The log of the process. The first call makes it by CreateInstance(nullptr, 10000000); null only when that fails.
    static LogFileBase* GetInstance();

    /// Closes the log of the process with the line "Log ended" and deletes it; does nothing when there is none.
    static void ReleaseInstance();

    /// Opens a file, which is made when it is missing, and writes the header and a line with date, time and process id.
    ///
    /// path      null reads as the empty text
    /// minLevel  the lowest level that is written from now on; -1 leaves it as it is
    /// append    false deletes an existing file first, if that can be done
    /// header    written before the line, as it stands; null for none
    /// Returns true. Kept: a file that cannot be opened counts as open; what is written to it is lost without a sign.
    /// Kept: an open file is not closed before; its handle is lost.
    bool Open(const wchar_t* path, EntryLevel minLevel, bool append, const wchar_t* header);

    /// Writes a summary line, with the entries and errors counted since construction, and behind it the trailer (as it stands;
    /// null for none), and closes the file. Does nothing when the log is not open.
    void Close(const wchar_t* trailer);

    /// Begins an entry, which WriteEntryEnd writes: source file and line, time, level text, message.
    ///
    /// level          below the log's lowest level the entry is dropped, and so it is when the log is not open
    /// withLevelText  whether the level's text and " : " stand in front of the message. Kept: without them the entry is not
    ///                counted
    /// withTime       whether the time stands in front of that
    /// sourceFile     in the narrow encoding; read for errors only; null for none
    /// line           shown in parentheses behind the source file, unless it is 0
    /// Returns this object.
    ///
    ///     WriteEntryBegin(LogFileBase::Error, true, true, "reader.cpp", 198).WriteEntryEnd(L"no beams")
    ///     PID:4312 reader.cpp(198)14:05:09 Error : no beams
    ///
    /// A level that the enumeration lacks has an empty text.
    LogFileBase& WriteEntryBegin(EntryLevel level, bool withLevelText, bool withTime, const char* sourceFile, int line);

    /// Writes the entry that was begun, with a message of any length made by the Windows conventions of printf for wide
    /// formats (%s is wide, %S narrow) and a line break behind it, unless the message ends with one or is empty. An error
    /// goes to the debugger as well, without the process id. A null format makes an empty message. The arguments must be
    /// what the format asks for.
    ///
    /// Kept: the entry is not forgotten. A second call adds its message to the first and writes both.
    void WriteEntryEnd(const wchar_t* format, ...);

    /// Whether there is a file to write to, or one that could not be opened.
    virtual bool IsOpen() const;

    /// Kept: a copy shares the file's handle, and whoever closes first closes for both.
    LogFileBase(const LogFileBase&) = default;
    LogFileBase& operator=(const LogFileBase&) = default;

protected:
    LogFileBase() = default;
    /// Closes the file with the line "Log ended".
    virtual ~LogFileBase();

    HANDLE m_hFile = nullptr;
    std::wstring m_strPath;       ///< as given to Open last
    int m_minLevel = 0;           ///< the lowest level that is written
    int m_nEntries = 0;           ///< begun with their level text, since construction
    int m_nErrors = 0;            ///< of these, the errors
    std::wstring m_strEntry;      ///< the entry under construction, or the one written last
    bool m_bToDebugger = false;   ///< the entry goes to the debugger as well
    bool m_bEntryActive = false;  ///< the entry begun last was accepted

    static LogFileBase* s_pSingleton;

private:
    /// Appends a text behind the id of the process. False when that fails.
    bool Write(const wchar_t* text);
    /// The same for a text that may hold null characters: the one place where bytes reach the file.
    bool Write(std::wstring_view text);
    void WriteHeaderLine();
    /// Every write reaches the system at once: there is nothing to do.
    bool Flush();
};
