// The orb file editor: the current orb file as plain text. Save rewrites the
// file (never leaving it half written); Quit closes the window.
#pragma once

#include <QWidget>

#include <filesystem>

class QPlainTextEdit;
class QPushButton;

namespace kal::ui {

class AppContext;

class OrbsEdit : public QWidget {
    Q_OBJECT

  public:
    explicit OrbsEdit(AppContext& ctx, QWidget* parent = nullptr);

    QPlainTextEdit* txtContent = nullptr;
    QPushButton* btnSave = nullptr;
    QPushButton* btnQuit = nullptr;

  public slots:
    void btnSave_Click();
    void btnQuit_Click();

  private:
    void Form_Load();

    AppContext& ctx_;
    std::filesystem::path file_;
};

} // namespace kal::ui
