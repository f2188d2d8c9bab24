#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/SystemValue.h"

namespace
{

/// An array that is freed in the end.
class OwnedArray
{
public:
    explicit OwnedArray(SAFEARRAY* array)
        : m_array(array)
    {
    }
    OwnedArray(const OwnedArray&) = delete;
    OwnedArray& operator=(const OwnedArray&) = delete;
    ~OwnedArray() { EXPECT_EQ(S_OK, ::SafeArrayDestroy(m_array)); }

    SAFEARRAY* operator->() { return m_array; }
    operator SAFEARRAY*() const { return m_array; }

private:
    SAFEARRAY* m_array;
};

constexpr USHORT c_ownedElements = FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT;

}  // namespace

TEST(SystemArray, KnowsTheTypeAndTheSizeOfItsElements)
{
    struct TypeRow
    {
        int type;
        UINT size;
        USHORT features;
    };
    // clang-format off
    const TypeRow rows[] = {
    //   type          size              features
        {VT_I1,        1,                0},
        {VT_UI1,       1,                0},
        {VT_I2,        2,                0},
        {VT_UI2,       2,                0},
        {VT_BOOL,      2,                0},
        {VT_I4,        4,                0},
        {VT_UI4,       4,                0},
        {VT_INT,       4,                0},
        {VT_UINT,      4,                0},
        {VT_ERROR,     4,                0},
        {VT_R4,        4,                0},
        {VT_I8,        8,                0},
        {VT_UI8,       8,                0},
        {VT_R8,        8,                0},
        {VT_CY,        8,                0},
        {VT_DATE,      8,                0},
        {VT_INT_PTR,   8,                0},
        {VT_UINT_PTR,  8,                0},
        {VT_DECIMAL,   16,               0},
        {VT_BSTR,      8,                FADF_BSTR},
        {VT_UNKNOWN,   8,                FADF_UNKNOWN},
        {VT_DISPATCH,  8,                FADF_DISPATCH},
        {VT_VARIANT,   sizeof(VARIANT),  FADF_VARIANT},
    };
    // clang-format on
    for (const TypeRow& row : rows)
    {
        SAFEARRAYBOUND bound = {2, 5};
        OwnedArray array(::SafeArrayCreate(static_cast<VARTYPE>(row.type), 1, &bound));
        ASSERT_NE(nullptr, static_cast<SAFEARRAY*>(array)) << row.type;
        EXPECT_EQ(row.size, ::SafeArrayGetElemsize(array)) << row.type;
        EXPECT_EQ(row.features, array->fFeatures & c_ownedElements) << row.type;
        VARTYPE type = VT_EMPTY;
        EXPECT_EQ(S_OK, ::SafeArrayGetVartype(array, &type));
        EXPECT_EQ(row.type, type);

        OwnedArray vector(::SafeArrayCreateVector(static_cast<VARTYPE>(row.type), -3, 2));
        ASSERT_NE(nullptr, static_cast<SAFEARRAY*>(vector));
        EXPECT_EQ(-3, vector->rgsabound[0].lLbound);
        EXPECT_EQ(2u, vector->rgsabound[0].cElements);
    }
}

TEST(SystemArray, HasNoElementsOfOtherTypes)
{
    SAFEARRAYBOUND bound = {2, 0};
    for (const int type :
         {+VT_EMPTY, +VT_NULL, 15, 24, 25, 30, 31, 36, 64, 72, 0x0FFF, VT_ARRAY | VT_I4, VT_BYREF | VT_I4, 0xFFFF})
    {
        EXPECT_EQ(nullptr, ::SafeArrayCreate(static_cast<VARTYPE>(type), 1, &bound)) << type;
        EXPECT_EQ(nullptr, ::SafeArrayCreateVector(static_cast<VARTYPE>(type), 0, 2)) << type;
    }
    EXPECT_EQ(nullptr, ::SafeArrayCreate(VT_I4, 0, &bound));
    EXPECT_EQ(nullptr, ::SafeArrayCreate(VT_I4, 1, nullptr));
    EXPECT_EQ(nullptr, ::SafeArrayCreate(VT_I4, 65536, &bound));
}

TEST(SystemArray, BeginsWithZeros)
{
    OwnedArray array(::SafeArrayCreateVector(VT_R8, 0, 100));
    void* data = nullptr;
    ASSERT_EQ(S_OK, ::SafeArrayAccessData(array, &data));
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(0.0, static_cast<double*>(data)[i]);
    EXPECT_EQ(S_OK, ::SafeArrayUnaccessData(array));
}

TEST(SystemArray, TellsItsBoundsByDimension)
{
    SAFEARRAYBOUND bounds[] = {{2, 1}, {3, -4}, {4, 10}};
    OwnedArray array(::SafeArrayCreate(VT_I4, 3, bounds));
    EXPECT_EQ(3u, ::SafeArrayGetDim(array));
    const LONG expected[][2] = {{1, 2}, {-4, -2}, {10, 13}};
    for (UINT dimension = 1; dimension <= 3; ++dimension)
    {
        LONG lower = 0;
        LONG upper = 0;
        EXPECT_EQ(S_OK, ::SafeArrayGetLBound(array, dimension, &lower));
        EXPECT_EQ(S_OK, ::SafeArrayGetUBound(array, dimension, &upper));
        EXPECT_EQ(expected[dimension - 1][0], lower);
        EXPECT_EQ(expected[dimension - 1][1], upper);
    }
    EXPECT_EQ(4u, array->rgsabound[0].cElements) << "the bounds of the last dimension stand first";
    LONG bound = -99;
    for (const UINT dimension : {0u, 4u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(DISP_E_BADINDEX, ::SafeArrayGetLBound(array, dimension, &bound));
        EXPECT_EQ(DISP_E_BADINDEX, ::SafeArrayGetUBound(array, dimension, &bound));
    }
    EXPECT_EQ(-99, bound);
}

TEST(SystemArray, MayHaveNoElements)
{
    OwnedArray array(::SafeArrayCreateVector(VT_BSTR, 0, 0));
    ASSERT_NE(nullptr, static_cast<SAFEARRAY*>(array));
    LONG upper = 0;
    EXPECT_EQ(S_OK, ::SafeArrayGetUBound(array, 1, &upper));
    EXPECT_EQ(-1, upper);
    SAFEARRAY* made = nullptr;
    ASSERT_EQ(S_OK, ::SafeArrayCopy(array, &made));
    OwnedArray copy(made);
    EXPECT_EQ(0u, copy->rgsabound[0].cElements);

    SAFEARRAYBOUND bounds[] = {{0xFFFFFFFF, 0}, {0, 0}, {0xFFFFFFFF, 0}};
    OwnedArray large(::SafeArrayCreate(VT_R8, 3, bounds));
    EXPECT_NE(nullptr, static_cast<SAFEARRAY*>(large));
}

TEST(SystemArray, CopiesWhatItsElementsOwn)
{
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 7}};
    OwnedArray texts(::SafeArrayCreate(VT_BSTR, 2, bounds));
    auto* const elements = static_cast<BSTR*>(texts->pvData);
    elements[0] = ::SysAllocString(L"first");
    elements[3] = ::SysAllocStringLen(L"a\0b", 3);
    ASSERT_EQ(S_OK, ::SafeArrayLock(texts));
    SAFEARRAY* made = nullptr;
    ASSERT_EQ(S_OK, ::SafeArrayCopy(texts, &made));
    ASSERT_EQ(S_OK, ::SafeArrayUnlock(texts));
    OwnedArray copy(made);
    EXPECT_EQ(0u, copy->cLocks);
    EXPECT_EQ(2u, ::SafeArrayGetDim(copy));
    EXPECT_EQ(7, copy->rgsabound[0].lLbound);
    const auto* const copied = static_cast<BSTR*>(copy->pvData);
    EXPECT_STREQ(L"first", copied[0]);
    EXPECT_NE(elements[0], copied[0]);
    EXPECT_EQ(0u, ::SysStringLen(copied[1]));
    EXPECT_EQ(std::wstring(L"a\0b", 3), std::wstring(copied[3], ::SysStringLen(copied[3])));
}

TEST(SystemArray, OfValuesOwnsThem)
{
    OwnedArray values(::SafeArrayCreateVector(VT_VARIANT, 0, 3));
    auto* const elements = static_cast<VARIANT*>(values->pvData);
    elements[0] = Text(L"text");
    elements[1] = Integer(VT_ARRAY | VT_BSTR, 0);
    elements[1].parray = ::SafeArrayCreateVector(VT_BSTR, 0, 1);
    static_cast<BSTR*>(elements[1].parray->pvData)[0] = ::SysAllocString(L"inner");
    SAFEARRAY* made = nullptr;
    ASSERT_EQ(S_OK, ::SafeArrayCopy(values, &made));
    OwnedArray copy(made);
    const auto* const copied = static_cast<VARIANT*>(copy->pvData);
    EXPECT_EQ("text", Shown(copied[0]));
    EXPECT_STREQ(L"inner", static_cast<BSTR*>(copied[1].parray->pvData)[0]);
    EXPECT_EQ(VT_EMPTY, copied[2].vt);
}

TEST(SystemArray, IsNotFreedWhileLocked)
{
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_I4, 0, 2);
    void* data = nullptr;
    ASSERT_EQ(S_OK, ::SafeArrayAccessData(array, &data));
    EXPECT_EQ(array->pvData, data);
    EXPECT_EQ(S_OK, ::SafeArrayLock(array));
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, ::SafeArrayDestroy(array));
    EXPECT_EQ(S_OK, ::SafeArrayUnlock(array));
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, ::SafeArrayDestroy(array));
    EXPECT_EQ(S_OK, ::SafeArrayUnaccessData(array));
    EXPECT_EQ(E_UNEXPECTED, ::SafeArrayUnlock(array)) << "no lock is left";
    EXPECT_EQ(E_UNEXPECTED, ::SafeArrayUnaccessData(array));
    EXPECT_EQ(S_OK, ::SafeArrayDestroy(array));
}

TEST(SystemArray, CountsLocksUpTo65535)
{
    OwnedArray array(::SafeArrayCreateVector(VT_I4, 0, 2));
    for (int i = 0; i < 65535; ++i)
        ASSERT_EQ(S_OK, ::SafeArrayLock(array));
    EXPECT_EQ(E_UNEXPECTED, ::SafeArrayLock(array));
    for (int i = 0; i < 65535; ++i)
        ASSERT_EQ(S_OK, ::SafeArrayUnlock(array));
}

TEST(SystemArray, WithoutDimensionsHasNoCopy)
{
    OwnedArray array(::SafeArrayCreateVector(VT_I4, 0, 2));
    array->cDims = 0;
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayCopy(array, &copy));
    EXPECT_EQ(nullptr, copy);
    array->cDims = 1;
}

TEST(SystemArray, OfNullIsABadArgument)
{
    LONG bound = 0;
    void* data = nullptr;
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(S_OK, ::SafeArrayDestroy(nullptr));
    EXPECT_EQ(0u, ::SafeArrayGetDim(nullptr));
    EXPECT_EQ(0u, ::SafeArrayGetElemsize(nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayLock(nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayUnlock(nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayAccessData(nullptr, &data));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayUnaccessData(nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetLBound(nullptr, 1, &bound));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetUBound(nullptr, 1, &bound));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetVartype(nullptr, &type));

    OwnedArray array(::SafeArrayCreateVector(VT_I4, 0, 2));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayAccessData(array, nullptr));
    EXPECT_EQ(0u, array->cLocks);
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetLBound(array, 1, nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetUBound(array, 1, nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetVartype(array, nullptr));
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayCopy(array, nullptr));
}

TEST(SystemArray, OfNullHasACopyThatIsNull)
{
    SAFEARRAY* copy = reinterpret_cast<SAFEARRAY*>(&copy);
    EXPECT_EQ(S_OK, ::SafeArrayCopy(nullptr, &copy));
    EXPECT_EQ(nullptr, copy);
}
