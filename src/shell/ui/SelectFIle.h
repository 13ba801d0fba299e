// The file-selection window: a drive list, a folder tree and the files of
// the chosen folder that match a pattern ("*.FIL"). The caller sets the
// pattern, runs the window modally and reads SelectedFile (empty when
// cancelled).
#pragma once

#include <QDialog>

#include <memory>

class QFileSystemModel;

namespace Ui {
class SelectFIle;
}

namespace kal::ui {

class AppContext;

class SelectFIle : public QDialog {
    Q_OBJECT

  public:
    explicit SelectFIle(AppContext& ctx, QWidget* parent = nullptr);
    ~SelectFIle() override;

    void setPattern(const QString& pattern);
    // The folder shown in the folder tree and listed in the file list.
    void setFolder(const QString& folder);
    // Opens on a file: its folder shown and the file selected in the list,
    // so that Select takes it unless the user picks another.
    void setCurrentFile(const QString& file);
    QString folder() const { return folder_; }
    QString SelectedFile() const { return selectedFile_; }

  public slots:
    void cmdSelect_Click();
    void cmdCancel_Click();
    void drvList_Change();
    void dirList_Change();
    void filList_DblClick();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();
    void fillFiles();
    // Selects the current folder in the tree, its parents expanded, and
    // scrolls it into the middle of the view.
    void revealFolder();

    AppContext& ctx_;
    std::unique_ptr<Ui::SelectFIle> ui;
    QFileSystemModel* dirModel_ = nullptr;
    QString pattern_ = "*.*";
    QString folder_;
    QString selectedFile_;
};

} // namespace kal::ui
