#include "wheel/RecordingCanvas.h"

#include <algorithm>

#include "wheel/FontMetrics.h"

namespace kal {

namespace {

// The character codes of a text: glyph text is bytes; sans text is UTF-8
// (characters beyond Latin-1 measure as "n").
std::vector<unsigned> Codes(std::string_view text, Face face) {
    std::vector<unsigned> codes;
    for (size_t i = 0; i < text.size();) {
        auto b = static_cast<unsigned char>(text[i]);
        if (face == Face::Glyph || b < 0x80) {
            codes.push_back(b);
            ++i;
            continue;
        }
        int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : 1;
        unsigned cp = b & (0x3Fu >> extra);
        size_t j = i + 1;
        for (int k = 0; k < extra && j < text.size(); ++k, ++j)
            cp = (cp << 6) | (static_cast<unsigned char>(text[j]) & 0x3Fu);
        codes.push_back(cp <= 0xFF ? cp : 'n');
        i = j;
    }
    return codes;
}

const GlyphMetrics& Glyph(const FaceMetrics& m, unsigned code) {
    const GlyphMetrics& g = m.glyphs[code & 0xFF];
    return g.present ? g : m.glyphs['n'];
}

double Em(const Font& font) {
    return font.size * UnitsPerPoint;
}

} // namespace

void RecordingCanvas::fill(Rgb colour) {
    DrawCall c;
    c.kind = DrawCall::Fill;
    c.colour = colour;
    calls_.push_back(c);
}

void RecordingCanvas::line(double x1, double y1, double x2, double y2, Rgb colour) {
    DrawCall c;
    c.kind = DrawCall::Line;
    c.x1 = x1;
    c.y1 = y1;
    c.x2 = x2;
    c.y2 = y2;
    c.colour = colour;
    calls_.push_back(c);
}

void RecordingCanvas::circle(double cx, double cy, double radius, Rgb colour) {
    DrawCall c;
    c.kind = DrawCall::Circle;
    c.x1 = cx;
    c.y1 = cy;
    c.radius = radius;
    c.colour = colour;
    calls_.push_back(c);
}

void RecordingCanvas::text(double x, double y, std::string_view text, const Font& font,
                           Rgb colour) {
    DrawCall c;
    c.kind = DrawCall::Text;
    c.x1 = x;
    c.y1 = y;
    c.text = std::string(text);
    c.font = font;
    c.colour = colour;
    calls_.push_back(c);
}

TextSize RecordingCanvas::measure(std::string_view text, const Font& font) {
    const FaceMetrics& m = WheelFaceMetrics(font.face, font.bold);
    double em = Em(font);
    double advance = 0;
    for (unsigned code : Codes(text, font.face)) advance += Glyph(m, code).advance;
    return {advance * em, (m.ascent + m.descent) * em, m.ascent * em};
}

std::vector<const DrawCall*> RecordingCanvas::texts() const {
    std::vector<const DrawCall*> t;
    for (const auto& c : calls_)
        if (c.kind == DrawCall::Text) t.push_back(&c);
    return t;
}

Box InkBox(double x, double y, std::string_view text, const Font& font) {
    const FaceMetrics& m = WheelFaceMetrics(font.face, font.bold);
    const double em = Em(font);
    const double baseline = y - m.ascent * em;
    Box ink;
    bool any = false;
    double pen = x;
    for (unsigned code : Codes(text, font.face)) {
        const GlyphMetrics& g = Glyph(m, code);
        if (g.xMax > g.xMin && g.yMax > g.yMin) {
            Box b{pen + g.xMin * em, baseline + g.yMin * em, pen + g.xMax * em,
                  baseline + g.yMax * em};
            if (!any) {
                ink = b;
                any = true;
            } else {
                ink = {std::min(ink.left, b.left), std::min(ink.bottom, b.bottom),
                       std::max(ink.right, b.right), std::max(ink.top, b.top)};
            }
        }
        pen += g.advance * em;
    }
    return ink;
}

Box InkBox(const DrawCall& text) {
    return InkBox(text.x1, text.y1, text.text, text.font);
}

std::vector<Overlap> FindOverlaps(const std::vector<const DrawCall*>& texts, double margin) {
    std::vector<Box> boxes;
    for (const DrawCall* t : texts) boxes.push_back(InkBox(*t));
    std::vector<Overlap> found;
    for (size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].empty()) continue;
        for (size_t j = i + 1; j < boxes.size(); ++j)
            if (!boxes[j].empty() && boxes[i].intersects(boxes[j], margin)) found.push_back({i, j});
    }
    return found;
}

std::vector<Overlap> FindCrossings(const std::vector<const DrawCall*>& lines,
                                   const std::vector<const DrawCall*>& texts, double margin) {
    std::vector<Overlap> found;
    for (size_t j = 0; j < texts.size(); ++j) {
        Box ink = InkBox(*texts[j]);
        if (ink.empty()) continue;
        for (size_t i = 0; i < lines.size(); ++i) {
            const DrawCall& l = *lines[i];
            if (ink.crossedBy(l.x1, l.y1, l.x2, l.y2, margin)) found.push_back({i, j});
        }
    }
    return found;
}

} // namespace kal
