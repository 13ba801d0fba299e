#include "shell/ui/SunkenFrame.h"

#include <QPainter>
#include <QWidget>
#include <qdrawutil.h>

namespace kal::ui {

void DrawSunkenFrame(QWidget* window, const QWidget* box) {
    QPainter p(window);
    const int width = 2;
    QRect r = box->geometry().adjusted(-width, -width, width, width);
    qDrawShadePanel(&p, r, window->palette(), /*sunken=*/true, width);
}

} // namespace kal::ui
