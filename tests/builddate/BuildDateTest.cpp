#include <gtest/gtest.h>

#include "vetools/util/VeDate.h"

// This program is built with SOURCE_DATE_EPOCH=1610582400, the first second of 14 January 2021.

TEST(BuildOf14January2021, HasTheBuildNumber4396)
{
    EXPECT_STREQ("Jan 14 2021", GetBuildDate());
    EXPECT_EQ(4396, GetBuildNumber());
}

TEST(BuildOf14January2021, HasTheVersionThatTheBuildGives)
{
    EXPECT_STREQ("1.2.3", GetVeToolsVersion());
}
