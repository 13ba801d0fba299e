// What the wheel draws on: lines, circles and text at a position, with text
// measurement. Coordinates are wheel units with the origin at the wheel's
// centre, x to the right and y upward. A text is placed by the top-left
// corner of its line box (the box runs from there to the right and down by
// the measured width and height). The Qt adapter draws on a window, a
// printer page, a PDF, an SVG or a PNG; tests draw on a recording canvas.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kal {

// A point size of the wheel's font options in wheel units. Text keeps one
// size relative to the wheel on every medium, so that the label tables
// (HCDATA.DAT, RADIUS.DAT) fit whatever the window's size: a point is what
// it is on a printed page whose wheel is about seven inches across.
inline constexpr double UnitsPerPoint = 0.85;

// The two faces of the wheel: the glyph font Glyphix, whose text is a string
// of single-byte codes (Windows-1252 positions: 192 Aries, 224 Sun, ...), and
// "MS Sans Serif" for digits and the header, whose text is UTF-8.
enum class Face { Glyph, Sans };

struct Font {
    Face face = Face::Glyph;
    double size = 10; // points
    bool bold = false;

    bool operator==(const Font&) const = default;
};

struct Rgb {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Rgb&) const = default;
};

// Colour n (0..15) of the standard 16-colour palette: 0 black, 1 blue, 2
// green, 3 cyan, 4 red, 5 magenta, 6 brown, 7 light grey, 8 dark grey, 9
// light blue, 10 light green, 11 light cyan, 12 light red, 13 light magenta,
// 14 yellow, 15 white. Values outside 0..15 are taken modulo 16.
Rgb PaletteColour(int n);
inline constexpr int Black = 0;
inline constexpr int White = 15;

struct TextSize {
    double width = 0;  // advance width
    double height = 0; // line height (ascent plus descent)
    double ascent = 0; // from the top of the line box to the baseline
};

class Canvas {
  public:
    virtual ~Canvas() = default;

    // Fills the whole drawing area with a colour (the window's background).
    virtual void fill(Rgb colour) = 0;
    virtual void line(double x1, double y1, double x2, double y2, Rgb colour) = 0;
    virtual void circle(double cx, double cy, double radius, Rgb colour) = 0;
    // Text with the top-left corner of its line box at (x, y), on a
    // transparent background.
    virtual void text(double x, double y, std::string_view text, const Font& font, Rgb colour) = 0;
    virtual TextSize measure(std::string_view text, const Font& font) = 0;
};

// A rectangle in wheel units (y upward).
struct Box {
    double left = 0, bottom = 0, right = 0, top = 0;

    bool empty() const { return right <= left || top <= bottom; }
    bool intersects(const Box& o, double margin = 0) const {
        return left + margin < o.right && o.left + margin < right && bottom + margin < o.top &&
               o.bottom + margin < top;
    }
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    // Distances of its nearest and farthest points from the wheel's centre.
    double nearestToCentre() const;
    double farthestFromCentre() const;
    // The part of the segment from (x1, y1) to (x2, y2) that runs through
    // the box shrunk by `margin` on every side (grown when negative), as the
    // range of the segment's parameter (0 at its start, 1 at its end).
    std::optional<std::pair<double, double>> clip(double x1, double y1, double x2, double y2,
                                                  double margin = 0) const;
    bool crossedBy(double x1, double y1, double x2, double y2, double margin = 0) const {
        return clip(x1, y1, x2, y2, margin).has_value();
    }
};

// The mark of a text drawn at (x, y): across its advance, from the top of
// its line box down to its baseline (symbols and digits stand on the
// baseline).
inline Box MarkBox(double x, double y, const TextSize& t) {
    return {x, y - t.ascent, x + t.width, y};
}

// The one-character text of a glyph code.
inline std::string GlyphText(int code) {
    return std::string(1, static_cast<char>(static_cast<unsigned char>(code)));
}

} // namespace kal
