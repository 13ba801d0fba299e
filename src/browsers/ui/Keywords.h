// The keywords window: a grid of topics (planets, signs, houses, elements,
// modes, general notes); a click on a topic shows its keyword text in a
// message box titled with the topic.
#pragma once

#include <QWidget>

#include "base/Message.h"

class QLabel;
class QTableWidget;

namespace kal::ui {

class AppContext;

class Keywords : public QWidget {
    Q_OBJECT

  public:
    explicit Keywords(AppContext& ctx, QWidget* parent = nullptr);

    QTableWidget* grdOutput = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;

  public slots:
    void grdOutput_Click(int row, int column);

  protected:
    void paintEvent(QPaintEvent* e) override;

  private:
    void Form_Load();
    void Form_Paint();
    void DisplayMsgBox(const Message& m);

    AppContext& ctx_;
};

} // namespace kal::ui
