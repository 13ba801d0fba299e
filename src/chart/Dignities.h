// The essential dignities of the planets by sign: rulers (traditional and
// outer), exaltation, detriment and fall, the triplicity rulers by day and
// by night, the five terms and the three faces of every sign. The cosmic
// state and the career rules both read their rulers here.
#pragma once

#include <array>

#include "chart/Tables.h"

namespace kal {

struct Term {
    int ruler;
    int upTo; // degree within the sign where the term ends (excluded)
};

struct SignDignities {
    int domicile;   // traditional ruler
    int outer;      // Uranus, Neptune or Pluto where the sign has an outer ruler, else 0
    int exaltation; // 0 where no planet is exalted
    int detriment;  // the traditional planet in detriment (ruler of the opposite sign)
    int fall;       // the planet in fall (exalted in the opposite sign), else 0
    int tripDay, tripNight;
    std::array<Term, 5> terms;
    std::array<int, 3> faces; // by decan, in the Chaldean order
};

// Element 0 unused; signs 1..12 from Aries.
// clang-format off
inline constexpr std::array<SignDignities, 13> Dignities = {{
    {0, 0, 0, 0, 0, 0, 0, {}, {}},
    // Aries
    {Mars, 0, Sun, Venus, Saturn, Sun, Jupiter,
     {{{Jupiter, 6}, {Venus, 14}, {Mercury, 21}, {Mars, 26}, {Saturn, 30}}}, {Mars, Sun, Venus}},
    // Taurus
    {Venus, 0, Moon, Mars, 0, Venus, Moon,
     {{{Venus, 8}, {Mercury, 15}, {Jupiter, 22}, {Saturn, 26}, {Mars, 30}}}, {Mercury, Moon, Saturn}},
    // Gemini
    {Mercury, 0, 0, Jupiter, 0, Saturn, Mercury,
     {{{Mercury, 7}, {Jupiter, 14}, {Venus, 21}, {Saturn, 25}, {Mars, 30}}}, {Jupiter, Mars, Sun}},
    // Cancer
    {Moon, 0, Jupiter, Saturn, Mars, Mars, Mars,
     {{{Mars, 6}, {Jupiter, 13}, {Mercury, 20}, {Venus, 27}, {Saturn, 30}}}, {Venus, Mercury, Moon}},
    // Leo
    {Sun, 0, 0, Saturn, 0, Sun, Jupiter,
     {{{Saturn, 6}, {Mercury, 13}, {Venus, 19}, {Jupiter, 25}, {Mars, 30}}}, {Saturn, Jupiter, Mars}},
    // Virgo
    {Mercury, 0, Mercury, Jupiter, Venus, Venus, Moon,
     {{{Mercury, 7}, {Venus, 13}, {Jupiter, 18}, {Saturn, 24}, {Mars, 30}}}, {Sun, Venus, Mercury}},
    // Libra
    {Venus, 0, Saturn, Mars, Sun, Saturn, Mercury,
     {{{Saturn, 6}, {Venus, 11}, {Jupiter, 19}, {Mercury, 24}, {Mars, 30}}}, {Moon, Saturn, Jupiter}},
    // Scorpio
    {Mars, Pluto, 0, Venus, Moon, Mars, Mars,
     {{{Mars, 6}, {Jupiter, 14}, {Venus, 21}, {Mercury, 27}, {Saturn, 30}}}, {Mars, Sun, Venus}},
    // Sagittarius
    {Jupiter, 0, 0, Mercury, 0, Sun, Jupiter,
     {{{Jupiter, 8}, {Venus, 14}, {Mercury, 19}, {Saturn, 25}, {Mars, 30}}}, {Mercury, Moon, Saturn}},
    // Capricorn
    {Saturn, 0, Mars, Moon, Jupiter, Venus, Moon,
     {{{Venus, 6}, {Mercury, 12}, {Jupiter, 19}, {Mars, 25}, {Saturn, 30}}}, {Jupiter, Mars, Sun}},
    // Aquarius
    {Saturn, Uranus, 0, Sun, 0, Saturn, Mercury,
     {{{Saturn, 6}, {Mercury, 12}, {Venus, 20}, {Jupiter, 25}, {Mars, 30}}}, {Venus, Mercury, Moon}},
    // Pisces
    {Jupiter, Neptune, Venus, Mercury, Mercury, Mars, Mars,
     {{{Venus, 8}, {Jupiter, 14}, {Mercury, 20}, {Mars, 26}, {Saturn, 30}}}, {Saturn, Jupiter, Mars}},
}};
// clang-format on

// The traditional ruler of sign 1..12.
int DomicileRuler(int sign);
// The ruler with the outer planets: Pluto for Scorpio, Uranus for Aquarius,
// Neptune for Pisces, otherwise the traditional ruler.
int ModernRuler(int sign);
// The outer ruler of a sign, 0 for the nine signs without one.
int OuterRuler(int sign);
// Whether `body` rules `sign`; with `withOuter` the outer rulers count too.
bool RulesSign(int body, int sign, bool withOuter);
// The planet exalted in a sign, 0 for none.
int ExaltationRuler(int sign);
int TriplicityRuler(int sign, bool dayChart);
// The term and face rulers of a longitude.
int TermRuler(double longitude);
int FaceRuler(double longitude);
// Detriment and fall of a traditional planet at a longitude.
bool InDetriment(int body, double longitude);
bool InFall(int body, double longitude);

} // namespace kal
