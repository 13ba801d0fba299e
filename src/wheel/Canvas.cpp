#include "wheel/Canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kal {

double Box::nearestToCentre() const {
    return std::hypot(std::max({left, 0.0, -right}), std::max({bottom, 0.0, -top}));
}

double Box::farthestFromCentre() const {
    return std::hypot(std::max(std::fabs(left), std::fabs(right)),
                      std::max(std::fabs(top), std::fabs(bottom)));
}

std::optional<std::pair<double, double>> Box::clip(double x1, double y1, double x2, double y2,
                                                   double margin) const {
    // Clip the segment's parameter range [0, 1] to each pair of sides.
    double lo = 0, hi = 1;
    auto clipTo = [&](double from, double delta, double min, double max) {
        if (delta == 0) return from > min && from < max;
        double a = (min - from) / delta, b = (max - from) / delta;
        if (a > b) std::swap(a, b);
        lo = std::max(lo, a);
        hi = std::min(hi, b);
        return lo < hi;
    };
    if (clipTo(x1, x2 - x1, left + margin, right - margin) &&
        clipTo(y1, y2 - y1, bottom + margin, top - margin))
        return std::pair{lo, hi};
    return std::nullopt;
}

Rgb PaletteColour(int n) {
    static constexpr std::array<Rgb, 16> palette = {{{0, 0, 0},
                                                     {0, 0, 128},
                                                     {0, 128, 0},
                                                     {0, 128, 128},
                                                     {128, 0, 0},
                                                     {128, 0, 128},
                                                     {128, 128, 0},
                                                     {192, 192, 192},
                                                     {128, 128, 128},
                                                     {0, 0, 255},
                                                     {0, 255, 0},
                                                     {0, 255, 255},
                                                     {255, 0, 0},
                                                     {255, 0, 255},
                                                     {255, 255, 0},
                                                     {255, 255, 255}}};
    return palette[static_cast<size_t>(((n % 16) + 16) % 16)];
}

} // namespace kal
