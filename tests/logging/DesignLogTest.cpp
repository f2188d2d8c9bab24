#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/DebuggerOutput.h"
#include "tests/support/FileTestSupport.h"
#include "tests/support/LogTestSupport.h"
#include "vetools/logging/VeDesignLog.h"

namespace
{

namespace fs = std::filesystem;

constexpr GUID c_first = {0x01234567, 0x89AB, 0xCDEF, {0, 1, 2, 3, 4, 5, 6, 7}};
constexpr GUID c_second = {0x01234567, 0x89AB, 0xCDEF, {0, 1, 2, 3, 4, 5, 6, 8}};
constexpr GUID c_third = {0x01234568, 0x89AB, 0xCDEF, {0, 1, 2, 3, 4, 5, 6, 7}};

/// A folder of a test; the logs that it makes are deleted at its end.
class DesignLog : public testing::Test
{
protected:
    ~DesignLog() override
    {
        for (const GUID& guid : {c_first, c_second, c_third, c_first, c_second, c_third, c_first, c_second, c_third})
            if (VeDesignLog* const log = VeDesignLog::GetLog(guid))
                log->DeleteSessionLog();
        for (const GUID& guid : {c_first, c_second, c_third})
            EXPECT_EQ(nullptr, VeDesignLog::GetLog(guid));
    }

    VeDesignLog* Create(const GUID& guid, const wchar_t* behindFolder = L"")
    {
        VeDesignLog* const log = VeDesignLog::CreateLogFileManagerInstance(guid, m_folder.Prefix() + behindFolder);
        EXPECT_NE(nullptr, log);
        return log;
    }

    std::string Text(const char* name = "VeDesignLog.log") const { return LogTextOf(m_folder / name); }
    Bytes RawBytes() const { return ReadBytes(m_folder / "VeDesignLog.log"); }

    void Make(const char* name) const { WriteBytes(m_folder / name, Bytes{'o', 'l', 'd'}); }

    TestFolder m_folder;
};

/// The line break of text files here, which is what a text stream of the standard library makes of \n.
std::string LineBreak(const fs::path& scratch)
{
    std::ofstream(scratch) << '\n';
    const Bytes bytes = ReadBytes(scratch);
    return {bytes.begin(), bytes.end()};
}

}  // namespace

TEST_F(DesignLog, IsFoundByItsSession)
{
    EXPECT_EQ(nullptr, VeDesignLog::GetLog(c_first));
    VeDesignLog* const first = Create(c_first);
    VeDesignLog* const second = Create(c_second);
    EXPECT_EQ(first, VeDesignLog::GetLog(c_first));
    EXPECT_EQ(second, VeDesignLog::GetLog(c_second));
    EXPECT_EQ(nullptr, VeDesignLog::GetLog(c_third));
}

TEST_F(DesignLog, OfASessionIsTheFirstThatWasMade)
{
    VeDesignLog* const first = Create(c_first);
    VeDesignLog* const again = Create(c_first);
    EXPECT_NE(first, again);
    EXPECT_EQ(first, VeDesignLog::GetLog(c_first));
    first->DeleteSessionLog();
    EXPECT_EQ(again, VeDesignLog::GetLog(c_first));
}

TEST_F(DesignLog, HasThePathThatFolderAndNameMake)
{
    EXPECT_EQ(m_folder.Prefix() + L"VeDesignLog.log", Create(c_first)->GetPath());
    EXPECT_EQ(m_folder.Prefix() + L"hallVeDesignLog.log", Create(c_second, L"hall")->GetPath());
}

TEST_F(DesignLog, IsAFileBesideAFolderThatHasNoSeparator)
{
    fs::create_directory(m_folder / "hall");
    Create(c_first, L"hall")->Write(L"text", 7);
    EXPECT_EQ("\ntext", Text("hallVeDesignLog.log"));
    EXPECT_TRUE(fs::is_empty(m_folder / "hall"));
}

TEST_F(DesignLog, DiscardsTheFileOfAnEarlierSession)
{
    Make("VeDesignLog.log");
    Make("Other.log");
    Create(c_first);
    EXPECT_FALSE(fs::exists(m_folder / "VeDesignLog.log"));
    EXPECT_TRUE(fs::exists(m_folder / "Other.log"));
    Create(c_second);  // a missing file is no error
    EXPECT_EQ(1u, m_folder.Count());
}

TEST_F(DesignLog, KeptDeletesFolderAndFoundNameLiterally)
{
    Make("preVeDesignLog.log");
    Make("prepreVeDesignLog.log");
    Create(c_first, L"pre");
    EXPECT_TRUE(fs::exists(m_folder / "preVeDesignLog.log"));
    EXPECT_FALSE(fs::exists(m_folder / "prepreVeDesignLog.log"));
}

TEST_F(DesignLog, LeavesWhatCannotBeDeleted)
{
    fs::create_directory(m_folder / "VeDesignLog.log");
    EXPECT_NE(nullptr, Create(c_first));
    EXPECT_TRUE(fs::exists(m_folder / "VeDesignLog.log"));
}

// clang-format off
TEST_F(DesignLog, LinesAreMarkedByTheirLevel)
{
    const struct
    {
        const char* expected;
        short level;
    } rows[] = {
        {"\nDATE TIME [INFORMATION] : text", 0},
        {"\nDATE TIME [WARNING]     : text", 1},
        {"\nDATE TIME [DEBUG]       : text", 2},
        {"\nDATE TIME [EXCEPTION]   : text", 3},
        {"\nDATE TIME [ERROR]       : text", 4},
        {"\ntext",                           5},
        {"\ntext",                           7},
        {"\ntext",                          -1},
        {"\ntext",                       32767},
        {"\ntext",                      -32768},
    };
    // clang-format on
    const VeDesignLog* const log = Create(c_first);
    for (const auto& row : rows)
    {
        fs::remove(m_folder / "VeDesignLog.log");
        log->Write(L"text", row.level);
        EXPECT_EQ(row.expected, Text()) << row.level;
    }
}

TEST_F(DesignLog, LinesBeginWithTheirLineBreak)
{
    const VeDesignLog* const log = Create(c_first);
    log->Write(L"one", 7);
    log->Write(L"two", 0);
    log->Write(L"", 7);
    log->Write(L"four", 7);
    EXPECT_EQ("\none\nDATE TIME [INFORMATION] : two\n\nfour", Text());
}

TEST_F(DesignLog, LineBreaksAreThoseOfATextFile)
{
    const std::string lineBreak = LineBreak(m_folder / "scratch");
    Create(c_first)->Write(L"a\nb\n\nc\n", 7);
    const Bytes bytes = RawBytes();
    EXPECT_EQ(lineBreak + "a" + lineBreak + "b" + lineBreak + lineBreak + "c" + lineBreak,
              std::string(bytes.begin(), bytes.end()));
}

TEST_F(DesignLog, TextsAreInUtf8OnBothBuilds)
{
    Create(c_first)->Write(L"Tr\u00E4ger \u03B1 \u20AC \U0001F3D7 %s", 7);
    EXPECT_EQ("\nTr\xC3\xA4ger \xCE\xB1 \xE2\x82\xAC \xF0\x9F\x8F\x97 %s", Text());
}

TEST_F(DesignLog, LinesSurviveCharactersWithoutAnEncoding)
{
    Create(c_first)->Write(std::wstring(L"a") + wchar_t(0xD800) + L"b" + wchar_t(0xDC00) + L"c" + L'\0' + L"d", 7);
    EXPECT_EQ(std::string("\na\xEF\xBF\xBD"
                          "b\xEF\xBF\xBD"
                          "c\0d",
                          12),
              Text());
}

TEST_F(DesignLog, LinesAreWholeWhateverTheirLength)
{
    const VeDesignLog* const log = Create(c_first);
    // Pairs of surrogates, on Windows, lie across every boundary at which a text could be cut.
    std::wstring text = L"x";
    std::string expected = "\nx";
    for (int i = 0; i < 100000; ++i)
    {
        text += L"\U0001F3D7";
        expected += "\xF0\x9F\x8F\x97";
    }
    log->Write(text, 7);
    log->Write(std::wstring(1048576, L'y'), 7);
    EXPECT_TRUE(Text() == expected + "\n" + std::string(1048576, 'y'));
}

TEST_F(DesignLog, IsNotOpenBetweenTheLines)
{
    const VeDesignLog* const log = Create(c_first);
    log->Write(L"one", 7);
    EXPECT_TRUE(fs::remove(m_folder / "VeDesignLog.log"));
    log->Write(L"two", 7);
    EXPECT_EQ("\ntwo", Text());
}

TEST_F(DesignLog, ThatCannotBeOpenedTellsTheDebugger)
{
    const VeDesignLog* const log = Create(c_first, L"missing/");
    const DebuggerOutput debugger;
    log->Write(L"text", 4);
    EXPECT_EQ(L"wofstream cannot be opened", debugger.Text());
    EXPECT_EQ(0u, m_folder.Count());
    log->Write(L"text", 4);
    EXPECT_EQ(L"wofstream cannot be openedwofstream cannot be opened", debugger.Text());
    fs::create_directory(m_folder / "missing");
    log->Write(L"text", 7);
    EXPECT_EQ("\ntext", Text("missing/VeDesignLog.log"));
}

TEST_F(DesignLog, KeptOnlyTheFirstOfAllIsDeleted)
{
    VeDesignLog* const first = Create(c_first);
    VeDesignLog* const second = Create(c_second);
    second->DeleteSessionLog();
    EXPECT_EQ(first, VeDesignLog::GetLog(c_first));
    EXPECT_EQ(second, VeDesignLog::GetLog(c_second));
    first->DeleteSessionLog();
    EXPECT_EQ(nullptr, VeDesignLog::GetLog(c_first));
    EXPECT_EQ(second, VeDesignLog::GetLog(c_second));
}

TEST_F(DesignLog, KeptDeletesTheFirstLogOfItsSessionInPlaceOfItself)
{
    Create(c_first);
    VeDesignLog* const again = Create(c_first);
    again->DeleteSessionLog();
    EXPECT_EQ(again, VeDesignLog::GetLog(c_first));
    again->Write(L"still here", 7);
    EXPECT_EQ("\nstill here", Text());
}

TEST_F(DesignLog, LeavesItsFileWhenItIsDeleted)
{
    VeDesignLog* const log = Create(c_first);
    log->Write(L"text", 7);
    log->DeleteSessionLog();
    EXPECT_EQ("\ntext", Text());
}

TEST_F(DesignLog, IsCopiedWithSessionAndPath)
{
    const VeDesignLog copy(*Create(c_first));
    VeDesignLog assigned(*Create(c_second, L"hall"));
    EXPECT_EQ(m_folder.Prefix() + L"hallVeDesignLog.log", assigned.GetPath());
    assigned = copy;
    assigned.Write(L"text", 7);
    EXPECT_EQ("\ntext", Text());
}
