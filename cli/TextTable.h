#pragma once

#include <string>
#include <vector>

class Output;

/// A table of texts in aligned columns, its headings first. Two blanks separate the columns, and no line ends in blanks.
class TextTable
{
public:
    enum class Align
    {
        Left,
        Right,  ///< whole numbers
    };

    struct Column
    {
        std::string heading;
        Align align = Align::Left;
    };

    explicit TextTable(std::vector<Column> columns);

    /// One text for each column, well-formed UTF-8.
    void Add(std::vector<std::string> row);

    void Write(Output& output) const;

private:
    void WriteRow(Output& output, const std::vector<std::string>& row, const std::vector<std::size_t>& widths) const;

    std::vector<Column> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};
