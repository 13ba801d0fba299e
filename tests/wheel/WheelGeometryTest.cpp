// The wheel's frame: scale, printer page, house lines of both styles, house
// widths, intercepted signs, label splitting, and what the paint draws for
// them on a recording canvas.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "SyntheticChart.h"
#include "wheel/Glyphs.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelPaint.h"

using namespace kal;
using kal::test::EqualHouseWheel;

TEST(WheelScale, FromTheWindowsShape) {
    EXPECT_EQ(WindowScale(600, 400), 338); // 337.5, half to even
    EXPECT_EQ(WindowScale(673, 450), 336); // 336.5, half to even
    EXPECT_EQ(WindowScale(400, 400), 225);
    EXPECT_EQ(WindowScale(300, 500), 244); // taller than wide
    EXPECT_EQ(WindowScale(300, 3000), 244);

    WheelView v = WindowView(600, 400);
    EXPECT_DOUBLE_EQ(v.left, -338);
    EXPECT_DOUBLE_EQ(v.top, 338.0 * 400 / 600);
    WheelView tall = WindowView(300, 600);
    EXPECT_DOUBLE_EQ(tall.right, 244);
    EXPECT_DOUBLE_EQ(tall.top, 488);
}

TEST(WheelScale, PrinterPageSitsTheCentreAboveTheMiddle) {
    WheelView e = PrinterView(ChartStyle::European);
    EXPECT_DOUBLE_EQ(e.R, 272);
    EXPECT_DOUBLE_EQ(e.right, 0.9475 * 272);
    WheelView a = PrinterView(ChartStyle::American);
    EXPECT_DOUBLE_EQ(a.R, 265);
    EXPECT_NEAR((a.top + a.bottom) / 2, -53.06, 1e-9);
}

TEST(HouseLines, EuropeanAscendantOnTheLeftAndUnequalHouses) {
    WheelChart w = EqualHouseWheel(100);
    w.WheelCusp[5] = 120;   // 2nd cusp 20 degrees after the Ascendant
    w.WheelCusp[12] = 55.5; // 9th cusp
    auto e = HouseLineAngles(w, ChartStyle::European);
    EXPECT_EQ(e[1], 180);
    EXPECT_EQ(e[7], 0); // the Descendant on the right
    EXPECT_DOUBLE_EQ(e[2], 200);
    EXPECT_DOUBLE_EQ(e[9], 180 + 315.5 - 360);
    w.WheelCusp[5] = 100; // a cusp on the Ascendant
    EXPECT_EQ(HouseLineAngles(w, ChartStyle::European)[2], 180);
    auto a = HouseLineAngles(w, ChartStyle::American);
    for (int h = 1; h <= 12; ++h)
        EXPECT_DOUBLE_EQ(a[static_cast<size_t>(h)], std::fmod(150 + 30.0 * h, 360));
}

TEST(HouseLines, DrawnWithTheirFactorsAndColours) {
    WheelChart w = EqualHouseWheel(17.25);
    Options o;
    o[100] = 1; // blue background
    o[102] = 4; // red house lines
    WheelTables tables;
    OrbTable orbs{};
    for (bool printForm : {false, true}) {
        WheelStyle style;
        style.type = ChartStyle::European;
        style.PrintFormMode = printForm;
        RecordingCanvas c;
        PaintWheel(c, WindowView(500, 450), {w, style, o, orbs, tables});
        ASSERT_EQ(c.calls().front().kind, DrawCall::Fill);
        EXPECT_EQ(c.calls().front().colour, PaletteColour(printForm ? White : 1));
        const DrawCall& asc = c.calls()[1]; // the first house line: the Ascendant
        ASSERT_EQ(asc.kind, DrawCall::Line);
        EXPECT_DOUBLE_EQ(asc.x1, -120);
        EXPECT_DOUBLE_EQ(asc.x2, -217);
        EXPECT_NEAR(asc.y1, 0, 1e-12);
        EXPECT_NEAR(asc.y2, 0, 1e-12);
        EXPECT_EQ(asc.colour, PaletteColour(printForm ? Black : 4));
        // The 4th-house line: y squeezed by 0.9875.
        const DrawCall& ic = c.calls()[4];
        EXPECT_NEAR(ic.y2, 217 * 0.9875 * std::sin(270 * std::numbers::pi / 180), 1e-9);
    }
    // The printer page: no background, circles first, lines at 0.9475.
    RecordingCanvas p;
    PaintWheel(p, PrinterView(ChartStyle::American), {w, WheelStyle{}, o, orbs, tables});
    EXPECT_EQ(p.calls()[0].kind, DrawCall::Circle);
    EXPECT_EQ(p.calls()[2].kind, DrawCall::Line);
    EXPECT_NEAR(p.calls()[2].y2, 0, 1e-9);
    EXPECT_NEAR(p.calls()[5].y2, 217 * 0.9475 * std::sin(270 * std::numbers::pi / 180), 1e-9);
}

TEST(HouseWidths, ArcsByCuspIndex) {
    WheelChart w = EqualHouseWheel(350);
    w.WheelCusp[2] = w.WheelCusp[1] + 40; // 11th cusp
    auto width = HouseWidths(w);
    EXPECT_DOUBLE_EQ(width[1], 40);
    EXPECT_DOUBLE_EQ(width[2], 20);
    EXPECT_DOUBLE_EQ(width[12], 30); // the 9th house, across 0 degrees
    // An arc of exactly 277.5 counts as 7.5.
    w.WheelCusp[2] = Norm360(w.WheelCusp[1] + 277.5);
    EXPECT_DOUBLE_EQ(HouseWidths(w)[1], 7.5);
}

TEST(InterceptedSigns, TwoSignBoundariesInOneHouse) {
    // 1st cusp 28 Aries, 2nd 2 Gemini: Taurus lies wholly in the 1st house.
    WheelChart w = EqualHouseWheel(28);
    w.WheelCusp[5] = 62;
    auto a = InterceptedSigns(w, ChartStyle::American);
    ASSERT_EQ(a.size(), 1u);
    EXPECT_EQ(a[0].house, 1);
    EXPECT_EQ(a[0].sign, 2);
    EXPECT_DOUBLE_EQ(a[0].angle, 195); // the middle of the American 1st house
    auto e = InterceptedSigns(w, ChartStyle::European);
    ASSERT_EQ(e.size(), 1u);
    EXPECT_DOUBLE_EQ(e[0].angle, 180 + 17); // the middle of the true house
    // Three boundaries (the 2nd cusp at 2 Cancer) show nothing.
    w.WheelCusp[5] = 92;
    EXPECT_TRUE(InterceptedSigns(w, ChartStyle::American).empty());
}

TEST(CuspLabels, SplitAndPlaced) {
    LabelParts p = SplitLabel(29 + 59.7 / 60); // minutes that round to 60 stay 59
    EXPECT_EQ(p.sign, 1);
    EXPECT_EQ(p.degTens * 10 + p.degUnits, 29);
    EXPECT_EQ(p.minTens * 10 + p.minUnits, 59);
    LabelParts g = SplitLabel(60.0);
    EXPECT_EQ(g.sign, 3);
    EXPECT_EQ(g.degTens + g.degUnits + g.minTens + g.minUnits, 0);

    // American: every cusp's five characters at its table places.
    WheelTables t;
    for (size_t i = 0; i < t.CuspLabelPos.size(); ++i) t.CuspLabelPos[i] = static_cast<short>(i);
    WheelChart w = EqualHouseWheel(5 + 23.0 / 60);
    Options o;
    RecordingCanvas c;
    PaintWheel(c, WindowView(500, 450), {w, WheelStyle{}, o, OrbTable{}, t});
    auto texts = c.texts();
    // The Ascendant (index 4): 05 Aries 23 at elements 30..39.
    const char* expect[] = {"0", "5", "\xC0", "2", "3"};
    for (int j = 0; j < 5; ++j) {
        const DrawCall& d = *texts[static_cast<size_t>(15 + j)];
        EXPECT_EQ(d.text, expect[j]);
        EXPECT_EQ(d.x1, 30 + 2 * j);
        EXPECT_EQ(d.y1, 31 + 2 * j);
    }
    EXPECT_EQ(texts[15]->font, (Font{Face::Sans, o[69], true}));
}
