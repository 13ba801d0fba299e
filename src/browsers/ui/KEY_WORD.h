// Delineation by keywords: whole lesson files for a selected sign, house or
// planet, or one of seven general lessons, copied into the data window.
#pragma once

#include <QMainWindow>

#include <string_view>

class QPushButton;

namespace kal::ui {

class AppContext;
class OptionGroup;

class KEY_WORD : public QMainWindow {
    Q_OBJECT

  public:
    explicit KEY_WORD(AppContext& ctx, QWidget* parent = nullptr);

    OptionGroup* Option1 = nullptr; // Sign
    OptionGroup* Option2 = nullptr; // House
    OptionGroup* Option3 = nullptr; // Planet
    QPushButton* OKSign1 = nullptr;
    QPushButton* OKHouse1 = nullptr;
    QPushButton* OKPlanet1 = nullptr;
    QPushButton* OKIntro1 = nullptr;
    QPushButton* OKIntro2 = nullptr;
    QPushButton* OKKey1 = nullptr;
    QPushButton* OKGeneral1 = nullptr;
    QPushButton* OKExample1 = nullptr;
    QPushButton* OKExample2 = nullptr;
    QPushButton* OKAspects = nullptr;
    QPushButton* Command2 = nullptr;

  public slots:
    void Option1_GotFocus(int index);
    void Option2_GotFocus(int index);
    void Option3_GotFocus(int index);
    void Option1_DblClick(int index);
    void Option2_DblClick(int index);
    void Option3_DblClick(int index);
    void OKSign1_Click();
    void OKHouse1_Click();
    void OKPlanet1_Click();
    void OKIntro1_Click();
    void OKIntro2_Click();
    void OKKey1_Click();
    void OKGeneral1_Click();
    void OKExample1_Click();
    void OKExample2_Click();
    void OKAspects_Click();
    void Command2_Click();
    void mnuFileExit_Click();

  private:
    void Form_Load();
    void lesson(std::string_view file);

    AppContext& ctx_;
};

} // namespace kal::ui
