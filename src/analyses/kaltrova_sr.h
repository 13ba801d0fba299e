// The career-factor listing: rule routines that each test one career
// indicator of the current chart and append their sentences to the page.
//
// Every factor line is two blanks followed by its sentence. A rule that wrote
// at least one line closes its group with one blank line; a rule that found
// nothing writes nothing, unless the rule itself says otherwise (the MC sign,
// the MC aspects, the Moon's house and the three midpoint-pair rules always
// leave their blank line).
//
// Orb comparisons are made in single precision with inclusive bounds: the
// separation, the orb and the bounds are each rounded to 32 bits first. The
// Aries Point windows are the one test made in double precision.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/Message.h"
#include "base/OutputBuffer.h"
#include "chart/Aspects.h"
#include "chart/Chart.h"

namespace kal {

// Gemini, Sagittarius and Pisces point to more than one career.
bool IndicatesSeveralCareers(int sign);

// The single-precision inclusive test angle - orb <= d <= angle + orb.
inline bool WithinOrb(double sep, float angle, float orb) {
    const float d = static_cast<float>(sep);
    return angle - orb <= d && d <= angle + orb;
}
// The first major aspect of a separation under the career orbs: 1 conjunct,
// 2 sextile, 3 square, 4 trine, 5 opposite, 0 none.
int MajorAspect(double sep, const OrbTable& orbs);
// A point at this separation from a midpoint is configured with it:
// conjunct, square, 165 degrees or opposite within 2.5 degrees.
inline bool MidpointConfigured(double sep) {
    constexpr float orb = 2.5f;
    const float d = static_cast<float>(sep);
    return d <= orb || WithinOrb(sep, 90.0f, orb) || WithinOrb(sep, 165.0f, orb) ||
           d >= 180.0f - orb;
}
// Within 1.5 degrees of 0, 90, 180 or 270 (closed about 0 degrees, closed
// below and open above at the other three).
bool AtAriesPoint(double longitude);

// The rule routines over one chart, with the career orbs as the listing
// loaded them at its start (LoadCareerOrbs reads the file again whenever it
// changed, so an edit takes effect at the next listing).
class CareerRules {
  public:
    CareerRules(const Chart& chart, const OrbTable& careerOrbs, short& focusPlanet,
                OutputBuffer& out);

    // The body 1..10 whose aspects FocusAspects lists next; kept between
    // listings by the caller.
    short& FocusPlanet;

    // Which copy of the chart each rule reads: the natal copy (NatalLong,
    // NatalCusp, the midpoints taken at calculation) or the working copy the
    // wheel's time steps move (CuspTable, and PlanetHouse, placed from the
    // working positions).

    // The sign on the working copy's MC (CuspTable[1]) and its ruler.
    void MCSignAndRuler();
    // The focus planet's major aspects among the natal positions.
    void FocusAspects();
    // A sign intercepted in the natal 10th house (NatalCusp).
    void InterceptedTenth();
    // Natal positions within 5 degrees of the working copy's MC.
    void PlanetsConjunctMC();
    // The working copy's MC in major aspect to natal positions.
    void MCAspects();
    // Natal positions in the sign they rule.
    void FinalDispositors();
    // Mutual receptions by sign among the natal positions.
    void MutualReceptions();
    // The natal body rising before the natal Sun.
    void OrientalPlanet();
    // Quintile and quindecile pairs of natal positions.
    void Quintiles();
    void Quindeciles();
    // Natal planets without a major aspect among the natal positions.
    void PeregrinePlanets();
    // The Moon's house from the working copy's house labels (PlanetHouse),
    // its sign from the natal copy.
    void MoonHouseAndSign();
    // Natal positions at the Aries Point.
    void AriesPointBodies();
    // Four or more planets in one house of the working copy's house labels.
    void Stelliums();
    // Natal positions configured with the natal Sun/Moon and Jupiter/Pluto
    // midpoints.
    void SunMoonMidpointRule();
    void JupPlutoMidpointRule();
    // "<body> is disposited by <ruler of its sign>." for each natal position.
    void DispositorLines();
    // Midpoints of natal pairs configured with the Aries Point.
    void APMidpoints();
    // Midpoints of natal pairs configured with the working copy's MC.
    void MCMidpoints();
    // Midpoints of natal pairs configured with natal Mercury.
    void MercuryMidpoints();

    // The aspect number of a pair under the career orbs (1, 2, 13, 3, 4, 16
    // or 5, the first that holds), 0 when none.
    int CareerAspectCode(int a, int b);

  private:
    // One factor line: two blanks and the sentence made of `parts`.
    template <class... Parts> void Line(const Parts&... parts) {
        out_.AppendJoined("  ", parts...);
    }
    void Blank();
    // The MC and intercepted-sign rules: "<sign> is ... its ruler is X",
    // the note for several careers, the blank line.
    void RulerLines(int sign, std::string_view phrase);
    // Bodies 1..12 less two, configured with a chart midpoint.
    void MidpointBodies(double midpoint, int leftOutA, int leftOutB, std::string_view phrase);
    // Pairs of bodies whose midpoint is configured with a target.
    template <class Target>
    void MidpointPairs(int lastFirst, int lastSecond, int skip, std::string_view prefix,
                       Target separation);
    // A pair of bodies within 2.5 degrees of an angle.
    void MinorAspectPairs(float angle, std::string_view verb);

    // The separation of natal bodies i and j (1..13), and the midpoint of
    // i and j for i < j: each taken once for all the rules.
    double Sep(int i, int j) const { return sep_[static_cast<size_t>(i)][static_cast<size_t>(j)]; }
    double Mid(int i, int j) const { return mid_[static_cast<size_t>(i)][static_cast<size_t>(j)]; }

    const Chart& c_;
    const OrbTable& orbs_;
    OutputBuffer& out_;
    std::array<std::array<double, 14>, 14> sep_{}, mid_{};
};

// The career-factor listing as the command and the calculation page write
// it after the chart header: a blank line, the rules in their fixed order,
// the ten dispositor lines, a blank line and the three midpoint-pair rules.
// Refused before anything is written when the career orb file cannot be read.
Messages ListCareerFactors(const Chart& chart, const std::filesystem::path& appPath,
                           OrbTables& orbs, short& focusPlanet, OutputBuffer& out);

} // namespace kal
