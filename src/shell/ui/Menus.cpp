#include "shell/ui/Menus.h"

#include <QMenu>
#include <QMenuBar>

namespace kal::ui {

QMenu* AddMenu(QWidget* parent, const char* name, const char* caption) {
    QMenu* m = nullptr;
    if (auto* bar = qobject_cast<QMenuBar*>(parent))
        m = bar->addMenu(caption);
    else
        m = static_cast<QMenu*>(parent)->addMenu(caption);
    m->setObjectName(name);
    m->menuAction()->setObjectName(name);
    return m;
}

QAction* AddItem(QWidget* parent, const char* name, const char* caption,
                 const QKeySequence& shortcut) {
    QAction* a = nullptr;
    if (auto* bar = qobject_cast<QMenuBar*>(parent))
        a = bar->addAction(caption);
    else
        a = static_cast<QMenu*>(parent)->addAction(caption);
    a->setObjectName(name);
    if (!shortcut.isEmpty()) a->setShortcut(shortcut);
    return a;
}

void AddSeparator(QMenu* menu, const char* name) {
    menu->addSeparator()->setObjectName(name);
}

} // namespace kal::ui
