// The names window: the records of the current names file. A pick fills the
// input window, a double click casts the chart at once.
#pragma once

#include <QWidget>

#include <memory>
#include <vector>

#include "birthdata/Record.h"

class QCheckBox;
class QLabel;
class QListWidget;

namespace Ui {
class Names;
}

namespace kal::ui {

class AppContext;

class Names : public QWidget {
    Q_OBJECT

  public:
    explicit Names(AppContext& ctx, QWidget* parent = nullptr);
    ~Names() override;

    std::vector<BirthRecord>& records() { return records_; }
    // Reads the current names file into the list.
    void LoadNamesList();
    void ShowListFileName();

  public slots:
    void NamesOnFile_Click();
    void NamesOnFile_DblClick();
    void Check1_Click();
    void cmdNewFileList_Click();
    void cmdEditList_Click();
    void Command1_Click();

  protected:
    // Opened (after the Input command, a save, the editor's Quit or a switch
    // between names and cities) beside the input window, never over it.
    void showEvent(QShowEvent* event) override;

  private:
    // Moves the current entry's record into the input window.
    void transfer();

    AppContext& ctx_;
    std::unique_ptr<Ui::Names> ui;
    QListWidget* NamesOnFile_ = nullptr;
    QLabel* lblNamesOnFile_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    std::vector<BirthRecord> records_;
    bool loading_ = false;
};

} // namespace kal::ui
