// Key navigation in the names and cities lists.
#pragma once

#include <functional>

class QListWidget;

namespace kal::ui {

// Moving through `list` with the keys picks as a click does: `pick` runs
// when the current item changes while the list has the focus and `loading`
// says no list load is under way. The first current item, which the list
// sets by itself when it gets the focus, is no pick: the input window keeps
// its fields.
void PickOnKeyMoves(QListWidget* list, std::function<bool()> loading, std::function<void()> pick);

} // namespace kal::ui
