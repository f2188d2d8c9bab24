#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cli/Failure.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/UnitLookup.h"
#include "cli/Utf8.h"
#include "cli/ValueSource.h"

namespace
{

constexpr const char* c_help =
    R"(Without a text, or with -, texts come from standard input, one per line, and each line gives one.

Examples:
  vetools recognise kN cm4                # upper and lower case are the same
  vetools recognise "''2" kn/m2 m/m/m     # a/b/c is a divided by b/c
  vetools recognise MPa --json
  vetools recognise < units.txt           # one text per line
  vetools recognise --csv loads.csv --column Unit

This is what a host makes of a unit in imported text. It knows fewer spellings than the other commands do, and
no blanks around them; kn/m² and daN/mm² are unknown, kn/m2 and dan/mm2 are quotients.
Forces (N daN kN MN kg t lb kip) are given the id of the masses with the range of the force: what comes out is a
mass, or for the ranges that masses do not have the texts and coefficient that the unit had before, here those of
a new unit, the metre. A note says so. For a force use “vetools convert”, or the id 2 with the same range.
Exit code: 0 done, 1 some text is unknown, 2 wrong usage.)";

struct RecogniseSettings
{
    std::vector<std::string> texts;
    SourceSettings source;
    bool json = false;
};

struct Recognition
{
    CVeUnitManager::statusCode status = CVeUnitManager::STATUS_UNKNOWN;
    CVeUnit unit;
    std::string note;
};

const char* StatusText(CVeUnitManager::statusCode status)
{
    switch (status)
    {
    case CVeUnitManager::STATUS_OK:
        return "ok";
    case CVeUnitManager::STATUS_EMPTY:
        return "empty";
    default:
        return "unknown";
    }
}

// A mass is never recognised: whatever is given its id was spelt as a force.
std::string ExplainForce(std::string_view spelling, CVeUnit unit)
{
    const unsigned int range = unit.GetRange();
    const std::string quoted = "“" + ShowText(spelling) + "”";
    const std::string force = DescribeUnit({Unit::UNIT_ID_FORCE, range, 1});
    for (const unsigned int each : RangesOf(Unit::UNIT_ID_MASS))
        if (each == range)
            return quoted + " is taken for a mass, " + DescribeUnit({Unit::UNIT_ID_MASS, range, 1}) +
                   "; the force is " + force;
    return quoted + " is taken for a mass, which has no range " + std::to_string(range) +
           ": symbol, title and coefficient are those that the unit had before; the force is " + force;
}

// What is odd about the forces in a text that is known: one sentence for each spelling.
std::string ExplainForces(std::string_view text)
{
    std::string notes;
    for (std::size_t begin = 0; begin <= text.size();)
    {
        const std::size_t end = std::min(text.find('/', begin), text.size());
        const std::string_view part = text.substr(begin, end - begin);
        begin = end + 1;
        CVeUnit unit;
        CVeUnitManager::UnitFromString(ToWideLossy(part).c_str(), unit);
        if (unit.GetIDUnit() != Unit::UNIT_ID_MASS)
            continue;
        const std::string note = ExplainForce(part, unit);
        if (notes.find(note) == std::string::npos)
            notes += (notes.empty() ? "" : "; ") + note;
    }
    return notes;
}

Recognition Recognise(const ValueText& value)
{
    Recognition result;
    if (value.problem)
        return result;
    result.status = CVeUnitManager::UnitFromString(ToWideLossy(value.text).c_str(), result.unit);
    if (result.status == CVeUnitManager::STATUS_OK)
        result.note = ExplainForces(value.text);
    return result;
}

class RecognitionWriter
{
public:
    explicit RecognitionWriter(bool json)
        : m_json(json)
    {
    }

    void WriteHeadings()
    {
        if (!m_json)
            WriteRow({"text", "status", "id", "range", "exponent", "symbol", "title", "coefficient"}, {});
    }

    void Write(const ValueText& value, Recognition& result)
    {
        if (m_json)
            return WriteJson(value, result);
        if (result.status != CVeUnitManager::STATUS_OK)
            return WriteRow({ShowText(value.text), StatusText(result.status)}, {});
        std::string coefficient;
        AppendShortest(coefficient, result.unit.GetCoef());
        WriteRow({ShowText(value.text), StatusText(result.status), std::to_string(result.unit.GetIDUnit()),
                  std::to_string(result.unit.GetRange()), std::to_string(result.unit.GetExponent()),
                  ToUtf8(result.unit.GetName().GetString()), ToUtf8(result.unit.GetTitle()), coefficient},
                 result.note);
    }

    void Flush() { m_output.Flush(); }

private:
    // Columns of one width for texts of any number, which are answered one by one.
    void WriteRow(const std::vector<std::string>& cells, const std::string& note)
    {
        constexpr std::size_t c_widths[] = {12, 8, 4, 7, 10, 14, 30, 0};
        std::string line;
        for (std::size_t column = 0; column < cells.size(); ++column)
        {
            const std::size_t width = CountCodePoints(cells[column]);
            line += cells[column] + (width < c_widths[column] ? std::string(c_widths[column] - width, ' ') : "  ");
        }
        line.erase(line.find_last_not_of(' ') + 1);
        m_output.Write(line + (note.empty() ? "" : "  note: " + note) + "\n");
    }

    void WriteJson(const ValueText& value, Recognition& result)
    {
        JsonWriter json;
        json.Begin();
        if (value.line != 0)
            json.Add("line", value.line);
        json.Add("input", RepairUtf8(value.text));
        json.Add("status", StatusText(result.status));
        if (result.status == CVeUnitManager::STATUS_OK)
        {
            json.Add("id", std::uint64_t{result.unit.GetIDUnit()});
            json.Add("range", std::uint64_t{result.unit.GetRange()});
            json.Add("exponent", double(result.unit.GetExponent()));
            json.Add("symbol", ToUtf8(result.unit.GetName().GetString()));
            json.Add("title", ToUtf8(result.unit.GetTitle()));
            json.Add("coefficient", result.unit.GetCoef());
        }
        if (!result.note.empty())
            json.Add("note", result.note);
        m_output.Write(json.End());
    }

    bool m_json;
    Output m_output;
};

int RunRecognise(const RecogniseSettings& settings)
{
    RecognitionWriter writer(settings.json);
    const std::unique_ptr<ValueSource> texts =
        OpenValues(settings.texts, settings.source, [&writer](std::uint64_t) { writer.Flush(); });
    if (!texts->File())
        writer.WriteHeadings();
    bool anyUnknown = false;
    ValueText value;
    while (texts->Next(value))
    {
        Recognition result = Recognise(value);
        anyUnknown = anyUnknown || result.status == CVeUnitManager::STATUS_UNKNOWN;
        writer.Write(value, result);
    }
    writer.Flush();
    return anyUnknown ? c_exitSomeFailed : c_exitDone;
}

}  // namespace

Command MakeRecogniseCommand(CLI::App& program)
{
    const auto settings = std::make_shared<RecogniseSettings>();
    CLI::App* const command = program.add_subcommand("recognise", "Tell which unit a host takes a text for");
    command->add_option("texts", settings->texts)->option_text("[TEXT...]");
    AddSourceOptions(*command, settings->source);
    command->add_flag(
        "--json", settings->json,
        "One JSON object per line: line, input, status, id, range, exponent, symbol, title, coefficient, note");
    command->footer(c_help);
    return {command, [settings]
            {
                return RunRecognise(*settings);
            }};
}
