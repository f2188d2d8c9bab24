#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <deque>
#include <map>
#include <memory>
#include <optional>

#include "cli/ByteStream.h"
#include "cli/Failure.h"
#include "cli/FollowedFile.h"
#include "cli/JsonWriter.h"
#include "cli/LogFilter.h"
#include "cli/LogReader.h"
#include "cli/LogWriter.h"
#include "cli/Output.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"

namespace
{

constexpr const char* c_help =
    R"(Reads the log that processes write through the library, and the logs of design sessions. Which of the two FILE is
shows in its first lines. With - the log comes from standard input.

Examples:
  vetools log Log.log
  vetools log Log.log --errors                   # the levels that count as errors
  vetools log Log.log --level warning+           # warnings and what is above them
  vetools log Log.log --level error,comment      # these levels alone
  vetools log Log.log --pid 4312 --since 14:00:00 --until 14:30:00
  vetools log Log.log --count                    # how many there are of each level
  vetools log Log.log -n 10                      # the last ten
  vetools log Log.log --json                     # one object per entry and line
  vetools log Log.log -f                         # and what is added, until Ctrl+C
  vetools log VeDesignLog.log --level error

)";

constexpr const char* c_helpOnReading =
    R"(Lines in which a process opens or closes its log, and texts without a level, are shown as such. Entries stand in
the order of the file. A filter leaves out what lacks the thing it asks for; times are of each day that the log covers,
and a window from 23:00:00 until 01:00:00 is one over midnight.
A log file is read in the ANSI code page on Windows and as UTF-8 elsewhere, a design log as UTF-8.
Exit code: 0 done (-f: Ctrl+C, or nobody reads on), 1 the log cannot be read, 2 wrong usage or no such file.)";

struct LogSettings
{
    std::string file;
    std::optional<LogKind> kind;
    LogFilter filter;
    std::optional<std::size_t> last;
    bool follow = false;
    bool count = false;
    bool json = false;
};

// How many pieces there are of each level, and of each kind without one.
class LogCounts
{
public:
    void Add(const LogEntry& entry, bool isWanted)
    {
        const std::pair<LogPiece, std::size_t> key = {entry.piece, entry.level.value_or(0)};
        for (Row* row : {&m_rows[key], &m_total})
        {
            ++row->all;
            row->selected += isWanted;
        }
    }

    void Write(Output& output, LogKind kind, bool json)
    {
        const std::span<const LogLevel> levels = LevelsOf(kind);
        for (std::size_t level = 0; level < levels.size(); ++level)
            WriteRow(output, json, levels[level].name, LogPiece::Entry, m_rows[{LogPiece::Entry, level}]);
        for (const LogPiece piece : {LogPiece::Opened, LogPiece::Closed, LogPiece::Text})
            if (kind == LogKind::Process || piece == LogPiece::Text)
                WriteRow(output, json, "", piece, m_rows[{piece, 0}]);
        if (json)
            return;
        AddToTable("total", m_total);
        m_table.Write(output);
    }

private:
    struct Row
    {
        std::uint64_t all = 0;
        std::uint64_t selected = 0;
    };

    void WriteRow(Output& output, bool json, const std::string& level, LogPiece piece, const Row& row)
    {
        if (!json)
            return AddToTable(level.empty() ? std::string(PieceName(piece)) : level, row);
        JsonWriter object;
        object.Begin();
        object.Add("kind", PieceName(piece));
        if (!level.empty())
            object.Add("level", level);
        object.Add("all", row.all);
        object.Add("selected", row.selected);
        output.Write(object.End());
    }

    void AddToTable(const std::string& name, const Row& row)
    {
        m_table.Add({name, std::to_string(row.all), std::to_string(row.selected)});
    }

    std::map<std::pair<LogPiece, std::size_t>, Row> m_rows;
    Row m_total;
    TextTable m_table{{{"level"}, {"all", TextTable::Align::Right}, {"selected", TextTable::Align::Right}}};
};

// Takes the pieces of a log and does with them what the arguments say.
class LogPrinter
{
public:
    explicit LogPrinter(const LogSettings& settings)
        : m_settings(settings)
        , m_writer(settings.json)
    {
    }

    void Take(const LogEntry& entry, LogKind kind)
    {
        Begin(kind);
        ++m_pieces;
        const bool isWanted = m_settings.filter.Wants(entry, kind);
        if (m_settings.count)
            return m_counts.Add(entry, isWanted);
        if (!isWanted)
            return;
        const std::string_view text = m_writer.Show(entry, kind);
        if (!m_settings.last || m_isPastLast)
            return Print(text);
        if (m_lastTexts.size() == *m_settings.last && !m_lastTexts.empty())
            m_lastTexts.pop_front();
        if (m_lastTexts.size() < *m_settings.last)
            m_lastTexts.emplace_back(text);
    }

    // The pieces to come are new ones: the last of those before them are shown.
    void EndOfPresent()
    {
        m_isPastLast = true;
        for (const std::string& text : m_lastTexts)
            Print(text);
        m_lastTexts.clear();
        m_output.Flush();
    }

    void Finish()
    {
        EndOfPresent();
        if (m_settings.count)
            m_counts.Write(m_output, m_kind.value_or(m_settings.kind.value_or(LogKind::Process)), m_settings.json);
        m_output.Flush();
    }

    void Flush() { m_output.Flush(); }
    std::uint64_t Pieces() const { return m_pieces; }

private:
    void Begin(LogKind kind)
    {
        if (m_kind == kind)
            return;
        m_settings.filter.CheckLevels(kind);
        m_kind = kind;
        m_hasHeadings = false;
    }

    void Print(std::string_view text)
    {
        if (!m_hasHeadings)
            m_output.Write(m_writer.Headings(*m_kind));
        m_hasHeadings = true;
        m_output.Write(text);
    }

    const LogSettings& m_settings;
    LogWriter m_writer;
    Output m_output;
    LogCounts m_counts;
    std::optional<LogKind> m_kind;
    std::deque<std::string> m_lastTexts;
    std::uint64_t m_pieces = 0;
    bool m_isPastLast = false;
    bool m_hasHeadings = false;
};

void CheckRecognised(const LogReader& reader, const std::string& name)
{
    if (reader.IsUnrecognised())
        throw StreamError(name + " does not begin as a log; “--kind process” or “--kind design” reads it all the same");
}

int RunOnce(const LogSettings& settings)
{
    LogPrinter printer(settings);
    LogReader reader(settings.kind, [&printer](const LogEntry& entry, LogKind kind) { printer.Take(entry, kind); });
    std::optional<Progress> progress;
    bool showsOutput = false;
    ByteStream stream = OpenByteStream(settings.file,
                                       [&](std::uint64_t bytes)
                                       {
                                           if (progress && showsOutput)
                                               progress->Hide();
                                           printer.Flush();
                                           if (progress)
                                               progress->Update(bytes, printer.Pieces());
                                       });
    showsOutput = System::IsTerminal(System::Stream::Output);
    progress.emplace(stream.File().Size(), !stream.File().IsTerminal(), "entries");
    for (std::string_view bytes = stream.Peek(); !bytes.empty(); bytes = stream.Peek())
    {
        reader.Feed(bytes);
        CheckRecognised(reader, stream.Name());
        stream.Skip(bytes.size());
    }
    reader.Finish();
    CheckRecognised(reader, stream.Name());
    progress.reset();
    printer.Finish();
    return c_exitDone;
}

// All that has been added by now. True when that was anything.
bool ReadOn(FollowedFile& file, LogReader& reader, const std::string& name, System::Waiter& waiter)
{
    bool isAny = false;
    for (;;)
    {
        const std::string_view bytes = file.Read();
        if (file.HasRestarted())
            reader.Restart();
        if (bytes.empty())
            return isAny;
        isAny = true;
        reader.Feed(bytes);
        CheckRecognised(reader, name);
        if (waiter.Wait(std::chrono::milliseconds(0)) != System::Waiter::Answer::Elapsed)
            return isAny;
    }
}

int RunFollow(const LogSettings& settings)
{
    constexpr std::chrono::milliseconds c_interval{100};
    LogPrinter printer(settings);
    LogReader reader(settings.kind, [&printer](const LogEntry& entry, LogKind kind) { printer.Take(entry, kind); });
    FollowedFile file(settings.file);
    System::Waiter waiter;
    try
    {
        for (auto answer = System::Waiter::Answer::Elapsed; answer == System::Waiter::Answer::Elapsed;
             answer = waiter.Wait(c_interval))
        {
            // A piece is whole when nothing is added to it for a while: its writer is done with it.
            if (ReadOn(file, reader, settings.file, waiter))
            {
                printer.Flush();
                continue;
            }
            reader.Settle();
            printer.EndOfPresent();
        }
        printer.Flush();
    }
    catch (const OutputClosed&)
    {
        // Nobody reads on: that is how following ends in a pipe.
    }
    return c_exitDone;
}

int RunLog(const LogSettings& settings)
{
    if (!settings.follow)
        return RunOnce(settings);
    if (settings.file == "-")
        throw UsageError("--follow: expected a file; standard input is read to its end without it");
    return RunFollow(settings);
}

void AddFilterOptions(CLI::App& command, LogFilter& filter)
{
    const auto addList = [&command](const char* name, auto add, const char* description, const char* text)
    {
        return command.add_option_function(name, std::function(add), description)
            ->delimiter(',')
            ->expected(1)
            ->take_all()
            ->option_text(text);
    };
    CLI::Option* const level = addList(
        "-l,--level",
        [&filter](const std::vector<std::string>& names)
        {
            for (const std::string& name : names)
                filter.AddLevel(name);
        },
        "Only these levels; with + behind it a level and those above it", "NAME[+],...");
    command
        .add_flag_callback(
            "-e,--errors", [&filter] { filter.AddErrors(); }, "Only the levels that count as errors")
        ->excludes(level);
    addList(
        "--pid",
        [&filter](const std::vector<std::int64_t>& processIds)
        {
            for (const std::int64_t processId : processIds)
                filter.AddProcessId(static_cast<std::uint64_t>(processId));
        },
        "Only what these processes wrote", "N,...")
        ->check(CLI::NonNegativeNumber);
    command
        .add_option_function<std::string>(
            "--since", [&filter](const std::string& time) { filter.SetSince(time); }, "Only from this time on")
        ->option_text("hh:mm:ss");
    command
        .add_option_function<std::string>(
            "--until", [&filter](const std::string& time) { filter.SetUntil(time); }, "Only up to this time")
        ->option_text("hh:mm:ss");
}

}  // namespace

Command MakeLogCommand(CLI::App& program)
{
    const auto settings = std::make_shared<LogSettings>();
    CLI::App* const command = program.add_subcommand("log", "Show, filter, count and follow the entries of a log");
    command->add_option("file", settings->file)->option_text("FILE")->required();
    AddFilterOptions(*command, settings->filter);
    CLI::Option* const last =
        command
            ->add_option_function<std::int64_t>(
                "-n,--last",
                [settings](const std::int64_t& count) { settings->last = static_cast<std::size_t>(count); },
                "Only the last N entries")
            ->check(CLI::NonNegativeNumber)
            ->option_text("N");
    CLI::Option* const follow = command->add_flag(
        "-f,--follow", settings->follow, "Go on with what is added; the file may be cut, or deleted and made anew");
    command
        ->add_flag("-c,--count", settings->count, "Count the entries of each level, all of them and the selected ones")
        ->excludes(last)
        ->excludes(follow);
    const std::map<std::string, LogKind> kinds = {{"process", LogKind::Process}, {"design", LogKind::Design}};
    command
        ->add_option_function<LogKind>(
            "--kind", [settings](const LogKind& kind) { settings->kind = kind; },
            "Do not find out what kind of log it is")
        ->transform(CLI::CheckedTransformer(kinds))
        ->option_text("process|design");
    command->add_flag("--json", settings->json,
                      "One JSON object per line: kind, line, pid, level, date, time, source, sourceLine, message ...");
    command->footer(c_help + ("Levels of a log file:   " + LevelNames(LogKind::Process)) +
                    "\nLevels of a design log: " + LevelNames(LogKind::Design) + ", \"+\" going in this order\n" +
                    c_helpOnReading);
    return {command, [settings]
            {
                return RunLog(*settings);
            }};
}
