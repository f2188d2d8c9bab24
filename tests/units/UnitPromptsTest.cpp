#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/UnitTestSupport.h"
#include "vetools/framework/ModuleState.h"
#include "vetools/resources/VePrompts.h"

namespace
{

struct Call
{
    std::wstring text;
    unsigned id;
    std::wstring module;
    unsigned flags;
    HINSTANCE current;
};

std::vector<Call> s_calls;
std::wstring s_answer;

bool Record(CString& text, unsigned id, const wchar_t* module, unsigned flags)
{
    s_calls.push_back({std::wstring(text.View()), id, module, flags, AfxGetResourceHandle()});
    return false;
}

bool Answer(CString& text, unsigned, const wchar_t*, unsigned)
{
    text = s_answer.c_str();
    return true;
}

bool AnswerSquareInchOnly(CString& text, unsigned id, const wchar_t*, unsigned)
{
    if (id != 21020)
        return false;
    text = s_answer.c_str();
    return true;
}

bool Throw(CString&, unsigned, const wchar_t*, unsigned)
{
    throw std::runtime_error("no prompts today");
}

/// Installs a provider, and makes another module than the library's the current one, while a test runs.
class UnitPrompts : public testing::Test
{
protected:
    UnitPrompts()
        : m_before(AfxGetResourceHandle())
    {
        s_calls.clear();
        AfxSetResourceHandle(m_host);
    }
    ~UnitPrompts() override
    {
        VePrompts::SetProvider(nullptr);
        AfxSetResourceHandle(m_before);
    }
    void ExpectHostIsCurrent() const { EXPECT_EQ(m_host, AfxGetResourceHandle()); }

    const HINSTANCE m_host = reinterpret_cast<HINSTANCE>(&s_calls);

private:
    const HINSTANCE m_before;
};

void ExpectCall(const Call& call, unsigned id, const wchar_t* text)
{
    EXPECT_EQ(id, call.id);
    EXPECT_EQ(text, call.text) << id;
    EXPECT_EQ(L"TOOLS", call.module);
    EXPECT_EQ(0u, call.flags);
    EXPECT_EQ(GetVeToolsModule(), call.current) << "the library is the current module during the call";
}

}  // namespace

TEST_F(UnitPrompts, AreAskedForTheTitleAtEveryRefresh)
{
    CVeUnitBase unit;
    VePrompts::SetProvider(Record);
    unit.SetRange(1);
    unit.SetRange(1);
    unit.SetIdUnit(26);
    unit.SetIdUnitAndRange(7, 12);
    ASSERT_EQ(4u, s_calls.size());
    ExpectCall(s_calls[0], 20922, L"Millimètre");
    ExpectCall(s_calls[1], 20922, L"Millimètre");
    ExpectCall(s_calls[2], 21044, L"Millimeter²");
    ExpectCall(s_calls[3], 20900, L"KiloLivreForce par pouce²");
    ExpectHostIsCurrent();
}

TEST_F(UnitPrompts, AreNotAskedForUnknownUnits)
{
    VePrompts::SetProvider(Record);
    MakeCatalogueUnit(27, 0);
    MakeCatalogueUnit(1, 11);
    EXPECT_TRUE(s_calls.empty());
}

TEST_F(UnitPrompts, ReplaceTheTitleAndNotTheSymbol)
{
    s_answer = L"Millimetre";
    VePrompts::SetProvider(Answer);
    CVeUnitBase unit = MakeCatalogueUnit(1, 1);
    EXPECT_EQ(L"mm", NameOf(unit));
    EXPECT_STREQ(L"Millimetre", unit.GetTitle());
    ExpectHostIsCurrent();
}

TEST_F(UnitPrompts, AreCutToTheTitle)
{
    for (const std::size_t length : {0, 48, 49, 50, 5000})
    {
        s_answer = std::wstring(length, L'x');
        VePrompts::SetProvider(Answer);
        CVeUnitBase unit = MakeCatalogueUnit(1, 1);
        EXPECT_EQ(s_answer.substr(0, 49), unit.GetTitle()) << length;
        EXPECT_EQ(L"mm", NameOf(unit)) << length;
        EXPECT_EQ(1000.0, unit.GetCoef()) << length;
    }
}

TEST_F(UnitPrompts, AreAskedForTheFourWordsWhenANameHasMarks)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 5);
    unit.SetName(L"\"²");
    VePrompts::SetProvider(Record);
    EXPECT_EQ(L"sq in", NameOf(unit));
    ASSERT_EQ(4u, s_calls.size());
    ExpectCall(s_calls[0], 21020, L"sq in");
    ExpectCall(s_calls[1], 21021, L"sq ft");
    ExpectCall(s_calls[2], 21022, L"cu in");
    ExpectCall(s_calls[3], 21023, L"cu ft");
    ExpectHostIsCurrent();
}

TEST_F(UnitPrompts, AreNotAskedForANameWithoutMarks)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 1);
    VePrompts::SetProvider(Record);
    EXPECT_EQ(L"mm", NameOf(unit));
    EXPECT_TRUE(s_calls.empty());
}

TEST_F(UnitPrompts, GiveTheWordsOfNamesAndTitles)
{
    s_answer = L"po²";
    CVeUnitBase unit;
    unit.SetUnitValues(L"\"²-\"", L"\"²/'²", 1.0);
    VePrompts::SetProvider(AnswerSquareInchOnly);
    EXPECT_EQ(L"po²/sq ft", NameOf(unit));
    EXPECT_STREQ(L"po²-Pouce", unit.GetTitle()) << "a lone mark is a built-in text";
}

TEST_F(UnitPrompts, AreNotAskedByLookUpsPluralsAndSymbols)
{
    s_answer = L"replaced";
    const CVeUnitBase metre;
    VePrompts::SetProvider(Answer);
    unsigned int range = 0;
    EXPECT_TRUE(CVeUnitBase::GetRangeFromUnitTitle(L"Mètre", &range));
    EXPECT_FALSE(CVeUnitBase::GetRangeFromUnitTitle(L"replaced", &range));
    EXPECT_STREQ(L"mètres", metre.GetTitlePlural());
    EXPECT_STREQ(L"µm", CVeUnitBase::GetAllUnitsSymbols(1).front());
}

TEST_F(UnitPrompts, OfWordsThatHoldTheirOwnMarksComeToAnEnd)
{
    CVeUnitBase unit;
    VePrompts::SetProvider(AnswerSquareInchOnly);
    for (const wchar_t* hostile : {L"\"²", L"x\"²", L"\"²\"²", L"\"²\"2\"3'²'2'3", L"\"\"2", L"\"2", L"²", L"\"", L""})
    {
        s_answer = hostile;
        unit.SetUnitValues(L"\"²\"2\"3'²'2'3\"'", L"\"²\"2\"3'²'2'3\"'", 1.0);
        EXPECT_LT(unit.GetName().GetLength(), 100000) << testing::PrintToString(s_answer);
        EXPECT_LE(std::wstring(unit.GetTitle()).size(), 49u) << testing::PrintToString(s_answer);
        unit.SetExponent(2);
        unit.SetExponent(1);
    }
    s_answer = L"x\"²";
    unit.SetName(L"\"²");
    EXPECT_EQ(std::wstring(20, L'x') + L"\"²", NameOf(unit)) << "as often as a name has characters";
}

TEST_F(UnitPrompts, ThatThrowLeaveTheHostsModuleCurrent)
{
    CVeUnitBase unit;
    VePrompts::SetProvider(Throw);
    EXPECT_THROW(unit.SetRange(1), std::runtime_error);
    ExpectHostIsCurrent();
    unit.SetName(L"'²");
    EXPECT_THROW(unit.GetName(), std::runtime_error);
    ExpectHostIsCurrent();
}
