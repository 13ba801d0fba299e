#include "shell/ui/TITLE.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QtMath>

#include "ui_TITLE.h"

namespace kal::ui {

QPixmap TitleWheelPixmap(int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF c(size / 2.0, size / 2.0);
    const double r = size / 2.0 - 4;
    p.setPen(QPen(QColor(0, 0, 128), 2));
    p.setBrush(QColor(255, 255, 224));
    p.drawEllipse(c, r, r);
    p.setBrush(Qt::white);
    p.drawEllipse(c, r * 0.72, r * 0.72);
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(c, r * 0.2, r * 0.2);
    for (int k = 0; k < 12; ++k) {
        double a = qDegreesToRadians(30.0 * k);
        QPointF dir(qCos(a), -qSin(a));
        p.drawLine(c + dir * r * 0.2, c + dir * r);
    }
    // The Midheaven and Ascendant axes.
    p.setPen(QPen(QColor(128, 0, 0), 3));
    p.drawLine(c + QPointF(-r, 0), c + QPointF(r, 0));
    p.drawLine(c + QPointF(0, -r), c + QPointF(0, r));
    return pm;
}

TITLE::TITLE(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::TITLE>()) {
    ui->setupUi(this);
    connect(ui->cmdOK, &QPushButton::clicked, this, &TITLE::cmdOK_Click);
    Form_Load();
}

TITLE::~TITLE() = default;

void TITLE::Form_Load() {
    ui->Label2->setText("Version 1.00");
    ui->Label7->setText("Natal charts in the tropical zodiac, read for career and calling.");
    ui->Label4->setText("Planet positions from the Swiss Ephemeris.");
    ui->Image1->setPixmap(TitleWheelPixmap(170));
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect area = screen->availableGeometry();
        move(area.center() - rect().center());
    }
    show();
    repaint();
}

void TITLE::showContinue() {
    ui->cmdOK->setVisible(true);
    ui->cmdOK->setFocus();
}

void TITLE::waitForContinue() {
    if (dismissed_) return;
    QEventLoop loop;
    connect(this, &TITLE::dismissed, &loop, &QEventLoop::quit);
    loop.exec();
}

void TITLE::cmdOK_Click() {
    if (dismissed_) return;
    dismissed_ = 1;
    hide();
    emit dismissed();
}

void TITLE::closeEvent(QCloseEvent* e) {
    // Closing the window lets start-up go on, as Continue does.
    cmdOK_Click();
    e->accept();
}

} // namespace kal::ui
