#include "shell/ui/OutputD1.h"

#include <QApplication>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QStatusBar>

#include "base/TextFile.h"
#include "shell/DataFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Menus.h"

namespace kal::ui {

OutputD1::OutputD1(AppContext& ctx, QWidget* parent) : QMainWindow(parent), ctx_(ctx) {
    setObjectName("OutputD1");
    setWindowFlag(Qt::Window, true);
    RichText1 = new QPlainTextEdit(this);
    RichText1->setObjectName("RichText1");
    RichText1->setLineWrapMode(QPlainTextEdit::NoWrap);
    RichText1->installEventFilter(this);
    RichText1->viewport()->installEventFilter(this);
    setCentralWidget(RichText1);

    QMenuBar* bar = menuBar();
    QMenu* file = AddMenu(bar, "mnuFile", "&File");
    mnuFileSave = AddItem(file, "mnuFileSave", "&Save", this, &OutputD1::mnuFileSave_Click);
    mnuFileSaveAs =
        AddItem(file, "mnuFileSaveAs", "Save &As", this, &OutputD1::mnuFileSaveAs_Click);
    QMenu* fonts = AddMenu(bar, "mnuFonts", "F&ont");
    mnuFontsIncrease =
        AddItem(fonts, "mnuFontsIncrease", "&Increase", this, &OutputD1::mnuFontsIncrease_Click);
    mnuFontsDecrease =
        AddItem(fonts, "mnuFontsDecrease", "&Decrease", this, &OutputD1::mnuFontsDecrease_Click);
    mnuFontsBold = AddItem(fonts, "mnuFontsBold", "&Bold", this, &OutputD1::mnuFontsBold_Click);
    mnuFontsItalic =
        AddItem(fonts, "mnuFontsItalic", "I&talic", this, &OutputD1::mnuFontsItalic_Click);
    mnuFontsBold->setCheckable(true);
    mnuFontsItalic->setCheckable(true);
    mnuClearBuffer =
        AddItem(bar, "mnuClearBuffer", "&Clear all data", this, &OutputD1::mnuClearBuffer_Click);
    mnuPrint = AddItem(bar, "mnuPrint", "&Print page", this, &OutputD1::mnuPrint_Click);
    mnuPrintData = AddItem(bar, "mnuPrintData", "Print &data", this, &OutputD1::mnuPrintData_Click);
    mnuHelp = AddItem(bar, "mnuHelp", "&Help", this, &OutputD1::mnuHelp_Click);

    Form_Load();
}

void OutputD1::Form_Load() {
    const Settings& st = ctx_.display().settings;
    DataPositioning = true;
    AppContext::restorePlace(this, {double(st.DataLeft), double(st.DataTop), double(st.DataWidth),
                                    double(st.DataHeight)});
    DataPositioning = false;
    applyFont();
    mnuFontsBold->setChecked(st.ListFontBold != 0);
    mnuFontsItalic->setChecked(st.ListFontItalic != 0);
    mnuFontsDecrease->setEnabled(CanDecreaseFont(st.ListFontSize));
    mnuFontsIncrease->setEnabled(CanIncreaseFont(st.ListFontSize));
    if (!QFontInfo(RichText1->font()).fixedPitch()) ctx_.showMessage(CourierMissingMessage(), this);
    RichText1->clear();
    setWindowTitle(QString::fromStdString(ctx_.display().TitlePrefix) + "Data");
}

void OutputD1::applyFont() {
    const DisplayPrefs& d = ctx_.display();
    QFont f(QString::fromStdString(d.ListFontName));
    f.setStyleHint(QFont::TypeWriter);
    f.setPointSizeF(d.settings.ListFontSize);
    f.setBold(d.settings.ListFontBold != 0);
    f.setItalic(d.settings.ListFontItalic != 0);
    RichText1->setFont(f);
}

void OutputD1::Form_Resize() {
    if (isMinimized() || DataPositioning) return;
    Settings& st = ctx_.display().settings;
    const QRect g = geometry();
    st.DataWidth = AppContext::toTwips16(g.width());
    st.DataHeight = AppContext::toTwips16(g.height());
    st.DataTop = AppContext::toTwips16(g.y());
    st.DataLeft = AppContext::toTwips16(g.x());
}

void OutputD1::resizeEvent(QResizeEvent* e) {
    QMainWindow::resizeEvent(e);
    Form_Resize();
}

void OutputD1::moveEvent(QMoveEvent* e) {
    QMainWindow::moveEvent(e);
    Form_Resize();
}

void OutputD1::changeEvent(QEvent* e) {
    QMainWindow::changeEvent(e);
    if (e->type() == QEvent::WindowStateChange) ctx_.display().DataWindowMinimised = isMinimized();
}

void OutputD1::LoadPage() {
    // The page as it was composed, which is what reports/LASTPAGE.TXT holds
    // when it could be written (when it could not, the file holds an older
    // page, which must not pass for this one).
    const std::string bytes = PageText(ctx_.session().listing.out, "\n");
    const QByteArray raw(bytes.data(), static_cast<qsizetype>(bytes.size()));
    // Pages are UTF-8; older single-byte text shows as Latin-1.
    QString text = QString::fromUtf8(raw);
    if (text.contains(QChar::ReplacementCharacter)) text = QString::fromLatin1(raw);
    RichText1->setPlainText(text);
    setWindowTitle(QString::fromStdString(ctx_.display().TitlePrefix) + "Data");
    show();
    raise();
}

void OutputD1::showStatus(const QString& text) {
    // The bar is made when it is first needed, after the window is shown.
    QStatusBar* bar = statusBar();
    bar->show();
    bar->showMessage(text);
}

void OutputD1::RefreshDataPage() {
    Session& s = ctx_.session();
    if (s.listing.out.PageCount() == 0) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ShownPage shown = s.ShowDataPage(ctx_.display().DataWindowMinimised);
    LoadPage();
    const Settings& st = ctx_.display().settings;
    mnuFontsDecrease->setEnabled(CanDecreaseFont(st.ListFontSize));
    mnuFontsIncrease->setEnabled(CanIncreaseFont(st.ListFontSize));
    QApplication::restoreOverrideCursor();
    if (shown.notWritten) ctx_.showMessage(*shown.notWritten, this);
}

void OutputD1::mnuFontsIncrease_Click() {
    DisplayPrefs& d = ctx_.display();
    if (!IncreaseFontSize(d.settings.ListFontSize, d.WheelScale)) return;
    applyFont();
    RefreshDataPage();
}

void OutputD1::mnuFontsDecrease_Click() {
    DisplayPrefs& d = ctx_.display();
    if (!DecreaseFontSize(d.settings.ListFontSize, d.WheelScale)) return;
    applyFont();
    RefreshDataPage();
}

void OutputD1::mnuFontsBold_Click() {
    Settings& st = ctx_.display().settings;
    st.ListFontBold = st.ListFontBold != 0 ? 0 : -1;
    mnuFontsBold->setChecked(st.ListFontBold != 0);
    applyFont();
    RefreshDataPage();
}

void OutputD1::mnuFontsItalic_Click() {
    Settings& st = ctx_.display().settings;
    st.ListFontItalic = st.ListFontItalic != 0 ? 0 : -1;
    mnuFontsItalic->setChecked(st.ListFontItalic != 0);
    applyFont();
    RefreshDataPage();
}

void OutputD1::mnuClearBuffer_Click() {
    ctx_.session().listing.out.ClearAllLines();
    ctx_.showMessage(AllDataClearedMessage(), this);
}

void OutputD1::writeData(const QString& file) {
    Session& s = ctx_.session();
    if (WriteResult w = SaveDataFile(file.toStdString(), s.listing.out.AllLines, s.options[45]); !w)
        ctx_.showMessage(WriteFailedMessage(file.toStdString(), w), this);
}

void OutputD1::mnuFileSave_Click() {
    Session& s = ctx_.session();
    if (s.listing.out.AllCount() == 0) {
        ctx_.showMessage(NoDataToWriteMessage(), this);
        return;
    }
    if (s.paths.OutputFileName.empty()) {
        mnuFileSaveAs_Click();
        return;
    }
    writeData(QString::fromStdString(s.paths.OutputFileName));
}

void OutputD1::mnuFileSaveAs_Click() {
    Session& s = ctx_.session();
    if (s.listing.out.AllCount() == 0) {
        ctx_.showMessage(NoDataToWriteMessage(), this);
        return;
    }
    QString folder = QString::fromStdString(s.paths.AppPath.string());
    QString proposed = QString::fromStdString(ProposedFileName(s.calc.chart.ChartName));
    QString file = ctx_.dialogs().saveAs(folder, proposed, this);
    if (file.isEmpty()) return;
    s.paths.OutputFileName = file.toStdString();
    writeData(file);
}

void OutputD1::openPrintWindow(const WriteResult& printFile) {
    // The print window reads the print file: an old one must not be
    // printed in place of this text.
    if (!printFile) {
        ctx_.showMessage(WriteFailedMessage(PrintFilePath(ctx_.session().paths.AppPath), printFile),
                         this);
        return;
    }
    ctx_.unloadWindow(win::PrntFile);
    ctx_.showWindow(win::PrntFile, "Printing");
}

void OutputD1::mnuPrint_Click() {
    Session& s = ctx_.session();
    if (s.listing.out.PageCount() == 0) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    WriteResult w = WritePrintFile(s.paths.AppPath, s.listing.out.PageLines);
    QApplication::restoreOverrideCursor();
    openPrintWindow(w);
}

void OutputD1::mnuPrintData_Click() {
    Session& s = ctx_.session();
    if (s.listing.out.AllCount() == 0) {
        ctx_.showMessage(NoDataToPrintMessage(), this);
        return;
    }
    openPrintWindow(WritePrintFile(s.paths.AppPath, s.listing.out.AllLines));
}

void OutputD1::mnuHelp_Click() {
    ctx_.runListing([](Session& s) { return s.CmdHelpText("\\OUTPUTD1.HLP"); }, this);
}

void OutputD1::RichText1_KeyPress(int key) {
    if (key == Qt::Key_Escape && ctx_.mainWindow()) {
        ctx_.mainWindow()->activateWindow();
        ctx_.mainWindow()->setFocus();
    }
}

void OutputD1::RichText1_MouseUp(Qt::MouseButton button) {
    if (button == Qt::RightButton && ctx_.mainWindow()) {
        ctx_.mainWindow()->activateWindow();
        ctx_.mainWindow()->setFocus();
    }
}

bool OutputD1::eventFilter(QObject* watched, QEvent* event) {
    if (watched == RichText1 && event->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(event);
        if (k->key() == Qt::Key_Escape) {
            RichText1_KeyPress(k->key());
            return true; // swallowed
        }
    }
    if (watched == RichText1->viewport()) {
        if (event->type() == QEvent::ContextMenu) return true;
        if (event->type() == QEvent::MouseButtonRelease) {
            auto* m = static_cast<QMouseEvent*>(event);
            if (m->button() == Qt::RightButton) {
                RichText1_MouseUp(m->button());
                return true;
            }
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace kal::ui
