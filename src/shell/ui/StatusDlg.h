// The progress window: a bar filled from the left in light red as a long
// command (the natal report) goes on.
#pragma once

#include <QDialog>

namespace kal::ui {

// The bar of the progress window.
class ProgressBox : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;
    double percent() const { return percent_; }
    void setPercent(double p);

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    double percent_ = 0;
};

class StatusDlg : public QDialog {
    Q_OBJECT

  public:
    // Shows itself when made.
    explicit StatusDlg(QWidget* parent = nullptr);

    ProgressBox* Picture2 = nullptr;

  public slots:
    // Fills done / total of the bar (at most all of it) and repaints at once.
    void ShowProgress(qint32 done, qint32 total);
};

// The percentage the bar shows: done / total x 100, at most 100 (0 when
// total is not above 0).
double ProgressPercent(qint32 done, qint32 total);

} // namespace kal::ui
