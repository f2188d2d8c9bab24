#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// One JSON object on one line. Texts are well-formed UTF-8; numbers are the shortest text that reads back to the same
/// double, and null when they are not finite, which JSON cannot say.
class JsonWriter
{
public:
    void Begin();
    void Add(std::string_view key, std::string_view text);
    void Add(std::string_view key, double number);
    void Add(std::string_view key, std::uint64_t number);
    void Add(std::string_view key, std::int64_t number);
    void AddFlag(std::string_view key, bool flag);
    void AddNull(std::string_view key);

    /// The whole line, its "\n" included; valid until the next Begin.
    std::string_view End();

private:
    void AddKey(std::string_view key);

    std::string m_line;
};

/// Appends the shortest text that reads back to the same double: 0.1, 1e-06, 12500.
void AppendShortest(std::string& out, double number);
