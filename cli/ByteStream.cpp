#include "cli/ByteStream.h"

#include <algorithm>

#include "cli/Failure.h"

namespace
{

constexpr std::size_t c_blockSize = 1 << 16;
constexpr std::string_view c_byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

ByteStream::ByteStream(System::InputFile file, std::string name, std::function<void(std::uint64_t)> beforeRead)
    : m_file(std::move(file))
    , m_name(std::move(name))
    , m_beforeRead(std::move(beforeRead))
    , m_block(c_blockSize)
{
}

bool ByteStream::Read()
{
    m_beforeRead(m_total);
    std::string problem;
    const std::optional<std::size_t> count = m_file.Read(m_block.data() + m_end, m_block.size() - m_end, problem);
    if (!count)
        throw StreamError(m_name + " cannot be read: " + problem);
    m_end += *count;
    m_total += *count;
    return *count != 0;
}

bool ByteStream::Fill()
{
    m_begin = 0;
    m_end = 0;
    if (!Read())
        return false;
    if (m_started)
        return true;
    m_started = true;
    // The mark may arrive in pieces; nothing else is waited for.
    const auto startsLikeMark = [&]
    {
        return m_end < c_byteOrderMark.size() && c_byteOrderMark.starts_with(std::string_view(m_block.data(), m_end));
    };
    while (startsLikeMark() && Read())
        continue;
    if (std::string_view(m_block.data(), m_end).starts_with(c_byteOrderMark))
        m_begin = c_byteOrderMark.size();
    return m_begin < m_end || Fill();
}

std::string_view ByteStream::Peek()
{
    if (m_begin == m_end && !Fill())
        return {};
    return {m_block.data() + m_begin, m_end - m_begin};
}

bool ByteStream::ReadLine(std::string& line)
{
    line.clear();
    bool any = false;
    for (std::string_view bytes = Peek(); !bytes.empty(); bytes = Peek())
    {
        any = true;
        const std::size_t end = bytes.find('\n');
        AppendBounded(line, bytes.substr(0, end));
        if (end != std::string_view::npos)
        {
            Skip(end + 1);
            break;
        }
        Skip(bytes.size());
    }
    if (line.ends_with('\r'))
        line.pop_back();
    return any;
}

ByteStream OpenByteStream(const std::string& path, std::function<void(std::uint64_t)> beforeRead)
{
    if (path == "-")
        return ByteStream(System::InputFile::StandardInput(), "standard input", std::move(beforeRead));
    std::string problem;
    std::optional<System::InputFile> file = System::InputFile::Open(path, problem);
    if (!file)
        throw UsageError(path + " cannot be opened: " + problem);
    return ByteStream(std::move(*file), path, std::move(beforeRead));
}

void AppendBounded(std::string& out, std::string_view text)
{
    out.append(text.substr(0, ByteStream::c_longestText - std::min(out.size(), ByteStream::c_longestText)));
}
