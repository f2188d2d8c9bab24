#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The two kinds of log that the library writes.
///
///   Process  one piece of text per entry, each behind the id of the process that wrote it; a message may have many lines
///       PID:4312 Monday, January 18, 2021, 14:05:09, PID = 4312 QM2020.0.0
///       PID:4312 veutilitiescommon(198)14:05:09 Error : error (112) writing in file
///
///   Design   one line per entry, each behind its line break
///       Monday, January 18, 2021 14:05:09 [ERROR]       : no beams
enum class LogKind
{
    Process,
    Design,
};

/// A level of a kind of log, made of the library's own table.
struct LogLevel
{
    std::string name;  ///< Exception Message, INFORMATION
    std::string mark;  ///< what stands between time and message: " Exception Message : ", " [INFORMATION] : "
    bool isError;
};

/// The levels of a kind, from the least to the gravest.
std::span<const LogLevel> LevelsOf(LogKind kind);

/// Their names: "Comment, Warning, …".
std::string LevelNames(LogKind kind);

/// Whether a text is a time as logs write it: 00:00:00 to 23:59:59.
bool IsTimeOfDay(std::string_view text);

/// What a piece of a log is.
enum class LogPiece
{
    Entry,      ///< with a level
    Opened,     ///< the line that a process writes when it opens its log
    Closed,     ///< the line that it writes when it closes its log
    Text,       ///< any other: a header or trailer, an entry without its level, a line of a design log without date
    Continued,  ///< further text of a piece that was handed out already, because the log rested in the middle of it
};

/// One piece of a log, in the bytes of the log: texts may hold anything. A Continued piece has the process id, level and
/// time of its first part.
struct LogEntry
{
    LogPiece piece = LogPiece::Text;
    std::uint64_t line = 0;  ///< where it starts, from 1
    std::optional<std::uint64_t> processId;
    std::optional<std::size_t> level;  ///< index into LevelsOf
    std::string_view date;             ///< as the log has it; empty when the piece has none
    std::string_view time;             ///< 14:05:09; empty when the piece has none
    std::string_view source;           ///< source file of an error; empty when the piece has none
    std::optional<std::uint64_t> sourceLine;
    std::optional<std::uint64_t> entries;  ///< of Closed: what the process has counted
    std::optional<std::uint64_t> errors;
    std::string_view message;  ///< what follows; of Opened, Closed and Text the whole text. Without the last line break
};

/// Takes the bytes of a log as they come and hands out its pieces one by one, in their order. It holds no more than
/// the piece at hand, and looks at each byte a fixed number of times.
///
/// In a process log a line that does not begin with PID:, a number and a blank belongs to the piece before it. A header or
/// trailer may lack its line break, and an entry with an empty message has none: the next piece, if it has a level or a
/// time or opens or closes a log, is recognised on the same line. In a design log each line is a piece, and lines without
/// text are passed over. "\r\n" counts as "\n".
class LogReader
{
public:
    /// A piece; its texts live as long as the call.
    using EntryFunction = std::function<void(const LogEntry& entry, LogKind kind)>;

    /// kind  nothing: the first line that only one kind can have decides, or else a line break in front of all text, which is
    ///       a design log's; it is looked for in the first c_detectionSize bytes
    LogReader(std::optional<LogKind> kind, EntryFunction function);

    void Feed(std::string_view bytes);

    /// The log rests: what can be taken for whole is handed out. That is what ends with a line break, and in a design
    /// log the last line, which has its break in front. Should it go on all the same, the rest is a Continued piece.
    void Settle();

    /// The log ends: the rest is handed out as it is.
    void Finish();

    /// Another log follows, from its first byte. What was not whole is forgotten.
    void Restart();

    /// Nothing before enough of the log has been seen.
    std::optional<LogKind> Kind() const { return m_kind; }

    /// The beginning of the log is of neither kind. No piece is handed out.
    bool IsUnrecognised() const { return m_unrecognised; }

    static constexpr std::size_t c_detectionSize = 1 << 16;

private:
    enum class Starts
    {
        Piece,
        Continuation,
        Unclear,  ///< more bytes will tell
    };

    bool Detect(bool isAll);
    Starts WhatStarts(std::string_view text) const;
    void Split();
    void Deliver(std::string_view text);
    void DeliverProcessText(std::string_view text);
    void DeliverDesignLine(std::string_view text);
    void HandOut(LogEntry entry);

    std::optional<LogKind> m_givenKind;
    std::optional<LogKind> m_kind;
    EntryFunction m_function;
    bool m_unrecognised = false;
    std::string m_text;                            // from the start of the piece at hand
    std::size_t m_scanned = 0;                     // line breaks before it have been looked at
    std::uint64_t m_line = 1;                      // of the start of m_text
    bool m_isSettled = false;                      // the piece before m_text was handed out while the log rested
    std::optional<std::uint64_t> m_lastProcessId;  // of the piece that was handed out last
    std::optional<std::size_t> m_lastLevel;
    std::string m_lastTime;
};
