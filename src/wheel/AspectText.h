// The text of the aspects window CWAspect: every pair of bodies that forms
// an aspect with the orb file's orbs, from both sides, as glyph codes.
#pragma once

#include <string>
#include <vector>

#include "chart/Aspects.h"
#include "chart/Chart.h"

namespace kal {

// The glyph of a body in the aspects window: 223 + body, the Ascendant 237
// and the Midheaven 238.
int AspectsWindowGlyph(int body);

// The window's lines (glyph-font codes): an empty line, then one line per
// aspect found, "  " first body, " ", symbol, " ", second body (" qd " in
// place of the three middle characters for the 165-degree aspect).
std::vector<std::string> AspectWindowLines(const BodyArray& wheelLong, const OrbTable& wheelOrbs);

} // namespace kal
