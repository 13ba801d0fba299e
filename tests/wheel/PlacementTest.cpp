// Where the glyphs go: the American slot map, the European spacing and cusp
// limits, the glyph angles kept for the aspect lines, the label column's
// orientation and the glyphs chosen for each body.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "SyntheticChart.h"
#include "wheel/Glyphs.h"
#include "wheel/Placement.h"
#include "wheel/WheelPaint.h"

using namespace kal;
using kal::test::EqualHouseWheel;

namespace {

std::vector<GlyphPlace> Place(const WheelChart& w, ChartStyle type) {
    WheelTables t;
    for (size_t a = 0; a < t.GlyphRadius.size(); ++a)
        t.GlyphRadius[a] = static_cast<short>(200 + a % 7);
    return PlaceGlyphs(w, type, HouseWidths(w), t);
}

const GlyphPlace& Of(const std::vector<GlyphPlace>& places, int body) {
    return *std::find_if(places.begin(), places.end(),
                         [body](const GlyphPlace& g) { return g.body == body; });
}

} // namespace

TEST(Placement, EveryBodyButTheAscendantOnceInIncreasingLongitude) {
    WheelChart w = EqualHouseWheel(100);
    for (ChartStyle type : {ChartStyle::American, ChartStyle::European}) {
        auto places = Place(w, type);
        ASSERT_EQ(places.size(), size_t(NumBodies - 1));
        std::set<int> bodies;
        for (const auto& g : places) bodies.insert(g.body);
        EXPECT_EQ(bodies.count(Asc), 0u);
        EXPECT_EQ(bodies.size(), size_t(NumBodies - 1));
        // The radius is the table's at the rounded angle.
        for (const auto& g : places) {
            EXPECT_EQ(g.radius, 200 + static_cast<int>(std::nearbyint(g.theta)) % 7);
        }
    }
    EXPECT_EQ(WheelBodyGlyph(MC, 0), 236);
    EXPECT_EQ(WheelBodyGlyph(MC, 1), 211);
    EXPECT_EQ(WheelBodyGlyph(Sun, 1), 224);
    EXPECT_EQ(WheelBodyGlyph(Sun, 2), 0); // no body glyphs; the labels still print
}

TEST(Placement, HouseAcrossAriesIsWalkedInOneRun) {
    // The 12th house runs from 340 to 10; bodies at 345, 355 and 5.
    WheelChart w = EqualHouseWheel(10, {{Sun, 345}, {Moon, 355}, {Mercury, 5}, {NNode, 200}});
    auto order = SortedBodies(w);
    EXPECT_NE(w.House[static_cast<size_t>(order.front())],
              w.House[static_cast<size_t>(order.back())]);
    auto places = Place(w, ChartStyle::American);
    std::vector<int> twelfth;
    for (const auto& g : places)
        if (g.house == 12) twelfth.push_back(g.body);
    EXPECT_EQ(twelfth, (std::vector<int>{Sun, Moon, Mercury}));
    EXPECT_LT(Of(places, Sun).slot, Of(places, Moon).slot);
    EXPECT_LT(Of(places, Moon).slot, Of(places, Mercury).slot);
}

TEST(Placement, AmericanSlotsPullBackAndRunOn) {
    // Three bodies at the very end of the 1st house are pulled back so that
    // the ones after each still fit; the Ascendant, counted in its house,
    // keeps a slot too.
    WheelChart w = EqualHouseWheel(0, {{Sun, 29.1}, {Moon, 29.5}, {Mercury, 29.9}});
    auto places = Place(w, ChartStyle::American);
    EXPECT_EQ(Of(places, Sun).slot, 3);
    EXPECT_EQ(Of(places, Moon).slot, 4);
    EXPECT_EQ(Of(places, Mercury).slot, 5);
    EXPECT_DOUBLE_EQ(Of(places, Mercury).theta, 180 + 4 * 5);

    // Nine bodies in the 2nd house (with room for seven): the slots run on
    // into the 3rd house's cells, 4 degrees a slot.
    WheelChart crowd = EqualHouseWheel(0, {{Sun, 30},
                                           {Moon, 31},
                                           {Mercury, 32},
                                           {Venus, 33},
                                           {Mars, 34},
                                           {Jupiter, 35},
                                           {Saturn, 36},
                                           {Uranus, 37},
                                           {Neptune, 38},
                                           {Pluto, 61}});
    auto p = Place(crowd, ChartStyle::American);
    std::vector<int> slots;
    for (int b : {Sun, Moon, Mercury, Venus, Mars, Jupiter, Saturn, Uranus, Neptune})
        slots.push_back(Of(p, b).slot);
    EXPECT_EQ(slots, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_DOUBLE_EQ(Of(p, Neptune).theta, 209 + 4 * 8);
    // The 3rd house's first body moves past the cells the 2nd house took.
    EXPECT_EQ(Of(p, Pluto).slot, 2);
    EXPECT_DOUBLE_EQ(Of(p, Pluto).theta, 248);
}

TEST(Placement, EuropeanSpacingAndWrap) {
    // Two bodies at one longitude: the second 4 degrees after the first.
    WheelChart w = EqualHouseWheel(0, {{Sun, 200}, {Moon, 200}});
    auto places = Place(w, ChartStyle::European);
    double first = std::min(Of(places, Sun).theta, Of(places, Moon).theta);
    double second = std::max(Of(places, Sun).theta, Of(places, Moon).theta);
    EXPECT_DOUBLE_EQ(second - first, 4);

    // A body that would land behind a glyph pushed on before it goes 4
    // degrees after that glyph.
    WheelChart behind = EqualHouseWheel(0, {{Sun, 10}, {Moon, 10}, {Mercury, 11}});
    auto p = Place(behind, ChartStyle::European);
    EXPECT_DOUBLE_EQ(std::min(Of(p, Sun).theta, Of(p, Moon).theta), 190);
    EXPECT_DOUBLE_EQ(std::max(Of(p, Sun).theta, Of(p, Moon).theta), 194);
    EXPECT_DOUBLE_EQ(Of(p, Mercury).theta, 198);
}

TEST(Placement, EuropeanGlyphsStopShortOfTheNextCusp) {
    // Three bodies crowding the end of the 2nd house (30..60): pushed back so
    // that each keeps 4 degrees before the 3rd cusp for those after it.
    WheelChart w = EqualHouseWheel(0, {{Sun, 59.0}, {Moon, 59.3}, {Mercury, 59.6}});
    auto p = Place(w, ChartStyle::European);
    const double cusp3 = Norm360(60 - 180); // the 3rd cusp's wheel angle
    EXPECT_LE(Of(p, Sun).theta, cusp3 - 12 + 1e-9);
    EXPECT_DOUBLE_EQ(Of(p, Moon).theta - Of(p, Sun).theta, 4);
    EXPECT_DOUBLE_EQ(Of(p, Mercury).theta - Of(p, Moon).theta, 4);
}

TEST(Placement, GlyphsMoveOffTheHouseLinesIntoTheirHouse) {
    // The Sun on the 4th cusp, the Moon a degree before the 5th; a column
    // here reaches 3 degrees either side of its glyph's angle.
    WheelChart w = EqualHouseWheel(0, {{Sun, 90}, {Moon, 119}});
    for (ChartStyle type : {ChartStyle::American, ChartStyle::European}) {
        const auto lines = HouseLineAngles(w, type);
        auto crossed = [&](const GlyphPlace& g) {
            for (int h = 1; h <= 12; ++h) {
                double d = std::fabs(g.theta - lines[static_cast<size_t>(h)]);
                if (std::min(d, 360 - d) < 3) return true;
            }
            return false;
        };
        WheelTables t;
        auto plain = PlaceGlyphs(w, type, HouseWidths(w), t);
        auto moved = PlaceGlyphs(w, type, HouseWidths(w), t, crossed);
        for (const GlyphPlace& g : moved) EXPECT_FALSE(crossed(g)) << g.body;
        EXPECT_GT(Of(moved, Sun).theta, Of(plain, Sun).theta);
        if (type == ChartStyle::European) {
            EXPECT_DOUBLE_EQ(Of(moved, Sun).theta, 273);
            EXPECT_DOUBLE_EQ(Of(moved, Moon).theta, 297); // back from the 5th cusp at 300
        }
        // The glyph angle follows the glyph.
        EXPECT_DOUBLE_EQ(Of(moved, Sun).glyphAngle, GlyphLineAngle(Of(moved, Sun).theta));
    }
}

TEST(Placement, GlyphAnglesForTheAspectLines) {
    const std::pair<double, double> cases[] = {{10, 10},   {45, 44},   {95, 94},   {95.5, 93.5},
                                               {140, 139}, {160, 160}, {180, 182}, {230, 233},
                                               {250, 252}, {275, 276}, {300, 300}, {330, 328}};
    for (auto [theta, angle] : cases) EXPECT_DOUBLE_EQ(GlyphLineAngle(theta), angle) << theta;
}

TEST(Placement, LabelColumnOrientation) {
    // European: outward-first on the left half of the wheel only.
    EXPECT_TRUE(ColumnReadsOutwardFirst(75, ChartStyle::European, 5, 0));
    EXPECT_FALSE(ColumnReadsOutwardFirst(255, ChartStyle::European, 5, 0));
    EXPECT_FALSE(ColumnReadsOutwardFirst(10, ChartStyle::European, 5, 0));
    // American: by house, houses 4 to 9 reversed (3 to 8 with option 28).
    EXPECT_TRUE(ColumnReadsOutwardFirst(10, ChartStyle::American, 3, 0));
    EXPECT_FALSE(ColumnReadsOutwardFirst(10, ChartStyle::American, 4, 0));
    EXPECT_TRUE(ColumnReadsOutwardFirst(10, ChartStyle::American, 10, 0));
    EXPECT_FALSE(ColumnReadsOutwardFirst(10, ChartStyle::American, 3, 1));
    EXPECT_TRUE(ColumnReadsOutwardFirst(10, ChartStyle::American, 9, 1));
}
