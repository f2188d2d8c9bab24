#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Failure.h"
#include "cli/QuantityReader.h"
#include "cli/Report.h"
#include "cli/TextSettings.h"

namespace
{

constexpr const char* c_help =
    R"(Values are in SI and are written in UNIT. Without a value, or with -, values come from standard input,
one per line.

Examples:
  vetools format 12500 kN                         # 12500 N are 12.500 kN
  vetools format 1.03 "' / \"" --precision 4      # metres as feet, inches and sixteenths
  vetools format 12.5 m --trailing-zeros remove
  vetools format 20 MN --exponent-notation 3      # 2.000e-05 MN, where 0.000 MN would say nothing
  vetools format 1.235 m --superscript            # drawing-text mark-up: \A1;1.23{\H0.6x;\S5^;} m
  vetools format 5 m --metrics-factor 2           # a drawing at scale 2
  vetools format 1,5 m --separator ,
  vetools format MPa --csv stresses.csv --column 3 --no-unit

Values are in SI: metres, newtons, newton-metres, kilograms, radians, pascals, seconds, joules, their
quotients, square and cubic metres; temperatures in °C.
Where the text differs from what the library alone would write: the separator asked for stands in the
text; areas and volumes in feet and yards carry their own names. A metrics factor leaves the lengths
of ids 9, 13, 14 and 19 as they are, as in the application.
Exit code: 0 done, 1 some value failed (the others are written), 2 wrong usage.)";

struct FormatSettings
{
    std::vector<std::string> arguments;
    TextSettings text;
    SourceSettings source;
    ReportSettings report;
};

int RunFormat(const FormatSettings& settings)
{
    const UnitLookup lookup;
    std::vector<std::string> values = settings.arguments;
    const UnitChoice unit = lookup.Resolve(values.back());
    values.pop_back();
    QuantityReader reader(lookup, SiUnitOf(unit), {settings.text.separator, 1.0});
    ValueWriter writer(unit, settings.text);
    ReportSettings report = settings.report;
    report.unit = writer.Symbol();
    return ReportQuantities(std::move(values), settings.source, report, reader,
                            [&](double si, ValueResult& result)
                            {
                                result.value = writer.Convert(si);
                                writer.Append(result.text, si);
                            });
}

}  // namespace

Command MakeFormatCommand(CLI::App& program)
{
    const auto settings = std::make_shared<FormatSettings>();
    CLI::App* const command = program.add_subcommand("format", "Write SI values as text in a unit");
    command->add_option("arguments", settings->arguments)->option_text("[VALUE...] UNIT")->required();
    AddTextOptions(*command, settings->text);
    AddSeparatorOption(*command, settings->text.separator);
    AddMetricsFactorOption(*command, settings->text.metricsFactor);
    AddSourceOptions(*command, settings->source);
    AddReportOptions(*command, settings->report);
    command->footer(c_help);
    return {command, [settings]
            {
                return RunFormat(*settings);
            }};
}
