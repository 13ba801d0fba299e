#include "wheel/WheelPaint.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

#include "wheel/Glyphs.h"
#include "wheel/RecordingCanvas.h"

namespace kal {

namespace {

constexpr double Rad = std::numbers::pi / 180;

int Opt(const Options& o, int n) {
    return static_cast<int>(o[n]);
}

// The step across one label: its measured width and height plus the extra
// spacing of its kind, rounded to whole units.
struct Step {
    int x = 0, y = 0;
};

Step StepOver(Canvas& canvas, std::string_view text, const Font& font, double extraX,
              double extraY) {
    TextSize t = canvas.measure(text, font);
    return {static_cast<int>(std::nearbyint(t.width + extraX)),
            static_cast<int>(std::nearbyint(std::fabs(t.height) + extraY))};
}

// The printed header: lines from (x, y) downward, `spacing` line heights
// apart. Returns the y below the last line.
double HeaderBlock(Canvas& canvas, const HeaderTable& lines, double x, double y, const Font& font,
                   Rgb colour, double spacing) {
    for (size_t i = 1; i <= 7; ++i) {
        canvas.text(x, y, lines[i], font, colour);
        y -= canvas.measure(lines[i], font).height * spacing;
    }
    return y;
}

// Draws nothing; keeps the box around everything a paint would draw, with
// text measured by another canvas (its line box: the advance across, the
// line height down from the top).
class ExtentCanvas : public Canvas {
  public:
    explicit ExtentCanvas(Canvas& measurer) : measurer_(measurer) {}

    void fill(Rgb) override {}
    void line(double x1, double y1, double x2, double y2, Rgb) override {
        add({std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)});
    }
    void circle(double cx, double cy, double radius, Rgb) override {
        add({cx - radius, cy - radius, cx + radius, cy + radius});
    }
    void text(double x, double y, std::string_view text, const Font& font, Rgb) override {
        TextSize t = measure(text, font);
        add({x, y - std::fabs(t.height), x + t.width, y});
    }
    TextSize measure(std::string_view text, const Font& font) override {
        return measurer_.measure(text, font);
    }

    const Box& extent() const { return extent_; }

  private:
    void add(const Box& b) {
        if (!any_) {
            extent_ = b;
            any_ = true;
            return;
        }
        extent_ = {std::min(extent_.left, b.left), std::min(extent_.bottom, b.bottom),
                   std::max(extent_.right, b.right), std::max(extent_.top, b.top)};
    }

    Canvas& measurer_;
    Box extent_;
    bool any_ = false;
};

} // namespace

WheelOptions WheelOptions::For(Medium m, const Options& o, bool printFormMode) {
    WheelOptions w;
    w.medium = m;
    const bool win = m == Medium::Window;
    // The window's option numbers, and the printer's in the same order.
    w.headerSize = o[win ? 68 : 78];
    w.cuspDigitSize = o[win ? 69 : 79];
    w.cuspSignSize = o[win ? 70 : 80];
    w.cuspMinuteSize = o[win ? 71 : 81];
    w.glyphSize = o[win ? 72 : 82];
    w.degreeSize = o[win ? 73 : 83];
    w.signSize = o[win ? 74 : 84];
    w.minuteSize = o[win ? 75 : 85];
    w.retroSize = o[win ? 76 : 86];
    w.aspectSize = o[win ? 77 : 87];
    w.headerColour = Opt(o, win ? 88 : 103);
    w.cuspDigitColour = Opt(o, win ? 89 : 104);
    w.cuspSignColour = Opt(o, win ? 90 : 105);
    w.cuspMinuteColour = Opt(o, win ? 91 : 106);
    w.glyphColour = Opt(o, win ? 92 : 107);
    w.degreeColour = Opt(o, win ? 93 : 108);
    w.signColour = Opt(o, win ? 94 : 109);
    w.minuteColour = Opt(o, win ? 95 : 110);
    w.retroColour = Opt(o, win ? 96 : 111);
    w.trineColour = Opt(o, win ? 97 : 112);
    w.squareColour = Opt(o, win ? 98 : 113);
    w.quincunxColour = Opt(o, win ? 99 : 114);
    w.circleColour = Opt(o, win ? 101 : 115);
    w.houseLineColour = Opt(o, win ? 102 : 116);
    if (win && printFormMode) w.houseLineColour = Black;
    w.glyphExtraX = o[win ? 60 : 64];
    w.digitExtraX = o[win ? 61 : 65];
    w.glyphExtraY = o[win ? 62 : 66];
    w.digitExtraY = o[win ? 63 : 67];
    w.verticalRatio = win ? 640.0 / 480.0 : 600.0 / 480.0;
    w.minuteStepBelow = o[win ? 193 : 195];
    w.minuteStepLess = o[win ? 194 : 196];
    // The printer writes everything in the glyph font, which carries its own
    // digits and letters, without bold.
    w.digitFace = win ? Face::Sans : Face::Glyph;
    w.degreeBold = win;
    return w;
}

std::pair<double, double> InterceptedSignPlace(Canvas& canvas, const Font& font,
                                               std::string_view glyph, double angle) {
    const double c = std::cos(angle * Rad), s = std::sin(angle * Rad);
    double x = 4 + LabelRadius * c - (angle > 90 && angle < 270 ? 20 : 0);
    double y = 4 + LabelRadius * s;
    // Above and below the wheel that corner would set the glyph across the
    // rim, where the planet glyphs run: it moves out until it is clear.
    TextSize t = canvas.measure(glyph, font);
    for (int step = 0; step < 80 && MarkBox(x, y, t).nearestToCentre() < OuterRadius + 1; ++step) {
        x += 0.5 * c;
        y += 0.5 * s;
    }
    return {x, y};
}

int WheelBodyGlyph(int body, float option15) {
    if (option15 != 0 && option15 != 1) return 0;
    if (body == MC && option15 == 1) return SeparateMCGlyph;
    return BodyGlyph(body);
}

LabelParts SplitLabel(double longitude) {
    Position p = CuspPosition(longitude);
    return {p.sign, p.deg / 10, p.deg % 10, p.min / 10, p.min % 10};
}

int WheelLineAspect(double a, double b, const OrbTable& orbs, bool fixedWindows,
                    bool displaySextiles) {
    const float d = static_cast<float>(Separation(a, b));
    auto within = [&](float angle, int code) {
        float orb = orbs[static_cast<size_t>(code - 1)];
        return std::fabs(d - angle) <= orb;
    };
    auto window = [&](float lo, float hi) { return d >= lo && d <= hi; };
    int code = 1;
    if (fixedWindows) {
        if (window(57, 63) && displaySextiles) code = 3;
        if (window(87, 93)) code = 4;
        if (window(117, 123)) code = 5;
        if (d >= 177) code = 6;
        if (window(147, 153)) code = 11;
        if (window(69, 75)) code = 14;
        if (window(162, 168)) code = 17;
    } else {
        if (within(60, 3) && displaySextiles) code = 3;
        if (within(90, 4)) code = 4;
        if (within(120, 5)) code = 5;
        if (d >= 180 - orbs[5]) code = 6;
        if (within(150, 11)) code = 11;
        if (within(72, 14)) code = 14;
        if (within(165, 17)) code = 17;
    }
    return code;
}

std::vector<std::pair<double, double>> PlaceAspectSymbols(const std::vector<AspectLine>& lines,
                                                          const std::vector<Box>& ink, double rx,
                                                          double ry) {
    constexpr double Gap = 1;     // kept between two symbols' ink
    constexpr double Slide = 0.5; // the step along a line
    auto length = [&](size_t i) {
        return std::hypot(lines[i].x2 - lines[i].x1, lines[i].y2 - lines[i].y1);
    };
    std::vector<size_t> order(lines.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return length(a) < length(b); });

    std::vector<std::pair<double, double>> spots(lines.size());
    std::vector<Box> placed;
    auto inkAt = [&](size_t i, double x, double y) {
        return Box{ink[i].left + x, ink[i].bottom + y, ink[i].right + x, ink[i].top + y};
    };
    auto free = [&](const Box& b) {
        for (double x : {b.left, b.right})
            for (double y : {b.bottom, b.top})
                if ((x / rx) * (x / rx) + (y / ry) * (y / ry) > 1) return false;
        for (const Box& p : placed)
            if (b.intersects(p, -Gap)) return false;
        return true;
    };
    for (size_t i : order) {
        const AspectLine& l = lines[i];
        const double len = length(i);
        const double ux = len > 0 ? (l.x2 - l.x1) / len : 1;
        const double uy = len > 0 ? (l.y2 - l.y1) / len : 0;
        const double mx = (l.x1 + l.x2) / 2, my = (l.y1 + l.y2) / 2;
        // Beside the line: the symbol's half extent across it, and the gap.
        const double across =
            (std::fabs(uy) * ink[i].width() + std::fabs(ux) * ink[i].height()) / 2 + Gap;
        spots[i] = {mx, my};
        bool found = false;
        for (double side : {0.0, 1.0, -1.0}) {
            for (double s = 0; s <= len / 2 && !found; s += Slide) {
                for (double sign : {1.0, -1.0}) {
                    double x = mx + sign * s * ux - side * across * uy;
                    double y = my + sign * s * uy + side * across * ux;
                    if (free(inkAt(i, x, y))) {
                        spots[i] = {x, y};
                        found = true;
                        break;
                    }
                    if (s == 0) break;
                }
            }
            if (found) break;
        }
        // A line too short to hold its symbol inside the circle (bodies far
        // apart in longitude whose slots lie close together): the symbol
        // moves in from the line's middle towards the centre.
        const double mr = std::hypot(mx, my);
        for (double s = Slide; !found && mr > 0 && s < mr; s += Slide) {
            double x = mx - s * mx / mr, y = my - s * my / mr;
            if (free(inkAt(i, x, y))) {
                spots[i] = {x, y};
                found = true;
            }
        }
        placed.push_back(inkAt(i, spots[i].first, spots[i].second));
    }
    return spots;
}

int AspectLineColour(int code, const WheelOptions& o, bool printFormMode) {
    switch (code) {
    case 3:
    case 5:
        return o.medium == Medium::Window && printFormMode ? Black : o.trineColour;
    case 4:
    case 6:
        return o.squareColour;
    case 11:
        return o.quincunxColour;
    case 14:
        return 14; // yellow
    default:
        return 13; // light magenta: the 165-degree aspect
    }
}

LabelSteps MeasureSteps(Canvas& canvas, const WheelOptions& o) {
    LabelSteps s;
    Step g = StepOver(canvas, GlyphText(BodyGlyph(MC)), {Face::Glyph, o.glyphSize}, o.glyphExtraX,
                      o.glyphExtraY);
    Step d = StepOver(canvas, "0", {o.digitFace, o.glyphSize}, o.digitExtraX, o.digitExtraY);
    s.GlyphStepX = g.x;
    s.GlyphStepY = g.y;
    s.DigitStepX = d.x;
    s.DigitStepY = d.y;
    return s;
}

void DrawLabelColumn(Canvas& canvas, const WheelOptions& o, const LabelSteps& steps,
                     const GlyphPlace& g, double longitude, int glyphCode, bool retrograde,
                     bool outwardFirst) {
    const double c = std::cos(g.theta * Rad);
    const double s = std::sin(g.theta * Rad);
    double x = g.radius * c;
    double y = g.radius * s;
    LabelParts p = SplitLabel(longitude);

    struct Label {
        std::string text;
        Font font;
        int colour = 0;
        Step step;
    };
    const Font degreeFont{o.digitFace, o.degreeSize, o.degreeBold};
    const Font signFont{Face::Glyph, o.signSize};
    const Font minuteFont{o.digitFace, o.minuteSize};
    Step degreeStep = StepOver(canvas, "0", degreeFont, o.digitExtraX, o.digitExtraY);
    Step minuteStep = StepOver(canvas, "0", minuteFont, o.digitExtraX, o.digitExtraY);
    Step signStep =
        StepOver(canvas, GlyphText(SignGlyph(p.sign)), signFont, o.glyphExtraX, o.glyphExtraY);
    auto digit = [](int v) { return std::string(1, static_cast<char>('0' + v)); };

    std::vector<Label> labels = {
        {digit(p.degTens), degreeFont, o.degreeColour, degreeStep},
        {digit(p.degUnits), degreeFont, o.degreeColour, degreeStep},
        {GlyphText(SignGlyph(p.sign)), signFont, o.signColour, signStep},
        {digit(p.minTens), minuteFont, o.minuteColour, minuteStep},
        {digit(p.minUnits), minuteFont, o.minuteColour, minuteStep},
    };
    if (!outwardFirst) {
        std::reverse(labels.begin(), labels.end());
        // Small minutes sit closer together vertically in a reversed column
        // (on the printer only on the right of the wheel).
        bool lower = o.minuteSize < o.minuteStepBelow &&
                     (o.medium == Medium::Window || g.theta <= 75 || g.theta >= 310);
        if (lower)
            for (size_t i = 0; i < 2; ++i)
                labels[i].step.y -= static_cast<int>(std::nearbyint(o.minuteStepLess));
    }
    if (retrograde) {
        const Font retroFont{Face::Glyph, o.retroSize};
        labels.push_back({GlyphText(RetrogradeGlyph), retroFont, o.retroColour,
                          StepOver(canvas, GlyphText(RetrogradeGlyph), retroFont, o.glyphExtraX,
                                   o.glyphExtraY)});
    }

    const Font glyphFont{Face::Glyph, o.glyphSize};
    if (glyphCode != 0)
        canvas.text(x, y, GlyphText(glyphCode), glyphFont, PaletteColour(o.glyphColour));

    // The labels follow one another towards the centre on the axis through
    // the glyph's middle. Each step is one label long: far enough along the
    // axis that the two labels' steps (width, and height over the vertical
    // ratio) clear each other across x or across y, whichever needs the
    // shorter step, so that a slanting column does not overlap itself.
    const TextSize glyphBox = canvas.measure(GlyphText(BodyGlyph(MC)), glyphFont);
    double cx = x + glyphBox.width / 2;
    double cy = y - glyphBox.height / 2;
    Step previous{steps.GlyphStepX, steps.GlyphStepY};
    for (const Label& label : labels) {
        double acrossX = (previous.x + label.step.x) / 2.0;
        double acrossY = (previous.y + label.step.y) / 2.0 / o.verticalRatio;
        double along = std::numeric_limits<double>::max();
        if (std::fabs(c) > 1e-9) along = acrossX / std::fabs(c);
        if (std::fabs(s) > 1e-9) along = std::min(along, acrossY / std::fabs(s));
        cx -= c * along;
        cy -= s * along;
        TextSize t = canvas.measure(label.text, label.font);
        canvas.text(cx - t.width / 2, cy + t.height / 2, label.text, label.font,
                    PaletteColour(label.colour));
        previous = label.step;
    }
}

namespace {

// Everything the wheel draws about its centre: the frame, cusp labels,
// intercepted signs, planet glyphs with their columns and the aspect lines
// (not the header, which keeps to the edges of the view).
WheelLayout PaintRing(Canvas& canvas, const WheelView& view, const WheelPaintInput& in) {
    const WheelChart& w = in.chart;
    const Options& opt = in.options;
    const bool window = view.medium == Medium::Window;
    const bool printForm = window && in.style.PrintFormMode;
    const ChartStyle type = in.style.type;
    const WheelOptions o = WheelOptions::For(view.medium, opt, printForm);
    WheelLayout layout;

    if (window) canvas.fill(PaletteColour(printForm ? White : Opt(opt, 100)));

    const double k = HouseLineFactor(view.medium);
    const auto angles = HouseLineAngles(w, type);
    auto lineEnds = [&](int h) {
        double a = angles[static_cast<size_t>(h)] * Rad;
        return std::array<double, 4>{InnerRadius * std::cos(a), InnerRadius * k * std::sin(a),
                                     OuterRadius * std::cos(a), OuterRadius * k * std::sin(a)};
    };
    layout.HouseWidth = HouseWidths(w);
    layout.steps = MeasureSteps(canvas, o);

    // Where the planet glyphs go, with their label columns clear of the
    // house lines where there is room.
    auto drawColumn = [&](Canvas& on, const GlyphPlace& g) {
        bool retro = g.body <= 10 && static_cast<size_t>(g.body) <= w.SavedRetro.size() &&
                     w.SavedRetro[static_cast<size_t>(g.body - 1)] == 'R';
        DrawLabelColumn(on, o, layout.steps, g, w.WheelLong[static_cast<size_t>(g.body)],
                        WheelBodyGlyph(g.body, opt[15]), retro,
                        ColumnReadsOutwardFirst(g.theta, type, g.house, opt[28]));
    };
    constexpr double LineClearance = 1.5; // units between a house line and any ink
    auto columnInk = [&](const GlyphPlace& g) {
        RecordingCanvas column; // measures the ink with the fonts' recorded metrics
        drawColumn(column, g);
        std::vector<Box> ink;
        for (const DrawCall* t : column.texts())
            if (Box b = InkBox(*t); !b.empty()) ink.push_back(b);
        return ink;
    };
    auto inkCrossed = [&](const std::vector<Box>& ink) {
        for (const Box& b : ink)
            for (int h = 1; h <= 12; ++h) {
                auto [x1, y1, x2, y2] = lineEnds(h);
                if (b.crossedBy(x1, y1, x2, y2, -LineClearance)) return true;
            }
        return false;
    };
    layout.places = PlaceGlyphs(w, type, layout.HouseWidth, in.tables,
                                [&](const GlyphPlace& g) { return inkCrossed(columnInk(g)); });

    // The frame: house lines and the two circles. Where glyphs crowd a house
    // line so that no place beside it was left, the line stops short of the
    // column and goes on past it.
    std::vector<Box> columns;
    for (const GlyphPlace& g : layout.places)
        if (std::vector<Box> ink = columnInk(g); inkCrossed(ink))
            columns.insert(columns.end(), ink.begin(), ink.end());
    auto houseLines = [&] {
        for (int h = 1; h <= 12; ++h) {
            const std::array<double, 4> e = lineEnds(h);
            std::vector<std::pair<double, double>> gaps;
            for (const Box& b : columns)
                if (auto t = b.clip(e[0], e[1], e[2], e[3], -LineClearance)) gaps.push_back(*t);
            std::sort(gaps.begin(), gaps.end());
            double from = 0;
            // The part of the line from `from` to `to`, as fractions of its length.
            auto piece = [&](double to) {
                auto at = [&](double t, int c) { return e[c] + (e[c + 2] - e[c]) * t; };
                if (to > from)
                    canvas.line(at(from, 0), at(from, 1), at(to, 0), at(to, 1),
                                PaletteColour(o.houseLineColour));
            };
            for (auto [lo, hi] : gaps) {
                piece(lo);
                from = std::max(from, hi);
            }
            piece(1);
        }
    };
    auto circles = [&] {
        canvas.circle(0, 0, OuterRadius, PaletteColour(o.circleColour));
        canvas.circle(0, 0, InnerRadius, PaletteColour(o.circleColour));
    };
    if (window) {
        houseLines();
        circles();
    } else {
        circles();
        houseLines();
    }

    // The intercepted signs' places, which the European cusp labels keep
    // clear of.
    const Font cuspDigit{o.digitFace, o.cuspDigitSize, o.degreeBold};
    const Font cuspSign{Face::Glyph, o.cuspSignSize};
    const Font cuspMinute{o.digitFace, o.cuspMinuteSize};
    layout.intercepted = InterceptedSigns(w, type);
    std::vector<std::pair<double, double>> interceptedAt;
    std::vector<Box> outside; // marks already outside the rim
    for (const auto& s : layout.intercepted) {
        std::string glyph = GlyphText(SignGlyph(s.sign));
        auto [x, y] = InterceptedSignPlace(canvas, cuspSign, glyph, s.angle);
        interceptedAt.push_back({x, y});
        outside.push_back(MarkBox(x, y, canvas.measure(glyph, cuspSign)));
    }

    // Cusp labels: every cusp in the American style, the Ascendant and
    // Descendant at their table places in the European style and the other
    // cusps in a row outside the rim at their own angle.
    struct CuspLabel {
        std::array<std::string, 5> chars;
        std::array<double, 5> x{}, y{};
    };
    const std::array<const Font*, 5> fonts = {&cuspDigit, &cuspDigit, &cuspSign, &cuspMinute,
                                              &cuspMinute};
    const std::array<int, 5> colours = {o.cuspDigitColour, o.cuspDigitColour, o.cuspSignColour,
                                        o.cuspMinuteColour, o.cuspMinuteColour};
    std::array<CuspLabel, 13> labels;
    std::vector<int> rows;
    for (int i = 1; i <= 12; ++i) {
        LabelParts p = SplitLabel(w.WheelCusp[static_cast<size_t>(i)]);
        CuspLabel& l = labels[static_cast<size_t>(i)];
        l.chars = {std::string(1, static_cast<char>('0' + p.degTens)),
                   std::string(1, static_cast<char>('0' + p.degUnits)),
                   GlyphText(SignGlyph(p.sign)), std::string(1, static_cast<char>('0' + p.minTens)),
                   std::string(1, static_cast<char>('0' + p.minUnits))};
        if (type == ChartStyle::American || i == 4 || i == 10) {
            for (size_t j = 0; j < 5; ++j) {
                l.x[j] = in.tables.LabelX(i, static_cast<int>(j));
                l.y[j] = in.tables.LabelY(i, static_cast<int>(j));
                outside.push_back(MarkBox(l.x[j], l.y[j], canvas.measure(l.chars[j], *fonts[j])));
            }
        } else {
            rows.push_back(i);
        }
    }
    for (int i : rows) {
        CuspLabel& l = labels[static_cast<size_t>(i)];
        double a = EuropeanCuspAngle(w, i);
        double x = 4 + LabelRadius * std::cos(a * Rad);
        double y = 4 + LabelRadius * std::sin(a * Rad);
        if (a >= 100 && a <= 260)
            x -= 49;
        else if ((a > 80 && a < 100) || (a > 260 && a < 280))
            x -= 23;
        // The row's characters share a baseline; the row stands clear of the
        // rim above and below the wheel and is centred on its angle at the
        // sides. Characters wider than the 9-unit pitch push the rest on.
        std::array<TextSize, 5> size;
        double rowHeight = 0, rowAscent = 0, pushed = 0;
        for (size_t j = 0; j < 5; ++j) {
            size[j] = canvas.measure(l.chars[j], *fonts[j]);
            rowHeight = std::max(rowHeight, size[j].height);
            rowAscent = std::max(rowAscent, size[j].ascent);
            l.x[j] = x + 9.0 * static_cast<double>(j) + pushed;
            pushed += std::max(0.0, size[j].width - 9);
        }
        double top = y + (rowHeight / 2 - 4) + (rowHeight / 2 + 2) * std::sin(a * Rad);
        Box row{l.x[0], top - rowAscent, l.x[4] + size[4].width, top};
        // Cusps a few degrees apart would write over each other: a row that
        // meets a label already placed moves to the nearest clear place, up
        // or down at the sides of the wheel, sideways above and below it.
        const bool sides = std::fabs(std::cos(a * Rad)) >= 0.5;
        const double ux = sides ? 0 : (std::cos(a * Rad) >= 0 ? 1 : -1);
        const double uy = !sides ? 0 : (std::sin(a * Rad) >= 0 ? 1 : -1);
        auto shifted = [&](double d) {
            return Box{row.left + ux * d, row.bottom + uy * d, row.right + ux * d,
                       row.top + uy * d};
        };
        auto meets = [&](const Box& b) {
            if (b.nearestToCentre() < OuterRadius + 1) return true; // into the wheel
            for (const Box& o : outside)
                if (b.intersects(o, -1)) return true;
            return false;
        };
        double moved = 0;
        for (double d = 0; d < 500; ++d) {
            if (!meets(shifted(d))) {
                moved = d;
                break;
            }
            if (d > 0 && !meets(shifted(-d))) {
                moved = -d;
                break;
            }
        }
        row = shifted(moved);
        for (size_t j = 0; j < 5; ++j) {
            l.x[j] += ux * moved;
            l.y[j] = top + uy * moved - rowAscent + size[j].ascent;
        }
        outside.push_back(row);
    }
    for (int i = 1; i <= 12; ++i) {
        const CuspLabel& l = labels[static_cast<size_t>(i)];
        for (size_t j = 0; j < 5; ++j)
            canvas.text(l.x[j], l.y[j], l.chars[j], *fonts[j], PaletteColour(colours[j]));
    }

    for (size_t k = 0; k < layout.intercepted.size(); ++k)
        canvas.text(interceptedAt[k].first, interceptedAt[k].second,
                    GlyphText(SignGlyph(layout.intercepted[k].sign)), cuspSign,
                    PaletteColour(o.cuspSignColour));

    // The planet glyphs and their columns.
    for (const GlyphPlace& g : layout.places) drawColumn(canvas, g);

    // Aspect lines across the inner circle, each with its symbol at the
    // middle or slid along it to a free spot; the symbols go on top.
    if (opt[47] == 1) {
        const double ka = AspectLineFactor(view.medium);
        const Font symbolFont{Face::Glyph, o.aspectSize};
        std::vector<Rgb> colours;
        for (size_t i = 0; i < layout.places.size(); ++i) {
            for (size_t j = i + 1; j < layout.places.size(); ++j) {
                const GlyphPlace& a = layout.places[i];
                const GlyphPlace& b = layout.places[j];
                int code = WheelLineAspect(w.WheelLong[static_cast<size_t>(a.body)],
                                           w.WheelLong[static_cast<size_t>(b.body)], in.wheelOrbs,
                                           in.style.FixedAspectWindows, in.style.DisplaySextiles);
                if (code == 1) continue;
                AspectLine l{std::min(a.body, b.body),
                             std::max(a.body, b.body),
                             code,
                             InnerRadius * std::cos(a.glyphAngle * Rad),
                             InnerRadius * ka * std::sin(a.glyphAngle * Rad),
                             InnerRadius * std::cos(b.glyphAngle * Rad),
                             InnerRadius * ka * std::sin(b.glyphAngle * Rad)};
                colours.push_back(PaletteColour(AspectLineColour(code, o, printForm)));
                canvas.line(l.x1, l.y1, l.x2, l.y2, colours.back());
                layout.lines.push_back(l);
            }
        }
        // A symbol's text is placed by the top-left corner of its line box,
        // the box centred on the symbol's spot.
        std::vector<std::string> symbols;
        std::vector<std::pair<double, double>> corner;
        std::vector<Box> ink;
        for (const AspectLine& l : layout.lines) {
            symbols.push_back(GlyphText(AspectGlyph(l.code)));
            TextSize t = canvas.measure(symbols.back(), symbolFont);
            corner.push_back({-t.width / 2, t.height / 2});
            ink.push_back(
                InkBox(corner.back().first, corner.back().second, symbols.back(), symbolFont));
        }
        auto spots = PlaceAspectSymbols(layout.lines, ink, InnerRadius - 2, InnerRadius * k - 2);
        for (size_t i = 0; i < spots.size(); ++i) {
            auto [x, y] = spots[i];
            layout.lines[i].symbolX = x;
            layout.lines[i].symbolY = y;
            canvas.text(x + corner[i].first, y + corner[i].second, symbols[i], symbolFont,
                        colours[i]);
        }
    }

    return layout;
}

} // namespace

WheelLayout PaintWheel(Canvas& canvas, const WheelView& view, const WheelPaintInput& in) {
    WheelLayout layout = PaintRing(canvas, view, in);
    const WheelChart& w = in.chart;
    const bool window = view.medium == Medium::Window;
    const WheelOptions o =
        WheelOptions::For(view.medium, in.options, window && in.style.PrintFormMode);
    if (window) {
        const Font font{Face::Sans, o.headerSize};
        const Rgb colour = PaletteColour(o.headerColour);
        HeaderBlock(canvas, w.HeaderLines, view.left + 10, view.top, font, colour, 1);
        double h2 = canvas.measure(w.HeaderLines2[1], font).height;
        HeaderBlock(canvas, w.HeaderLines2, view.left + 10, view.bottom + 8 * h2, font, colour, 1);
    } else {
        PaintPrintedHeader(canvas, view, in, o);
    }
    return layout;
}

WheelView FitView(Canvas& measurer, const WheelView& view, const WheelPaintInput& in,
                  double margin) {
    // The header keeps to the edges whatever the view; the ring does not
    // move with them.
    ExtentCanvas extent(measurer);
    PaintRing(extent, view, in);
    const Box& e = extent.extent();
    double f = 1;
    auto need = [&](double reach, double edge) {
        if (edge != 0) f = std::max(f, reach / edge);
    };
    need(e.right + margin, view.right);
    need(e.left - margin, view.left);
    need(e.top + margin, view.top);
    need(e.bottom - margin, view.bottom);
    WheelView v = view;
    v.R *= f;
    v.left *= f;
    v.right *= f;
    v.top *= f;
    v.bottom *= f;
    return v;
}

void PaintPrintedHeader(Canvas& canvas, const WheelView& view, const WheelPaintInput& in,
                        const WheelOptions& o) {
    const Options& opt = in.options;
    const Font font{Face::Glyph, o.headerSize};
    const Rgb colour = PaletteColour(o.headerColour);
    const double spacing = opt[199] > 0 ? opt[199] : 1;
    HeaderBlock(canvas, in.chart.HeaderLines, view.left + 30, view.top - opt[243], font, colour,
                spacing);
    double h2 = std::fabs(canvas.measure(in.chart.HeaderLines2[1], font).height);
    HeaderBlock(canvas, in.chart.HeaderLines2, view.left + 30, -1.184375 * view.R + h2 * opt[191],
                font, colour, spacing);

    if (opt[174] != 0 && in.page && in.page->personalHeader) {
        const Font personal{Face::Glyph, opt[175]};
        const Rgb personalColour = PaletteColour(Opt(opt, 176));
        double y = view.top - opt[244];
        for (const std::string& line : *in.page->personalHeader) {
            TextSize t = canvas.measure(line, personal);
            canvas.text(view.right - opt[177] - t.width, y, line, personal, personalColour);
            y -= t.height;
        }
    }
    if (opt[178] != 0) PaintAspectGrid(canvas, view, in);
}

void PaintAspectGrid(Canvas& canvas, const WheelView& view, const WheelPaintInput& in) {
    const Options& opt = in.options;
    const Font glyphFont{Face::Glyph, opt[181]};
    const Font symbolFont{Face::Glyph, opt[182]};
    const Rgb lineColour = PaletteColour(Opt(opt, 183));
    const Rgb glyphColour = PaletteColour(Opt(opt, 184));
    const Rgb symbolColour = PaletteColour(Opt(opt, 185));
    TextSize g = canvas.measure(GlyphText(BodyGlyph(MC)), glyphFont);
    const double cw = 1.25 * g.width + opt[186];
    const double ch = 1.25 * std::fabs(g.height) + opt[187];
    const double x0 = opt[179];
    const double y0 = -opt[188] * (view.top - view.bottom) / 2;
    constexpr int n = NumBodies;

    // A staircase: row i holds body i's glyph on the diagonal and, left of
    // it, its aspects to the bodies before it in the order of the aspects
    // window.
    for (int r = 0; r <= n; ++r) {
        double y = y0 - r * ch;
        canvas.line(x0, y, x0 + std::min(r + 1, n) * cw, y, lineColour);
    }
    for (int c = 0; c <= n; ++c) {
        double x = x0 + c * cw;
        canvas.line(x, y0 - std::max(c - 1, 0) * ch, x, y0 - n * ch, lineColour);
    }
    auto centred = [&](std::string_view text, const Font& font, int row, int col, Rgb colour) {
        TextSize t = canvas.measure(text, font);
        double cx = x0 + (col + 0.5) * cw;
        double cy = y0 - (row + 0.5) * ch;
        canvas.text(cx - t.width / 2, cy + std::fabs(t.height) / 2, text, font, colour);
    };
    const auto& w = in.chart;
    for (int i = 0; i < n; ++i) {
        int bi = AspectsWindowOrder[static_cast<size_t>(i)];
        int code = bi == MC && opt[15] == 1 ? SeparateMCGlyph : BodyGlyph(bi);
        centred(GlyphText(code), glyphFont, i, i, glyphColour);
        for (int j = 0; j < i; ++j) {
            int bj = AspectsWindowOrder[static_cast<size_t>(j)];
            AspectHit hit = FindAspect(w.WheelLong[static_cast<size_t>(bi)],
                                       w.WheelLong[static_cast<size_t>(bj)], in.wheelOrbs);
            if (hit.code != 1)
                centred(GlyphText(AspectGlyph(hit.code)), symbolFont, i, j, symbolColour);
        }
    }
}

} // namespace kal
