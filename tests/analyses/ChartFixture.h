// Charts with chosen positions for the listing tests, and the career orb file
// they are read with.
#pragma once

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/OutputBuffer.h"
#include "chart/Calc.h"
#include "chart/Chart.h"

namespace kal::test {

// Positions by body number 1..11 and cusps by house number 1..12; the
// Ascendant and the Midheaven are the cusps of houses 1 and 10.
struct ChartLayout {
    std::array<double, 12> lon{};
    std::array<double, 12> speed{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    std::array<double, 13> cusp{};

    // Equal houses of 30 degrees from the Ascendant.
    ChartLayout& EqualHouses(double asc) {
        for (size_t h = 1; h <= 12; ++h) cusp[h] = std::fmod(asc + 30.0 * (h - 1), 360.0);
        return *this;
    }

    Chart Build() const {
        Chart c;
        for (int h = 1; h <= 12; ++h)
            c.NatalCusp[static_cast<size_t>(CuspIndexOfHouse(h))] = cusp[static_cast<size_t>(h)];
        c.NatalRetro = std::string(NumBodies, ' ');
        for (size_t b = 1; b <= 11; ++b) {
            c.NatalLong[b] = lon[b];
            c.NatalSpeed[b] = speed[b];
            if (speed[b] < 0) c.NatalRetro[b - 1] = 'R';
        }
        c.NatalLong[Asc] = cusp[1];
        c.NatalLong[MC] = cusp[10];
        c.CuspTable = c.NatalCusp;
        c.PlanetLong = c.NatalLong;
        c.PlanetSpeed = c.NatalSpeed;
        c.RetroFlags = c.NatalRetro;
        FindPlanetHouses(c);
        c.SunMoonMid = Midpoint(c.NatalLong[Moon], c.NatalLong[Sun]);
        c.JupPlutoMid = Midpoint(c.NatalLong[Pluto], c.NatalLong[Jupiter]);
        return c;
    }
};

// The lines a listing appended (without the buffer's spare element).
inline std::vector<std::string> Lines(const OutputBuffer& out) {
    return {out.PageLines.begin(), out.PageLines.end() - 1};
}

// A career orb file: conjunction 6, sextile 4, square, trine and opposition
// 6, quintile 1.5 and the 165-degree aspect 1.
inline std::string CareerOrbFile(const std::string& square = "6.0",
                                 const std::string& opposition = "6.0") {
    return "6.0    conjunct\r\n4.0    sextile\r\n" + square + "    square\r\n6.0    trine\r\n" +
           opposition +
           "    opposite\r\n1.0    PARALLEL\r\n1.5\r\n1.5\r\n1.5\r\n2.0\r\n1.0\r\n1.0\r\n1.5    "
           "quintile\r\n1.0\r\n1.5\r\n1.0    165 degrees\r\n";
}

} // namespace kal::test
