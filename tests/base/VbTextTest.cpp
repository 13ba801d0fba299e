// Number patterns and text conversions the listings and data files rely on.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <sstream>
#include <string>

#include "base/VbText.h"

using namespace kal;

// Hand-checked rows: they pin the reference formatter NumberFormatTest
// compares against on random values. Minutes of arc round to the nearest (59.7
// is 60); "##0" pads nothing itself; zones, clock times and coordinates of the
// header; names-file numbers with at least three or two integer digits; values
// not exact in binary round on their decimal digits.
TEST(FormatNumber, FormatsLikeTheListings) {
    // "pattern: value=text ...", a pattern a line.
    for (std::string row :
         {"00: 59.4=59 59.7=60 0.4=00 7=07 0.5=01", "0: 2.5=3", "##0: 5=5 0=0 -12=-12", "#0: 0=0",
          "##0.0: -5.5=-5.5 0.25=0.3", "#0.00: 10.3=10.30 2.675=2.68", "##0.00: 0=0.00",
          "#00#.#0: 75.23=075.23 -5.07=-005.07 122.4=122.40", "#0#.#0: 9.05=09.05 -33.52=-33.52",
          "##.#0: 9.5=9.50", "0.00: 1.005=1.01 -0.001=0.00", "#0.0: 99.96=100.0"}) {
        std::istringstream in(row);
        std::string pattern, pair;
        in >> pattern;
        pattern.pop_back();
        while (in >> pair) {
            const size_t eq = pair.find('=');
            EXPECT_EQ(FormatNumber(std::stod(pair.substr(0, eq)), pattern), pair.substr(eq + 1))
                << pair << " with " << pattern;
        }
    }
}

TEST(FormatSingle, RoundsOnSevenDigits) {
    // 10.43 as a 32-bit float is 10.43000030517578.
    EXPECT_EQ(FormatSingle(10.43f, "#0.00"), "10.43");
    EXPECT_EQ(FormatSingle(75.23f, "##0.00"), "75.23");
    EXPECT_EQ(FormatSingle(0.125f, "0.00"), "0.13");
}

TEST(GeneralText, WithAndWithoutLeadingBlank) {
    const std::pair<std::string, const char*> rows[] = {{NumText(-5.5), "-5.5"},
                                                        {NumText(0.25), "0.25"},
                                                        {NumText(0), "0"},
                                                        {NumText(1234567), "1234567"},
                                                        {StrText(5), " 5"},
                                                        {StrText(0), " 0"},
                                                        {StrText(-1), "-1"},
                                                        {StrText(0.5), " .5"},
                                                        {StrText(-0.5), "-.5"},
                                                        {StrText(5.5f, Precision::Single), " 5.5"},
                                                        {NumText(0.1f, Precision::Single), "0.1"}};
    for (const auto& [got, want] : rows) EXPECT_EQ(got, want);
}

TEST(Val, ReadsTheNumberAtTheStart) {
    const std::pair<const char*, double> rows[] = {
        {"  -1.5  text", -1.5}, {"abc", 0}, {"", 0},  {"075.23", 75.23}, {"12abc", 12},
        {"1.2.3", 1.2},         {"+3", 3},  {"-", 0}, {".5", 0.5},       {"\t7", 7}};
    for (auto [text, value] : rows) EXPECT_EQ(Val(text), value) << text;
}

TEST(TextHelpers, PadAndTrim) {
    EXPECT_EQ(PadLeft("1234", 3), "1234"); // never cut
    EXPECT_EQ(PadRight("Sun", 11), "Sun        ");
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
        const bool tail = pick(0, 1);
        const double got = Val("  " + sign + digits + (tail ? "x9" : ""));
        ASSERT_EQ(std::memcmp(&got, &want, sizeof got), 0) << sign + digits;
        // A field that is the number alone reads the same; one with more
        // after it is no number.
        const auto field = NumberText("\t" + sign + digits + (tail ? "x9" : " "));
        ASSERT_EQ(field.has_value(), !tail) << sign + digits;
        if (field) ASSERT_EQ(std::memcmp(&*field, &want, sizeof want), 0) << sign + digits;
    }
}
