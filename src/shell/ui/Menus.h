// Building a window's menu strip. Every menu and item carries an object name
// (mnuFile, mnuFileExit ...): the windows enable and check items by it, and
// the help and the tests find them by it.
#pragma once

#include <QAction>
#include <QKeySequence>

class QMenu;
class QWidget;

namespace kal::ui {

// A menu named `name` on `parent`, a menu strip or a menu (a submenu).
QMenu* AddMenu(QWidget* parent, const char* name, const char* caption);

// An item named `name` on `parent`, a menu strip or a menu.
QAction* AddItem(QWidget* parent, const char* name, const char* caption,
                 const QKeySequence& shortcut = {});

// The same, its choice calling `slot` on `receiver`.
template <class Receiver>
QAction* AddItem(QWidget* parent, const char* name, const char* caption, Receiver* receiver,
                 void (Receiver::*slot)(), const QKeySequence& shortcut = {}) {
    QAction* a = AddItem(parent, name, caption, shortcut);
    QObject::connect(a, &QAction::triggered, receiver, slot);
    return a;
}

// A separator line named `name` in `menu`.
void AddSeparator(QMenu* menu, const char* name);

} // namespace kal::ui
