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
    R"(FROM is the unit that the values are in, TO the one they go to. Without a value, or with -, values
come from standard input, one per line. FROM may be left out when the values name their units.

Examples:
  vetools convert 12.5 kN lb
  vetools convert "3'-4 1/2\"" mm               # feet and inches name their unit themselves
  vetools convert "12.5 kN" lb                  # so does a value with a symbol
  vetools convert 1.03 m "' / \"" --precision 4 # to feet, inches and sixteenths
  vetools convert -40 °F °C
  vetools convert 250 cm2 m2 --precision 5      # areas and volumes: cm2, cm², m3, "sq in"
  vetools convert 1 2 3 m ft                    # several values
  vetools convert 5 2:4 daN                     # kg of force; 4:0 is kg of mass
  vetools convert kN lb < loads.txt             # one value per line
  vetools convert kN lb --csv loads.csv --column "Load [kN]" --json

Units: a symbol (kN, µm, lb/in²), a title (KiloNewton) or id:range (2:2); "vetools units" lists them.
A symbol that several quantities share, as kg, takes the quantity of the other side.
The text is the one that the application shows: lengths are rounded to the precision, and one of less than
a millimetre that has no decimal to show reads 0. --json gives the unrounded value as well.
Exit code: 0 done, 1 some value failed (the others are written), 2 wrong usage.)";

struct ConvertSettings
{
    std::vector<std::string> arguments;
    TextSettings text;
    SourceSettings source;
    ReportSettings report;
};

/// Values, the unit they are in, and the unit they go to.
struct Request
{
    std::vector<std::string> values;
    std::optional<std::string> from;
    std::string to;
};

// The last argument is the target; one before it that cannot be a value is the source.
Request SplitArguments(std::vector<std::string> arguments)
{
    if (arguments.empty())
        throw UsageError("expected the unit to convert to");
    Request request;
    request.to = std::move(arguments.back());
    arguments.pop_back();
    const bool hasSource = !arguments.empty() && arguments.back() != "-" && !LooksLikeValue(arguments.back());
    if (hasSource)
    {
        request.from = std::move(arguments.back());
        arguments.pop_back();
    }
    request.values = std::move(arguments);
    return request;
}

// Without a source unit, the first value may tell which of several quantities the target means.
UnitChoice ResolveTarget(const UnitLookup& lookup, const Request& request, char separator)
{
    const std::vector<UnitChoice> candidates = lookup.Find(request.to);
    if (candidates.size() > 1 && !request.values.empty())
    {
        const std::optional<NumberText> number = ReadNumber(request.values.front(), separator);
        if (number && !lookup.Find(number->rest).empty())
            return lookup.ResolvePair(number->rest, request.to).second;
    }
    return lookup.Resolve(request.to);
}

int RunConvert(const ConvertSettings& settings)
{
    const UnitLookup lookup;
    const Request request = SplitArguments(settings.arguments);
    const QuantityReader::Settings reading{settings.text.separator, 1.0};
    std::optional<QuantityReader> reader;
    UnitChoice target;
    if (request.from)
    {
        const auto [source, resolved] = lookup.ResolvePair(*request.from, request.to);
        target = resolved;
        reader.emplace(lookup, source, reading);
    }
    else
    {
        target = ResolveTarget(lookup, request, settings.text.separator);
        reader.emplace(QuantityReader::ForAnyUnit(lookup, target, reading));
    }
    ValueWriter writer(target, settings.text);
    ReportSettings report = settings.report;
    report.unit = writer.Symbol();
    return ReportQuantities(request.values, settings.source, report, *reader,
                            [&](double si, ValueResult& result)
                            {
                                result.value = writer.Convert(si);
                                writer.Append(result.text, si);
                            });
}

}  // namespace

Command MakeConvertCommand(CLI::App& program)
{
    const auto settings = std::make_shared<ConvertSettings>();
    CLI::App* const command = program.add_subcommand("convert", "Convert values from one unit to another");
    command->add_option("arguments", settings->arguments)->option_text("[VALUE...] [FROM] TO")->required();
    AddTextOptions(*command, settings->text);
    AddSeparatorOption(*command, settings->text.separator);
    AddSourceOptions(*command, settings->source);
    AddReportOptions(*command, settings->report);
    command->footer(c_help);
    return {command, [settings]
            {
                return RunConvert(*settings);
            }};
}
