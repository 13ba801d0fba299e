#include "shell/ui/StatusDlg.h"

#include <QPainter>
#include <QVBoxLayout>

namespace kal::ui {

double ProgressPercent(qint32 done, qint32 total) {
    if (total <= 0) return 0;
    double p = static_cast<double>(done) / total * 100.0;
    if (p > 100) p = 100;
    if (p < 0) p = 0;
    return p;
}

void ProgressBox::setPercent(double p) {
    percent_ = p;
    repaint();
}

void ProgressBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    int w = static_cast<int>(width() * percent_ / 100.0 + 0.5);
    // Colour 12 of the 16-colour palette: light red.
    painter.fillRect(QRect(0, 0, w, height()), QColor(255, 0, 0));
    painter.setPen(Qt::gray);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

StatusDlg::StatusDlg(QWidget* parent) : QDialog(parent) {
    setObjectName("StatusDlg");
    setWindowTitle("% Completed");
    Picture2 = new ProgressBox(this);
    Picture2->setObjectName("Picture2");
    Picture2->setMinimumSize(320, 24);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Picture2);
    show();
}

void StatusDlg::ShowProgress(qint32 done, qint32 total) {
    Picture2->setPercent(ProgressPercent(done, total));
}

} // namespace kal::ui
