// The constant tables of the chart: body, sign, house and aspect names and
// angles, and the numbering every listing uses. Bodies are numbered 1..13
// (Sun 1, Mercury..Pluto 2..9, Moon 10, mean node 11, Ascendant 12,
// Midheaven 13); signs 1..12 from Aries; cusps by cusp index from the 10th
// house; aspect codes 1..17 with aspect number = code - 1.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kal {

inline constexpr int NumBodies = 13;

enum Body : int {
    Sun = 1,
    Mercury,
    Venus,
    Mars,
    Jupiter,
    Saturn,
    Uranus,
    Neptune,
    Pluto,
    Moon,
    NNode,
    Asc,
    MC
};

// Index 0 of every table is unused so that the documented 1-based numbers
// index directly.
inline const std::array<std::string, 14> PlanetName = {
    "",       "Sun",     "Mercury", "Venus", "Mars",    "Jupiter", "Saturn",
    "Uranus", "Neptune", "Pluto",   "Moon",  "N. Node", "Asc",     "MC "};

inline constexpr std::string_view PlanetNames =
    "Sun       Mercury   Venus     Mars      Jupiter   Saturn    Uranus    Neptune   "
    "Pluto     Moon      N. Node   Asc       MC        ";

inline const std::array<std::string, 15> PlanetName9 = {
    "",          "Sun      ", "Mercury  ", "Venus    ", "Mars     ",
    "Jupiter  ", "Saturn   ", "Uranus   ", "Neptune  ", "Pluto    ",
    "Moon     ", "NN       ", "Ascendant", "",          ""};

// Listing order: the key of interpretation texts and of the aspect grid.
inline const std::array<std::string, 14> PlanetKey = {
    "",       "Sun",    "Moon",    "Mercury", "Venus",  "Mars", "Jupiter",
    "Saturn", "Uranus", "Neptune", "Pluto",   "N_Node", "Asc",  "M_Heaven"};
// Body number at each listing position.
inline constexpr std::array<int, 14> KeyBody = {0, 1, 10, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13};

inline const std::array<std::string, 13> SignName = {
    "",      "Aries",   "Taurus",      "Gemini",    "Cancer",   "Leo",   "Virgo",
    "Libra", "Scorpio", "Sagittarius", "Capricorn", "Aquarius", "Pisces"};

inline constexpr std::string_view SignAbbr = "AriTauGemCanLeoVirLibScoSagCprAquPis";

inline constexpr std::string_view HouseLabels =
    "10TH11TH12TH 1ST 2ND 3RD 4TH 5TH 6TH 7TH 8TH 9TH    ";

inline constexpr std::string_view AspectNames =
    "            conjunct    sextile     square      trine       "
    "opposite    PARALLEL    s.sextile   s.square    ses.square  "
    "quincunx    s.quintile  nonagen     quintile    trecile     "
    "bi-quintile ";

inline constexpr std::array<int, 18> AspectAngle = {0,  0,   0,   60, 90, 120, 180, 0,   30,
                                                    45, 135, 150, 36, 40, 72,  108, 144, 165};

inline constexpr std::array<int, 13> DaysInMonth = {0,  31, 28, 31, 30, 31, 30,
                                                    31, 31, 30, 31, 30, 31};

// Sign 1..12 of a longitude: Int(L / 30) + 1.
int SignOf(double longitude);
// The 3-letter abbreviation of sign s.
std::string_view SignAbbrOf(int sign);
// Field of `PlanetNames` for body b (ten characters).
std::string_view PlanetNamesField(int body);
// The 4-character house label of cusp index k.
std::string_view HouseLabel(int cuspIndex);
// Cusp index of house h, and house of cusp index k.
inline int CuspIndexOfHouse(int house) {
    return ((house + 2) % 12) + 1;
}
inline int HouseOfCuspIndex(int k) {
    return ((k + 8) % 12) + 1;
}
// The 12-character name field of aspect code c (2..16); blanks for code 1.
std::string_view AspectName(int code);

// House systems: the letter passed to the ephemeris and the name in headers.
struct HouseSystemInfo {
    char letter;
    const char* name;
};
// In the order of the Houses menu: Placidus, Regiomontanus, Koch, Campanus,
// Porphyry, Alcabitus, Topocentric.
inline constexpr std::array<HouseSystemInfo, 7> HouseSystems = {{{'P', "Placidus"},
                                                                 {'R', "Regiomontanus"},
                                                                 {'K', "Koch"},
                                                                 {'C', "Campanus"},
                                                                 {'O', "Porphyry"},
                                                                 {'B', "Alcabitus"},
                                                                 {'T', "Topocentric"}}};
// The house system option 27 selects: 1 Placidus .. 7 Topocentric in the
// order above; Placidus for any other value.
char HouseLetterOfOption(float option27);
// The header name of a house-system letter ("Placidus" for an unknown one).
std::string HouseSystemName(char letter);

// The near midpoint of two longitudes (on the shorter arc).
double Midpoint(double a, double b);

} // namespace kal
