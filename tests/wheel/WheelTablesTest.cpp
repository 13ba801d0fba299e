// The wheel's two tables: the free-format reader, the shipped files, and the
// shipped files being what their generator makes of the shipped options.
#include <gtest/gtest.h>

#include <cmath>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelTables.h"

using namespace kal;

TEST(WheelTables, NumbersSeparatedByCommasAndLineEnds) {
    std::array<short, 6> e{9, 9, 9, 9, 9, 9};
    EXPECT_EQ(ReadWheelTable("12,-3\r\n 7 ,\n4.6\r\nx", e), 5u);
    EXPECT_EQ(e, (std::array<short, 6>{12, -3, 7, 5, 0, 9}));
    std::array<short, 2> small{};
    EXPECT_EQ(ReadWheelTable("1,2,3,4", small), 2u);
    // Numbers past 16 bits (two run together when a line end is lost) are
    // held at the ends of the range.
    std::array<short, 4> big{};
    EXPECT_EQ(ReadWheelTable("215215\r\n-99999,99999999999999999999999,32767.5", big), 4u);
    EXPECT_EQ(big, (std::array<short, 4>{32767, -32768, 32767, 32767}));
}

TEST(WheelTables, MissingOrShortFilesAreTold) {
    kal::test::ScratchAppDir dir;
    WheelTables t;
    EXPECT_FALSE(LoadWheelTables(dir.path(), t)) << "the shipped tables are complete";
    EXPECT_NE(t.GlyphRadius[90], 0);
    dir.Write("RADIUS.DAT", "200,201\r\n");
    WheelTables shortTable;
    auto m = LoadWheelTables(dir.path(), shortTable);
    ASSERT_TRUE(m);
    EXPECT_NE(m->text.find("RADIUS.DAT"), std::string::npos);
    EXPECT_EQ(shortTable.GlyphRadius[1], 201);
    EXPECT_EQ(shortTable.GlyphRadius[2], 0);
    std::filesystem::remove(dir.path() / "HCDATA.DAT");
    EXPECT_TRUE(LoadWheelTables(dir.path(), shortTable));
}

TEST(WheelTables, ShippedTablesAreTheGeneratorsOutput) {
    kal::test::ScratchAppDir dir;
    auto out = dir.path() / "generated";
    std::filesystem::create_directories(out);
    std::string source = KALTROVA_SOURCE_DIR;
    auto r = kal::test::RunShell(std::string(KALTROVA_MAKE_WHEEL_TABLES) + " " +
                                 kal::test::ShellQuote(source + "/data/OPTIONS.OPT") + " " +
                                 kal::test::ShellQuote(out.string()));
    ASSERT_EQ(r.status, 0) << r.out;
    for (const char* name : {"HCDATA.DAT", "RADIUS.DAT"})
        EXPECT_EQ(ReadFileBytes(out / name), ReadFileBytes(source + "/data/" + name))
            << name << " differs from what tools/wheel/make_wheel_tables writes";
}

TEST(WheelTables, CuspLabelsClearTheRimAndStayInASquareWindow) {
    WheelTables t;
    ASSERT_FALSE(LoadWheelTables(kal::test::AppDir(), t));
    const Font digit{Face::Sans, 7, true}, sign{Face::Glyph, 10}, minute{Face::Sans, 6};
    for (int k = 1; k <= 12; ++k) {
        const Font* fonts[] = {&digit, &digit, &sign, &minute, &minute};
        for (int j = 0; j < 5; ++j) {
            Box ink = InkBox(t.LabelX(k, j), t.LabelY(k, j), j == 2 ? "\xC0" : "8", *fonts[j]);
            double nearest = std::hypot(std::max({ink.left, 0.0, -ink.right}),
                                        std::max({ink.bottom, 0.0, -ink.top}));
            EXPECT_GT(nearest, 217) << "cusp index " << k << " character " << j;
            EXPECT_LE(std::fabs(ink.top), 225) << k;
            EXPECT_LE(std::fabs(ink.bottom), 225) << k;
        }
    }
}

TEST(RecordingCanvas, MeasuresAndFindsOverlappingInk) {
    RecordingCanvas c;
    const Font glyph{Face::Glyph, 14};
    TextSize s = c.measure("\xE0", glyph); // the Sun
    EXPECT_NEAR(s.width, 14 * UnitsPerPoint * 0.896484, 1e-4);
    EXPECT_GT(s.height, s.ascent);
    c.text(0, 0, "\xE0", glyph, {});
    c.text(s.width, 0, "\xE1", glyph, {});      // the Moon beside it: no overlap
    c.text(s.width / 2, -2, "\xE2", glyph, {}); // Mercury across both
    c.text(100, 100, "   ", glyph, {});         // blanks have no ink
    auto overlaps = FindOverlaps(c.texts());
    ASSERT_EQ(overlaps.size(), 2u);
    EXPECT_EQ(overlaps[0].a, 0u);
    EXPECT_EQ(overlaps[0].b, 2u);
    EXPECT_EQ(overlaps[1].a, 1u);
    EXPECT_EQ(overlaps[1].b, 2u);
    EXPECT_TRUE(InkBox(*c.texts()[3]).empty());
}
