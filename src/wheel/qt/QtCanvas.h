// The one Qt adapter of the wheel's canvas: draws on any QPainter (window,
// printer page, PDF, SVG, PNG) with the wheel's units mapped once onto a
// device rectangle, and measures text with Qt's font metrics.
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

#include <filesystem>
#include <string_view>

#include "wheel/Canvas.h"
#include "wheel/WheelGeometry.h"

class QPainter;

namespace kal {

// Registers the glyph font (AppPath/glyphix.ttf) for the program's run and
// maps "MS Sans Serif" to an installed face of its metrics. Returns the
// font's id (-1 when the file is missing or not a font).
int RegisterWheelFonts(const std::filesystem::path& appPath);
void RemoveWheelFonts(int fontId);

// The family names of the two faces.
inline constexpr const char* GlyphFamily = "Glyphix";
inline constexpr const char* SansFamily = "MS Sans Serif";

// The Qt text of a canvas text: glyph codes from 128 up are drawn from the
// font's private-use copies at U+F000 + code (text layout hides some
// Windows-1252 code points, the soft hyphen at 173 among them); sans text
// is UTF-8, or Latin-1 where it is not valid UTF-8.
QString WheelQString(std::string_view text, Face face);

// The face at the reference pixel size every text is drawn from and
// measured at (scaled to its size), so that sizes keep their fractions.
QFont WheelQFont(Face face, bool bold);
inline constexpr int ReferencePixels = 256;

class QtCanvas : public Canvas {
  public:
    // Maps the view onto `target` (device coordinates of the painter) with
    // square units, centred. Lines are `lineWidth` wheel units wide; 0 draws
    // them one device pixel wide.
    QtCanvas(QPainter& painter, const WheelView& view, const QRectF& target, double lineWidth = 0);

    void fill(Rgb colour) override;
    void line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void circle(double cx, double cy, double radius, Rgb colour) override;
    void text(double x, double y, std::string_view text, const Font& font, Rgb colour) override;
    TextSize measure(std::string_view text, const Font& font) override;

    // Device pixels per wheel unit.
    double scale() const { return scale_; }
    QPointF toDevice(double x, double y) const;

  private:
    QPainter& painter_;
    QRectF target_;
    double scale_ = 1;
    double originX_ = 0, originY_ = 0; // device position of the wheel's centre
    double lineWidth_ = 0;
};

} // namespace kal
