#include "wheel/Canvas.h"

#include <array>

#include <algorithm>
#include <cmath>

namespace kal {

double Box::nearestToCentre() const {
    return std::hypot(std::max({left, 0.0, -right}), std::max({bottom, 0.0, -top}));
}

double Box::farthestFromCentre() const {
    return std::hypot(std::max(std::fabs(left), std::fabs(right)),
                      std::max(std::fabs(top), std::fabs(bottom)));
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
