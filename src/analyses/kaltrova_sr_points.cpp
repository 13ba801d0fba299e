// The career listing's second group of rules: the sign intercepted in the
// 10th house, the MC's aspects, quintiles and 165-degree pairs, peregrine
// planets, the Moon's house and sign, the Aries Point, and the midpoint
// configurations.
#include "analyses/kaltrova_sr.h"

#include <array>

#include "base/VbText.h"

namespace kal {

void CareerRules::InterceptedTenth() {
    // The 10th house runs from cusp index 1 to cusp index 2 (the 11th cusp).
    const int s1 = SignOf(c_.NatalCusp[1]);
    const int s2 = SignOf(c_.NatalCusp[2]);
    int gap = s2 - s1;
    if (gap < 0) gap += 12;
    if (gap != 2) return;
    int sign = s1 + 1;
    if (sign > 12) sign -= 12;
    RulerLines(sign, " is intercepted in the 10th house and its ruler is ");
    FocusAspects();
}

void CareerRules::MCAspects() {
    static const std::array<const char*, 6> phrases = {
        "", "MC is conjunct ", "MC sextiles ", "MC squares ", "MC trines ", "MC opposes "};
    for (int k = 1; k <= 10; ++k) {
        const int a =
            MajorAspect(Separation(c_.CuspTable[1], c_.NatalLong[static_cast<size_t>(k)]), orbs_);
        if (a != 0) Line(phrases[static_cast<size_t>(a)], PlanetName[static_cast<size_t>(k)], ".");
    }
    Blank();
}

void CareerRules::MinorAspectPairs(float angle, std::string_view verb) {
    bool any = false;
    for (int i = 1; i <= NumBodies - 1; ++i)
        for (int j = i + 1; j <= NumBodies; ++j) {
            const double d = Sep(i, j);
            if (!WithinOrb(d, angle, 2.5f)) continue;
            Line(PlanetName[static_cast<size_t>(i)], verb, PlanetName[static_cast<size_t>(j)]);
            any = true;
        }
    if (any) Blank();
}

void CareerRules::Quintiles() {
    MinorAspectPairs(72.0f, " is quintile ");
}

void CareerRules::Quindeciles() {
    MinorAspectPairs(165.0f, " is quindecile ");
}

void CareerRules::PeregrinePlanets() {
    bool any = false;
    for (int p = 1; p <= 10; ++p) {
        bool aspected = false;
        for (int q = 1; q <= 10 && !aspected; ++q)
            aspected = q != p && MajorAspect(Sep(p, q), orbs_) != 0;
        if (aspected) continue;
        Line(PlanetName[static_cast<size_t>(p)], " is peregrine.");
        any = true;
    }
    if (any) Blank();
}

void CareerRules::MoonHouseAndSign() {
    const std::string house = Trim(std::string_view(c_.PlanetHouse).substr(90, 10));
    Line("The Moon is in the ", house, " - and in the sign (reigning need) of ",
         SignName[static_cast<size_t>(SignOf(c_.NatalLong[Moon]))], ".");
    Blank();
}

void CareerRules::AriesPointBodies() {
    bool any = false;
    for (int k = 1; k <= NumBodies; ++k) {
        if (!AtAriesPoint(c_.NatalLong[static_cast<size_t>(k)])) continue;
        Line(PlanetName[static_cast<size_t>(k)], " is at the Aries Point.");
        any = true;
    }
    if (any) Blank();
}

void CareerRules::MidpointBodies(double midpoint, int leftOutA, int leftOutB,
                                 std::string_view phrase) {
    bool any = false;
    for (int k = 1; k <= 12; ++k) {
        if (k == leftOutA || k == leftOutB) continue;
        if (!MidpointConfigured(Separation(c_.NatalLong[static_cast<size_t>(k)], midpoint)))
            continue;
        Line(PlanetName[static_cast<size_t>(k)], phrase);
        any = true;
    }
    if (any) Blank();
}

void CareerRules::SunMoonMidpointRule() {
    MidpointBodies(c_.SunMoonMid, Sun, Moon, " is configured with the Sun/Moon midpoint.");
}

void CareerRules::JupPlutoMidpointRule() {
    MidpointBodies(c_.JupPlutoMid, Jupiter, Pluto,
                   " is configured with the Jupiter/Pluto midpoint.");
}

template <class Target>
void CareerRules::MidpointPairs(int lastFirst, int lastSecond, int skip, std::string_view prefix,
                                Target separation) {
    for (int i = 1; i <= lastFirst; ++i) {
        if (i == skip) continue;
        for (int j = i + 1; j <= lastSecond; ++j) {
            if (j == skip) continue;
            const double m = Mid(i, j);
            if (!MidpointConfigured(separation(m))) continue;
            Line(prefix, PlanetName[static_cast<size_t>(i)], "/",
                 PlanetName[static_cast<size_t>(j)], " midpoint.");
        }
    }
    Blank();
}

void CareerRules::APMidpoints() {
    MidpointPairs(12, 13, 0, "AP is configured with the ",
                  [](double m) { return m > 180 ? 360 - m : m; });
}

void CareerRules::MCMidpoints() {
    const double mc = c_.CuspTable[1];
    MidpointPairs(11, 12, 0, "MC is configured with the ",
                  [mc](double m) { return Separation(m, mc); });
}

void CareerRules::MercuryMidpoints() {
    const double mercury = c_.NatalLong[Mercury];
    MidpointPairs(12, 13, Mercury, "Mercury is configured with the ",
                  [mercury](double m) { return Separation(m, mercury); });
}

} // namespace kal
