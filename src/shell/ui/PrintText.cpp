#include "shell/ui/PrintText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

#include "shell/ui/WindowLook.h"

namespace kal::ui {

bool PrintTextPages(QPrinter& printer, const std::vector<std::vector<std::string>>& pages,
                    int pointSize) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    QFont f = CourierFont(pointSize);
    painter.setFont(f);
    QFontMetrics fm(painter.font(), &printer);
    size_t longest = 1;
    for (const auto& page : pages) longest = std::max(longest, page.size());
    const int height = painter.viewport().height();
    const int lineHeight =
        std::min(fm.lineSpacing(), static_cast<int>((height - fm.descent()) / longest));
    for (size_t p = 0; p < pages.size(); ++p) {
        if (p > 0) printer.newPage();
        int y = fm.ascent();
        for (const auto& line : pages[p]) {
            painter.drawText(0, y, QString::fromStdString(line));
            y += lineHeight;
        }
    }
    painter.end();
    return true;
}

} // namespace kal::ui
