#pragma once

#include <stdexcept>

/// What the program answers to its caller.
enum ExitCode : int
{
    c_exitDone = 0,
    c_exitSomeFailed = 1,  ///< some value failed, or the input or output did; the good values are written
    c_exitUsage = 2,       ///< the arguments make no sense; nothing is written
};

/// The arguments make no sense: what() says why, and what was expected.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The input cannot be read to its end, or the output not be written.
class StreamError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Nobody reads our output any more: the program ends without a word.
class OutputClosed : public std::exception
{
};
