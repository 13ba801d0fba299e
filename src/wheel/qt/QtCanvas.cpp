#include "wheel/qt/QtCanvas.h"

#include <QColor>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
#include <memory>

namespace kal {

namespace {

QColor ToQColor(Rgb c) {
    return QColor(c.r, c.g, c.b);
}

// Metrics of the reference fonts, made once.
struct ReferenceFaces {
    std::array<QFont, 4> fonts;
    std::array<QFontMetricsF, 4> metrics;
    ReferenceFaces()
        : fonts{WheelQFont(Face::Glyph, false), WheelQFont(Face::Glyph, true),
                WheelQFont(Face::Sans, false), WheelQFont(Face::Sans, true)},
          metrics{QFontMetricsF(fonts[0]), QFontMetricsF(fonts[1]), QFontMetricsF(fonts[2]),
                  QFontMetricsF(fonts[3])} {}
    size_t index(const Font& f) const {
        return (f.face == Face::Sans ? 2u : 0u) + (f.bold ? 1u : 0u);
    }
};

// Bumped when the wheel's fonts are registered or removed, so that the
// reference faces are looked up again.
int fontGeneration = 0;

ReferenceFaces& Faces() {
    static int generation = -1;
    static std::unique_ptr<ReferenceFaces> faces;
    if (!faces || generation != fontGeneration) {
        faces = std::make_unique<ReferenceFaces>();
        generation = fontGeneration;
    }
    return *faces;
}

double UnitSize(const Font& f) {
    return f.size * UnitsPerPoint;
}

} // namespace

int RegisterWheelFonts(const std::filesystem::path& appPath) {
    QFont::insertSubstitution(SansFamily, "Liberation Sans");
    std::filesystem::path file = appPath / "glyphix.ttf";
    std::error_code ec;
    if (!std::filesystem::exists(file, ec)) {
        // The program directory is searched without regard to case.
        for (std::filesystem::directory_iterator it(appPath, ec), end; !ec && it != end;
             it.increment(ec)) {
            std::string name = it->path().filename().string();
            std::transform(name.begin(), name.end(), name.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
            if (name == "glyphix.ttf") file = it->path();
        }
    }
    ++fontGeneration;
    return QFontDatabase::addApplicationFont(QString::fromStdString(file.string()));
}

void RemoveWheelFonts(int fontId) {
    if (fontId >= 0) QFontDatabase::removeApplicationFont(fontId);
    ++fontGeneration;
}

QString WheelQString(std::string_view text, Face face) {
    if (face == Face::Sans) {
        QString s = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        if (s.contains(QChar::ReplacementCharacter))
            s = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
        return s;
    }
    QString s;
    s.reserve(static_cast<qsizetype>(text.size()));
    for (char ch : text) {
        auto code = static_cast<unsigned char>(ch);
        s.append(code >= 128 ? QChar(0xF000 + code) : QChar(code));
    }
    return s;
}

QFont WheelQFont(Face face, bool bold) {
    QFont f(face == Face::Glyph ? GlyphFamily : SansFamily);
    f.setPixelSize(ReferencePixels);
    f.setBold(bold);
    // Unhinted outlines scale in proportion, as the label tables expect.
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setKerning(false);
    return f;
}

QtCanvas::QtCanvas(QPainter& painter, const WheelView& view, const QRectF& target, double lineWidth)
    : painter_(painter), target_(target), lineWidth_(lineWidth) {
    scale_ = std::min(target.width() / view.width(), target.height() / view.height());
    double usedW = view.width() * scale_;
    double usedH = view.height() * scale_;
    double left = target.left() + (target.width() - usedW) / 2;
    double top = target.top() + (target.height() - usedH) / 2;
    originX_ = left - view.left * scale_;
    originY_ = top + view.top * scale_;
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setRenderHint(QPainter::TextAntialiasing, true);
    painter_.setBrush(Qt::NoBrush);
}

QPointF QtCanvas::toDevice(double x, double y) const {
    return {originX_ + x * scale_, originY_ - y * scale_};
}

void QtCanvas::fill(Rgb colour) {
    painter_.fillRect(target_, ToQColor(colour));
}

void QtCanvas::line(double x1, double y1, double x2, double y2, Rgb colour) {
    QPen pen(ToQColor(colour));
    pen.setWidthF(lineWidth_ > 0 ? lineWidth_ * scale_ : 0);
    pen.setCosmetic(lineWidth_ <= 0);
    painter_.setPen(pen);
    painter_.drawLine(toDevice(x1, y1), toDevice(x2, y2));
}

void QtCanvas::circle(double cx, double cy, double radius, Rgb colour) {
    QPen pen(ToQColor(colour));
    pen.setWidthF(lineWidth_ > 0 ? lineWidth_ * scale_ : 0);
    pen.setCosmetic(lineWidth_ <= 0);
    painter_.setPen(pen);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(toDevice(cx, cy), radius * scale_, radius * scale_);
}

void QtCanvas::text(double x, double y, std::string_view text, const Font& font, Rgb colour) {
    if (text.empty()) return;
    ReferenceFaces& faces = Faces();
    size_t i = faces.index(font);
    double factor = UnitSize(font) * scale_ / ReferencePixels;
    painter_.save();
    painter_.setPen(ToQColor(colour));
    painter_.setFont(faces.fonts[i]);
    painter_.translate(toDevice(x, y));
    painter_.scale(factor, factor);
    painter_.drawText(QPointF(0, faces.metrics[i].ascent()), WheelQString(text, font.face));
    painter_.restore();
}

TextSize QtCanvas::measure(std::string_view text, const Font& font) {
    ReferenceFaces& faces = Faces();
    const QFontMetricsF& m = faces.metrics[faces.index(font)];
    double factor = UnitSize(font) / ReferencePixels;
    return {m.horizontalAdvance(WheelQString(text, font.face)) * factor, m.height() * factor,
            m.ascent() * factor};
}

} // namespace kal
