#include "vetools/framework/CDBVariant.h"

#include <gtest/gtest.h>

TEST(CDBVariant, IsNullAtFirst)
{
    const CDBVariant value;
    EXPECT_EQ(static_cast<DWORD>(DBVT_NULL), value.m_dwType);
    EXPECT_EQ(0U, value.m_dwType);
    EXPECT_EQ(0.0, value.m_dblVal);
}

TEST(CDBVariant, DeletesItsTextWhenItIsCleared)
{
    CDBVariant value;
    value.m_dwType = DBVT_STRING;
    value.m_pstring = new CString(L"a text that is too long to stand in the object itself");
    value.Clear();
    EXPECT_EQ(static_cast<DWORD>(DBVT_NULL), value.m_dwType);
    EXPECT_EQ(nullptr, value.m_pstring);
    value.Clear();

    value.m_dwType = DBVT_STRING;
    value.m_pstring = new CString(L"deleted with the value");
}

TEST(CDBVariant, ForgetsANumberWhenItIsCleared)
{
    CDBVariant value;
    value.m_dwType = DBVT_DOUBLE;
    value.m_dblVal = 2.5;
    value.Clear();
    EXPECT_EQ(static_cast<DWORD>(DBVT_NULL), value.m_dwType);
    EXPECT_EQ(0.0, value.m_dblVal);
}
