#include "vetools/framework/COleVariant.h"

#include <climits>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "tests/support/VariantTestSupport.h"

namespace
{

/// The code of the exception that `action` throws; nothing when it throws none.
std::optional<SCODE> ThrownBy(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (COleException* exception)
    {
        const SCODE code = exception->m_sc;
        exception->Delete();
        return code;
    }
    return std::nullopt;
}

bool ThrowsInvalidArgument(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (CInvalidArgException* exception)
    {
        exception->Delete();
        return true;
    }
    return false;
}

}  // namespace

static_assert(sizeof(COleVariant) == sizeof(VARIANT), "it is a VARIANT");
static_assert(!std::is_constructible_v<COleVariant, bool>);
static_assert(!std::is_constructible_v<COleVariant, int*>, "no pointer becomes a bool");

TEST(COleVariant, IsEmptyAtFirstWithAllBitsZero)
{
    const COleVariant value;
    EXPECT_EQ(VT_EMPTY, value.vt);
    EXPECT_EQ(0, value.llVal);
}

TEST(COleVariant, TakesEachPlainTypeAsItsOwn)
{
    EXPECT_EQ(VT_UI1, COleVariant(BYTE{200}).vt);
    EXPECT_EQ(200, COleVariant(BYTE{200}).bVal);
    EXPECT_EQ(VT_I2, COleVariant(short{-2}).vt);
    EXPECT_EQ(-2, COleVariant(short{-2}).iVal);
    EXPECT_EQ(VT_I4, COleVariant(-4).vt);
    EXPECT_EQ(-4, COleVariant(-4).lVal);
    EXPECT_EQ(VT_I4, COleVariant(-4L).vt);
    EXPECT_EQ(-4, COleVariant(-4L).lVal);
    EXPECT_EQ(VT_I4, COleVariant(LONG{-4}).vt);
    EXPECT_EQ(VT_I8, COleVariant(-8LL).vt);
    EXPECT_EQ(-8, COleVariant(LONGLONG{-8}).llVal);
    EXPECT_EQ(VT_UI8, COleVariant(ULONGLONG{8}).vt);
    EXPECT_EQ(VT_R4, COleVariant(1.5F).vt);
    EXPECT_EQ(1.5F, COleVariant(1.5F).fltVal);
    EXPECT_EQ(VT_R8, COleVariant(2.5).vt);
    EXPECT_EQ(2.5, COleVariant(2.5).dblVal);
    EXPECT_EQ(VT_CY, COleVariant(COleCurrency(1, 5000)).vt);
    EXPECT_EQ(15000, COleVariant(COleCurrency(1, 5000)).cyVal.int64);
    EXPECT_EQ(VT_DATE, COleVariant(COleDateTime(44214.5)).vt);
    EXPECT_EQ(44214.5, COleVariant(COleDateTime(44214.5)).date);
    EXPECT_EQ(VT_BSTR, COleVariant(L"text").vt);
    EXPECT_STREQ(L"text", COleVariant(L"text").bstrVal);
    EXPECT_EQ(VT_BSTR, COleVariant(CString(L"text")).vt);
}

TEST(COleVariant, TakesTheTypeThatTheNumberIsGivenFor)
{
    EXPECT_EQ(VT_BOOL, COleVariant(short{5}, VT_BOOL).vt);
    EXPECT_EQ(VARIANT_TRUE, COleVariant(short{5}, VT_BOOL).boolVal);
    EXPECT_EQ(VARIANT_FALSE, COleVariant(short{0}, VT_BOOL).boolVal);
    EXPECT_EQ(VARIANT_TRUE, COleVariant(0x10000, VT_BOOL).boolVal);
    EXPECT_EQ(VT_ERROR, COleVariant(5L, VT_ERROR).vt);
    EXPECT_EQ(5, COleVariant(5L, VT_ERROR).scode);
    EXPECT_TRUE(ThrowsInvalidArgument([] { COleVariant(short{5}, VT_I4); }));
    EXPECT_TRUE(ThrowsInvalidArgument([] { COleVariant(5L, VT_I2); }));
    EXPECT_TRUE(ThrowsInvalidArgument([] { COleVariant(L"text", VT_I2); }));
}

TEST(COleVariant, KeepsALongToTheRangeOf32Bits)
{
    EXPECT_EQ(INT_MAX, COleVariant(LONG_MAX).lVal);
    EXPECT_EQ(INT_MIN, COleVariant(LONG_MIN).lVal);
}

TEST(COleVariant, TakesANullTextAsTheNullBstrAndATextWithNullCharactersWhole)
{
    const COleVariant null(static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(VT_BSTR, null.vt);
    EXPECT_EQ(nullptr, null.bstrVal);
    EXPECT_EQ(3U, ::SysStringLen(COleVariant(CString(L"a\0b", 3)).bstrVal));
}

TEST(COleVariant, CopiesWhatItsValueOwns)
{
    const COleVariant text(L"text");
    const COleVariant copy(text);
    EXPECT_NE(text.bstrVal, copy.bstrVal);
    EXPECT_TRUE(text == copy);

    const COleVariant array = ByteArrayValue({1, 2, 3});
    const COleVariant copiedArray(static_cast<const VARIANT&>(array));
    EXPECT_NE(array.parray, copiedArray.parray);
    EXPECT_TRUE(array == copiedArray);

    COleVariant assigned(L"before");
    assigned = text;
    EXPECT_STREQ(L"text", assigned.bstrVal);
    assigned = *&assigned;
    EXPECT_STREQ(L"text", assigned.bstrVal);
    assigned = static_cast<LPCVARIANT>(array);
    EXPECT_TRUE(assigned == array);
    assigned = static_cast<LPCVARIANT>(nullptr);
    EXPECT_EQ(VT_EMPTY, assigned.vt);
    EXPECT_EQ(VT_EMPTY, COleVariant(static_cast<LPCVARIANT>(nullptr)).vt);
}

TEST(COleVariant, IsAssignedEveryPlainType)
{
    COleVariant value;
    value = L"text";
    EXPECT_STREQ(L"text", value.bstrVal);
    value = 5;
    EXPECT_EQ(VT_I4, value.vt);
    value = short{5};
    EXPECT_EQ(VT_I2, value.vt);
    value = 2.5;
    EXPECT_EQ(VT_R8, value.vt);
    value = CString(L"another");
    EXPECT_STREQ(L"another", value.bstrVal);
    value = COleDateTime(1.0);
    EXPECT_EQ(VT_DATE, value.vt);
    value = COleCurrency(1, 0);
    EXPECT_EQ(VT_CY, value.vt);
}

TEST(COleVariant, TakesOverAndHandsOverWithoutACopy)
{
    VARIANT source = {};
    source.vt = VT_BSTR;
    source.bstrVal = ::SysAllocString(L"text");
    const BSTR text = source.bstrVal;

    COleVariant value(L"before");
    value.Attach(source);
    EXPECT_EQ(VT_EMPTY, source.vt);
    EXPECT_EQ(text, value.bstrVal);
    value.Attach(value);
    EXPECT_EQ(text, value.bstrVal);

    VARIANT detached = value.Detach();
    EXPECT_EQ(VT_EMPTY, value.vt);
    EXPECT_EQ(text, detached.bstrVal);
    ::VariantClear(&detached);
}

TEST(COleVariant, StandsWhereAVariantIsAskedFor)
{
    COleVariant value(5);
    const LPVARIANT pointer = value;
    const LPCVARIANT constantPointer = std::as_const(value);
    EXPECT_EQ(static_cast<VARIANT*>(&value), pointer);
    EXPECT_EQ(pointer, constantPointer);
}

TEST(COleVariant, ConvertsItselfOrAnotherValue)
{
    COleVariant value(L"12");
    value.ChangeType(VT_I4);
    EXPECT_EQ(VT_I4, value.vt);
    EXPECT_EQ(12, value.lVal);

    COleVariant source(2.5);
    value.ChangeType(VT_BSTR, source);
    EXPECT_STREQ(L"2.5", value.bstrVal);
    EXPECT_EQ(VT_R8, source.vt);
}

TEST(COleVariant, ThrowsTheSystemsCodeAndKeepsItsValue)
{
    COleVariant value(L"no number");
    EXPECT_EQ(DISP_E_TYPEMISMATCH, ThrownBy([&] { value.ChangeType(VT_I4); }));
    EXPECT_STREQ(L"no number", value.bstrVal);

    COleVariant large(1e10);
    EXPECT_EQ(DISP_E_OVERFLOW, ThrownBy([&] { large.ChangeType(VT_I4); }));
    EXPECT_EQ(1e10, large.dblVal);

    COleVariant reference;
    reference.vt = VT_BYREF | VT_I4;
    EXPECT_TRUE(ThrownBy([&] { reference.ChangeType(VT_I4); })) << "a reference to nothing";

    VARIANT unknown = {};
    unknown.vt = 15;
    EXPECT_EQ(DISP_E_BADVARTYPE, ThrownBy([&] { const COleVariant copy(unknown); }));
    EXPECT_EQ(DISP_E_BADVARTYPE, ThrownBy([&] { large = unknown; }));
}

TEST(COleVariant, FollowsReferencesWhenItConverts)
{
    LONG number = 42;
    VARIANT inner = {};
    inner.vt = VT_BYREF | VT_I4;
    inner.plVal = &number;
    VARIANT outer = {};
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &inner;

    COleVariant value;
    value.ChangeType(VT_BSTR, &inner);
    EXPECT_STREQ(L"42", value.bstrVal);
    value.ChangeType(VT_R8, &outer);
    EXPECT_EQ(42.0, value.dblVal);
    inner.plVal = nullptr;
    EXPECT_TRUE(ThrownBy([&] { value.ChangeType(VT_I4, &outer); }));
    EXPECT_EQ(42.0, value.dblVal);
}

TEST(COleVariant, ReadsTextsWithExponentsBeyondAllIntegers)
{
    struct ExponentRow
    {
        HRESULT expected;
        double number;
        const wchar_t* text;
    };
    // clang-format off
    const ExponentRow rows[] = {
        {DISP_E_OVERFLOW,      0.0,  L"1e2147483647"},
        {DISP_E_OVERFLOW,      0.0,  L"1e2147483648"},
        {DISP_E_OVERFLOW,      0.0,  L"-10E+2147483647"},
        {DISP_E_OVERFLOW,      0.0,  L"1.5e,0004294967296"},
        {DISP_E_OVERFLOW,      0.0,  L"1e18446744073709551617"},
        {S_OK,                 0.0,  L"1e-2147483648"},
        {S_OK,                 0.0,  L" 25e-4294967296 "},
        {S_OK,                 0.0,  L"0e2147483648"},
        {S_OK,                 10.0, L"1e00000000000000000001"},
        {DISP_E_TYPEMISMATCH,  0.0,  L"1e2147483648x"},
        {S_OK,                 0xE, L"&HE"},
        {DISP_E_OVERFLOW,      0.0,  L"&HE2147483648000000"},
    };
    // clang-format on
    for (const ExponentRow& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        COleVariant text(row.text);
        VARIANT reference = {};
        reference.vt = VT_BYREF | VT_BSTR;
        reference.pbstrVal = &text.bstrVal;
        VARIANT outer = {};
        outer.vt = VT_BYREF | VT_VARIANT;
        outer.pvarVal = &reference;
        for (VARIANT* const source : {static_cast<VARIANT*>(&text), &reference, &outer})
        {
            COleVariant value;
            EXPECT_EQ(row.expected, ThrownBy([&] { value.ChangeType(VT_R8, source); }).value_or(S_OK));
            EXPECT_EQ(row.number, value.dblVal);
        }
        COleVariant shown;
        shown.ChangeType(VT_BSTR, &text);
        EXPECT_STREQ(row.text, shown.bstrVal) << "as a text it stays";
    }
}

TEST(COleVariant, RefusesADecimalThatIsNoNumber)
{
    for (const auto& [scale, sign] : {std::pair(29, 0), {255, 0}, {255, 0x80}, {0, 1}, {28, 0xFF}})
    {
        COleVariant decimal;
        decimal.decVal.Hi32 = 0xFFFFFFFF;
        decimal.decVal.scale = static_cast<BYTE>(scale);
        decimal.decVal.sign = static_cast<BYTE>(sign);
        decimal.vt = VT_DECIMAL;
        VARIANT reference = {};
        reference.vt = VT_BYREF | VT_DECIMAL;
        reference.pdecVal = &decimal.decVal;
        for (VARIANT* const source : {static_cast<VARIANT*>(&decimal), &reference})
        {
            for (const VARTYPE type : {VT_BSTR, VT_I4, VT_R8, VT_CY, VT_DATE, VT_BOOL})
            {
                COleVariant value;
                EXPECT_EQ(E_INVALIDARG, ThrownBy([&] { value.ChangeType(type, source); }))
                    << scale << ' ' << sign << " to " << type;
            }
        }
    }
}

TEST(COleVariant, ThrowsWhenALockedArrayIsCleared)
{
    COleVariant value = ByteArrayValue({1, 2});
    ::SafeArrayLock(value.parray);
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, ThrownBy([&] { value.Clear(); }));
    ::SafeArrayUnlock(value.parray);
    value.Clear();
    EXPECT_EQ(VT_EMPTY, value.vt);
}

TEST(COleVariant, EqualsAValueOfTheSameTypeAndContents)
{
    EXPECT_TRUE(COleVariant() == COleVariant());
    EXPECT_TRUE(COleVariant(5) == COleVariant(5));
    EXPECT_FALSE(COleVariant(5) == COleVariant(6));
    EXPECT_FALSE(COleVariant(5) == COleVariant(short{5}));
    EXPECT_TRUE(COleVariant(BYTE{5}) == COleVariant(BYTE{5}));
    EXPECT_TRUE(COleVariant(0.0) == COleVariant(-0.0));
    EXPECT_TRUE(COleVariant(1.5F) == COleVariant(1.5F));
    EXPECT_TRUE(COleVariant(5LL) == COleVariant(5LL));
    EXPECT_FALSE(COleVariant(5LL) == COleVariant(5LL + (1LL << 32)));
    EXPECT_TRUE(COleVariant(COleCurrency(1, 0)) == COleVariant(COleCurrency(1, 0)));
    EXPECT_TRUE(COleVariant(L"text") == COleVariant(L"text"));
    EXPECT_FALSE(COleVariant(L"text") == COleVariant(L"Text"));
    EXPECT_FALSE(COleVariant(CString(L"a\0b", 3)) == COleVariant(CString(L"a\0c", 3)));
    EXPECT_TRUE(COleVariant(L"") == COleVariant(static_cast<const wchar_t*>(nullptr)));
    EXPECT_TRUE(ByteArrayValue({1, 2}) == ByteArrayValue({1, 2}));
    EXPECT_FALSE(ByteArrayValue({1, 2}) == ByteArrayValue({1, 3}));
    EXPECT_FALSE(ByteArrayValue({1, 2}) == ByteArrayValue({1, 2, 3}));
    EXPECT_FALSE(COleVariant(5) == static_cast<LPCVARIANT>(nullptr));
    EXPECT_TRUE(COleVariant(5) == static_cast<const VARIANT&>(COleVariant(5)));
    EXPECT_TRUE(COleVariant(5) != COleVariant(6));

    VARIANT decimal = {};
    decimal.decVal.Lo64 = 12;
    decimal.decVal.scale = 1;
    decimal.vt = VT_DECIMAL;
    EXPECT_TRUE(COleVariant(decimal) == decimal);
    const COleVariant other(decimal);
    decimal.decVal.scale = 2;
    EXPECT_FALSE(other == decimal);
}

TEST(COleVariant, EqualsNoOtherArrayWhenNeitherCanBeLookedAt)
{
    constexpr int c_mostLocks = 65535;
    const COleVariant left = ByteArrayValue({1, 2});
    const COleVariant right = ByteArrayValue({3, 4});
    for (SAFEARRAY* const array : {left.parray, right.parray})
        for (int i = 0; i < c_mostLocks; ++i)
            ASSERT_EQ(S_OK, ::SafeArrayLock(array));
    EXPECT_FALSE(left == right);
    EXPECT_TRUE(left == left);
    for (SAFEARRAY* const array : {left.parray, right.parray})
        for (int i = 0; i < c_mostLocks; ++i)
            ASSERT_EQ(S_OK, ::SafeArrayUnlock(array));
}

TEST(COleVariant, SurvivesEveryTypeThatIsSetDirectly)
{
    for (int type = 0; type <= 0xFFFF; ++type)
    {
        COleVariant value;
        value.vt = static_cast<VARTYPE>(type);
        EXPECT_EQ(type, value.vt);
        EXPECT_TRUE(value == value);
    }
}

TEST(COleVariant, MakesExceptionsOfTheSystemsCodes)
{
    EXPECT_EQ(std::nullopt, ThrownBy([] { AfxCheckError(S_OK); }));
    EXPECT_EQ(std::nullopt, ThrownBy([] { AfxCheckError(S_FALSE); }));
    EXPECT_EQ(E_FAIL, ThrownBy([] { AfxCheckError(E_FAIL); }));
    EXPECT_EQ(S_OK, ThrownBy([] { AfxThrowOleException(S_OK); }));
    try
    {
        AfxCheckError(E_OUTOFMEMORY);
        FAIL() << "nothing was thrown";
    }
    catch (CMemoryException* exception)
    {
        exception->Delete();
    }
    EXPECT_TRUE(RUNTIME_CLASS(COleException)->IsDerivedFrom(RUNTIME_CLASS(CException)));
}
