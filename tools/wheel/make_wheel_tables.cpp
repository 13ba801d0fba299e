// Generates the wheel's two tables from its geometry and the label fonts'
// recorded metrics:
//
//     make_wheel_tables OPTIONS.OPT OUTDIR
//
// writes OUTDIR/RADIUS.DAT and OUTDIR/HCDATA.DAT for the font sizes and label
// spacings of the options file (its window and printer values both).
//
// RADIUS.DAT, for every whole angle a: the largest radius at which a glyph
// printed at a, with its longest label column (degrees, sign, minutes and the
// retrograde mark, read either way round, with the widest characters each
// place can hold) keeps all its ink inside the outer circle, within half a
// degree either side of a.
//
// HCDATA.DAT, for every American cusp line: a row of the five label
// characters (degree tens and units, sign, minute tens and units) on one
// baseline, beside the line's end on the side of the house the cusp opens,
// clear of the outer circle, of the line, of the intercepted signs' places
// and inside a square window.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <numbers>
#include <string>
#include <tuple>
#include <vector>

#include "base/Options.h"
#include "wheel/FontMetrics.h"
#include "wheel/Glyphs.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelPaint.h"

using namespace kal;

namespace {

constexpr double Rad = std::numbers::pi / 180;
// Least distance of any ink from the outer circle, and of a cusp label from
// its line.
constexpr double RimGap = 1.5;
constexpr double LineGap = 1.5;
// The visible half height of a window at least as wide as it is high, and
// the half width of the window as it first opens (5760 twips square with its
// menu bar: R = 240), less a unit.
constexpr double SquareHalf = 225;
constexpr double WindowHalfWidth = 239;

Box Union(const Box& a, const Box& b) {
    if (a.empty()) return b;
    if (b.empty()) return a;
    return {std::min(a.left, b.left), std::min(a.bottom, b.bottom), std::max(a.right, b.right),
            std::max(a.top, b.top)};
}

Box Shift(const Box& b, double dx, double dy) {
    return {b.left + dx, b.bottom + dy, b.right + dx, b.top + dy};
}

// The characters a label place can show: the ink a column or row must leave
// room for is the union of theirs.
std::vector<std::string> Alternatives(const DrawCall& call) {
    auto code = static_cast<unsigned char>(call.text[0]);
    std::vector<std::string> all;
    if (call.font.face == Face::Glyph &&
        ((code >= 224 && code <= 236) || code == SeparateMCGlyph)) {
        for (int b = Sun; b <= MC; ++b) all.push_back(GlyphText(BodyGlyph(b)));
        all.push_back(GlyphText(SeparateMCGlyph));
    } else if (call.font.face == Face::Glyph && code >= 192 && code <= 203) {
        for (int s = 1; s <= 12; ++s) all.push_back(GlyphText(SignGlyph(s)));
    } else if (code >= '0' && code <= '9') {
        for (char d = '0'; d <= '9'; ++d) all.push_back(std::string(1, d));
    } else {
        all.push_back(call.text);
    }
    return all;
}

Box EnvelopeInk(const DrawCall& call) {
    Box ink;
    for (const std::string& alt : Alternatives(call))
        ink = Union(ink, InkBox(call.x1, call.y1, alt, call.font));
    return ink;
}

// The ink boxes of the longest label column at (θ, r).
std::vector<Box> ColumnInk(const WheelOptions& o, double theta, double r, bool outwardFirst) {
    RecordingCanvas canvas;
    LabelSteps steps = MeasureSteps(canvas, o);
    GlyphPlace g;
    g.theta = Norm360(theta);
    g.radius = r;
    // 28°08' of Aries: every place of the label holds a character.
    DrawLabelColumn(canvas, o, steps, g, 28.14, BodyGlyph(Sun), true, outwardFirst);
    std::vector<Box> boxes;
    for (const DrawCall* t : canvas.texts()) boxes.push_back(EnvelopeInk(*t));
    return boxes;
}

bool InsideRim(const std::vector<Box>& boxes) {
    for (const Box& b : boxes)
        if (b.farthestFromCentre() > OuterRadius - RimGap) return false;
    return true;
}

double Innermost(const std::vector<Box>& boxes) {
    double d = std::numeric_limits<double>::max();
    for (const Box& b : boxes) d = std::min(d, b.nearestToCentre());
    return d;
}

struct RadiusRow {
    int radius = 0;
    double innermost = 0;
};

RadiusRow RadiusAt(int a, const std::vector<WheelOptions>& media) {
    int best = static_cast<int>(OuterRadius);
    for (const WheelOptions& o : media)
        for (bool outward : {true, false})
            for (double t : {a - 0.5, 1.0 * a, a + 0.5})
                while (best > InnerRadius && !InsideRim(ColumnInk(o, t, best, outward))) --best;
    double inner = std::numeric_limits<double>::max();
    for (const WheelOptions& o : media)
        for (bool outward : {true, false})
            inner = std::min(inner, Innermost(ColumnInk(o, a, best, outward)));
    return {best, inner};
}

// --- cusp labels -------------------------------------------------------------

struct RowLayout {
    std::array<int, 5> dx{}; // left of each character from the label's left
    std::array<int, 5> dy{}; // top of each character above the label's top
    Box ink;                 // relative to (left, top), in either medium
    Box windowInk;           // the same on the window
    int penalty = 0;         // preference of the shape (0 the single row)
};

std::array<Font, 5> CuspRowFonts(const WheelOptions& o) {
    Font digit{o.digitFace, o.cuspDigitSize, o.degreeBold};
    Font sign{Face::Glyph, o.cuspSignSize};
    Font minute{o.digitFace, o.cuspMinuteSize};
    return {digit, digit, sign, minute, minute};
}

std::string RowSample(size_t j) {
    return j == 2 ? GlyphText(SignGlyph(1)) : "0";
}

// The ink of character j of the label drawn at (x, y), in either medium.
Box CharInk(const std::vector<WheelOptions>& media, size_t j, double x, double y) {
    Box ink;
    for (const WheelOptions& o : media) {
        DrawCall probe;
        probe.kind = DrawCall::Text;
        probe.text = RowSample(j);
        probe.font = CuspRowFonts(o)[j];
        probe.x1 = x;
        probe.y1 = y;
        ink = Union(ink, EnvelopeInk(probe));
    }
    return ink;
}

// A label shape: lines of characters (by place 0..4), each line on one
// baseline, the lines centred under each other. Every character starts clear
// of the ink of the one before it in either medium, at whole units; one
// layout serves both media.
RowLayout CuspLabelLayout(const std::vector<WheelOptions>& media,
                          const std::vector<std::vector<size_t>>& lines, int penalty) {
    RecordingCanvas canvas;
    RowLayout layout;
    layout.penalty = penalty;
    std::vector<double> lineWidth;
    int top = 0;
    Box above; // ink of the lines so far, in either medium
    for (const auto& line : lines) {
        double ascent = 0;
        for (size_t j : line)
            ascent = std::max(ascent,
                              canvas.measure(RowSample(j), CuspRowFonts(media.front())[j]).ascent);
        // Lay the line out at `top`; lower it until its ink clears the lines
        // above.
        for (;; --top) {
            double x = 0, previousRight = 0;
            Box ink;
            for (size_t n = 0; n < line.size(); ++n) {
                size_t j = line[n];
                TextSize t = canvas.measure(RowSample(j), CuspRowFonts(media.front())[j]);
                // Characters of one line share its baseline.
                int dy = top - static_cast<int>(std::nearbyint(ascent - t.ascent));
                Box c = CharInk(media, j, 0, dy);
                if (n > 0) x = std::ceil(previousRight + 0.3 - c.left);
                layout.dx[j] = static_cast<int>(x);
                layout.dy[j] = dy;
                previousRight = x + c.right;
                ink = Union(ink, Shift(c, x, 0));
            }
            if (above.empty() || ink.top + 0.6 <= above.bottom) {
                lineWidth.push_back(previousRight);
                above = Union(above, ink);
                break;
            }
        }
    }
    double widest = *std::max_element(lineWidth.begin(), lineWidth.end());
    for (size_t l = 0; l < lines.size(); ++l)
        for (size_t j : lines[l])
            layout.dx[j] += static_cast<int>(std::nearbyint((widest - lineWidth[l]) / 2));
    for (size_t j = 0; j < 5; ++j) {
        layout.ink = Union(layout.ink, CharInk(media, j, layout.dx[j], layout.dy[j]));
        layout.windowInk =
            Union(layout.windowInk, CharInk({media.front()}, j, layout.dx[j], layout.dy[j]));
    }
    return layout;
}

// The places where American intercepted signs are printed.
std::vector<Box> InterceptedPlaces(const std::vector<WheelOptions>& media) {
    std::vector<Box> boxes;
    RecordingCanvas canvas;
    for (int h = 1; h <= 12; ++h) {
        double a = Norm360(15 + 30.0 * (h - 7));
        for (const WheelOptions& o : media) {
            DrawCall probe;
            probe.kind = DrawCall::Text;
            probe.text = GlyphText(SignGlyph(1));
            probe.font = {Face::Glyph, o.cuspSignSize};
            std::tie(probe.x1, probe.y1) = InterceptedSignPlace(canvas, probe.font, probe.text, a);
            boxes.push_back(EnvelopeInk(probe));
        }
    }
    return boxes;
}

struct Placed {
    int left = 0, top = 0;
    bool found = false;
    double score = 0;
};

// The best place of a label for the cusp line at φ: as close to the line's
// end as it can be, then as close to the line's extension, clear of the
// outer circle and the obstacles and inside the window.
Placed PlaceCuspLabel(double phi, const RowLayout& label, const std::vector<Box>& obstacles) {
    const double ux = std::cos(phi * Rad), uy = std::sin(phi * Rad);
    const double ex = OuterRadius * ux, ey = OuterRadius * uy;
    Placed best;
    best.score = std::numeric_limits<double>::max();
    for (int x = static_cast<int>(ex) - 90; x <= static_cast<int>(ex) + 90; ++x) {
        for (int y = static_cast<int>(ey) - 70; y <= static_cast<int>(ey) + 70; ++y) {
            Box b = Shift(label.ink, x, y);
            if (b.nearestToCentre() < OuterRadius + RimGap) continue;
            // The printed page has room around the wheel; the window has not.
            Box w = Shift(label.windowInk, x, y);
            if (w.left < -WindowHalfWidth || w.right > WindowHalfWidth ||
                w.bottom < -SquareHalf + 1 || w.top > SquareHalf - 1)
                continue;
            bool clear = true;
            for (const Box& o : obstacles)
                if (b.intersects(o, -LineGap)) clear = false;
            if (!clear) continue;
            double px = std::clamp(ex, b.left, b.right);
            double py = std::clamp(ey, b.bottom, b.top);
            double fromEnd = std::hypot(px - ex, py - ey);
            double cx = (b.left + b.right) / 2, cy = (b.bottom + b.top) / 2;
            double fromLine = std::fabs(cx * -uy + cy * ux);
            // The side of the house the cusp opens (counterclockwise) first.
            bool opening = cx * -uy + cy * ux >= 0;
            double score = fromEnd * 10 + fromLine + label.penalty + (opening ? 0 : 20);
            if (score < best.score) best = {x, y, true, score};
        }
    }
    return best;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: make_wheel_tables OPTIONS.OPT OUTDIR\n";
        return 64;
    }
    Options options;
    if (!options.ReadOptions(argv[1])) {
        std::cerr << "make_wheel_tables: cannot read " << argv[1] << "\n";
        return 66;
    }
    const std::filesystem::path out = argv[2];
    const std::vector<WheelOptions> media = {WheelOptions::For(Medium::Window, options, false),
                                             WheelOptions::For(Medium::Printer, options, false)};

    std::ofstream radius(out / "RADIUS.DAT", std::ios::binary);
    double tightest = std::numeric_limits<double>::max();
    int tightestAt = 0;
    for (int a = 0; a <= 360; ++a) {
        RadiusRow row = RadiusAt(a, media);
        radius << row.radius << "\r\n";
        if (row.innermost < tightest) {
            tightest = row.innermost;
            tightestAt = a;
        }
    }
    std::cout << "RADIUS.DAT: innermost label ink at radius " << tightest << " (angle "
              << tightestAt << "); the inner circle is at " << InnerRadius << "\n";
    if (tightest < InnerRadius + RimGap) {
        std::cerr << "make_wheel_tables: a label column reaches the inner circle\n";
        return 1;
    }

    // The shapes a cusp label may take: one row; degrees and sign over the
    // minutes; degrees over sign over minutes.
    const std::vector<RowLayout> shapes = {CuspLabelLayout(media, {{0, 1, 2, 3, 4}}, 0),
                                           CuspLabelLayout(media, {{0, 1, 2}, {3, 4}}, 60),
                                           CuspLabelLayout(media, {{0, 1}, {2}, {3, 4}}, 120)};
    const std::vector<Box> obstacles = InterceptedPlaces(media);
    std::ofstream hc(out / "HCDATA.DAT", std::ios::binary);
    for (int k = 1; k <= 12; ++k) {
        double phi = Norm360(180 + 30.0 * (HouseOfCuspIndex(k) - 1));
        Placed p;
        const RowLayout* shape = nullptr;
        for (const RowLayout& s : shapes) {
            Placed q = PlaceCuspLabel(phi, s, obstacles);
            if (std::getenv("WHEEL_DEBUG"))
                std::cerr << k << " shape " << s.penalty << " found " << q.found << " at " << q.left
                          << "," << q.top << " score " << q.score << " ink " << s.ink.left << ","
                          << s.ink.bottom << "," << s.ink.right << "," << s.ink.top << "\n";
            if (q.found && (!p.found || q.score < p.score)) {
                p = q;
                shape = &s;
            }
        }
        if (!shape) {
            std::cerr << "make_wheel_tables: no room for the label of cusp index " << k << "\n";
            return 1;
        }
        for (size_t j = 0; j < 5; ++j) {
            hc << (p.left + shape->dx[j]) << "," << (p.top + shape->dy[j]);
            hc << (j < 4 ? "," : "\r\n");
        }
    }
    hc << "0\r\n";
    return radius && hc ? 0 : 74;
}
