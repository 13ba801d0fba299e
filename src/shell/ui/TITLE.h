// The title window shown during start-up; start-up waits until Continue.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class TITLE;
}

namespace kal::ui {

class TITLE : public QDialog {
    Q_OBJECT

  public:
    explicit TITLE(QWidget* parent = nullptr);
    ~TITLE() override;

    // Start-up shows Continue once its tables are read.
    void showContinue();
    // Nonzero once Continue was pressed (or the window closed).
    int TitleDismissed() const { return dismissed_; }
    // Processes window events until the window is dismissed.
    void waitForContinue();

  public slots:
    void cmdOK_Click();

  signals:
    void dismissed();

  protected:
    void closeEvent(QCloseEvent* e) override;

  private:
    void Form_Load();

    std::unique_ptr<Ui::TITLE> ui;
    int dismissed_ = 0;
};

// The title window's picture: a zodiac wheel drawn in code.
QPixmap TitleWheelPixmap(int size);

} // namespace kal::ui
