#include "cli/Output.h"

#include "cli/Failure.h"
#include "cli/platform/System.h"

namespace
{

constexpr std::size_t c_blockSize = 1 << 16;

}  // namespace

Output::Output()
{
    m_pending.reserve(2 * c_blockSize);
}

void Output::Write(std::string_view text)
{
    m_pending.append(text);
    if (m_pending.size() >= c_blockSize)
        Flush();
}

void Output::Flush()
{
    const System::WriteResult result = System::Write(System::Stream::Output, m_pending);
    m_pending.clear();
    if (result == System::WriteResult::Closed)
        throw OutputClosed();
    if (result == System::WriteResult::Failed)
        throw StreamError("standard output cannot be written");
}

void WriteMessage(std::string_view text)
{
    std::string line = "vetools: ";
    line.append(text).push_back('\n');
    System::Write(System::Stream::Error, line);
}
