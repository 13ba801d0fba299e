// Metrics of the wheel's two faces as the Qt adapter measures them, recorded
// from the shipped glyph font and the installed "MS Sans Serif" substitute
// (tools/wheel/record_wheel_metrics): line metrics and, for every character
// code 0..255, the advance and the ink box. Units are ems; ink boxes have y
// upward from the baseline. They let the core measure and check a wheel
// without Qt: the recording canvas of the tests and the table generator.
#pragma once

#include <array>

#include "wheel/Canvas.h"

namespace kal {

struct GlyphMetrics {
    bool present = false;
    float advance = 0;
    float xMin = 0, yMin = 0, xMax = 0, yMax = 0;
};

struct FaceMetrics {
    float ascent = 0, descent = 0;
    std::array<GlyphMetrics, 256> glyphs{};
};

// The metrics of a face (glyph font codes; sans by Latin-1 code point).
const FaceMetrics& WheelFaceMetrics(Face face, bool bold);

} // namespace kal
