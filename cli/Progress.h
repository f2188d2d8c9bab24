#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

/// A bar on standard error for work that takes longer than a second, shown only when that is a terminal: the share of
/// the input that is done where its size is known, and the number of values.
class Progress
{
public:
    /// inputSize  bytes to come; nothing when that is not known
    /// wanted     false keeps it silent, as for input that a person types
    Progress(std::optional<std::uint64_t> inputSize, bool wanted);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Cheap enough for every block of input. bytes and values are totals so far.
    void Update(std::uint64_t bytes, std::uint64_t values);

    /// Takes the bar off the screen, as before anything else is written there.
    void Hide();

private:
    using Clock = std::chrono::steady_clock;

    std::optional<std::uint64_t> m_inputSize;
    bool m_enabled;
    bool m_shown = false;
    Clock::time_point m_nextDrawing;
};
