#include "vetools/framework/COleCurrency.h"

#include <climits>
#include <limits>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "tests/support/VariantTestSupport.h"
#include "vetools/framework/COleVariant.h"

namespace
{

COleCurrency Currency(LONGLONG tenThousandths)
{
    CURRENCY amount;
    amount.int64 = tenThousandths;
    return amount;
}

}  // namespace

TEST(COleCurrency, WritesAsManyDecimalsAsItNeeds)
{
    const struct
    {
        const wchar_t* expected;
        LONGLONG tenThousandths;
    } rows[] = {
        {L"0", 0},
        {L"1", 10000},
        {L"-1", -10000},
        {L"0.5", 5000},
        {L"-0.5", -5000},
        {L"0.0001", 1},
        {L"-0.0001", -1},
        {L"12.34", 123400},
        {L"1234567.891", 12345678910},
        {L"922337203685477.5807", std::numeric_limits<LONGLONG>::max()},
        {L"-922337203685477.5808", std::numeric_limits<LONGLONG>::min()},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(CString(row.expected), Currency(row.tenThousandths).Format()) << row.tenThousandths;
        EXPECT_EQ(CString(row.expected), Currency(row.tenThousandths).Format(0, 0x400)) << row.tenThousandths;
    }
}

TEST(COleCurrency, WritesNothingForNullAndSaysSoWhenInvalid)
{
    COleCurrency amount(5, 0);
    amount.SetStatus(COleCurrency::null);
    EXPECT_EQ(CString(), amount.Format());
    amount.SetStatus(COleCurrency::invalid);
    EXPECT_EQ(CString(L"Invalid Currency"), amount.Format());
}

TEST(COleCurrency, AddsUnitsAndTenThousandths)
{
    const struct
    {
        LONGLONG expected;
        long units, fraction;
    } rows[] = {
        {0, 0, 0},
        {123400, 12, 3400},
        {5000, 1, -5000},
        {-10001, -1, -1},
        {35000, 1, 25000},
        {21474836470000, INT_MAX, 0},
        {-21474836480000, INT_MIN, 0},
    };
    for (const auto& row : rows)
    {
        const COleCurrency amount(row.units, row.fraction);
        EXPECT_EQ(row.expected, amount.m_cur.int64) << row.units << ' ' << row.fraction;
        EXPECT_EQ(COleCurrency::valid, amount.GetStatus());
    }
    EXPECT_EQ(21474836470000 + INT_MAX, COleCurrency(LONG_MAX, LONG_MAX).m_cur.int64);
}

TEST(COleCurrency, IsMadeOfWhatTheSystemMakesOfAValue)
{
    EXPECT_EQ(15000, COleCurrency(COleVariant(1.5)).m_cur.int64);
    EXPECT_EQ(15000, COleCurrency(COleVariant(L"1.5")).m_cur.int64);
    EXPECT_EQ(420000, COleCurrency(COleVariant(short{42})).m_cur.int64);
    for (const COleVariant& none :
         {COleVariant(L"no amount"), COleVariant(1e300), COleVariant(L"1e2147483648"), ValueOfType(VT_BYREF | VT_I4)})
    {
        const COleCurrency amount(none);
        EXPECT_EQ(COleCurrency::invalid, amount.GetStatus());
        EXPECT_EQ(0, amount.m_cur.int64);
    }
}

TEST(COleCurrency, ComparesByAmount)
{
    EXPECT_TRUE(COleCurrency(1, 5000) == Currency(15000));
    EXPECT_TRUE(COleCurrency(1, 5000) < COleCurrency(1, 5001));
    EXPECT_TRUE(COleCurrency(-1, 0) < COleCurrency());
    COleCurrency null;
    null.SetStatus(COleCurrency::null);
    EXPECT_FALSE(null == COleCurrency());
}
