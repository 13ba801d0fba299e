// The wheel drawn through the Qt adapter: onto any painter, and exported as
// a PNG or SVG (the window's look) or a PDF (the printed full page).
#pragma once

#include <QRectF>
#include <QSize>

#include <filesystem>
#include <optional>
#include <string>

#include "wheel/WheelPaint.h"

class QPainter;

namespace kal {

// Paints the wheel of `view` into `target` (the painter's device
// coordinates), the view widened where the drawing reaches past it. `lineWidth` in wheel units, 0
// for one device pixel.
WheelLayout RenderWheel(QPainter& painter, const QRectF& target, const WheelView& view,
                        const WheelPaintInput& in, double lineWidth = 0);

// Line width of the printed page in wheel units (about 0.7 point).
inline constexpr double PrintedLineWidth = 0.6;

enum class ExportFormat { Png, Svg, Pdf };
// The format a file name asks for (by its extension, any case).
std::optional<ExportFormat> ExportFormatOf(const std::filesystem::path& file);

// The size PNG and SVG exports are drawn at unless asked otherwise: the
// window of a 1024 by 768 screen.
inline constexpr QSize ExportWindowSize{1024, 768};

// Writes the wheel to a file: PNG and SVG as a window of `size` shows it,
// PDF as the printed full page (with the page's header, personal header and
// aspect grid). An SVG carries the glyph font (`glyphFont`, the file of
// glyphix.ttf) so that any viewer draws the glyphs. Returns the error text,
// or nothing on success.
std::optional<std::string> ExportWheel(const std::filesystem::path& file, const WheelPaintInput& in,
                                       const std::filesystem::path& glyphFont,
                                       QSize size = ExportWindowSize);

} // namespace kal
