// The data window: shows the current page (reports/LASTPAGE.TXT) in a
// fixed-pitch box; saves, clears and prints the buffer; steps its font.
#pragma once

#include <QMainWindow>

#include "base/SafeWrite.h"

class QAction;
class QPlainTextEdit;

namespace kal::ui {

class AppContext;

class OutputD1 : public QMainWindow {
    Q_OBJECT

  public:
    explicit OutputD1(AppContext& ctx, QWidget* parent = nullptr);

    QPlainTextEdit* RichText1 = nullptr;

  public slots:
    // Shows the current page (what reports/LASTPAGE.TXT holds) in the box
    // and shows the window.
    void LoadPage();
    // A line in the window's status bar that stays until the window closes.
    void showStatus(const QString& text);
    // Re-shows the page after a font change and sets the font menu's states.
    void RefreshDataPage();

    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFontsIncrease_Click();
    void mnuFontsDecrease_Click();
    void mnuFontsBold_Click();
    void mnuFontsItalic_Click();
    void mnuClearBuffer_Click();
    void mnuPrint_Click();
    void mnuPrintData_Click();
    void mnuHelp_Click();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* e) override;
    void moveEvent(QMoveEvent* e) override;
    void changeEvent(QEvent* e) override;

  private:
    void Form_Load();
    void Form_Resize();
    // Escape and the right mouse button give the focus to the main window.
    void RichText1_KeyPress(int key);
    void RichText1_MouseUp(Qt::MouseButton button);
    void applyFont();
    void writeData(const QString& file);
    void openPrintWindow(const WriteResult& printFile);

    AppContext& ctx_;
    bool DataPositioning = false;
    QAction* mnuFileSave = nullptr;
    QAction* mnuFileSaveAs = nullptr;
    QAction* mnuFontsIncrease = nullptr;
    QAction* mnuFontsDecrease = nullptr;
    QAction* mnuFontsBold = nullptr;
    QAction* mnuFontsItalic = nullptr;
    QAction* mnuClearBuffer = nullptr;
    QAction* mnuPrint = nullptr;
    QAction* mnuPrintData = nullptr;
    QAction* mnuHelp = nullptr;
};

} // namespace kal::ui
