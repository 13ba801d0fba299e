#include "birthdata/ui/ListPicks.h"

#include <QListWidget>

namespace kal::ui {

void PickOnKeyMoves(QListWidget* list, std::function<bool()> loading, std::function<void()> pick) {
    QObject::connect(list, &QListWidget::currentItemChanged, list,
                     [list, loading = std::move(loading),
                      pick = std::move(pick)](QListWidgetItem*, QListWidgetItem* previous) {
                         if (!loading() && previous && list->hasFocus()) pick();
                     });
}

} // namespace kal::ui
