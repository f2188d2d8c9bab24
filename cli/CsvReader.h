#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/ByteStream.h"

/// Reads comma-separated records as RFC 4180 writes them: fields in double quotes may hold delimiters, line breaks and
/// doubled quotes; records end with "\n" or "\r\n"; the last one may lack its line end. Lines without a character are
/// skipped. A quote in the middle of an unquoted field stands for itself.
class CsvReader
{
public:
    struct Record
    {
        std::vector<std::string>
            fields;  ///< the first `count` are the record's; the others keep their memory for later
        std::size_t count = 0;
        std::uint64_t line = 0;         ///< where the record starts, from 1
        const char* problem = nullptr;  ///< what is wrong with its quotes; null when nothing is
    };

    CsvReader(ByteStream& input, char delimiter)
        : m_input(input)
        , m_delimiter(delimiter)
    {
    }

    /// False at the end of the input. The record is reused from call to call.
    bool Read(Record& record);

private:
    enum class FieldEnd
    {
        Delimiter,
        Record,
        Input,
    };

    bool SkipEmptyLines();
    FieldEnd ReadField(std::string& field, const char*& problem);
    void ReadQuoted(std::string& field, const char*& problem);
    FieldEnd ReadUnquoted(std::string& field);
    bool ConsumeQuote();

    ByteStream& m_input;
    char m_delimiter;
    std::uint64_t m_line = 1;
};
