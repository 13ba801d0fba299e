// Number patterns and text conversions the listings and data files rely on.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "base/VbText.h"

using namespace kal;

struct PatternRow {
    double value;
    const char* pattern;
    const char* expected;
};

class FormatNumberRows : public ::testing::TestWithParam<PatternRow> {};

TEST_P(FormatNumberRows, FormatsLikeTheListings) {
    const auto& r = GetParam();
    EXPECT_EQ(FormatNumber(r.value, r.pattern), r.expected) << r.value << " with " << r.pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, FormatNumberRows,
    ::testing::Values(
        // Minutes of arc: rounded to the nearest, so 59.7 becomes 60.
        PatternRow{59.4, "00", "59"}, PatternRow{59.7, "00", "60"}, PatternRow{0.4, "00", "00"},
        PatternRow{7, "00", "07"}, PatternRow{0.5, "00", "01"}, PatternRow{2.5, "0", "3"},
        // Whole degrees right-aligned by the caller: "##0" gives no padding itself.
        PatternRow{5, "##0", "5"}, PatternRow{0, "##0", "0"}, PatternRow{173, "##0", "173"},
        PatternRow{-12, "##0", "-12"}, PatternRow{0, "#0", "0"},
        // Time zone and clock time in the chart header.
        PatternRow{6, "##0.0", "6.0"}, PatternRow{-5.5, "##0.0", "-5.5"},
        PatternRow{0.25, "##0.0", "0.3"}, PatternRow{9.05, "#0.00", "9.05"},
        PatternRow{10.3, "#0.00", "10.30"},
        // Coordinates.
        PatternRow{40.3, "##0.00", "40.30"}, PatternRow{0, "##0.00", "0.00"},
        // Names-file numbers: at least three / two integer digits.
        PatternRow{75.23, "#00#.#0", "075.23"}, PatternRow{-5.07, "#00#.#0", "-005.07"},
        PatternRow{122.4, "#00#.#0", "122.40"}, PatternRow{39.45, "#0#.#0", "39.45"},
        PatternRow{9.05, "#0#.#0", "09.05"}, PatternRow{-33.52, "#0#.#0", "-33.52"},
        PatternRow{10.43, "##.#0", "10.43"}, PatternRow{9.5, "##.#0", "9.50"},
        // Values that are not exact in binary still round on their decimal digits.
        PatternRow{2.675, "#0.00", "2.68"}, PatternRow{1.005, "0.00", "1.01"},
        PatternRow{99.96, "#0.0", "100.0"}, PatternRow{-0.001, "0.00", "0.00"}),
    [](const ::testing::TestParamInfo<PatternRow>& info) {
        // Row number and pattern spelled out: "3_hh0p0" for "##0.0".
        std::string name = std::to_string(info.index) + "_";
        for (const char* c = info.param.pattern; *c; ++c)
            name += *c == '#' ? 'h' : *c == '.' ? 'p' : *c == '0' ? 'z' : *c;
        return name;
    });

TEST(FormatSingle, RoundsOnSevenDigits) {
    // 10.43 as a 32-bit float is 10.43000030517578.
    EXPECT_EQ(FormatSingle(10.43f, "#0.00"), "10.43");
    EXPECT_EQ(FormatSingle(75.23f, "##0.00"), "75.23");
    EXPECT_EQ(FormatSingle(0.125f, "0.00"), "0.13");
}

TEST(GeneralText, WithAndWithoutLeadingBlank) {
    EXPECT_EQ(NumText(6), "6");
    EXPECT_EQ(NumText(-5.5), "-5.5");
    EXPECT_EQ(NumText(0.25), "0.25");
    EXPECT_EQ(NumText(0), "0");
    EXPECT_EQ(NumText(1234567), "1234567");
    EXPECT_EQ(StrText(5), " 5");
    EXPECT_EQ(StrText(0), " 0");
    EXPECT_EQ(StrText(-1), "-1");
    EXPECT_EQ(StrText(0.5), " .5");
    EXPECT_EQ(StrText(-0.5), "-.5");
    EXPECT_EQ(StrText(5.5f, Precision::Single), " 5.5");
    EXPECT_EQ(NumText(0.1f, Precision::Single), "0.1");
}

TEST(Val, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(Val("  -1.5  text"), -1.5);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("075.23"), 75.23);
    EXPECT_EQ(Val("8.0    conjunct"), 8.0);
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("+3"), 3);
    EXPECT_EQ(Val("-"), 0);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("\t7"), 7);
}

TEST(TextHelpers, PadAndCase) {
    EXPECT_EQ(PadLeft("5", 3), "  5");
    EXPECT_EQ(PadLeft("1234", 3), "1234");
    EXPECT_EQ(PadRight("Sun", 11), "Sun        ");
    EXPECT_EQ(Upper("West"), "WEST");
    EXPECT_EQ(Lower("North"), "north");
    EXPECT_EQ(Trim("  a b \t"), "a b");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Val, SameValueAsTheCLibraryOnAnyDigits) {
    // Digit strings of every length, with and without a point, signs and
    // trailing text; the C library's reading of the same span is the
    // reference (the nearest double, infinity beyond the range).
    std::mt19937 rng(5);
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    for (int i = 0; i < 20000; ++i) {
        std::string digits;
        const int n = i % 50 == 0 ? pick(300, 420) : pick(1, 25);
        for (int k = 0; k < n; ++k) digits += static_cast<char>('0' + pick(0, 9));
        if (pick(0, 2)) digits.insert(static_cast<size_t>(pick(0, n)), ".");
        if (i % 97 == 0)
            digits = "0." + std::string(static_cast<size_t>(pick(300, 400)), '0') + "7";
        const std::string sign = pick(0, 3) == 0 ? "-" : pick(0, 3) == 0 ? "+" : "";
        const double want = std::strtod((sign + digits).c_str(), nullptr);
        const double got = Val("  " + sign + digits + (pick(0, 1) ? "x9" : ""));
        ASSERT_EQ(std::memcmp(&got, &want, sizeof got), 0) << sign + digits;
    }
}
