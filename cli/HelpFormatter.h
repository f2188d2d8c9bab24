#pragma once

#include <CLI/CLI.hpp>

/// Help that teaches before it lists: what the command does, how it is called, its footer with explanations and
/// examples, and only then the options. An option's own text says what follows its name; that of positional arguments
/// stands in the usage line.
class HelpFormatter : public CLI::Formatter
{
public:
    std::string make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const override;
    std::string make_usage(const CLI::App* command, std::string name) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
};
