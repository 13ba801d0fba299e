// The career rules one by one, on charts placed so that each case is known;
// every test compares the whole output of a rule. The orbs are those of
// CareerOrbFile (ChartFixture.h). The whole listing is compared on real
// charts by the page tests and the oracle.
#include <gtest/gtest.h>

#include "ChartFixture.h"
#include "TestSupport.h"
#include "analyses/kaltrova_sr.h"

using kal::test::ChartLayout;
using kal::test::Lines;
using Listing = std::vector<std::string>;

namespace {
// A rule's lines of one sentence about several bodies, and its closing blank.
Listing Each(std::initializer_list<const char*> bodies, const std::string& sentence) {
    Listing l;
    for (const char* b : bodies) l.push_back(std::string("  ") + b + sentence);
    l.push_back("");
    return l;
}
} // namespace

class CareerRules : public ::testing::Test {
  protected:
    void SetUp() override { dir.Write("Dravik_Natal_Orbs.ORB", kal::test::CareerOrbFile()); }

    // A rule with the orbs loaded as the listing loads them.
    Listing Run(const kal::Chart& c, void (kal::CareerRules::*rule)()) {
        kal::OutputBuffer out;
        EXPECT_FALSE(kal::LoadCareerOrbs(dir.path(), orbs));
        kal::CareerRules rules(c, orbs.CareerOrbs, focus, out);
        (rules.*rule)();
        return Lines(out);
    }
    Listing Run(void (kal::CareerRules::*rule)()) { return Run(layout.Build(), rule); }

    kal::test::ScratchAppDir dir;
    ChartLayout layout;
    kal::OrbTables orbs;
    short focus = 0;
};

TEST_F(CareerRules, MCSignAndRulerNamesTheModernRulerAndTheNote) {
    const char* rulers[13] = {"",      "Mars",  "Venus",   "Mercury", "Moon",   "Sun",    "Mercury",
                              "Venus", "Pluto", "Jupiter", "Saturn",  "Uranus", "Neptune"};
    const int body[13] = {0, 4, 3, 2, 10, 1, 2, 3, 9, 5, 6, 7, 8};
    for (int s = 1; s <= 12; ++s) {
        layout.EqualHouses(0);
        layout.cusp[10] = 30.0 * (s - 1); // 0 degrees of the sign belongs to it
        Listing expected = {"  " + kal::SignName[static_cast<size_t>(s)] +
                            " is the sign on the MC and its ruler is " + rulers[s]};
        if (s == 3 || s == 9 || s == 12)
            expected.push_back("  (possibly more than 1 kaltrova indicated)");
        expected.push_back("");
        EXPECT_EQ(Run(&kal::CareerRules::MCSignAndRuler), expected) << s;
        EXPECT_EQ(focus, body[s]) << s;
    }
}

TEST_F(CareerRules, FocusAspectsFirstMatchingAspectWithInclusiveSinglePrecisionOrbs) {
    layout.EqualHouses(0);
    layout.lon = {0,
                  106.0000001, // Sun: 6.0000001 apart, 6 in single precision: conjunct
                  94.0,        // Mercury: exactly the conjunction orb
                  100.0,       // Venus, the focus
                  164.0,       // Mars: 64, the sextile's upper bound
                  190.0,       // Jupiter: 90
                  226.0,       // Saturn: 126, the trine's upper bound
                  280.0,       // Uranus: 180
                  274.0,       // Neptune: 174, the opposition's bound
                  273.99,      // Pluto: 173.99, just outside
                  164.01,      // Moon: 64.01, just outside
                  100.0};
    const auto c = layout.Build();
    focus = kal::Venus;
    EXPECT_EQ(
        Run(c, &kal::CareerRules::FocusAspects),
        (Listing{"  Venus is conjunct Sun.", "  Venus is conjunct Mercury.",
                 "  Venus sextiles Mars.", "  Venus squares Jupiter.", "  Venus trines Saturn.",
                 "  Venus opposes Uranus.", "  Venus opposes Neptune.", ""}));

    // A focus without aspects writes nothing, not even the blank line.
    ChartLayout apart = layout;
    apart.lon = {0, 0, 7, 14, 21, 28, 35, 42, 49, 150, 200, 0};
    focus = kal::Sun;
    EXPECT_EQ(Run(apart.Build(), &kal::CareerRules::FocusAspects), Listing{});

    // Overlapping orbs: the conjunction is tested first.
    // Conjunction 40 and sextile 40: Jupiter, 26 from Mars, is in both.
    dir.Write("Dravik_Natal_Orbs.ORB", "40\r\n40\r\n6\r\n6\r\n6\r\n");
    focus = kal::Mars;
    EXPECT_EQ(Run(c, &kal::CareerRules::FocusAspects),
              (Listing{"  Mars sextiles Sun.", "  Mars sextiles Mercury.", "  Mars sextiles Venus.",
                       "  Mars is conjunct Jupiter.", "  Mars sextiles Saturn.",
                       "  Mars trines Uranus.", "  Mars is conjunct Moon.", ""}));
}

TEST_F(CareerRules, InterceptedTenthListsTheRulerAndItsAspects) {
    layout.EqualHouses(140);
    layout.cusp[10] = 55; // Taurus
    layout.cusp[11] = 95; // Cancer: Gemini lies inside the 10th house
    layout.lon = {0, 10, 200, 50, 100, 150, 240, 280, 300, 345, 320, 30};
    EXPECT_EQ(
        Run(&kal::CareerRules::InterceptedTenth),
        (Listing{"  Gemini is intercepted in the 10th house and its ruler is Mercury",
                 "  (possibly more than 1 kaltrova indicated)", "", "  Mercury trines Moon.", ""}));
    EXPECT_EQ(focus, kal::Mercury);

    // Across 0 Aries: Pisces to Taurus intercepts Aries.
    layout.cusp[10] = 350;
    layout.cusp[11] = 40;
    EXPECT_EQ(
        Run(&kal::CareerRules::InterceptedTenth),
        (Listing{"  Aries is intercepted in the 10th house and its ruler is Mars", "",
                 "  Mars squares Sun.", "  Mars opposes Uranus.", "  Mars trines Pluto.", ""}));

    // Two whole signs inside the house, and none: nothing is written.
    focus = 0;
    layout.cusp[10] = 55;
    layout.cusp[11] = 125;
    EXPECT_EQ(Run(&kal::CareerRules::InterceptedTenth), Listing{});
    layout.cusp[11] = 75;
    EXPECT_EQ(Run(&kal::CareerRules::InterceptedTenth), Listing{});
    EXPECT_EQ(focus, 0);
}

TEST_F(CareerRules, PlanetsConjunctMCEachFollowedByItsAspects) {
    layout.EqualHouses(190); // MC at 100
    layout.lon = {0, 105.0, 95.0, 105.01, 165, 185, 250, 320, 30, 340, 290, 10};
    EXPECT_EQ(
        Run(&kal::CareerRules::PlanetsConjunctMC),
        (Listing{"  Sun is prominent because it is conjunct the MC.", "",
                 "  Sun is conjunct Venus.", "  Sun sextiles Mars.", "  Sun trines Pluto.",
                 "  Sun opposes Moon.", "", "  Mercury is prominent because it is conjunct the MC.",
                 "", "  Mercury squares Jupiter.", "  Mercury trines Pluto.", ""}));
    EXPECT_EQ(focus, kal::Mercury);
}

TEST_F(CareerRules, MCAspectsAlwaysLeaveTheirBlankLine) {
    layout.EqualHouses(88); // MC at 358
    layout.lon = {0, 58, 30, 130, 140, 150, 200, 230, 320, 100, 2, 180};
    EXPECT_EQ(Run(&kal::CareerRules::MCAspects),
              (Listing{"  MC sextiles Sun.", "  MC is conjunct Moon.", ""}));
    layout.lon[kal::Sun] = 40;
    layout.lon[kal::Moon] = 20;
    EXPECT_EQ(Run(&kal::CareerRules::MCAspects), Listing{""});
}

TEST_F(CareerRules, FinalDispositorsUseTheModernRulers) {
    layout.EqualHouses(0);
    // Sun Leo, Mercury Virgo, Venus Aries, Mars Scorpio (Pluto's), Jupiter
    // Pisces (Neptune's), Saturn Aquarius (Uranus'), Uranus Aquarius,
    // Neptune Aquarius, Pluto Scorpio, Moon Cancer.
    layout.lon = {0, 130, 160, 10, 220, 350, 300, 315, 310, 215, 100, 0};
    EXPECT_EQ(Run(&kal::CareerRules::FinalDispositors),
              Each({"The Sun", "Mercury", "Uranus", "Pluto", "The Moon"},
                   " is in its own sign and is a final dispositor."));
    layout.lon = {0, 10, 100, 130, 220, 350, 300, 10, 315, 310, 215, 0};
    EXPECT_EQ(Run(&kal::CareerRules::FinalDispositors), Listing{});
}

TEST_F(CareerRules, MutualReceptionsWithTheirAspectNumber) {
    layout.EqualHouses(0);
    // Sun in Cancer and the Moon in Leo, 45 apart; Venus in Aries and Mars in
    // Libra, 180 apart.
    layout.lon = {0, 95, 290, 10, 190, 250, 295, 340, 250, 180, 140, 0};
    EXPECT_EQ(
        Run(&kal::CareerRules::MutualReceptions),
        (Listing{"  Sun is in mutual reception with Moon - no aspect between them.",
                 "  Venus is in mutual reception with Mars - these planets are in aspect (5).",
                 ""}));

    // No reception at all writes nothing.
    layout.lon = {0, 40, 160, 100, 70, 200, 220, 250, 280, 130, 10, 0};
    EXPECT_EQ(Run(&kal::CareerRules::MutualReceptions), Listing{});
    // Mercury in Cancer and the Moon in Virgo, in quintile.
    layout.lon[kal::Mercury] = 95;
    layout.lon[kal::Moon] = 167;
    EXPECT_EQ(Run(&kal::CareerRules::MutualReceptions),
              (Listing{"  Mercury is in mutual reception with Moon - these planets are in "
                       "aspect (13).",
                       ""}));
}

TEST_F(CareerRules, CareerAspectCodeOrder) {
    // A wide square (20) and opposition (16) overlap the quintile and the
    // 165-degree aspect, which are tested before them.
    dir.Write("Dravik_Natal_Orbs.ORB", kal::test::CareerOrbFile("20.0", "16.0"));
    layout.EqualHouses(0);
    layout.lon = {0, 0, 72, 74, 165, 180, 150, 359, 60.0000001, 123, 0, 0};
    kal::OutputBuffer out;
    const auto c = layout.Build();
    ASSERT_FALSE(kal::LoadCareerOrbs(dir.path(), orbs));
    kal::CareerRules r(c, orbs.CareerOrbs, focus, out);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Mercury), 13);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Venus), 3);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Mars), 16);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Jupiter), 5);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Saturn), 0);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Uranus), 1); // 359 and 0 are 1 apart
    EXPECT_EQ(r.CareerAspectCode(kal::Neptune, kal::Sun), 2);
    EXPECT_EQ(r.CareerAspectCode(kal::Sun, kal::Pluto), 4);
}

TEST_F(CareerRules, OrientalPlanetByExchangeSortWithWrap) {
    layout.EqualHouses(0);
    // The body with the next lower longitude than the Sun's.
    layout.lon = {0, 100, 90, 95.5, 130, 200, 210, 220, 230, 240, 250, 96};
    EXPECT_EQ(Run(&kal::CareerRules::OrientalPlanet),
              (Listing{"  Venus is the oriental planet.", ""}));
    // The Sun lowest of the ten: the highest body follows it.
    layout.lon = {0, 5, 40, 60, 30, 200, 210, 220, 230, 300, 250, 1};
    EXPECT_EQ(Run(&kal::CareerRules::OrientalPlanet),
              (Listing{"  Pluto is the oriental planet.", ""}));
    // Sun and Mercury at the same longitude: the exchanges leave Mercury
    // before the Sun, so the Moon, next lower, is oriental.
    layout.lon = {0, 100, 100, 200, 30, 20, 10, 5, 4, 3, 50, 0};
    EXPECT_EQ(Run(&kal::CareerRules::OrientalPlanet),
              (Listing{"  Moon is the oriental planet.", ""}));
}

TEST_F(CareerRules, QuintilesAndQuindecilesOverAllThirteenPoints) {
    layout.EqualHouses(0);
    layout.cusp[10] = 287.5; // Asc 0 and MC 287.5 are 72.5 apart
    layout.lon = {0,
                  100,         // Sun
                  169.5,       // Mercury: 69.5 from the Sun, the lower bound
                  174.5000001, // Venus: 74.5 in single precision
                  265,         // Mars: 165 from the Sun
                  267.5,       // Jupiter: 167.5, the upper bound
                  267.51,      // Saturn: outside
                  20,          25.49, 130, 205, 320};
    const auto c = layout.Build();
    EXPECT_EQ(Run(c, &kal::CareerRules::Quintiles),
              (Listing{"  Sun is quintile Mercury", "  Sun is quintile Venus",
                       "  Asc is quintile MC ", ""}));
    EXPECT_EQ(Run(c, &kal::CareerRules::Quindeciles),
              (Listing{"  Sun is quindecile Mars", "  Sun is quindecile Jupiter", ""}));
}

TEST_F(CareerRules, PeregrineLooksOnlyAtTheTenPlanets) {
    layout.EqualHouses(0);
    // Sun..Saturn bound by sextiles; Uranus has only the Node in
    // conjunction; Neptune, Pluto and the Moon are apart from everything.
    layout.lon = {0, 0, 60, 120, 180, 240, 300, 15, 97, 165, 230, 16};
    EXPECT_EQ(Run(&kal::CareerRules::PeregrinePlanets),
              Each({"Uranus", "Neptune", "Pluto", "Moon"}, " is peregrine."));
    layout.lon[kal::Uranus] = 0;   // conjunct the Sun
    layout.lon[kal::Neptune] = 90; // square the Sun
    layout.lon[kal::Pluto] = 150;  // square Mercury
    layout.lon[kal::Moon] = 210;   // square Saturn
    EXPECT_EQ(Run(&kal::CareerRules::PeregrinePlanets), Listing{});
}

TEST_F(CareerRules, AriesPointWindowsClosedAboutZeroHalfOpenElsewhere) {
    layout.EqualHouses(271.5); // Asc 271.5: outside; MC 181.5: outside
    layout.lon = {0, 88.5, 91.5, 1.5, 358.5, 181.4999, 178.4999, 268.5, 271.4999, 0, 45, 178.5};
    EXPECT_EQ(Run(&kal::CareerRules::AriesPointBodies),
              Each({"Sun", "Venus", "Mars", "Jupiter", "Uranus", "Neptune", "Pluto", "N. Node"},
                   " is at the Aries Point."));
    layout.EqualHouses(0); // MC at 270
    layout.lon = {0, 10, 20, 30, 40, 50, 60, 70, 80, 100, 110, 120};
    EXPECT_EQ(Run(&kal::CareerRules::AriesPointBodies),
              Each({"Asc", "MC "}, " is at the Aries Point."));
}

TEST_F(CareerRules, StelliumsCountOnlyTheTenPlanets) {
    layout.EqualHouses(0); // 10th house 270..300, 2nd 30..60
    // Three planets with the Node and the MC in the 10th, four in the 2nd,
    // three in the 5th.
    layout.lon = {0, 275, 280, 285, 30, 40, 50, 59.9, 125, 130, 140, 290};
    EXPECT_EQ(Run(&kal::CareerRules::Stelliums),
              (Listing{"  House 2 contains a stellium of planets.", ""}));
    layout.lon[kal::Uranus] = 60; // on the 3rd cusp: in the 3rd
    EXPECT_EQ(Run(&kal::CareerRules::Stelliums), Listing{});
    layout.lon[kal::Uranus] = 59.9;
    layout.lon[kal::Sun] = 121;
    layout.lon[kal::Mercury] = 122;
    layout.lon[kal::Venus] = 123;
    EXPECT_EQ(Run(&kal::CareerRules::Stelliums),
              (Listing{"  House 2 contains a stellium of planets.",
                       "  House 5 contains a stellium of planets.", ""}));
}

TEST_F(CareerRules, SunMoonMidpointSinglePrecisionBounds) {
    layout.EqualHouses(300);      // Asc 300, 90 from the midpoint; MC 210 is not examined
    layout.lon = {0,          10, // Sun
                  32.5,           // Mercury: 2.5 from the midpoint 30
                  122.6,          // Venus: 92.6
                  117.5,          // Mars: 87.5
                  195,            // Jupiter: 165
                  207.5,          // Saturn: 177.5
                  210,            // Uranus: 180
                  207.4,          // Neptune: 177.4
                  272.6,          // Pluto
                  50,             // Moon
                  27.49999999};   // Node: 2.50000001, 2.5 in single precision
    EXPECT_EQ(Run(&kal::CareerRules::SunMoonMidpointRule),
              Each({"Mercury", "Mars", "Jupiter", "Saturn", "Uranus", "N. Node", "Asc"},
                   " is configured with the Sun/Moon midpoint."));
    // Jupiter 195 and Pluto 272.6 meet at 233.8: nothing there.
    EXPECT_EQ(Run(&kal::CareerRules::JupPlutoMidpointRule), Listing{});
    // Jupiter 195 and Pluto 199 meet at 197, 2 from each: the pair's own
    // bodies never count.
    layout.lon[kal::Pluto] = 199;
    layout.lon[kal::Venus] = 287;
    layout.lon[kal::Mercury] = 100;
    EXPECT_EQ(Run(&kal::CareerRules::JupPlutoMidpointRule),
              (Listing{"  Venus is configured with the Jupiter/Pluto midpoint.", ""}));
}
