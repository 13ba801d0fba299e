// The chart wheel window: the current chart drawn as a wheel in the
// American or European style, scaled to the window. Its menu steps the
// birth moment by a day, an hour or a minute (update mode), opens the
// aspects window, chooses and edits the orb file, switches the two aspect
// line options and the style, and prints the wheel on a full or half page.
#pragma once

#include <QMainWindow>

#include <optional>

#include "wheel/TimeStep.h"
#include "wheel/WheelPaint.h"

class QAction;
class QPrinter;

namespace kal::ui {

class AppContext;

class Wheels : public QMainWindow {
    Q_OBJECT

  public:
    Wheels(AppContext& ctx, const WheelTables& tables, QWidget* parent = nullptr);
    ~Wheels() override;

    // Places the window, takes the wheel's copy of the chart, sets the menus
    // to their opening states. Run again when the wheel is reopened on a
    // new chart.
    void Form_Load();
    // Reopens the window on the chart just calculated, where it stands.
    void Reopen();

    // The wheel's state.
    short StartScale = 287;
    bool WheelLoading = false;
    bool WheelToPrinter = false;
    bool PrintFormMode = false;
    const WheelChart& chart() const { return chart_; }
    const WheelStyle& style() const { return style_; }
    // What the last paint placed (tests read it).
    const WheelLayout& layout() const { return layout_; }
    // The paint procedure on any painter: the window's look in `area`.
    WheelLayout paintWheel(QPainter& p, const QRect& area);
    // The drawing area changed size: R follows it.
    void areaResized(const QSize& size);

    // The printed wheel: the full page (printer options, header, personal
    // header, aspect grid) and the half page (the window's image with a
    // white background and black house lines).
    void printFullPage(QPrinter& printer);
    void printHalfPage(QPrinter& printer);
    // The window's image as the half page prints it, at the size of a
    // maximised window.
    QImage halfPageImage();

    QAction* mnuUpdateAddDay = nullptr;
    QAction* mnuUpdateSubDay = nullptr;
    QAction* mnuUpdateAddHour = nullptr;
    QAction* mnuUpdateSubHour = nullptr;
    QAction* mnuUpdateAddMinute = nullptr;
    QAction* mnuUpdateSubMinute = nullptr;
    QAction* mnuAspects = nullptr;
    QAction* mnuOrbsChange = nullptr;
    QAction* mnuOrbsEdit = nullptr;
    QAction* mnuOptionAspectLines = nullptr;
    QAction* mnuOptionDisplaySextiles = nullptr;
    QAction* mnuPrintChartwheel = nullptr;
    QAction* mnuCTAmerican = nullptr;
    QAction* mnuCTEuropean = nullptr;
    QAction* mnuHelp = nullptr;

  public slots:
    void mnuUpdateAddDay_Click();
    void mnuUpdateSubDay_Click();
    void mnuUpdateAddHour_Click();
    void mnuUpdateSubHour_Click();
    void mnuUpdateAddMinute_Click();
    void mnuUpdateSubMinute_Click();
    void mnuAspects_Click();
    void mnuOrbsChange_Click();
    void mnuOrbsEdit_Click();
    void mnuOptionAspectLines_Click();
    void mnuOptionDisplaySextiles_Click();
    void mnuPrintChartwheel_Click();
    void mnuCTAmerican_Click();
    void mnuCTEuropean_Click();
    void mnuHelp_Click();

  protected:
    void keyPressEvent(QKeyEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void changeEvent(QEvent* e) override;

  private:
    void buildMenus();
    void step(TimeStep step);
    void chooseType(ChartStyle type);
    void recordPlace();
    WheelPaintInput paintInput(const PrintedPage* page) const;

    AppContext& ctx_;
    const WheelTables& tables_;
    WheelChart chart_;
    WheelStyle style_;
    WheelLayout layout_;
    QWidget* area_ = nullptr;
    // The orb file that could not be read, reported once.
    std::optional<std::string> orbFileMissing_;
};

} // namespace kal::ui
