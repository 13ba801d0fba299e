// A canvas that keeps every drawing call and measures text with the
// recorded metrics of the real fonts, so that a paint can be inspected
// without Qt: where each glyph went, and whether any two ink boxes overlap.
#pragma once

#include <string>
#include <vector>

#include "wheel/Canvas.h"

namespace kal {

struct DrawCall {
    enum Kind { Fill, Line, Circle, Text } kind = Line;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; // line ends; circle centre in x1, y1
    double radius = 0;
    std::string text;
    Font font;
    Rgb colour;
};

class RecordingCanvas : public Canvas {
  public:
    void fill(Rgb colour) override;
    void line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void circle(double cx, double cy, double radius, Rgb colour) override;
    void text(double x, double y, std::string_view text, const Font& font, Rgb colour) override;
    TextSize measure(std::string_view text, const Font& font) override;

    const std::vector<DrawCall>& calls() const { return calls_; }
    std::vector<const DrawCall*> texts() const;
    void clear() { calls_.clear(); }

  private:
    std::vector<DrawCall> calls_;
};

// The ink of a text call: the union of its characters' ink boxes (empty for
// blanks).
Box InkBox(const DrawCall& text);
Box InkBox(double x, double y, std::string_view text, const Font& font);

// Pairs of text calls whose ink boxes overlap by more than `margin` units
// (indexes into the list).
struct Overlap {
    size_t a = 0, b = 0;
};
std::vector<Overlap> FindOverlaps(const std::vector<const DrawCall*>& texts, double margin = 0);

// Pairs of a line call (index a) and a text call (index b) whose ink box,
// shrunk by `margin` units, the line runs through.
std::vector<Overlap> FindCrossings(const std::vector<const DrawCall*>& lines,
                                   const std::vector<const DrawCall*>& texts, double margin = 0);

} // namespace kal
