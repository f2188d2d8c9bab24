#include "cli/Commands.h"

#include <algorithm>
#include <array>
#include <memory>
#include <CLI/CLI.hpp>

#include "cli/Failure.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/Quantities.h"
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

enum Column
{
    c_columnId,
    c_columnRange,
    c_columnSymbol,
    c_columnTitle,
    c_columnCoefficient,
    c_columnType,
    c_columnFormat,
    c_columnQuantity,
    c_columnCount,
};

using Row = std::array<std::string, c_columnCount>;

const Row c_headings = {"id", "range", "symbol", "title", "coefficient", "type", "format", "quantity"};

const char* TypeText(Unit::UNIT_TYPE type)
{
    return type == Unit::UNIT_TYPE_IMPERIAL ? "imperial" : "metric";
}

const char* FormatText(Unit::enumUNITFORMAT format)
{
    switch (format)
    {
    case Unit::UNITFORMAT_FEET_INCHES:
        return "feet-inches";
    case Unit::UNITFORMAT_IMPERIAL_DECIMAL:
        return "imperial decimal";
    case Unit::UNITFORMAT_FRACTION:
        return "fraction";
    default:
        return "decimal";
    }
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

Row MakeRow(const Quantity& quantity, CVeUnitBase unit)
{
    Row row;
    row[c_columnId] = std::to_string(unit.GetIDUnit());
    row[c_columnRange] = std::to_string(unit.GetRange());
    row[c_columnSymbol] = ToUtf8(unit.GetName().GetString());
    row[c_columnTitle] = ToUtf8(unit.GetTitle());
    AppendShortest(row[c_columnCoefficient], unit.GetCoef());
    row[c_columnType] = TypeText(unit.GetType());
    row[c_columnFormat] = FormatText(unit.GetUnitFormat());
    row[c_columnQuantity] = quantity.name;
    return row;
}

void WriteTable(Output& output, const std::vector<Row>& rows)
{
    std::array<std::size_t, c_columnCount> widths = {};
    for (const Row& row : rows)
        for (std::size_t column = 0; column < c_columnCount; ++column)
            widths[column] = std::max(widths[column], CountCodePoints(row[column]));
    for (const Row& row : rows)
    {
        std::string line;
        for (std::size_t column = 0; column < c_columnCount; ++column)
        {
            const std::string padding(widths[column] - CountCodePoints(row[column]), ' ');
            const bool isNumber = column == c_columnId || column == c_columnRange;
            line += (column == 0 ? "" : "  ") + (isNumber ? padding + row[column] : row[column] + padding);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        output.Write(line + "\n");
    }
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
    json.Add("format", FormatText(unit.GetUnitFormat()));
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
        VisitUnits(wanted, [&](const Quantity& quantity, const CVeUnitBase& unit) { WriteJson(output, quantity, unit); });
    else
    {
        std::vector<Row> rows = {c_headings};
        VisitUnits(wanted, [&](const Quantity& quantity, const CVeUnitBase& unit) { rows.push_back(MakeRow(quantity, unit)); });
        WriteTable(output, rows);
    }
    output.Flush();
    return c_exitDone;
}

} // namespace

Command MakeUnitsCommand(CLI::App& program)
{
    const auto settings = std::make_shared<UnitsSettings>();
    CLI::App* const command = program.add_subcommand("units", "List the units that the library knows");
    command->add_option("quantity", settings->quantity, "Id or English name of a quantity")->option_text("[QUANTITY]");
    command->add_flag("--json", settings->json, "One JSON object per unit and line");
    command->footer(c_help);
    return {command, [settings] { return RunUnits(*settings); }};
}
