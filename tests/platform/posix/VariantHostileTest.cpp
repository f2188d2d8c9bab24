#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/SystemValue.h"

// Arguments that end a program on Windows, or lose digits there, have answers here.

namespace
{

constexpr LONGLONG c_leastInteger = std::numeric_limits<LONGLONG>::min();

}  // namespace

TEST(HostileValue, OfNullIsABadArgument)
{
    VARIANT value = Integer(VT_I4, 5);
    EXPECT_EQ(E_INVALIDARG, ::VariantClear(nullptr));
    EXPECT_EQ(E_INVALIDARG, ::VariantCopy(nullptr, &value));
    EXPECT_EQ(E_INVALIDARG, ::VariantCopy(&value, nullptr));
    EXPECT_EQ(E_INVALIDARG, ::VariantCopyInd(nullptr, &value));
    EXPECT_EQ(E_INVALIDARG, ::VariantCopyInd(&value, nullptr));
    EXPECT_EQ(E_INVALIDARG, ::VariantChangeType(nullptr, &value, 0, VT_I4));
    EXPECT_EQ(E_INVALIDARG, ::VariantChangeType(&value, nullptr, 0, VT_I4));
    EXPECT_EQ(0, ::SysReAllocString(nullptr, L"x"));
    EXPECT_EQ(0, ::SysReAllocStringLen(nullptr, L"x", 1));
    EXPECT_EQ("5", Shown(value));
}

TEST(HostileValue, WithAReferenceToNowhereIsABadArgument)
{
    for (const int type : {+VT_I4, +VT_R8, +VT_BSTR, +VT_VARIANT, +VT_DECIMAL, +VT_DISPATCH, VT_ARRAY | VT_I4})
    {
        const VARIANT reference = Reference(type, nullptr);
        for (const int target : {+VT_I4, +VT_R8, +VT_BSTR, +VT_EMPTY, +VT_BOOL})
            EXPECT_EQ("arg", Converted(reference, target)) << type << " to " << target;
        VARIANT copy = Integer(VT_I4, 7);
        EXPECT_EQ(E_INVALIDARG, ::VariantCopyInd(&copy, &reference)) << type;
        EXPECT_EQ("7", Shown(copy));
    }
}

TEST(HostileValue, ThatRefersToItselfIsABadArgument)
{
    VARIANT value = Reference(VT_VARIANT, nullptr);
    value.pvarVal = &value;
    EXPECT_EQ("arg", Converted(value, VT_I4));
    EXPECT_EQ(E_INVALIDARG, ::VariantCopyInd(&value, &value));
}

TEST(HostileValue, OfADecimalOutOfBoundsIsABadArgument)
{
    for (const VARIANT& decimal :
         {Decimal(0, 1, 29, 0), Decimal(0, 1, 255, 0), Decimal(0, 1, 0, 1), Decimal(0, 1, 0, 0x81)})
    {
        for (const int type : {+VT_I4, +VT_R8, +VT_CY, +VT_BSTR, +VT_BOOL, +VT_DATE})
            EXPECT_EQ("arg", Converted(decimal, type)) << type;
    }
}

TEST(HostileValue, IsWrittenExactly)
{
    struct ExactRow
    {
        const char* expected;
        VARIANT source;
        int type;
    };
    // clang-format off
    const ExactRow rows[] = {
    //   expected                          source                                             type
        {"1844674407370955162",            Decimal(1, 5, 1, 0),                               VT_UI8},
        {"92233720368547758",              Decimal(0, 922337203685477581, 1, 0),              VT_I8},
        {"-9223372036854775808",           Decimal(0, 0x8000000000000000u, 0, 0x80),          VT_I8},
        {"-9223372036854775808",           Real(VT_R8, -0x1p63),                              VT_I8},
        {"9223372036854774784",            Real(VT_R8, 9223372036854774784.0),                VT_I8},
        {"over",                           Real(VT_R8, 0x1p63),                               VT_I8},
        {"over",                           Real(VT_R8, 0x1p64),                               VT_UI8},
        {"0",                              Integer(VT_CY, -5000),                             VT_I8},
        {"-3",                             Integer(VT_CY, -32768),                            VT_I8},
        {"over",                           Integer(VT_I8, 65536),                             VT_UI2},
        {"-9223372036854770000",           Integer(VT_I8, -922337203685477),                  VT_CY},
        {"9223372036854775807",            Decimal(0, 9223372036854775807, 4, 0),             VT_CY},
        {"1000",                           Decimal(0, 10005, 5, 0),                           VT_CY},
        {"79228",                          Decimal(0xFFFFFFFF, 0xFFFFFFFFFFFFFFFFu, 28, 0),   VT_CY},
        {"333333333333333e-15",            Real(VT_R8, 1.0 / 3),                              VT_DECIMAL},
        {"1000000000000000000000e-3",      Decimal(54, 3875820019684212736, 3, 0),            VT_DECIMAL},
        {"over",                           Real(VT_R8, 0x1p96),                               VT_DECIMAL},
        {"-9223372036854775808",           Integer(VT_I8, c_leastInteger),                    VT_BSTR},
    };
    // clang-format on
    for (const ExactRow& row : rows)
        EXPECT_EQ(row.expected, Converted(row.source, row.type)) << row.source.vt << " to " << row.type;
}

TEST(HostileValue, OfATextIsTheNearestDoubleHoweverManyDigitsItHas)
{
    struct ExactRow
    {
        const char* expected;
        std::wstring text;
        int type;
    };
    const std::wstring zeros(2000, L'0');
    // clang-format off
    const ExactRow rows[] = {
    //   expected                          text                                          type
        {"1.2345678901234568e+17",         L"123456789012345678",                        VT_R8},
        {"9.223372036854776e+18",          L"9223372036854775807",                       VT_R8},
        {"0.12345678901234568",            L"0.123456789012345678901234567890",          VT_R8},
        {"1e-28",                          L"0.0000000000000000000000000001",            VT_R8},
        {"1.7976931348623157e+308",        L"1.7976931348623158e308",                    VT_R8},
        {"over",                           L"1.7976931348623159e308",                    VT_R8},
        {"4.94065645841247e-324",          L"4.9e-324",                                  VT_R8},
        {"0",                              L"2e-324",                                    VT_R8},
        {"9007199254740992",               L"9007199254740993",                          VT_R8},
        {"9007199254740994",               L"9007199254740993." + zeros + L"1",          VT_R8},
        {"9007199254740993",               L"9007199254740993." + zeros + L"1",          VT_I8},
        {"1",                              L"0.5" + zeros + L"1",                        VT_I4},
        {"1",                              L"1" + zeros + L"e-2000",                     VT_I4},
        {"1",                              L"0." + zeros + L"1e2001",                    VT_R8},
        {"over",                           L"1" + zeros,                                 VT_DECIMAL},
        {"0",                              L"9.109383e-31",                              VT_I4},
        {"3.4028235e+38",                  L"3.4028235e38",                              VT_R4},
        {"1.401298e-45",                   L"1e-45",                                     VT_R4},
        {"0",                              L"1e-46",                                     VT_R4},
        {"9223372036854775807",            L"922337203685477.5807",                      VT_CY},
        {"over",                           L"922337203685477.58075",                     VT_CY},
        {"0",                              L"0.00005",                                   VT_CY},
        {"2",                              L"0.00015",                                   VT_CY},
        {"79228162514264337593543950335",  L"79228162514264337593543950335.4",           VT_DECIMAL},
        {"over",                           L"79228162514264337593543950335.5",           VT_DECIMAL},
        {"0",                              L"1e-1000",                                   VT_DECIMAL},
        {"-1",                             L"&HFFFFFFFFFFFFFFFF",                        VT_I8},
        {"18446744073709551615",           L"&O1777777777777777777777",                  VT_UI8},
        {"over",                           L"&O2000000000000000000000",                  VT_UI8},
        {"160000",                         L"&H10",                                      VT_CY},
        {"over",                           L"1e" + std::wstring(1000000, L'9'),          VT_R8},
        {"0",                              L"1e-" + std::wstring(1000000, L'9'),         VT_R8},
        {"0",                              L"0e" + std::wstring(1000000, L'9'),          VT_R8},
    };
    // clang-format on
    for (const ExactRow& row : rows)
    {
        const std::string shown = Converted(*SystemValue(Text(row.text)), row.type);
        EXPECT_EQ(row.expected, shown) << testing::PrintToString(row.text.substr(0, 60)) << " to " << row.type;
    }
}

TEST(HostileValue, OfNotANumberIsNoDateAndNoDecimal)
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ("arg", Converted(Real(VT_DATE, notANumber), VT_BSTR));
    EXPECT_EQ("over", Converted(Real(VT_R8, notANumber), VT_DECIMAL));
    SYSTEMTIME time;
    EXPECT_EQ(0, ::VariantTimeToSystemTime(notANumber, &time));
    EXPECT_EQ(0, ::VariantTimeToSystemTime(2958465.9999999, &time)) << "midnight of the year 10000";
}

TEST(HostileArray, IsNullBeyondFourGigabytes)
{
    SAFEARRAYBOUND bounds[] = {{65536, 0}, {65536, 0}, {65536, 0}, {65536, 0}};
    for (UINT dimensions = 2; dimensions <= 4; ++dimensions)
        EXPECT_EQ(nullptr, ::SafeArrayCreate(VT_UI1, dimensions, bounds)) << dimensions;
    EXPECT_EQ(nullptr, ::SafeArrayCreateVector(VT_R8, 0, 0x7FFFFFFF));
    EXPECT_EQ(nullptr, ::SafeArrayCreateVector(VT_VARIANT, 0, 0xFFFFFFFF));
    EXPECT_EQ(nullptr, ::SafeArrayCreateVector(VT_DECIMAL, 0, 0x10000000));
}

TEST(HostileArray, OfAHostIsNotFreed)
{
    SAFEARRAY array = SAFEARRAY();
    array.cDims = 1;
    array.fFeatures = FADF_AUTO | FADF_FIXEDSIZE;
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayDestroy(&array));
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayCopy(&array, &copy));
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(E_INVALIDARG, ::SafeArrayGetVartype(&array, &type));
}

TEST(HostileArray, WithABoundBeyondALongWraps)
{
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_I4, 0x7FFFFFFF, 4);
    LONG upper = 0;
    EXPECT_EQ(S_OK, ::SafeArrayGetUBound(array, 1, &upper));
    EXPECT_EQ(-2147483646, upper);
    EXPECT_EQ(S_OK, ::SafeArrayDestroy(array));
}
