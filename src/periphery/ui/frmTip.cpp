#include "periphery/ui/frmTip.h"

#include "ui_frmTip.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include "base/TextFile.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

namespace {

// A tip as written: UTF-8, or single-byte text from an older editor.
QString TipText(const std::string& bytes) {
    QString t = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (t.contains(QChar::ReplacementCharacter))
        t = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return t;
}

} // namespace

frmTip::frmTip(AppContext& ctx, QWidget* parent)
    : QDialog(parent), ctx_(ctx), ui(std::make_unique<Ui::frmTip>()) {
    ui->setupUi(this);
    // Modeless: the input and names windows stay usable beside it.
    setModal(false);
    QPalette white = ui->Picture1->palette();
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::WindowText, Qt::black);
    ui->Picture1->setPalette(white);
    ui->Picture1->setAutoFillBackground(true);
    ui->Picture1->installEventFilter(this);
    connect(ui->cmdNextTip, &QPushButton::clicked, this, &frmTip::cmdNextTip_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &frmTip::Command1_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmTip::cmdOK_Click);
    Form_Load();
}

frmTip::~frmTip() = default;

QLabel* frmTip::lblTipText() const {
    return ui->lblTipText;
}

void frmTip::Form_Load() {
    const auto file = FindFile(ctx_.session().paths.AppPath, kTipFileName);
    if (!LoadTips(file)) ui->lblTipText->setText(QString::fromStdString(TipFileMissingText()));
    // In the middle of the screen, over the windows that open with it.
    if (QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

bool frmTip::LoadTips(const std::filesystem::path& file) {
    if (!tips_.LoadTips(file)) return false;
    DisplayCurrentTip();
    return true;
}

void frmTip::DisplayCurrentTip() {
    if (tips_.Count() == 0) return;
    ui->lblTipText->setText(TipText(tips_.CurrentText()));
}

void frmTip::cmdNextTip_Click() {
    tips_.NextTip();
    DisplayCurrentTip();
}

void frmTip::Command1_Click() {
    tips_.GoBackTip();
    DisplayCurrentTip();
}

void frmTip::cmdOK_Click() {
    ctx_.unloadWindow(win::frmTip);
    // Shown on its own (a test), the window just closes.
    close();
}

bool frmTip::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->Picture1 && event->type() == QEvent::Paint) paintBulb(ui->Picture1);
    return QDialog::eventFilter(watched, event);
}

void frmTip::paintBulb(QWidget* on) {
    QPainter p(on);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF c(32, 36);
    // Rays.
    p.setPen(QPen(QColor(230, 170, 0), 2, Qt::SolidLine, Qt::RoundCap));
    for (const QPointF& d : {QPointF(0, -1), QPointF(-0.8, -0.6), QPointF(0.8, -0.6),
                             QPointF(-1, 0.15), QPointF(1, 0.15)})
        p.drawLine(c + d * 17, c + d * 23);
    // Glass.
    QPainterPath glass;
    glass.addEllipse(c, 12, 12);
    QPainterPath neck;
    neck.addRect(QRectF(c.x() - 6, c.y() + 6, 12, 10));
    p.setPen(QPen(QColor(120, 90, 0), 1.5));
    p.setBrush(QColor(255, 236, 110));
    p.drawPath(glass.united(neck));
    // Screw base.
    p.setPen(QPen(QColor(80, 80, 80), 1));
    p.setBrush(QColor(170, 170, 170));
    for (int k = 0; k < 3; ++k) p.drawRect(QRectF(c.x() - 6, c.y() + 16 + 4 * k, 12, 4));
}

} // namespace kal::ui
