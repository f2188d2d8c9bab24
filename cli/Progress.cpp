#include "cli/Progress.h"

#include <algorithm>
#include <string>

#include "cli/platform/System.h"

namespace
{

constexpr std::chrono::milliseconds c_patience{1000};
constexpr std::chrono::milliseconds c_interval{100};
constexpr std::size_t c_barWidth = 30;

std::string BarText(std::uint64_t done, std::uint64_t whole)
{
    const double share = whole == 0 ? 1.0 : std::min(1.0, static_cast<double>(done) / static_cast<double>(whole));
    const std::size_t filled = static_cast<std::size_t>(share * c_barWidth);
    const std::string percentage = std::to_string(static_cast<int>(share * 100.0));
    return std::string(3 - percentage.size(), ' ') + percentage + " % [" + std::string(filled, '#') +
           std::string(c_barWidth - filled, '-') + "] ";
}

}  // namespace

Progress::Progress(std::optional<std::uint64_t> inputSize, bool wanted, const char* what)
    : m_inputSize(inputSize)
    , m_what(what)
    , m_enabled(wanted && System::IsTerminal(System::Stream::Error))
    , m_nextDrawing(Clock::now() + c_patience)
{
}

Progress::~Progress()
{
    Hide();
}

void Progress::Update(std::uint64_t bytes, std::uint64_t count)
{
    if (!m_enabled)
        return;
    const Clock::time_point now = Clock::now();
    if (now < m_nextDrawing)
        return;
    m_nextDrawing = now + c_interval;
    m_shown = true;
    std::string line = "\r";
    if (m_inputSize)
        line += BarText(bytes, *m_inputSize);
    line += std::to_string(count) + " " + m_what + " ";
    System::Write(System::Stream::Error, line);
}

void Progress::Hide()
{
    if (!m_shown)
        return;
    m_shown = false;
    System::Write(System::Stream::Error, "\r" + std::string(70, ' ') + "\r");
}
