// The plain-text editors of the names and cities files: the file in a
// Courier New text box, Save rewrites it less the final line break, Quit
// closes the editor and reopens its list window (which reads the file again).
#pragma once

#include <QWidget>

#include <filesystem>

#include "base/TextFile.h"
#include "shell/ui/WindowNames.h"

class QPlainTextEdit;
class QPushButton;

namespace kal::ui {

class AppContext;

class ListEditor : public QWidget {
    Q_OBJECT

  public:
    ListEditor(AppContext& ctx, const std::filesystem::path& file, WindowName listWindow,
               WindowName editorName, QWidget* parent);

  public slots:
    void btnSave_Click();
    void btnQuit_Click();

  protected:
    // After a successful save (the names editor clears KeepInputOnReload).
    virtual void saved() {}
    AppContext& ctx_;

  private:
    std::filesystem::path file_;
    TextEncoding encoding_ = TextEncoding::Utf8; // the file's, kept for Save
    WindowName listWindow_, editorName_;
    QPlainTextEdit* txtContent_ = nullptr;
};

class NameEdit : public ListEditor {
    Q_OBJECT
  public:
    NameEdit(AppContext& ctx, QWidget* parent = nullptr);

  protected:
    void saved() override;
};

class LongLat : public ListEditor {
    Q_OBJECT
  public:
    LongLat(AppContext& ctx, QWidget* parent = nullptr);
};

} // namespace kal::ui
