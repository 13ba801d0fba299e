#include "wheel/Placement.h"

#include <algorithm>
#include <cmath>

namespace kal {

namespace {

constexpr size_t SlotMapSize = 201;

size_t Cell(int house, int slot) {
    int cell = (house - 1) * SlotsPerHouse + slot;
    return static_cast<size_t>(std::clamp(cell, 0, static_cast<int>(SlotMapSize) - 1));
}

// Whether an angle lies less than the glyph spacing from a placed glyph.
bool TooNear(const std::vector<GlyphPlace>& places, double theta) {
    for (const GlyphPlace& p : places) {
        double d = std::fabs(theta - p.theta);
        if (std::min(d, 360 - d) < SlotSpacing - 1e-9) return true;
    }
    return false;
}

} // namespace

std::vector<int> SortedBodies(const WheelChart& w) {
    std::vector<int> bodies;
    for (int b = 1; b <= NumBodies; ++b) bodies.push_back(b);
    auto lon = [&](int b) { return w.WheelLong[static_cast<size_t>(b)]; };
    // An exchange sort: equal longitudes keep their order.
    for (size_t i = 0; i + 1 < bodies.size(); ++i)
        for (size_t j = i + 1; j < bodies.size(); ++j)
            if (lon(bodies[j]) > lon(bodies[i])) std::swap(bodies[i], bodies[j]);
    auto house = [&](int b) { return w.House[static_cast<size_t>(b)]; };
    for (int turns = 0; turns < NumBodies && house(bodies.front()) == house(bodies.back()); ++turns)
        std::rotate(bodies.rbegin(), bodies.rbegin() + 1, bodies.rend());
    return bodies;
}

double GlyphLineAngle(double t) {
    if (t >= 45 && t <= 95) return t - 1;
    if (t > 95 && t <= 130) return t - 2;
    if (t > 130 && t <= 150) return t - 1;
    if (t >= 180 && t <= 210) return t + 2;
    if (t > 210 && t <= 240) return t + 3;
    if (t > 240 && t <= 270) return t + 2;
    if (t > 270 && t <= 280) return t + 1;
    if (t >= 330 && t <= 360) return t - 2;
    return t;
}

bool ColumnReadsOutwardFirst(double theta, ChartStyle type, int house, float option28) {
    bool american = type == ChartStyle::American;
    bool leftHalf = (theta >= 75 && theta < 255) || american;
    bool outerHouse = option28 == 1 ? (house < 3 || house > 8) : (house < 4 || house > 9);
    return leftHalf && (!american || outerHouse);
}

std::vector<GlyphPlace> PlaceGlyphs(const WheelChart& w, ChartStyle type,
                                    const std::array<double, 13>& houseWidth,
                                    const WheelTables& tables, const CrossedByHouseLine& crossed) {
    std::vector<int> order = SortedBodies(w);
    std::array<int, 13> count{};
    for (int b : order) {
        int h = w.House[static_cast<size_t>(b)];
        if (h >= 1 && h <= 12) ++count[static_cast<size_t>(h)];
    }
    std::array<bool, SlotMapSize> taken{};
    std::vector<GlyphPlace> places;

    const auto lineAngles = HouseLineAngles(w, type);
    int previousHouse = 0;
    int k = 0;
    double P = -100; // the previous European glyph angle
    for (auto it = order.rbegin(); it != order.rend(); ++it) {
        int body = *it;
        if (body == Asc) continue;
        GlyphPlace g;
        g.body = body;
        g.house = w.House[static_cast<size_t>(body)];
        // Every body has a house 1..12 once the chart is calculated; before
        // that nothing sensible can be drawn.
        if (g.house < 1 || g.house > 12) continue;
        if (g.house != previousHouse) k = 1;
        previousHouse = g.house;
        g.k = k;

        const double L = w.WheelLong[static_cast<size_t>(body)];
        const int c = count[static_cast<size_t>(g.house)];
        double delta = Norm360(L - w.Cusp(g.house));
        if (360 - delta < 1.0 / 36000) delta = 0;
        double width = houseWidth[static_cast<size_t>(CuspIndexOfHouse(g.house))];
        int slot = width > 0 ? static_cast<int>(std::trunc(SlotsPerHouse * delta / width)) : 0;
        if (SlotsPerHouse - c <= slot) {
            int t = SlotsPerHouse - slot - c + k;
            if (t <= 0) {
                if (slot - (c - k) >= 0 && !taken[Cell(g.house, slot)])
                    slot = SlotsPerHouse - (c - k) - 1;
                else
                    slot = SlotsPerHouse - c;
            }
        }
        if (slot < 0) slot = 0;
        auto slotAngle = [&](int sl) {
            return Norm360(SlotSpacing * sl + FirstSlotAngle[static_cast<size_t>(g.house)]);
        };
        // A slot is taken when its cell is marked; in the American style also
        // when its angle falls within 4 degrees of a glyph already placed:
        // the houses' first slots are not 28 degrees apart, so a run past
        // slot 6 (or from the 12th house round to the 1st) could otherwise
        // land on a glyph of the next house.
        auto slotTaken = [&](int sl) {
            if (Cell(g.house, sl) >= SlotMapSize - 1) return false;
            if (taken[Cell(g.house, sl)]) return true;
            return type == ChartStyle::American && TooNear(places, slotAngle(sl));
        };
        while (slotTaken(slot)) ++slot;
        taken[Cell(g.house, slot)] = true;
        g.slot = slot;

        double theta;
        if (type == ChartStyle::American) {
            theta = slotAngle(slot);
        } else {
            theta = Norm360(L - w.WheelCusp[10]);
            // Too close behind the previous glyph, also across 0 degrees.
            auto tooClose = [&](double t) {
                double d = t - P;
                return (d >= -16 && d < 4) || (d >= -360 && d < -356);
            };
            if (tooClose(theta)) {
                theta = Norm360(P + SlotSpacing);
                if (k == 1 && delta < 2 && theta >= 102.5 && theta <= 137.5) theta += 2 - delta;
            } else {
                int nextHouse = g.house == 12 ? 1 : g.house + 1;
                double A = Norm360(w.Cusp(nextHouse) - w.WheelCusp[10]);
                double limit = Norm360(A - SlotSpacing * (c - k + 1));
                if (theta > limit) theta = limit;
                if (theta <= 28 && limit >= 332) theta = 0;
                if ((theta >= 270 || theta < 180) && theta + 2 < A) theta += 2;
                // The spacing comes first: in a house too narrow for its
                // bodies the glyphs run on past the next cusp rather than
                // overlap.
                if (tooClose(theta)) theta = Norm360(P + SlotSpacing);
            }
            // Nor may it land on a glyph placed earlier in the walk (the last
            // houses walked come round to the first).
            for (int guard = 0; guard < 90 && TooNear(places, theta); ++guard)
                theta = Norm360(theta + 1);
            P = theta;
        }
        auto placeAt = [&](double t) {
            g.theta = t;
            size_t at = static_cast<size_t>(std::clamp(std::nearbyint(t), 0.0, 360.0));
            g.radius = tables.GlyphRadius[at];
        };
        placeAt(theta);
        if (crossed && crossed(g)) {
            // Into the house, away from its cusp line; back from the next
            // cusp's line when the glyph stands just before it. The other
            // way only when that way finds no clear place.
            // The column's middle (roughly the angle the aspect lines aim at)
            // stays between the house's two lines: a house too narrow for
            // that keeps the glyph where it was.
            int next = g.house == 12 ? 1 : g.house + 1;
            const double own = lineAngles[static_cast<size_t>(g.house)];
            const double width = Norm360(lineAngles[static_cast<size_t>(next)] - own);
            auto inHouse = [&](double t) {
                double into = Norm360(GlyphLineAngle(t) - own);
                return into > 0 && into < width;
            };
            double first = width - Norm360(theta - own) < 6 ? -1 : 1;
            bool clear = false;
            for (double dir : {first, -first}) {
                for (int n = 1; n <= 32 && !clear; ++n) {
                    double t = Norm360(theta + dir * 0.25 * n);
                    if (TooNear(places, t) || !inHouse(t)) break;
                    placeAt(t);
                    clear = !crossed(g);
                }
                if (clear) break;
            }
            if (!clear) placeAt(theta);
            if (type == ChartStyle::European) P = g.theta;
        }
        g.glyphAngle = GlyphLineAngle(g.theta);
        places.push_back(g);
        ++k;
    }
    return places;
}

} // namespace kal
