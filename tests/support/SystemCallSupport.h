#pragma once

#include <ostream>

#include "vetools/platform/Platform.h"

// Calls of the system are made with a last error that means nothing, and their result and the last error are checked together.

inline constexpr DWORD c_sentinel = 0xDEADBEEF;

struct Outcome
{
    bool succeeded;
    DWORD error;
    bool operator==(const Outcome&) const = default;
};

inline void PrintTo(const Outcome& outcome, std::ostream* out)
{
    *out << (outcome.succeeded ? "success" : "failure") << ", last error " << outcome.error;
}

inline constexpr Outcome c_done{true, c_sentinel};

constexpr Outcome Failed(DWORD error)
{
    return {false, error};
}

/// What a call gives that leaves the last error alone when it succeeds.
template <typename Call>
Outcome OutcomeOf(Call call)
{
    ::SetLastError(c_sentinel);
    const bool succeeded = call();
    const DWORD error = ::GetLastError();
    return {succeeded, succeeded ? c_sentinel : error};
}
