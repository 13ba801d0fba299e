// Kaltrova.INI: key checks, defaults and the order of the lines. The file
// written at the end of a run is checked by the main window test.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "shell/Settings.h"

using namespace kal;

namespace {

Settings Apply(const std::vector<std::string>& lines, std::string* data = nullptr,
               std::string* geo = nullptr) {
    Settings s;
    std::string d = "default.FIL", g = "default.LL";
    ApplySettingsLines(lines, s, d, g);
    if (data) *data = d;
    if (geo) *geo = g;
    return s;
}

} // namespace

TEST(Settings, ChecksOnReading) {
    EXPECT_DOUBLE_EQ(Apply({"FontSize=7.5"}).ListFontSize, 8.5);
    EXPECT_DOUBLE_EQ(Apply({"FontSize=7.75"}).ListFontSize, 7.75);
    EXPECT_EQ(Apply({"DataHeight=-20"}).DataHeight, 8250);
    EXPECT_EQ(Apply({"DataLeft=-100"}).DataLeft, -100);
    EXPECT_EQ(Apply({"DataTop=abc"}).DataTop, 675); // not a number reads as 0: refused
    EXPECT_DOUBLE_EQ(Apply({"KaltrovaWidth=0"}).KaltrovaWidth, 10860);
    EXPECT_DOUBLE_EQ(Apply({"KaltrovaTop=-30"}).KaltrovaTop, -30);
    EXPECT_EQ(Apply({"wheelsHeight=0"}).WheelsHeight, 5760);
    // A 16-bit size is checked once rounded: .25 would be kept as 0.
    EXPECT_EQ(Apply({"DataHeight=.25"}).DataHeight, 8250);
    EXPECT_EQ(Apply({"DataHeight=.5"}).DataHeight, 8250);
    EXPECT_EQ(Apply({"DataHeight=1.5"}).DataHeight, 2);
    EXPECT_EQ(Apply({"wheelsLeft=-15"}).WheelsLeft, -15);
    // Twips values are rounded to integers, halves to even.
    EXPECT_EQ(Apply({"DataWidth=9600.5"}).DataWidth, 9600);
    EXPECT_EQ(Apply({"StartScale=300.6"}).StartScale, 301);

    std::string data, geo;
    Apply({"DataFile=", "GeoDataFile=/x/EUROPE.LL"}, &data, &geo);
    EXPECT_EQ(data, "default.FIL");
    EXPECT_EQ(geo, "/x/EUROPE.LL");
}

// A number the file cannot hold in plain digits would come back as another
// at the next start ("1E+20" reads as 1): it is refused, and a setting read
// is written back as it was read.
TEST(Settings, NumbersTooLargeOrSmallToWriteBackAreRefused) {
    const Settings s = Apply({"KaltrovaTop=99999999999999999999",
                              "KaltrovaLeft=0.00000000000000001", "FontSize=1234567890123456789",
                              "DataTop=99999999999999999999", "FontBold=-0.000000000000001"});
    EXPECT_DOUBLE_EQ(s.KaltrovaTop, 0);
    EXPECT_DOUBLE_EQ(s.KaltrovaLeft, 0);
    EXPECT_DOUBLE_EQ(s.ListFontSize, 8.5);
    EXPECT_DOUBLE_EQ(s.ListFontBold, -0.000000000000001);
    EXPECT_EQ(s.DataTop, 675);
    EXPECT_EQ(Apply({"DataTop=99999999"}).DataTop, 32767); // held within 16 bits
    EXPECT_DOUBLE_EQ(Apply({"KaltrovaTop=999999999999999"}).KaltrovaTop, 999999999999999);

    std::string d = "a.FIL", g = "b.LL";
    const auto written = SettingsLines(s, d, g);
    std::string d2 = d, g2 = g;
    Settings again;
    ApplySettingsLines(written, again, d2, g2);
    EXPECT_EQ(SettingsLines(again, d2, g2), written);
}

TEST(Settings, KeysMatchByTheirStartWithExactCase) {
    // The key is compared over its own length, so trailing text after the
    // key name still matches; the case must be exact.
    EXPECT_EQ(Apply({"WheelsTop=5"}).WheelsTop, 620);
    EXPECT_EQ(Apply({"wheelsTop=5"}).WheelsTop, 5);
    EXPECT_DOUBLE_EQ(Apply({"fontsize=9"}).ListFontSize, 8.5);
    // A line without "=" takes the whole line as its value.
    EXPECT_DOUBLE_EQ(Apply({"FontBold"}).ListFontBold, 0);
}

TEST(Settings, WritesTheStandardOrderAndReadsItBack) {
    Settings s;
    s.ListFontSize = 9.25;
    s.ListFontBold = -1;
    s.DataLeft = -100;
    s.KaltrovaWidth = 12000;
    auto lines = SettingsLines(s, "/a/NAMES.FIL", "/a/GA_MA.LL");
    // clang-format off
    const std::vector<std::string> expected = {
        "[Kaltrova] - Do NOT change the order of these variables.",
        "FontSize=9.25", "FontBold=-1", "FontItalic=0",
        "KaltrovaTop=0", "KaltrovaLeft=0", "KaltrovaHeight=675", "KaltrovaWidth=12000",
        "DataTop=675", "DataLeft=-100", "DataHeight=8250", "DataWidth=9600",
        "DataFile=/a/NAMES.FIL", "GeoDataFile=/a/GA_MA.LL", "StartScale=287", "TypeChart=0",
        "wheelsTop=620", "wheelsLeft=0", "wheelsHeight=5760", "wheelsWidth=5760"};
    // clang-format on
    EXPECT_EQ(lines, expected);

    // Read in another order: everything is taken.
    std::vector<std::string> shuffled(lines.rbegin(), lines.rend());
    std::string data, geo;
    Settings back = Apply(shuffled, &data, &geo);
    EXPECT_EQ(SettingsLines(back, data, geo), expected);
}

TEST(Settings, MissingFileGivesDefaults) {
    test::ScratchAppDir dir;
    std::filesystem::remove(dir.path() / "Kaltrova.INI");
    Settings s;
    s.ListFontSize = 11;
    std::filesystem::path names, cities;
    ReadSettings(dir.path(), s, names, cities);
    EXPECT_DOUBLE_EQ(s.ListFontSize, 8.5);
    EXPECT_EQ(names, FindFile(dir.path(), "NAMES.FIL"));
    EXPECT_EQ(cities.filename(), "GA_MA.LL");
}
