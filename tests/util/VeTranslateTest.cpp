#include "vetools/util/VeTranslate.h"

#include <climits>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/TextPrinting.h"
#include "vetools/framework/ModuleState.h"

// TestFrench and TestEnglish are modules that the build makes beside this program, of the rows in tests/util/modules.

namespace
{

constexpr int c_beam = 1001;
constexpr int c_plate = 1002;
constexpr int c_frenchOnly = 1003;

/// What a derived class sees of the two modules.
class Translate : public CVeTranslate
{
public:
    using CVeTranslate::CVeTranslate;

    HINSTANCE ResourceModule() const { return m_hResDll; }
    const wchar_t* ResourceName() const { return m_szResDll; }
    const wchar_t* DocumentName() const { return m_szDocDll; }
};

CString CurrentText(UINT id)
{
    CString text;
    return text.LoadString(id) ? text : CString();
}

class VeTranslate : public ::testing::Test
{
protected:
    ~VeTranslate() override { AfxSetResourceHandle(m_before); }

    HINSTANCE m_before = AfxGetResourceHandle();
};

}  // namespace

TEST_F(VeTranslate, LoadsTheTextsOfTheProgramAndOfDocuments)
{
    const Translate language(L"TestFrench", L"TestEnglish");
    EXPECT_NE(nullptr, language.ResourceModule());
    EXPECT_NE(nullptr, language.GetHandleDoc());
    EXPECT_NE(language.ResourceModule(), language.GetHandleDoc());
    EXPECT_EQ(L"Poutre", CurrentText(c_beam));
    EXPECT_EQ(L"Beam", language.GetStringDoc(c_beam));
    EXPECT_STREQ(L"TestFrench", language.ResourceName());
    EXPECT_STREQ(L"TestEnglish", language.DocumentName());
}

TEST_F(VeTranslate, MakesTheResourceModuleTheCurrentOne)
{
    const Translate language(L"TestFrench", L"TestEnglish");
    EXPECT_EQ(language.ResourceModule(), AfxGetResourceHandle());
}

TEST_F(VeTranslate, ANullResourceNameLoadsOnlyTheDocumentationAndLeavesTheCurrentModule)
{
    const Translate language(nullptr, L"TestEnglish");
    EXPECT_EQ(nullptr, language.ResourceModule());
    EXPECT_STREQ(L"", language.ResourceName());
    EXPECT_EQ(m_before, AfxGetResourceHandle());
    EXPECT_EQ(L"End plate", language.GetStringDoc(c_plate));
}

TEST_F(VeTranslate, ANullDocumentationNameGivesNoModuleAndNoText)
{
    const Translate language(L"TestFrench", nullptr);
    EXPECT_EQ(nullptr, language.GetHandleDoc());
    EXPECT_STREQ(L"", language.DocumentName());
    EXPECT_EQ(L"", language.GetStringDoc(c_beam));
    EXPECT_EQ(L"Poutre", CurrentText(c_beam));
}

TEST_F(VeTranslate, AResourceLibraryThatCannotBeLoadedLeavesTheCurrentModule)
{
    const Translate language(L"TestNowhere", L"TestEnglish");
    EXPECT_EQ(nullptr, language.ResourceModule());
    EXPECT_STREQ(L"TestNowhere", language.ResourceName());
    EXPECT_EQ(m_before, AfxGetResourceHandle());
    EXPECT_EQ(L"Beam", language.GetStringDoc(c_beam));
}

TEST_F(VeTranslate, WhatIsNoModuleGivesNullHandlesAndNoText)
{
    const TestFolder folder;
    WriteBytes(folder / "text.dll", {'h', 'e', 'l', 'l', 'o', '\n'});
    WriteBytes(folder / "empty.dll", {});
    std::filesystem::create_directory(folder / "folder.dll");
    for (const CString& name :
         {folder[L"text.dll"], folder[L"empty.dll"], folder[L"folder.dll"], folder[L"missing.dll"], folder[L""],
          CString(L""), CString(L"."), CString(L"\\"), CString(L"*?<>|")})
    {
        const Translate language(name, name);
        EXPECT_EQ(nullptr, language.ResourceModule()) << testing::PrintToString(name);
        EXPECT_EQ(nullptr, language.GetHandleDoc()) << testing::PrintToString(name);
        EXPECT_EQ(L"", language.GetStringDoc(c_beam)) << testing::PrintToString(name);
        EXPECT_EQ(m_before, AfxGetResourceHandle()) << testing::PrintToString(name);
    }
}

TEST_F(VeTranslate, KeepsTheFirst259CharactersOfALongName)
{
    for (const std::size_t length : {258u, 259u, 260u, 261u, 5000u})
    {
        const std::wstring name(length, L'n');
        Translate language(name.c_str(), name.c_str());
        const std::wstring kept = name.substr(0, 259);
        EXPECT_EQ(kept, language.ResourceName()) << length;
        EXPECT_EQ(kept, language.DocumentName()) << length;
        EXPECT_EQ(nullptr, language.GetHandleDoc()) << length;
        language.ChangeDllDoc((name + L"x").c_str());
        EXPECT_EQ((name + L"x").substr(0, 259), language.DocumentName()) << length;
    }
}

TEST_F(VeTranslate, LoadsByTheWholeOfALongName)
{
    std::wstring name = (std::filesystem::path(testing::internal::GetArgvs()[0]).parent_path() / L"").wstring();
    while (name.size() < 300)
        name += std::filesystem::path(L"./").make_preferred().wstring();
    name += L"TestEnglish";
    const Translate language(nullptr, name.c_str());
    EXPECT_EQ(L"Beam", language.GetStringDoc(c_beam));
    EXPECT_EQ(name.substr(0, 259), language.DocumentName());
}

TEST_F(VeTranslate, ChangesTheDocumentationWithoutTheResources)
{
    Translate language(L"TestFrench", L"TestEnglish");
    language.ChangeDllDoc(L"TestFrench");
    EXPECT_EQ(L"en français seulement", language.GetStringDoc(c_frenchOnly));
    EXPECT_EQ(language.ResourceModule(), language.GetHandleDoc());
    EXPECT_STREQ(L"TestFrench", language.DocumentName());
    language.ChangeDllDoc(L"TestFrench");  // the one that is loaded
    EXPECT_EQ(L"Poutre", language.GetStringDoc(c_beam));
    language.ChangeDllDoc(nullptr);
    EXPECT_EQ(nullptr, language.GetHandleDoc());
    EXPECT_EQ(L"", language.GetStringDoc(c_beam));
    EXPECT_STREQ(L"", language.DocumentName());
    EXPECT_EQ(L"Poutre", CurrentText(c_beam));
    language.ChangeDllDoc(L"TestEnglish");
    EXPECT_EQ(L"Beam", language.GetStringDoc(c_beam));
}

TEST_F(VeTranslate, ChangingTheDocumentationFreesTheModuleBefore)
{
    CVeTranslate language(nullptr, L"TestEnglish");
    const HINSTANCE english = language.GetHandleDoc();
    language.ChangeDllDoc(L"TestFrench");
    EXPECT_EQ(L"", VeGetStringDoc(english, c_beam));
}

TEST_F(VeTranslate, TheDestructorFreesBothModules)
{
    HINSTANCE resources = nullptr;
    HINSTANCE documents = nullptr;
    {
        const Translate language(L"TestFrench", L"TestEnglish");
        resources = language.ResourceModule();
        documents = language.GetHandleDoc();
    }
    EXPECT_EQ(0, AfxFreeLibrary(resources));
    EXPECT_EQ(0, AfxFreeLibrary(documents));
}

TEST_F(VeTranslate, KeptTheDestructorLeavesItsModuleCurrentAndNoTextIsFoundInIt)
{
    HINSTANCE resources = nullptr;
    {
        const Translate language(L"TestFrench", L"TestEnglish");
        resources = language.ResourceModule();
    }
    EXPECT_EQ(resources, AfxGetResourceHandle());
    EXPECT_EQ(L"", CurrentText(c_beam));
}

TEST_F(VeTranslate, KeptCopiesShareTheHandlesAndFreeThemAgain)
{
    std::optional<Translate> original(std::in_place, L"TestFrench", L"TestEnglish");
    const Translate copy(*original);
    EXPECT_EQ(original->ResourceModule(), copy.ResourceModule());
    EXPECT_EQ(original->GetHandleDoc(), copy.GetHandleDoc());
    EXPECT_STREQ(L"TestFrench", copy.ResourceName());
    EXPECT_STREQ(L"TestEnglish", copy.DocumentName());
    EXPECT_EQ(L"Beam", copy.GetStringDoc(c_beam));

    original.reset();
    EXPECT_EQ(L"", copy.GetStringDoc(c_beam));  // unloaded with the original; freed again at the end
}

TEST_F(VeTranslate, KeptAssignmentSharesTheHandlesAndFreesNone)
{
    const Translate source(nullptr, L"TestEnglish");
    Translate target(nullptr, L"TestFrench");
    const HINSTANCE french = target.GetHandleDoc();
    target = source;
    EXPECT_EQ(source.GetHandleDoc(), target.GetHandleDoc());
    EXPECT_STREQ(L"TestEnglish", target.DocumentName());
    EXPECT_EQ(L"Poutre", VeGetStringDoc(french, c_beam));
    EXPECT_EQ(1, AfxFreeLibrary(french));
}

TEST_F(VeTranslate, GivesTextsOfAnyLengthAndAnyCharacters)
{
    const CVeTranslate language(nullptr, L"TestFrench");
    EXPECT_EQ(L"première", language.GetStringDoc(1));
    EXPECT_EQ(L"Plaque d'about", language.GetStringDoc(c_plate));
    EXPECT_EQ(L"pouce \", barre \\, tabulation \t, fin\r\n", language.GetStringDoc(1100));
    EXPECT_EQ(L"%s // %d%% /* ?? */ 'x' ; # @ $", language.GetStringDoc(1101));
    EXPECT_EQ(L"é œ € Ж 中 𝄞", language.GetStringDoc(1102));
    EXPECT_EQ(L"", language.GetStringDoc(1103));

    const CString longText = language.GetStringDoc(1104);
    ASSERT_EQ(2000, longText.GetLength());
    EXPECT_EQ(L"000|001|", longText.Left(8));
    EXPECT_EQ(L"498|499|", longText.Right(8));
}

TEST_F(VeTranslate, IdsThatNoStringTableHoldsGiveNoText)
{
    const CVeTranslate language(nullptr, L"TestFrench");
    EXPECT_EQ(L"dernière", language.GetStringDoc(65535));
    // 65536 + 1001 and -1 are 1001 and 65535 to some systems.
    for (const int id :
         {INT_MIN, -65535, -1001, -1, 0, 2, 65534, 65536, 65536 + 1, 65536 + c_beam, 0x100000 + c_beam, INT_MAX})
    {
        EXPECT_EQ(L"", language.GetStringDoc(id)) << id;
        EXPECT_EQ(L"", VeGetStringDoc(language.GetHandleDoc(), id)) << id;
    }
}

TEST_F(VeTranslate, ANullModuleHasNoTexts)
{
    EXPECT_EQ(L"", VeGetStringDoc(nullptr, c_beam));
    EXPECT_EQ(L"", VeGetStringDoc(nullptr, 20925));
}

TEST_F(VeTranslate, GivesTheTextsOfAnyModule)
{
    EXPECT_EQ(L"Mètre", VeGetStringDoc(GetVeToolsModule(), 20925));
}

TEST_F(VeTranslate, TheLibraryItselfIsAModuleOfTexts)
{
    int found = 0;
    for (const wchar_t* name : {L"vetools", L"libvetools"})  // there is one of them in each build
    {
        const CVeTranslate language(nullptr, name);
        if (language.GetHandleDoc() == nullptr)
            continue;
        ++found;
        EXPECT_EQ(GetVeToolsModule(), language.GetHandleDoc());
        EXPECT_EQ(L"Mètre", language.GetStringDoc(20925));
    }
    EXPECT_EQ(1, found);
    EXPECT_EQ(L"Mètre", VeGetStringDoc(GetVeToolsModule(), 20925));  // freed as often as loaded
}
