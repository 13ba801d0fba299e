#include "wheel/Canvas.h"

#include <array>

namespace kal {

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
