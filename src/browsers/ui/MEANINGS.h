// The meanings window: any stored interpretation without a chart -- a
// planet in a sign or a house, a rising sign, an aspect between two planets
// -- copied from the interpretation files into the data window.
#pragma once

#include <QMainWindow>

#include "browsers/Meanings.h"

class QPushButton;

namespace kal::ui {

class AppContext;
class OptionGroup;

class MEANINGS : public QMainWindow {
    Q_OBJECT

  public:
    explicit MEANINGS(AppContext& ctx, QWidget* parent = nullptr);

    OptionGroup* Option1 = nullptr; // Sign/Asc Sign
    OptionGroup* Option2 = nullptr; // Houses
    OptionGroup* Option3 = nullptr; // Planets
    OptionGroup* Option4 = nullptr; // Aspects
    OptionGroup* Option5 = nullptr; // 2nd Planet
    QPushButton* OKSigns = nullptr;
    QPushButton* OKHouses = nullptr;
    QPushButton* OKRisingSign = nullptr;
    QPushButton* OKAspects = nullptr;
    QPushButton* Command1 = nullptr;

  public slots:
    void Option1_GotFocus(int index);
    void Option2_GotFocus(int index);
    void Option3_GotFocus(int index);
    void Option4_GotFocus(int index);
    void Option5_GotFocus(int index);
    void Option1_DblClick(int index);
    void Option2_DblClick(int index);
    void Option4_DblClick(int index);
    void OKSigns_Click();
    void OKHouses_Click();
    void OKRisingSign_Click();
    void OKAspects_Click();
    void Command1_Click();
    void mnuFileExit_Click();

  private:
    void Form_Load();
    // Shows the passage of a lookup that passed its checks, or the message
    // that refused it.
    void showLookup(const LookupResult& lookup);
    BrowserSelections& sel();

    AppContext& ctx_;
};

} // namespace kal::ui
