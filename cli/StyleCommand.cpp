#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <array>
#include <map>
#include <memory>
#include <optional>

#include "cli/Failure.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/Quantities.h"
#include "cli/StyleCheck.h"
#include "cli/StyleFile.h"
#include "cli/TextSettings.h"
#include "cli/TextTable.h"
#include "cli/UnitLookup.h"
#include "cli/Utf8.h"

namespace
{

constexpr const char* c_help = R"(A style file holds the 26 display units of a host, one for each quantity.

Examples:
  vetools style new site.vus                     # the units that a host starts with
  vetools style set site.vus force kN -p 1
  vetools style show site.vus
  vetools style diff site.vus site.vus
  vetools style check site.vus

"vetools style set --help" and so on teach each by examples.)";

constexpr const char* c_showHelp = R"(Examples:
  vetools style show site.vus
  vetools style show site.vus --json             # one object per unit and line
  vetools style show old.vus --loader unnamed

Files of version 1001 and below lack the units 22 to 26, which are shown as a new host has them. Of files up to
version 1000 the library's two loaders skip different records: the one that is given the style's name skips 13
and 14, the one that is not skips 12. The column note says which.
Exit code: 0 done, 1 the file is damaged (shown is what the library makes of it), 2 wrong usage or no such file.)";

constexpr const char* c_newHelp = R"(Examples:
  vetools style new site.vus                     # the units that a host starts with
  vetools style new defaults.vus --defaults      # those it goes back to

The two sets differ. A file that is there already is replaced.
Exit code: 0 done, 1 the file cannot be written, 2 wrong usage.)";

constexpr const char* c_setHelp = R"(Examples:
  vetools style set site.vus 2 kN                # forces in kN, with as many decimals as before
  vetools style set site.vus force 2 -p 1        # the same by name and range, with one decimal
  vetools style set site.vus length "' / \"" -p 4
  vetools style set site.vus 5 --precision 3     # the unit stays

“vetools units” lists the quantities, ranges and symbols. A file of an older version becomes one of version
1002; what it lacks is as a new host has it.
Exit code: 0 done, 1 the file is damaged or cannot be written, 2 wrong usage or no such file.)";

constexpr const char* c_diffHelp = R"(Examples:
  vetools style diff site.vus site.vus           # prints nothing
  vetools style diff site.vus defaults.vus
  vetools style diff site.vus defaults.vus --json

Exit code: 0 the units are the same, 1 some differ, 2 wrong usage, a file is damaged or is not there.)";

constexpr const char* c_checkHelp = R"(Examples:
  vetools style check site.vus
  vetools style check site.vus defaults.vus
  vetools style check site.vus --json            # one object per problem and line

Names each byte from which a file is not what the library writes; bytes are counted from 0. Titles are compared
with the library's own: those that a host saved in another language are named, although loading mends them.
Notes tell what is unusual in a file that is whole.
Exit code: 0 the file is whole, 1 something is wrong with it, 2 wrong usage or no such file.)";

struct StyleSettings
{
    std::string file;
    std::string otherFile;
    std::vector<std::string> files;
    std::string quantity;
    std::string unit;
    std::optional<unsigned int> precision;
    StyleLoader loader = StyleLoader::Named;
    bool defaults = false;
    bool json = false;
};

// A style that is read, and what its bytes say.
struct OpenedStyle
{
    StyleFile file;
    StyleReport report;
    std::unique_ptr<CVeUnitManager> manager;
};

OpenedStyle OpenStyle(const std::string& path, StyleLoader loader)
{
    StyleFile file(path);
    const StyleReport report = CheckStyle(file.Read());
    std::unique_ptr<CVeUnitManager> manager = file.Load(loader);
    return {std::move(file), report, std::move(manager)};
}

std::string DescribeDamage(const OpenedStyle& style)
{
    return style.file.Path() + " is damaged; “vetools style check” says where";
}

std::string ShortestText(double number)
{
    std::string text;
    AppendShortest(text, number);
    return text;
}

// "13, 14", and "22 to 26" for more than two ids without a gap.
std::string ListSkipped(int version, StyleLoader loader)
{
    std::string list;
    for (unsigned int id = 1; id <= c_unitCount; ++id)
    {
        if (HasStyleRecord(id, version, loader))
            continue;
        unsigned int last = id;
        while (last < c_unitCount && !HasStyleRecord(last + 1, version, loader))
            ++last;
        list += (list.empty() ? "" : ", ") + std::to_string(id) + (last > id + 1 ? " to " + std::to_string(last) : "");
        id = last > id + 1 ? last : id;
    }
    return list;
}

std::string DescribeSkipping(unsigned int id, int version)
{
    const bool byNamed = !HasStyleRecord(id, version, StyleLoader::Named);
    const bool byUnnamed = !HasStyleRecord(id, version, StyleLoader::Unnamed);
    if (byNamed && byUnnamed)
        return "not in the file";
    if (byNamed)
        return "skipped by name";
    return byUnnamed ? "skipped without a name" : "";
}

// --- show ------------------------------------------------------------------------------------------------------------

std::string DescribeOddity(unsigned int id, const CVeUnitBase& unit, int version)
{
    std::string note = DescribeSkipping(id, version);
    if (unit.GetIDUnit() != id)
        note += (note.empty() ? "" : ", ") + std::string("a unit of id ") + std::to_string(unit.GetIDUnit());
    return note;
}

void WriteShownTable(Output& output, const OpenedStyle& style, const StyleSettings& settings)
{
    const int version = style.report.version;
    output.Write(style.file.Path() + ": version " + std::to_string(version) + "\n");
    constexpr TextTable::Align c_right = TextTable::Align::Right;
    TextTable table({{"id", c_right},
                     {"quantity"},
                     {"range", c_right},
                     {"symbol"},
                     {"title"},
                     {"precision", c_right},
                     {"format"},
                     {"separator"},
                     {"coefficient"},
                     {"note"}});
    for (const Quantity& quantity : Quantities())
    {
        CVeUnit& unit = style.manager->GetVisUnit(quantity.id);
        table.Add({std::to_string(quantity.id), quantity.name, std::to_string(unit.GetRange()),
                   ToUtf8(unit.GetName().GetString()), ToUtf8(unit.GetTitle()), std::to_string(unit.GetPrecision()),
                   DescribeFormat(unit.GetUnitFormat()), ToUtf8(std::wstring(1, unit.GetSep())),
                   ShortestText(unit.GetCoef()), DescribeOddity(quantity.id, unit, version)});
    }
    table.Write(output);

    const std::string named = ListSkipped(version, StyleLoader::Named);
    const std::string unnamed = ListSkipped(version, StyleLoader::Unnamed);
    const std::string& skipped = settings.loader == StyleLoader::Named ? named : unnamed;
    if (!skipped.empty())
        output.Write("note: the units " + skipped + " are those of a new host, for no record of theirs was read\n");
    if (named != unnamed)
        output.Write("note: of version " + std::to_string(version) + " a load by name skips the records " + named +
                     ", a load without a name " + unnamed + "; this one holds those of a load " +
                     (style.report.loader == StyleLoader::Named ? "by name" : "without a name") + "\n");
}

void WriteShownJson(Output& output, const OpenedStyle& style)
{
    JsonWriter json;
    const int version = style.report.version;
    for (const Quantity& quantity : Quantities())
    {
        CVeUnit& unit = style.manager->GetVisUnit(quantity.id);
        json.Begin();
        json.Add("version", double(version));
        json.Add("id", std::uint64_t{quantity.id});
        json.Add("quantity", quantity.name);
        json.Add("unitId", std::uint64_t{unit.GetIDUnit()});
        json.Add("range", std::uint64_t{unit.GetRange()});
        json.Add("symbol", ToUtf8(unit.GetName().GetString()));
        json.Add("title", ToUtf8(unit.GetTitle()));
        json.Add("precision", std::uint64_t{unit.GetPrecision()});
        json.Add("format", DescribeFormat(unit.GetUnitFormat()));
        json.Add("separator", ToUtf8(std::wstring(1, unit.GetSep())));
        json.Add("coefficient", unit.GetCoef());
        json.AddFlag("skippedByName", !HasStyleRecord(quantity.id, version, StyleLoader::Named));
        json.AddFlag("skippedWithoutName", !HasStyleRecord(quantity.id, version, StyleLoader::Unnamed));
        output.Write(json.End());
    }
}

int RunShow(const StyleSettings& settings)
{
    const OpenedStyle style = OpenStyle(settings.file, settings.loader);
    Output output;
    if (settings.json)
        WriteShownJson(output, style);
    else
        WriteShownTable(output, style, settings);
    output.Flush();
    if (style.report.IsWhole())
        return c_exitDone;
    WriteMessage(DescribeDamage(style));
    return c_exitSomeFailed;
}

// --- new and set -----------------------------------------------------------------------------------------------------

int RunNew(const StyleSettings& settings)
{
    const StyleFile file(settings.file);
    const std::unique_ptr<CVeUnitManager> manager = file.NewManager();
    if (settings.defaults)
        manager->LoadDefaultUnits();
    file.Save(*manager);
    return c_exitDone;
}

const Quantity& FindRequiredQuantity(const std::string& text)
{
    const Quantity* const quantity = FindQuantity(text);
    if (!quantity)
        throw UsageError("“" + text + "” is no quantity: expected an id from 1 to 26, or a name such as force");
    return *quantity;
}

unsigned int FindRange(const Quantity& quantity, const std::string& text)
{
    const UnitLookup lookup;
    const UnitChoice unit = lookup.Resolve(std::to_string(quantity.id) + ":" + text);
    if (unit.exponent != 1)
        throw UsageError("“" + text + "”: a style holds no powers of units");
    return unit.range;
}

int RunSet(const StyleSettings& settings)
{
    const Quantity& quantity = FindRequiredQuantity(settings.quantity);
    if (settings.unit.empty() && !settings.precision)
        throw UsageError("nothing to set: expected a range, a symbol or --precision");
    const OpenedStyle style = OpenStyle(settings.file, StyleLoader::Named);
    if (!style.report.IsWhole())
        throw StreamError(DescribeDamage(style));
    CVeUnit& unit = style.manager->GetVisUnit(quantity.id);
    const unsigned int range = settings.unit.empty() ? unit.GetRange() : FindRange(quantity, settings.unit);
    constexpr unsigned int c_keepsPrecision = 0xFFFFFFFF;
    CheckPrecision(settings.precision.value_or(0), MakeUnitOf({quantity.id, range, 1}));
    style.manager->SetVisUnit(quantity.id, range, settings.precision.value_or(c_keepsPrecision));
    style.file.Save(*style.manager);
    return c_exitDone;
}

// --- diff ------------------------------------------------------------------------------------------------------------

struct Property
{
    const char* name;
    std::string (*text)(CVeUnit& unit);
};

constexpr Property c_properties[] = {
    {"unit",
     [](CVeUnit& unit)
     {
         return std::to_string(unit.GetIDUnit()) + ":" + std::to_string(unit.GetRange());
     }},
    {"symbol",
     [](CVeUnit& unit)
     {
         return ToUtf8(unit.GetName().GetString());
     }},
    {"title",
     [](CVeUnit& unit)
     {
         return ToUtf8(unit.GetTitle());
     }},
    {"coefficient",
     [](CVeUnit& unit)
     {
         return ShortestText(unit.GetCoef());
     }},
    {"format",
     [](CVeUnit& unit)
     {
         return std::string(DescribeFormat(unit.GetUnitFormat()));
     }},
    {"precision",
     [](CVeUnit& unit)
     {
         return std::to_string(unit.GetPrecision());
     }},
};

OpenedStyle OpenWhole(const std::string& path)
{
    OpenedStyle style = OpenStyle(path, StyleLoader::Named);
    if (!style.report.IsWhole())
        throw UsageError(DescribeDamage(style));
    return style;
}

int RunDiff(const StyleSettings& settings)
{
    const OpenedStyle left = OpenWhole(settings.file);
    const OpenedStyle right = OpenWhole(settings.otherFile);
    TextTable table(
        {{"id", TextTable::Align::Right}, {"quantity"}, {"property"}, {left.file.Path()}, {right.file.Path()}});
    Output output;
    JsonWriter json;
    bool isSame = true;
    for (const Quantity& quantity : Quantities())
        for (const Property& property : c_properties)
        {
            const std::string leftText = property.text(left.manager->GetVisUnit(quantity.id));
            const std::string rightText = property.text(right.manager->GetVisUnit(quantity.id));
            if (leftText == rightText)
                continue;
            isSame = false;
            table.Add({std::to_string(quantity.id), quantity.name, property.name, leftText, rightText});
            json.Begin();
            json.Add("id", std::uint64_t{quantity.id});
            json.Add("quantity", quantity.name);
            json.Add("property", property.name);
            json.Add("left", leftText);
            json.Add("right", rightText);
            if (settings.json)
                output.Write(json.End());
        }
    if (!isSame && !settings.json)
        table.Write(output);
    output.Flush();
    return isSame ? c_exitDone : c_exitSomeFailed;
}

// --- check -----------------------------------------------------------------------------------------------------------

std::string DescribeFinding(const StyleFinding& finding)
{
    std::string text = "byte " + std::to_string(finding.byte) + ": ";
    if (finding.id != 0)
        text += "record of unit id " + std::to_string(finding.id) + ": ";
    if (!finding.field.empty())
        text += finding.field + ": ";
    return text + finding.text;
}

void WriteFindingJson(Output& output, const std::string& path, const StyleFinding& finding)
{
    JsonWriter json;
    json.Begin();
    json.Add("file", path);
    json.Add("kind", finding.kind == StyleFinding::Kind::Note ? "note" : "problem");
    json.Add("byte", std::uint64_t{finding.byte});
    if (finding.id != 0)
        json.Add("record", std::uint64_t{finding.id});
    if (!finding.field.empty())
        json.Add("field", finding.field);
    json.Add("text", finding.text);
    output.Write(json.End());
}

bool CheckFile(Output& output, const std::string& path, bool json)
{
    const StyleFile file(path);
    const StyleReport report = CheckStyle(file.Read());
    for (const StyleFinding& finding : report.findings)
    {
        const char* const mark = finding.kind == StyleFinding::Kind::Note ? "note: " : "";
        if (json)
            WriteFindingJson(output, file.Path(), finding);
        else
            output.Write(file.Path() + ": " + mark + DescribeFinding(finding) + "\n");
    }
    if (report.IsWhole() && !json)
        output.Write(file.Path() + ": whole, version " + std::to_string(report.version) + ", " +
                     std::to_string(report.records) + " units\n");
    return report.IsWhole();
}

int RunCheck(const StyleSettings& settings)
{
    Output output;
    bool areWhole = true;
    for (const std::string& path : settings.files)
        areWhole = CheckFile(output, path, settings.json) && areWhole;
    output.Flush();
    return areWhole ? c_exitDone : c_exitSomeFailed;
}

// --- arguments -------------------------------------------------------------------------------------------------------

struct Action
{
    CLI::App* arguments;
    int (*run)(const StyleSettings& settings);
};

CLI::App* AddAction(CLI::App& style, const char* name, const char* description, const char* help,
                    StyleSettings& settings)
{
    CLI::App* const action = style.add_subcommand(name, description);
    action->add_option("file", settings.file)->option_text("FILE")->required();
    action->footer(help);
    return action;
}

void AddJsonOption(CLI::App& action, StyleSettings& settings, const char* description)
{
    action.add_flag("--json", settings.json, description);
}

Action AddShow(CLI::App& style, StyleSettings& settings)
{
    CLI::App* const action = AddAction(style, "show", "Show the units of a style file", c_showHelp, settings);
    const std::map<std::string, StyleLoader> loaders = {{"named", StyleLoader::Named},
                                                        {"unnamed", StyleLoader::Unnamed}};
    action->add_option("--loader", settings.loader, "Read the file as hosts do that give its name, or that do not")
        ->transform(CLI::CheckedTransformer(loaders))
        ->option_text("named|unnamed (named)");
    AddJsonOption(*action, settings, "One JSON object per unit and line");
    return {action, RunShow};
}

Action AddNew(CLI::App& style, StyleSettings& settings)
{
    CLI::App* const action = AddAction(style, "new", "Make a style file", c_newHelp, settings);
    action->add_flag("--defaults", settings.defaults, "The units that a host goes back to, not those it starts with");
    return {action, RunNew};
}

Action AddSet(CLI::App& style, StyleSettings& settings)
{
    CLI::App* const action = AddAction(style, "set", "Change one unit of a style file", c_setHelp, settings);
    action->add_option("quantity", settings.quantity, "Id or English name of a quantity")
        ->option_text("ID")
        ->required();
    action->add_option("unit", settings.unit, "Range, symbol or title of the unit")->option_text("[RANGE|SYMBOL]");
    AddPrecisionOption(*action, [&settings](unsigned int precision) { settings.precision = precision; })
        ->option_text("N");
    return {action, RunSet};
}

Action AddDiff(CLI::App& style, StyleSettings& settings)
{
    CLI::App* const action =
        AddAction(style, "diff", "Tell in which units two style files differ", c_diffHelp, settings);
    action->add_option("other", settings.otherFile)->option_text("FILE")->required();
    AddJsonOption(*action, settings, "One JSON object per difference and line");
    return {action, RunDiff};
}

Action AddCheck(CLI::App& style, StyleSettings& settings)
{
    CLI::App* const action = style.add_subcommand("check", "Tell what is wrong with style files");
    action->add_option("files", settings.files)->option_text("FILE...")->required();
    action->footer(c_checkHelp);
    AddJsonOption(*action, settings, "One JSON object per problem and note and line");
    return {action, RunCheck};
}

}  // namespace

Command MakeStyleCommand(CLI::App& program)
{
    const auto settings = std::make_shared<StyleSettings>();
    CLI::App* const style = program.add_subcommand("style", "Show, make, change, compare and check style files");
    style->require_subcommand(1);
    style->footer(c_help);
    const std::array<Action, 5> actions = {AddShow(*style, *settings), AddNew(*style, *settings),
                                           AddSet(*style, *settings), AddDiff(*style, *settings),
                                           AddCheck(*style, *settings)};
    return {style, [settings, actions]
            {
                for (const Action& action : actions)
                    if (action.arguments->parsed())
                        return action.run(*settings);
                return static_cast<int>(c_exitUsage);
            }};
}
