// The options editor: OPTIONS.OPT as plain text. Save rewrites the file and
// reads the options again; Restore Default Settings copies OPTIONS.MST over
// it; Quit closes the window.
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class Options;
}

namespace kal::ui {

class AppContext;

class Options : public QWidget {
    Q_OBJECT

  public:
    explicit Options(AppContext& ctx, QWidget* parent = nullptr);
    ~Options() override;

  public slots:
    void btnSave_Click();
    void cmdRestoreDefault_Click();
    void btnQuit_Click();

  private:
    void Form_Load();

    AppContext& ctx_;
    std::unique_ptr<Ui::Options> ui;
};

} // namespace kal::ui
