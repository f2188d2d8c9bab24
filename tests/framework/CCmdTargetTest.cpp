#include "vetools/framework/CCmdTarget.h"

#include <gtest/gtest.h>

// A host's own command target with two interfaces, and one derived from it with a third.

namespace
{

// Interfaces have no virtual destructor: Release ends an object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
struct IFirst : IUnknown
{
    virtual int STDMETHODCALLTYPE First() = 0;
};
struct ISecond : IUnknown
{
    virtual int STDMETHODCALLTYPE Second() = 0;
};
struct IThird : IUnknown
{
    virtual int STDMETHODCALLTYPE Third() = 0;
};
constexpr IID c_first = {0x11111111, 0x1111, 0x1111, {1, 1, 1, 1, 1, 1, 1, 1}};
constexpr IID c_second = {0x11111111, 0x1111, 0x1111, {1, 1, 1, 1, 1, 1, 1, 2}};
constexpr IID c_third = {0x11111111, 0x1111, 0x1111, {1, 1, 1, 1, 1, 1, 1, 3}};
constexpr IID c_unanswered = {0x11111111, 0x1111, 0x1111, {1, 1, 1, 1, 1, 1, 1, 4}};

class Target : public CCmdTarget
{
public:
    explicit Target(int* destroyed = nullptr)
        : m_destroyed(destroyed)
    {
    }
    ~Target() override
    {
        if (m_destroyed)
            ++*m_destroyed;
    }
    void OnFinalRelease() override
    {
        ++m_finalReleases;
        if (m_deletesItself)
            CCmdTarget::OnFinalRelease();
    }

    bool m_deletesItself = true;
    int m_finalReleases = 0;

    BEGIN_INTERFACE_PART(First, IFirst)
    int STDMETHODCALLTYPE First() override;
    END_INTERFACE_PART(First)
    BEGIN_INTERFACE_PART(Second, ISecond)
    int STDMETHODCALLTYPE Second() override;
    END_INTERFACE_PART(Second)

    DECLARE_INTERFACE_MAP()

private:
    int* m_destroyed;
};

#define FORWARD_UNKNOWN(theClass, part)                                                                                \
    HRESULT STDMETHODCALLTYPE theClass::X##part::QueryInterface(REFIID iid, void** object)                             \
    {                                                                                                                  \
        METHOD_PROLOGUE(theClass, part)                                                                                \
        return pThis->ExternalQueryInterface(&iid, object);                                                            \
    }                                                                                                                  \
    ULONG STDMETHODCALLTYPE theClass::X##part::AddRef()                                                                \
    {                                                                                                                  \
        METHOD_PROLOGUE(theClass, part)                                                                                \
        return pThis->ExternalAddRef();                                                                                \
    }                                                                                                                  \
    ULONG STDMETHODCALLTYPE theClass::X##part::Release()                                                               \
    {                                                                                                                  \
        METHOD_PROLOGUE(theClass, part)                                                                                \
        return pThis->ExternalRelease();                                                                               \
    }

BEGIN_INTERFACE_MAP(Target, CCmdTarget)
INTERFACE_PART(Target, c_first, First)
INTERFACE_PART(Target, c_second, Second)
END_INTERFACE_MAP()

FORWARD_UNKNOWN(Target, First)
FORWARD_UNKNOWN(Target, Second)

int STDMETHODCALLTYPE Target::XFirst::First()
{
    METHOD_PROLOGUE(Target, First)
    return pThis->m_finalReleases + (AfxGetResourceHandle() == GetVeToolsModule() ? 1 : 100);
}

int STDMETHODCALLTYPE Target::XSecond::Second()
{
    METHOD_PROLOGUE(Target, Second)
    return pThis->m_finalReleases + 2;
}

class DerivedTarget : public Target
{
public:
    BEGIN_INTERFACE_PART(Third, IThird)
    int STDMETHODCALLTYPE Third() override;
    END_INTERFACE_PART(Third)

    DECLARE_INTERFACE_MAP()
};

BEGIN_INTERFACE_MAP(DerivedTarget, Target)
INTERFACE_PART(DerivedTarget, c_third, Third)
END_INTERFACE_MAP()

FORWARD_UNKNOWN(DerivedTarget, Third)

int STDMETHODCALLTYPE DerivedTarget::XThird::Third()
{
    METHOD_PROLOGUE(DerivedTarget, Third)
    return pThis->m_finalReleases + 3;
}

#pragma GCC diagnostic pop

/// Asks for an interface and gives the reference back at once: the address alone is what is compared.
void* AddressOf(IUnknown* from, const IID& iid)
{
    void* object = nullptr;
    if (from->QueryInterface(iid, &object) == S_OK)
        static_cast<IUnknown*>(object)->Release();
    return object;
}

}  // namespace

TEST(CommandTarget, StartsWithOneReference)
{
    Target target;
    EXPECT_EQ(1, target.m_dwRef);
}

TEST(CommandTarget, CountsReferencesAndReturnsTheNewCount)
{
    Target target;
    EXPECT_EQ(2u, target.ExternalAddRef());
    EXPECT_EQ(3u, target.ExternalAddRef());
    EXPECT_EQ(2u, target.ExternalRelease());
    EXPECT_EQ(1u, target.ExternalRelease());
    EXPECT_EQ(0, target.m_finalReleases);
}

TEST(CommandTarget, CountsReferencesOfAllPartsTogether)
{
    Target target;
    EXPECT_EQ(2u, target.m_xFirst.AddRef());
    EXPECT_EQ(3u, target.m_xSecond.AddRef());
    EXPECT_EQ(2u, target.m_xFirst.Release());
    EXPECT_EQ(1u, target.ExternalRelease());
}

TEST(CommandTarget, IsDeletedOnceByTheLastRelease)
{
    int destroyed = 0;
    auto* target = new Target(&destroyed);
    void* object = nullptr;
    ASSERT_EQ(S_OK, target->ExternalQueryInterface(&c_second, &object));
    EXPECT_EQ(1u, target->ExternalRelease()) << "its maker lets go";
    EXPECT_EQ(0, destroyed);
    EXPECT_EQ(0u, static_cast<IUnknown*>(object)->Release());
    EXPECT_EQ(1, destroyed);
}

TEST(CommandTarget, AsksTheClassWhatTheLastReleaseMeans)
{
    int destroyed = 0;
    {
        Target target(&destroyed);
        target.m_deletesItself = false;
        EXPECT_EQ(0u, target.ExternalRelease());
        EXPECT_EQ(1, target.m_finalReleases);
        EXPECT_EQ(0u, target.ExternalRelease()) << "nothing is left to release";
        EXPECT_EQ(1, target.m_finalReleases);
        EXPECT_EQ(0, destroyed);
    }
    EXPECT_EQ(1, destroyed);
}

TEST(CommandTarget, AnswersTheInterfacesOfItsMapWithACountedReference)
{
    Target target;
    void* object = nullptr;
    ASSERT_EQ(S_OK, target.ExternalQueryInterface(&c_first, &object));
    EXPECT_EQ(&target.m_xFirst, object);
    EXPECT_EQ(2, target.m_dwRef);
    EXPECT_EQ(1, static_cast<IFirst*>(object)->First());
    ASSERT_EQ(S_OK, target.ExternalQueryInterface(&c_second, &object));
    EXPECT_EQ(&target.m_xSecond, object);
    EXPECT_EQ(3, target.m_dwRef);
    EXPECT_EQ(2, static_cast<ISecond*>(object)->Second());
}

TEST(CommandTarget, AnswersNoInterfaceWithNullAndCountsNothing)
{
    Target target;
    for (const IID* iid : {&c_unanswered, &c_third, static_cast<const IID*>(nullptr)})
    {
        void* object = &target;
        EXPECT_EQ(E_NOINTERFACE, target.ExternalQueryInterface(iid, &object));
        EXPECT_EQ(nullptr, object);
    }
    EXPECT_EQ(E_POINTER, target.ExternalQueryInterface(&c_first, nullptr));
    EXPECT_EQ(1, target.m_dwRef);
}

TEST(CommandTarget, WithoutInterfacesAnswersNone)
{
    CCmdTarget target;
    void* object = &target;
    EXPECT_EQ(E_NOINTERFACE, target.ExternalQueryInterface(&IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(nullptr, target.GetInterface(&c_first));
}

TEST(CommandTarget, GivesAnInterfaceUncounted)
{
    Target target;
    EXPECT_EQ(static_cast<IUnknown*>(&target.m_xSecond), target.GetInterface(&c_second));
    EXPECT_EQ(nullptr, target.GetInterface(&c_unanswered));
    EXPECT_EQ(1, target.m_dwRef);
}

TEST(CommandTarget, ReachesEveryInterfaceFromEveryOtherAndHasOneIdentity)
{
    DerivedTarget target;
    IUnknown* const parts[] = {&target.m_xFirst, &target.m_xSecond, &target.m_xThird};
    const IID ids[] = {c_first, c_second, c_third};
    void* const identity = AddressOf(parts[0], IID_IUnknown);
    ASSERT_NE(nullptr, identity);
    for (std::size_t from = 0; from < std::size(parts); ++from)
    {
        EXPECT_EQ(identity, AddressOf(parts[from], IID_IUnknown)) << "from part " << from;
        EXPECT_EQ(nullptr, AddressOf(parts[from], c_unanswered)) << "from part " << from;
        for (std::size_t to = 0; to < std::size(parts); ++to)
            EXPECT_EQ(parts[to], AddressOf(parts[from], ids[to])) << "from part " << from << " to part " << to;
    }
    EXPECT_EQ(1, target.m_dwRef);
}

TEST(CommandTarget, MakesTheLibraryCurrentWhileAMethodRuns)
{
    const HINSTANCE before = AfxGetResourceHandle();
    const auto host = reinterpret_cast<HINSTANCE>(const_cast<IID*>(&c_first));
    AfxSetResourceHandle(host);
    Target target;
    EXPECT_EQ(1, target.m_xFirst.First());
    EXPECT_EQ(host, AfxGetResourceHandle());
    AfxSetResourceHandle(before);
}

TEST(CommandTarget, HasItsClassRecord)
{
    CCmdTarget target;
    EXPECT_STREQ("CCmdTarget", target.GetRuntimeClass()->m_lpszClassName);
    EXPECT_TRUE(target.IsKindOf(RUNTIME_CLASS(CObject)));
}
