#include "cli/Report.h"

#include <CLI/CLI.hpp>
#include <optional>

#include "cli/Failure.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/Progress.h"
#include "cli/QuantityReader.h"
#include "cli/Utf8.h"

namespace
{

constexpr std::string_view c_blanks = " \t";
class Reporter
{
public:
    explicit Reporter(const ReportSettings& settings)
        : m_settings(settings)
    {
    }

    // Results go off before the input is waited for; the bar comes back after them.
    void BeforeRead(std::uint64_t bytes)
    {
        if (m_progress && m_showsOutput)
            m_progress->Hide();
        m_output.Flush();
        if (m_progress)
            m_progress->Update(bytes, m_values);
    }

    void ShowProgress(const System::InputFile& file)
    {
        m_showsOutput = System::IsTerminal(System::Stream::Output);
        m_progress.emplace(file.Size(), !file.IsTerminal(), "values");
    }

    void Blank(const ValueText& value)
    {
        ++m_values;
        if (m_settings.json)
            return WriteJson(value, nullptr, {});
        m_output.Write("\n");
    }

    void Good(const ValueText& value, const ValueResult& result)
    {
        ++m_values;
        if (m_settings.json)
            return WriteJson(value, &result, {});
        m_output.Write(result.text);
        m_output.Write("\n");
    }

    void Bad(const ValueText& value, std::string_view expected)
    {
        ++m_values;
        m_anyFailed = true;
        if (m_progress)
            m_progress->Hide();
        const std::string place = value.line == 0 ? "" : "line " + std::to_string(value.line) + ": ";
        WriteMessage(place + "“" + ShowText(value.text) + "”" + ": " + std::string(expected));
        if (m_settings.json)
            return WriteJson(value, nullptr, expected);
        if (value.line != 0)
            m_output.Write("\n");
    }

    int Finish()
    {
        m_progress.reset();
        m_output.Flush();
        return m_anyFailed ? c_exitSomeFailed : c_exitDone;
    }

private:
    void WriteJson(const ValueText& value, const ValueResult* result, std::string_view error)
    {
        m_json.Begin();
        if (value.line != 0)
            m_json.Add("line", value.line);
        if (FindInvalidUtf8(value.text) == std::string_view::npos)
            m_json.Add("input", value.text);
        else
            m_json.Add("input", RepairUtf8(value.text));
        if (!error.empty())
            m_json.Add("error", error);
        else if (!result)
            m_json.AddNull("value");
        else
        {
            m_json.Add("value", result->value);
            m_json.Add("unit", m_settings.unit);
            m_json.Add("text", result->text);
        }
        m_output.Write(m_json.End());
    }

    const ReportSettings& m_settings;
    Output m_output;
    JsonWriter m_json;
    std::optional<Progress> m_progress;
    bool m_showsOutput = false;
    bool m_anyFailed = false;
    std::uint64_t m_values = 0;
};

void ReportValue(const ValueText& value, const ValueFunction& function, ValueResult& result, Reporter& reporter)
{
    if (value.problem)
        return reporter.Bad(value, value.problem);
    const std::size_t invalid = FindInvalidUtf8(value.text);
    if (invalid != std::string_view::npos)
        return reporter.Bad(value, "expected UTF-8 text, which byte " + std::to_string(invalid + 1) + " is not");
    if (value.text.find_first_not_of(c_blanks) == std::string_view::npos)
        return value.line == 0 ? reporter.Bad(value, "expected a value") : reporter.Blank(value);
    result.isGood = false;
    function(value.text, result);
    if (result.isGood)
        return reporter.Good(value, result);
    reporter.Bad(value, result.expected);
}

}  // namespace

void AddReportOptions(CLI::App& command, ReportSettings& settings)
{
    command.add_flag("--json", settings.json, "One JSON object per line: line, input, value, unit, text; or error");
}

int ReportValues(std::vector<std::string> arguments, const SourceSettings& source, const ReportSettings& settings,
                 const ValueFunction& function)
{
    Reporter reporter(settings);
    const std::unique_ptr<ValueSource> values =
        OpenValues(std::move(arguments), source, [&reporter](std::uint64_t bytes) { reporter.BeforeRead(bytes); });
    if (values->File())
        reporter.ShowProgress(*values->File());
    ValueText value;
    ValueResult result;
    try
    {
        while (values->Next(value))
            ReportValue(value, function, result, reporter);
    }
    catch (const StreamError&)
    {
        reporter.Finish();
        throw;
    }
    return reporter.Finish();
}

int ReportQuantities(std::vector<std::string> arguments, const SourceSettings& source, const ReportSettings& settings,
                     QuantityReader& reader, const std::function<void(double si, ValueResult& result)>& write)
{
    return ReportValues(std::move(arguments), source, settings,
                        [&](std::string_view text, ValueResult& result)
                        {
                            const std::optional<double> si = reader.Read(text);
                            result.isGood = si.has_value();
                            if (!si)
                            {
                                result.expected = reader.Expected();
                                return;
                            }
                            result.text.clear();
                            write(*si, result);
                        });
}
