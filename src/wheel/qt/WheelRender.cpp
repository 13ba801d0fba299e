#include "wheel/qt/WheelRender.h"

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cctype>

#include "wheel/qt/QtCanvas.h"

namespace kal {

WheelLayout RenderWheel(QPainter& painter, const QRectF& target, const WheelView& view,
                        const WheelPaintInput& in, double lineWidth) {
    // Text measures the same whatever the mapping, so the view is fitted
    // with a canvas on the nominal view and drawn with one on the fitted.
    QtCanvas measurer(painter, view, target, lineWidth);
    const WheelView fitted = FitView(measurer, view, in);
    QtCanvas canvas(painter, fitted, target, lineWidth);
    return PaintWheel(canvas, fitted, in);
}

std::optional<ExportFormat> ExportFormatOf(const std::filesystem::path& file) {
    std::string ext = file.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ext == ".png") return ExportFormat::Png;
    if (ext == ".svg") return ExportFormat::Svg;
    if (ext == ".pdf") return ExportFormat::Pdf;
    return std::nullopt;
}

namespace {

QString Name(const std::filesystem::path& file) {
    return QString::fromStdString(file.string());
}

// The page size of the user's country: Letter where inches are used, A4
// elsewhere.
QPageSize LocalPageSize() {
    return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem
                         ? QPageSize::Letter
                         : QPageSize::A4);
}

// Makes an SVG independent of the fonts installed where it is viewed: the
// glyph font goes into the file, and the sans-serif face is named by the
// installed face and its metric twins.
bool CarryFonts(const std::filesystem::path& file, const std::filesystem::path& glyphFont) {
    QFile svg(Name(file));
    if (!svg.open(QIODevice::ReadOnly)) return false;
    QByteArray text = svg.readAll();
    svg.close();
    QFile font(Name(glyphFont));
    if (font.open(QIODevice::ReadOnly)) {
        QByteArray face = "<style>@font-face{font-family:'" + QByteArray(GlyphFamily) +
                          "';src:url(data:font/ttf;base64," + font.readAll().toBase64() +
                          ") format('truetype');}</style>";
        text.replace("<defs>", "<defs>" + face);
    }
    text.replace(QByteArray("font-family=\"") + SansFamily + "\"",
                 "font-family=\"Liberation Sans, Arial, Helvetica, sans-serif\"");
    if (!svg.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    return svg.write(text) == text.size();
}

} // namespace

std::optional<std::string> ExportWheel(const std::filesystem::path& file, const WheelPaintInput& in,
                                       const std::filesystem::path& glyphFont, QSize size) {
    auto format = ExportFormatOf(file);
    if (!format) return "the file name must end in .svg, .png or .pdf: " + file.string();
    if (size.width() < 1 || size.height() < 1) return "the picture has no size";
    const WheelView window = WindowView(size.width(), size.height());
    switch (*format) {
    case ExportFormat::Png: {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        {
            QPainter p(&image);
            RenderWheel(p, QRectF(QPointF(0, 0), size), window, in);
        }
        if (!image.save(Name(file), "PNG")) return "cannot write " + file.string();
        return std::nullopt;
    }
    case ExportFormat::Svg: {
        QSvgGenerator svg;
        svg.setFileName(Name(file));
        svg.setSize(size);
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setTitle("Chart wheel");
        svg.setDescription(QString::fromStdString(in.chart.HeaderLines[1]));
        QPainter p;
        if (!p.begin(&svg)) return "cannot write " + file.string();
        RenderWheel(p, QRectF(QPointF(0, 0), size), window, in);
        p.end();
        if (!CarryFonts(file, glyphFont)) return "cannot write " + file.string();
        return std::nullopt;
    }
    case ExportFormat::Pdf: {
        QPdfWriter pdf(Name(file));
        pdf.setResolution(600);
        pdf.setPageLayout(QPageLayout(LocalPageSize(), QPageLayout::Portrait,
                                      QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter));
        pdf.setTitle(QString::fromStdString(in.chart.HeaderLines[1]));
        pdf.setCreator("Kaltrova");
        QPainter p;
        if (!p.begin(&pdf)) return "cannot write " + file.string();
        QRectF page(QPointF(0, 0), QSizeF(pdf.width(), pdf.height()));
        RenderWheel(p, page, PrinterView(in.style.type), in, PrintedLineWidth);
        p.end();
        return std::nullopt;
    }
    }
    return std::nullopt;
}

} // namespace kal
