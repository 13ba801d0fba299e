// Orb files, the aspect search and the natal aspect listing.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "chart/Aspects.h"

using namespace kal;

namespace {
OrbTable Orbs(std::initializer_list<float> values) {
    OrbTable t{};
    int k = 1;
    for (float v : values) t[static_cast<size_t>(k++)] = v;
    return t;
}
const OrbTable kNatal = Orbs({8, 6, 8, 8, 8, 1, 2, 2, 2, 3, 1, 1, 2, 1, 2, 1});
} // namespace

TEST(OrbFiles, LinesEmptyLineAndLimit) {
    OrbTable t = Orbs({9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9});
    ReadOrbLines({"8.0    conjunct", "  6    sextile", "x      square", "7.5", "1234567890"}, t);
    EXPECT_FLOAT_EQ(t[1], 8);
    EXPECT_FLOAT_EQ(t[2], 6);
    EXPECT_FLOAT_EQ(t[3], 0); // not a number: exact-only
    EXPECT_FLOAT_EQ(t[4], 7.5);
    EXPECT_FLOAT_EQ(t[5], 1234567);
    EXPECT_FLOAT_EQ(t[6], 9); // five lines: the rest keep their values

    OrbTable u{};
    ReadOrbLines({"1", "2", "", "4"}, u);
    EXPECT_FLOAT_EQ(u[2], 2);
    EXPECT_FLOAT_EQ(u[3], 0);
    EXPECT_FLOAT_EQ(u[4], 0);

    std::vector<std::string> many(20, "3");
    OrbTable v{};
    ReadOrbLines(many, v);
    EXPECT_FLOAT_EQ(v[16], 3);
}

// The loaders keep what they read and read a file again only when its size
// or modification time says it may have been written since.
TEST(LiveOrbFiles, EditsTakeEffectAtTheNextLoad) {
    kal::test::ScratchAppDir dir;
    const auto file = dir.path() / "NATAL.ORB";
    OrbTables orbs;
    auto natal = [&](size_t k) {
        EXPECT_FALSE(LoadNatalOrbs(dir.path(), orbs));
        return orbs.NatalOrbs[k];
    };
    namespace fs = std::filesystem;

    dir.Write("NATAL.ORB", "8.0\r\n6.0\r\n");
    EXPECT_FLOAT_EQ(natal(1), 8);
    // (A rewrite of the same size within one tick of the filesystem's clock
    // is read again: the calculation page's test.) A file whose time lies
    // well in the past is not read again while its size and time stay:
    // rewritten behind the loader's back with both kept, it still gives the
    // orbs read before; a new time gives the new ones.
    const auto past = fs::file_time_type::clock::now() - std::chrono::hours(1);
    dir.Write("NATAL.ORB", "3.0\r\n");
    fs::last_write_time(file, past);
    EXPECT_FLOAT_EQ(natal(1), 3);
    dir.Write("NATAL.ORB", "2.0\r\n");
    fs::last_write_time(file, past);
    EXPECT_FLOAT_EQ(natal(1), 3);
    fs::last_write_time(file, past + std::chrono::seconds(1));
    EXPECT_FLOAT_EQ(natal(1), 2);

    // Gone: refused, the table as it was.
    fs::remove(file);
    EXPECT_EQ(LoadNatalOrbs(dir.path(), orbs), OrbFileMissing(file));
    EXPECT_FLOAT_EQ(orbs.NatalOrbs[1], 2);

    // Found under another spelling, then the name as given wins again.
    dir.Write("natal.orb", "1.0\r\n");
    EXPECT_FLOAT_EQ(natal(1), 1);
    EXPECT_EQ(NatalOrbPath(dir.path(), orbs), dir.path() / "natal.orb");
    dir.Write("NATAL.ORB", "9.0\r\n");
    EXPECT_FLOAT_EQ(natal(1), 9);
    EXPECT_EQ(NatalOrbPath(dir.path(), orbs), file);
}

TEST(LiveOrbFiles, EachFileAndFolderKeptApart) {
    kal::test::ScratchAppDir a, b;
    a.Write("NATAL.ORB", "1.0\r\n");
    a.Write("Dravik_Natal_Orbs.ORB", "2.0\r\n");
    b.Write("NATAL.ORB", "3.0\r\n");
    b.Write("OTHER.ORB", "4.0\r\n5.0\r\n");
    OrbTables orbs;
    EXPECT_FALSE(LoadNatalOrbs(a.path(), orbs));
    EXPECT_FALSE(LoadCareerOrbs(a.path(), orbs));
    EXPECT_FALSE(LoadWheelOrbs(b.path() / "OTHER.ORB", orbs));
    EXPECT_FLOAT_EQ(orbs.NatalOrbs[1], 1);
    EXPECT_FLOAT_EQ(orbs.CareerOrbs[1], 2);
    EXPECT_FLOAT_EQ(orbs.WheelOrbs[2], 5);
    // Another program directory, another wheel orb file.
    EXPECT_FALSE(LoadNatalOrbs(b.path(), orbs));
    EXPECT_FALSE(LoadWheelOrbs(b.path() / "NATAL.ORB", orbs));
    EXPECT_FLOAT_EQ(orbs.NatalOrbs[1], 3);
    EXPECT_FLOAT_EQ(orbs.WheelOrbs[1], 3);
    EXPECT_FLOAT_EQ(orbs.WheelOrbs[2], 5); // a one-line file leaves the rest
}

TEST(AspectSearch, BoundsAreInclusiveInSinglePrecision) {
    OrbTable o = kNatal;
    EXPECT_EQ(FindAspect(0, 172, o).code, 6);
    EXPECT_DOUBLE_EQ(FindAspect(0, 172, o).dev, -8);
    EXPECT_EQ(FindAspect(0, 171.9, o).code, 1);
    EXPECT_EQ(FindAspect(10, 190, o).code, 6);
    EXPECT_EQ(FindAspect(0, 68, o).code, 1);         // between the sextile and quintile windows
    EXPECT_EQ(FindAspect(0, 66, o).code, 3);         // 60 + 6, inclusive
    EXPECT_EQ(FindAspect(0, 66.0000001, o).code, 3); // equal once rounded to 32 bits
    EXPECT_EQ(FindAspect(0, 66.00001, o).code, 1);
    EXPECT_EQ(FindAspect(350, 10, o).code, 1); // separation 20
    EXPECT_DOUBLE_EQ(FindAspect(350, 10, o).sep, 20);
}

TEST(AspectSearch, LaterTestsWinAndConjunctionIsLast) {
    OrbTable o = kNatal;
    o[7] = 25; // s.sextile orb wide enough to reach 6 degrees
    AspectHit h = FindAspect(100, 106, o);
    EXPECT_EQ(h.code, 2);
    EXPECT_DOUBLE_EQ(h.dev, 6);
    // Overlapping square and quintile windows: the quintile (tested later) wins.
    o[3] = 20;
    o[13] = 3;
    EXPECT_EQ(FindAspect(0, 74, o).code, 14);
    // The 165-degree aspect and the parallel, which is never tested.
    EXPECT_EQ(FindAspect(0, 165.5, o).code, 17);
    OrbTable wideParallel = kNatal;
    wideParallel[6] = 180;
    EXPECT_EQ(FindAspect(0, 100, wideParallel).code, 1);
}

TEST(NatalAspectListing, FoundAspectsOfAConstructedChart) {
    // Only conjunctions and oppositions (8 degrees) are allowed; every other
    // orb is negative, which no separation can meet.
    kal::test::ScratchAppDir dir;
    std::string orbFile;
    for (int k = 1; k <= 16; ++k) orbFile += (k == 1 || k == 5 ? "8" : "-1") + std::string("\r\n");
    dir.Write("NATAL.ORB", orbFile);
    Chart c;
    // By listing position: Sun, Moon, Mercury..Pluto, Node, Asc, MC.
    const double lon[14] = {0, 10, 190.5, 15.25, 40, 70, 100, 130, 160, 220, 250, 280, 310, 341.5};
    for (int pos = 1; pos <= 13; ++pos)
        c.NatalLong[static_cast<size_t>(KeyBody[static_cast<size_t>(pos)])] = lon[pos];
    OrbTables orbs;
    AspectFoundTable found{};
    found[5][1][1] = 7; // stale entry, cleared by the listing
    OutputBuffer out;
    ASSERT_TRUE(ListNatalAspects(c, dir.path(), orbs, found, out).empty());

    // The page's layout is compared with the listing model on real charts;
    // here the table of found aspects the report reads.
    EXPECT_FLOAT_EQ(orbs.NatalOrbs[1], 8);

    // AspectFound: (code, later listing position, earlier listing position).
    EXPECT_EQ(found[2][3][1], 1);  // Sun conjunct Mercury
    EXPECT_EQ(found[6][2][1], 1);  // Sun opposite Moon
    EXPECT_EQ(found[6][13][8], 1); // Uranus opposite MC
    EXPECT_EQ(found[6][12][7], 1); // Saturn opposite Asc
    EXPECT_EQ(found[5][1][1], 0);
    int total = 0;
    for (const auto& a : found)
        for (const auto& b : a)
            for (short v : b) total += v;
    EXPECT_EQ(total, 8);
}

TEST(NatalAspectListing, MinutesRoundWhileDegreesTruncate) {
    // 59.99 degrees: 0.99 x 60 = 59.4 rounds to 59; from 59.99167 on the
    // minutes read 60 beside the truncated 59 degrees.
    kal::test::ScratchAppDir dir;
    Chart c;
    for (int j = 1; j <= 13; ++j) c.NatalLong[static_cast<size_t>(j)] = 100 + 9.1 * j;
    c.NatalLong[Sun] = 0;
    c.NatalLong[MC] = 59.99;
    OrbTables orbs;
    AspectFoundTable found{};
    OutputBuffer out;
    ASSERT_TRUE(ListNatalAspects(c, dir.path(), orbs, found, out).empty());
    EXPECT_NE(out.PageLines[17].find("  Sun        M_Heaven    59d 59m          0d 01m\r\n"),
              std::string::npos);
    c.NatalLong[MC] = 59.995;
    out = OutputBuffer{};
    ASSERT_TRUE(ListNatalAspects(c, dir.path(), orbs, found, out).empty());
    EXPECT_NE(out.PageLines[17].find("  Sun        M_Heaven    59d 60m          0d 00m\r\n"),
              std::string::npos);
}

TEST(NatalAspectListing, GridAgreesWithTheSearchUnderAnyOrbs) {
    // The listing looks the aspects up in a table made from the orbs; every
    // pair must come out as the search of the same pair says, on random
    // charts and on separations exactly at a bound, under orb tables with
    // fractions, zeros, a negative and a very wide orb.
    kal::test::ScratchAppDir dir;
    const std::vector<std::string> orbFiles = {
        "8\r\n6\r\n8\r\n8\r\n8\r\n1\r\n2\r\n2\r\n2\r\n3\r\n1\r\n1\r\n2\r\n1\r\n2\r\n1\r\n",
        "7.37\r\n5.123\r\n-2\r\n9.99\r\n30\r\n1\r\n2.5\r\n0.001\r\n2.7\r\n3.3\r\n100\r\n1.1\r\n"
        "2.9\r\n0.6\r\n4.4\r\n1.7\r\n",
        "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n",
    };
    std::mt19937 rng(14);
    std::uniform_real_distribution<double> anywhere(0, 360);
    for (const auto& file : orbFiles) {
        dir.Write("NATAL.ORB", file);
        OrbTables orbs;
        ASSERT_FALSE(LoadNatalOrbs(dir.path(), orbs));
        const OrbTable& t = orbs.NatalOrbs;
        // Separations at the bounds of the tests (each a single-precision value).
        std::vector<double> bounds;
        for (int code = 1; code <= 16; ++code)
            for (int angle : {0, 30, 36, 40, 45, 60, 72, 90, 108, 120, 135, 144, 150, 165, 180})
                for (float b :
                     {angle - t[static_cast<size_t>(code)], angle + t[static_cast<size_t>(code)]})
                    if (b >= 0 && b <= 180) bounds.push_back(b);
        for (int trial = 0; trial < 400; ++trial) {
            Chart c;
            for (int j = 1; j <= 13; ++j)
                c.NatalLong[static_cast<size_t>(j)] = trial % 2 ? anywhere(rng)
                                                      : j == 1  ? 0.0
                                                                : bounds[rng() % bounds.size()];
            AspectFoundTable found{};
            OutputBuffer out;
            ASSERT_TRUE(ListNatalAspects(c, dir.path(), orbs, found, out).empty());
            for (size_t r = 1; r <= 12; ++r)
                for (size_t k = r + 1; k <= 13; ++k) {
                    const int want = FindAspect(c.NatalLong[static_cast<size_t>(KeyBody[r])],
                                                c.NatalLong[static_cast<size_t>(KeyBody[k])], t)
                                         .code;
                    for (size_t code = 2; code <= 17; ++code)
                        ASSERT_EQ(found[code][k][r], static_cast<int>(code) == want ? 1 : 0)
                            << file << " pair " << r << "," << k;
                }
        }
    }
}
