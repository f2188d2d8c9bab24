#include "vetools/resources/VePrompts.h"

#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "vetools/framework/ModuleState.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

/// What the last provider was called with.
struct Call
{
    int count = 0;
    std::wstring text;
    unsigned id = 0;
    std::wstring module;
    unsigned flags = 99;
    HINSTANCE resourceModule = nullptr;
};

Call s_call;

bool Remember(CString& text, unsigned id, const wchar_t* module, unsigned flags)
{
    s_call = {s_call.count + 1, std::wstring(text.View()), id, module, flags, AfxGetResourceHandle()};
    return false;
}

bool Translate(CString& text, unsigned id, const wchar_t*, unsigned)
{
    if (id != 20925)
        return false;
    text = L"Metre";
    return true;
}

bool Count(CString& text, unsigned, const wchar_t*, unsigned)
{
    text.Format(L"%d", ++s_call.count);
    return true;
}

bool Throw(CString&, unsigned, const wchar_t*, unsigned)
{
    throw std::runtime_error("no prompts today");
}

class Prompts : public ::testing::Test
{
protected:
    Prompts() { s_call = Call(); }
    ~Prompts() override
    {
        VePrompts::SetProvider(nullptr);
        AfxSetResourceHandle(m_before);
    }

    HINSTANCE m_before = AfxGetResourceHandle();
};

CVeUnitBase Metre()
{
    return CVeUnitBase(Unit::UNIT_ID_LENGTH, 4, 2, L'.', 1.0, 1);
}

}  // namespace

TEST_F(Prompts, LeaveTheTextAloneWithoutAProvider)
{
    CString text(L"before");
    EXPECT_FALSE(VePrompts::HasProvider());
    EXPECT_FALSE(VePrompts::GetPrompt(text, 20925, L"TOOLS", 0));
    EXPECT_EQ(L"before", text);
}

TEST_F(Prompts, ReturnThePreviousProvider)
{
    EXPECT_EQ(nullptr, VePrompts::SetProvider(&Translate));
    EXPECT_EQ(&Translate, VePrompts::SetProvider(&Count));
    EXPECT_TRUE(VePrompts::HasProvider());
    EXPECT_EQ(&Count, VePrompts::SetProvider(nullptr));
    EXPECT_FALSE(VePrompts::HasProvider());
}

TEST_F(Prompts, SayWhetherAProviderReplacedTheText)
{
    VePrompts::SetProvider(&Translate);
    CString text(L"Mètre");
    EXPECT_TRUE(VePrompts::GetPrompt(text, 20925, L"TOOLS", 0));
    EXPECT_EQ(L"Metre", text);
    EXPECT_FALSE(VePrompts::GetPrompt(text, 20926, L"TOOLS", 0));
    EXPECT_EQ(L"Metre", text);
}

TEST_F(Prompts, PassTheArgumentsOn)
{
    VePrompts::SetProvider(&Remember);
    CString text(L"text");
    EXPECT_FALSE(VePrompts::GetPrompt(text, 7, L"HOST", 3));
    EXPECT_EQ(1, s_call.count);
    EXPECT_EQ(L"text", s_call.text);
    EXPECT_EQ(7U, s_call.id);
    EXPECT_EQ(L"HOST", s_call.module);
    EXPECT_EQ(3U, s_call.flags);
}

TEST_F(Prompts, AreAskedForATitleWithTheBuiltInTextWhileTheLibraryIsCurrent)
{
    const HINSTANCE host = reinterpret_cast<HINSTANCE>(std::uintptr_t{0x10000});
    AfxSetResourceHandle(host);
    VePrompts::SetProvider(&Remember);
    Metre();
    EXPECT_EQ(L"Mètre", s_call.text);
    EXPECT_EQ(20925U, s_call.id);
    EXPECT_EQ(L"TOOLS", s_call.module);
    EXPECT_EQ(0U, s_call.flags);
    EXPECT_EQ(GetVeToolsModule(), s_call.resourceModule);
    EXPECT_EQ(host, AfxGetResourceHandle());
}

TEST_F(Prompts, AreAskedEachTime)
{
    VePrompts::SetProvider(&Count);
    EXPECT_STREQ(L"1", Metre().GetTitle());
    EXPECT_STREQ(L"2", CVeUnitBase(Unit::UNIT_ID_LENGTH, 4, 2, L'.', 1.0, 1).GetTitle());
}

TEST_F(Prompts, LetAnExceptionOfTheProviderThroughAndRestoreTheResourceModule)
{
    const HINSTANCE host = reinterpret_cast<HINSTANCE>(std::uintptr_t{0x10000});
    AfxSetResourceHandle(host);
    VePrompts::SetProvider(&Throw);
    EXPECT_THROW(Metre(), std::runtime_error);
    EXPECT_EQ(host, AfxGetResourceHandle());
}
