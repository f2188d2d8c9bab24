#include "tests/unitmanager/cclient/ComClient.h"

#include <cstring>

#include <gtest/gtest.h>

#include "tests/support/UnitTestSupport.h"
#include "vetools/unitmanager/VeUnit.h"

// The same interface seen from C, by the header that is made from ComUnit.idl: a slot that stood elsewhere there, or
// another id, fails here.

namespace
{

/// A metre and the interface that a client holds of it, beside the owner's reference: the count is 2.
class ComClient : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(S_OK, m_unit.ExternalQueryInterface(&IID_IComUnit, &m_interface)); }
    void TearDown() override { EXPECT_EQ(1u, m_unit.ExternalRelease()) << "the client has not released all it held"; }

    CVeUnit m_unit;
    void* m_interface = nullptr;
};

}  // namespace

TEST_F(ComClient, AsksForTheInterfaceByTheSameId)
{
    EXPECT_EQ(0, std::memcmp(&IID_IComUnit, ComClientInterfaceId(), sizeof(IID)));
}

TEST_F(ComClient, InCUsesEverySlotInItsOrder)
{
    EXPECT_STREQ(nullptr, ComClientUsesEverySlot(m_interface));
    EXPECT_EQ(1u, m_unit.GetRange());
    EXPECT_EQ(7u, m_unit.GetPrecision());
    EXPECT_EQ(L';', m_unit.GetSep());
}

TEST_F(ComClient, InCGivesNullOutputs)
{
    const CVeUnit before(m_unit);
    EXPECT_STREQ(nullptr, ComClientGivesNullOutputs(m_interface));
    EXPECT_TRUE(before == m_unit);
}

TEST_F(ComClient, InCReachesOneObjectByAllItsInterfaces)
{
    EXPECT_STREQ(nullptr, ComClientChecksIdentity(m_interface));
}
