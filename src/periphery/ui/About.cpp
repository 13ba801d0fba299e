#include "periphery/ui/About.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace kal::ui {

About::About(QWidget* parent) : QDialog(parent) {
    setObjectName("About");
    Form_Load();
}

void About::Form_Load() {
    setWindowTitle("About Kaltrova");
    setFixedSize(440, 300);
    auto* layout = new QVBoxLayout(this);
    layout->addSpacing(100);
    auto addLabel = [&](const char* name, const QString& text) {
        auto* l = new QLabel(text, this);
        l->setObjectName(name);
        l->setAlignment(Qt::AlignCenter);
        l->setWordWrap(true);
        layout->addWidget(l);
    };
    addLabel("Label1", "Version  1.00");
    addLabel("Label2", "Natal charts in the tropical zodiac, read for career and calling.");
    addLabel("Label4", "The atlas's places come from GeoNames (www.geonames.org), licensed under "
                       "CC BY 4.0; their time-zone history from the IANA time-zone database.");
    addLabel("Label3", "Click anywhere in this window to close it.");
    layout->addStretch();
}

void About::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::TextAntialiasing);
    QFont f("MS Sans Serif");
    f.setPointSize(36);
    f.setBold(true);
    p.setFont(f);
    // A hundred copies, each one unit (a twip, a fifteenth of a pixel)
    // further right and down, then the name in yellow on top.
    const double unit = 1.0 / 15.0;
    const QPointF start(24, 24 + QFontMetricsF(f).ascent());
    p.setPen(QColor(64, 64, 64));
    QPointF at = start;
    for (int i = 0; i < 100; ++i) {
        at = start + QPointF(i * unit, i * unit);
        p.drawText(at, "Kaltrova");
    }
    p.setPen(QColor(255, 255, 0));
    p.drawText(at, "Kaltrova");
}

void About::mousePressEvent(QMouseEvent*) {
    Form_Click();
}

void About::Form_Click() {
    close();
}

} // namespace kal::ui
