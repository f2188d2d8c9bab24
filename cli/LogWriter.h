#pragma once

#include <string>
#include <string_view>

#include "cli/JsonWriter.h"
#include "cli/LogReader.h"

/// What a piece is called beside the names of the levels: opened, closed, text, continued.
std::string_view PieceName(LogPiece piece);

/// Shows pieces of a log, as lines for people in columns of one width
///
///   time         pid  level              message
///   14:05:09    4312  Error              veutilitiescommon(198): error (112) writing in file
///                                        second line of the message
///
/// or as one JSON object each, with what the piece has of these:
///
///   {"kind":"entry","line":3,"pid":4312,"level":"Error","time":"14:05:09","source":"veutilitiescommon","sourceLine":198,
///    "message":"error (112) writing in file\nsecond line"}
///
/// Texts are UTF-8 whatever bytes the log holds. Control characters become ? in lines and are escaped in JSON.
class LogWriter
{
public:
    explicit LogWriter(bool json)
        : m_isJson(json)
    {
    }

    /// The line above the columns; empty for JSON.
    std::string_view Headings(LogKind kind) const;

    /// The piece with its line breaks; valid until the next call.
    std::string_view Show(const LogEntry& entry, LogKind kind);

private:
    std::string_view ShowJson(const LogEntry& entry, LogKind kind);
    void AppendCell(std::string_view text, std::size_t width);
    void AppendMessage(std::string_view text, LogKind kind);

    bool m_isJson;
    JsonWriter m_json;
    std::string m_line;
};
