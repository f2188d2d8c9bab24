#pragma once

#include <list>
#include <memory>
#include <string>
#include <utility>

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// The log of a design session: a file VeDesignLog.log in a folder that the caller chooses, found again by the session's id.
///
///     VeDesignLog::CreateLogFileManagerInstance(session, L"C:\\Projects\\Hall\\");
///     VeDesignLog::GetLog(session)->Write(L"beam B12: 3 bars added", 1);
///     VeDesignLog::GetLog(session)->DeleteSessionLog();
///
///     Monday, January 18, 2021 14:05:09 [WARNING]     : beam B12: 3 bars added
///
/// Every line opens the file, appends itself whole by one call of the system, whatever its length, and closes the file:
/// several logs and processes may write to one. A line begins with its line break, so the file starts with an empty line and
/// its last line has none behind it. Line breaks are those of the system's text files, also within a text. The file is in
/// UTF-8 on both builds, as no character is lost there.
///
/// For one thread at a time. A log that is not deleted lives as long as the process.
class VETOOLS_API VeDesignLog
{
public:
    /// Makes the log of a session and deletes the file of an earlier one; null when there is no memory.
    ///
    /// guid    the id of the session. A second log of the same id can be made; GetLog finds the first
    /// folder  put in front of the file's name as it stands: with a separator at its end it is a folder, without one the
    ///         beginning of the name. Kept: what is found in C:\out by the name preVeDesignLog.log is deleted as C:\out\pre
    ///         and that name, so a file of such a name is deleted in place of the log
    static VeDesignLog* CreateLogFileManagerInstance(const GUID& guid, const std::wstring& folder);

    /// The first log that was made for a session and not deleted; null when there is none.
    static VeDesignLog* GetLog(const GUID& guid);

    /// Touches neither the file nor the list in which GetLog searches. DeleteSessionLog is what ends a log.
    ~VeDesignLog() = default;

    /// The path of the file: the folder and the name, as given.
    std::wstring GetPath() const;

    /// Appends a line.
    ///
    /// text   written as it stands; line breaks within it do not begin a line of their own
    /// level  0 information, 1 warning, 2 debug, 3 exception, 4 error: date, time and tag stand in front of the text. With
    ///        any other the text stands alone. The tags are rows of LogLevels.h
    /// A line is lost when the file cannot be opened; the debugger is told.
    void Write(const std::wstring& text, short level) const;

    /// Ends the log, whose file stays, and with it this object.
    ///
    /// Kept: only the log that was made first of all is ended so. Any other stays where it is.
    void DeleteSessionLog();

private:
    class Stream;

    VeDesignLog(const GUID& guid, const std::wstring& folder);

    /// Null when the file cannot be opened. Kept: what stands for the stream then is never released.
    std::unique_ptr<Stream> OpenStream() const;
    /// Hands what was written to the file, and closes it.
    void CloseStream(std::unique_ptr<Stream> stream) const;

    GUID m_guid{};
    std::wstring m_path;

    /// In the order in which they were made. The list outlives everything.
    static std::list<std::pair<GUID, VeDesignLog*>>* ALL_LOGS;
};
