#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "vetools/logging/LogFileBase.h"

// How the lines of both kinds of log are marked: what the logs write, and what a reader of their files looks for.

/// The mark of a level in the lines of a log.
struct LogLevelRow
{
    int level;
    std::wstring_view text;
};

// clang-format off
/// The log file: level text, separator and message follow the time.
inline constexpr LogLevelRow c_entryLevels[] = {
//   level                          text
    {LogFileBase::Comment,          L" Comment"},
    {LogFileBase::Warning,          L" Warning"},
    {LogFileBase::Message,          L" Message"},
    {LogFileBase::ExceptionMessage, L" Exception Message"},
    {LogFileBase::Error,            L" Error"},
    {LogFileBase::Exception,        L" Exception"},
};

/// A design log: the tag and the message follow the time. Tags have one width, so that the messages stand in one column.
inline constexpr LogLevelRow c_designLogTags[] = {
//   level  tag
    {0,     L" [INFORMATION] : "},
    {1,     L" [WARNING]     : "},
    {2,     L" [DEBUG]       : "},
    {3,     L" [EXCEPTION]   : "},
    {4,     L" [ERROR]       : "},
};
// clang-format on

/// In the log file: the id of the writing process, in front of every piece of text, and what follows a level's text.
inline constexpr std::wstring_view c_processIdPrefix = L"PID:";
inline constexpr std::wstring_view c_levelSeparator = L" : ";

/// The time in the lines of both logs, as a picture of GetTimeFormatW: 14:05:09.
inline constexpr wchar_t c_logTimePicture[] = L"hh':'mm':'ss";

/// Whether an entry of the log file counts as an error.
constexpr bool IsErrorLevel(int level)
{
    return level >= LogFileBase::Error;
}

/// The text of a level in one of the tables; empty for a level that it lacks.
constexpr std::wstring_view LogLevelText(std::span<const LogLevelRow> rows, int level)
{
    return level >= 0 && static_cast<std::size_t>(level) < rows.size() ? rows[static_cast<std::size_t>(level)].text
                                                                       : std::wstring_view();
}

/// Whether the rows are found by their levels.
constexpr bool AreLogLevelsIndices(std::span<const LogLevelRow> rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].level != static_cast<int>(i))
            return false;
    return true;
}
static_assert(AreLogLevelsIndices(c_entryLevels) && AreLogLevelsIndices(c_designLogTags), "levels count from 0");
static_assert(std::ranges::all_of(c_designLogTags, [](const LogLevelRow& row) { return row.text.size() == 17; }),
              "a tag has 17 characters");
