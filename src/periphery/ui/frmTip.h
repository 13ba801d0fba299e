// The tip-of-the-day window: one tip of TIPOFDAY.TXT at a time, stepped
// with Next Tip and Go Back; OK closes it. Shown at start-up unless option
// 42 is 0, and from the Help menu.
#pragma once

#include <QDialog>

#include <filesystem>
#include <memory>

#include "periphery/Tips.h"

namespace Ui {
class frmTip;
}

class QLabel;

namespace kal::ui {

class AppContext;

class frmTip : public QDialog {
    Q_OBJECT

  public:
    explicit frmTip(AppContext& ctx, QWidget* parent = nullptr);
    ~frmTip() override;

    // Reads the tips of `file` and shows the first; false when the path is
    // empty or the file is missing.
    bool LoadTips(const std::filesystem::path& file);
    // Shows tip CurrentTip in lblTipText (nothing when there are no tips).
    void DisplayCurrentTip();

    const TipList& tips() const { return tips_; }
    QLabel* lblTipText() const;

  public slots:
    void cmdNextTip_Click();
    void Command1_Click();
    void cmdOK_Click();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Form_Load();
    // The light bulb in the left margin of Picture1.
    void paintBulb(QWidget* on);

    AppContext& ctx_;
    std::unique_ptr<Ui::frmTip> ui;
    TipList tips_;
};

} // namespace kal::ui
