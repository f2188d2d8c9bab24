#include "cli/CsvReader.h"

#include <algorithm>

namespace
{

// A record of more fields than this is not a table a person made; its later fields are left out.
constexpr std::size_t c_mostFields = 1 << 16;

}  // namespace

bool CsvReader::Read(Record& record)
{
    record.count = 0;
    record.problem = nullptr;
    if (!SkipEmptyLines())
        return false;
    record.line = m_line;
    FieldEnd end = FieldEnd::Delimiter;
    while (end == FieldEnd::Delimiter)
    {
        if (record.fields.size() == record.count)
            record.fields.emplace_back();
        end = ReadField(record.fields[record.count], record.problem);
        record.count = std::min(record.count + 1, c_mostFields);
    }
    return true;
}

// Leaves the input at a record, or answers false at its end.
bool CsvReader::SkipEmptyLines()
{
    for (std::string_view bytes = m_input.Peek(); !bytes.empty(); bytes = m_input.Peek())
    {
        if (bytes.front() != '\n' && bytes.front() != '\r')
            return true;
        m_line += bytes.front() == '\n';
        m_input.Skip(1);
    }
    return false;
}

CsvReader::FieldEnd CsvReader::ReadField(std::string& field, const char*& problem)
{
    field.clear();
    if (!ConsumeQuote())
        return ReadUnquoted(field);
    ReadQuoted(field, problem);
    const std::size_t length = field.size();
    const FieldEnd end = ReadUnquoted(field);
    if (field.size() > length)
        problem = "text after a closing quote";
    return end;
}

// Up to and including the closing quote; a doubled quote stands for one.
void CsvReader::ReadQuoted(std::string& field, const char*& problem)
{
    for (std::string_view bytes = m_input.Peek(); !bytes.empty(); bytes = m_input.Peek())
    {
        const std::size_t end = std::min(bytes.find('"'), bytes.size());
        m_line += static_cast<std::uint64_t>(
            std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
        AppendBounded(field, bytes.substr(0, end));
        if (end == bytes.size())
        {
            m_input.Skip(end);
            continue;
        }
        m_input.Skip(end + 1);
        if (!ConsumeQuote())
            return;
        AppendBounded(field, "\"");
    }
    problem = "a quote that is not closed";
}

// Appends up to the next delimiter or line end, which is taken.
CsvReader::FieldEnd CsvReader::ReadUnquoted(std::string& field)
{
    const std::size_t begin = field.size();
    const auto dropReturn = [&]
    {
        if (field.size() > begin && field.back() == '\r')
            field.pop_back();
    };
    for (std::string_view bytes = m_input.Peek(); !bytes.empty(); bytes = m_input.Peek())
    {
        const auto ends = [&](char character)
        {
            return character == m_delimiter || character == '\n';
        };
        const auto end = static_cast<std::size_t>(std::find_if(bytes.begin(), bytes.end(), ends) - bytes.begin());
        AppendBounded(field, bytes.substr(0, end));
        if (end == bytes.size())
        {
            m_input.Skip(end);
            continue;
        }
        m_input.Skip(end + 1);
        if (bytes[end] == m_delimiter)
            return FieldEnd::Delimiter;
        ++m_line;
        dropReturn();
        return FieldEnd::Record;
    }
    dropReturn();
    return FieldEnd::Input;
}

bool CsvReader::ConsumeQuote()
{
    const std::string_view bytes = m_input.Peek();
    if (bytes.empty() || bytes.front() != '"')
        return false;
    m_input.Skip(1);
    return true;
}
