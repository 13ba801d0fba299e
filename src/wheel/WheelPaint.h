// The paint procedure of the chart wheel, for the window and the printed
// page: frame, cusp labels, intercepted signs, planet glyphs with their label
// columns, aspect lines and the header; on the printed page also the
// personal header and the aspect grid.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Options.h"
#include "chart/Aspects.h"
#include "wheel/Canvas.h"
#include "wheel/Placement.h"
#include "wheel/WheelGeometry.h"
#include "wheel/WheelTables.h"

namespace kal {

// The option numbers and fixed values of one medium (window or printer).
struct WheelOptions {
    Medium medium = Medium::Window;
    double headerSize = 0;
    int headerColour = 0;
    double cuspDigitSize = 0, cuspSignSize = 0, cuspMinuteSize = 0;
    int cuspDigitColour = 0, cuspSignColour = 0, cuspMinuteColour = 0;
    double glyphSize = 0, degreeSize = 0, signSize = 0, minuteSize = 0, retroSize = 0;
    int glyphColour = 0, degreeColour = 0, signColour = 0, minuteColour = 0, retroColour = 0;
    double aspectSize = 0;
    int trineColour = 0, squareColour = 0, quincunxColour = 0;
    int circleColour = 0, houseLineColour = 0;
    // Extra spacing added to the glyph step x, y and the digit step x, y.
    double glyphExtraX = 0, glyphExtraY = 0, digitExtraX = 0, digitExtraY = 0;
    // The label column's vertical ratio: a step's y is divided by it.
    double verticalRatio = 640.0 / 480.0;
    // Reverse columns: when the minutes size is below minuteStepBelow, the
    // vertical step over the minutes is lowered by minuteStepLess.
    double minuteStepBelow = 0, minuteStepLess = 0;
    // The face of the label digits, and whether degrees are bold.
    Face digitFace = Face::Sans;
    bool degreeBold = true;

    static WheelOptions For(Medium m, const Options& o, bool printFormMode);
};

// The label steps measured at each paint (rounded to whole units).
struct LabelSteps {
    int GlyphStepX = 0, GlyphStepY = 0, DigitStepX = 0, DigitStepY = 0;
};

// A line drawn between two glyph angles, with its aspect code and the
// centre of its symbol.
struct AspectLine {
    int bodyA = 0, bodyB = 0;
    int code = 0;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    double symbolX = 0, symbolY = 0;
};

// What a paint computed: tests and the window read it.
struct WheelLayout {
    std::array<double, 13> HouseWidth{};
    LabelSteps steps;
    std::vector<GlyphPlace> places;
    std::vector<AspectLine> lines;
    std::vector<InterceptedSign> intercepted;
};

// The printed page's additions: the lines of PERSONAL.NAM (nothing when the
// file is missing) and the orbs of the aspect grid.
struct PrintedPage {
    std::optional<std::vector<std::string>> personalHeader;
};

struct WheelPaintInput {
    const WheelChart& chart;
    const WheelStyle& style;
    const Options& options;
    const OrbTable& wheelOrbs; // WheelOrbs, loaded from the current orb file
    const WheelTables& tables;
    const PrintedPage* page = nullptr; // the printed page's additions
};

// Draws the whole wheel on the canvas for the view's medium.
WheelLayout PaintWheel(Canvas& canvas, const WheelView& view, const WheelPaintInput& in);

// The view widened about the wheel's centre, keeping its shape, just enough
// that the wheel with all its labels (the cusp labels reach past the outer
// circle) stays inside it, with `margin` units to spare; the header keeps
// to the edges of whatever view it is given. The view itself when the
// wheel fits. Text is measured with `measurer`, which draws nothing.
WheelView FitView(Canvas& measurer, const WheelView& view, const WheelPaintInput& in,
                  double margin = 2);

// The printed page's header blocks, personal header (option 174) and aspect
// grid (option 178).
void PaintPrintedHeader(Canvas& canvas, const WheelView& view, const WheelPaintInput& in,
                        const WheelOptions& o);
// The aspect grid of the printed page: a staircase of the bodies in the
// aspects window's order with the symbol of each pair's aspect.
void PaintAspectGrid(Canvas& canvas, const WheelView& view, const WheelPaintInput& in);

// The aspect code a wheel line is drawn for between two longitudes (1: no
// line): squares, trines, oppositions, the 150-degree aspect, quintiles, the
// 165-degree aspect and (when displayed) sextiles, with the orb file's orbs
// or with fixed 3-degree windows. The last matching test wins.
int WheelLineAspect(double a, double b, const OrbTable& wheelOrbs, bool fixedWindows,
                    bool displaySextiles);

// Where the aspect symbols go: the centre of each line's symbol, given the
// symbol's ink box about that centre. A symbol sits on its line's middle
// when that spot is free; otherwise it slides along its own line to the
// nearest spot where its ink keeps clear of the symbols already placed and
// stays inside the ellipse of semi-axes `rx`, `ry` (within the inner circle
// and the house lines' inner ends, so clear of the glyph columns), and
// failing that it sits just beside its line; a line too short for that has
// its symbol moved in towards the centre. Short lines, with the least room,
// are placed first.
std::vector<std::pair<double, double>> PlaceAspectSymbols(const std::vector<AspectLine>& lines,
                                                          const std::vector<Box>& inkAboutCentre,
                                                          double rx, double ry);

// The palette colour of an aspect line.
int AspectLineColour(int code, const WheelOptions& o, bool printFormMode);

// The five characters of a cusp or body label, split as the cusp listing
// splits a longitude: degree tens and units, the sign, minute tens and units.
struct LabelParts {
    int sign = 1;
    int degTens = 0, degUnits = 0, minTens = 0, minUnits = 0;
};
LabelParts SplitLabel(double longitude);

// The label column of one body: the glyph at (r·cos θ, r·sin θ) and its
// degrees, sign, minutes and retrograde mark stepped towards the centre.
void DrawLabelColumn(Canvas& canvas, const WheelOptions& o, const LabelSteps& steps,
                     const GlyphPlace& g, double longitude, int glyphCode, bool retrograde,
                     bool outwardFirst);

// Measures the four label steps with the medium's glyph size.
LabelSteps MeasureSteps(Canvas& canvas, const WheelOptions& o);

// The top-left corner of an intercepted sign's glyph at `angle`: 4 units
// beyond 217.08 on the angle, 20 to the left on the left half, moved out
// along the angle where the glyph would cross the rim.
std::pair<double, double> InterceptedSignPlace(Canvas& canvas, const Font& font,
                                               std::string_view glyph, double angle);

// The body glyph of the wheel (option 15 chooses the Midheaven's; 0 when no
// body glyphs are printed).
int WheelBodyGlyph(int body, float option15);

} // namespace kal
