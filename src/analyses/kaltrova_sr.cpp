// The career listing's shared tests and its first group of rules: the sign
// on the MC, the focus planet's aspects, planets conjunct the MC, final
// dispositors, mutual receptions, the oriental planet and stelliums.
#include "analyses/kaltrova_sr.h"

#include <array>
#include <utility>

#include "chart/Dignities.h"

namespace kal {

bool IndicatesSeveralCareers(int sign) {
    return sign == 3 || sign == 9 || sign == 12;
}

int MajorAspect(double sep, const OrbTable& orbs) {
    const float d = static_cast<float>(sep);
    if (d <= orbs[1]) return 1;
    if (WithinOrb(sep, 60.0f, orbs[2])) return 2;
    if (WithinOrb(sep, 90.0f, orbs[3])) return 3;
    if (WithinOrb(sep, 120.0f, orbs[4])) return 4;
    if (d >= 180.0f - orbs[5]) return 5;
    return 0;
}

bool AtAriesPoint(double L) {
    return L <= 1.5 || (L >= 88.5 && L < 91.5) || (L >= 178.5 && L < 181.5) ||
           (L >= 268.5 && L < 271.5) || L >= 358.5;
}

CareerRules::CareerRules(const Chart& chart, const OrbTable& careerOrbs, short& focusPlanet,
                         OutputBuffer& out)
    : FocusPlanet(focusPlanet), c_(chart), orbs_(careerOrbs), out_(out) {
    for (size_t i = 1; i <= 13; ++i)
        for (size_t j = i + 1; j <= 13; ++j) {
            sep_[i][j] = sep_[j][i] = Separation(c_.NatalLong[i], c_.NatalLong[j]);
            mid_[i][j] = Midpoint(c_.NatalLong[i], c_.NatalLong[j]);
        }
}

void CareerRules::Blank() {
    out_.AppendBlankLine();
}

void CareerRules::RulerLines(int sign, std::string_view phrase) {
    FocusPlanet = static_cast<short>(ModernRuler(sign));
    Line(SignName[static_cast<size_t>(sign)], phrase, PlanetName[static_cast<size_t>(FocusPlanet)]);
    if (IndicatesSeveralCareers(sign)) Line("(possibly more than 1 kaltrova indicated)");
    Blank();
}

void CareerRules::MCSignAndRuler() {
    RulerLines(SignOf(c_.CuspTable[1]), " is the sign on the MC and its ruler is ");
}

void CareerRules::FocusAspects() {
    static const std::array<const char*, 6> verbs = {"",          " is conjunct ", " sextiles ",
                                                     " squares ", " trines ",      " opposes "};
    const int f = FocusPlanet;
    bool any = false;
    for (int k = 1; k <= 10; ++k) {
        if (k == f) continue;
        const int a = MajorAspect(Sep(f, k), orbs_);
        if (a == 0) continue;
        Line(PlanetName[static_cast<size_t>(f)], verbs[static_cast<size_t>(a)],
             PlanetName[static_cast<size_t>(k)], ".");
        any = true;
    }
    if (any) Blank();
}

void CareerRules::PlanetsConjunctMC() {
    for (int k = 1; k <= 10; ++k) {
        const float d =
            static_cast<float>(Separation(c_.NatalLong[static_cast<size_t>(k)], c_.CuspTable[1]));
        if (d > 5.0f) continue;
        Line(PlanetName[static_cast<size_t>(k)], " is prominent because it is conjunct the MC.");
        Blank();
        FocusPlanet = static_cast<short>(k);
        FocusAspects();
    }
}

void CareerRules::FinalDispositors() {
    bool any = false;
    for (int k = 1; k <= 10; ++k) {
        if (ModernRuler(SignOf(c_.NatalLong[static_cast<size_t>(k)])) != k) continue;
        const std::string name = PlanetName[static_cast<size_t>(k)];
        Line((k == Sun || k == Moon ? "The " + name : name) +
             " is in its own sign and is a final dispositor.");
        any = true;
    }
    if (any) Blank();
}

int CareerRules::CareerAspectCode(int a, int b) {
    const OrbTable& o = orbs_;
    const double sep = Sep(a, b);
    if (static_cast<float>(sep) <= o[1]) return 1;
    if (WithinOrb(sep, 60.0f, o[2])) return 2;
    if (WithinOrb(sep, 72.0f, o[13])) return 13;
    if (WithinOrb(sep, 90.0f, o[3])) return 3;
    if (WithinOrb(sep, 120.0f, o[4])) return 4;
    if (WithinOrb(sep, 165.0f, o[16])) return 16;
    if (static_cast<float>(sep) >= 180.0f - o[5]) return 5;
    return 0;
}

void CareerRules::MutualReceptions() {
    bool any = false;
    for (int i = 1; i <= 10; ++i) {
        const int r = ModernRuler(SignOf(c_.NatalLong[static_cast<size_t>(i)]));
        if (r <= i || ModernRuler(SignOf(c_.NatalLong[static_cast<size_t>(r)])) != i) continue;
        const int n = CareerAspectCode(i, r);
        const std::string clause =
            n < 1 ? " - no aspect between them."
                  : " - these planets are in aspect (" + std::to_string(n) + ").";
        Line(PlanetName[static_cast<size_t>(i)], " is in mutual reception with ",
             PlanetName[static_cast<size_t>(r)], clause);
        any = true;
    }
    if (any) Blank();
}

void CareerRules::OrientalPlanet() {
    // Positions 1..10 sorted by descending longitude; position 11 repeats
    // position 1 so that the body after the lowest is the highest.
    std::array<std::pair<double, int>, 12> list{};
    for (int k = 1; k <= 10; ++k)
        list[static_cast<size_t>(k)] = {c_.NatalLong[static_cast<size_t>(k)], k};
    for (size_t i = 1; i <= 9; ++i)
        for (size_t j = i + 1; j <= 10; ++j)
            if (list[j].first > list[i].first) std::swap(list[i], list[j]);
    list[11] = list[1];
    size_t p = 1;
    while (p <= 10 && list[p].second != Sun) ++p;
    Line(PlanetName[static_cast<size_t>(list[p + 1].second)], " is the oriental planet.");
    Blank();
}

void CareerRules::Stelliums() {
    std::array<int, 13> count{};
    for (int k = 1; k <= 10; ++k) {
        const int h = c_.HouseNumberOf(k);
        if (h >= 1 && h <= 12) ++count[static_cast<size_t>(h)];
    }
    bool any = false;
    for (int h = 1; h <= 12; ++h) {
        if (count[static_cast<size_t>(h)] < 4) continue;
        Line("House ", std::to_string(h), " contains a stellium of planets.");
        any = true;
    }
    if (any) Blank();
}

void CareerRules::DispositorLines() {
    for (int k = 1; k <= 10; ++k)
        Line(PlanetName[static_cast<size_t>(k)], " is disposited by ",
             PlanetName[static_cast<size_t>(
                 ModernRuler(SignOf(c_.NatalLong[static_cast<size_t>(k)])))],
             ".");
}

Messages ListCareerFactors(const Chart& chart, const std::filesystem::path& appPath,
                           OrbTables& orbs, short& focusPlanet, OutputBuffer& out) {
    if (auto refused = LoadCareerOrbs(appPath, orbs)) return {*refused};
    CareerRules r(chart, orbs.CareerOrbs, focusPlanet, out);
    out.AppendBlankLine();
    r.MCSignAndRuler();
    r.FocusAspects();
    r.InterceptedTenth();
    r.PlanetsConjunctMC();
    r.MCAspects();
    r.FinalDispositors();
    r.MutualReceptions();
    r.OrientalPlanet();
    r.Quintiles();
    r.Quindeciles();
    r.PeregrinePlanets();
    r.MoonHouseAndSign();
    r.AriesPointBodies();
    r.Stelliums();
    r.SunMoonMidpointRule();
    r.JupPlutoMidpointRule();
    r.DispositorLines();
    out.AppendBlankLine();
    r.APMidpoints();
    r.MCMidpoints();
    r.MercuryMidpoints();
    return {};
}

} // namespace kal
