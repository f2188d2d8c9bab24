#include "vetools/util/ConsoleOutput.h"

#include <climits>
#include <vector>

#include <gtest/gtest.h>

namespace
{

struct Message
{
    const wchar_t* text;
    int flag;
};

std::vector<Message> g_messages;

void Collect(const wchar_t* text, int flag)
{
    g_messages.push_back({text, flag});
}

void Ignore(const wchar_t*, int) {}

class ConsoleOutput : public ::testing::Test
{
protected:
    ConsoleOutput() { g_messages.clear(); }
    ~ConsoleOutput() override { CConsoleOutput::SetHandle(nullptr); }
};

}  // namespace

TEST_F(ConsoleOutput, WithoutAHandlerAMessageIsDropped)
{
    EXPECT_EQ(nullptr, CConsoleOutput::m_handleDisplay);
    CConsoleOutput::WriteMessage(L"nobody reads this", 1);
    CConsoleOutput::WriteMessage(nullptr, 0);
}

TEST_F(ConsoleOutput, TheHandlerReceivesTheTextAndTheFlagReducedToZeroOrOne)
{
    CConsoleOutput::SetHandle(&Collect);
    EXPECT_EQ(&Collect, CConsoleOutput::m_handleDisplay);
    const wchar_t text[] = L"12 beams";
    const struct
    {
        int expected;
        int flag;
    } rows[] = {{0, 0}, {1, 1}, {1, 5}, {1, -1}, {1, 256}, {1, INT_MIN}, {1, INT_MAX}};
    for (const auto& row : rows)
    {
        CConsoleOutput::WriteMessage(text, row.flag);
        EXPECT_EQ(text, g_messages.back().text) << row.flag;
        EXPECT_EQ(row.expected, g_messages.back().flag) << row.flag;
    }
    EXPECT_EQ(std::size(rows), g_messages.size());
}

TEST_F(ConsoleOutput, ANullTextReachesTheHandler)
{
    CConsoleOutput::SetHandle(&Collect);
    CConsoleOutput::WriteMessage(nullptr, 0);
    ASSERT_EQ(1u, g_messages.size());
    EXPECT_EQ(nullptr, g_messages[0].text);
}

TEST_F(ConsoleOutput, AHandlerReplacesTheOneBeforeAndNullRemovesIt)
{
    CConsoleOutput::SetHandle(&Collect);
    CConsoleOutput::SetHandle(&Ignore);
    CConsoleOutput::WriteMessage(L"ignored", 0);
    CConsoleOutput::SetHandle(&Collect);
    CConsoleOutput::SetHandle(nullptr);
    CConsoleOutput::WriteMessage(L"dropped", 0);
    EXPECT_TRUE(g_messages.empty());
}

TEST_F(ConsoleOutput, ObjectsHaveNoPartInIt)
{
    CConsoleOutput::SetHandle(&Collect);
    {
        CConsoleOutput first;
        const CConsoleOutput second;
        first = second;
    }
    EXPECT_EQ(&Collect, CConsoleOutput::m_handleDisplay);
}
