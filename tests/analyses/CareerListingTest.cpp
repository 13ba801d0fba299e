// The whole career listing, in its fixed order, for two charts placed by
// hand. Every line below was worked out from the chart's positions: the
// aspects with the orbs of ChartFixture.h, the quintile, 165-degree and
// midpoint lines also against a separate script over all pairs.
#include <gtest/gtest.h>

#include "ChartFixture.h"
#include "analyses/kaltrova_sr.h"

using namespace kal;
using kal::test::ChartSpec;
using kal::test::Lines;
using Listing = std::vector<std::string>;

namespace {

struct Listed {
    std::optional<Message> refused;
    Listing lines;
    short focus = 0;
};

Listed RunListing(const Chart& c, const std::filesystem::path& dir) {
    Listed r;
    OrbTables orbs;
    OutputBuffer out;
    r.refused = ListCareerFactors(c, dir, orbs, r.focus, out);
    r.lines = Lines(out);
    return r;
}

} // namespace

// Equal houses from 20 Libra (MC 20 Cancer). Four planets in the 9th house,
// Venus at 88.5 (Aries Point), Mercury in Cancer and the Moon in Virgo 72
// apart (a reception in quintile), the Sun lowest of the ten (the oriental
// planet wraps round to Pluto), Jupiter exactly 5 from the MC.
TEST(CareerListing, StelliumQuintileReceptionAriesPointAndOrientalWrap) {
    kal::test::TempDir dir;
    dir.Write("Dravik_Natal_Orbs.ORB", kal::test::CareerOrbFile());
    ChartSpec spec;
    spec.EqualHouses(200);
    spec.lon = {0, 20, 95, 88.5, 100, 105, 300, 215, 250, 345, 167, 45};
    const auto r = RunListing(spec.Build(), dir.path());
    EXPECT_FALSE(r.refused);
    EXPECT_EQ(
        r.lines,
        (Listing{"",
                 "  Cancer is the sign on the MC and its ruler is Moon",
                 "",
                 "  Moon sextiles Jupiter.",
                 "  Moon opposes Pluto.",
                 "",
                 "  Jupiter is prominent because it is conjunct the MC.",
                 "",
                 "  Jupiter squares Sun.",
                 "  Jupiter is conjunct Mars.",
                 "  Jupiter trines Pluto.",
                 "  Jupiter sextiles Moon.",
                 "",
                 "  MC squares Sun.",
                 "  MC is conjunct Jupiter.",
                 "  MC trines Pluto.",
                 "  MC sextiles Moon.",
                 "",
                 "  Mercury is in mutual reception with Moon - these planets are in aspect (13).",
                 "",
                 "  Pluto is the oriental planet.",
                 "",
                 "  Mercury is quintile Moon",
                 "",
                 "  Sun is quindecile Uranus",
                 "  Jupiter is quindecile Saturn",
                 "",
                 "  Venus is peregrine.",
                 "",
                 "  The Moon is in the 11TH HOUSE - and in the sign (reigning need) of Virgo.",
                 "",
                 "  Venus is at the Aries Point.",
                 "",
                 "  House 9 contains a stellium of planets.",
                 "",
                 "  Mercury is configured with the Sun/Moon midpoint.",
                 "",
                 "  N. Node is configured with the Jupiter/Pluto midpoint.",
                 "",
                 "  Sun is disposited by Mars.",
                 "  Mercury is disposited by Moon.",
                 "  Venus is disposited by Mercury.",
                 "  Mars is disposited by Moon.",
                 "  Jupiter is disposited by Moon.",
                 "  Saturn is disposited by Uranus.",
                 "  Uranus is disposited by Pluto.",
                 "  Neptune is disposited by Jupiter.",
                 "  Pluto is disposited by Neptune.",
                 "  Moon is disposited by Mercury.",
                 "",
                 "  AP is configured with the Sun/Pluto midpoint.",
                 "  AP is configured with the Mercury/Venus midpoint.",
                 "  AP is configured with the Jupiter/Neptune midpoint.",
                 "  AP is configured with the Uranus/MC  midpoint.",
                 "  AP is configured with the Neptune/MC  midpoint.",
                 "  AP is configured with the Pluto/Asc midpoint.",
                 "",
                 "  MC is configured with the Sun/Asc midpoint.",
                 "  MC is configured with the Mercury/Saturn midpoint.",
                 "  MC is configured with the Mars/Saturn midpoint.",
                 "  MC is configured with the Jupiter/Saturn midpoint.",
                 "  MC is configured with the Saturn/Neptune midpoint.",
                 "  MC is configured with the Pluto/Asc midpoint.",
                 "",
                 "  Mercury is configured with the Sun/Pluto midpoint.",
                 "  Mercury is configured with the Sun/Moon midpoint.",
                 "  Mercury is configured with the Venus/Mars midpoint.",
                 "  Mercury is configured with the Venus/Jupiter midpoint.",
                 "  Mercury is configured with the Saturn/Uranus midpoint.",
                 "  Mercury is configured with the Saturn/Neptune midpoint.",
                 "  Mercury is configured with the Pluto/Asc midpoint.",
                 "  Mercury is configured with the Moon/Asc midpoint.",
                 ""}));
    EXPECT_EQ(r.focus, Jupiter);
}

// The MC in Taurus with Gemini intercepted in the 10th house; the Sun and
// Mercury both within 5 of the MC, so Mercury's aspects are listed twice.
TEST(CareerListing, InterceptedTenthAndTwoBodiesConjunctTheMC) {
    kal::test::TempDir dir;
    dir.Write("Dravik_Natal_Orbs.ORB", kal::test::CareerOrbFile());
    ChartSpec spec;
    spec.cusp = {0, 140, 165, 195, 235, 275, 300, 320, 345, 15, 55, 95, 120};
    spec.lon = {0, 52, 58, 20, 200, 250, 280, 330, 100, 160, 300, 10};
    const auto r = RunListing(spec.Build(), dir.path());
    EXPECT_FALSE(r.refused);
    EXPECT_EQ(
        r.lines,
        (Listing{"",
                 "  Taurus is the sign on the MC and its ruler is Venus",
                 "",
                 "  Venus opposes Mars.",
                 "",
                 "  Gemini is intercepted in the 10th house and its ruler is Mercury",
                 "  (possibly more than 1 kaltrova indicated)",
                 "",
                 "  Mercury is conjunct Sun.",
                 "  Mercury squares Uranus.",
                 "  Mercury trines Moon.",
                 "",
                 "  Sun is prominent because it is conjunct the MC.",
                 "",
                 "  Sun is conjunct Mercury.",
                 "",
                 "  Mercury is prominent because it is conjunct the MC.",
                 "",
                 "  Mercury is conjunct Sun.",
                 "  Mercury squares Uranus.",
                 "  Mercury trines Moon.",
                 "",
                 "  MC is conjunct Sun.",
                 "  MC is conjunct Mercury.",
                 "  MC squares Uranus.",
                 "  MC trines Moon.",
                 "",
                 "  Jupiter is in its own sign and is a final dispositor.",
                 "  Saturn is in its own sign and is a final dispositor.",
                 "",
                 "  Venus is in mutual reception with Mars - these planets are in aspect (5).",
                 "",
                 "  Venus is the oriental planet.",
                 "",
                 "  Moon is quintile N. Node",
                 "",
                 "  Jupiter is quindecile MC ",
                 "",
                 "  The Moon is in the 6TH HOUSE - and in the sign (reigning need) of Aquarius.",
                 "",
                 "  Pluto is configured with the Sun/Moon midpoint.",
                 "",
                 "  N. Node is configured with the Jupiter/Pluto midpoint.",
                 "",
                 "  Sun is disposited by Venus.",
                 "  Mercury is disposited by Venus.",
                 "  Venus is disposited by Mars.",
                 "  Mars is disposited by Venus.",
                 "  Jupiter is disposited by Jupiter.",
                 "  Saturn is disposited by Saturn.",
                 "  Uranus is disposited by Neptune.",
                 "  Neptune is disposited by Moon.",
                 "  Pluto is disposited by Mercury.",
                 "  Moon is disposited by Uranus.",
                 "",
                 "  AP is configured with the Mercury/Moon midpoint.",
                 "  AP is configured with the Venus/Pluto midpoint.",
                 "  AP is configured with the Mars/Pluto midpoint.",
                 "  AP is configured with the Jupiter/Asc midpoint.",
                 "  AP is configured with the Moon/MC  midpoint.",
                 "",
                 "  MC is configured with the Sun/Mercury midpoint.",
                 "  MC is configured with the Mars/Moon midpoint.",
                 "  MC is configured with the Saturn/Pluto midpoint.",
                 "  MC is configured with the Saturn/N. Node midpoint.",
                 "  MC is configured with the Uranus/Asc midpoint.",
                 "  MC is configured with the Neptune/N. Node midpoint.",
                 "  MC is configured with the Moon/Asc midpoint.",
                 "",
                 "  Mercury is configured with the Venus/Saturn midpoint.",
                 "  Mercury is configured with the Venus/Neptune midpoint.",
                 "  Mercury is configured with the Mars/Jupiter midpoint.",
                 "  Mercury is configured with the Mars/Saturn midpoint.",
                 "  Mercury is configured with the Mars/Neptune midpoint.",
                 "  Mercury is configured with the Pluto/Asc midpoint.",
                 ""}));
    EXPECT_EQ(r.focus, Mercury);
}

TEST(CareerListing, MissingOrbFileRefusesBeforeWritingAnything) {
    kal::test::TempDir dir;
    ChartSpec spec;
    spec.EqualHouses(0);
    OrbTables orbs;
    orbs.CareerOrbs[1] = 6;
    OutputBuffer out;
    short focus = 4;
    const auto refused = ListCareerFactors(spec.Build(), dir.path(), orbs, focus, out);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->caption, "Error!");
    EXPECT_NE(refused->text.find("Dravik_Natal_Orbs.ORB"), std::string::npos);
    EXPECT_EQ(out.PageCount(), 0u);
    EXPECT_EQ(out.AllCount(), 0u);
    EXPECT_EQ(focus, 4);
}
