#include "cli/FollowedFile.h"

#include <algorithm>

#include "cli/Failure.h"

namespace
{

constexpr std::size_t c_blockSize = 1 << 20;
constexpr std::size_t c_longestTail = 256;  // holds the time of a log's entry, at least

}  // namespace

FollowedFile::FollowedFile(std::string path)
    : m_path(std::move(path))
    , m_block(c_blockSize)
{
    std::string problem;
    const std::optional<System::InputFile> file = System::InputFile::Open(m_path, problem);
    if (!file)
        throw UsageError(m_path + " cannot be opened: " + problem);
    if (!file->Size())
        throw UsageError("--follow: expected a file, which " + m_path + " is not");
    m_identity = file->Identity();
}

std::string_view FollowedFile::Read()
{
    m_hasRestarted = false;
    if (m_file)
    {
        const std::string_view text = ReadOn(*m_file);
        if (!text.empty() || m_hasRestarted)
            return text;
    }
    // The rest of a file comes before the one that has taken its place. None may stand there for a while.
    std::string ignored;
    std::optional<System::InputFile> file = System::InputFile::Open(m_path, ignored);
    if (!file)
        return {};
    if (file->Identity() != m_identity)
        StartOver();
    m_identity = file->Identity();
    m_file.reset();
    m_file.emplace(std::move(*file));
    const std::string_view text = ReadOn(*m_file);
    if (!System::c_openFilesAreReplaceable)
        m_file.reset();
    return text;
}

// What follows the tail, which must stand where it stood.
std::string_view FollowedFile::ReadOn(System::InputFile& file)
{
    std::string_view text(m_block.data(), ReadBlock(file, m_position - m_tail.size()));
    if (!text.starts_with(m_tail))
    {
        StartOver();
        text = std::string_view(m_block.data(), ReadBlock(file, 0));
    }
    text.remove_prefix(m_tail.size());
    m_position += text.size();
    m_tail.append(text.substr(text.size() - std::min(text.size(), c_longestTail)));
    m_tail.erase(0, m_tail.size() - std::min(m_tail.size(), c_longestTail));
    return text;
}

std::size_t FollowedFile::ReadBlock(System::InputFile& file, std::uint64_t position)
{
    std::string problem;
    std::size_t size = 0;
    if (!file.Seek(position))
        throw StreamError(m_path + " cannot be read");
    while (size < m_block.size())
    {
        const std::optional<std::size_t> count = file.Read(m_block.data() + size, m_block.size() - size, problem);
        if (!count)
            throw StreamError(m_path + " cannot be read: " + problem);
        if (*count == 0)
            break;
        size += *count;
    }
    return size;
}

void FollowedFile::StartOver()
{
    m_position = 0;
    m_tail.clear();
    m_hasRestarted = true;
}
