// The edges of the position renderings and of the chart and wheel headers;
// the natal data listing itself is in the whole-page comparisons.
#include <gtest/gtest.h>

#include "analyses/NatalData.h"

using namespace kal;

TEST(Renderings, CuspMinutesRoundButNeverCarryBodySecondsTruncate) {
    EXPECT_EQ(CuspText(29 + 59.7 / 60), "29 Ari 59");
    EXPECT_EQ(CuspText(359.999), "29 Pis 59");
    EXPECT_EQ(CuspText(30.0), "00 Tau 00");
    EXPECT_EQ(CuspText(10 + 29.5 / 60), "10 Ari 30");
    EXPECT_EQ(BodyText(29 + 59.0 / 60 + 59.9 / 3600 + 60), "29 Gem 59m 59s");
    EXPECT_EQ(BodyText(359.9999999), "29 Pis 59m 59s");
    EXPECT_EQ(BodyText(5 + 23.0 / 60 + 7.5 / 3600), "05 Ari 23m 07s");
}

namespace {
Chart HeaderChart() {
    Chart c;
    c.ChartName = "Mary Jane Smith";
    c.ChartDate = "3/5/2007";
    c.ChartDay = 5;
    c.ChartMonth = 3;
    c.ChartYear = 2007;
    c.ChartTZ = -5.5f;
    c.ChartTime = 9.05f;
    c.ChartAMPM = "P.M.";
    c.ChartLong = -77.12f;
    c.ChartEW = "East";
    c.ChartLat = -9.3f;
    c.ChartNS = "South";
    return c;
}
} // namespace

// The usual header, and its date in every date order, are in the whole-page
// comparisons; this is a date the calendar rejects.
TEST(ChartHeader, ImpossibleDate) {
    Chart c = HeaderChart();
    c.ChartDate = "2/31/1959";
    c.ChartDay = 31;
    c.ChartMonth = 2;
    c.ChartYear = 1959;
    OutputBuffer out;
    ChartHeader(c, 0, out);
    EXPECT_EQ(out.PageLines[2], "  31 Feb 1959    TZ = -5.5      9.05 P.M.   77e12    9s30");
}

TEST(WheelHeader, SevenLines) {
    Chart c = HeaderChart();
    c.NatalSidereal = "03h 00m 17s";
    c.HouseSystem = 'T';
    HeaderTable h, h2;
    h2[3] = "stale";
    BuildHeaderLines(c, 0, h, h2);
    EXPECT_EQ(h[1], "Mary Jane Smith - natal");
    EXPECT_EQ(h[2], "05 Mar 2007");
    EXPECT_EQ(h[3], "9.05 P.M. (-5.5)");
    EXPECT_EQ(h[4], "77e12");
    EXPECT_EQ(h[5], "9s30");
    EXPECT_EQ(h[6], "03h 00m 17s");
    EXPECT_EQ(h[7], "Topocentric");
    EXPECT_EQ(h2[3], "");
    c.ChartTZ = 5;
    BuildHeaderLines(c, 0, h, h2);
    EXPECT_EQ(h[3], "9.05 P.M. ( 5)");
}
