// The report viewer: the natal report one screen page of 23 lines at a
// time, moved by page or by line with the buttons and with Page Up, Page
// Down, End (a line down) and Home (a line up); Save and Save As write it
// with page breaks, footers and form feeds, Print prints the same pages.
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class Report;
}

namespace kal::ui {

class AppContext;

class Report : public QWidget {
    Q_OBJECT

  public:
    explicit Report(AppContext& ctx, QWidget* parent = nullptr);
    ~Report() override;

    // The first report line on the screen, and the lines of a screen page.
    short ReportTopLine = 0;
    short ReportPageSize = 23;

    // Key codes of the keys that move the view.
    static constexpr int KeyPageUp = 33, KeyPageDown = 34, KeyEnd = 35, KeyHome = 36;

  public slots:
    void ShowReportPage();
    void cmdPageUP_Click();
    void cmdPageDOWN_Click();
    void cmdUp1_Click();
    void cmdDown1_Click();
    void cmdSave_Click();
    void cmdSaveAs_Click();
    void btnPrint_Click();
    void btnCancel_Click();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* e) override;

  private:
    void Form_Load();
    void Form_Paint();
    // The keys, alike wherever the focus is.
    void Form_KeyDown(int keyCode);
    void cmdPageUP_KeyDown(int keyCode);
    void cmdPageDOWN_KeyDown(int keyCode);
    bool pageDownAllowed() const;
    void writeReport(const QString& file);

    AppContext& ctx_;
    std::unique_ptr<Ui::Report> ui;
};

} // namespace kal::ui
