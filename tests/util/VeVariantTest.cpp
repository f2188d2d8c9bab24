#include "vetools/util/VeVariant.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "tests/support/VariantTestSupport.h"

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_notANumber = std::numeric_limits<double>::quiet_NaN();

/// A value with a pattern in the whole value field, so that what is read too much shows.
constexpr LONGLONG c_bits = 0x1122334455667788;

double AsDouble(LONGLONG bits)
{
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// The first 32 bits of the value field, as both builds lay it out.
long LowerHalf(const VARIANT& value)
{
    LONG half;
    std::memcpy(&half, &value.llVal, sizeof half);
    return half;
}

}  // namespace

// Bytes

TEST(VeVariant, PutBinaryMakesAnArrayOfTheBytesFromZero)
{
    BYTE bytes[] = {1, 0, 255};
    COleVariant value;
    EXPECT_EQ(1, PutBinaryIntoVariant(value, bytes, 3));
    ASSERT_EQ(VT_ARRAY | VT_UI1, value.vt);
    EXPECT_EQ(0x2011, value.vt);
    LONG lower = -1;
    LONG upper = -1;
    EXPECT_EQ(1U, ::SafeArrayGetDim(value.parray));
    EXPECT_EQ(S_OK, ::SafeArrayGetLBound(value.parray, 1, &lower));
    EXPECT_EQ(S_OK, ::SafeArrayGetUBound(value.parray, 1, &upper));
    EXPECT_EQ(0, lower);
    EXPECT_EQ(2, upper);
    EXPECT_EQ(0, std::memcmp(value.parray->pvData, bytes, 3));
    EXPECT_EQ(0U, value.parray->cLocks);
}

TEST(VeVariant, PutBinaryTakesNoBytesAsAnEmptyArray)
{
    BYTE one = 1;
    for (BYTE* const data : {&one, static_cast<BYTE*>(nullptr)})
    {
        COleVariant value;
        EXPECT_EQ(1, PutBinaryIntoVariant(value, data, 0));
        ASSERT_EQ(VT_ARRAY | VT_UI1, value.vt);
        EXPECT_EQ(0U, value.parray->rgsabound[0].cElements);
    }
}

TEST(VeVariant, PutBinaryIntoNullGives0)
{
    BYTE one = 1;
    EXPECT_EQ(0, PutBinaryIntoVariant(nullptr, &one, 1));
    EXPECT_EQ(0, PutBinaryIntoVariant(nullptr, nullptr, 0));
}

TEST(VeVariant, PutBinaryWithoutTheBytesGives0AndLeavesTheValue)
{
    COleVariant value(5);
    for (const unsigned long size : {1UL, 5UL, 0xFFFFFFFFUL})
        EXPECT_EQ(0, PutBinaryIntoVariant(value, nullptr, size)) << size;
    EXPECT_EQ(VT_I4, value.vt);
    EXPECT_EQ(5, value.lVal);
}

TEST(VeVariant, KeptPutBinaryOverwritesTheOldValueWithoutFreeingIt)
{
    VARIANT value = {};
    value.vt = VT_BSTR;
    value.bstrVal = ::SysAllocString(L"still there");
    const BSTR text = value.bstrVal;
    BYTE one = 1;
    EXPECT_EQ(1, PutBinaryIntoVariant(&value, &one, 1));
    EXPECT_STREQ(L"still there", text);
    ::SysFreeString(text);
    ::VariantClear(&value);
}

TEST(VeVariant, PutBinaryNeedsNoInitialisedValue)
{
    VARIANT value;
    std::memset(&value, 0xCD, sizeof value);
    BYTE one = 1;
    EXPECT_EQ(1, PutBinaryIntoVariant(&value, &one, 1));
    EXPECT_EQ(VT_ARRAY | VT_UI1, value.vt);
    ::VariantClear(&value);
}

TEST(VeVariant, GetBinaryGivesBackWhatWasPutIn)
{
    std::vector<BYTE> bytes(70000);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<BYTE>(i * 31);
    for (const std::size_t size : {std::size_t{1}, std::size_t{2}, std::size_t{255}, bytes.size()})
    {
        COleVariant value;
        ASSERT_EQ(1, PutBinaryIntoVariant(value, bytes.data(), static_cast<unsigned long>(size)));
        BYTE* out = nullptr;
        ASSERT_EQ(size, GetBinaryFromVariant(&out, value));
        EXPECT_EQ(0, std::memcmp(out, bytes.data(), size)) << size;
        EXPECT_EQ(0U, value.parray->cLocks);
        delete[] out;
    }
}

TEST(VeVariant, GetBinaryOfAnEmptyArrayGivesMemoryOfSize0)
{
    BYTE* out = nullptr;
    EXPECT_EQ(0U, GetBinaryFromVariant(&out, ByteArrayValue({})));
    EXPECT_NE(nullptr, out);
    delete[] out;
}

TEST(VeVariant, GetBinaryOfABstrGives0AndLeavesTheOutput)
{
    BYTE before = 7;
    BYTE* out = &before;
    EXPECT_EQ(0U, GetBinaryFromVariant(&out, COleVariant(L"text")));
    EXPECT_EQ(&before, out);
}

TEST(VeVariant, GetBinaryOfAnythingButBytesGives0AndLeavesTheOutput)
{
    BYTE before = 7;
    BYTE* out = &before;
    for (int type = 0; type <= 0xFFFF; ++type)
    {
        // 0x2011 itself: an array that is null
        EXPECT_EQ(0U, GetBinaryFromVariant(&out, ValueOfType(type))) << type;
        EXPECT_EQ(&before, out) << type;
    }
    EXPECT_EQ(0U, GetBinaryFromVariant(&out, nullptr));
    EXPECT_EQ(&before, out);
    EXPECT_EQ(0U, GetBinaryFromVariant(nullptr, ByteArrayValue({1})));
}

TEST(VeVariant, GetBinaryCountsTheElementsWhateverTheLowerBound)
{
    for (const LONG lower : {-5, 1, 1000000})
    {
        const COleVariant value = ByteArrayValue({4, 5, 6}, lower);
        BYTE* out = nullptr;
        ASSERT_EQ(3U, GetBinaryFromVariant(&out, value)) << lower;
        EXPECT_EQ(0, std::memcmp(out, "\4\5\6", 3));
        delete[] out;
    }
}

TEST(VeVariant, GetBinaryOfALockedArrayGivesItsBytes)
{
    const COleVariant value = ByteArrayValue({4, 5});
    ::SafeArrayLock(value.parray);
    BYTE* out = nullptr;
    EXPECT_EQ(2U, GetBinaryFromVariant(&out, value));
    EXPECT_EQ(1U, value.parray->cLocks);
    delete[] out;
    ::SafeArrayUnlock(value.parray);
}

TEST(VeVariant, GetBinaryOfSeveralDimensionsGivesAsManyBytesAsTheFirstHas)
{
    SAFEARRAYBOUND bounds[] = {{3, 0}, {2, 0}};
    COleVariant value;
    value.parray = ::SafeArrayCreate(VT_UI1, 2, bounds);
    value.vt = VT_ARRAY | VT_UI1;
    std::memcpy(value.parray->pvData, "\1\2\3\4\5\6", 6);
    BYTE* out = nullptr;
    ASSERT_EQ(3U, GetBinaryFromVariant(&out, value));
    EXPECT_EQ(0, std::memcmp(out, "\1\2\3", 3));
    delete[] out;
}

TEST(VeVariant, GetBinaryReadsNothingBeyondAnArrayWithAnEmptyDimension)
{
    SAFEARRAYBOUND bounds[] = {{3, 0}, {0, 0}};
    COleVariant value;
    value.parray = ::SafeArrayCreate(VT_UI1, 2, bounds);
    ASSERT_NE(nullptr, value.parray);
    value.vt = VT_ARRAY | VT_UI1;
    BYTE before = 7;
    BYTE* out = &before;
    EXPECT_EQ(0U, GetBinaryFromVariant(&out, value));
    EXPECT_EQ(&before, out);
}

// Numbers

TEST(VeVariant, ToLongGivesTheValueOfANumber)
{
    const struct
    {
        long expected;
        COleVariant value;
    } rows[] = {
        {-2, COleVariant(short{-2})},
        {-32768, COleVariant(short{-32768})},
        {-4, COleVariant(-4)},
        {INT_MAX, COleVariant(INT_MAX)},
        {-5, ValueOfType(VT_INT, 0x12345678FFFFFFFB)},
        {7, ValueOfType(VT_UI4, 0x1234567800000007)},
        {-1, ValueOfType(VT_UI4, 0xFFFFFFFF)},  // 4294967295
        {-1, ValueOfType(VT_UINT, 0xFFFFFFFF)},
        {200, ValueOfType(VT_UI1, 0x55C8)},
        {65535, ValueOfType(VT_UI2, 0x5555FFFF)},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.expected, VariantToLong(row.value)) << row.value.vt;
        EXPECT_EQ(row.expected, VariantToInt(row.value)) << row.value.vt;
        EXPECT_TRUE(VariantToBool(row.value)) << row.value.vt;
    }
}

TEST(VeVariant, ToLongCutsDoublesTowardsZeroAndKeepsThemInRange)
{
    const struct
    {
        long expected;
        double value;
    } rows[] = {
        {0, 0.0},
        {0, -0.999},
        {-2, -2.7},
        {2, 2.7},
        {2147483646, 2147483646.9},
        {2147483647, 2147483647.9},
        {-2147483647 - 1, -2147483648.9},
        {2147483647, 1e10},
        {-2147483647 - 1, -1e300},
        {2147483647, c_infinity},
        {-2147483647 - 1, -c_infinity},
        {0, c_notANumber},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.expected, VariantToLong(COleVariant(row.value))) << row.value;
        EXPECT_EQ(row.expected, VariantToInt(COleVariant(row.value))) << row.value;
    }
    EXPECT_EQ(-2, VariantToLong(COleVariant(-2.7F)));
    EXPECT_EQ(INT_MAX, VariantToLong(COleVariant(1e20F)));
}

TEST(VeVariant, ToDoubleGivesTheValueOfANumber)
{
    const struct
    {
        double expected;
        COleVariant value;
    } rows[] = {
        {-2.0, COleVariant(short{-2})},
        {-4.0, COleVariant(-4)},
        {-5.0, ValueOfType(VT_INT, 0x12345678FFFFFFFB)},
        {1.5, COleVariant(1.5F)},
        {1e300, COleVariant(1e300)},
        {c_infinity, COleVariant(c_infinity)},
        {200.0, ValueOfType(VT_UI1, 0x55C8)},
        {65535.0, ValueOfType(VT_UI2, 0x5555FFFF)},
        {4294967295.0, ValueOfType(VT_UI4, 0xFFFFFFFF)},
        {4294967295.0, ValueOfType(VT_UINT, 0xFFFFFFFF)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, VariantToDouble(row.value)) << row.value.vt;
    EXPECT_TRUE(std::isnan(VariantToDouble(COleVariant(c_notANumber))));
}

TEST(VeVariant, KeptToLongOfAConvertibleTextGivesHalfOfItsAddress)
{
    const COleVariant value(L"12");
    EXPECT_EQ(LowerHalf(value), VariantToLong(value));
    EXPECT_EQ(LowerHalf(value), VariantToInt(value));
    EXPECT_NE(12, VariantToLong(value));
    EXPECT_EQ(LowerHalf(value) != 0, VariantToBool(value));
    EXPECT_EQ(AsDouble(value.llVal), VariantToDouble(value));
    EXPECT_NE(12.0, VariantToDouble(value));
}

TEST(VeVariant, KeptNumbersOfOtherTypesAreReadFromTheValueFieldAsItStands)
{
    // Each converts to VT_I4 and VT_R8, and none of the results is what it converts to.
    const struct
    {
        VARTYPE type;
        LONGLONG bits;
    } rows[] = {
        {VT_EMPTY, c_bits},  {VT_BOOL, 0x112233445566FFFF}, {VT_I1, c_bits}, {VT_I8, 0x33445566}, {VT_UI8, 0x33445566},
        {VT_CY, 0x33445566}, {VT_DATE, 0x4000000012345678},
    };
    for (const auto& row : rows)
    {
        const COleVariant value = ValueOfType(row.type, row.bits);
        EXPECT_EQ(static_cast<LONG>(row.bits), VariantToLong(value)) << row.type;
        EXPECT_EQ(AsDouble(row.bits), VariantToDouble(value)) << row.type;
    }
}

TEST(VeVariant, KeptAReferenceIsReadAsItsAddress)
{
    LONG number = 42;
    COleVariant value = ValueOfType(VT_BYREF | VT_I4);
    value.plVal = &number;
    EXPECT_EQ(LowerHalf(value), VariantToLong(value));
    EXPECT_EQ(AsDouble(value.llVal), VariantToDouble(value));
    EXPECT_STREQ(L"42", CString(VariantToString(static_cast<const VARIANT*>(value), true)).GetString());
}

TEST(VeVariant, KeptADecimalIsReadAsItsLowerBits)
{
    COleVariant value;
    value.decVal.Lo64 = 125;
    value.decVal.scale = 1;
    value.vt = VT_DECIMAL;
    EXPECT_EQ(125, VariantToLong(value));
    EXPECT_EQ(AsDouble(125), VariantToDouble(value));
}

TEST(VeVariant, WhatDoesNotConvertIs0)
{
    const COleVariant values[] = {
        ValueOfType(VT_NULL, c_bits),
        COleVariant(L"no number"),
        COleVariant(L""),
        COleVariant(static_cast<const wchar_t*>(nullptr)),
        ByteArrayValue({1, 2, 3, 4}),
        ValueOfType(VT_BYREF | VT_I4),
        ValueOfType(VT_UNKNOWN),
        ValueOfType(15, c_bits),
        ValueOfType(VT_CLSID, c_bits),
    };
    for (const COleVariant& value : values)
    {
        EXPECT_EQ(0, VariantToLong(value)) << value.vt;
        EXPECT_EQ(0, VariantToInt(value)) << value.vt;
        EXPECT_EQ(0.0, VariantToDouble(value)) << value.vt;
        EXPECT_FALSE(VariantToBool(value)) << value.vt;
    }
    EXPECT_EQ(0, VariantToLong(ValueOfType(VT_I8, std::numeric_limits<LONGLONG>::max()))) << "overflow";
    EXPECT_EQ(0, VariantToLong(COleVariant(L"2147483648"))) << "overflow";
}

TEST(VeVariant, ToBoolOfABooleanIsWhetherItIsVariantTrue)
{
    const struct
    {
        bool expected;
        LONGLONG bits;
    } rows[] = {
        {false, 0}, {true, 0xFFFF}, {true, 0x1234FFFF}, {false, 0x7FFF}, {false, 0xFFFE}, {false, 0x10000},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, VariantToBool(ValueOfType(VT_BOOL, row.bits))) << row.bits;
}

TEST(VeVariant, KeptToBoolOfABooleanOf1IsFalse)
{
    EXPECT_FALSE(VariantToBool(ValueOfType(VT_BOOL, 1)));
    EXPECT_TRUE(VariantToBool(ValueOfType(VT_BOOL, 0xFFFF)));
}

TEST(VeVariant, ToBoolOfANumberIsWhetherItIsNot0)
{
    EXPECT_TRUE(VariantToBool(COleVariant(1)));
    EXPECT_TRUE(VariantToBool(COleVariant(-1)));
    EXPECT_FALSE(VariantToBool(COleVariant(0)));
    EXPECT_TRUE(VariantToBool(COleVariant(1.5)));
    EXPECT_FALSE(VariantToBool(COleVariant(0.9)));
}

TEST(VeVariant, ANullPointerGivesNothing)
{
    EXPECT_EQ(0, VariantToLong(nullptr));
    EXPECT_EQ(0, VariantToInt(nullptr));
    EXPECT_EQ(0.0, VariantToDouble(nullptr));
    EXPECT_FALSE(VariantToBool(nullptr));
    EXPECT_EQ(nullptr, VariantToLPCSTR(nullptr, true));
    EXPECT_EQ(nullptr, VariantToLPCSTR(nullptr, false));
    EXPECT_EQ(CString(), VariantToString(nullptr, true));
    EXPECT_EQ(CString(), VariantToString(nullptr, false));
    EXPECT_EQ(0.0, DBVariantToR8(nullptr));
}

// Texts

TEST(VeVariant, ToLpcstrOfABstrIsItsOwnText)
{
    const COleVariant value(L"text");
    EXPECT_EQ(value.bstrVal, VariantToLPCSTR(value, false));
    EXPECT_EQ(value.bstrVal, VariantToLPCSTR(value, true));
    EXPECT_EQ(nullptr, VariantToLPCSTR(COleVariant(static_cast<const wchar_t*>(nullptr)), true));
    EXPECT_EQ(CString(L"text"), VariantToString(static_cast<LPCVARIANT>(value), false));
}

TEST(VeVariant, ToLpcstrWithoutConversionIsNullForOtherTypes)
{
    EXPECT_EQ(nullptr, VariantToLPCSTR(COleVariant(5), false));
    EXPECT_EQ(CString(), VariantToString(static_cast<LPCVARIANT>(COleVariant(5)), false));
}

TEST(VeVariant, KeptTheConvertedTextBelongsToTheCaller)
{
    const COleVariant value(5);
    const wchar_t* const text = VariantToLPCSTR(value, true);
    ASSERT_STREQ(L"5", text);
    EXPECT_EQ(1U, ::SysStringLen(const_cast<BSTR>(text)));
    ::SysFreeString(const_cast<BSTR>(text));
}

TEST(VeVariant, ToLpcstrOfWhatDoesNotConvertIsNull)
{
    for (const COleVariant& value :
         {ValueOfType(VT_NULL), ValueOfType(VT_ARRAY | VT_I4), ValueOfType(15), ValueOfType(VT_BYREF | VT_I4)})
    {
        EXPECT_EQ(nullptr, VariantToLPCSTR(value, true)) << value.vt;
        EXPECT_EQ(CString(), VariantToString(static_cast<LPCVARIANT>(value), true)) << value.vt;
    }
}

TEST(VeVariant, TheTextOfAVariantEndsAtItsFirstNullCharacter)
{
    const COleVariant value(CString(L"a\0b", 3));
    EXPECT_EQ(CString(L"a"), VariantToString(static_cast<LPCVARIANT>(value), false));
    EXPECT_EQ(CString(L"a"), VariantToString(value));
}

TEST(VeVariant, WritesAValueOfEachTypeForDevelopers)
{
    const struct
    {
        const wchar_t* expected;
        COleVariant value;
    } rows[] = {
        {L"NULL", COleVariant()},
        {L"NULL", ValueOfType(VT_NULL)},
        {L"42", COleVariant(short{42})},
        {L"-32768", ValueOfType(VT_I2, 0x55558000)},
        {L"42", COleVariant(42)},
        {L"-1", ValueOfType(VT_I4, 0x12345678FFFFFFFF)},
        {L"4.200000e+01", COleVariant(42.0F)},
        {L"1.000000e-01", COleVariant(0.1F)},
        {L"4.200000e+01", COleVariant(42.0)},
        {L"-1.234568e-07", COleVariant(-1.23456789e-7)},
        {L"1.000000e+300", COleVariant(1e300)},
        {L"1.#INF00e+00", COleVariant(c_infinity)},
        {L"12.34", COleVariant(COleCurrency(12, 3400))},
        {L"-0.5", COleVariant(COleCurrency(0, -5000))},
        {L"01 18 21", COleVariant(COleDateTime(44214.58690972))},
        {L"12 30 99", COleVariant(COleDateTime(0.0))},
        {L"text", COleVariant(L"text")},
        {L"", COleVariant(L"")},
        {L"", COleVariant(static_cast<const wchar_t*>(nullptr))},
        {L"TRUE", COleVariant(VARIANT_TRUE, VT_BOOL)},
        {L"TRUE", ValueOfType(VT_BOOL, 1)},
        {L"FALSE", ValueOfType(VT_BOOL, 0x10000)},
        {L"0x00", COleVariant(BYTE{0})},
        {L"0x2A", COleVariant(BYTE{42})},
        {L"0xFF", ValueOfType(VT_UI1, 0x55FF)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CString(row.expected), VariantToString(row.value)) << row.value.vt;
}

TEST(VeVariant, WritesDatesByMonthDayAndYear)
{
    const struct
    {
        const wchar_t* expected;
        double date;
    } rows[] = {
        {L"12 29 99", -1.25},
        {L"01 01 00", -657434.0},
        {L"12 31 99", 2958465.5},
        {L"12 31 99", 1 - 0.1 / 86400},  // rounded up into the next day
        {L"Invalid DateTime", -657435.0},
        {L"Invalid DateTime", 2958466.0},
        {L"Invalid DateTime", 1e300},
        {L"Invalid DateTime", c_infinity},
        {L"Invalid DateTime", c_notANumber},
    };
    for (const auto& row : rows)
    {
        COleVariant value(row.date);
        value.vt = VT_DATE;
        EXPECT_EQ(CString(row.expected), VariantToString(value)) << row.date;
    }
}

namespace
{

/// What the table of types says, written out once more by hand.
const wchar_t* NameOfType(int type)
{
    // clang-format off
    switch (type)
    {
        case 0: return L"VT_EMPTY";
        case 1: return L"VT_NULL";
        case 2: return L"VT_I2";
        case 3: return L"VT_I4";
        case 4: return L"VT_R4";
        case 5: return L"VT_R8";
        case 6: return L"VT_CY";
        case 7: return L"VT_DATE";
        case 8: return L"VT_BSTR";
        case 9: return L"VT_DISPATCH";
        case 10: return L"VT_ERROR";
        case 11: return L"VT_BOOL";
        case 12: return L"VT_VARIANT";
        case 13: return L"VT_UNKNOWN";
        case 16: return L"VT_I1";
        case 17: return L"VT_UI1";
        case 18: return L"VT_UI2";
        case 19: return L"VT_UI4";
        case 20: return L"VT_I8";
        case 21: return L"VT_UI8";
        case 22: return L"VT_INT";
        case 23: return L"VT_UINT";
        case 24: return L"VT_VOID";
        case 25: return L"VT_HRESULT";
        case 26: return L"VT_PTR";
        case 27: return L"VT_SAFEARRAY";
        case 28: return L"VT_CARRAY";
        case 29: return L"VT_USERDEFINED";
        case 30: return L"VT_LPSTR";
        case 31: return L"VT_LPWSTR";
        case 64: return L"VT_FILETIME";
        case 65: return L"VT_BLOB";
        case 66: return L"VT_STREAM";
        case 67: return L"VT_STORAGE";
        case 68: return L"VT_STREAMED_OBJECT";
        case 69: return L"VT_STORED_OBJECT";
        case 70: return L"VT_BLOB_OBJECT";
        case 71: return L"VT_CF";
        case 72: return L"VT_CLSID";
        default: return nullptr;
    }
    // clang-format on
}

bool IsShownByName(int type)
{
    return type == 9 || type == 10 || type == 12 || type == 13 || type == 16 || (type >= 18 && type <= 31) ||
           (type >= 64 && type <= 72);
}

}  // namespace

TEST(VeVariant, WritesEveryTypeOutsideTheValuesByItsNameOrAsFish)
{
    for (int type = 0; type <= 0xFFFF; ++type)
    {
        const CString text = VariantToString(ValueOfType(type));
        const wchar_t* const base = NameOfType(type & ~(VT_ARRAY | VT_BYREF));
        if ((type & (VT_ARRAY | VT_BYREF)) != 0)
        {
            CString expected = (type & VT_ARRAY) != 0 ? L"Array of " : L"Fish";
            if ((type & VT_BYREF) != 0)
                expected += L"Pointer to ";
            expected += base;
            EXPECT_EQ(expected, text) << type;
        }
        else if (IsShownByName(type))
            EXPECT_EQ(CString(base), text) << type;
        else if (base == nullptr)
            EXPECT_EQ(CString(L"Fish"), text) << type;
        else
            EXPECT_NE(CString(L"Fish"), text) << type;
    }
}

TEST(VeVariant, KeptATypeWithoutATextReadsFish)
{
    EXPECT_EQ(CString(L"Fish"), VariantToString(ValueOfType(VT_DECIMAL)));
    for (const int type : {14, 15, 32, 36, 63, 73, 0x0FFF, 0x1003, 0x8003})
        EXPECT_EQ(CString(L"Fish"), VariantToString(ValueOfType(type))) << type;
}

TEST(VeVariant, KeptAReferenceReadsFishPointerToItsType)
{
    EXPECT_EQ(CString(L"FishPointer to VT_I4"), VariantToString(ValueOfType(VT_BYREF | VT_I4)));
    EXPECT_EQ(CString(L"FishPointer to VT_BOOL"), VariantToString(ValueOfType(VT_BYREF | VT_BOOL)));
    EXPECT_EQ(CString(L"FishPointer to "), VariantToString(ValueOfType(VT_BYREF | VT_DECIMAL)));
}

TEST(VeVariant, WritesAnArrayByItsType)
{
    EXPECT_EQ(CString(L"Array of VT_I4"), VariantToString(ValueOfType(VT_ARRAY | VT_I4)));
    EXPECT_EQ(CString(L"Array of VT_UI1"), VariantToString(ByteArrayValue({1, 2})));
    EXPECT_EQ(CString(L"Array of Pointer to VT_I4"), VariantToString(ValueOfType(VT_ARRAY | VT_BYREF | VT_I4)));
    EXPECT_EQ(CString(L"Array of "), VariantToString(ValueOfType(VT_ARRAY | VT_DECIMAL)));
}

TEST(VeVariant, AnyTypeSetDirectlyIsSafeToConvert)
{
    for (int type = 0; type <= 0xFFFF; ++type)
    {
        const COleVariant value = ValueOfType(type);
        EXPECT_EQ(0, VariantToLong(value)) << type;
        EXPECT_EQ(0, VariantToInt(value)) << type;
        EXPECT_EQ(0.0, VariantToDouble(value)) << type;
        EXPECT_FALSE(VariantToBool(value)) << type;
        VariantToString(static_cast<LPCVARIANT>(value), true);
    }
}

// Database values

TEST(VeVariant, DatabaseValuesGiveTheirDouble)
{
    CDBVariant value;
    EXPECT_EQ(0.0, DBVariantToR8(&value));
    value.m_dblVal = 2.5;
    EXPECT_EQ(0.0, DBVariantToR8(&value)) << "null";
    value.m_dwType = DBVT_DOUBLE;
    EXPECT_EQ(2.5, DBVariantToR8(&value));
}

TEST(VeVariant, KeptADatabaseValueOfAnotherTypeIsReadAsADouble)
{
    CDBVariant value;
    value.m_dwType = DBVT_LONG;
    value.m_dblVal = AsDouble(1);
    EXPECT_EQ(AsDouble(1), DBVariantToR8(&value));
    value.m_dwType = 0xFFFF;
    EXPECT_EQ(AsDouble(1), DBVariantToR8(&value));

    value.m_dwType = DBVT_LONG;
    value.m_dblVal = 0.0;
    value.m_lVal = -1;
    EXPECT_EQ(AsDouble(0xFFFFFFFF), DBVariantToR8(&value)) << "a long has 32 bits";
}
