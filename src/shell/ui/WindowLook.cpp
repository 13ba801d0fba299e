#include "shell/ui/WindowLook.h"

#include <QPainter>
#include <QWidget>
#include <qdrawutil.h>

namespace kal::ui {

QFont CourierFont(int pointSize) {
    QFont f("Courier New");
    f.setStyleHint(QFont::TypeWriter);
    if (pointSize > 0) f.setPointSize(pointSize);
    return f;
}

void DrawSunkenFrame(QWidget* window, const QWidget* box) {
    QPainter p(window);
    const int width = 2;
    QRect r = box->geometry().adjusted(-width, -width, width, width);
    qDrawShadePanel(&p, r, window->palette(), /*sunken=*/true, width);
}

} // namespace kal::ui
