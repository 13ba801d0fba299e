#include "analyses/CosmicState.h"

#include <cmath>
#include <vector>

#include "base/VbText.h"
#include "chart/Dignities.h"

namespace kal {

namespace {

// The seven planets in table order.
constexpr std::array<int, 7> kPlanets = {Sun, Moon, Mercury, Venus, Mars, Jupiter, Saturn};
// The same seven in body-number order (the lists below the table).
constexpr std::array<int, 7> kByNumber = {Sun, Mercury, Venus, Mars, Jupiter, Saturn, Moon};

double MeanMotion(int body) {
    switch (body) {
    case Mars:
        return 0.524344;
    case Jupiter:
        return 0.083251;
    case Saturn:
        return 0.033697;
    case Moon:
        return 13.176541;
    default:
        return 0.9856103; // Sun, Mercury, Venus
    }
}

// Three blanks before a value below 10, two below 100, one below 1000;
// negative values two blanks above -10, one above -100.
void AppendStrengthField(std::string& out, double v) {
    int pad;
    if (v >= 0)
        pad = v < 10 ? 3 : v < 100 ? 2 : v < 1000 ? 1 : 0;
    else
        pad = v > -10 ? 2 : v > -100 ? 1 : 0;
    out.append(static_cast<size_t>(pad), ' ');
    AppendNumber(out, v, "##0");
}

// One row of the table and the points it gives.
class RowBuilder {
  public:
    RowBuilder(CosmicStateScores& s, int planet, std::string& line)
        : line(line), s_(s), planet_(planet) {}
    // A ruler entry: the ruler's 9-character name and a blank; the column's
    // points when the planet rules its own position.
    void Ruler(int body, int points) {
        line += PlanetName9[static_cast<size_t>(body)];
        line += ' ';
        if (body == planet_) {
            s_.HasDignity[static_cast<size_t>(planet_)] = 1;
            s_.Strength[static_cast<size_t>(planet_)] += points;
        }
    }
    std::string& line;

  private:
    CosmicStateScores& s_;
    int planet_;
};

} // namespace

std::string SpeedClass(int body, double speed) {
    const double v = std::fabs(speed);
    if (v < 0.00833333) return "stat";
    const double mean = MeanMotion(body);
    if (v > mean) return "FAST";
    if (v < mean) return "SLOW";
    return "AVG.";
}

CosmicStateScores ListCosmicState(const Chart& c, const Options& opt, OutputBuffer& out) {
    CosmicStateScores s;
    // The lines wait for the strengths, which are known only at the end;
    // their storage is kept from one chart to the next.
    thread_local LineList lines;
    lines.Clear(32);
    out.AppendBlankLine();

    lines.AddEmpty() =
        "  Planet    Sign      Exlt.     Trip.     Term      Face      Speed      Rate   Strength";
    lines.AddEmpty() =
        "  ------    ----      -----     -----     ----      ----      -----      ----   --------";

    const bool dayChart = c.HouseNumberOf(Sun) > 6;
    auto L = [&](int body) { return c.NatalLong[static_cast<size_t>(body)]; };
    auto sign = [&](int body) { return SignOf(L(body)); };
    auto add = [&](int body, double points) { s.Strength[static_cast<size_t>(body)] += points; };

    for (int p : kPlanets) {
        const double lon = L(p);
        const int sg = sign(p);
        RowBuilder row(s, p, lines.AddEmpty());
        row.line += "  ";
        row.line += PlanetName9[static_cast<size_t>(p)];
        row.line += ' ';
        row.Ruler(DomicileRuler(sg), 5);
        if (int ex = ExaltationRuler(sg))
            row.Ruler(ex, 4);
        else
            row.line += " ---      ";
        row.Ruler(TriplicityRuler(sg, dayChart), 3);
        row.Ruler(TermRuler(lon), 2);
        row.Ruler(FaceRuler(lon), 1);

        const double speed = c.NatalSpeed[static_cast<size_t>(p)];
        const std::string cls = SpeedClass(p, speed);
        const char retro = c.NatalRetro.at(static_cast<size_t>(p - 1));
        row.line += cls;
        row.line += ' ';
        row.line += retro;
        row.line += p == Moon ? "   " : "    ";
        const double whole = std::floor(speed);
        row.line += StrText(whole);
        row.line += "d ";
        AppendNumber(row.line, std::floor((speed - whole) * 60 + 0.5), "00");
        row.line += 'm';

        if (retro == 'R') {
            add(p, opt[7]);
        } else {
            if (p >= Mercury && p <= Saturn) add(p, opt[6]);
            if (cls == "FAST") add(p, opt[8]);
            if (cls == "SLOW" || cls == "stat") add(p, opt[9]);
        }

        double d = L(Sun) - lon;
        if (d < 0) d += 360;
        const bool oriental = !(d > 180);
        if (p == Mercury || p == Venus)
            add(p, oriental ? opt[1] : opt[2]);
        else if (p == Mars || p == Jupiter || p == Saturn)
            add(p, oriental ? opt[3] : opt[4]);
        else if (p == Moon)
            add(p, oriental ? opt[11] : opt[10]);
    }
    lines.AddEmpty();

    std::string& peregrine = lines.AddEmpty();
    peregrine += "  Peregrine - ";
    for (int p : kByNumber)
        if (s.HasDignity[static_cast<size_t>(p)] == 0) {
            peregrine += PlanetName[static_cast<size_t>(p)];
            peregrine += ' ';
            add(p, opt[5]);
        }

    std::string& detriment = lines.AddEmpty();
    detriment += "  Detriment - ";
    for (int p : kPlanets)
        if (InDetriment(p, L(p))) {
            detriment += PlanetName[static_cast<size_t>(p)];
            detriment += ' ';
            add(p, -5);
        }

    std::string& fall = lines.AddEmpty();
    fall += "  Fall - ";
    for (int p : kPlanets)
        if (InFall(p, L(p))) {
            fall += PlanetName[static_cast<size_t>(p)];
            fall += ' ';
            add(p, -4);
        }

    // The four reception passes. `ruler` gives R for p (0 for none),
    // `receives` whether R's sign t counts for p.
    auto pass = [&](std::string_view heading, bool allTen, bool lowerFirst, double points,
                    auto ruler, auto receives) {
        std::string& line = lines.AddEmpty();
        for (int p = 1; p <= 10; ++p) {
            if (!allTen && p >= Uranus && p <= Pluto) continue;
            const int r = ruler(p);
            if (r == 0) continue;
            if (lowerFirst && r <= p) continue;
            if (!receives(p, sign(r))) continue;
            if (line.empty()) (line += "  ") += heading;
            line += PlanetName[static_cast<size_t>(p)];
            line += '-';
            line += PlanetName[static_cast<size_t>(r)];
            line += "   ";
            add(p, points);
            add(r, points);
        }
        if (line.empty()) lines.RemoveLast();
    };
    auto domicile = [&](int p) { return DomicileRuler(sign(p)); };
    auto exaltation = [&](int p) { return ExaltationRuler(sign(p)); };
    auto outerRuler = [&](int p) { return OuterRuler(sign(p)); };
    auto inDomicile = [](int p, int t) { return RulesSign(p, t, false); };
    auto inModernDomicile = [](int p, int t) { return RulesSign(p, t, true); };
    auto inExaltation = [](int p, int t) { return ExaltationRuler(t) == p; };

    pass("Mutual Reception (by sign) - ", false, true, 5, domicile, inDomicile);
    pass("Mutual Reception (by sign) - ", true, true, 0, outerRuler, inModernDomicile);
    pass("Mutual Reception (by exaltation) - ", false, true, 4, exaltation, inExaltation);
    pass("Mixed Reception (sign/exaltation) - ", false, false, 0, exaltation, inDomicile);

    for (size_t i = 0; i < lines.size(); ++i) {
        std::string& line = lines[i];
        if (i >= 2 && i <= 8) {
            line += "   ";
            AppendStrengthField(line, s.Strength[static_cast<size_t>(kPlanets[i - 2])]);
        }
        out.AppendJoined(line);
    }
    return s;
}

} // namespace kal
