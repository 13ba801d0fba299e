// The wheel's chart, style and view, and the geometry of its frame: the
// scale of a window, the printer page, the house lines of both styles, the
// house widths and the intercepted signs.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "analyses/NatalData.h"
#include "chart/Chart.h"

namespace kal {

// Radii of the two circles; house lines run between them.
inline constexpr double InnerRadius = 120;
inline constexpr double OuterRadius = 217;
// The radius of the European cusp labels and intercepted signs: 236 ×
// 0.91984662.
inline constexpr double LabelRadius = 217.08;

// Angles in degrees, normalised into [0, 360).
double Norm360(double a);

enum class ChartStyle : short { American = 0, European = 1 };
enum class Medium { Window, Printer };

// What the wheel draws: its own copy of the chart, taken when the window
// loads (longitudes, cusps by CuspTable index, the retrograde flags), the
// house of every body and the header lines.
struct WheelChart {
    BodyArray WheelLong{};
    std::array<double, 13> WheelCusp{}; // 1..12, CuspTable indexing
    std::string SavedRetro = std::string(NumBodies, ' ');
    std::array<int, NumBodies + 1> House{}; // from PlanetHouse
    HeaderTable HeaderLines{};
    HeaderTable HeaderLines2{};

    // The cusp of house h (1..12).
    double Cusp(int house) const { return WheelCusp[static_cast<size_t>(CuspIndexOfHouse(house))]; }
};
WheelChart WheelChartOf(const Chart& c, const HeaderTable& lines, const HeaderTable& lines2);

// The window's choices that change the drawing.
struct WheelStyle {
    ChartStyle type = ChartStyle::American; // TypeChart
    bool PrintFormMode = false;             // white background, black lines
    bool FixedAspectWindows = false;        // "3 Degree Orbs for Wheel Aspect Lines"
    bool DisplaySextiles = true;
};

// The part of the wheel's plane a medium shows, in wheel units: R (the half
// width of the window, the printing scale of the page) and the edges.
struct WheelView {
    Medium medium = Medium::Window;
    double R = 225;
    double left = -225, right = 225, top = 225, bottom = -225;

    double width() const { return right - left; }
    double height() const { return top - bottom; }
};

// R of a window W wide and H high: 225·W/H rounded half to even when W ≥ H,
// else 244.
short WindowScale(int width, int height);
// The window's view: x from -R to R, y from R·H/W down to -R·H/W.
WheelView WindowView(int width, int height);
// The printed page: R = 272 European, 265 American; x from -0.9475·R to
// 0.9475·R, y from 0.9475·(R/0.8 - 56) down to 0.9475·(-R/0.8 - 56).
WheelView PrinterView(ChartStyle type);

// Factor on the y coordinates of the house lines (window, printer).
inline double HouseLineFactor(Medium m) {
    return m == Medium::Window ? 0.9875 : 0.9475;
}
// Factor on the y coordinates of the aspect lines.
inline double AspectLineFactor(Medium m) {
    return m == Medium::Window ? 0.9675 : 0.9475;
}

// The wheel angles of the twelve house lines, indexed by house 1..12.
// American: 180 + 30·(h - 1); European: the Ascendant at 180 and every other
// cusp at 180 plus its distance from the Ascendant.
std::array<double, 13> HouseLineAngles(const WheelChart& w, ChartStyle type);

// The arc of each house by CuspTable index (1..12): the next cusp minus this
// one, normalised; an arc of exactly 277.5 counts as 7.5.
std::array<double, 13> HouseWidths(const WheelChart& w);

// A sign lying wholly inside a house, and the angle its glyph is drawn at.
struct InterceptedSign {
    int house = 0;
    int sign = 0;
    double angle = 0;
};
std::vector<InterceptedSign> InterceptedSigns(const WheelChart& w, ChartStyle type);

// The wheel angle of a European cusp label for CuspTable index k: the cusp
// measured from the Descendant.
double EuropeanCuspAngle(const WheelChart& w, int k);

} // namespace kal
