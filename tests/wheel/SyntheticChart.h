// Wheel charts with chosen positions: equal houses from an Ascendant and the
// bodies where a test puts them (the others spread out of the way).
#pragma once

#include <cmath>
#include <initializer_list>
#include <utility>

#include "wheel/WheelGeometry.h"

namespace kal::test {

inline WheelChart EqualHouseWheel(double asc,
                                  std::initializer_list<std::pair<int, double>> bodies = {}) {
    WheelChart w;
    for (int h = 1; h <= 12; ++h)
        w.WheelCusp[static_cast<size_t>(CuspIndexOfHouse(h))] = Norm360(asc + 30.0 * (h - 1));
    // Bodies 1..11 a house apart unless placed.
    for (int b = 1; b <= 11; ++b)
        w.WheelLong[static_cast<size_t>(b)] = Norm360(asc + 15 + 30.0 * b);
    for (auto [b, lon] : bodies) w.WheelLong[static_cast<size_t>(b)] = lon;
    w.WheelLong[Asc] = asc;
    w.WheelLong[MC] = w.Cusp(10);
    for (int b = 1; b <= NumBodies; ++b)
        w.House[static_cast<size_t>(b)] =
            1 + static_cast<int>(Norm360(w.WheelLong[static_cast<size_t>(b)] - asc) / 30);
    return w;
}

} // namespace kal::test
