// The meanings window's checks and keys, the text routines it shares with
// the keyword lessons, and the keywords grid's topics.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/Passages.h"
#include "base/TextFile.h"
#include "browsers/Keywords.h"
#include "browsers/Meanings.h"

using namespace kal;

namespace {

BrowserSelections Selected(short planet, short planet2 = 1, short aspect = 2, short sign = 6,
                           short house = 6) {
    BrowserSelections s;
    s.SelPlanet = planet;
    s.SelPlanet2 = planet2;
    s.SelAspect = aspect;
    s.SelSign = sign;
    s.SelHouse = house;
    return s;
}

std::string Refusal(const LookupResult& r) {
    if (auto* m = std::get_if<Message>(&r)) {
        EXPECT_EQ(m->caption, "Information");
        EXPECT_EQ(m->icon, Icon::Exclamation);
        return m->text;
    }
    return "";
}

TextLookup Passed(const LookupResult& r) {
    if (auto* t = std::get_if<TextLookup>(&r)) return *t;
    ADD_FAILURE() << "refused: " << std::get<Message>(r).text;
    return {};
}

} // namespace

TEST(Meanings, SignAndHouseLookups) {
    EXPECT_EQ(Passed(PlanetInSignLookup(Selected(0, 1, 2, 0))),
              (TextLookup{"\\SIGN_Ari.TXT", "SUN in"}));
    // Capricorn, the rising sign of the Ascendant, Pluto's sign and the
    // 10th house are looked up through the meanings window's test.
    for (short p : {7, 8})
        EXPECT_EQ(Refusal(PlanetInSignLookup(Selected(p))),
                  "Uranus - Pluto sign positions are not delineated.");
    EXPECT_EQ(Passed(PlanetInHouseLookup(Selected(9, 1, 2, 0, 0))),
              (TextLookup{"\\HOUSE_1.TXT", "PLUTO in"}));
    EXPECT_EQ(Refusal(PlanetInHouseLookup(Selected(10))),
              "The Ascendant is always the 1st house cusp. It cannot be in a house.");
}

TEST(Meanings, AspectChecksInTheirOrder) {
    EXPECT_EQ(Passed(AspectLookup(Selected(0, 1))),
              (TextLookup{"\\Sun.TXT", "Sun discordant to Moon"}));
    EXPECT_EQ(Refusal(AspectLookup(Selected(4, 4))),
              "A planet cannot aspect itself. Select a different planet.");
    // The Ascendant is always the second point and names its file's key in
    // full.
    EXPECT_EQ(Refusal(AspectLookup(Selected(10, 10))),
              "A planet cannot aspect itself. Select a different planet.");
    EXPECT_EQ(Passed(AspectLookup(Selected(9, 10, 1))),
              (TextLookup{"\\Pluto.TXT", "Pluto harmonizing with Ascendant"}));

    const std::string mercury =
        "Mercury can never by far enough away from the Sun to have this kind of aspect.";
    const std::string venusSun =
        "Venus can never by far enough away from the Sun to have this kind of aspect.";
    const std::string venusMercury =
        "Venus can never by far enough away from Mercury to have this kind of aspect.";
    EXPECT_EQ(Passed(AspectLookup(Selected(0, 2, 0))).key, "Sun blending with Mercury");
    EXPECT_EQ(Refusal(AspectLookup(Selected(0, 2, 1))), mercury);
    EXPECT_EQ(Refusal(AspectLookup(Selected(0, 2, 2))), mercury);
    EXPECT_EQ(Passed(AspectLookup(Selected(0, 3, 1))).key, "Sun harmonizing with Venus");
    EXPECT_EQ(Refusal(AspectLookup(Selected(0, 3, 2))), venusSun);
    EXPECT_EQ(Passed(AspectLookup(Selected(2, 3, 1))).key, "Mercury harmonizing with Venus");
    EXPECT_EQ(Refusal(AspectLookup(Selected(2, 3, 2))), venusMercury);
    // The order matters: a reversed pair is refused before the Sun-Mercury
    // check.
    EXPECT_EQ(Refusal(AspectLookup(Selected(2, 0, 2))),
              "Please select a higher planet on the left than on the right.");
}

TEST(Meanings, TextRoutinesIndentAndReportAMissingFile) {
    test::ScratchAppDir dir;
    dir.Write("RISING.TXT", "  LIBRA RISING\r\nbalance\r\n []\r\nSCORPIO RISING\r\n");
    OutputBuffer out;
    out.Append("old page");
    BrowserSelections s;
    // The key that is not found writes nothing after the page's blank line.
    EXPECT_TRUE(ShowLookup(out, dir.path(), s, {"\\RISING.TXT", "LEO rising"}).empty());
    EXPECT_EQ(out.PageLines, (std::vector<std::string>{"", ""}));
    EXPECT_TRUE(ShowLookup(out, dir.path(), s, RisingSignLookup(s)).empty());
    EXPECT_EQ(out.PageLines, (std::vector<std::string>{"", "    LIBRA RISING", "  balance", ""}));

    out.ClearDataPage();
    EXPECT_TRUE(ShowTextFile(out, dir.path(), "\\rising.txt").empty());
    EXPECT_EQ(out.PageCount(), 4u);
    EXPECT_EQ(out.PageLines[2], "   []");

    out.ClearDataPage();
    Messages m = ShowTextFile(out, dir.path(), "\\GONE.TXT");
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0], CannotFindFileMessage(dir.path() / "GONE.TXT"));
    EXPECT_EQ(m[0].caption, "Warning!");
    EXPECT_EQ(m[0].icon, Icon::Critical);
    EXPECT_EQ(out.PageCount(), 0u);
}

TEST(Keywords, TopicTexts) {
    auto moon = KeywordTopicMessage("Moon");
    ASSERT_TRUE(moon);
    // The two pieces of the meaning join with the blank that ends the first.
    EXPECT_NE(moon->text.find("with physical life which are disturbing"), std::string::npos);
    EXPECT_NE(moon->text.find("greatest need.\n\nBest quality: Adaptability\nWorst quality: "
                              "Inconstancy\nThought series: Domestic"),
              std::string::npos);
    EXPECT_EQ(moon->text.back(), 'c');

    auto leo = KeywordTopicMessage("Leo");
    ASSERT_TRUE(leo);
    EXPECT_EQ(leo->text.substr(0, leo->text.find('\n')),
              "In the house where Leo rules the cusp is where:");
    EXPECT_EQ(leo->text.substr(leo->text.find('\n'), 6), "\n\nyou ");

    auto fixed = KeywordTopicMessage("Fixed");
    ASSERT_TRUE(fixed);
    EXPECT_EQ(fixed->text.substr(0, 11), "Determined,");
    auto aspects = KeywordTopicMessage("Aspects");
    ASSERT_TRUE(aspects);
    EXPECT_EQ(std::count(aspects->text.begin(), aspects->text.end(), '\n'), 4);
    EXPECT_EQ(aspects->text.substr(0, 14), "Conjunction   ");

    // Every cell but the two empty ones shows a topic.
    int topics = 0;
    for (const auto& row : KeywordGrid)
        for (auto cell : row)
            if (!cell.empty()) {
                EXPECT_TRUE(KeywordTopicMessage(cell)) << cell;
                ++topics;
            }
    EXPECT_EQ(topics, 46);
}
