#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cli/LogReader.h"

/// Which pieces of a log are wanted. A piece that lacks what is asked for (a level, a process id, a time) is not wanted.
class LogFilter
{
public:
    /// A level by its name in either kind of log, whatever its case: "warning", "exception message" (or
    /// exception-message); "warning+" for it and those above it. Throws UsageError for any other text.
    void AddLevel(const std::string& name);

    void AddErrors() { m_onlyErrors = true; }
    void AddProcessId(std::uint64_t processId) { m_processIds.push_back(processId); }

    /// "14:05:09", both inclusive. A log's entries have times without dates: the window is one of each day. A beginning that is
    /// later than the end is that of a window over midnight. Throws UsageError for what is no time.
    void SetSince(const std::string& time);
    void SetUntil(const std::string& time);

    /// Throws UsageError when none of the levels asked for is one of this kind of log.
    void CheckLevels(LogKind kind) const;

    bool Wants(const LogEntry& entry, LogKind kind) const;

private:
    bool WantsLevel(const LogEntry& entry, LogKind kind) const;
    bool WantsTime(std::string_view time) const;

    std::array<std::vector<bool>, 2> m_levels;  // by kind and level; both are empty when all are wanted
    std::string m_levelNames;
    bool m_onlyErrors = false;
    std::vector<std::uint64_t> m_processIds;
    std::string m_since;
    std::string m_until;
};
