#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "vetools/valuetext/VeImperialLength.h"

using Type = CVeImperialLength::enumIMPERIAL_LENGTH_TYPE;

namespace
{

constexpr Type c_feetInches = CVeImperialLength::IMPERIAL_FEET_INCHES;
constexpr Type c_inchesOnly = CVeImperialLength::IMPERIAL_INCHES;

struct Row
{
    const wchar_t* expected;
    double m;
    int precision;
    Type type;
};

const Row c_rows[] = {
    {L"0'-0.00\"", 0.0, 2, c_feetInches},
    {L"0\"", 0.0, 0, c_inchesOnly},
    {L"3'-3.37\"", 1.0, 2, c_feetInches},
    {L"-3'-3.37\"", -1.0, 2, c_feetInches},
    {L"39.4\"", 1.0, 1, c_inchesOnly},
    {L"-39.37007874\"", -1.0, 8, c_inchesOnly},
    {L"0'-12\"", 0.3, 0, c_feetInches},      // inches rounded up to 12 stay
    {L"0.000000\"", 0.0, -1, c_inchesOnly},  // a negative precision counts as 6
    {L"39.370079\"", 1.0, -2147483647, c_inchesOnly},
    {L"-0'-0.0\"", -1e-9, 1, c_feetInches},
    {L"0\"", -0.0, 0, c_inchesOnly},
};

std::wstring NewText(double m, int precision, Type type)
{
    const std::unique_ptr<wchar_t[]> text(CVeImperialLength::Meter2ImperialStr(m, precision, type));
    return text.get();
}

TEST(ImperialText, WritesFeetAndDecimalInchesOrDecimalInches)
{
    for (const Row& row : c_rows)
        EXPECT_EQ(row.expected, NewText(row.m, row.precision, row.type)) << row.m << ", precision " << row.precision;
}

TEST(ImperialText, WritesIntoTheCallersCharactersNoMoreThanTheText)
{
    for (const Row& row : c_rows)
    {
        std::vector<wchar_t> buffer(std::wcslen(row.expected) + 2, L'#');
        wchar_t* text = buffer.data();
        CVeImperialLength::Meter2ImperialStr(row.m, row.precision, row.type, &text);
        EXPECT_EQ(buffer.data(), text);
        EXPECT_STREQ(row.expected, text) << row.m << ", precision " << row.precision;
        EXPECT_EQ(L'#', buffer.back()) << row.m << ", precision " << row.precision;
    }
}

TEST(ImperialText, OtherTypesWriteNothing)
{
    for (const unsigned int type : {0u, 4u, 7u, 10u, 4294967295u})
    {
        wchar_t buffer[] = L"###";
        wchar_t* text = buffer;
        CVeImperialLength::Meter2ImperialStr(1.0, 2, Type(type), &text);
        EXPECT_STREQ(L"###", buffer) << type;
        EXPECT_EQ(0u, CVeImperialLength::Meter2ImperialStr(1.0, 2, Type(type), std::span<wchar_t>(buffer))) << type;
        EXPECT_STREQ(L"###", buffer) << type;
        EXPECT_EQ(L"", NewText(1.0, 2, Type(type))) << type;
    }
}

TEST(ImperialText, TheBoundedFormCutsAndSaysHowLongTheTextIs)
{
    wchar_t buffer[12];
    EXPECT_EQ(8u, CVeImperialLength::Meter2ImperialStr(1.0, 2, c_feetInches, buffer));
    EXPECT_STREQ(L"3'-3.37\"", buffer);
    for (std::size_t size = 1; size <= 9; ++size)
    {
        std::wstring expected = std::wstring(L"3'-3.37\"").substr(0, size - 1);
        std::fill(std::begin(buffer), std::end(buffer), L'#');
        EXPECT_EQ(8u, CVeImperialLength::Meter2ImperialStr(1.0, 2, c_feetInches, std::span(buffer, size)));
        EXPECT_EQ(expected, buffer) << size;
        EXPECT_EQ(L'#', buffer[size]) << size;
    }
    EXPECT_EQ(8u, CVeImperialLength::Meter2ImperialStr(1.0, 2, c_feetInches, std::span<wchar_t>()));
}

TEST(ImperialText, ANewArrayHasRoomFor25CharactersAndForLongerTexts)
{
    // All 25 characters belong to the caller.
    const std::unique_ptr<wchar_t[]> shortText(CVeImperialLength::Meter2ImperialStr(1.0, 2, c_feetInches));
    std::fill_n(shortText.get(), 25, L'x');

    EXPECT_EQ(3u + 2u + 20u + 1u, NewText(1.0, 20, c_feetInches).size());
    EXPECT_EQ(2u + 1u + 1074u + 1u, NewText(1.0, std::numeric_limits<int>::max(), c_inchesOnly).size());
    EXPECT_EQ(L"-2147483647'-0.00\"", NewText(-1e300, 2, c_feetInches));
}

TEST(ImperialText, NumbersThatAreNoneAreWrittenAsSuch)
{
    EXPECT_EQ(L"1.#QNAN0\"", NewText(std::numeric_limits<double>::infinity(), 6, c_inchesOnly));
    EXPECT_EQ(L"-2147483647'-1.#QNAN0\"", NewText(-std::numeric_limits<double>::infinity(), 6, c_feetInches));
    EXPECT_EQ(L"0'-1.#QNAN0\"", NewText(std::numeric_limits<double>::quiet_NaN(), 6, c_feetInches));
}

TEST(ImperialText, ANullBufferIsLeftAlone)
{
    wchar_t* text = nullptr;
    CVeImperialLength::Meter2ImperialStr(1.0, 2, c_feetInches, &text);
    EXPECT_EQ(nullptr, text);
    CVeImperialLength::Meter2ImperialStr(1.0, 2, c_feetInches, static_cast<wchar_t**>(nullptr));
}

}  // namespace
