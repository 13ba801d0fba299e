// The dialogs every window asks through the context: message boxes,
// questions, the file-selection window, Save As, the printer and the name of
// a new names file. The context holds one Dialogs object; the program uses
// QtDialogs, tests install one that records and answers.
#pragma once

#include <QMessageBox>
#include <QString>

#include "base/Message.h"

class QPrinter;
class QWidget;

namespace kal::ui {

class AppContext;

class Dialogs {
  public:
    virtual ~Dialogs() = default;
    // A message box with the message's text, caption and icon.
    virtual void message(const Message& m, QWidget* parent) = 0;
    // A question; the button pressed.
    virtual QMessageBox::StandardButton
    question(const Message& m, QMessageBox::StandardButtons buttons, QWidget* parent) = 0;
    // The file-selection window with a pattern ("*.FIL"), modal, opened on
    // `current` (its folder shown, the file selected) when given: the
    // chosen file, empty when cancelled.
    virtual QString chooseFile(AppContext& ctx, const QString& pattern, const QString& current,
                               QWidget* parent) = 0;
    // The data window's Save As in `folder`, proposing `proposed`: the chosen
    // path, empty when cancelled.
    virtual QString saveAs(const QString& folder, const QString& proposed, QWidget* parent) = 0;
    // Prepares the printer: the print dialog where printers exist, otherwise
    // a PDF file in `folder`. False cancels printing.
    virtual bool setUpPrinter(QPrinter& printer, const QString& folder, QWidget* parent) = 0;
    // The name of a new names file in `folder`; empty when cancelled.
    virtual QString newNamesFile(const QString& folder, QWidget* parent) = 0;
};

// The real dialogs.
class QtDialogs : public Dialogs {
  public:
    void message(const Message& m, QWidget* parent) override;
    QMessageBox::StandardButton question(const Message& m, QMessageBox::StandardButtons buttons,
                                         QWidget* parent) override;
    QString chooseFile(AppContext& ctx, const QString& pattern, const QString& current,
                       QWidget* parent) override;
    QString saveAs(const QString& folder, const QString& proposed, QWidget* parent) override;
    bool setUpPrinter(QPrinter& printer, const QString& folder, QWidget* parent) override;
    QString newNamesFile(const QString& folder, QWidget* parent) override;
};

QMessageBox::Icon ToQtIcon(Icon icon);

} // namespace kal::ui
