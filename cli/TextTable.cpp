#include "cli/TextTable.h"

#include <algorithm>

#include "cli/Output.h"
#include "cli/Utf8.h"

TextTable::TextTable(std::vector<Column> columns)
    : m_columns(std::move(columns))
{
    std::vector<std::string> headings;
    for (const Column& column : m_columns)
        headings.push_back(column.heading);
    m_rows.push_back(std::move(headings));
}

void TextTable::Add(std::vector<std::string> row)
{
    m_rows.push_back(std::move(row));
}

void TextTable::Write(Output& output) const
{
    std::vector<std::size_t> widths(m_columns.size());
    for (const std::vector<std::string>& row : m_rows)
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] = std::max(widths[column], CountCodePoints(row[column]));
    for (const std::vector<std::string>& row : m_rows)
        WriteRow(output, row, widths);
}

void TextTable::WriteRow(Output& output, const std::vector<std::string>& row,
                         const std::vector<std::size_t>& widths) const
{
    std::string line;
    for (std::size_t column = 0; column < widths.size(); ++column)
    {
        const std::string padding(widths[column] - CountCodePoints(row[column]), ' ');
        const bool isRight = m_columns[column].align == Align::Right;
        line += (column == 0 ? "" : "  ") + (isRight ? padding + row[column] : row[column] + padding);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    output.Write(line + "\n");
}
