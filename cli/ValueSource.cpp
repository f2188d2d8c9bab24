#include "cli/ValueSource.h"

#include <CLI/CLI.hpp>

#include "cli/CsvReader.h"
#include "cli/Failure.h"
#include "cli/Quantities.h"
#include "cli/Utf8.h"

namespace
{

constexpr const char* c_tooLong = "longer than a megabyte";

class ArgumentValues : public ValueSource
{
public:
    explicit ArgumentValues(std::vector<std::string> texts)
        : m_texts(std::move(texts))
    {
    }

    bool Next(ValueText& value) override
    {
        if (m_next == m_texts.size())
            return false;
        value = {m_texts[m_next++], 0, nullptr};
        return true;
    }

    const System::InputFile* File() const override { return nullptr; }

private:
    std::vector<std::string> m_texts;
    std::size_t m_next = 0;
};

class LineValues : public ValueSource
{
public:
    explicit LineValues(ByteStream stream)
        : m_stream(std::move(stream))
    {
    }

    bool Next(ValueText& value) override
    {
        if (!m_stream.ReadLine(m_text))
            return false;
        value = {m_text, ++m_line, m_text.size() == ByteStream::c_longestText ? c_tooLong : nullptr};
        return true;
    }

    const System::InputFile* File() const override { return &m_stream.File(); }

private:
    ByteStream m_stream;
    std::string m_text;
    std::uint64_t m_line = 0;
};

class ColumnValues : public ValueSource
{
public:
    ColumnValues(ByteStream stream, const SourceSettings& settings)
        : m_stream(std::move(stream))
        , m_reader(m_stream, settings.delimiter)
    {
        const std::optional<unsigned int> number = ReadWholeNumber(settings.column);
        if (settings.hasHeader && !m_reader.Read(m_record))
            throw UsageError("--csv: expected a header and values, found nothing");
        m_column = number ? NumberedColumn(*number) : NamedColumn(settings);
        m_missing = "no column " + std::to_string(m_column + 1) + " in this row";
    }

    bool Next(ValueText& value) override
    {
        if (!m_reader.Read(m_record))
            return false;
        const bool isThere = m_column < m_record.count;
        value.text = isThere ? std::string_view(m_record.fields[m_column]) : std::string_view();
        value.line = m_record.line;
        value.problem = m_record.problem;
        if (!isThere)
            value.problem = m_missing.c_str();
        else if (!value.problem && value.text.size() == ByteStream::c_longestText)
            value.problem = c_tooLong;
        return true;
    }

    const System::InputFile* File() const override { return &m_stream.File(); }

private:
    std::size_t NumberedColumn(unsigned int number) const
    {
        if (number == 0)
            throw UsageError("--column: columns are numbered from 1");
        return number - 1;
    }

    std::size_t NamedColumn(const SourceSettings& settings) const
    {
        if (!settings.hasHeader)
            throw UsageError("--column: expected a number, for there is no header with names");
        std::string names;
        for (std::size_t index = 0; index < m_record.count; ++index)
        {
            if (m_record.fields[index] == settings.column)
                return index;
            names += (index == 0 ? "" : ", ") + RepairUtf8(m_record.fields[index]);
        }
        throw UsageError("--column: no column “" + settings.column + "”; there are: " + names);
    }

    ByteStream m_stream;
    CsvReader m_reader;
    CsvReader::Record m_record;
    std::size_t m_column = 0;
    std::string m_missing;
};

char ReadDelimiter(const std::string& text)
{
    if (text == "tab" || text == "\\t")
        return '\t';
    if (text.size() != 1 || text == "\"" || text == "\n" || text == "\r")
        throw CLI::ValidationError("--delimiter", "expected one character, or tab");
    return text.front();
}

}  // namespace

void AddSourceOptions(CLI::App& command, SourceSettings& settings)
{
    CLI::Option* const csv =
        command.add_option("--csv", settings.csvFile, "Take the values from a CSV file (- for standard input)")
            ->option_text("FILE");
    CLI::Option* const column =
        command.add_option("--column", settings.column, "Column of the values: its name, or its number from 1")
            ->option_text("NAME|N");
    csv->needs(column);
    column->needs(csv);
    command
        .add_option_function<std::string>(
            "--delimiter", [&settings](const std::string& text) { settings.delimiter = ReadDelimiter(text); },
            "What separates the columns; tab is understood")
        ->option_text("CHARACTER (,)")
        ->needs(csv);
    command
        .add_flag_callback(
            "--no-header", [&settings] { settings.hasHeader = false; }, "The first row holds values, not names")
        ->needs(csv);
}

std::unique_ptr<ValueSource> OpenValues(std::vector<std::string> arguments, const SourceSettings& settings,
                                        std::function<void(std::uint64_t)> beforeRead)
{
    if (!settings.csvFile.empty())
    {
        if (!arguments.empty())
            throw UsageError("“" + arguments.front() + "”: the values come from --csv, no other is expected");
        return std::make_unique<ColumnValues>(OpenByteStream(settings.csvFile, std::move(beforeRead)), settings);
    }
    const bool fromInput = arguments.empty() || (arguments.size() == 1 && arguments.front() == "-");
    if (fromInput)
        return std::make_unique<LineValues>(OpenByteStream("-", std::move(beforeRead)));
    return std::make_unique<ArgumentValues>(std::move(arguments));
}
