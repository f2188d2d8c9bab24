#include <gtest/gtest.h>

#include <boost/intrusive_ptr.hpp>

#include <limits>
#include <memory>
#include <type_traits>

#include "tests/support/TextPrinting.h"
#include "tests/support/VirtualSlots.h"
#include "vetools/objects/VeLimits.h"
#include "vetools/objects/VeObject.h"

namespace
{

/// An object of the host: says when it is deleted.
class HostObject : public CVeObject
{
public:
    explicit HostObject(int& deletions)
        : m_deletions(deletions)
    {
    }
    ~HostObject() override { ++m_deletions; }
    HostObject* GetClone() const override { return new HostObject(m_deletions); }
    int GetObjectClassId() const override { return 7; }

private:
    int& m_deletions;
};

constexpr long c_lowest = std::numeric_limits<std::int32_t>::min();
constexpr long c_highest = std::numeric_limits<std::int32_t>::max();

}  // namespace

TEST(Object, StartsWithoutHoldersAndWithoutId)
{
    const CVeObject object;
    EXPECT_EQ(0, object.GetRef());
    EXPECT_EQ(0, object.GetId());
    EXPECT_EQ(-1, object.GetObjectClassId());
    EXPECT_EQ(CString(), object.GetClassNameFromClassId());
}

TEST(Object, HoldsAnIdOf64Bits)
{
    CVeObject object;
    for (const __int64 id : {0LL, 1LL, -1LL, 0x123456789ABCDEF0LL, std::numeric_limits<long long>::min()})
    {
        object.SetId(id);
        EXPECT_EQ(id, object.GetId());
    }
}

TEST(Object, CountsByMagnitude)
{
    CVeObject object;
    EXPECT_EQ(3, object.AddRef(-3));
    EXPECT_EQ(5, object.AddRef(2));
    EXPECT_EQ(5, object.AddRef(0));
    EXPECT_EQ(3, object.RemoveRef(-2));
    EXPECT_EQ(-1, object.RemoveRef(4));
    EXPECT_EQ(-1, object.GetRef());
}

TEST(Object, CountsInThirtyTwoBitsAndWrapsRound)
{
    const struct
    {
        long added;
        long addedThen;
        long expected;
    } rows[] = {
        {c_highest, 0, c_highest},  {c_highest, 1, c_lowest},
        {c_highest, c_highest, -2}, {c_lowest, 0, c_lowest},  // its magnitude has no place in 32 bits with a sign
        {c_lowest, c_lowest, 0},    {static_cast<long>(0x100000003LL), 0, 3},
    };
    for (const auto& row : rows)
    {
        CVeObject object;
        object.AddRef(row.added);
        EXPECT_EQ(row.expected, object.AddRef(row.addedThen)) << row.added << ", " << row.addedThen;
        EXPECT_EQ(row.expected, object.GetRef());
        object.RemoveRef(row.addedThen);
        EXPECT_EQ(0, object.RemoveRef(row.added)) << row.added << ", " << row.addedThen;
    }
}

TEST(Object, IsDeletedByTheLastRelease)
{
    int deletions = 0;
    CVeObject* const object = new HostObject(deletions);
    object->AddRef(3);
    object->Release(1);
    EXPECT_EQ(2, object->GetRef());
    object->Release(-1);
    EXPECT_EQ(0, deletions);
    object->Release(1);
    EXPECT_EQ(1, deletions);
}

TEST(Object, ThatNobodyHeldIsDeletedByRelease)
{
    for (const long n : {1L, -1L, 0L, 5L})
    {
        int deletions = 0;
        CVeObject* const object = new HostObject(deletions);
        object->Release(n);
        EXPECT_EQ(1, deletions) << n;
    }
}

TEST(Object, IsReleasedByTheRemoveRefOfItsClass)
{
    class Immortal : public CVeObject
    {
    public:
        long RemoveRef(long n) override
        {
            m_removed += n;
            return 1;
        }
        long m_removed = 0;
    };
    Immortal object;
    object.Release(4);
    EXPECT_EQ(4, object.m_removed);
}

TEST(Object, KeptCopiesAndAssignmentsCarryNeitherCountNorId)
{
    CVeObject source;
    source.AddRef(5);
    source.SetId(42);

    const CVeObject copy(source);
    EXPECT_EQ(0, copy.GetRef());
    EXPECT_EQ(0, copy.GetId());

    CVeObject target;
    target.AddRef(2);
    target.SetId(7);
    EXPECT_EQ(&target, &(target = source));
    EXPECT_EQ(2, target.GetRef());
    EXPECT_EQ(7, target.GetId());

    const std::unique_ptr<CVeObject> clone(source.GetClone());
    EXPECT_EQ(0, clone->GetRef());
    EXPECT_EQ(0, clone->GetId());
}

TEST(Object, IsResetWhoeverHoldsIt)
{
    CVeObject object;
    object.AddRef(5);
    object.SetId(42);
    object.Reset();
    EXPECT_EQ(0, object.GetRef());
    EXPECT_EQ(0, object.GetId());
}

TEST(Object, KeptEqualityIsThatOfTheClass)
{
    int deletions = 0;
    const HostObject host(deletions);
    CVeObject object;
    object.SetId(42);
    const CVeObject other;
    EXPECT_EQ(1, object == other);
    EXPECT_EQ(0, object != other);
    EXPECT_EQ(0, object == host);
    EXPECT_EQ(1, object != host);
}

TEST(Object, InequalityNegatesTheEqualityOfTheClass)
{
    class Unequal : public CVeObject
    {
    public:
        int operator==(const CVeObject&) const override { return 0; }
    };
    const Unequal unequal;
    const CVeObject& object = unequal;
    EXPECT_EQ(1, object != object);
}

TEST(Object, KnowsItsClass)
{
    int deletions = 0;
    const HostObject host(deletions);
    EXPECT_EQ(1, host.IsClass(7));
    EXPECT_EQ(0, host.IsClass(-1));
    EXPECT_EQ(CString(L"HostClass7"), host.GetClassNameFromClassId());
    EXPECT_EQ(1, CVeObject().IsClass(-1));
    EXPECT_EQ(CString(L"CVeLimits"), CVeLimits().GetClassNameFromClassId());
}

TEST(Object, DumpsNothing)
{
    const CVeObject object;
    object.Dump();
    EXPECT_EQ(0, object.GetRef());
}

TEST(Object, IsHeldByAnIntrusivePointer)
{
    int deletions = 0;
    {
        const boost::intrusive_ptr<CVeObject> first(new HostObject(deletions));
        EXPECT_EQ(1, first->GetRef());
        boost::intrusive_ptr<CVeObject> second = first;
        EXPECT_EQ(2, first->GetRef());
        second.reset();
        EXPECT_EQ(1, first->GetRef());
        EXPECT_EQ(0, deletions);
    }
    EXPECT_EQ(1, deletions);
}

TEST(Object, IsHeldAsADerivedClassByAnIntrusivePointer)
{
    const boost::intrusive_ptr<CVeLimits> limits(new CVeLimits(1e-3, 5.0, 2.0));
    const boost::intrusive_ptr<CVeObject> object = limits;
    EXPECT_EQ(2, limits->GetRef());
    EXPECT_EQ(2, object->GetObjectClassId());
}

TEST(Object, CountsNothingForANullPointer)
{
    EXPECT_NO_THROW(intrusive_ptr_add_ref(nullptr));
    EXPECT_NO_THROW(intrusive_ptr_release(nullptr));
}

TEST(Object, HasItsVirtualFunctionsAndMembersInTheOrderThatHostsWereBuiltWith)
{
    using Assign = CVeObject& (CVeObject::*)(const CVeObject&);
    using Compare = int (CVeObject::*)(const CVeObject&) const;
    static_assert(std::has_virtual_destructor_v<CVeObject>);
    EXPECT_EQ(1, SlotOf(&CVeObject::Dump));
    EXPECT_EQ(2, SlotOf(&CVeObject::GetClone));
    EXPECT_EQ(3, SlotOf(static_cast<Assign>(&CVeObject::operator=)));
    EXPECT_EQ(4, SlotOf(static_cast<Compare>(&CVeObject::operator==)));
    EXPECT_EQ(5, SlotOf(static_cast<Compare>(&CVeObject::operator!=)));
    EXPECT_EQ(6, SlotOf(&CVeObject::AddRef));
    EXPECT_EQ(7, SlotOf(&CVeObject::Release));
    EXPECT_EQ(8, SlotOf(&CVeObject::RemoveRef));
    EXPECT_EQ(9, SlotOf(&CVeObject::GetObjectClassId));
    EXPECT_EQ(24u, sizeof(CVeObject)) << "table, 32 bits of count, 64 bits of id";
}
