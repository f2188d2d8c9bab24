#include <gtest/gtest.h>

#include "vetools/framework/CException.h"
#include "vetools/framework/CStringArray.h"

// The tests are a host: an exception leaves the shared library and is caught outside it.

namespace
{

/// Runs `action` and returns the class of the exception that it threw, null when it threw none.
template <typename Action>
const CRuntimeClass* ClassOfWhatIsThrownBy(Action action)
{
    try
    {
        action();
    }
    catch (CException* exception)
    {
        const CRuntimeClass* runtimeClass = exception->GetRuntimeClass();
        exception->Delete();
        return runtimeClass;
    }
    return nullptr;
}

}  // namespace

TEST(ExceptionOfTheLibrary, IsCaughtInTheHostByItsBaseClass)
{
    EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ClassOfWhatIsThrownBy([] { AfxThrowInvalidArgException(); }));
    EXPECT_EQ(RUNTIME_CLASS(CMemoryException), ClassOfWhatIsThrownBy([] { AfxThrowMemoryException(); }));
}

TEST(ExceptionOfTheLibrary, IsCaughtInTheHostByItsOwnClass)
{
    bool caught = false;
    try
    {
        AfxThrowInvalidArgException();
    }
    catch (CMemoryException* exception)
    {
        exception->Delete();
    }
    catch (CInvalidArgException* exception)
    {
        caught = true;
        exception->Delete();
    }
    EXPECT_TRUE(caught);
}

TEST(ExceptionOfTheLibrary, IsThrownForAnIndexOutsideAnArray)
{
    CStringArray array;
    array.Add(L"only");
    for (const int index : {-1, 1, 1000000})
    {
        EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ClassOfWhatIsThrownBy([&] { array.GetAt(index); }))
            << "index " << index;
    }
    EXPECT_EQ(nullptr, ClassOfWhatIsThrownBy([&] { array.GetAt(0); }));
}
