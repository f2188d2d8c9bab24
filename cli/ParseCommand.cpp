#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/JsonWriter.h"
#include "cli/QuantityReader.h"
#include "cli/Report.h"
#include "cli/TextSettings.h"
#include "cli/Utf8.h"

namespace
{

constexpr const char* c_help =
    R"(Texts are values in UNIT, with or without its symbol. Without a text, or with -, texts come from standard
input, one per line.

Examples:
  vetools parse 12.5 kN                        # 12500
  vetools parse "3'-4 1/2\"" "' / \""          # 1.0287
  vetools parse "12,5 kN" kN --separator ,
  vetools parse 212 °F                         # 100
  vetools parse 2.5 m --metrics-factor 2       # 5
  vetools parse kN < loads.txt                 # one text per line
  vetools parse mm --csv beams.csv --column Height --json

Prints the value in SI, with the digits that give the same double again: metres, newtons, newton-metres,
kilograms, radians, pascals, seconds, joules, their quotients, square and cubic metres; °C.
A number without marks counts feet in ', yards in Yd and inches in ", and inches in the units that write
feet and inches ('-", ' / " and /").
Where this differs from the library call alone: a text that is no number is an error and not 0; the separator
asked for is read; the offsets of °F and K are undone; decimal feet and yards, signs included, are what they say.
Exit code: 0 done, 1 some value failed (the others are written), 2 wrong usage.)";

struct ParseSettings
{
    std::vector<std::string> arguments;
    QuantityReader::Settings reading;
    SourceSettings source;
    ReportSettings report;
};

int RunParse(const ParseSettings& settings)
{
    const UnitLookup lookup;
    std::vector<std::string> texts = settings.arguments;
    const UnitChoice unit = lookup.Resolve(texts.back());
    texts.pop_back();
    CheckMetricsFactor(settings.reading.metricsFactor, unit);
    QuantityReader reader(lookup, unit, settings.reading);
    ReportSettings report = settings.report;
    report.unit = ToUtf8(MakeUnitOf(SiUnitOf(unit)).GetName().GetString());
    return ReportQuantities(std::move(texts), settings.source, report, reader,
                            [](double si, ValueResult& result)
                            {
                                result.value = si;
                                AppendShortest(result.text, si);
                            });
}

}  // namespace

Command MakeParseCommand(CLI::App& program)
{
    const auto settings = std::make_shared<ParseSettings>();
    CLI::App* const command = program.add_subcommand("parse", "Read texts in a unit as SI values");
    command->add_option("arguments", settings->arguments)->option_text("[TEXT...] UNIT")->required();
    AddSeparatorOption(*command, settings->reading.separator);
    AddMetricsFactorOption(*command, settings->reading.metricsFactor);
    AddSourceOptions(*command, settings->source);
    AddReportOptions(*command, settings->report);
    command->footer(c_help);
    return {command, [settings]
            {
                return RunParse(*settings);
            }};
}
