#include "vetools/util/VeException.h"

#include <climits>

#include <gtest/gtest.h>

namespace
{

/// An exception of a module, which says what its base class is.
class BeamException : public CVeExceptionBase
{
    DECLARE_DYNAMIC(BeamException)

public:
    BeamException() = default;
    explicit BeamException(bool* isDestroyed)
        : CVeExceptionBase(7)
        , m_isDestroyed(isDestroyed)
    {
    }
    ~BeamException() override
    {
        if (m_isDestroyed != nullptr)
            *m_isDestroyed = true;
    }

    static CRuntimeClass* BaseClass() { return CVeExceptionBase::_GetBaseClass(); }

private:
    bool* m_isDestroyed = nullptr;
};

IMPLEMENT_DYNAMIC(BeamException, CVeExceptionBase)

}  // namespace

TEST(VeException, HoldsTheIdOfAMessage)
{
    for (const int id : {0, 1, -1, 20925, INT_MIN, INT_MAX})
    {
        const CVeExceptionBase exception(id);
        EXPECT_EQ(id, exception.MessageID());
    }
    CVeExceptionBase exception(5);
    exception.MessageID(-6);
    EXPECT_EQ(-6, exception.MessageID());
}

TEST(VeException, ADerivedClassSetsTheIdLater)
{
    BeamException exception;
    exception.MessageID(12);
    EXPECT_EQ(12, exception.MessageID());
}

TEST(VeException, ItsRecordIsNamedAfterTheClassAndDerivesFromCException)
{
    const CRuntimeClass* const record = CVeExceptionBase::GetThisClass();
    EXPECT_STREQ("CVeExceptionBase", record->m_lpszClassName);
    EXPECT_EQ(static_cast<int>(sizeof(CVeExceptionBase)), record->m_nObjectSize);
    EXPECT_EQ(nullptr, record->m_pfnCreateObject);
    EXPECT_EQ(CException::GetThisClass(), record->m_pfnGetBaseClass());
    EXPECT_EQ(CException::GetThisClass(), BeamException::BaseClass());

    const CVeExceptionBase exception(5);
    EXPECT_EQ(record, exception.GetRuntimeClass());
    EXPECT_EQ(record, RUNTIME_CLASS(CVeExceptionBase));
}

TEST(VeException, IsKindOfItsBaseClasses)
{
    const BeamException exception;
    for (const CRuntimeClass* record : {BeamException::GetThisClass(), CVeExceptionBase::GetThisClass(),
                                        CException::GetThisClass(), CObject::GetThisClass()})
        EXPECT_TRUE(exception.IsKindOf(record)) << record->m_lpszClassName;
    EXPECT_FALSE(CVeExceptionBase(5).IsKindOf(BeamException::GetThisClass()));
    EXPECT_FALSE(exception.IsKindOf(CMemoryException::GetThisClass()));
}

TEST(VeException, IsCaughtAsItselfAndAsTheFrameworksException)
{
    try
    {
        throw new CVeExceptionBase(5);
    }
    catch (CVeExceptionBase* exception)
    {
        EXPECT_EQ(5, exception->MessageID());
        exception->Delete();
    }
    bool isDestroyed = false;
    try
    {
        throw new BeamException(&isDestroyed);
    }
    catch (CException* exception)
    {
        EXPECT_STREQ("BeamException", exception->GetRuntimeClass()->m_lpszClassName);
        EXPECT_EQ(7, static_cast<CVeExceptionBase*>(exception)->MessageID());
        exception->Delete();
    }
    EXPECT_TRUE(isDestroyed);
}

TEST(VeException, HasNoMessageOfItsOwn)
{
    const CVeExceptionBase exception(5);
    wchar_t message[10] = L"before";
    EXPECT_FALSE(exception.GetErrorMessage(message, 10));
    EXPECT_STREQ(L"", message);
}
