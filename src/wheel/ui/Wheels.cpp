#include "wheel/ui/Wheels.h"

#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPrinter>
#include <QScreen>
#include <QTimer>

#include <algorithm>

#include "base/TextFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Menus.h"
#include "wheel/qt/WheelRender.h"

namespace kal::ui {

namespace {

// The wheel's drawing area below the menu bar.
class WheelArea : public QWidget {
  public:
    explicit WheelArea(Wheels& wheels) : QWidget(&wheels), wheels_(wheels) {
        setObjectName("WheelArea");
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        // A minimised window draws nothing.
        if (wheels_.isMinimized()) return;
        QPainter p(this);
        wheels_.paintWheel(p, rect());
    }
    void resizeEvent(QResizeEvent*) override { wheels_.areaResized(size()); }

  private:
    Wheels& wheels_;
};

Message PrintQuestion() {
    return {"Click 'YES' for full page chartwheel. Click 'NO' for half page chartwheel.",
            "Full page or half page chartwheel", Icon::Question};
}

} // namespace

Wheels::Wheels(AppContext& ctx, const WheelTables& tables, QWidget* parent)
    : QMainWindow(parent), ctx_(ctx), tables_(tables) {
    setObjectName("Wheels");
    setWindowTitle("Chartwheels");
    area_ = new WheelArea(*this);
    setCentralWidget(area_);
    buildMenus();
    Form_Load();
}

Wheels::~Wheels() = default;

void Wheels::buildMenus() {
    QMenuBar* bar = menuBar();

    QMenu* update = AddMenu(bar, "mnuUpdate", "&Update");
    mnuUpdateAddDay = AddItem(update, "mnuUpdateAddDay", "&Add a Day", this,
                              &Wheels::mnuUpdateAddDay_Click, Qt::SHIFT | Qt::Key_F1);
    mnuUpdateSubDay = AddItem(update, "mnuUpdateSubDay", "&Go back a day", this,
                              &Wheels::mnuUpdateSubDay_Click, Qt::SHIFT | Qt::Key_F2);
    mnuUpdateAddHour = AddItem(update, "mnuUpdateAddHour", "Add an &hour", this,
                               &Wheels::mnuUpdateAddHour_Click, Qt::SHIFT | Qt::Key_F3);
    mnuUpdateSubHour = AddItem(update, "mnuUpdateSubHour", "Go &back an hour", this,
                               &Wheels::mnuUpdateSubHour_Click, Qt::SHIFT | Qt::Key_F4);
    mnuUpdateAddMinute = AddItem(update, "mnuUpdateAddMinute", "Add a &minute", this,
                                 &Wheels::mnuUpdateAddMinute_Click, Qt::SHIFT | Qt::Key_F5);
    mnuUpdateSubMinute = AddItem(update, "mnuUpdateSubMinute", "Go bac&k a minute", this,
                                 &Wheels::mnuUpdateSubMinute_Click, Qt::SHIFT | Qt::Key_F6);
    mnuAspects = AddItem(bar, "mnuAspects", "&Aspects", this, &Wheels::mnuAspects_Click);
    QMenu* orbs = AddMenu(bar, "mnuOrbs", "&Orbs");
    mnuOrbsChange = AddItem(orbs, "mnuOrbsChange", "&Select new orb file", this,
                            &Wheels::mnuOrbsChange_Click, Qt::Key_F11);
    mnuOrbsEdit = AddItem(orbs, "mnuOrbsEdit", "&Edit orb file", this, &Wheels::mnuOrbsEdit_Click,
                          Qt::Key_F12);
    QMenu* options = AddMenu(bar, "mnuOptions", "Options");
    mnuOptionAspectLines =
        AddItem(options, "mnuOptionAspectLines", "&3 Degree Orbs for Wheel Aspect Lines", this,
                &Wheels::mnuOptionAspectLines_Click, Qt::CTRL | Qt::Key_F11);
    mnuOptionDisplaySextiles =
        AddItem(options, "mnuOptionDisplaySextiles", "&Display sextiles", this,
                &Wheels::mnuOptionDisplaySextiles_Click, Qt::CTRL | Qt::Key_F12);
    mnuOptionAspectLines->setCheckable(true);
    mnuOptionDisplaySextiles->setCheckable(true);
    mnuPrintChartwheel =
        AddItem(bar, "mnuPrintChartwheel", "&Print", this, &Wheels::mnuPrintChartwheel_Click);
    QMenu* type = AddMenu(bar, "mnuChartType", "&Type");
    mnuCTAmerican =
        AddItem(type, "mnuCTAmerican", "&American", this, &Wheels::mnuCTAmerican_Click, Qt::Key_F7);
    mnuCTEuropean =
        AddItem(type, "mnuCTEuropean", "&European", this, &Wheels::mnuCTEuropean_Click, Qt::Key_F8);
    mnuCTAmerican->setCheckable(true);
    mnuCTEuropean->setCheckable(true);
    mnuHelp = AddItem(bar, "mnuHelp", "&Help", this, &Wheels::mnuHelp_Click);
}

// --- life cycle ---------------------------------------------------------------

void Wheels::Form_Load() {
    const Settings& st = ctx_.display().settings;
    WheelLoading = true;
    AppContext::restorePlace(this, {double(st.WheelsLeft), double(st.WheelsTop),
                                    double(st.WheelsWidth), double(st.WheelsHeight)});
    WheelLoading = false;

    const Session& s = ctx_.session();
    chart_ = WheelChartOf(s.calc.chart, s.listing.HeaderLines, s.listing.HeaderLines2);
    style_ = WheelStyle{};
    style_.type = st.TypeChart != 0 ? ChartStyle::European : ChartStyle::American;
    mnuCTEuropean->setChecked(st.TypeChart != 0);
    mnuCTAmerican->setChecked(st.TypeChart == 0);
    mnuOptionAspectLines->setChecked(false);
    mnuOptionDisplaySextiles->setChecked(true);
    orbFileMissing_.reset();
    ctx_.unloadWindow(win::CWAspect);
    area_->update();
}

void Wheels::Reopen() {
    // Reopened where it stands, as if its place had just been kept.
    recordPlace();
    Form_Load();
    // Brought forward over the data window that took the new page; the
    // focus is only moved when it is elsewhere (not while a step key is
    // held down).
    if (isMinimized()) showNormal();
    show();
    raise();
    if (!isActiveWindow()) activateWindow();
}

void Wheels::areaResized(const QSize& size) {
    StartScale = WindowScale(size.width(), size.height());
    ctx_.display().settings.StartScale = StartScale;
    if (!WheelLoading) area_->update();
}

void Wheels::recordPlace() {
    if (isMinimized() || !isVisible()) return;
    Settings& st = ctx_.display().settings;
    // The client area, as restorePlace puts it back.
    const QRect g = geometry();
    st.WheelsTop = AppContext::toTwips16(g.y());
    st.WheelsLeft = AppContext::toTwips16(g.x());
    st.WheelsHeight = AppContext::toTwips16(g.height());
    st.WheelsWidth = AppContext::toTwips16(g.width());
}

void Wheels::changeEvent(QEvent* e) {
    if (e->type() == QEvent::ActivationChange && !isActiveWindow()) recordPlace();
    QMainWindow::changeEvent(e);
}

void Wheels::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Escape) {
        e->accept();
        if (QWidget* main = ctx_.mainWindow()) {
            main->raise();
            main->activateWindow();
        }
        return;
    }
    QMainWindow::keyPressEvent(e);
}

void Wheels::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() == Qt::RightButton) {
        if (QWidget* main = ctx_.mainWindow()) {
            main->raise();
            main->activateWindow();
        }
        e->accept();
        return;
    }
    QMainWindow::mouseReleaseEvent(e);
}

// --- painting -----------------------------------------------------------------

WheelPaintInput Wheels::paintInput(const PrintedPage* page) const {
    const Session& s = ctx_.session();
    return {chart_, style_, s.options, s.listing.orbs.WheelOrbs, tables_, page};
}

WheelLayout Wheels::paintWheel(QPainter& p, const QRect& area) {
    Session& s = ctx_.session();
    mnuAspects->setEnabled(true);
    // The aspect lines take the orbs of the current orb file as it is now.
    if (s.options[47] == 1) {
        if (auto m = LoadWheelOrbs(s.paths.OrbFilePath, s.listing.orbs)) {
            if (orbFileMissing_ != m->text) {
                orbFileMissing_ = m->text;
                // Told once, after the paint.
                QTimer::singleShot(0, this, [this, msg = *m] { ctx_.showMessage(msg, this); });
            }
        }
    }
    style_.PrintFormMode = PrintFormMode;
    layout_ =
        RenderWheel(p, QRectF(area), WindowView(area.width(), area.height()), paintInput(nullptr));
    QString caption = QString::fromStdString(ctx_.display().TitlePrefix) + "Chartwheels";
    if (windowTitle() != caption) setWindowTitle(caption);
    return layout_;
}

// --- time steps ---------------------------------------------------------------

void Wheels::step(TimeStep st) {
    Session& s = ctx_.session();
    // The first step starts from the natal input window; later ones go on
    // from the stepped moment.
    SteppedRecord r = s.calc.UpdateMode == 1 ? s.calc.upd : SteppedFromInput(ctx_.currentInput());
    StepTime(r, st);
    ctx_.calculate(r, this);
}

void Wheels::mnuUpdateAddDay_Click() {
    step(TimeStep::AddDay);
}
void Wheels::mnuUpdateSubDay_Click() {
    step(TimeStep::SubDay);
}
void Wheels::mnuUpdateAddHour_Click() {
    step(TimeStep::AddHour);
}
void Wheels::mnuUpdateSubHour_Click() {
    step(TimeStep::SubHour);
}
void Wheels::mnuUpdateAddMinute_Click() {
    step(TimeStep::AddMinute);
}
void Wheels::mnuUpdateSubMinute_Click() {
    step(TimeStep::SubMinute);
}

// --- aspects and orbs -----------------------------------------------------------

void Wheels::mnuAspects_Click() {
    ctx_.unloadWindow(win::CWAspect);
    ctx_.showWindow(win::CWAspect, "Aspects");
}

void Wheels::mnuOrbsChange_Click() {
    Session& s = ctx_.session();
    auto current =
        s.paths.OrbFilePath.empty() ? NatalOrbPath(s.paths.AppPath) : s.paths.OrbFilePath;
    // A missing orb file is told before the chooser opens.
    if (!ReadFileBytes(current)) {
        ctx_.showMessage(OrbFileMissing(current), this);
        return;
    }
    QString chosen = ctx_.selectFile("*.ORB", current, this);
    if (chosen.isEmpty()) return;
    s.paths.OrbFilePath = chosen.toStdString();
    mnuAspects_Click();
}

void Wheels::mnuOrbsEdit_Click() {
    ctx_.unloadWindow(win::OrbsEdit);
    ctx_.showWindow(win::OrbsEdit, "Edit orb file");
}

void Wheels::mnuOptionAspectLines_Click() {
    // The item has already inverted its check mark.
    style_.FixedAspectWindows = mnuOptionAspectLines->isChecked();
    area_->update();
}

void Wheels::mnuOptionDisplaySextiles_Click() {
    style_.DisplaySextiles = mnuOptionDisplaySextiles->isChecked();
    area_->update();
}

// --- style and help ---------------------------------------------------------------

void Wheels::chooseType(ChartStyle type) {
    WaitCursor wait;
    mnuCTAmerican->setChecked(type == ChartStyle::American);
    mnuCTEuropean->setChecked(type == ChartStyle::European);
    ctx_.display().settings.TypeChart = type == ChartStyle::European ? 1 : 0;
    style_.type = type;
    area_->repaint();
}

void Wheels::mnuCTAmerican_Click() {
    chooseType(ChartStyle::American);
}

void Wheels::mnuCTEuropean_Click() {
    chooseType(ChartStyle::European);
}

void Wheels::mnuHelp_Click() {
    ctx_.runListing([](Session& s) { return s.CmdHelpText("\\WHEELS.HLP"); }, this);
}

// --- printing -------------------------------------------------------------------

void Wheels::mnuPrintChartwheel_Click() {
    auto answer =
        ctx_.ask(PrintQuestion(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    if (answer != QMessageBox::Yes && answer != QMessageBox::No) return;
    QPrinter printer(QPrinter::HighResolution);
    QString folder = QString::fromStdString(ctx_.session().paths.AppPath.string());
    if (!ctx_.dialogs().setUpPrinter(printer, folder, this)) return;
    WaitCursor wait;
    if (answer == QMessageBox::Yes)
        printFullPage(printer);
    else
        printHalfPage(printer);
}

void Wheels::printFullPage(QPrinter& printer) {
    WheelToPrinter = true;
    PrintedPage page;
    page.personalHeader = ReadLines(FindFile(ctx_.session().paths.AppPath, "PERSONAL.NAM"));
    QPainter p;
    if (p.begin(&printer)) {
        RenderWheel(p, QRectF(0, 0, printer.width(), printer.height()), PrinterView(style_.type),
                    paintInput(&page), PrintedLineWidth);
        p.end();
    }
    WheelToPrinter = false;
}

QImage Wheels::halfPageImage() {
    // The size the wheel area has when the window is maximised.
    QSize size = area_->size();
    if (QScreen* screen = this->screen())
        size = screen->availableGeometry().size() - QSize(0, menuBar()->sizeHint().height());
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    PrintFormMode = true;
    {
        QPainter p(&image);
        paintWheel(p, image.rect());
    }
    PrintFormMode = false;
    return image;
}

void Wheels::printHalfPage(QPrinter& printer) {
    QImage image = halfPageImage();
    QPainter p;
    if (!p.begin(&printer)) return;
    // The upper half of the page, the picture's proportions kept.
    QSizeF half(printer.width(), printer.height() / 2.0);
    QSizeF fitted = QSizeF(image.size()).scaled(half, Qt::KeepAspectRatio);
    QRectF target(QPointF((half.width() - fitted.width()) / 2, 0), fitted);
    p.setRenderHint(QPainter::SmoothPixmapTransform, true);
    p.drawImage(target, image);
    p.end();
    area_->update();
}

} // namespace kal::ui
