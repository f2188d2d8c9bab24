#include "vetools/framework/CStringArray.h"

#include <initializer_list>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"

namespace
{

void Fill(CStringArray& array, std::initializer_list<const wchar_t*> texts)
{
    array.RemoveAll();
    for (const wchar_t* const text : texts)
        array.Add(text);
}

/// The strings with a bar behind each.
CString Joined(const CStringArray& array)
{
    CString text;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        text += array[i] + L'|';
    return text;
}

template <class Call>
::testing::AssertionResult ThrowsInvalidArgument(Call call)
{
    try
    {
        call();
    }
    catch (CInvalidArgException* exception)
    {
        exception->Delete();
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "nothing was thrown";
}

}  // namespace

TEST(CStringArray, StartsEmpty)
{
    const CStringArray array;
    EXPECT_EQ(0, array.GetSize());
    EXPECT_EQ(0, array.GetCount());
    EXPECT_EQ(-1, array.GetUpperBound());
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CStringArray, AddReturnsTheIndex)
{
    CStringArray array;
    for (INT_PTR i = 0; i < 1000; ++i)
        ASSERT_EQ(i, array.Add(CString(L'x', static_cast<int>(i % 40))));
    EXPECT_EQ(999, array.GetUpperBound());
    EXPECT_EQ(CString(L'x', 39), array.GetAt(999));
    EXPECT_EQ(array.GetData() + 999, &array.ElementAt(999));
}

TEST(CStringArray, ThrowsForAnIndexOutside)
{
    CStringArray array;
    Fill(array, {L"a", L"b"});
    const CStringArray& readOnly = array;
    for (const INT_PTR index : {INT_PTR{-1}, INT_PTR{2}, INT_PTR{1} << 40})
    {
        EXPECT_TRUE(ThrowsInvalidArgument([&] { array.GetAt(index); })) << index;
        EXPECT_TRUE(ThrowsInvalidArgument([&] { array.SetAt(index, L"x"); })) << index;
        EXPECT_TRUE(ThrowsInvalidArgument([&] { array.ElementAt(index); })) << index;
        EXPECT_TRUE(ThrowsInvalidArgument([&] { array[index] = L"x"; })) << index;
        EXPECT_TRUE(ThrowsInvalidArgument([&] { static_cast<void>(readOnly[index]); })) << index;
    }
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.RemoveAt(1, 2); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.RemoveAt(-1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.RemoveAt(0, -1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.InsertAt(-1, L"x"); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.InsertAt(0, L"x", -1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.SetAtGrow(-1, L"x"); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { array.SetSize(-1); }));
    EXPECT_EQ(L"a|b|", Joined(array));
}

TEST(CStringArray, SetSizeAddsEmptyStringsAndRemovesFromTheEnd)
{
    CStringArray array;
    Fill(array, {L"a", L"b", L"c"});
    array.SetSize(1);
    EXPECT_EQ(L"a|", Joined(array));
    array.SetSize(3);
    EXPECT_EQ(L"a|||", Joined(array));
    array.SetSize(4, 100);
    EXPECT_EQ(L"a||||", Joined(array));
    array.FreeExtra();
    EXPECT_EQ(L"a||||", Joined(array));
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CStringArray, ThrowsAMemoryExceptionForASizeBeyondMemory)
{
    CStringArray array;
    Fill(array, {L"a"});
    EXPECT_THROW(array.SetSize(INTPTR_MAX), CMemoryException*);
    EXPECT_THROW(array.InsertAt(INTPTR_MAX, L"x"), CMemoryException*);
    EXPECT_THROW(array.SetAtGrow(INTPTR_MAX - 1, L"x"), CMemoryException*);
    EXPECT_EQ(L"a|", Joined(array));
}

TEST(CStringArray, GrowsUpToAnIndex)
{
    CStringArray array;
    array.SetAtGrow(2, L"c");
    EXPECT_EQ(L"||c|", Joined(array));
    array.SetAtGrow(0, L"a");
    EXPECT_EQ(L"a||c|", Joined(array));
    array.InsertAt(4, L"e", 2);
    EXPECT_EQ(L"a||c||e|e|", Joined(array));
}

TEST(CStringArray, InsertsAndRemovesInTheMiddle)
{
    CStringArray array;
    Fill(array, {L"a", L"d"});
    array.InsertAt(1, L"b");
    array.InsertAt(2, array[1], 2);
    EXPECT_EQ(L"a|b|b|b|d|", Joined(array));
    array.RemoveAt(1, 2);
    EXPECT_EQ(L"a|b|d|", Joined(array));
    array.RemoveAt(2);
    EXPECT_EQ(L"a|b|", Joined(array));
    array.RemoveAt(0, 0);
    array.RemoveAt(2, 0);
    EXPECT_EQ(L"a|b|", Joined(array));
}

TEST(CStringArray, TakesTheStringsOfAnother)
{
    CStringArray array;
    CStringArray other;
    Fill(array, {L"a", L"d"});
    Fill(other, {L"b", L"c"});
    array.InsertAt(1, other);
    EXPECT_EQ(L"a|b|c|d|", Joined(array));
    EXPECT_EQ(4, array.Append(other));
    EXPECT_EQ(L"a|b|c|d|b|c|", Joined(array));
    array.Copy(other);
    EXPECT_EQ(L"b|c|", Joined(array));
    array.Copy(array);
    array.Append(array);
    EXPECT_EQ(L"b|c|b|c|", Joined(array));
    other.RemoveAll();
    array.Copy(other);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CStringArray, KnowsItsClass)
{
    const CStringArray array;
    EXPECT_STREQ("CStringArray", array.GetRuntimeClass()->m_lpszClassName);
    EXPECT_TRUE(array.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(array.IsKindOf(RUNTIME_CLASS(CException)));
}
