#include "cli/LogReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "vetools/logging/LogLevels.h"

namespace
{

constexpr std::size_t c_timeSize = 8;  // 14:05:09
constexpr std::size_t c_mostDigits = 10;
constexpr std::size_t c_designErrors = 3;  // [EXCEPTION] and [ERROR]

// The marks of the library's tables have ASCII characters only.
std::string Narrow(std::wstring_view text)
{
    std::string narrow;
    std::transform(text.begin(), text.end(), std::back_inserter(narrow),
                   [](wchar_t character) { return static_cast<char>(character); });
    return narrow;
}

const std::string& ProcessIdPrefix()
{
    static const std::string s_prefix = Narrow(c_processIdPrefix);
    return s_prefix;
}

std::vector<LogLevel> MakeProcessLevels()
{
    std::vector<LogLevel> levels;
    for (const LogLevelRow& row : c_entryLevels)
        levels.push_back(
            {Narrow(row.text.substr(1)), Narrow(row.text) + Narrow(c_levelSeparator), IsErrorLevel(row.level)});
    return levels;
}

std::vector<LogLevel> MakeDesignLevels()
{
    std::vector<LogLevel> levels;
    for (const LogLevelRow& row : c_designLogTags)
    {
        const std::size_t begin = row.text.find(L'[') + 1;
        const std::size_t end = row.text.find(L']');
        levels.push_back(
            {Narrow(row.text.substr(begin, end - begin)), Narrow(row.text), levels.size() >= c_designErrors});
    }
    return levels;
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool Consume(std::string_view& text, std::string_view expected)
{
    if (!text.starts_with(expected))
        return false;
    text.remove_prefix(expected.size());
    return true;
}

std::optional<std::uint64_t> ConsumeNumber(std::string_view& text)
{
    std::uint64_t number = 0;
    const char* const end = text.data() + std::min(text.size(), c_mostDigits);
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc())
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return number;
}

// PID:4312 and the blank behind it.
std::optional<std::uint64_t> ConsumeProcessId(std::string_view& text)
{
    std::string_view rest = text;
    if (!Consume(rest, ProcessIdPrefix()))
        return std::nullopt;
    const std::optional<std::uint64_t> processId = ConsumeNumber(rest);
    if (!processId || !Consume(rest, " "))
        return std::nullopt;
    text = rest;
    return processId;
}

bool ConsumeTime(std::string_view& text, LogEntry& entry)
{
    const std::string_view time = text.substr(0, c_timeSize);
    if (!IsTimeOfDay(time))
        return false;
    entry.time = time;
    text.remove_prefix(c_timeSize);
    return true;
}

bool ConsumeLevel(std::string_view& text, LogKind kind, LogEntry& entry)
{
    const std::span<const LogLevel> levels = LevelsOf(kind);
    for (std::size_t level = 0; level < levels.size(); ++level)
        if (Consume(text, levels[level].mark))
        {
            entry.level = level;
            return true;
        }
    return false;
}

// "file.cpp(198)" or "file.cpp": a name neither begins nor ends with a blank.
bool TakeSource(std::string_view text, LogEntry& entry)
{
    if (text.empty() || text.front() == ' ' || text.back() == ' ')
        return false;
    entry.source = text;
    const std::size_t open = text.rfind('(');
    if (open == std::string_view::npos || open == 0 || text.back() != ')')
        return true;
    std::string_view number = text.substr(open + 1);
    const std::optional<std::uint64_t> line = ConsumeNumber(number);
    if (line && number == ")")
    {
        entry.source = text.substr(0, open);
        entry.sourceLine = line;
    }
    return true;
}

// What stands in front of an error's level: source and time, a source with its line, or a source that is one word. Anything
// else is a text that happens to hold the words of a level.
bool TakeSourceAndTime(std::string_view text, LogEntry& entry)
{
    if (text.size() > c_timeSize && IsTimeOfDay(text.substr(text.size() - c_timeSize)))
    {
        if (!TakeSource(text.substr(0, text.size() - c_timeSize), entry))
            return false;
        entry.time = text.substr(text.size() - c_timeSize);
        return true;
    }
    LogEntry found;
    if (!TakeSource(text, found) || (!found.sourceLine && text.find(' ') != std::string_view::npos))
        return false;
    entry.source = found.source;
    entry.sourceLine = found.sourceLine;
    return true;
}

// The error whose mark ends at `end`, if one does.
std::optional<std::size_t> ErrorMarkedBefore(std::string_view text, std::size_t end)
{
    const std::span<const LogLevel> levels = LevelsOf(LogKind::Process);
    for (std::size_t level = 0; level < levels.size(); ++level)
        if (levels[level].isError && text.substr(0, end).ends_with(levels[level].mark))
            return level;
    return std::nullopt;
}

// veutilitiescommon(198)14:05:09 Error : error (112) writing in file. Looks no further than to the first mark: a line may
// hold many entries.
bool TakeErrorWithSource(std::string_view text, LogEntry& entry)
{
    static const std::string s_separator = Narrow(c_levelSeparator);
    std::size_t begin = 0;
    for (;;)
    {
        const std::size_t end = text.find(s_separator, begin);
        if (end == std::string_view::npos || text.substr(begin, end - begin).find('\n') != std::string_view::npos)
            return false;
        begin = end + s_separator.size();
        const std::optional<std::size_t> level = ErrorMarkedBefore(text, begin);
        if (!level)
            continue;
        const std::size_t markSize = LevelsOf(LogKind::Process)[*level].mark.size();
        if (!TakeSourceAndTime(text.substr(0, begin - markSize), entry))
            return false;
        entry.level = level;
        entry.message = text.substr(begin);
        return true;
    }
}

// Monday, January 18, 2021, 14:05:09, PID = 4312 QM2020.0.0, or ", Entries = 3, Errors = 1 " instead of the version. The
// date is in any language.
bool TakeOpenedOrClosed(std::string_view text, LogEntry& entry)
{
    constexpr std::string_view c_processId = ", PID = ";
    const std::size_t place = text.rfind(c_processId);
    if (place == std::string_view::npos || text.find('\n') != std::string_view::npos)
        return false;
    std::string_view date = text.substr(0, place);
    const std::string_view time = date.substr(date.size() - std::min(date.size(), c_timeSize));
    date.remove_suffix(time.size());
    std::string_view rest = text.substr(place + c_processId.size());
    if (!IsTimeOfDay(time) || !date.ends_with(", ") || !ConsumeNumber(rest))
        return false;
    if (Consume(rest, ", Entries = "))
    {
        entry.entries = ConsumeNumber(rest);
        if (!entry.entries || !Consume(rest, ", Errors = "))
            return false;
        entry.errors = ConsumeNumber(rest);
        if (!entry.errors)
            return false;
    }
    else if (!rest.starts_with(" QM"))
        return false;
    entry.piece = entry.errors ? LogPiece::Closed : LogPiece::Opened;
    entry.date = date.substr(0, date.size() - 2);
    entry.time = time;
    return true;
}

// A text behind its process id. False: it has no mark of the log's own.
bool TakeProcessText(std::string_view text, LogEntry& entry)
{
    entry.message = text;
    std::string_view rest = text;
    const bool hasTime = ConsumeTime(rest, entry);
    const bool hasLevel = ConsumeLevel(rest, LogKind::Process, entry) || (!hasTime && TakeErrorWithSource(text, entry));
    if (hasLevel)
        entry.piece = LogPiece::Entry;
    if (hasTime || (hasLevel && entry.source.empty()))
        entry.message = rest;
    if (hasTime || hasLevel)
        return true;
    LogEntry opened;
    if (!TakeOpenedOrClosed(text, opened))
        return false;
    opened.line = entry.line;
    opened.processId = entry.processId;
    opened.message = text;
    entry = opened;
    return true;
}

// Whether the log's own marks stand here, behind a process id: "PID:5 has ended" is the text of somebody. Looks at a
// bounded number of bytes: a line may hold many pieces.
bool IsPiece(std::string_view text)
{
    constexpr std::size_t c_longestHead = 512;  // a source file with its path, or a date in words
    text = text.substr(0, c_longestHead);
    text = text.substr(0, text.find('\n'));
    LogEntry ignored;
    return ConsumeProcessId(text) && TakeProcessText(text, ignored);
}

std::size_t FindPiece(std::string_view text, std::size_t begin)
{
    std::size_t place = text.find(ProcessIdPrefix(), begin);
    while (place != std::string_view::npos && !IsPiece(text.substr(place)))
        place = text.find(ProcessIdPrefix(), place + 1);
    return place;
}

// Where the text behind a process id ends, because another piece follows without a line break: behind an empty message,
//     PID:1 14:05:09 Message : PID:2 14:05:10 Message : saved
// or behind a text that has no break of its own, such as a header. A message that is not empty has one.
std::size_t EndOfPiece(std::string_view text)
{
    std::string_view rest = text;
    LogEntry entry;
    const bool hasTime = ConsumeTime(rest, entry);
    const bool hasLevel = ConsumeLevel(rest, LogKind::Process, entry);
    const std::size_t begin = text.size() - rest.size();
    if (hasLevel)
        return IsPiece(rest) ? begin : std::string_view::npos;
    const std::size_t end = FindPiece(text, begin);
    const bool isInMessage = end != std::string_view::npos && !hasTime &&
                             TakeErrorWithSource(text.substr(0, end), entry) && !entry.message.empty();
    return isInMessage ? std::string_view::npos : end;
}

// Monday, January 18, 2021 14:05:09 [ERROR]       : no beams
bool TakeDesignHead(std::string_view text, LogEntry& entry)
{
    for (std::size_t place = text.find(" ["); place != std::string_view::npos; place = text.find(" [", place + 1))
    {
        std::string_view rest = text.substr(place);
        const std::size_t timeBegin = place - std::min(place, c_timeSize);
        const std::string_view time = text.substr(timeBegin, place - timeBegin);
        if (!IsTimeOfDay(time) || timeBegin == 0 || text[timeBegin - 1] != ' ' ||
            !ConsumeLevel(rest, LogKind::Design, entry))
            continue;
        entry.piece = LogPiece::Entry;
        entry.date = text.substr(0, timeBegin - 1);
        entry.time = time;
        entry.message = rest;
        return true;
    }
    return false;
}

std::uint64_t CountLineBreaks(std::string_view text)
{
    return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

std::string_view WithoutLineBreak(std::string_view text)
{
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    if (text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

}  // namespace

std::span<const LogLevel> LevelsOf(LogKind kind)
{
    static const std::array<std::vector<LogLevel>, 2> s_levels = {MakeProcessLevels(), MakeDesignLevels()};
    return s_levels[static_cast<std::size_t>(kind)];
}

std::string LevelNames(LogKind kind)
{
    std::string names;
    for (const LogLevel& level : LevelsOf(kind))
        names += (names.empty() ? "" : ", ") + level.name;
    return names;
}

bool IsTimeOfDay(std::string_view text)
{
    const auto isPair = [&](std::size_t index, char mostTens)
    {
        return text[index] >= '0' && text[index] <= mostTens && IsDigit(text[index + 1]);
    };
    return text.size() == c_timeSize && text[2] == ':' && text[5] == ':' && isPair(0, '2') && isPair(3, '5') &&
           isPair(6, '5') && text.substr(0, 2) < "24";
}

LogReader::LogReader(std::optional<LogKind> kind, EntryFunction function)
    : m_givenKind(kind)
    , m_kind(kind)
    , m_function(std::move(function))
{
}

void LogReader::Feed(std::string_view bytes)
{
    m_text.append(bytes);
    if (m_kind || Detect(false))
        Split();
}

void LogReader::Settle()
{
    if (!m_kind && !m_text.empty() && (m_text.front() == '\n' || m_text.starts_with("\r\n")))
    {
        m_kind = LogKind::Design;
        m_scanned = 0;
    }
    if (!m_kind)
        return;
    Split();
    const bool isWhole =
        m_kind == LogKind::Design ? m_text.find_first_not_of("\r\n") != std::string::npos : m_text.ends_with('\n');
    if (!isWhole)
        return;
    Deliver(m_text);
    m_text.clear();
    m_scanned = 0;
    m_isSettled = true;
}

void LogReader::Finish()
{
    if (!m_kind && !Detect(true))
        return;
    Split();
    Deliver(m_text);
    m_text.clear();
    m_scanned = 0;
}

void LogReader::Restart()
{
    *this = LogReader(m_givenKind, std::move(m_function));
}

// True when the kind is known. isAll: no more will come.
bool LogReader::Detect(bool isAll)
{
    const std::string_view beginning = std::string_view(m_text).substr(0, c_detectionSize);
    isAll = isAll || beginning.size() == c_detectionSize;
    while (m_scanned < beginning.size())
    {
        const std::size_t end = beginning.find('\n', m_scanned);
        if (end == std::string_view::npos && !isAll)
            break;
        std::string_view line = beginning.substr(m_scanned, end - m_scanned);
        LogEntry ignored;
        if (ConsumeProcessId(line))
            m_kind = LogKind::Process;
        else if (TakeDesignHead(line, ignored))
            m_kind = LogKind::Design;
        if (m_kind || end == std::string_view::npos)
            break;
        m_scanned = end + 1;
    }
    if (!m_kind && isAll && (beginning.starts_with('\n') || beginning.starts_with("\r\n")))
        m_kind = LogKind::Design;
    m_unrecognised = !m_kind && isAll && beginning.find_first_not_of("\r\n") != std::string_view::npos;
    if (m_kind)
        m_scanned = 0;
    if (m_unrecognised)
        m_text.clear();
    return m_kind.has_value();
}

// At the start of a line.
LogReader::Starts LogReader::WhatStarts(std::string_view text) const
{
    if (m_kind == LogKind::Design || ConsumeProcessId(text))
        return Starts::Piece;
    const std::string_view prefix = ProcessIdPrefix();
    if (text.size() < prefix.size())
        return prefix.starts_with(text) ? Starts::Unclear : Starts::Continuation;
    const std::string_view rest = text.substr(prefix.size(), c_mostDigits);
    const bool mayGoOn = rest.size() < c_mostDigits || text.size() == prefix.size() + c_mostDigits;
    const bool areDigits = std::all_of(rest.begin(), rest.end(), IsDigit);
    return text.starts_with(prefix) && mayGoOn && areDigits ? Starts::Unclear : Starts::Continuation;
}

// Hands out all pieces of m_text but the last one, which may go on.
void LogReader::Split()
{
    const std::string_view text = m_text;
    std::size_t begin = 0;
    for (;;)
    {
        const std::size_t lineBreak = text.find('\n', m_scanned);
        m_scanned = std::min(lineBreak, text.size());
        if (lineBreak == std::string_view::npos)
            break;
        const Starts starts = WhatStarts(text.substr(lineBreak + 1));
        if (starts == Starts::Unclear)
            break;
        m_scanned = lineBreak + 1;
        if (starts == Starts::Continuation)
            continue;
        Deliver(text.substr(begin, m_scanned - begin));
        begin = m_scanned;
    }
    m_text.erase(0, begin);
    m_scanned -= begin;
}

void LogReader::Deliver(std::string_view text)
{
    if (m_kind == LogKind::Design)
        DeliverDesignLine(WithoutLineBreak(text));
    else
        DeliverProcessText(text);
    m_line += CountLineBreaks(text);
    m_isSettled = false;
}

void LogReader::DeliverProcessText(std::string_view text)
{
    if (text.empty())
        return;
    text = WithoutLineBreak(text);
    for (std::uint64_t line = m_line;;)
    {
        LogEntry entry;
        entry.line = line;
        entry.processId = ConsumeProcessId(text);
        const std::size_t end = EndOfPiece(text);
        const std::string_view piece = text.substr(0, end);
        entry.message = piece;
        if (entry.processId)
            TakeProcessText(piece, entry);
        HandOut(entry);
        if (end == std::string_view::npos)
            return;
        line += CountLineBreaks(piece);
        text.remove_prefix(end);
    }
}

void LogReader::DeliverDesignLine(std::string_view text)
{
    if (text.empty())
        return;
    LogEntry entry;
    entry.line = m_line;
    entry.message = text;
    TakeDesignHead(text, entry);
    HandOut(entry);
}

void LogReader::HandOut(LogEntry entry)
{
    // What has neither process id nor date goes on where the piece before it rested.
    if (m_isSettled && !entry.processId && entry.piece == LogPiece::Text)
    {
        entry.piece = LogPiece::Continued;
        entry.processId = m_lastProcessId;
        entry.level = m_lastLevel;
        entry.time = m_lastTime;
        return m_function(entry, *m_kind);
    }
    m_lastProcessId = entry.processId;
    m_lastLevel = entry.level;
    m_lastTime = entry.time;
    m_function(entry, *m_kind);
}
