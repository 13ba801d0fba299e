#include "birthdata/ui/InputD.h"

#include "ui_InputD.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "birthdata/InputRules.h"
#include "birthdata/RecordWriter.h"
#include "birthdata/ui/BirthDataState.h"
#include "birthdata/ui/Paths.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

namespace {

// The frame a window manager has put around a window (none yet, or none at
// all without a manager).
QMargins FrameMargins(const QWidget* w) {
    const QRect f = w->frameGeometry(), g = w->geometry();
    return {g.left() - f.left(), g.top() - f.top(), f.right() - g.right(), f.bottom() - g.bottom()};
}

} // namespace

std::tm InputD::CurrentTime() {
    std::time_t t = std::time(nullptr);
    return *std::localtime(&t);
}

InputD::InputD(AppContext& ctx, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), ui(std::make_unique<Ui::InputD>()) {
    ui->setupUi(this);
    txtName_ = ui->txtName;
    txtMonth_ = ui->txtMonth;
    txtDay_ = ui->txtDay;
    txtYear_ = ui->txtYear;
    txtBirthHour_ = ui->txtBirthHour;
    txtBirthMinute_ = ui->txtBirthMinute;
    txtTZ_ = ui->txtTZ;
    txtLongDeg_ = ui->txtLongDeg;
    txtLongMin_ = ui->txtLongMin;
    txtLatDeg_ = ui->txtLatDeg;
    txtLatMin_ = ui->txtLatMin;
    txtEmail_ = ui->txtEmail;
    optAM_ = ui->optAM;
    optPM_ = ui->optPM;
    optEast_ = ui->optEast;
    optWest_ = ui->optWest;
    optNorth_ = ui->optNorth;
    optSouth_ = ui->optSouth;
    label1_ = ui->Label1;
    cmdACS_Atlas_ = ui->cmdACS_Atlas;

    for (QLineEdit* e : {txtName_, txtMonth_, txtDay_, txtYear_, txtBirthHour_, txtBirthMinute_,
                         txtTZ_, txtLongDeg_, txtLongMin_, txtLatDeg_, txtLatMin_, txtEmail_}) {
        fields_.insert(e);
        e->installEventFilter(this);
    }
    framedLabels_ = {ui->lblName,      ui->lblMonth,       ui->lblDay,     ui->lblYear,
                     ui->lblBirthHour, ui->lblBirthMinute, ui->lblBirthTZ, ui->lblLongDeg,
                     ui->lblLongMin,   ui->lblLatDeg,      ui->lblLatMin,  ui->Label1,
                     ui->lblEmail};
    const int labelWidth = fontMetrics().horizontalAdvance("Birth Minute") + 14;
    for (QLabel* l : framedLabels_) l->setMinimumWidth(std::max(l->minimumWidth(), labelWidth));
    label1_->setCursor(Qt::PointingHandCursor);
    label1_->setToolTip("Click for the list of time zones");
    label1_->installEventFilter(this);
    cmdACS_Atlas_->setVisible(ctx_.session().paths.AtlasAvailable);

    connect(ui->cmdNow, &QPushButton::clicked, this, &InputD::cmdNow_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &InputD::cmdOK_Click);
    connect(ui->cmdSave, &QPushButton::clicked, this, &InputD::cmdSave_Click);
    connect(cmdACS_Atlas_, &QPushButton::clicked, this, &InputD::cmdACS_Atlas_Click);
    connect(optEast_, &QRadioButton::clicked, this, &InputD::optEast_Click);
    connect(optWest_, &QRadioButton::clicked, this, &InputD::optWest_Click);
    connect(txtBirthHour_, &QLineEdit::textChanged, this, &InputD::txtBirthHour_Change);

    // Form_Load: the window opens for "Now".
    fillNow(CurrentTime());
    adjustSize();
}

InputD::~InputD() = default;

InputFields InputD::fields() const {
    InputFields in;
    in.txtName = txtName_->text().toStdString();
    in.txtMonth = txtMonth_->text().toStdString();
    in.txtDay = txtDay_->text().toStdString();
    in.txtYear = txtYear_->text().toStdString();
    in.txtBirthHour = txtBirthHour_->text().toStdString();
    in.txtBirthMinute = txtBirthMinute_->text().toStdString();
    in.txtTZ = txtTZ_->text().toStdString();
    in.txtLongDeg = txtLongDeg_->text().toStdString();
    in.txtLongMin = txtLongMin_->text().toStdString();
    in.txtLatDeg = txtLatDeg_->text().toStdString();
    in.txtLatMin = txtLatMin_->text().toStdString();
    in.txtEmail = txtEmail_->text().toStdString();
    in.optAM = !optPM_->isChecked();
    in.optEast = optEast_->isChecked();
    in.optSouth = optSouth_->isChecked();
    return in;
}

void InputD::setFields(const InputFields& in) {
    filling_ = true;
    auto set = [](QLineEdit* e, const std::string& s) { e->setText(QString::fromStdString(s)); };
    set(txtName_, in.txtName);
    set(txtMonth_, in.txtMonth);
    set(txtDay_, in.txtDay);
    set(txtYear_, in.txtYear);
    set(txtBirthHour_, in.txtBirthHour);
    set(txtBirthMinute_, in.txtBirthMinute);
    set(txtTZ_, in.txtTZ);
    set(txtLongDeg_, in.txtLongDeg);
    set(txtLongMin_, in.txtLongMin);
    set(txtLatDeg_, in.txtLatDeg);
    set(txtLatMin_, in.txtLatMin);
    set(txtEmail_, in.txtEmail);
    (in.optAM ? optAM_ : optPM_)->setChecked(true);
    (in.optEast ? optEast_ : optWest_)->setChecked(true);
    (in.optSouth ? optSouth_ : optNorth_)->setChecked(true);
    filling_ = false;
    // An hour on the 24-hour clock (the clock's "Now") still goes through
    // the check.
    if (!txtBirthHour_->text().isEmpty()) txtBirthHour_Change();
}

void InputD::fillNow(const std::tm& now) {
    InputFields in = fields();
    const Session& s = ctx_.session();
    FillNow(in, now, s.regional.TimeFormat, s.options);
    setFields(in);
}

void InputD::refreshNowDateTime(const std::tm& now) {
    if (txtName_->text() != "Now") return;
    InputFields in = fields();
    FillNowDateTime(in, now, ctx_.session().regional.TimeFormat);
    setFields(in);
}

void InputD::cmdNow_Click() {
    fillNow(CurrentTime());
}

void InputD::cmdOK_Click() {
    for (WindowName w : {win::InputD, win::Names, win::Geograph}) ctx_.hideWindow(w);
    for (WindowName w : {win::TimeZone, win::frmTip}) ctx_.unloadWindow(w);
    ctx_.calculate(fields(), this);
}

void InputD::cmdSave_Click() {
    InputFields in = fields();
    if (in.txtName.find(',') != std::string::npos) {
        ctx_.showMessage(CommaInNameMessage(), this);
        return;
    }
    QString target = ctx_.selectFile("*.FIL", NamesFile(ctx_), this);
    if (target.isEmpty()) return;
    SaveResult res = SaveInputRecord(
        in, ctx_.session().regional.DateOrder, ctx_.session().paths.AppPath, target.toStdString(),
        [this](const BirthRecord& existing) {
            return ctx_.ask(DuplicateQuestion(existing), QMessageBox::Yes | QMessageBox::No,
                            this) == QMessageBox::Yes;
        });
    ctx_.showMessages(res.messages, this);
    // The file selection emptied the names list: it is read again whether
    // the record was saved or not, keeping what the input window holds.
    BirthDataState::flags(ctx_).KeepInputOnReload = 1;
    ctx_.unloadWindow(win::Names);
    ctx_.showWindow(win::Names);
}

void InputD::cmdACS_Atlas_Click() {
    ctx_.session().atlas.results.AtlasFound = 0;
    // The atlas lookup is offered only where an atlas is installed.
    if (!ctx_.session().paths.AtlasAvailable) return;
    if (QWidget* old = ctx_.window(win::ACS_Atlas)) old->disconnect(this);
    ctx_.unloadWindow(win::ACS_Atlas);
    auto* atlas = qobject_cast<QDialog*>(ctx_.loadWindow(win::ACS_Atlas));
    if (!atlas) {
        ctx_.notAvailable("ACS Atlas", this);
        return;
    }
    // Modal, without blocking here: the fields are filled when it closes,
    // by Lookup or by the user.
    atlas->setWindowModality(Qt::ApplicationModal);
    connect(atlas, &QDialog::finished, this, &InputD::atlasClosed);
    ctx_.showWindow(win::ACS_Atlas);
}

void InputD::atlasClosed() {
    AtlasResults& r = ctx_.session().atlas.results;
    r.AtlasResult = 6;
    if (r.AtlasFound == 1) {
        InputFields in = fields();
        if (ApplyAtlasPlace(in, r.AtlasLong, r.AtlasLat, r.AtlasZone)) setFields(in);
    }
    activateWindow();
}

void InputD::Label1_Click() {
    ctx_.unloadWindow(win::TimeZone);
    QWidget* tz = ctx_.loadWindow(win::TimeZone);
    if (!tz) {
        ctx_.notAvailable("The time-zone list", this);
        return;
    }
    placeBeside(tz);
    tz->show();
    tz->raise();
}

void InputD::optEast_Click() {
    txtTZ_->setText(QString::fromStdString(ZoneForDirection(txtTZ_->text().toStdString(), true)));
}

void InputD::optWest_Click() {
    txtTZ_->setText(QString::fromStdString(ZoneForDirection(txtTZ_->text().toStdString(), false)));
}

void InputD::txtBirthHour_Change() {
    if (filling_) return;
    BirthHourCheck fix = CheckBirthHour(txtBirthHour_->text().toStdString());
    if (fix.message) {
        ctx_.showMessage(*fix.message, this);
        return;
    }
    if (fix.setPM) optPM_->setChecked(true);
    // The rewrite raises the change again; that round finds 1 to 12.
    if (fix.newText) txtBirthHour_->setText(QString::fromStdString(*fix.newText));
}

bool InputD::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle()) {
        if (event->type() == QEvent::Expose && windowHandle()->isExposed()) {
            watched->removeEventFilter(this);
            for (WindowName list : {win::Names, win::Geograph})
                if (QWidget* w = ctx_.window(list); w && w->isVisible()) placeBeside(w);
        }
        return false;
    }
    if (watched == label1_ && event->type() == QEvent::MouseButtonRelease) {
        Label1_Click();
        return true;
    }
    if (!fields_.count(watched)) return QWidget::eventFilter(watched, event);
    auto* edit = static_cast<QLineEdit*>(watched);
    const std::string field = edit->objectName().toStdString();
    if (event->type() == QEvent::FocusIn) {
        // Typing replaces the whole text.
        QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
    } else if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Down || key->key() == Qt::Key_Up) {
            const int n = static_cast<int>(std::size(kArrowChain));
            for (int i = 0; i < n; ++i) {
                if (field != kArrowChain[i]) continue;
                const int j = key->key() == Qt::Key_Down ? i + 1 : i - 1;
                if (j >= 0 && j < n) {
                    const std::string_view next = kArrowChain[j];
                    findChild<QLineEdit*>(
                        QString::fromUtf8(next.data(), static_cast<int>(next.size())))
                        ->setFocus(Qt::OtherFocusReason);
                }
                return true;
            }
            return false;
        }
        const QString t = key->text();
        if (t.size() == 1 && t[0].unicode() >= 32) {
            const char16_t c = t[0].unicode();
            const char asChar = c < 127 ? static_cast<char>(c) : 'x';
            if (!InputKeyAccepted(field, asChar)) return true; // refused
        }
    }
    return QWidget::eventFilter(watched, event);
}

void InputD::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    // An etched frame around each label: grey outline, white one a pixel
    // below and to the right.
    QPainter p(this);
    for (QLabel* l : framedLabels_) {
        const QRect r = l->geometry().adjusted(0, 0, -1, -1);
        p.setPen(QColor(0xFF, 0xFF, 0xFF));
        p.drawRect(r.translated(1, 1));
        p.setPen(QColor(0x80, 0x80, 0x80));
        p.drawRect(r);
    }
}

void InputD::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && ctx_.mainWindow()) {
        ctx_.mainWindow()->activateWindow();
        return;
    }
    QWidget::mouseReleaseEvent(event);
}

void InputD::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!firstShow_) return;
    firstShow_ = false;
    // Form_Load shows the names window (which places itself beside this one).
    if (QWidget* names = ctx_.loadWindow(win::Names)) names->show();
    // A window manager frames this window only after that: once it is on
    // the screen the lists beside it are placed again by its frame.
    if (QWindow* handle = windowHandle()) handle->installEventFilter(this);
}

void InputD::placeBeside(QWidget* w) const {
    // A window manager puts a window that is not yet on the screen with its
    // client area where it is asked to, and frames it afterwards; the place
    // is therefore given for the client area, inside a frame like this
    // window's (or, before the manager has framed this one, the main
    // window's).
    QMargins frame = FrameMargins(this);
    if (frame.isNull() && ctx_.mainWindow()) frame = FrameMargins(ctx_.mainWindow());
    const QRect mine = geometry().marginsAdded(frame);
    const QPoint client = QPoint(mine.right() + 1, mine.top()) + QPoint(frame.left(), frame.top());
    w->setGeometry(QRect(client, w->size()));
}

} // namespace kal::ui
