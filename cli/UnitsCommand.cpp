#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Failure.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/Quantities.h"
#include "cli/TextTable.h"
#include "cli/UnitLookup.h"
#include "cli/Utf8.h"

namespace
{

constexpr const char* c_help = R"(Examples:
  vetools units              # every unit
  vetools units force        # by English name; also length, moment, mass, angle, stress, time, temperature,
                             # energy, velocity, acceleration, ratio, frequency, length-9 to length-26 ...
  vetools units 2            # by id
  vetools units stress --json

A value in the unit is the SI value times the coefficient (°F adds 32, K adds 273.15). Coefficients are
printed with the digits that give the same double again. id and range name a unit in the other commands
as id:range.)";

struct UnitsSettings
{
    std::string quantity;
    bool json = false;
};

const char* TypeText(Unit::UNIT_TYPE type)
{
    return type == Unit::UNIT_TYPE_IMPERIAL ? "imperial" : "metric";
}

// The rows of the catalogue that were asked for, each with its unit.
template <typename Visitor>
void VisitUnits(const Quantity* wanted, const Visitor& visit)
{
    for (const Quantity& quantity : Quantities())
        if (!wanted || wanted->id == quantity.id)
            for (const unsigned int range : RangesOf(quantity.id))
                visit(quantity, MakeUnitOf({quantity.id, range, 1}));
}

TextTable MakeTable()
{
    constexpr TextTable::Align c_right = TextTable::Align::Right;
    return TextTable({{"id", c_right},
                      {"range", c_right},
                      {"symbol"},
                      {"title"},
                      {"coefficient"},
                      {"type"},
                      {"format"},
                      {"quantity"}});
}

void AddRow(TextTable& table, const Quantity& quantity, CVeUnitBase unit)
{
    std::string coefficient;
    AppendShortest(coefficient, unit.GetCoef());
    table.Add({std::to_string(unit.GetIDUnit()), std::to_string(unit.GetRange()), ToUtf8(unit.GetName().GetString()),
               ToUtf8(unit.GetTitle()), coefficient, TypeText(unit.GetType()), DescribeFormat(unit.GetUnitFormat()),
               quantity.name});
}

void WriteJson(Output& output, const Quantity& quantity, CVeUnitBase unit)
{
    JsonWriter json;
    json.Begin();
    json.Add("id", std::uint64_t{unit.GetIDUnit()});
    json.Add("range", std::uint64_t{unit.GetRange()});
    json.Add("symbol", ToUtf8(unit.GetName().GetString()));
    json.Add("title", ToUtf8(unit.GetTitle()));
    json.Add("coefficient", unit.GetCoef());
    json.Add("type", TypeText(unit.GetType()));
    json.Add("format", DescribeFormat(unit.GetUnitFormat()));
    json.Add("quantity", quantity.name);
    output.Write(json.End());
}

int RunUnits(const UnitsSettings& settings)
{
    const Quantity* const wanted = settings.quantity.empty() ? nullptr : FindQuantity(settings.quantity);
    if (!wanted && !settings.quantity.empty())
    {
        std::string names;
        for (const Quantity& quantity : Quantities())
            names += (names.empty() ? "" : ", ") + std::string(quantity.name);
        throw UsageError("“" + settings.quantity + "” is no quantity: expected an id from 1 to 26 or one of " + names);
    }
    Output output;
    if (settings.json)
        VisitUnits(wanted,
                   [&](const Quantity& quantity, const CVeUnitBase& unit) { WriteJson(output, quantity, unit); });
    else
    {
        TextTable table = MakeTable();
        VisitUnits(wanted, [&](const Quantity& quantity, const CVeUnitBase& unit) { AddRow(table, quantity, unit); });
        table.Write(output);
    }
    output.Flush();
    return c_exitDone;
}

}  // namespace

Command MakeUnitsCommand(CLI::App& program)
{
    const auto settings = std::make_shared<UnitsSettings>();
    CLI::App* const command = program.add_subcommand("units", "List the units that the library knows");
    command->add_option("quantity", settings->quantity, "Id or English name of a quantity")->option_text("[QUANTITY]");
    command->add_flag("--json", settings->json, "One JSON object per unit and line");
    command->footer(c_help);
    return {command, [settings]
            {
                return RunUnits(*settings);
            }};
}
