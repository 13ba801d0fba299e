// The personal header editor: PERSONAL.NAM as plain text, whose lines close
// the report's title page. Save rewrites the file and keeps the window
// open; Quit closes it without asking.
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class P_Name;
}

namespace kal::ui {

class AppContext;

class P_Name : public QWidget {
    Q_OBJECT

  public:
    explicit P_Name(AppContext& ctx, QWidget* parent = nullptr);
    ~P_Name() override;

  public slots:
    void btnSave_Click();
    void btnQuit_Click();

  protected:
    void paintEvent(QPaintEvent* e) override;

  private:
    void Form_Load();
    void Form_Paint();

    AppContext& ctx_;
    std::unique_ptr<Ui::P_Name> ui;
};

} // namespace kal::ui
