#include "vetools/unitmanager/VeUnit.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/UnitTestSupport.h"
#include "vetools/framework/ModuleState.h"
#include "vetools/resources/VePrompts.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

/// A reference that a client holds.
class Client
{
public:
    explicit Client(CVeUnit& unit)
    {
        void* object = nullptr;
        EXPECT_EQ(S_OK, unit.ExternalQueryInterface(&IID_IComUnit, &object));
        m_unit = static_cast<IComUnit*>(object);
    }
    ~Client() { m_unit->Release(); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    IComUnit* operator->() const { return m_unit; }
    IComUnit* Get() const { return m_unit; }

private:
    IComUnit* m_unit;
};

/// The text that a method returns, freed.
std::wstring Take(BSTR text)
{
    const std::wstring taken(text, ::SysStringLen(text));
    EXPECT_EQ(L'\0', text[taken.size()]);
    ::SysFreeString(text);
    return taken;
}

CVeUnit MakeUnit(unsigned int idUnit, unsigned int range)
{
    return CVeUnit(idUnit, range, 3, L'.', 1.0, 0);
}

/// Tells when it is destroyed.
class WatchedUnit : public CVeUnit
{
public:
    explicit WatchedUnit(int& destroyed)
        : m_destroyed(destroyed)
    {
    }
    ~WatchedUnit() override { ++m_destroyed; }

private:
    int& m_destroyed;
};

int s_prompts = 0;
int s_promptsOutsideTheLibrary = 0;

bool WatchModule(CString&, unsigned, const wchar_t*, unsigned)
{
    ++s_prompts;
    if (AfxGetResourceHandle() != GetVeToolsModule())
        ++s_promptsOutsideTheLibrary;
    return false;
}

/// Answers with a text that holds a terminator: m, NUL, n.
bool AnswerWithATerminatorInside(CString& text, unsigned id, const wchar_t*, unsigned)
{
    if (id != 21020)
        return false;
    text = CString(L"m\0n", 3);
    return true;
}

/// Installs a provider and another current module than the library's while a test runs.
class VeUnitInAHost : public ::testing::Test
{
protected:
    VeUnitInAHost()
        : m_before(AfxGetResourceHandle())
    {
        AfxSetResourceHandle(m_host);
        VePrompts::SetProvider(&WatchModule);
        s_prompts = 0;
        s_promptsOutsideTheLibrary = 0;
    }
    ~VeUnitInAHost() override
    {
        VePrompts::SetProvider(nullptr);
        AfxSetResourceHandle(m_before);
    }
    void ExpectTheLibraryWasCurrentDuringPrompts(const char* method)
    {
        EXPECT_LT(0, s_prompts) << method;
        EXPECT_EQ(0, s_promptsOutsideTheLibrary) << method;
        EXPECT_EQ(m_host, AfxGetResourceHandle()) << method;
        s_prompts = 0;
    }

    const HINSTANCE m_host = reinterpret_cast<HINSTANCE>(&s_prompts);

private:
    const HINSTANCE m_before;
};

}  // namespace

// --- construction and copies -----------------------------------------------------------------------------------------

TEST(VeUnit, IsTheMetreByDefault)
{
    const CVeUnit unit;
    EXPECT_TRUE(unit == CVeUnitBase());
    EXPECT_EQ(L"m", NameOf(unit));
    EXPECT_EQ(1, unit.m_dwRef);
}

TEST(VeUnit, ForwardsTheSixValuesOfAUnit)
{
    const CVeUnit unit(2, 2, 5, L';', 7.0, 1);
    const CVeUnitBase expected(2, 2, 5, L';', 7.0, 1);
    EXPECT_TRUE(unit == expected);
    EXPECT_EQ(L"kN", NameOf(unit));
    EXPECT_EQ(7.0, unit.GetMetricsFactor());
    EXPECT_EQ(1, unit.GetRemoveTrailingZeroes());
}

TEST(VeUnit, CopiesAPlainUnitWithItsComposedTexts)
{
    CVeUnitBase base = MakeCatalogueUnit(1, 1);
    base.SetExponent(3);
    const CVeUnit unit(base);
    EXPECT_EQ(L"mm3", NameOf(unit));
    EXPECT_EQ(base.GetCoef(), unit.GetCoef());
    EXPECT_EQ(3, unit.GetExponent());
}

TEST(VeUnit, CopiesTheUnitButNotTheReferences)
{
    CVeUnit unit = MakeUnit(2, 3);
    unit.ExternalAddRef();
    CVeUnit copy(unit);
    EXPECT_EQ(1, copy.m_dwRef);
    EXPECT_TRUE(copy == unit);
    copy.ExternalAddRef();
    copy.ExternalAddRef();
    copy = MakeUnit(3, 2);
    EXPECT_EQ(3, copy.m_dwRef);
    EXPECT_EQ(L"kN*m", NameOf(copy));
    copy = MakeCatalogueUnit(4, 1);
    EXPECT_EQ(3, copy.m_dwRef);
    EXPECT_EQ(4u, copy.GetIDUnit());
}

TEST(VeUnit, AssignsToItselfAndReturnsItself)
{
    CVeUnit unit = MakeUnit(2, 2);
    CVeUnit& same = unit;
    EXPECT_EQ(&unit, &(unit = same));
    EXPECT_EQ(L"kN", NameOf(unit));
    EXPECT_EQ(&unit, &(unit = MakeCatalogueUnit(1, 2)));
    EXPECT_EQ(L"cm", NameOf(unit));
}

TEST(VeUnit, ReplacesAFullStopByTheCurrentSeparatorWhenItIsCopied)
{
    CVeUnit unit;
    unit.SetSep(L'.');
    const ScopedSeparator comma(L',');
    const CVeUnit copy(unit);
    EXPECT_EQ(L'.', unit.GetSep());
    EXPECT_EQ(L',', copy.GetSep());
}

TEST(VeUnit, GivesACloneWithItsOwnReferences)
{
    CVeUnit unit = MakeUnit(5, 1);
    unit.ExternalAddRef();
    const std::unique_ptr<CVeUnit> clone(unit.GetClone());
    ASSERT_NE(nullptr, clone);
    EXPECT_NE(&unit, clone.get());
    EXPECT_TRUE(*clone == unit);
    EXPECT_EQ(1, clone->m_dwRef);
}

TEST(VeUnit, IsDeletedThroughAPointerToAnyOfItsClasses)
{
    int destroyed = 0;
    delete static_cast<CCmdTarget*>(new WatchedUnit(destroyed));
    EXPECT_EQ(1, destroyed);
    delete static_cast<CVeUnitBase*>(new WatchedUnit(destroyed));
    EXPECT_EQ(2, destroyed);
    delete static_cast<CVeUnit*>(new WatchedUnit(destroyed));
    EXPECT_EQ(3, destroyed);
}

TEST(VeUnit, IsDeletedOnceByItsLastClientWhenItsMakerLetGo)
{
    int destroyed = 0;
    auto* unit = new WatchedUnit(destroyed);
    void* object = nullptr;
    ASSERT_EQ(S_OK, unit->ExternalQueryInterface(&IID_IComUnit, &object));
    EXPECT_EQ(1u, unit->ExternalRelease());
    EXPECT_EQ(0, destroyed);
    EXPECT_EQ(0u, static_cast<IComUnit*>(object)->Release());
    EXPECT_EQ(1, destroyed);
}

TEST(VeUnit, StaysItsManagersWhenItsClientsHaveLeft)
{
    CVeUnitManager manager;
    CVeUnit& unit = manager.GetVisUnit(2);
    {
        const Client first(unit);
        const Client second(unit);
        EXPECT_EQ(3, unit.m_dwRef);
    }
    EXPECT_EQ(1, unit.m_dwRef);
    EXPECT_EQ(&unit, &manager.GetVisUnit(2));
    EXPECT_EQ(L"kN", NameOf(unit));
}

// --- comparison ------------------------------------------------------------------------------------------------------

TEST(VeUnit, IsEqualWhenTheSevenComparedFieldsAre)
{
    struct Row
    {
        const char* field;
        bool equal;
        void (*change)(CVeUnit&);
    };
    const Row rows[] = {
        {"nothing", true,
         [](CVeUnit&) {
         }},
        {"unit id", false,
         [](CVeUnit& unit)
         {
             unit.SetIdUnit(12);
         }},
        {"range", false,
         [](CVeUnit& unit)
         {
             unit.SetRange(2);
         }},
        {"precision", false,
         [](CVeUnit& unit)
         {
             unit.SetPrecision(4);
         }},
        {"unit format", false,
         [](CVeUnit& unit)
         {
             unit.SetUnitFormat(Unit::UNITFORMAT_FRACTION);
         }},
        {"separator", false,
         [](CVeUnit& unit)
         {
             unit.SetSep(L';');
         }},
        {"metrics factor", false,
         [](CVeUnit& unit)
         {
             unit.SetMetricsFactor(1.0000000000000002);
         }},
        {"trailing zeros", false,
         [](CVeUnit& unit)
         {
             unit.SetRemoveTrailingZeroes(1);
         }},
        {"coefficient", true,
         [](CVeUnit& unit)
         {
             unit.SetCoef(5.0);
         }},
        {"texts", true,
         [](CVeUnit& unit)
         {
             unit.SetUnitValues(L"title", L"name", 1000.0);
         }},
        {"references", true,
         [](CVeUnit& unit)
         {
             unit.ExternalAddRef();
         }},
    };
    const CVeUnit unit = MakeUnit(1, 1);
    const CVeUnitBase& base = unit;
    for (const Row& row : rows)
    {
        CVeUnit other(unit);
        row.change(other);
        const CVeUnitBase& otherBase = other;
        const int equal = row.equal ? 1 : 0;
        EXPECT_EQ(equal, unit == other) << row.field;
        EXPECT_EQ(equal, other == unit) << row.field;
        EXPECT_EQ(equal, unit == otherBase) << row.field;
        EXPECT_EQ(equal, base == other) << row.field;
        EXPECT_EQ(1 - equal, unit != other) << row.field;
        EXPECT_EQ(1 - equal, unit != otherBase) << row.field;
        EXPECT_EQ(1 - equal, base != other) << row.field;
    }
}

TEST(VeUnit, IsEqualToOneThatDiffersInItsExponentOnly)
{
    const CVeUnit unit = MakeUnit(1, 1);
    CVeUnit square(unit);
    square.SetExponent(2);
    EXPECT_EQ(1, unit == square);
    EXPECT_EQ(0, unit != square);
}

// --- products --------------------------------------------------------------------------------------------------------

TEST(VeUnit, KeptTheProductIsStoredInTheLeftUnitToo)
{
    CVeUnit a = MakeUnit(2, 2);
    CVeUnit b = MakeUnit(1, 1);
    a.ExternalAddRef();
    const CVeUnit& constant = a;
    const CVeUnit c = constant * b;
    for (const CVeUnit* unit : {&c, &constant})
    {
        EXPECT_EQ(L"kNmm", NameOf(*unit));
        EXPECT_DOUBLE_EQ(1.0, unit->GetCoef());
        EXPECT_EQ(2u, unit->GetIDUnit());
    }
    EXPECT_EQ(L"mm", NameOf(b));
    EXPECT_EQ(2, a.m_dwRef);
    EXPECT_EQ(1, c.m_dwRef);
}

TEST(VeUnit, KeptTheQuotientIsStoredInTheLeftUnitToo)
{
    CVeUnit a = MakeUnit(2, 2);
    CVeUnit b = MakeUnit(1, 1);
    const CVeUnit c = a / b;
    for (const CVeUnit* unit : {&c, static_cast<const CVeUnit*>(&a)})
    {
        EXPECT_EQ(L"kN/mm", NameOf(*unit));
        EXPECT_DOUBLE_EQ(1e-6, unit->GetCoef());
    }
    EXPECT_EQ(L"mm", NameOf(b));
}

TEST(VeUnit, MultipliesAndDividesInPlace)
{
    CVeUnit a = MakeUnit(2, 2);
    CVeUnit b = MakeUnit(1, 4);
    EXPECT_EQ(&a, &(a *= b));
    EXPECT_EQ(L"kNm", NameOf(a));
    EXPECT_EQ(&a, &(a /= b));
    EXPECT_EQ(L"kNm/m", NameOf(a));
    EXPECT_EQ(&a, &(a *= a));
    EXPECT_EQ(L"kNm/mkNm/m", NameOf(a));
}

// --- the interface ---------------------------------------------------------------------------------------------------

TEST(VeUnitInterface, CountsTheUnitsReferences)
{
    CVeUnit unit;
    const Client client(unit);
    EXPECT_EQ(2, unit.m_dwRef);
    EXPECT_EQ(3u, client->AddRef());
    EXPECT_EQ(4u, unit.ExternalAddRef());
    EXPECT_EQ(3u, client->Release());
    EXPECT_EQ(2u, unit.ExternalRelease());
}

TEST(VeUnitInterface, IsCalledOnTheUnitsPartToo)
{
    CVeUnit unit;
    EXPECT_EQ(2u, unit.m_xComUnit.AddRef());
    EXPECT_EQ(S_OK, unit.m_xComUnit.SetRange(1));
    EXPECT_EQ(L"mm", NameOf(unit));
    EXPECT_EQ(1u, unit.m_xComUnit.Release());
}

TEST(VeUnitInterface, HasOneIdentityThatEveryInterfaceReaches)
{
    CVeUnit unit;
    const Client client(unit);
    EXPECT_EQ(&unit.m_xComUnit, client.Get());
    void* byUnknown = nullptr;
    void* bySelf = nullptr;
    void* back = nullptr;
    ASSERT_EQ(S_OK, client->QueryInterface(IID_IUnknown, &byUnknown));
    ASSERT_EQ(S_OK, client->QueryInterface(IID_IComUnit, &bySelf));
    ASSERT_EQ(S_OK, static_cast<IUnknown*>(byUnknown)->QueryInterface(IID_IComUnit, &back));
    EXPECT_EQ(client.Get(), bySelf);
    EXPECT_EQ(client.Get(), back);
    void* again = nullptr;
    ASSERT_EQ(S_OK, unit.ExternalQueryInterface(&IID_IUnknown, &again));
    EXPECT_EQ(byUnknown, again);
    EXPECT_EQ(6, unit.m_dwRef);
    for (int held = 5; held > 1; --held)
        EXPECT_EQ(static_cast<DWORD>(held), unit.ExternalRelease());
}

TEST(VeUnitInterface, IsNotAnsweredForOtherIds)
{
    CVeUnit unit;
    const Client client(unit);
    IID close = IID_IComUnit;
    for (BYTE* part : {reinterpret_cast<BYTE*>(&close.Data1), &close.Data4[7]})
    {
        *part ^= 1;
        void* object = &unit;
        EXPECT_EQ(E_NOINTERFACE, client->QueryInterface(close, &object));
        EXPECT_EQ(nullptr, object);
        *part ^= 1;
    }
    EXPECT_EQ(E_POINTER, client->QueryInterface(IID_IComUnit, nullptr));
    EXPECT_EQ(2, unit.m_dwRef);
}

TEST(VeUnitInterface, SetsTheRangeAndRefreshesTheUnit)
{
    CVeUnit unit;
    unit.SetUnitValues(L"title", L"name", 5.0);
    unit.SetSep(L';');
    const Client client(unit);
    EXPECT_EQ(S_OK, client->SetRange(2));
    EXPECT_EQ(2u, unit.GetRange());
    EXPECT_EQ(L"cm", NameOf(unit));
    EXPECT_EQ(100.0, unit.GetCoef());
    EXPECT_EQ(L'.', unit.GetSep()) << "a refresh brings the current separator";
}

TEST(VeUnitInterface, StoresARangeThatTheCatalogueLacks)
{
    CVeUnit unit;
    const Client client(unit);
    EXPECT_EQ(S_OK, client->SetRange(0xFFFFFFFFu));
    EXPECT_EQ(0xFFFFFFFFu, unit.GetRange());
    EXPECT_EQ(L"m", NameOf(unit));
}

TEST(VeUnitInterface, SetsThePrecisionWithoutARefresh)
{
    CVeUnit unit;
    unit.SetUnitValues(L"title", L"name", 5.0);
    unit.SetSep(L';');
    const Client client(unit);
    EXPECT_EQ(S_OK, client->SetPrecision(0xFFFFFFFFu));
    EXPECT_EQ(0xFFFFFFFFu, unit.GetPrecision());
    EXPECT_EQ(L"name", NameOf(unit));
    EXPECT_EQ(5.0, unit.GetCoef());
    EXPECT_EQ(L';', unit.GetSep());
}

TEST(VeUnitInterface, SetsTheSeparatorToTheFirstCharacter)
{
    struct Row
    {
        const wchar_t* text;
        wchar_t current;
        HRESULT result;
        wchar_t separator;
    };
    const Row rows[] = {
        {nullptr, L'.', E_FAIL, L';'},      {L"", L'.', E_FAIL, L';'}, {L"", L',', E_FAIL, L';'},
        {L".", L'.', S_OK, L'.'},           {L".", L',', S_OK, L','},  // not "."
        {L".x", L',', S_OK, L','},          {L",", L'.', S_OK, L','},  {L"ab", L',', S_OK, L'a'},
        {L"\u00B7", L',', S_OK, L'\u00B7'},
    };
    for (const Row& row : rows)
    {
        CVeUnit unit;
        unit.SetSep(L';');
        const ScopedSeparator current(row.current);
        const Client client(unit);
        EXPECT_EQ(row.result, client->SetSeparator(row.text)) << testing::PrintToString(row.text);
        EXPECT_EQ(row.separator, unit.GetSep()) << testing::PrintToString(row.text);
    }
}

TEST(VeUnitInterface, ReadsRangeAndCoefficient)
{
    CVeUnit unit = MakeUnit(1, 6);
    const Client client(unit);
    unsigned int range = 99;
    double coefficient = 99.0;
    EXPECT_EQ(S_OK, client->GetRange(&range));
    EXPECT_EQ(6u, range);
    EXPECT_EQ(S_OK, client->GetCoefficient(&coefficient));
    EXPECT_EQ(unit.GetCoef(), coefficient);
    EXPECT_EQ(E_POINTER, client->GetRange(nullptr));
    EXPECT_EQ(E_POINTER, client->GetCoefficient(nullptr));
}

TEST(VeUnitInterface, ReadsNameAndTitleOfEveryUnitAsTheyAreShown)
{
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        for (unsigned int range = 0; range <= 12; ++range)
        {
            CVeUnit unit = MakeUnit(idUnit, range);
            const Client client(unit);
            BSTR text = nullptr;
            ASSERT_EQ(S_OK, client->GetName(&text));
            EXPECT_EQ(NameOf(unit), Take(text)) << idUnit << ":" << range;
            ASSERT_EQ(S_OK, client->GetTitle(&text));
            EXPECT_EQ(TitleOf(unit), Take(text)) << idUnit << ":" << range;
        }
    }
}

TEST(VeUnitInterface, ReadsTheDisplayFormsNotTheStoredTexts)
{
    CVeUnit unit;
    unit.SetUnitValues(L"\"", L"'\u00B2", 1.0);
    const Client client(unit);
    BSTR text = nullptr;
    ASSERT_EQ(S_OK, client->GetName(&text));
    EXPECT_EQ(L"sq ft", Take(text));
    ASSERT_EQ(S_OK, client->GetTitle(&text));
    EXPECT_EQ(L"Pouce", Take(text));
}

TEST(VeUnitInterface, ReturnsATextThatIsTheClientsOwn)
{
    CVeUnit unit;
    const Client client(unit);
    BSTR first = nullptr;
    BSTR second = nullptr;
    ASSERT_EQ(S_OK, client->GetName(&first));
    ASSERT_EQ(S_OK, client->GetName(&second));
    EXPECT_NE(first, second);
    first[0] = L'x';
    EXPECT_EQ(L"m", Take(second));
    EXPECT_EQ(L"m", NameOf(unit));
    EXPECT_EQ(L"x", Take(first));
    EXPECT_EQ(E_POINTER, client->GetName(nullptr));
    EXPECT_EQ(E_POINTER, client->GetTitle(nullptr));
}

TEST(VeUnitInterface, ReturnsEmptyTextsAsTexts)
{
    CVeUnit unit(99, 99, 0, L'.', 1.0, 0);
    const Client client(unit);
    BSTR text = nullptr;
    ASSERT_EQ(S_OK, client->GetName(&text));
    ASSERT_NE(nullptr, text);
    EXPECT_EQ(L"", Take(text));
}

TEST(VeUnitInterface, ReachesTheUnitItself)
{
    CVeUnit unit;
    const Client client(unit);
    CVeUnit* reached = nullptr;
    EXPECT_EQ(S_OK, client->GetUnit(&reached));
    EXPECT_EQ(&unit, reached);
    EXPECT_EQ(2, unit.m_dwRef) << "not counted";
    EXPECT_EQ(E_POINTER, client->GetUnit(nullptr));
}

TEST_F(VeUnitInAHost, MakesTheLibraryCurrentWhileAMethodRuns)
{
    CVeUnit unit;
    const Client client(unit);
    s_prompts = 0;
    BSTR text = nullptr;
    EXPECT_EQ(S_OK, client->SetRange(5));
    ExpectTheLibraryWasCurrentDuringPrompts("SetRange");
    unit.SetUnitValues(L"'\u00B2", L"\"\u00B2", 1.0);
    EXPECT_EQ(S_OK, client->GetName(&text));
    EXPECT_EQ(L"sq in", Take(text));
    ExpectTheLibraryWasCurrentDuringPrompts("GetName");
    EXPECT_EQ(S_OK, client->GetTitle(&text));
    EXPECT_EQ(L"sq ft", Take(text));
    ExpectTheLibraryWasCurrentDuringPrompts("GetTitle");
}

TEST_F(VeUnitInAHost, ReturnsATextWholeWhateverItHolds)
{
    VePrompts::SetProvider(&AnswerWithATerminatorInside);
    CVeUnit unit;
    unit.SetName(L"\"2");
    const Client client(unit);
    BSTR text = nullptr;
    ASSERT_EQ(S_OK, client->GetName(&text));
    EXPECT_EQ(std::wstring(unit.GetName().View()), Take(text));
}
