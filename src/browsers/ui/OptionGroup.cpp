#include "browsers/ui/OptionGroup.h"

#include <QEvent>
#include <QGridLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

#include "shell/ui/Menus.h"

namespace kal::ui {

OptionGroup::OptionGroup(const QString& name, const QString& caption, const QStringList& captions,
                         int columns, QWidget* parent)
    : QGroupBox(caption, parent) {
    setObjectName("fra" + name);
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(2);
    const int rows = (static_cast<int>(captions.size()) + columns - 1) / columns;
    for (int i = 0; i < captions.size(); ++i) {
        auto* b = new QRadioButton(captions[i], this);
        b->setObjectName(name);
        b->setProperty("Index", i);
        b->installEventFilter(this);
        grid->addWidget(b, i % rows, i / rows);
        buttons.append(b);
    }
}

void OptionGroup::mark(int index) {
    if (index >= 0 && index < buttons.size()) buttons[index]->setChecked(true);
}

int OptionGroup::marked() const {
    for (int i = 0; i < buttons.size(); ++i)
        if (buttons[i]->isChecked()) return i;
    return -1;
}

bool OptionGroup::eventFilter(QObject* watched, QEvent* event) {
    auto* b = qobject_cast<QRadioButton*>(watched);
    if (b) {
        const int index = b->property("Index").toInt();
        switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::MouseButtonPress:
            emit gotFocus(index);
            break;
        case QEvent::MouseButtonDblClick:
            // The first click of the pair has already marked the button.
            emit gotFocus(index);
            emit dblClick(index);
            return true;
        default:
            break;
        }
    }
    return QGroupBox::eventFilter(watched, event);
}

QPushButton* NamedButton(const char* name, const char* caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    return b;
}

QAction* AddFileExitMenu(QMainWindow* window) {
    return AddItem(AddMenu(window->menuBar(), "mnuFile", "&File"), "mnuFileExit", "E&xit");
}

} // namespace kal::ui
