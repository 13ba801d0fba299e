#include "report/ui/Register.h"

#include <QApplication>

#include <memory>

#include "report/ui/P_Name.h"
#include "report/ui/Report.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/StatusDlg.h"

namespace kal::ui {

namespace {

// The progress window while the report's aspects are written.
class ProgressWindow : public ReportProgress {
  public:
    explicit ProgressWindow(QWidget* parent) : parent_(parent) {}
    void Open() override {
        dlg_ = std::make_unique<StatusDlg>(parent_);
        dlg_->ShowProgress(0, 1);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    void Show(int done, int total) override {
        if (dlg_) dlg_->ShowProgress(done, total);
    }
    void Close() override { dlg_.reset(); }

  private:
    QWidget* parent_;
    std::unique_ptr<StatusDlg> dlg_;
};

// "Natal Report": the data page of the natal data and aspects, the report
// built under the hourglass with its progress window, then the viewer
// opened afresh on the new report.
void NatalReportCommand(AppContext& ctx) {
    Session& s = ctx.session();
    Messages msgs;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    {
        ProgressWindow progress(ctx.mainWindow());
        msgs = s.CmdNatalReport(&progress);
        if (msgs.empty()) ctx.writeDataPage(msgs);
    }
    QApplication::restoreOverrideCursor();
    ctx.showMessages(msgs);
    if (s.listing.out.PageCount() > 0) ctx.showDataPage();
    ctx.unloadWindow(win::Report);
    ctx.showWindow(win::Report);
}

} // namespace

void RegisterReportWindows(AppContext& ctx) {
    ctx.registerWindow(win::Report, [](AppContext& c, QWidget* p) { return new Report(c, p); });
    ctx.registerWindow(win::P_Name, [](AppContext& c, QWidget* p) { return new P_Name(c, p); });
    ctx.registerCommand(cmd::ReportNatal, NatalReportCommand);
}

} // namespace kal::ui
