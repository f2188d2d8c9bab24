#pragma once

#include <functional>

namespace CLI
{
class App;
}

/// One command of the program: its part of the arguments, and what runs when it was named. Run returns the exit code
/// and throws UsageError for arguments that make no sense together.
struct Command
{
    CLI::App* arguments;
    std::function<int()> run;
};

Command MakeBuildInfoCommand(CLI::App& program);
Command MakeConvertCommand(CLI::App& program);
Command MakeFormatCommand(CLI::App& program);
Command MakeLogCommand(CLI::App& program);
Command MakeParseCommand(CLI::App& program);
Command MakeRecogniseCommand(CLI::App& program);
Command MakeStyleCommand(CLI::App& program);
Command MakeUnitsCommand(CLI::App& program);
