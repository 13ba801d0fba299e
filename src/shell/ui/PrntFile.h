// The print window: the text handed over in PRNTFILE.XXX, editable before
// printing, printed in a fixed-pitch font whose size follows the widest
// lines, paged by option 30. Without a printer it prints to a PDF file.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class PrntFile;
}

namespace kal::ui {

class AppContext;

class PrntFile : public QDialog {
    Q_OBJECT

  public:
    explicit PrntFile(AppContext& ctx, QWidget* parent = nullptr);
    ~PrntFile() override;

    int PrintWidthClass = 0;

  public slots:
    void btnPrint_Click();
    void btnCancel_Click();

  private:
    void Form_Load();

    AppContext& ctx_;
    std::unique_ptr<Ui::PrntFile> ui;
};

} // namespace kal::ui
