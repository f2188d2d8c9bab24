#pragma once

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <utility>

#include "tests/support/FileTestSupport.h"
#include "vetools/platform/Platform.h"

/// What a log holds, with signs in place of what differs from run to run: # for the id of this process, TIME and DATE for a
/// time and a long date in English. A carriage return, which a text file of Windows has in front of each line break, is left
/// out.
inline std::string LogTextOf(const std::filesystem::path& path)
{
    const Bytes bytes = ReadBytes(path);
    std::string text(bytes.begin(), bytes.end());
    const std::string id = std::to_string(::GetCurrentProcessId());
    const std::pair<const char*, std::string> signs[] = {
        {"PID:#", "PID:" + id + "\\b"},
        {"PID = #", "PID = " + id + "\\b"},
        {"TIME", "[012][0-9]:[0-5][0-9]:[0-5][0-9]"},
        {"DATE", "[SMTWF][a-z]+day, [JFMASOND][a-z]+ [1-3]?[0-9], 20[0-9][0-9]"},
        {"\n", "\r\n"},
    };
    for (const auto& [sign, pattern] : signs)
        text = std::regex_replace(text, std::regex(pattern), sign);
    return text;
}
