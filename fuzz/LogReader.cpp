// Any bytes as a log of either kind: whatever the pieces in which they come, the same entries are handed out, none of them
// longer than the log, and a log that rests now and then breaks nothing.
//
// The first byte chooses the kind, the second the size of the pieces.
#include "cli/LogReader.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace
{

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

std::optional<LogKind> KindOf(std::uint8_t choice)
{
    constexpr std::optional<LogKind> c_kinds[] = {std::nullopt, LogKind::Process, LogKind::Design};
    return c_kinds[choice % 3];
}

// All that is handed out, as one text.
class Record
{
public:
    LogReader::EntryFunction Function(std::size_t longest)
    {
        return [this, longest](const LogEntry& entry, LogKind kind)
        {
            Check(entry.message.size() <= longest && entry.line >= 1);
            Check(!entry.level || *entry.level < LevelsOf(kind).size());
            Check(entry.time.empty() || IsTimeOfDay(entry.time));
            const auto number = [](const auto& value)
            {
                return value ? std::to_string(*value) : "-";
            };
            m_text += std::to_string(static_cast<int>(entry.piece)) + ' ' + std::to_string(entry.line) + ' ' +
                      number(entry.processId) + ' ' + number(entry.level) + ' ' + number(entry.sourceLine) + ' ' +
                      number(entry.entries) + ' ' + number(entry.errors) + ' ';
            for (const std::string_view text : {entry.date, entry.time, entry.source, entry.message})
                m_text.append(text).push_back('|');
            m_text.push_back('\n');
        };
    }
    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const std::optional<LogKind> kind = KindOf(data[0]);
    const std::size_t pieceSize = data[1] % 64 + 1;
    const std::string_view log(reinterpret_cast<const char*>(data) + 2, size - 2);

    Record whole;
    LogReader wholeReader(kind, whole.Function(log.size()));
    wholeReader.Feed(log);
    wholeReader.Finish();

    Record pieces;
    LogReader pieceReader(kind, pieces.Function(log.size()));
    Record rests;
    LogReader restingReader(kind, rests.Function(log.size()));
    for (std::size_t begin = 0; begin < log.size(); begin += pieceSize)
    {
        pieceReader.Feed(log.substr(begin, pieceSize));
        restingReader.Feed(log.substr(begin, pieceSize));
        restingReader.Settle();
    }
    pieceReader.Finish();
    restingReader.Finish();
    Check(pieces.Text() == whole.Text());
    Check(pieceReader.IsUnrecognised() == wholeReader.IsUnrecognised());
    return 0;
}
