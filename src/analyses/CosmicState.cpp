#include "analyses/CosmicState.h"

#include <cmath>
#include <vector>

#include "shell/VbText.h"

namespace kal {

namespace {

// The seven planets in table order.
constexpr std::array<int, 7> kPlanets = {Sun, Moon, Mercury, Venus, Mars, Jupiter, Saturn};
// The same seven in body-number order (the lists below the table).
constexpr std::array<int, 7> kByNumber = {Sun, Mercury, Venus, Mars, Jupiter, Saturn, Moon};

constexpr std::array<int, 13> kDomicile = {0,     Mars, Venus,   Mercury, Moon,   Sun,    Mercury,
                                           Venus, Mars, Jupiter, Saturn,  Saturn, Jupiter};
constexpr std::array<int, 13> kExaltation = {0,      Sun, Moon, 0,    Jupiter, 0,    Mercury,
                                             Saturn, 0,   0,    Mars, 0,       Venus};
constexpr std::array<int, 13> kTripDay = {0,      Sun,  Venus, Saturn, Mars,   Sun, Venus,
                                          Saturn, Mars, Sun,   Venus,  Saturn, Mars};
constexpr std::array<int, 13> kTripNight = {
    0, Jupiter, Moon, Mercury, Mars, Jupiter, Moon, Mercury, Mars, Jupiter, Moon, Mercury, Mars};

struct Term {
    int ruler;
    int upTo; // degrees of longitude, excluded
};
// Five terms per sign, Aries first.
constexpr std::array<std::array<Term, 5>, 12> kTerms = {{
    {{{Jupiter, 6}, {Venus, 14}, {Mercury, 21}, {Mars, 26}, {Saturn, 30}}},
    {{{Venus, 38}, {Mercury, 45}, {Jupiter, 52}, {Saturn, 56}, {Mars, 60}}},
    {{{Mercury, 67}, {Jupiter, 74}, {Venus, 81}, {Saturn, 85}, {Mars, 90}}},
    {{{Mars, 96}, {Jupiter, 103}, {Mercury, 110}, {Venus, 117}, {Saturn, 120}}},
    {{{Saturn, 126}, {Mercury, 133}, {Venus, 139}, {Jupiter, 145}, {Mars, 150}}},
    {{{Mercury, 157}, {Venus, 163}, {Jupiter, 168}, {Saturn, 174}, {Mars, 180}}},
    {{{Saturn, 186}, {Venus, 191}, {Jupiter, 199}, {Mercury, 204}, {Mars, 210}}},
    {{{Mars, 216}, {Jupiter, 224}, {Venus, 231}, {Mercury, 237}, {Saturn, 240}}},
    {{{Jupiter, 248}, {Venus, 254}, {Mercury, 259}, {Saturn, 265}, {Mars, 270}}},
    {{{Venus, 276}, {Mercury, 282}, {Jupiter, 289}, {Mars, 295}, {Saturn, 300}}},
    {{{Saturn, 306}, {Mercury, 312}, {Venus, 320}, {Jupiter, 325}, {Mars, 330}}},
    {{{Venus, 338}, {Jupiter, 344}, {Mercury, 350}, {Mars, 356}, {Saturn, 360}}},
}};

// Faces in the Chaldean order, ten degrees each, repeating every 70.
constexpr std::array<int, 7> kFaces = {Mars, Sun, Venus, Mercury, Moon, Saturn, Jupiter};

bool InRange(double L, double from, double to) {
    return L >= from && L < to;
}

int SignOfLong(double L) {
    return static_cast<int>(std::floor(L / 30)) + 1;
}

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

// Domiciles by the traditional rulers; with the modern planets when asked.
bool IsDomicile(int body, int sign, bool modern) {
    switch (body) {
    case Sun:
        return sign == 5;
    case Moon:
        return sign == 4;
    case Mercury:
        return sign == 3 || sign == 6;
    case Venus:
        return sign == 2 || sign == 7;
    case Mars:
        return sign == 1 || sign == 8;
    case Jupiter:
        return sign == 9 || sign == 12;
    case Saturn:
        return sign == 10 || sign == 11;
    case Uranus:
        return modern && sign == 11;
    case Neptune:
        return modern && sign == 12;
    case Pluto:
        return modern && sign == 8;
    default:
        return false;
    }
}

int ExaltationSign(int body) {
    switch (body) {
    case Sun:
        return 1;
    case Moon:
        return 2;
    case Mercury:
        return 6;
    case Venus:
        return 12;
    case Mars:
        return 10;
    case Jupiter:
        return 4;
    case Saturn:
        return 7;
    default:
        return 0;
    }
}

// Three blanks before a value below 10, two below 100, one below 1000;
// negative values two blanks above -10, one above -100.
std::string StrengthField(double v) {
    int pad;
    if (v >= 0)
        pad = v < 10 ? 3 : v < 100 ? 2 : v < 1000 ? 1 : 0;
    else
        pad = v > -10 ? 2 : v > -100 ? 1 : 0;
    return std::string(static_cast<size_t>(pad), ' ') + FormatNumber(v, "##0");
}

// One row of the table and the points it gives.
class RowBuilder {
  public:
    RowBuilder(CosmicStateScores& s, int planet) : s_(s), planet_(planet) {}
    // A ruler entry: the ruler's 9-character name and a blank; the column's
    // points when the planet rules its own position.
    void Ruler(int body, int points) {
        line += PlanetName9[static_cast<size_t>(body)] + " ";
        if (body == planet_) {
            s_.HasDignity[static_cast<size_t>(planet_)] = 1;
            s_.Strength[static_cast<size_t>(planet_)] += points;
        }
    }
    std::string line;

  private:
    CosmicStateScores& s_;
    int planet_;
};

} // namespace

int DomicileRuler(int sign) {
    return kDomicile.at(static_cast<size_t>(sign));
}
int ExaltationRuler(int sign) {
    return kExaltation.at(static_cast<size_t>(sign));
}
int TriplicityRuler(int sign, bool day) {
    return (day ? kTripDay : kTripNight).at(static_cast<size_t>(sign));
}

int TermRuler(double L) {
    const auto& terms = kTerms.at(static_cast<size_t>(SignOfLong(L) - 1));
    for (const auto& t : terms)
        if (L < t.upTo) return t.ruler;
    return terms.back().ruler;
}

int FaceRuler(double L) {
    double x = L;
    while (x >= 70) x -= 70;
    return kFaces.at(static_cast<size_t>(std::floor(x / 10)));
}

std::string SpeedClass(int body, double speed) {
    const double v = std::fabs(speed);
    if (v < 0.00833333) return "stat";
    const double mean = MeanMotion(body);
    if (v > mean) return "FAST";
    if (v < mean) return "SLOW";
    return "AVG.";
}

bool InDetriment(int body, double L) {
    switch (body) {
    case Sun:
        return InRange(L, 300, 330);
    case Moon:
        return InRange(L, 270, 300);
    case Mercury:
        return InRange(L, 240, 270) || InRange(L, 330, 360);
    case Venus:
        return InRange(L, 0, 30) || InRange(L, 210, 240);
    case Mars:
        return InRange(L, 30, 60) || InRange(L, 180, 210);
    case Jupiter:
        return InRange(L, 60, 90) || InRange(L, 150, 180);
    case Saturn:
        return InRange(L, 90, 150);
    default:
        return false;
    }
}

bool InFall(int body, double L) {
    switch (body) {
    case Sun:
        return InRange(L, 180, 210);
    case Moon:
        return InRange(L, 210, 240);
    case Mercury:
        return InRange(L, 330, 360);
    case Venus:
        return InRange(L, 150, 180);
    case Mars:
        return InRange(L, 90, 120);
    case Jupiter:
        return InRange(L, 270, 300);
    case Saturn:
        return InRange(L, 0, 30);
    default:
        return false;
    }
}

CosmicStateScores ListCosmicState(const Chart& c, const Options& opt, OutputBuffer& out) {
    CosmicStateScores s;
    std::vector<std::string> lines;
    out.AppendBlankLine();

    const std::string b4(4, ' '), b5(5, ' '), b6(6, ' ');
    lines.push_back("  Planet" + b4 + "Sign" + b6 + "Exlt." + b5 + "Trip." + b5 + "Term" + b6 +
                    "Face" + b6 + "Speed" + b6 + "Rate" + "   " + "Strength");
    lines.push_back(
        "  ------    ----      -----     -----     ----      ----      -----      ----   --------");

    const bool dayChart = c.HouseNumberOf(Sun) > 6;
    auto L = [&](int body) { return c.NatalLong[static_cast<size_t>(body)]; };
    auto sign = [&](int body) { return SignOfLong(L(body)); };
    auto add = [&](int body, double points) { s.Strength[static_cast<size_t>(body)] += points; };

    for (int p : kPlanets) {
        const double lon = L(p);
        const int sg = sign(p);
        RowBuilder row(s, p);
        row.line = "  " + PlanetName9[static_cast<size_t>(p)] + " ";
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
        row.line += cls + " " + retro + (p == Moon ? "   " : "    ");
        const double whole = std::floor(speed);
        row.line += StrText(whole) + "d " +
                    FormatNumber(std::floor((speed - whole) * 60 + 0.5), "00") + "m";

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

        lines.push_back(row.line);
    }
    lines.emplace_back();

    std::string peregrine = "  Peregrine - ";
    for (int p : kByNumber)
        if (s.HasDignity[static_cast<size_t>(p)] == 0) {
            peregrine += PlanetName[static_cast<size_t>(p)] + " ";
            add(p, opt[5]);
        }
    lines.push_back(peregrine);

    std::string detriment = "  Detriment - ";
    for (int p : kPlanets)
        if (InDetriment(p, L(p))) {
            detriment += PlanetName[static_cast<size_t>(p)] + " ";
            add(p, -5);
        }
    lines.push_back(detriment);

    std::string fall = "  Fall - ";
    for (int p : kPlanets)
        if (InFall(p, L(p))) {
            fall += PlanetName[static_cast<size_t>(p)] + " ";
            add(p, -4);
        }
    lines.push_back(fall);

    // The four reception passes. `ruler` gives R for p (0 for none),
    // `receives` whether R's sign t counts for p.
    auto pass = [&](const std::string& heading, bool allTen, bool lowerFirst, double points,
                    auto ruler, auto receives) {
        std::string line;
        for (int p = 1; p <= 10; ++p) {
            if (!allTen && p >= Uranus && p <= Pluto) continue;
            const int r = ruler(p);
            if (r == 0) continue;
            if (lowerFirst && r <= p) continue;
            if (!receives(p, sign(r))) continue;
            if (line.empty()) line = "  " + heading;
            line += PlanetName[static_cast<size_t>(p)] + "-" + PlanetName[static_cast<size_t>(r)] +
                    "   ";
            add(p, points);
            add(r, points);
        }
        if (!line.empty()) lines.push_back(line);
    };
    auto domicile = [&](int p) { return DomicileRuler(sign(p)); };
    auto exaltation = [&](int p) { return ExaltationRuler(sign(p)); };
    auto modernRuler = [&](int p) {
        switch (sign(p)) {
        case 8:
            return static_cast<int>(Pluto);
        case 11:
            return static_cast<int>(Uranus);
        case 12:
            return static_cast<int>(Neptune);
        default:
            return 0;
        }
    };
    auto inDomicile = [](int p, int t) { return IsDomicile(p, t, false); };
    auto inModernDomicile = [](int p, int t) { return IsDomicile(p, t, true); };
    auto inExaltation = [](int p, int t) { return ExaltationSign(p) == t; };

    pass("Mutual Reception (by sign) - ", false, true, 5, domicile, inDomicile);
    pass("Mutual Reception (by sign) - ", true, true, 0, modernRuler, inModernDomicile);
    pass("Mutual Reception (by exaltation) - ", false, true, 4, exaltation, inExaltation);
    pass("Mixed Reception (sign/exaltation) - ", false, false, 0, exaltation, inDomicile);

    for (size_t i = 0; i < lines.size(); ++i) {
        std::string line = lines[i];
        if (i >= 2 && i <= 8)
            line += "   " + StrengthField(s.Strength[static_cast<size_t>(kPlanets[i - 2])]);
        out.Append(line);
    }
    return s;
}

} // namespace kal
