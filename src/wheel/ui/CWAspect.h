// The aspects window: every aspect of the wheel's chart found with the
// current orb file, each pair from both sides, in the glyph font.
#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace kal::ui {

class AppContext;

class CWAspect : public QWidget {
    Q_OBJECT

  public:
    explicit CWAspect(AppContext& ctx, QWidget* parent = nullptr);

    void Form_Load();

    QPlainTextEdit* Text1 = nullptr;

  private:
    AppContext& ctx_;
};

} // namespace kal::ui
