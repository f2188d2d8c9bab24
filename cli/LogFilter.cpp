#include "cli/LogFilter.h"

#include <algorithm>

#include "cli/Failure.h"

namespace
{

constexpr LogKind c_kinds[] = {LogKind::Process, LogKind::Design};

// "Exception Message", "exception-message" and "exceptionmessage" are one name.
std::string Plain(std::string_view name)
{
    std::string plain;
    for (const char character : name)
        if (character >= 'A' && character <= 'Z')
            plain.push_back(static_cast<char>(character - 'A' + 'a'));
        else if (character != ' ' && character != '-' && character != '_')
            plain.push_back(character);
    return plain;
}

std::string ReadTime(const std::string& text, const char* option)
{
    if (!IsTimeOfDay(text))
        throw UsageError(std::string(option) + ": expected a time such as 14:05:09, not “" + text + "”");
    return text;
}

}  // namespace

void LogFilter::AddLevel(const std::string& name)
{
    std::string plain = Plain(name);
    const bool andAbove = plain.ends_with('+');
    if (andAbove)
        plain.pop_back();
    bool isKnown = false;
    for (const LogKind kind : c_kinds)
    {
        const std::span<const LogLevel> levels = LevelsOf(kind);
        std::vector<bool>& wanted = m_levels[static_cast<std::size_t>(kind)];
        wanted.resize(levels.size());
        for (std::size_t level = 0; level < levels.size(); ++level)
        {
            if (Plain(levels[level].name) != plain)
                continue;
            isKnown = true;
            std::fill(wanted.begin() + static_cast<std::ptrdiff_t>(level),
                      andAbove ? wanted.end() : wanted.begin() + static_cast<std::ptrdiff_t>(level) + 1, true);
        }
    }
    if (!isKnown)
        throw UsageError("--level: “" + name + "” is no level: expected " + LevelNames(LogKind::Process) +
                         " or, of a design log, " + LevelNames(LogKind::Design) + ", each with or without +");
    m_levelNames += (m_levelNames.empty() ? "“" : ", “") + name + "”";
}

void LogFilter::SetSince(const std::string& time)
{
    m_since = ReadTime(time, "--since");
}

void LogFilter::SetUntil(const std::string& time)
{
    m_until = ReadTime(time, "--until");
}

void LogFilter::CheckLevels(LogKind kind) const
{
    const std::vector<bool>& wanted = m_levels[static_cast<std::size_t>(kind)];
    if (wanted.empty() || std::find(wanted.begin(), wanted.end(), true) != wanted.end())
        return;
    throw UsageError("--level: this log has no level " + m_levelNames + ": its levels are " + LevelNames(kind));
}

bool LogFilter::Wants(const LogEntry& entry, LogKind kind) const
{
    const bool wantsProcess =
        m_processIds.empty() || (entry.processId && std::find(m_processIds.begin(), m_processIds.end(),
                                                              *entry.processId) != m_processIds.end());
    return wantsProcess && WantsLevel(entry, kind) && WantsTime(entry.time);
}

bool LogFilter::WantsLevel(const LogEntry& entry, LogKind kind) const
{
    const std::vector<bool>& wanted = m_levels[static_cast<std::size_t>(kind)];
    if (m_onlyErrors && !(entry.level && LevelsOf(kind)[*entry.level].isError))
        return false;
    return wanted.empty() || (entry.level && wanted[*entry.level]);
}

bool LogFilter::WantsTime(std::string_view time) const
{
    if (m_since.empty() && m_until.empty())
        return true;
    if (time.empty())
        return false;
    const bool isSince = m_since.empty() || time >= m_since;
    const bool isUntil = m_until.empty() || time <= m_until;
    const bool isOverMidnight = !m_since.empty() && !m_until.empty() && m_since > m_until;
    return isOverMidnight ? isSince || isUntil : isSince && isUntil;
}
