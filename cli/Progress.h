#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

/// A bar on standard error for work that takes longer than a second, shown only when that is a terminal: the share of
/// the input that is done where its size is known, and how many values or the like that was.
class Progress
{
public:
    /// inputSize  bytes to come; nothing when that is not known
    /// wanted     false keeps it silent, as for input that a person types
    /// what       what is counted: "values"
    Progress(std::optional<std::uint64_t> inputSize, bool wanted, const char* what);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Cheap enough for every block of input. bytes and count are totals so far.
    void Update(std::uint64_t bytes, std::uint64_t count);

    /// Takes the bar off the screen, as before anything else is written there.
    void Hide();

private:
    using Clock = std::chrono::steady_clock;

    std::optional<std::uint64_t> m_inputSize;
    const char* m_what;
    bool m_enabled;
    bool m_shown = false;
    Clock::time_point m_nextDrawing;
};
