#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "vetools/util/VeString.h"

namespace
{

struct Markup
{
    const wchar_t* expected;
    const wchar_t* text;
    double coef = 1.0;
    wchar_t separator = L'.';
    const wchar_t* prefix = L"";
    const wchar_t* pattern = L"<>";
    const wchar_t* suffix = L"";
    double subUnits = 1000.0;
    bool dropZero = false;
};

void ExpectMarkup(const Markup& row)
{
    CString text(row.text);
    EXPECT_TRUE(CVeString::FormatStringWithExponent(text, row.coef, row.separator, row.prefix, row.pattern, row.suffix,
                                                    row.subUnits, row.dropZero));
    EXPECT_EQ(std::wstring(row.expected), std::wstring(text.GetString()))
        << "text " << testing::PrintToString(std::wstring(row.text)) << " coef " << row.coef << " pattern "
        << testing::PrintToString(std::wstring(row.pattern));
}

}  // namespace

TEST(ExponentMarkup, RaisesTheDigitsFromTheSubUnitOn)
{
    const Markup rows[] = {
        //   expected                               text       units per metre
        {L"\\A1;1.23{\\H0.6x;\\S4^;}", L"1.234", 1.0},
        {L"\\A1;12.3{\\H0.6x;\\S4^;}", L"12.34", 10.0},
        {L"\\A1;123{\\H0.6x;\\S4^;}", L"123.4", 100.0},  // no decimals are left: no separator either
        {L"\\A1;1234.5", L"1234.5", 1000.0},
        {L"\\A1;1234.5", L"1234.5", 10000.0},
        {L"\\A1;1.2345{\\H0.6x;\\S6^;}", L"1.23456", 0.01},
        {L"\\A1;-1.23{\\H0.6x;\\S45^;}", L"-1.2345", 1.0},
        {L"\\A1;1.23", L"1.23", 1.0},  // nothing to raise
        {L"\\A1;1.2", L"1.2", 1.0},
        {L"\\A1;12", L"12", 1.0},                        // no separator
        {L"\\A1;.5", L".5", 100.0},                      // nothing would stand before the superscript
        {L"\\A1;39.370", L"39.370", 39.37007874015748},  // no power of ten
        {L"\\A1;", L"", 1.0},
    };
    for (const Markup& row : rows)
        ExpectMarkup(row);
}

TEST(ExponentMarkup, RaisesNothingForCoefficientsWithoutMeaning)
{
    for (const double coef :
         {0.0, -1.0, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 1e-320, 5e-324})
        ExpectMarkup({L"\\A1;1.234", L"1.234", coef});
    for (const double subUnits :
         {0.0, -1000.0, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 1.0})
        ExpectMarkup({.expected = L"\\A1;1.234", .text = L"1.234", .subUnits = subUnits});
    ExpectMarkup({.expected = L"\\A1;1{\\H0.6x;\\S234^;}", .text = L"1.234", .subUnits = 10.0});
}

TEST(ExponentMarkup, FindsTheSeparatorItIsGiven)
{
    ExpectMarkup({.expected = L"\\A1;1,23{\\H0.6x;\\S4^;}", .text = L"1,234", .separator = L','});
    ExpectMarkup({.expected = L"\\A1;1.234", .text = L"1.234", .separator = L','});
    ExpectMarkup({.expected = L"\\A1;1.234", .text = L"1.234", .separator = L'\0'});
}

TEST(ExponentMarkup, DropsASuperscriptOfZerosOnRequest)
{
    ExpectMarkup({.expected = L"\\A1;1.23", .text = L"1.23000", .dropZero = true});
    ExpectMarkup({.expected = L"\\A1;1.23{\\H0.6x;\\S000^;}", .text = L"1.23000"});
    ExpectMarkup({.expected = L"\\A1;1.23{\\H0.6x;\\S001^;}", .text = L"1.23001", .dropZero = true});
}

TEST(ExponentMarkup, PutsTheNumberIntoThePattern)
{
    ExpectMarkup({.expected = L"\\A1;1.2", .text = L"1.2", .pattern = L""});
    ExpectMarkup({.expected = L"\\A1;1.2   ", .text = L"1.2", .pattern = L"   "});  // the blanks stay behind it
    ExpectMarkup({.expected = L"\\A1;plain", .text = L"1.2", .pattern = L"plain"});
    ExpectMarkup({.expected = L"\\A1;L=1.2 m", .text = L"1.2", .pattern = L"L=<>", .suffix = L" m"});
    ExpectMarkup({.expected = L"\\A1;1.2m/1.2m", .text = L"1.2", .pattern = L"<>/<>", .suffix = L"m"});
    ExpectMarkup({.expected = L"\\A1;a1.2", .text = L"1.2", .prefix = L"a"});
    ExpectMarkup({.expected = L"\\A1;<<>>", .text = L"<>", .pattern = L"<<>>"});  // what is put in is not looked at
}

TEST(ExponentMarkup, AddsTheAlignmentOnce)
{
    ExpectMarkup({.expected = L"\\A1;1.2", .text = L"1.2", .prefix = L"\\A1;"});
    ExpectMarkup({.expected = L"1.2\\A1;", .text = L"1.2", .pattern = L"<>\\A1;"});
    ExpectMarkup({.expected = L"\\A1;\\A2;1.2", .text = L"1.2", .prefix = L"\\A2;"});
}
