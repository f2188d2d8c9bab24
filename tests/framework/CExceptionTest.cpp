#include "vetools/framework/CException.h"

#include <cstring>

#include <gtest/gtest.h>

#include "vetools/framework/CString.h"

namespace
{

/// An exception of a host, outside the library.
class HostException : public CException
{
    DECLARE_DYNAMIC(HostException)

public:
    using CException::CException;
    ~HostException() override { ++s_destroyed; }

    static int s_destroyed;
};

int HostException::s_destroyed = 0;

IMPLEMENT_DYNAMIC(HostException, CException)

}  // namespace

TEST(CException, IsThrownByPointerAndCaughtAsItsBaseInTheHost)
{
    try
    {
        AfxThrowInvalidArgException();
    }
    catch (CException* exception)
    {
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CInvalidArgException)));
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CSimpleException)));
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CObject)));
        EXPECT_FALSE(exception->IsKindOf(RUNTIME_CLASS(CMemoryException)));
        EXPECT_FALSE(exception->IsKindOf(nullptr));
        EXPECT_NE(nullptr, dynamic_cast<CInvalidArgException*>(exception));
        exception->Delete();
        return;
    }
    FAIL() << "nothing was caught";
}

TEST(CException, MemoryExceptionsNeedNoMemory)
{
    CException* first = nullptr;
    for (int i = 0; i < 2; ++i)
    {
        try
        {
            AfxThrowMemoryException();
        }
        catch (CMemoryException* exception)
        {
            EXPECT_TRUE(first == nullptr || first == exception);
            first = exception;
            exception->Delete();
        }
    }
    EXPECT_NE(nullptr, first);
}

TEST(CException, DeleteDestroysOnlyWhatWasMadeForThrowing)
{
    HostException::s_destroyed = 0;
    {
        HostException standing(false);
        standing.Delete();
        EXPECT_EQ(0, HostException::s_destroyed);
    }
    EXPECT_EQ(1, HostException::s_destroyed);
    (new HostException)->Delete();
    EXPECT_EQ(2, HostException::s_destroyed);
}

TEST(CException, HasARecordForItsClassWhereverItIsDefined)
{
    EXPECT_STREQ("HostException", RUNTIME_CLASS(HostException)->m_lpszClassName);
    EXPECT_EQ(static_cast<int>(sizeof(HostException)), RUNTIME_CLASS(HostException)->m_nObjectSize);
    EXPECT_EQ(RUNTIME_CLASS(CException), RUNTIME_CLASS(HostException)->m_pfnGetBaseClass());
    EXPECT_TRUE(RUNTIME_CLASS(HostException)->IsDerivedFrom(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(RUNTIME_CLASS(CObject)->IsDerivedFrom(RUNTIME_CLASS(CException)));
    const HostException exception(false);
    EXPECT_EQ(RUNTIME_CLASS(HostException), exception.GetRuntimeClass());
}

TEST(CException, GivesItsTextCutToTheBuffer)
{
    const CMemoryException exception(false);
    wchar_t buffer[8];
    UINT help = 5;
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 8, &help));
    EXPECT_STREQ(L"Out of ", buffer);
    EXPECT_EQ(0U, help);
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 1));
    EXPECT_STREQ(L"", buffer);
    EXPECT_FALSE(exception.GetErrorMessage(nullptr, 8));
    EXPECT_FALSE(exception.GetErrorMessage(buffer, 0));
}

TEST(CException, HasNoTextWhereTheClassHasNone)
{
    const HostException exception(false);
    wchar_t buffer[] = L"before";
    EXPECT_FALSE(exception.GetErrorMessage(buffer, 7));
    EXPECT_STREQ(L"", buffer);
}
