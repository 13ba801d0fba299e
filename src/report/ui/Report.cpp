#include "report/ui/Report.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPrinter>

#include <algorithm>

#include "base/SafeWrite.h"
#include "base/TextFile.h"
#include "shell/DataFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/PrintText.h"
#include "shell/ui/WindowLook.h"
#include "ui_Report.h"

namespace kal::ui {

namespace {

// The key code of a key that moves the view, 0 for any other key.
int MoveKeyCode(int qtKey) {
    switch (qtKey) {
    case Qt::Key_PageUp:
        return Report::KeyPageUp;
    case Qt::Key_PageDown:
        return Report::KeyPageDown;
    case Qt::Key_End:
        return Report::KeyEnd;
    case Qt::Key_Home:
        return Report::KeyHome;
    default:
        return 0;
    }
}

// The printed report is set in Courier New at 12 points.
constexpr int ReportPrintPointSize = 12;

} // namespace

Report::Report(AppContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), ui(std::make_unique<Ui::Report>()) {
    ui->setupUi(this);
    setWindowFlag(Qt::Window, true);
    QFont f = CourierFont(10);
    ui->txtContent->setFont(f);
    // Room for a screen page and the line after it, 80 columns wide.
    QFontMetrics fm(f);
    ui->txtContent->setMinimumSize(fm.horizontalAdvance(QString(82, 'x')),
                                   fm.lineSpacing() * (ReportPageSize + 1) + 12);
    connect(ui->cmdPageUP, &QPushButton::clicked, this, &Report::cmdPageUP_Click);
    connect(ui->cmdPageDOWN, &QPushButton::clicked, this, &Report::cmdPageDOWN_Click);
    connect(ui->cmdUp1, &QPushButton::clicked, this, &Report::cmdUp1_Click);
    connect(ui->cmdDown1, &QPushButton::clicked, this, &Report::cmdDown1_Click);
    connect(ui->cmdSave, &QPushButton::clicked, this, &Report::cmdSave_Click);
    connect(ui->cmdSaveAs, &QPushButton::clicked, this, &Report::cmdSaveAs_Click);
    connect(ui->btnPrint, &QPushButton::clicked, this, &Report::btnPrint_Click);
    connect(ui->btnCancel, &QPushButton::clicked, this, &Report::btnCancel_Click);
    for (QWidget* w : findChildren<QWidget*>()) w->installEventFilter(this);
    Form_Load();
}

Report::~Report() = default;

void Report::Form_Load() {
    ReportTopLine = 0;
    ReportPageSize = 23;
    ShowReportPage();
}

void Report::ShowReportPage() {
    const NatalReport& r = ctx_.session().report;
    const long count = static_cast<long>(r.ReportLineCount());
    if (count == 0) return;
    if (ReportTopLine < 0) ReportTopLine = 0;
    const long last = std::min<long>(ReportTopLine + ReportPageSize - 1, count);
    QString text;
    // Line number `count` is the empty line after the report.
    for (long n = ReportTopLine; n <= last; ++n) {
        if (n < count) text += QString::fromStdString(r.ReportLineAt(static_cast<size_t>(n)));
        text += "\n";
    }
    ui->txtContent->setPlainText(text);
    setWindowTitle(QString::fromStdString(ctx_.display().TitlePrefix) + "REPORT");
    show();
}

bool Report::pageDownAllowed() const {
    return ReportTopLine + ReportPageSize - 1 <=
           static_cast<long>(ctx_.session().report.ReportLineCount());
}

void Report::cmdPageDOWN_Click() {
    if (!pageDownAllowed()) return;
    ReportTopLine = static_cast<short>(ReportTopLine + ReportPageSize);
    ShowReportPage();
}

void Report::cmdPageUP_Click() {
    ReportTopLine = static_cast<short>(ReportTopLine - ReportPageSize);
    ShowReportPage();
    ui->cmdPageUP->setFocus();
}

void Report::cmdDown1_Click() {
    if (!pageDownAllowed()) return;
    ++ReportTopLine;
    ShowReportPage();
}

void Report::cmdUp1_Click() {
    --ReportTopLine;
    ShowReportPage();
}

void Report::Form_KeyDown(int keyCode) {
    switch (keyCode) {
    case KeyPageUp:
        cmdPageUP_Click();
        break;
    case KeyPageDown:
        cmdPageDOWN_Click();
        break;
    case KeyEnd:
        cmdDown1_Click();
        break;
    case KeyHome:
        cmdUp1_Click();
        break;
    default:
        break;
    }
}

void Report::cmdPageUP_KeyDown(int keyCode) {
    Form_KeyDown(keyCode);
}

void Report::cmdPageDOWN_KeyDown(int keyCode) {
    Form_KeyDown(keyCode);
}

bool Report::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        int code = MoveKeyCode(static_cast<QKeyEvent*>(event)->key());
        if (code != 0) {
            if (watched == ui->cmdPageUP)
                cmdPageUP_KeyDown(code);
            else if (watched == ui->cmdPageDOWN)
                cmdPageDOWN_KeyDown(code);
            else
                Form_KeyDown(code);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void Report::writeReport(const QString& file) {
    Session& s = ctx_.session();
    if (WriteResult w = SaveReportFile(file.toStdString(), s.report, s.options); !w)
        ctx_.showMessage(WriteFailedMessage(file.toStdString(), w), this);
}

void Report::cmdSaveAs_Click() {
    Session& s = ctx_.session();
    if (s.report.ReportLineCount() == 0) {
        ctx_.showMessage(NoDataToWriteMessage(), this);
        return;
    }
    QString folder = QString::fromStdString(FindFile(s.paths.AppPath, "n_report").string());
    QString proposed = QString::fromStdString(ProposedFileName(s.calc.chart.ChartName));
    QString file = ctx_.dialogs().saveAs(folder, proposed, this);
    if (file.isEmpty()) return;
    s.paths.OutputFileName = file.toStdString();
    writeReport(file);
}

void Report::cmdSave_Click() {
    Session& s = ctx_.session();
    if (s.report.ReportLineCount() == 0) {
        ctx_.showMessage(NoDataToWriteMessage(), this);
        return;
    }
    if (s.paths.OutputFileName.empty()) {
        cmdSaveAs_Click();
        return;
    }
    writeReport(QString::fromStdString(s.paths.OutputFileName));
}

void Report::btnPrint_Click() {
    Session& s = ctx_.session();
    if (s.report.ReportLineCount() == 0) {
        ctx_.showMessage(NoDataToPrintMessage(), this);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName("Kaltrova report");
    QString folder = QString::fromStdString(FindFile(s.paths.AppPath, "n_report").string());
    if (!ctx_.dialogs().setUpPrinter(printer, folder, this)) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    PrintTextPages(printer, SplitAtFormFeeds(ReportPagedLines(s.report, s.options)),
                   ReportPrintPointSize);
    QApplication::restoreOverrideCursor();
}

void Report::btnCancel_Click() {
    close();
}

void Report::Form_Paint() {
    DrawSunkenFrame(this, ui->txtContent);
}

void Report::paintEvent(QPaintEvent* e) {
    QWidget::paintEvent(e);
    Form_Paint();
}

} // namespace kal::ui
