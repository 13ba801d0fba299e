// The wheel's aspect lines: which aspects draw a line under the orb file's
// orbs or the fixed 3-degree windows, their colours, and where the lines and
// their symbols go.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "SyntheticChart.h"
#include "wheel/Glyphs.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelPaint.h"

using namespace kal;
using kal::test::EqualHouseWheel;

namespace {
// Orbs by aspect number: conjunction 8, sextile 6, square 8, trine 8,
// opposition 3, quincunx 3, quintile 2, 165 degrees 1.
OrbTable Orbs(float opposition = 3) {
    return {0, 8, 6, 8, 8, opposition, 0, 0, 0, 0, 3, 0, 0, 2, 0, 0, 1};
}
} // namespace

TEST(AspectLines, WhichAspectsDrawALine) {
    OrbTable o = Orbs();
    for (bool fixed : {false, true}) {
        EXPECT_EQ(WheelLineAspect(10, 190, o, fixed, true), 6) << fixed;
        EXPECT_EQ(WheelLineAspect(10, 12, o, fixed, true), 1) << fixed; // conjunctions never
        EXPECT_EQ(WheelLineAspect(0, 60, o, fixed, true), 3) << fixed;
        EXPECT_EQ(WheelLineAspect(0, 60, o, fixed, false), 1) << fixed; // sextiles hidden
        EXPECT_EQ(WheelLineAspect(0, 45, o, fixed, true), 1) << fixed;  // never drawn
        EXPECT_EQ(WheelLineAspect(0, 72, o, fixed, true), 14) << fixed;
        EXPECT_EQ(WheelLineAspect(0, 165, o, fixed, true), 17) << fixed;
    }
    // 176.9 degrees: an opposition only with an orb of 3.1 or more.
    EXPECT_EQ(WheelLineAspect(0, 176.9, Orbs(3.0f), false, true), 1);
    EXPECT_EQ(WheelLineAspect(0, 176.9, Orbs(3.1f), false, true), 6);
    EXPECT_EQ(WheelLineAspect(0, 176.9, Orbs(9.0f), true, true), 1);
    EXPECT_EQ(WheelLineAspect(0, 177, o, true, true), 6);
    // Fixed windows are 3 degrees whatever the orb file says.
    EXPECT_EQ(WheelLineAspect(0, 66, o, false, true), 3);
    EXPECT_EQ(WheelLineAspect(0, 66, o, true, true), 1);
    // Of overlapping orbs the last test wins: 155 is the 150-degree aspect
    // and, with a 165 orb of 10, the 165-degree one.
    OrbTable wide = o;
    wide[10] = 6;
    EXPECT_EQ(WheelLineAspect(0, 155, wide, false, true), 11);
    wide[16] = 10;
    EXPECT_EQ(WheelLineAspect(0, 155, wide, false, true), 17);
}

TEST(AspectLines, Colours) {
    Options opt;
    opt[97] = 1;
    opt[98] = 4;
    opt[99] = 2;
    opt[112] = 9;
    WheelOptions w = WheelOptions::For(Medium::Window, opt, false);
    EXPECT_EQ(AspectLineColour(3, w, false), 1);
    EXPECT_EQ(AspectLineColour(5, w, true), Black); // half-page print
    EXPECT_EQ(AspectLineColour(6, w, true), 4);
    EXPECT_EQ(AspectLineColour(11, w, false), 2);
    EXPECT_EQ(AspectLineColour(14, w, false), 14);
    EXPECT_EQ(AspectLineColour(17, w, false), 13);
    EXPECT_EQ(AspectLineColour(3, WheelOptions::For(Medium::Printer, opt, false), false), 9);
}

TEST(AspectLines, DrawnBetweenTheKeptGlyphAnglesWithSymbolsAtTheMiddle) {
    WheelChart w = EqualHouseWheel(0, {{Sun, 10}, {Moon, 130}});
    Options opt;
    opt[47] = 1;
    opt[77] = 9;
    WheelTables t;
    RecordingCanvas c;
    WheelLayout l = PaintWheel(c, WindowView(500, 450), {w, WheelStyle{}, opt, Orbs(), t});
    const AspectLine* trine = nullptr;
    for (const auto& a : l.lines)
        if (a.bodyA == Sun && a.bodyB == Moon) trine = &a;
    ASSERT_NE(trine, nullptr);
    EXPECT_EQ(trine->code, 5);
    double sunAngle = 0;
    for (const auto& g : l.places)
        if (g.body == Sun) sunAngle = g.glyphAngle;
    const double rad = std::numbers::pi / 180;
    EXPECT_NEAR(trine->x1, 120 * std::cos(sunAngle * rad), 1e-9);
    EXPECT_NEAR(trine->y1, 120 * 0.9675 * std::sin(sunAngle * rad), 1e-9);
    // The trine's symbol, its box centred on the line's middle.
    int symbols = 0;
    for (const DrawCall* d : c.texts()) {
        TextSize s = c.measure(d->text, d->font);
        if (std::fabs(d->x1 + s.width / 2 - (trine->x1 + trine->x2) / 2) < 1e-9 &&
            std::fabs(d->y1 - s.height / 2 - (trine->y1 + trine->y2) / 2) < 1e-9) {
            EXPECT_EQ(d->text, GlyphText(AspectGlyph(5)));
            EXPECT_EQ(d->font, (Font{Face::Glyph, 9}));
            ++symbols;
        }
    }
    EXPECT_EQ(symbols, 1);
}

TEST(AspectLines, SymbolsKeepToTheirLinesAndClearOfEachOther) {
    // Two oppositions crossing at the centre, and a stellium of five bodies
    // each square to one body: midpoints that fall together.
    WheelChart cross = EqualHouseWheel(0, {{Sun, 10}, {Moon, 190}, {Mars, 100}, {Venus, 280}});
    WheelChart stellium = EqualHouseWheel(
        0, {{Sun, 100}, {Mercury, 102}, {Venus, 104}, {Mars, 106}, {Jupiter, 108}, {Saturn, 195}});
    Options opt;
    opt[47] = 1;
    opt[77] = 9;
    WheelTables t;
    for (const WheelChart& w : {cross, stellium}) {
        for (ChartStyle type : {ChartStyle::American, ChartStyle::European}) {
            RecordingCanvas c;
            WheelStyle style;
            style.type = type;
            WheelLayout l = PaintWheel(c, WindowView(500, 450), {w, style, opt, Orbs(), t});
            ASSERT_GE(l.lines.size(), 2u);
            std::vector<const DrawCall*> symbols;
            for (const DrawCall* d : c.texts())
                if (d->font == Font{Face::Glyph, 9}) symbols.push_back(d);
            ASSERT_EQ(symbols.size(), l.lines.size());
            EXPECT_TRUE(FindOverlaps(symbols).empty());
            int atMiddle = 0;
            for (const AspectLine& a : l.lines) {
                // On its line, or at most a symbol's height beside it.
                double dx = a.x2 - a.x1, dy = a.y2 - a.y1;
                double off = std::fabs((a.symbolX - a.x1) * dy - (a.symbolY - a.y1) * dx) /
                             std::hypot(dx, dy);
                EXPECT_LT(off, 9.0) << a.bodyA << "-" << a.bodyB;
                EXPECT_LT(std::hypot(a.symbolX, a.symbolY), InnerRadius);
                if (std::hypot(a.symbolX - (a.x1 + a.x2) / 2, a.symbolY - (a.y1 + a.y2) / 2) < 1e-9)
                    ++atMiddle;
            }
            EXPECT_GE(atMiddle, 1);
        }
    }
}
