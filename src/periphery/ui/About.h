// The about window: the program name drawn with a raised look, the version,
// the credit of the atlas's data; a click closes it.
#pragma once

#include <QDialog>

namespace kal::ui {

class About : public QDialog {
    Q_OBJECT

  public:
    explicit About(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;

  private:
    void Form_Load();
    void Form_Click();
};

} // namespace kal::ui
