// The natal input window: the birth data of the chart to cast. OK casts the
// chart from its fields, "Save to disk" stores them in a names file.
#pragma once

#include <QWidget>

#include <ctime>
#include <memory>
#include <set>
#include <vector>

#include "chart/InputFields.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace Ui {
class InputD;
}

namespace kal::ui {

class AppContext;

class InputD : public QWidget {
    Q_OBJECT

  public:
    explicit InputD(AppContext& ctx, QWidget* parent = nullptr);
    ~InputD() override;

    // What the fields and option buttons hold.
    InputFields fields() const;
    // Shows the given fields (a pick in the names or cities list).
    void setFields(const InputFields& in);
    // The "Now" filling from a given moment.
    void fillNow(const std::tm& now);
    // The Input command's refresh of date and time when the name is "Now".
    void refreshNowDateTime(const std::tm& now);

    // The local time.
    static std::tm CurrentTime();

    // Puts a list window (names, cities, time zones) beside this one, where
    // it hides none of the fields a pick fills: its frame's left edge where
    // this window's frame ends, the tops level.
    void placeBeside(QWidget* w) const;

  public slots:
    void cmdNow_Click();
    void cmdOK_Click();
    void cmdSave_Click();
    void cmdACS_Atlas_Click();
    // The atlas window has closed: the place it looked up goes into the
    // fields.
    void atlasClosed();
    void Label1_Click();
    void optEast_Click();
    void optWest_Click();
    void txtBirthHour_Change();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    AppContext& ctx_;
    std::unique_ptr<Ui::InputD> ui;
    QLineEdit *txtName_, *txtMonth_, *txtDay_, *txtYear_, *txtBirthHour_, *txtBirthMinute_, *txtTZ_,
        *txtLongDeg_, *txtLongMin_, *txtLatDeg_, *txtLatMin_, *txtEmail_;
    QRadioButton *optAM_, *optPM_, *optEast_, *optWest_, *optNorth_, *optSouth_;
    QLabel* label1_ = nullptr;
    QPushButton* cmdACS_Atlas_ = nullptr;
    std::set<QObject*> fields_;
    std::vector<QLabel*> framedLabels_;
    bool filling_ = false; // fields set by the program: no birth-hour round
    bool firstShow_ = true;
};

} // namespace kal::ui
