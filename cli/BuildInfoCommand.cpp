#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Failure.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/Utf8.h"
#include "cli/platform/System.h"
#include "vetools/util/VeDate.h"

namespace
{

constexpr const char* c_help = R"(Examples:
  vetools build-info
  vetools build-info --json                      # one object

The build number counts the days from 1 January 2009 to the build date.)";

std::string StandardLibrary()
{
#if defined(_LIBCPP_VERSION)
    return "libc++ " + std::to_string(_LIBCPP_VERSION);
#elif defined(__GLIBCXX__)
    return "libstdc++ " + std::to_string(_GLIBCXX_RELEASE) + " (" + std::to_string(__GLIBCXX__) + ")";
#else
    return "unknown";
#endif
}

struct Fact
{
    const char* name;
    const char* key;
    std::string (*text)();
    bool isNumber = false;
};

// clang-format off
constexpr Fact c_facts[] = {
//   name                 key                 text
    {"version",           "version",          [] { return std::string(GetVeToolsVersion()); }},
    {"build number",      "buildNumber",      [] { return std::to_string(GetBuildNumber()); }, true},
    {"build date",        "buildDate",        [] { return std::string(GetBuildDate()); }},
    {"configuration",     "configuration",    [] { return std::string(VETOOLS_CONFIGURATION); }},
    {"compiler",          "compiler",         [] { return std::string(VETOOLS_COMPILER); }},
    {"standard library",  "standardLibrary",  StandardLibrary},
    {"target",            "target",           [] { return std::string(VETOOLS_TARGET); }},
    {"processor",         "processor",        [] { return std::string(VETOOLS_PROCESSOR); }},
    {"framework",         "framework",        [] { return std::string(VETOOLS_FRAMEWORK); }},
    {"sanitizers",        "sanitizers",       [] { return std::string(VETOOLS_SANITIZERS); }},
    {"text services",     "textServices",     System::TextServices},
};
// clang-format on

// A fact without text says that there is none of it.
std::string Describe(const Fact& fact)
{
    const std::string text = fact.text();
    return text.empty() ? "none" : text;
}

int RunBuildInfo(bool json)
{
    constexpr std::size_t c_nameWidth = 18;
    Output output;
    JsonWriter object;
    object.Begin();
    for (const Fact& fact : c_facts)
    {
        if (fact.isNumber)
            object.Add(fact.key, std::int64_t{std::stol(fact.text())});
        else
            object.Add(fact.key, Describe(fact));
        const std::string name = fact.name;
        if (!json)
            output.Write(name + std::string(c_nameWidth - name.size(), ' ') + Describe(fact) + "\n");
    }
    if (json)
        output.Write(object.End());
    output.Flush();
    return c_exitDone;
}

}  // namespace

Command MakeBuildInfoCommand(CLI::App& program)
{
    const auto json = std::make_shared<bool>(false);
    CLI::App* const command = program.add_subcommand("build-info", "Tell how the library was built");
    command->add_flag("--json", *json, "One JSON object");
    command->footer(c_help);
    return {command, [json]
            {
                return RunBuildInfo(*json);
            }};
}
