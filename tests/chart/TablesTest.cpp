// Numbering and tables of the chart model.
#include <gtest/gtest.h>

#include "chart/Tables.h"

using namespace kal;

TEST(ChartTables, SignsOfLongitudes) {
    EXPECT_EQ(SignOf(0), 1);
    EXPECT_EQ(SignOf(30.0), 2);
    EXPECT_EQ(SignOf(29.999999), 1);
    EXPECT_EQ(SignOf(359.99), 12);
}

TEST(ChartTables, MidpointOnTheShorterArc) {
    EXPECT_DOUBLE_EQ(Midpoint(350, 10), 0);
    EXPECT_DOUBLE_EQ(Midpoint(10, 350), 0);
    EXPECT_DOUBLE_EQ(Midpoint(0, 180), 90);
    EXPECT_DOUBLE_EQ(Midpoint(100, 140), 120);
    EXPECT_DOUBLE_EQ(Midpoint(300, 100), 20);
    EXPECT_DOUBLE_EQ(Midpoint(200, 340), 270);
}
