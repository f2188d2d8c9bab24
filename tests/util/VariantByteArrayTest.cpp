#include "vetools/util/VariantByteArray.h"

#include <cstring>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/VariantTestSupport.h"
#include "vetools/util/VeVariant.h"

namespace
{

std::vector<BYTE> BytesOf(const VARIANT* value)
{
    BYTE* bytes = nullptr;
    const unsigned long size = GetBinaryFromVariant(&bytes, value);
    const std::vector<BYTE> result(bytes, bytes + size);
    delete[] bytes;
    return result;
}

}  // namespace

TEST(VariantByteArray, HasNothingAtFirst)
{
    CVariantByteArray array;
    EXPECT_EQ(VT_EMPTY, array.vt);
    EXPECT_EQ(nullptr, array.GetByteArray());
    EXPECT_EQ(nullptr, array.Load());
    EXPECT_EQ(nullptr, array.Store());
}

TEST(VariantByteArray, AttachAnswersWhetherThereAreAValueAndACount)
{
    const COleVariant value = ByteArrayValue({1, 2, 3});
    CVariantByteArray array;
    EXPECT_NE(0, array.Attach(value, 3));
    EXPECT_EQ(0, array.Attach(value, 0));
    EXPECT_TRUE(array == value) << "the value is copied all the same";
    EXPECT_EQ(0, array.Attach(nullptr, 3));
    EXPECT_EQ(VT_EMPTY, array.vt);
    EXPECT_EQ(0, array.Attach(nullptr, 0));
    EXPECT_NE(0, array.Attach(COleVariant(5), 3)) << "what the value is shows later";
}

TEST(VariantByteArray, LoadGivesACopyOfTheBytes)
{
    const COleVariant value = ByteArrayValue({1, 2, 3});
    CVariantByteArray array(value, 3);
    BYTE* const bytes = array.Load();
    ASSERT_NE(nullptr, bytes);
    EXPECT_EQ(0, std::memcmp(bytes, "\1\2\3", 3));
    EXPECT_EQ(bytes, array.GetByteArray());
    bytes[0] = 9;
    EXPECT_EQ(std::vector<BYTE>({1, 2, 3}), BytesOf(array)) << "until it is stored";
}

TEST(VariantByteArray, LoadGivesNullAndFreesTheBytesWhenTheSizeIsAnother)
{
    const COleVariant value = ByteArrayValue({1, 2, 3});
    for (const unsigned long count : {1UL, 2UL, 4UL, 0xFFFFFFFFUL, std::numeric_limits<unsigned long>::max()})
    {
        CVariantByteArray array(value, count);
        EXPECT_EQ(nullptr, array.Load()) << count;
        EXPECT_EQ(nullptr, array.GetByteArray()) << count;
    }
    CVariantByteArray array(ByteArrayValue({}), 1);
    EXPECT_EQ(nullptr, array.Load());
}

TEST(VariantByteArray, LoadGivesNullForAValueThatIsNoArrayOfBytes)
{
    for (const COleVariant& value : {COleVariant(5), COleVariant(L"text"), ValueOfType(VT_ARRAY | VT_I4)})
    {
        CVariantByteArray array(value, 4);
        EXPECT_EQ(nullptr, array.Load()) << value.vt;
    }
}

TEST(VariantByteArray, LoadGivesNullAndKeepsTheBufferWithoutACountOrAValue)
{
    CVariantByteArray array(ByteArrayValue({1, 2}), 2);
    BYTE* const bytes = array.Load();
    for (const VARTYPE type : {VT_EMPTY, VT_NULL})
    {
        const COleVariant nothing = ValueOfType(type);
        static_cast<COleVariant&>(array) = nothing;
        EXPECT_EQ(nullptr, array.Load()) << type;
        EXPECT_EQ(bytes, array.GetByteArray()) << type;
    }
    array.Attach(ByteArrayValue({1, 2}), 0);
    EXPECT_EQ(nullptr, array.Load());
}

TEST(VariantByteArray, LoadTwiceGivesTheBytesOfTheValueAgain)
{
    CVariantByteArray array(ByteArrayValue({1, 2}), 2);
    array.Load()[0] = 9;
    EXPECT_EQ(1, array.Load()[0]);
}

TEST(VariantByteArray, StoreMakesTheValueWhatTheBufferHolds)
{
    CVariantByteArray array(ByteArrayValue({1, 2, 3}), 3);
    EXPECT_EQ(nullptr, array.Store()) << "nothing is loaded";
    array.Load()[2] = 9;
    const VARIANT* const stored = array.Store();
    EXPECT_EQ(static_cast<VARIANT*>(&array), stored);
    EXPECT_EQ(std::vector<BYTE>({1, 2, 9}), BytesOf(stored));
    array.GetByteArray()[0] = 7;
    EXPECT_EQ(std::vector<BYTE>({7, 2, 9}), BytesOf(array.Store()));
}

TEST(VariantByteArray, StoreGivesNullForANullValueButNotForAnEmptyOne)
{
    CVariantByteArray array(ByteArrayValue({1, 2}), 2);
    array.Load();
    static_cast<COleVariant&>(array) = ValueOfType(VT_NULL);
    EXPECT_EQ(nullptr, array.Store());
    static_cast<COleVariant&>(array) = COleVariant();
    EXPECT_EQ(std::vector<BYTE>({1, 2}), BytesOf(array.Store()));
}

TEST(VariantByteArray, ClearLetsGoOfEverything)
{
    CVariantByteArray array(ByteArrayValue({1, 2}), 2);
    array.Load();
    array.Clear();
    EXPECT_EQ(VT_EMPTY, array.vt);
    EXPECT_EQ(nullptr, array.GetByteArray());
    EXPECT_EQ(nullptr, array.Load());
    EXPECT_EQ(nullptr, array.Store());
}

TEST(VariantByteArray, AttachLetsGoOfTheBuffer)
{
    CVariantByteArray array(ByteArrayValue({1, 2}), 2);
    array.Load();
    array.Attach(ByteArrayValue({3}), 1);
    EXPECT_EQ(nullptr, array.GetByteArray());
    EXPECT_EQ(3, array.Load()[0]);
}

TEST(VariantByteArray, KeptCopiesShareOneBuffer)
{
    CVariantByteArray copy;
    {
        CVariantByteArray array(ByteArrayValue({1, 2}), 2);
        BYTE* const bytes = array.Load();
        const CVariantByteArray constructed(array);
        copy = array;
        EXPECT_EQ(bytes, constructed.GetByteArray());
        EXPECT_EQ(bytes, copy.GetByteArray());
        EXPECT_NE(array.parray, copy.parray) << "the values are copied";
        bytes[1] = 9;
        EXPECT_EQ(9, copy.GetByteArray()[1]);
    }
    EXPECT_EQ(9, copy.GetByteArray()[1]) << "the last one keeps it";
    EXPECT_EQ(std::vector<BYTE>({1, 9}), BytesOf(copy.Store()));
    copy = *&copy;
    EXPECT_EQ(9, copy.GetByteArray()[1]);
}

TEST(VariantByteArray, DoesNotThrowForAValueThatCannotBeCopied)
{
    const VARIANT unknown = ValueOfType(15);
    CVariantByteArray array(&unknown, 4);
    EXPECT_EQ(VT_EMPTY, array.vt);
    EXPECT_EQ(nullptr, array.Load());
}
