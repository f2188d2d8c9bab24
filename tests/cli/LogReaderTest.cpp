#include "cli/LogReader.h"

#include <gtest/gtest.h>
#include <vector>

#include "cli/Failure.h"
#include "cli/LogFilter.h"

namespace
{

// A piece as one text: kind, process id, level, date, time, source and its line, message; what it lacks is left out.
std::string Describe(const LogEntry& entry, LogKind kind)
{
    constexpr const char* c_pieces[] = {"entry", "opened", "closed", "text", "continued"};
    std::string text = c_pieces[static_cast<int>(entry.piece)];
    if (entry.processId)
        text += " " + std::to_string(*entry.processId);
    if (entry.level)
        text += " " + LevelsOf(kind)[*entry.level].name;
    for (const std::string_view part : {entry.date, entry.time, entry.source})
        if (!part.empty())
            text.append(" ").append(part);
    if (entry.sourceLine)
        text += "#" + std::to_string(*entry.sourceLine);
    if (entry.entries)
        text += " " + std::to_string(*entry.entries) + "/" + std::to_string(entry.errors.value());
    return text.append("|").append(entry.message);
}

using Texts = std::vector<std::string>;

struct Collector
{
    Texts texts;
    std::vector<std::uint64_t> lines;

    LogReader::EntryFunction Function()
    {
        return [this](const LogEntry& entry, LogKind kind)
        {
            texts.push_back(Describe(entry, kind));
            lines.push_back(entry.line);
        };
    }
    Texts Take() { return std::exchange(texts, {}); }
};

Texts Read(std::string_view log, std::optional<LogKind> kind = std::nullopt)
{
    Collector collector;
    LogReader reader(kind, collector.Function());
    reader.Feed(log);
    reader.Finish();
    return collector.texts;
}

struct PieceRow
{
    const char* expected;
    const char* line;
};

constexpr const char* c_processLog = "PID:4312 Log started\n"
                                     "PID:4312 Monday, January 18, 2021, 14:05:09, PID = 4312 QM2020.0.0\n"
                                     "PID:4312 14:05:09 Message : two\nlines\n"
                                     "PID:77 reader.cpp(3)14:05:10 Error : PID:5\n"
                                     "PID:4312 14:05:11 Message : PID:77 14:05:11 Comment : x\n";

}  // namespace

TEST(LogReader, ReadsWhatAProcessWrites)
{
    // clang-format off
    const PieceRow rows[] = {
    //   expected                                        line
        {"text 1|",                                      "PID:1 "},
        {"text 1|Log started",                           "PID:1 Log started"},
        {"text 4294967295|x",                            "PID:4294967295 x"},
        {"opened 1 Monday, May 3, 2021 14:05:09|Monday, May 3, 2021, 14:05:09, PID = 1 QM2020.0.0",
                                                         "PID:1 Monday, May 3, 2021, 14:05:09, PID = 1 QM2020.0.0"},
        {"opened 1 lundi 3 mai 2021 14:05:09|lundi 3 mai 2021, 14:05:09, PID = 1 QM2020.0.0",
                                                         "PID:1 lundi 3 mai 2021, 14:05:09, PID = 1 QM2020.0.0"},
        {"closed 1 a 14:05:09 3/1|a, 14:05:09, PID = 1, Entries = 3, Errors = 1 ",
                                                         "PID:1 a, 14:05:09, PID = 1, Entries = 3, Errors = 1 "},
        {"text 1|a, 14:05:09, PID = 1, Entries = x",     "PID:1 a, 14:05:09, PID = 1, Entries = x"},
        {"text 1|a, 24:05:09, PID = 1 QM2020.0.0",       "PID:1 a, 24:05:09, PID = 1 QM2020.0.0"},
        {"entry 1 Comment 00:00:00|x",                   "PID:1 00:00:00 Comment : x"},
        {"entry 1 Warning 23:59:59|x",                   "PID:1 23:59:59 Warning : x"},
        {"entry 1 Message 14:05:09|x",                   "PID:1 14:05:09 Message : x"},
        {"entry 1 Exception Message 14:05:09|x",         "PID:1 14:05:09 Exception Message : x"},
        {"entry 1 Error 14:05:09|x",                     "PID:1 14:05:09 Error : x"},
        {"entry 1 Exception 14:05:09|x",                 "PID:1 14:05:09 Exception : x"},
        {"entry 1 Message 14:05:09|",                    "PID:1 14:05:09 Message : "},
        {"entry 1 Message 14:05:09| : x",                "PID:1 14:05:09 Message :  : x"},
        {"entry 1 Message|x",                            "PID:1  Message : x"},
        {"text 1|Message : x",                           "PID:1 Message : x"},
        {"text 1 14:05:09|x",                            "PID:1 14:05:09x"},
        {"text 1 14:05:09| : x",                         "PID:1 14:05:09 : x"},        // a level that has no text
        {"text 1 14:05:09| message : x",                 "PID:1 14:05:09 message : x"},
        {"text 1|24:00:00 Message : x",                  "PID:1 24:00:00 Message : x"},
        {"text 1|1:05:09 Message : x",                   "PID:1 1:05:09 Message : x"},
        {"entry 1 Error 14:05:09 f.cpp#198|x",           "PID:1 f.cpp(198)14:05:09 Error : x"},
        {"entry 1 Error 14:05:09 f.cpp|x",               "PID:1 f.cpp14:05:09 Error : x"},
        {"entry 1 Exception f.cpp#198|x",                "PID:1 f.cpp(198) Exception : x"},
        {"entry 1 Error f.cpp|x",                        "PID:1 f.cpp Error : x"},
        {"entry 1 Error 14:05:09 C:\\a (b)\\f.cpp#2|x",  "PID:1 C:\\a (b)\\f.cpp(2)14:05:09 Error : x"},
        {"entry 1 Error 14:05:09 C:\\a (b)|x",           "PID:1 C:\\a (b)14:05:09 Error : x"},
        {"entry 1 Error 14:05:09 f()|x",                 "PID:1 f()14:05:09 Error : x"},
        {"entry 1 Error 14:05:09 (2)|x",                 "PID:1 (2)14:05:09 Error : x"},
        {"entry 1 Error 14:05:09 f.cpp#2|x 14:05:09 Error : y", "PID:1 f.cpp(2)14:05:09 Error : x 14:05:09 Error : y"},
        {"text 1|the words Error : x",                   "PID:1 the words Error : x"},
        {"text 1|at 14:05:09 Error : x",                 "PID:1 at 14:05:09 Error : x"},
        {"text 1|f.cpp(2)14:05:09 Message : x",          "PID:1 f.cpp(2)14:05:09 Message : x"},  // has no source
        {"text|no process id",                           "no process id"},
        {"text|PID: 1 x",                                "PID: 1 x"},
        {"text|PID:x 1",                                 "PID:x 1"},
        {"text|PID:1",                                   "PID:1"},
        {"text|PID:12345678901 x",                       "PID:12345678901 x"},
    };
    // clang-format on
    for (const PieceRow& row : rows)
        for (const char* const end : {"", "\n", "\r\n"})
            EXPECT_EQ(Read(row.line + std::string(end), LogKind::Process), Texts{row.expected}) << row.line;
}

TEST(LogReader, ReadsWhatADesignSessionWrites)
{
    // clang-format off
    const PieceRow rows[] = {
    //   expected                                     line
        {"entry INFORMATION Monday 14:05:09|x",       "Monday 14:05:09 [INFORMATION] : x"},
        {"entry WARNING Monday 14:05:09|x",           "Monday 14:05:09 [WARNING]     : x"},
        {"entry DEBUG Monday 14:05:09|x",             "Monday 14:05:09 [DEBUG]       : x"},
        {"entry EXCEPTION Monday 14:05:09|x",         "Monday 14:05:09 [EXCEPTION]   : x"},
        {"entry ERROR Monday, May 3, 2021 14:05:09|", "Monday, May 3, 2021 14:05:09 [ERROR]       : "},
        {"entry ERROR   14:05:09|x",                  "  14:05:09 [ERROR]       : x"},
        {"text|14:05:09 [ERROR]       : x",           "14:05:09 [ERROR]       : x"},
        {"text|Monday 14:05:09 [ERROR] : x",          "Monday 14:05:09 [ERROR] : x"},
        {"text|Monday 14:05:60 [ERROR]       : x",    "Monday 14:05:60 [ERROR]       : x"},
        {"text|PID:1 14:05:09 Message : x",           "PID:1 14:05:09 Message : x"},
        {"text| ",                                    " "},
    };
    // clang-format on
    for (const PieceRow& row : rows)
    {
        EXPECT_EQ(Read("\n" + std::string(row.line), LogKind::Design), Texts{row.expected}) << row.line;
        EXPECT_EQ(Read("\r\n\r\n" + std::string(row.line) + "\r\n", LogKind::Design), Texts{row.expected}) << row.line;
    }
}

TEST(LogReader, ALineWithoutProcessIdBelongsToTheEntryBeforeIt)
{
    EXPECT_EQ(Read("PID:1 14:05:09 Message : a\nb\n\nPID:\nPID: 2\n PID:2 c\nPID:2 d\n"),
              (Texts{"entry 1 Message 14:05:09|a\nb\n\nPID:\nPID: 2\n PID:2 c", "text 2|d"}));
}

TEST(LogReader, APieceBehindAnEmptyMessageIsItsOwn)
{
    EXPECT_EQ(
        Read("PID:1 14:05:09 Message : PID:2 f(3)14:05:10 Error : PID:1 a, 14:05:11, PID = 1 QM2020.0.0\nPID:1 x\n"),
        (Texts{"entry 1 Message 14:05:09|", "entry 2 Error 14:05:10 f#3|",
               "opened 1 a 14:05:11|a, 14:05:11, PID = 1 QM2020.0.0", "text 1|x"}));
    EXPECT_EQ(Read("PID:1 14:05:09 Message : PID:2 has ended\n"), (Texts{"entry 1 Message 14:05:09|PID:2 has ended"}));
    EXPECT_EQ(Read("PID:1 14:05:09 Message : see PID:2 14:05:09 Message : x\n"),
              (Texts{"entry 1 Message 14:05:09|see PID:2 14:05:09 Message : x"}));
}

TEST(LogReader, APieceBehindATextWithoutLineBreakIsItsOwn)
{
    const std::string opened = "PID:1 a, 14:05:11, PID = 1 QM2020.0.0";
    const std::string openedText = "opened 1 a 14:05:11|a, 14:05:11, PID = 1 QM2020.0.0";
    EXPECT_EQ(Read("PID:1 header" + opened + "\n"), (Texts{"text 1|header", openedText}));
    EXPECT_EQ(Read("PID:1 " + opened + "\n"), (Texts{"text 1|", openedText}));
    EXPECT_EQ(Read("PID:1 two\nlines" + opened + "\n"), (Texts{"text 1|two\nlines", openedText}));
    EXPECT_EQ(Read("PID:1 trailerPID:2 f(3)14:05:10 Error : x\n"),
              (Texts{"text 1|trailer", "entry 2 Error 14:05:10 f#3|x"}));
    EXPECT_EQ(Read("PID:1 torn 14:0PID:2 14:05:10 Message : x\n"),
              (Texts{"text 1|torn 14:0", "entry 2 Message 14:05:10|x"}));
    EXPECT_EQ(Read("PID:1 14:05:09tornPID:2  Message : x\n"), (Texts{"text 1 14:05:09|torn", "entry 2 Message|x"}));
    EXPECT_EQ(Read("tornPID:2 14:05:10 Message : x\nPID:1 y"),
              (Texts{"text|torn", "entry 2 Message 14:05:10|x", "text 1|y"}));
    EXPECT_EQ(Read("PID:1 f(3)14:05:10 Error : see PID:2 14:05:10 Message : x\n"),
              (Texts{"entry 1 Error 14:05:10 f#3|see PID:2 14:05:10 Message : x"}));
    EXPECT_EQ(Read("PID:1 headerPID:2 has ended\n"), (Texts{"text 1|headerPID:2 has ended"}));
}

TEST(LogReader, TheFirstLineThatOnlyOneKindHasDecidesTheKind)
{
    struct Row
    {
        std::optional<LogKind> expected;
        const char* log;
    };
    const Row rows[] = {
        {std::nullopt, ""},
        {std::nullopt, "\n"},
        {LogKind::Process, "PID:1 x"},
        {LogKind::Process, "rest of a line\nPID:1 Monday 14:05:09 [ERROR]       : x\n"},
        {LogKind::Design, "\nx"},
        {LogKind::Design, "\r\nx"},
        {LogKind::Design, "x\nMonday 14:05:09 [ERROR]       : x\nPID:1 x"},
        {LogKind::Process, "\nx\nPID:1 x\n"},
        {std::nullopt, "x"},
        {std::nullopt, "PID: 1 x\nMonday 14:05:09 [ERROR] : x"},
    };
    for (const Row& row : rows)
    {
        LogReader reader(std::nullopt, [](const LogEntry&, LogKind) {});
        reader.Feed(row.log);
        reader.Finish();
        const bool isText = std::string(row.log).find_first_not_of("\r\n") != std::string::npos;
        EXPECT_EQ(reader.IsUnrecognised(), isText && !row.expected) << row.log;
        if (isText)
        {
            EXPECT_EQ(reader.Kind(), row.expected) << row.log;
        }
    }
}

TEST(LogReader, ALogThatIsNoneIsGivenUpEarly)
{
    LogReader reader(std::nullopt, [](const LogEntry&, LogKind) { FAIL(); });
    reader.Feed(std::string(LogReader::c_detectionSize - 1, 'x'));
    EXPECT_FALSE(reader.IsUnrecognised());
    reader.Feed("x");
    EXPECT_TRUE(reader.IsUnrecognised());
}

TEST(LogReader, PiecesOfAnySizeGiveTheSameEntriesAndLines)
{
    Collector whole;
    LogReader wholeReader(std::nullopt, whole.Function());
    const std::string log = c_processLog;
    wholeReader.Feed(log);
    wholeReader.Finish();
    EXPECT_EQ(whole.lines, (std::vector<std::uint64_t>{1, 2, 3, 5, 6, 6}));
    for (std::size_t size = 1; size < log.size(); ++size)
    {
        Collector pieces;
        LogReader reader(std::nullopt, pieces.Function());
        for (std::size_t begin = 0; begin < log.size(); begin += size)
            reader.Feed(std::string_view(log).substr(begin, size));
        reader.Finish();
        EXPECT_EQ(pieces.texts, whole.texts) << size;
        EXPECT_EQ(pieces.lines, whole.lines) << size;
    }
}

TEST(LogReader, AnEntryIsHandedOutWhenTheLogRestsBehindItsLineBreak)
{
    Collector collector;
    LogReader reader(std::nullopt, collector.Function());
    reader.Feed("PID:1 14:05:09 Message : a\n");
    EXPECT_EQ(collector.Take(), Texts{});
    reader.Settle();
    EXPECT_EQ(collector.Take(), Texts{"entry 1 Message 14:05:09|a"});
    reader.Feed("PID:1 14:05:09 Mess");
    reader.Settle();
    EXPECT_EQ(collector.Take(), Texts{});
    reader.Feed("age : b\n");
    reader.Settle();
    EXPECT_EQ(collector.Take(), Texts{"entry 1 Message 14:05:09|b"});
    reader.Settle();
    reader.Finish();
    EXPECT_EQ(collector.Take(), Texts{});
}

TEST(LogReader, TextBehindARestGoesOnInTheEntry)
{
    Collector collector;
    LogReader reader(std::nullopt, collector.Function());
    reader.Feed("PID:1 14:05:09 Message : a\n");
    reader.Settle();
    reader.Feed("b\nc\n");
    reader.Settle();
    reader.Feed("d\nPID:2 e\n");
    reader.Finish();
    EXPECT_EQ(collector.texts, (Texts{"entry 1 Message 14:05:09|a", "continued 1 Message 14:05:09|b\nc",
                                      "continued 1 Message 14:05:09|d", "text 2|e"}));
    EXPECT_EQ(collector.lines, (std::vector<std::uint64_t>{1, 2, 4, 5}));
}

TEST(LogReader, TheLastLineOfADesignLogIsHandedOutWhenTheLogRests)
{
    Collector collector;
    LogReader reader(std::nullopt, collector.Function());
    reader.Feed("\nMonday 14:05:09 [DEBUG]       : a");
    reader.Settle();
    EXPECT_EQ(collector.Take(), Texts{"entry DEBUG Monday 14:05:09|a"});
    reader.Feed("bc");
    reader.Settle();
    reader.Feed("\nx\n");
    reader.Settle();
    reader.Feed("y");
    reader.Finish();
    EXPECT_EQ(collector.texts, (Texts{"continued DEBUG 14:05:09|bc", "text|x", "text|y"}));
}

TEST(LogReader, ARestartForgetsHalfAnEntryAndCountsLinesAnew)
{
    Collector collector;
    LogReader reader(std::nullopt, collector.Function());
    reader.Feed("PID:1 14:05:09 Message : a\nPID:1 14:05:09 Mess");
    reader.Restart();
    reader.Feed("\nx");
    reader.Settle();
    EXPECT_EQ(collector.texts, (Texts{"entry 1 Message 14:05:09|a", "text|x"}));
    EXPECT_EQ(collector.lines, (std::vector<std::uint64_t>{1, 2}));
    EXPECT_EQ(reader.Kind(), LogKind::Design);
}

TEST(LogReader, TheLevelsAreThoseOfTheLibrary)
{
    EXPECT_EQ(LevelNames(LogKind::Process), "Comment, Warning, Message, Exception Message, Error, Exception");
    EXPECT_EQ(LevelNames(LogKind::Design), "INFORMATION, WARNING, DEBUG, EXCEPTION, ERROR");
    std::string errors;
    for (const LogKind kind : {LogKind::Process, LogKind::Design})
        for (const LogLevel& level : LevelsOf(kind))
            errors += level.isError ? level.name + " " : "";
    EXPECT_EQ(errors, "Error Exception EXCEPTION ERROR ");
}

TEST(LogReader, TimesAreThoseOfADay)
{
    for (const char* const time : {"00:00:00", "19:59:59", "23:59:59"})
        EXPECT_TRUE(IsTimeOfDay(time)) << time;
    for (const char* const text :
         {"", "24:00:00", "00:60:00", "00:00:60", "0:00:00", "00:00:000", "00.00.00", "-1:00:00", "ab:cd:ef"})
        EXPECT_FALSE(IsTimeOfDay(text)) << text;
}

TEST(LogFilter, AWindowThatBeginsAfterItsEndPassesMidnight)
{
    struct Row
    {
        bool expected;
        const char* since;
        const char* until;
        const char* time;
    };
    const Row rows[] = {
        {true, "10:00:00", "11:00:00", "10:00:00"},  {true, "10:00:00", "11:00:00", "11:00:00"},
        {false, "10:00:00", "11:00:00", "09:59:59"}, {false, "10:00:00", "11:00:00", "11:00:01"},
        {false, "10:00:00", "11:00:00", ""},         {true, "23:00:00", "01:00:00", "23:30:00"},
        {true, "23:00:00", "01:00:00", "00:30:00"},  {false, "23:00:00", "01:00:00", "12:00:00"},
        {true, "10:00:00", "10:00:00", "10:00:00"},  {false, "10:00:00", "10:00:00", "10:00:01"},
    };
    for (const Row& row : rows)
    {
        LogFilter filter;
        filter.SetSince(row.since);
        filter.SetUntil(row.until);
        LogEntry entry;
        entry.time = row.time;
        EXPECT_EQ(filter.Wants(entry, LogKind::Process), row.expected)
            << row.since << " " << row.until << " " << row.time;
    }
}

TEST(LogFilter, ALevelIsNamedInAnyCaseWithOrWithoutItsBlank)
{
    for (const char* const name : {"Exception Message", "EXCEPTIONMESSAGE", "exception-message", "exception_message"})
    {
        LogFilter filter;
        filter.AddLevel(name);
        LogEntry entry;
        EXPECT_FALSE(filter.Wants(entry, LogKind::Process)) << name;
        for (std::size_t level = 0; level < 6; ++level)
        {
            entry.level = level;
            EXPECT_EQ(filter.Wants(entry, LogKind::Process), level == 3) << name << level;
        }
        EXPECT_THROW(filter.CheckLevels(LogKind::Design), UsageError);
    }
    for (const char* const name : {"", "+", "fatal", "error++", "comment,error"})
        EXPECT_THROW(LogFilter().AddLevel(name), UsageError) << name;
}
