// File > "Make new .FIL file": a new names file holding the example record.
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace kal::ui {

class AppContext;

// Asks for the new file's name (the save dialog); empty when cancelled.
using NewFileChooser = std::function<QString(const QString& folder, QWidget* parent)>;
// Replaces the save dialog (tests); an empty function restores it.
void SetNewNamesFileChooser(NewFileChooser chooser);

// Runs the command: the chosen file is created (replacing an old one) with
// the example record; it does not become the current names file.
void RunMakeNewNamesFile(AppContext& ctx, QWidget* parent);

} // namespace kal::ui
