// The cosmic state on charts whose dignities are worked out by hand from the
// traditional tables (rulers, terms, faces, detriment and fall).
#include <gtest/gtest.h>

#include "ChartFixture.h"
#include "analyses/CosmicState.h"
#include "base/VbText.h"

using namespace kal;
using kal::test::ChartLayout;
using kal::test::Lines;
using Listing = std::vector<std::string>;

namespace {

const std::string kHeading =
    "  Planet    Sign      Exlt.     Trip.     Term      Face      Speed      Rate   Strength";
const std::string kRule =
    "  ------    ----      -----     -----     ----      ----      -----      ----   --------";

// Option values that tell the cases apart in the scores.
Options DistinctOptions() {
    Options o;
    const float v[12] = {0, 10, 20, 30, 40, 100, 1, 200, 2, 3, 50, 60};
    for (int n = 1; n <= 11; ++n) o[n] = v[n];
    return o;
}

// Sun 10 Leo at exactly the mean motion, Moon at exactly 0 Taurus, Mercury
// retrograde in Virgo, Venus in Aries (detriment), Mars stationary in
// Sagittarius, Jupiter in Cancer, Saturn retrograde in Cancer (detriment).
ChartLayout MixedChart(double asc) {
    ChartLayout layout;
    layout.EqualHouses(asc);
    layout.lon = {0, 130, 155, 5, 245, 100, 95, 200, 260, 170, 30, 0};
    layout.speed = {0, 0.9856103, -0.5, 1.2, 0.005, 0.2, -0.05, 0.01, 0.01, 0.01, 14, -0.05};
    return layout;
}

} // namespace

TEST(CosmicState, NightChartWithEveryMotionAndPositionCase) {
    // Ascendant 0: the Sun at 130 is in the 5th house, a night chart.
    OutputBuffer out;
    const auto s = ListCosmicState(MixedChart(0).Build(), DistinctOptions(), out);
    // Sun: domicile 5. Moon: exaltation 4, night triplicity 3, fast 2,
    // oriental 60. Mercury: domicile 5, exaltation 4, term 2, retrograde 200
    // (nothing for direct or speed), occidental 20. Venus: direct 1, fast 2,
    // oriental 10, peregrine 100, detriment -5. Mars: direct 1, stationary 3,
    // occidental 40, peregrine 100. Jupiter: exaltation 4, term 2, direct 1,
    // fast 2, oriental 30. Saturn: retrograde 200, oriental 30, peregrine 100,
    // detriment -5.
    EXPECT_EQ(Lines(out),
              (Listing{"", kHeading, kRule,
                       "  Sun       Sun        ---      Jupiter   Mercury   Jupiter   AVG.       "
                       "0d 59m      5",
                       "  Moon      Venus     Moon      Moon      Venus     Mercury   FAST      "
                       "14d 00m     69",
                       "  Mercury   Mercury   Mercury   Moon      Mercury   Sun       SLOW R    "
                       "-1d 30m    231",
                       "  Venus     Mars      Sun       Jupiter   Jupiter   Mars      FAST       "
                       "1d 12m    108",
                       "  Mars      Jupiter    ---      Jupiter   Jupiter   Mercury   stat       "
                       "0d 00m    144",
                       "  Jupiter   Moon      Jupiter   Mars      Jupiter   Mercury   FAST       "
                       "0d 12m     39",
                       "  Saturn    Moon      Jupiter   Mars      Mars      Venus     FAST R    "
                       "-1d 57m    325",
                       "", "  Peregrine - Venus Mars Saturn ", "  Detriment - Venus Saturn ",
                       "  Fall - ", "  Mixed Reception (sign/exaltation) - Mercury-Mercury   "}));
    EXPECT_EQ(s.HasDignity[Sun], 1);
    EXPECT_EQ(s.HasDignity[Moon], 1);
    EXPECT_EQ(s.HasDignity[Venus], 0);
}

TEST(CosmicState, ReceptionPassesAndTheirPoints) {
    ChartLayout layout;
    layout.EqualHouses(0);
    // Sun in Scorpio and Mars in Leo; Venus in Pisces and Jupiter in Libra;
    // Jupiter in Libra and Saturn in Cancer by exaltation; Venus with Neptune
    // in Taurus and Uranus in Scorpio with Pluto in Aquarius by the modern
    // rulers.
    layout.lon = {0, 220, 200, 340, 130, 190, 100, 225, 40, 310, 60, 0};
    OutputBuffer out;
    const auto s = ListCosmicState(layout.Build(), Options{}, out);
    const Listing lines = Lines(out);
    EXPECT_EQ(Listing(lines.begin() + 11, lines.end()),
              (Listing{"  Peregrine - Mars Jupiter Saturn Moon ", "  Detriment - Saturn ",
                       "  Fall - ", "  Mutual Reception (by sign) - Sun-Mars   Venus-Jupiter   ",
                       "  Mutual Reception (by sign) - Venus-Neptune   Uranus-Pluto   ",
                       "  Mutual Reception (by exaltation) - Jupiter-Saturn   "}));
    // Face 1 and reception 5; term 2; exaltation 4 and reception 5;
    // reception 5; receptions 5 and 4; detriment -5 and reception 4.
    EXPECT_EQ(s.Strength[Sun], 6);
    EXPECT_EQ(s.Strength[Moon], 0);
    EXPECT_EQ(s.Strength[Mercury], 2);
    EXPECT_EQ(s.Strength[Venus], 9);
    EXPECT_EQ(s.Strength[Mars], 5);
    EXPECT_EQ(s.Strength[Jupiter], 9);
    EXPECT_EQ(s.Strength[Saturn], -1);
    EXPECT_EQ(lines[9].substr(lines[9].size() - 7), "     -1");
    EXPECT_EQ(s.Strength[Uranus], 0); // the modern pass gives no points

    // Mars in Aries with the Sun in Scorpio: no reception between them.
    layout.lon[Mars] = 10;
    OutputBuffer out2;
    ListCosmicState(layout.Build(), Options{}, out2);
    EXPECT_EQ(Lines(out2)[14], "  Mutual Reception (by sign) - Venus-Jupiter   ");
}

TEST(CosmicState, SpeedClassBounds) {
    EXPECT_EQ(SpeedClass(Moon, -0.00833), "stat");
    EXPECT_EQ(SpeedClass(Moon, 0.0083334), "SLOW");
    EXPECT_EQ(SpeedClass(Saturn, -0.04), "FAST");
}
