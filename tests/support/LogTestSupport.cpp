#include "tests/support/LogTestSupport.h"

#include <regex>
#include <utility>

#include "tests/support/FileTestSupport.h"
#include "vetools/platform/Platform.h"

std::string LogTextOf(const std::filesystem::path& path)
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
