#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/platform/System.h"

/// A file that others write to while it is read. It may be cut, or deleted and made anew: reading then goes on at the
/// beginning of what stands there. While nothing is read it stands in nobody's way.
class FollowedFile
{
public:
    /// Throws UsageError when there is no such file, or when it is none that can be followed, such as a pipe.
    explicit FollowedFile(std::string path);

    /// What has been added since the last call, a block at most; empty when that is nothing. Valid until the next call.
    std::string_view Read();

    /// The bytes of the last Read are the beginning of another text, even if there are none of it yet.
    bool HasRestarted() const { return m_hasRestarted; }

private:
    std::string_view ReadOn(System::InputFile& file);
    std::size_t ReadBlock(System::InputFile& file, std::uint64_t position);
    void StartOver();

    std::string m_path;
    std::optional<System::InputFile> m_file;  // only where an open file can be replaced
    System::FileIdentity m_identity;
    std::vector<char> m_block;
    std::uint64_t m_position = 0;
    std::string m_tail;  // what was read last, by which the text is known again
    bool m_hasRestarted = false;
};
