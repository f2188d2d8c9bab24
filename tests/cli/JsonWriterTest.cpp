#include "cli/JsonWriter.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace
{

/// The object with one number under the key "n".
template <class Number>
std::string ObjectOf(Number number)
{
    JsonWriter writer;
    writer.Begin();
    writer.Add("n", number);
    return std::string(writer.End());
}

}  // namespace

TEST(JsonWriter, WritesWholeNumbersInDigitsToTheEndsOfTheirRange)
{
    EXPECT_EQ("{\"n\":0}\n", ObjectOf(std::int64_t{0}));
    EXPECT_EQ("{\"n\":-14245}\n", ObjectOf(std::int64_t{-14245}));  // a build of 1970
    EXPECT_EQ("{\"n\":100000}\n", ObjectOf(std::int64_t{100000}));
    EXPECT_EQ("{\"n\":-9223372036854775808}\n", ObjectOf(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ("{\"n\":18446744073709551615}\n", ObjectOf(std::numeric_limits<std::uint64_t>::max()));
}

TEST(JsonWriter, WritesDoublesByTheShortestTextAndNullForThoseThatJsonLacks)
{
    EXPECT_EQ("{\"n\":0.1}\n", ObjectOf(0.1));
    EXPECT_EQ("{\"n\":-0}\n", ObjectOf(-0.0));
    EXPECT_EQ("{\"n\":null}\n", ObjectOf(std::nan("")));
    EXPECT_EQ("{\"n\":null}\n", ObjectOf(-std::numeric_limits<double>::infinity()));
}

TEST(JsonWriter, SeparatesMembersAndEscapesTexts)
{
    JsonWriter writer;
    writer.Begin();
    writer.Add("text", "5'-11\" \\ \n\x01");
    writer.AddFlag("flag", true);
    writer.AddNull("nothing");
    EXPECT_EQ("{\"text\":\"5'-11\\\" \\\\ \\n\\u0001\",\"flag\":true,\"nothing\":null}\n", writer.End());
    writer.Begin();
    EXPECT_EQ("{}\n", writer.End());
}
