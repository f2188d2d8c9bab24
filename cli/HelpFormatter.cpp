#include "cli/HelpFormatter.h"

std::string HelpFormatter::make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const
{
    return make_description(command) + make_usage(command, name) + make_footer(command) + make_groups(command, mode) +
           make_subcommands(command, mode);
}

std::string HelpFormatter::make_usage(const CLI::App* command, std::string name) const
{
    std::string usage = "\nUsage: " + name;
    for (const CLI::Option* argument :
         command->get_options([](const CLI::Option* each) { return each->get_positional(); }))
        usage += " " + argument->get_option_text();
    if (command->get_require_subcommand_min() > 0)
        usage += " COMMAND";
    return usage + " [OPTIONS]\n\n";
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const
{
    return option->get_option_text().empty() ? "" : " " + option->get_option_text();
}
