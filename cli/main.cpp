#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Failure.h"
#include "cli/HelpFormatter.h"
#include "cli/Output.h"
#include "cli/platform/System.h"

namespace
{

constexpr const char* c_help = R"(Examples:
  vetools convert 12.5 kN lb
  vetools convert "3'-4 1/2\"" mm
  vetools convert 1.03 m "' / \"" --precision 4
  vetools format 12500 kN --precision 1
  vetools parse "12.5 kN" kN
  vetools units force
  vetools recognise kN/m2 "''2"
  vetools style new site.vus
  vetools convert kN lb --csv loads.csv --column Load
  vetools log Log.log --errors

"vetools convert --help" and so on teach each command by examples.
Exit code: 0 done, 1 some value failed (the others are written), 2 wrong usage.)";

// "-.5" would be taken for an option; as "-0.5" it is seen to be a number.
void SpellNegativeNumbers(std::vector<std::string>& arguments)
{
    for (std::string& argument : arguments)
        if (argument.size() > 2 && argument[0] == '-' && (argument[1] == '.' || argument[1] == ',') &&
            argument[2] >= '0' && argument[2] <= '9')
            argument.insert(1, "0");
}

int WriteText(const std::string& text)
{
    Output output;
    output.Write(text);
    output.Flush();
    return c_exitDone;
}

int RefuseUsage(const CLI::App& program, const std::string& problem)
{
    std::string name = program.get_name();
    for (const CLI::App* command = &program; !command->get_subcommands().empty();)
    {
        command = command->get_subcommands().front();
        name += " " + command->get_name();
    }
    WriteMessage(problem + "\n“" + name + " --help” shows how it is used.");
    return c_exitUsage;
}

int Run(std::vector<std::string> arguments)
{
    CLI::App program(
        "Units of measure: converts values, writes them as text and reads them back. And the logs of their hosts.",
        "vetools");
    program.allow_windows_style_options(false);  // /" is a unit
    program.set_version_flag("--version", "vetools " VETOOLS_VERSION, "Print the version and exit");
    program.formatter(std::make_shared<HelpFormatter>());
    program.require_subcommand(1);
    program.footer(c_help);
    const std::vector<Command> commands = {MakeConvertCommand(program),   MakeFormatCommand(program),
                                           MakeParseCommand(program),     MakeUnitsCommand(program),
                                           MakeRecogniseCommand(program), MakeStyleCommand(program),
                                           MakeLogCommand(program),       MakeBuildInfoCommand(program)};
    try
    {
        SpellNegativeNumbers(arguments);
        program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        for (const Command& command : commands)
            if (command.arguments->parsed())
                return command.run();
    }
    catch (const CLI::CallForHelp&)
    {
        return WriteText(program.help());
    }
    catch (const CLI::CallForVersion&)
    {
        return WriteText(program.version() + "\n");
    }
    catch (const CLI::ParseError& error)
    {
        return RefuseUsage(program, error.what());
    }
    catch (const UsageError& error)
    {
        return RefuseUsage(program, error.what());
    }
    return c_exitUsage;
}

}  // namespace

int main(int argc, char** argv)
{
    try
    {
        return Run(System::Arguments(argc, argv));
    }
    catch (const OutputClosed&)
    {
        return c_exitSomeFailed;
    }
    catch (const std::exception& error)
    {
        WriteMessage(error.what());
        return c_exitSomeFailed;
    }
}
