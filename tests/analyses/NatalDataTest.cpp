// Renderings of positions and coordinates, the chart header and the natal
// data listing.
#include <gtest/gtest.h>

#include "analyses/NatalData.h"
#include "chart/Calc.h"

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

TEST(NatalDataListing, CuspBlockAndBodyBlock) {
    Chart c;
    // Equal houses from 15 Cancer, bodies placed by hand.
    for (int k = 1; k <= 12; ++k) c.NatalCusp[static_cast<size_t>(k)] = 15 + 30 * (k - 1);
    c.NatalCusp[13] = 123; // not a cusp; never listed
    // By body number: Sun, Mercury..Pluto, Moon, Node, Asc, MC.
    const double lon[14] = {0, 105.5, 80.25, 130,     200, 300.75, 359.999,
                            1, 45,    250,   15.0126, 190, 105,    15};
    for (int j = 1; j <= 13; ++j) c.NatalLong[static_cast<size_t>(j)] = lon[j];
    c.NatalRetro = "   RR   R    "; // Mars, Jupiter, Pluto
    c.HouseSystem = 'O';
    c.CuspTable = c.NatalCusp;
    c.PlanetLong = c.NatalLong;
    FindPlanetHouses(c);
    // The working copy differs: NatalData lists the natal copy.
    c.PlanetLong.fill(7);
    c.CuspTable.fill(3);
    c.RetroFlags = std::string(13, 'X');
    OutputBuffer out;
    NatalData(c, out);
    const std::vector<std::string> expected = {
        "",
        "  HOUSE CUSPS - Porphyry",
        "  10TH house = 15 Ari 00 11TH house = 15 Tau 00 12TH house = 15 Gem 00",
        "   1ST house = 15 Can 00  2ND house = 15 Leo 00  3RD house = 15 Vir 00",
        "   4TH house = 15 Lib 00  5TH house = 15 Sco 00  6TH house = 15 Sag 00",
        "   7TH house = 15 Cpr 00  8TH house = 15 Aqu 00  9TH house = 15 Pis 00",
        "",
        "  15 Can 30m 00s   Sun            ( 1ST HOUSE)    ",
        "  15 Ari 00m 45s   Moon           (10TH HOUSE)    ",
        "  20 Gem 15m 00s   Mercury        (12TH HOUSE)    ",
        "  10 Leo 00m 00s   Venus          ( 1ST HOUSE)    ",
        "  20 Lib 00m 00s   Mars      R    ( 4TH HOUSE)    ",
        "  00 Aqu 45m 00s   Jupiter   R    ( 7TH HOUSE)    ",
        "  29 Pis 59m 56s   Saturn         ( 9TH HOUSE)    ",
        "  01 Ari 00m 00s   Uranus         ( 9TH HOUSE)    ",
        "  15 Tau 00m 00s   Neptune        (11TH HOUSE)    ",
        "  10 Sag 00m 00s   Pluto     R    ( 5TH HOUSE)    ",
        "  10 Lib 00m 00s   N. Node        ( 3RD HOUSE)    ",
        "  15 Can 00m 00s   Asc            ( 1ST HOUSE)    ",
        "  15 Ari 00m 00s   MC             (10TH HOUSE)    ",
        "",
    };
    EXPECT_EQ(out.PageLines, expected);
}
