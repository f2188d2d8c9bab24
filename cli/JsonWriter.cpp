#include "cli/JsonWriter.h"

#include <charconv>
#include <cmath>

namespace
{

void AppendEscaped(std::string& out, std::string_view text)
{
    constexpr char c_hexDigits[] = "0123456789abcdef";
    for (const char character : text)
    {
        const unsigned char byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\')
            out.push_back('\\');
        if (byte >= 0x20)
            out.push_back(character);
        else if (character == '\n')
            out.append("\\n");
        else
        {
            out.append("\\u00");
            out.push_back(c_hexDigits[byte >> 4]);
            out.push_back(c_hexDigits[byte & 0xF]);
        }
    }
}

}  // namespace

void JsonWriter::Begin()
{
    m_line.clear();
    m_line.push_back('{');
}

void JsonWriter::AddKey(std::string_view key)
{
    if (m_line.size() > 1)
        m_line.push_back(',');
    m_line.push_back('"');
    m_line.append(key).append("\":");
}

void JsonWriter::Add(std::string_view key, std::string_view text)
{
    AddKey(key);
    m_line.push_back('"');
    AppendEscaped(m_line, text);
    m_line.push_back('"');
}

void JsonWriter::Add(std::string_view key, double number)
{
    if (!std::isfinite(number))
        return AddNull(key);
    AddKey(key);
    AppendShortest(m_line, number);
}

void JsonWriter::Add(std::string_view key, std::uint64_t number)
{
    AddKey(key);
    m_line.append(std::to_string(number));
}

void JsonWriter::Add(std::string_view key, std::int64_t number)
{
    AddKey(key);
    m_line.append(std::to_string(number));
}

void JsonWriter::AddFlag(std::string_view key, bool flag)
{
    AddKey(key);
    m_line.append(flag ? "true" : "false");
}

void JsonWriter::AddNull(std::string_view key)
{
    AddKey(key);
    m_line.append("null");
}

std::string_view JsonWriter::End()
{
    m_line.append("}\n");
    return m_line;
}

void AppendShortest(std::string& out, double number)
{
    char text[32];  // the shortest form of a double has 24 characters at most: -1.2345678901234567e-308
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, number);
    out.append(text, result.ptr);
}
