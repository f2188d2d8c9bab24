#include "cli/LogWriter.h"

#include <algorithm>

#include "cli/Utf8.h"
#include "cli/platform/System.h"

namespace
{

// The widest texts that are usual, and two blanks.
constexpr std::size_t c_dateWidth = 31;  // Wednesday, September 30, 2026
constexpr std::size_t c_timeWidth = 10;
constexpr std::size_t c_processIdWidth = 7;
constexpr std::size_t c_levelWidth = 19;  // Exception Message

std::string Decode(std::string_view text, LogKind kind)
{
    return kind == LogKind::Process ? System::FromNarrow(text) : RepairUtf8(text);
}

// "\r\n" is the line break of a text file on Windows.
std::string WithPlainLineBreaks(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index)
        if (text[index] != '\r' || text.substr(index, 2) != "\r\n")
            plain.push_back(text[index]);
    return plain;
}

std::string_view LevelName(const LogEntry& entry, LogKind kind)
{
    return entry.level ? std::string_view(LevelsOf(kind)[*entry.level].name) : PieceName(entry.piece);
}

std::string DescribeSource(const LogEntry& entry, LogKind kind)
{
    std::string text = Decode(entry.source, kind);
    if (entry.sourceLine)
        text += "(" + std::to_string(*entry.sourceLine) + ")";
    return text.empty() ? text : text + ": ";
}

}  // namespace

std::string_view PieceName(LogPiece piece)
{
    constexpr std::string_view c_names[] = {"entry", "opened", "closed", "text", "continued"};
    return c_names[static_cast<std::size_t>(piece)];
}

std::string_view LogWriter::Headings(LogKind kind) const
{
    if (m_isJson)
        return {};
    return kind == LogKind::Process ? "time          pid  level              message\n"
                                    : "date                           time      level              message\n";
}

std::string_view LogWriter::Show(const LogEntry& entry, LogKind kind)
{
    if (m_isJson)
        return ShowJson(entry, kind);
    const bool isNew = entry.piece != LogPiece::Continued;
    m_line.clear();
    if (kind == LogKind::Design)
        AppendCell(isNew ? RepairUtf8(entry.date) : "", c_dateWidth);
    AppendCell(isNew ? entry.time : "", c_timeWidth);
    if (kind == LogKind::Process)
    {
        const std::string processId = isNew && entry.processId ? std::to_string(*entry.processId) : "";
        AppendCell(std::string(c_processIdWidth - std::min(c_processIdWidth, processId.size()), ' ') + processId,
                   c_processIdWidth + 2);
    }
    AppendCell(isNew ? LevelName(entry, kind) : "", c_levelWidth);
    AppendMessage(DescribeSource(entry, kind) + Decode(entry.message, kind), kind);
    return m_line;
}

std::string_view LogWriter::ShowJson(const LogEntry& entry, LogKind kind)
{
    const auto add = [&](std::string_view key, std::string_view text)
    {
        if (!text.empty())
            m_json.Add(key, Decode(text, kind));
    };
    const auto addNumber = [&](std::string_view key, const std::optional<std::uint64_t>& number)
    {
        if (number)
            m_json.Add(key, *number);
    };
    m_json.Begin();
    m_json.Add("kind", PieceName(entry.piece));
    m_json.Add("line", entry.line);
    addNumber("pid", entry.processId);
    if (entry.level)
        m_json.Add("level", LevelName(entry, kind));
    add("date", entry.date);
    add("time", entry.time);
    add("source", entry.source);
    addNumber("sourceLine", entry.sourceLine);
    addNumber("entries", entry.entries);
    addNumber("errors", entry.errors);
    m_json.Add("message", WithPlainLineBreaks(Decode(entry.message, kind)));
    return m_json.End();
}

void LogWriter::AppendCell(std::string_view text, std::size_t width)
{
    const std::size_t begin = m_line.size();
    m_line += text;
    const std::size_t size = CountCodePoints(text);
    m_line.append(size < width ? width - size : 2, ' ');
    std::replace_if(m_line.begin() + static_cast<std::ptrdiff_t>(begin), m_line.end(), IsControl, '?');
}

// Further lines stand below the first.
void LogWriter::AppendMessage(std::string_view text, LogKind kind)
{
    const std::size_t indent =
        c_timeWidth + c_levelWidth + (kind == LogKind::Process ? c_processIdWidth + 2 : c_dateWidth);
    for (std::size_t begin = 0;;)
    {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string_view line = text.substr(begin, end - begin);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        for (const char character : line)
            m_line.push_back(IsControl(character) && character != '\t' ? '?' : character);
        m_line.erase(m_line.find_last_not_of(' ') + 1);
        m_line.push_back('\n');
        if (end == text.size())
            return;
        m_line.append(indent, ' ');
        begin = end + 1;
    }
}
