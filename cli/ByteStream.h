#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/platform/System.h"

/// A file or standard input as a run of bytes, read a block at a time and never held whole. A byte-order mark in front
/// is skipped.
class ByteStream
{
public:
    /// name        what messages call it: a file name, or "standard input"
    /// beforeRead  called before each read, which may have to wait, with the number of bytes read so far: the place to
    ///             send off what has been written
    ByteStream(System::InputFile file, std::string name, std::function<void(std::uint64_t)> beforeRead);

    /// The bytes at hand, at least one; empty at the end. Throws StreamError when the input cannot be read.
    std::string_view Peek();
    void Skip(std::size_t count) { m_begin += count; }

    /// Reads up to the next "\n" into `line`, without it and without a "\r" before it. False at the end of the input.
    /// A line longer than c_longestText is cut there.
    bool ReadLine(std::string& line);

    const System::InputFile& File() const { return m_file; }
    const std::string& Name() const { return m_name; }

    /// Texts longer than this are cut, so that input without line ends takes no memory out of proportion.
    static constexpr std::size_t c_longestText = 1 << 20;

private:
    bool Fill();
    bool Read();

    System::InputFile m_file;
    std::string m_name;
    std::function<void(std::uint64_t)> m_beforeRead;
    std::vector<char> m_block;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::uint64_t m_total = 0;
    bool m_started = false;
};

/// A file, or standard input for "-". Throws UsageError when it cannot be opened.
ByteStream OpenByteStream(const std::string& path, std::function<void(std::uint64_t)> beforeRead);

/// Appends as much of the text as c_longestText leaves room for.
void AppendBounded(std::string& out, std::string_view text);
