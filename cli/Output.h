#pragma once

#include <string>
#include <string_view>

/// Standard output, in blocks. Text is UTF-8 with "\n" line ends, the same bytes on every system. Whoever waits for
/// input flushes first, so that a person or a program at the other end sees the answers to what it has sent.
class Output
{
public:
    Output();

    void Write(std::string_view text);

    /// Throws OutputClosed when nobody reads any more, StreamError when the text cannot be written.
    void Flush();

private:
    std::string m_pending;
};

/// A message of the program itself on standard error: "vetools: " and the text.
void WriteMessage(std::string_view text);
