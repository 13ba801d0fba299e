// Where the planet glyphs go. American style: each house sector offers seven
// fixed slots 4 degrees apart; a body takes the slot its distance into the
// house points to, pulled back so that the bodies after it still fit, and
// moved on past slots already taken. European style: each glyph sits at its
// true angle from the Descendant, pushed on when it would come within 4
// degrees of the glyph before it or run past the next house cusp.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "wheel/WheelGeometry.h"
#include "wheel/WheelTables.h"

namespace kal {

inline constexpr int SlotsPerHouse = 7;
inline constexpr double SlotSpacing = 4; // degrees between slots and European glyphs

// The angle of slot 0 of each house in the American style (index 1..12).
inline constexpr std::array<double, 13> FirstSlotAngle = {0, 180, 209, 240, 272, 304, 335,
                                                          4, 34,  65,  95,  124, 153};

struct GlyphPlace {
    int body = 0;
    int house = 0;
    int k = 0;             // the body's index within its house, from 1, in increasing longitude
    int slot = 0;          // slot of the slot map (both styles)
    double theta = 0;      // wheel angle of the glyph, [0, 360)
    double glyphAngle = 0; // the angle the aspect lines aim at
    double radius = 0;     // GlyphRadius of the rounded angle
};

// The bodies in decreasing longitude (equal longitudes keep their order),
// rotated so that the first and last entries lie in different houses: a
// house that spans 0 degrees Aries is walked in one run.
std::vector<int> SortedBodies(const WheelChart& w);

// Whether a house line would run through the glyph or label column of a
// body placed so.
using CrossedByHouseLine = std::function<bool(const GlyphPlace&)>;

// Places every body but the Ascendant, in the order the glyphs are drawn
// (increasing longitude from the start of the rotated table). With
// `crossed` given, a glyph whose column a house line would run through is
// moved on, a quarter degree at a time, into its own house (back from the
// next house's line when it stands just before it) until the line passes
// clear, keeping 4 degrees from the glyphs already placed and its middle
// inside its house; it stays where it was when neither way has such a
// place.
std::vector<GlyphPlace> PlaceGlyphs(const WheelChart& w, ChartStyle type,
                                    const std::array<double, 13>& houseWidth,
                                    const WheelTables& tables,
                                    const CrossedByHouseLine& crossed = {});

// The glyph angle kept for the aspect lines: θ corrected by range for the
// glyph's box hanging right of and below its print position.
double GlyphLineAngle(double theta);

// Whether a label column reads outward-first (glyph, degrees, sign, minutes
// from the rim towards the centre) rather than minutes-units-first.
// `option28` 1 moves the American boundary to houses 3 and 8.
bool ColumnReadsOutwardFirst(double theta, ChartStyle type, int house, float option28);

} // namespace kal
