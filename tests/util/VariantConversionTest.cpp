// The conversions of the system that the library calls: the same table holds on both builds.

#include <cstring>
#include <limits>
#include <optional>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "tests/support/VariantTestSupport.h"
#include "vetools/util/VeVariant.h"

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();

/// The value converted to a type, or the code that says why not.
std::pair<SCODE, COleVariant> Converted(const COleVariant& value, VARTYPE type)
{
    COleVariant converted;
    try
    {
        converted.ChangeType(type, const_cast<COleVariant*>(&value));
    }
    catch (COleException* exception)
    {
        const SCODE code = exception->m_sc;
        exception->Delete();
        return {code, COleVariant()};
    }
    return {S_OK, converted};
}

/// What the library gives for a value that is not a number itself: its own bits when it converts, else 0.
void ExpectOwnBits(const COleVariant& value, bool convertsToLong, bool convertsToDouble)
{
    LONG half;
    double whole;
    std::memcpy(&half, &value.llVal, sizeof half);
    std::memcpy(&whole, &value.llVal, sizeof whole);
    EXPECT_EQ(convertsToLong ? half : 0, VariantToLong(value));
    EXPECT_EQ(convertsToDouble ? whole : 0.0, VariantToDouble(value));
}

}  // namespace

TEST(VariantConversion, ReadsNumbersInTexts)
{
    const struct
    {
        LONG asLong;
        double asDouble;
        const wchar_t* text;
    } rows[] = {
        {0, 0.0, L"0"},
        {12, 12.0, L"12"},
        {12, 12.0, L"000012"},
        // signs
        {-12, -12.0, L"-12"},
        {12, 12.0, L"+12"},
        {-12, -12.0, L"12-"},
        {12, 12.0, L"12+"},
        {-12, -12.0, L"(12)"},
        // blanks
        {12, 12.0, L"  12  "},
        {12, 12.0, L"\t12\n"},
        {-12, -12.0, L"- 12"},
        {-12, -12.0, L"( 12 )"},
        // decimals: the nearest whole number, halves to the even one
        {12, 12.5, L"12.5"},
        {13, 12.5001, L"12.5001"},
        {12, 11.5, L"11.5"},
        {0, 0.5, L".5"},
        {0, -0.5, L"-.5"},
        {5, 5.0, L"5."},
        // exponents
        {1000, 1000.0, L"1e3"},
        {1000, 1000.0, L"1E+3"},
        {0, 0.001, L"1e-3"},
        {5, 5.0, L"+.5e1"},
        {0, 0.0, L"1e-400"},
        // separators
        {1234, 1234.0, L"1,234"},
        {1234, 1234.5, L"1,234.5"},
        {123, 123.0, L"1,2,3"},
        {1, 1.0, L"1,"},
        // other systems and money
        {255, 255.0, L"&HFF"},
        {255, 255.0, L"&hff"},
        {15, 15.0, L"&O17"},
        {5, 5.0, L"$5"},
        {5, 5.0, L"5$"},
        // the ends of the range
        {2147483647, 2147483647.0, L"2147483647"},
        {2147483647, 2147483647.4, L"2147483647.4"},
        {-2147483647 - 1, -2147483648.0, L"-2147483648"},
        {-2147483647 - 1, -2147483648.5, L"-2147483648.5"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        const COleVariant value(row.text);
        const auto [longCode, asLong] = Converted(value, VT_I4);
        EXPECT_EQ(S_OK, longCode);
        EXPECT_EQ(row.asLong, asLong.lVal);
        const auto [doubleCode, asDouble] = Converted(value, VT_R8);
        EXPECT_EQ(S_OK, doubleCode);
        EXPECT_DOUBLE_EQ(row.asDouble, asDouble.dblVal);
        ExpectOwnBits(value, true, true);
    }
}

TEST(VariantConversion, RefusesTextsThatAreNoNumbers)
{
    for (const wchar_t* const text :
         {L"",     L" ",     L".",    L"-",      L"--12", L"1 2", L"12 .5",  L"(12",       L"12)",  L"1e",  L"1e+",
          L"e3",   L"1e3.5", L"1d3",  L",5",     L"0x10", L"&H",  L"&HG",    L"12%",       L"12a",  L"a12", L"1_000",
          L"１２", L"True",  L"TRUE", L"#TRUE#", L"inf",  L"nan", L"1.#INF", L"1/18/2021", L"14:05"})
    {
        SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
        const COleVariant value(text);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, Converted(value, VT_I4).first);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, Converted(value, VT_R8).first);
        ExpectOwnBits(value, false, false);
    }
}

TEST(VariantConversion, RefusesTextsBeyondTheRange)
{
    const struct
    {
        std::optional<double> asDouble;
        const wchar_t* text;
    } rows[] = {
        {2147483648.0, L"2147483648"}, {2147483647.5, L"2147483647.5"},     {-2147483649.0, L"-2147483649"},
        {4294967295.0, L"4294967295"}, {1234567890123.0, L"1234567890123"}, {std::nullopt, L"1e400"},
        {std::nullopt, L"-1e400"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        const COleVariant value(row.text);
        EXPECT_EQ(DISP_E_OVERFLOW, Converted(value, VT_I4).first);
        const auto [code, asDouble] = Converted(value, VT_R8);
        EXPECT_EQ(row.asDouble ? S_OK : DISP_E_OVERFLOW, code);
        EXPECT_DOUBLE_EQ(row.asDouble.value_or(0.0), asDouble.dblVal);
        ExpectOwnBits(value, false, row.asDouble.has_value());
    }
}

TEST(VariantConversion, WritesDoublesWith15Digits)
{
    const struct
    {
        const wchar_t* expected;
        double value;
    } rows[] = {
        {L"0", 0.0},
        {L"0", -0.0},
        {L"1", 1.0},
        {L"-1", -1.0},
        {L"0.5", 0.5},
        {L"0.1", 0.1},
        {L"0.3", 0.1 + 0.2},
        {L"0.333333333333333", 1.0 / 3},
        {L"0.666666666666667", 2.0 / 3},
        {L"12345.678", 12345.678},
        {L"100000000000000", 1e14},
        {L"1E+15", 1e15},
        {L"1E+15", 999999999999999.5},
        {L"1.23456789012346E+17", 123456789012345678.0},
        {L"0.0001", 1e-4},
        {L"1E-05", 1e-5},
        {L"0.000123456789012346", 0.00012345678901234567},
        {L"1E+300", 1e300},
        {L"-1E-300", -1e-300},
        // just between two texts: away from zero
        {L"0.266555786132813", 0x1.10f4p-2},
        {L"-2.19192504882813", -0x1.1891p+1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CString(row.expected), VariantToString(static_cast<LPCVARIANT>(COleVariant(row.value)), true))
            << row.value;
}

TEST(VariantConversion, WritesSinglesWith7Digits)
{
    const struct
    {
        const wchar_t* expected;
        float value;
    } rows[] = {
        {L"0", 0.0F},
        {L"0.1", 0.1F},
        {L"0.3333333", 1.0F / 3},
        {L"123456.8", 123456.789F},
        {L"1E+07", 1e7F},
        {L"1.677722E+07", 16777217.0F},
        {L"1E-05", 1e-5F},
        {L"-137.6563", -137.65625F},
        {L"4861021", 4861020.5F},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CString(row.expected), VariantToString(static_cast<LPCVARIANT>(COleVariant(row.value)), true))
            << row.value;
}

TEST(VariantConversion, ConvertsEachTypeToLongDoubleAndText)
{
    constexpr std::optional<LONG> overflow;
    const struct
    {
        int type;
        LONGLONG bits;
        std::optional<LONG> asLong;
        double asDouble;
        const wchar_t* text;
    } rows[] = {
        // clang-format off
        // type          bits             long          double        text
        {VT_EMPTY,       0,               0,            0.0,          L""},
        {VT_I2,          -2,              -2,           -2.0,         L"-2"},
        {VT_I4,          -4,              -4,           -4.0,         L"-4"},
        {VT_CY,          12345,           1,            1.2345,       L"1.2345"},
        {VT_CY,          -5,              0,            -0.0005,      L"-0.0005"},
        {VT_CY,          25000,           2,            2.5,          L"2.5"},
        {VT_CY,          21474836474999,  2147483647,   2147483647.4999, L"2147483647.4999"},
        {VT_CY,          21474836475000,  overflow,     2147483647.5, L"2147483647.5"},
        {VT_BOOL,        0xFFFF,          -1,           -1.0,         L"-1"},
        {VT_BOOL,        0,               0,            0.0,          L"0"},
        {VT_I1,          0xFF,            -1,           -1.0,         L"-1"},
        {VT_UI1,         200,             200,          200.0,        L"200"},
        {VT_UI2,         65535,           65535,        65535.0,      L"65535"},
        {VT_I8,          5,               5,            5.0,          L"5"},
        {VT_I8,          2147483648,      overflow,     2147483648.0, L"2147483648"},
        {VT_UI8,         -1,              overflow,     18446744073709551615.0, L"18446744073709551615"},
        {VT_INT,         -7,              -7,           -7.0,         L"-7"},
        // clang-format on
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.type << ' ' << row.bits);
        const COleVariant value = ValueOfType(row.type, row.bits);
        const auto [longCode, asLong] = Converted(value, VT_I4);
        EXPECT_EQ(row.asLong ? S_OK : DISP_E_OVERFLOW, longCode);
        EXPECT_EQ(row.asLong.value_or(0), asLong.lVal);
        EXPECT_DOUBLE_EQ(row.asDouble, Converted(value, VT_R8).second.dblVal);
        EXPECT_EQ(CString(row.text), VariantToString(static_cast<LPCVARIANT>(value), true));
    }
    for (const int type : {VT_UI4, VT_UINT})
    {
        const COleVariant value = ValueOfType(type, 0xFFFFFFFF);
        EXPECT_EQ(4294967295.0, Converted(value, VT_R8).second.dblVal) << type;
        EXPECT_EQ(CString(L"4294967295"), VariantToString(static_cast<LPCVARIANT>(value), true)) << type;
    }
    constexpr int inconvertible[] = {VT_NULL,  VT_ERROR,         VT_DISPATCH,      VT_UNKNOWN, VT_VARIANT,
                                     15,       VT_VOID,          VT_HRESULT,       VT_PTR,     VT_RECORD,
                                     VT_CLSID, VT_ARRAY | VT_I4, VT_ARRAY | VT_UI1};
    for (const int type : inconvertible)
    {
        const COleVariant value = ValueOfType(type);
        EXPECT_NE(S_OK, Converted(value, VT_I4).first) << type;
        EXPECT_NE(S_OK, Converted(value, VT_R8).first) << type;
        EXPECT_EQ(nullptr, VariantToLPCSTR(value, true)) << type;
    }
}

TEST(VariantConversion, RoundsDoublesToTheNearestLongHalvesToEven)
{
    const struct
    {
        std::optional<LONG> expected;
        double value;
    } rows[] = {
        {0, 0.5},
        {2, 1.5},
        {2, 2.5},
        {-2, -1.5},
        {0, -0.5},
        {12346, 12345.678},
        {2147483647, 2147483647.4},
        {std::nullopt, 2147483647.5},
        {std::nullopt, 1e300},
        {std::nullopt, c_infinity},
        {std::nullopt, -c_infinity},
    };
    for (const auto& row : rows)
    {
        const auto [code, asLong] = Converted(COleVariant(row.value), VT_I4);
        EXPECT_EQ(row.expected ? S_OK : DISP_E_OVERFLOW, code) << row.value;
        EXPECT_EQ(row.expected.value_or(0), asLong.lVal) << row.value;
    }
}

TEST(VariantConversion, WritesDatesInTheNotationOfTheUnitedStates)
{
    const struct
    {
        const wchar_t* expected;
        double date;
    } rows[] = {
        {L"12:00:00 AM", 0.0},
        {L"12:00:00 PM", 0.5},
        {L"12/31/1899 6:00:00 AM", 1.25},
        {L"12/29/1899 6:00:00 AM", -1.25},
        {L"1/18/2021", 44214.0},
        {L"1/18/2021 2:05:09 PM", 44214.58690972},
        {L"12/31/9999 12:00:00 PM", 2958465.5},
        {L"6/28/2016 12:00:02 AM", 42549 + 1.5 / 86400},
        {L"12/29/1899 12:09:33 AM", -0x1.01b240795ceb2p+0},  // a little less than half a second
        // which parts are written shows before the time is rounded
        {L"1/18/2021 12:00:00 AM", 44214.000001},
        {L"1/19/2021 12:00:00 AM", 44214.999999},
        {L"12:00:00 AM", 0.999999},
        {L"", 2958466.0},
        {L"", 1e300},
    };
    for (const auto& row : rows)
    {
        COleVariant value(row.date);
        value.vt = VT_DATE;
        EXPECT_EQ(CString(row.expected), VariantToString(static_cast<LPCVARIANT>(value), true)) << row.date;
    }
}

TEST(VariantConversion, ConvertsDecimals)
{
    const struct
    {
        LONG asLong;
        double asDouble;
        const wchar_t* text;
        ULONGLONG digits;
        BYTE scale, sign;
    } rows[] = {
        {0, 0.0, L"0", 0, 0, 0},
        {12, 12.5, L"12.5", 125, 1, 0},
        {-12, -12.5, L"-12.5", 125, 1, DECIMAL_NEG},
        {1, 1.0, L"1", 100, 2, 0},
        {12, 12.345, L"12.345", 12345, 3, 0},
        {0, 1e-28, L"0.0000000000000000000000000001", 1, 28, 0},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        COleVariant value;
        value.decVal.Lo64 = row.digits;
        value.decVal.scale = row.scale;
        value.decVal.sign = row.sign;
        value.vt = VT_DECIMAL;
        EXPECT_EQ(row.asLong, Converted(value, VT_I4).second.lVal);
        EXPECT_DOUBLE_EQ(row.asDouble, Converted(value, VT_R8).second.dblVal);
        EXPECT_EQ(CString(row.text), VariantToString(static_cast<LPCVARIANT>(value), true));
    }
}
