#include "shell/ui/Dialogs.h"

#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "shell/ui/SelectFIle.h"

namespace kal::ui {

namespace {

// A save dialog for one kind of file.
QString AskSaveFile(QWidget* parent, const QString& caption, const QString& folder,
                    const QString& filter, const QString& suffix, const QString& proposed) {
    QFileDialog dlg(parent, caption, folder, filter);
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    dlg.setFileMode(QFileDialog::AnyFile);
    dlg.setDefaultSuffix(suffix);
    dlg.selectFile(proposed);
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return {};
    return dlg.selectedFiles().first();
}

} // namespace

QMessageBox::Icon ToQtIcon(Icon icon) {
    switch (icon) {
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Information:
        break;
    }
    return QMessageBox::Information;
}

void QtDialogs::message(const Message& m, QWidget* parent) {
    QMessageBox box(ToQtIcon(m.icon), QString::fromStdString(m.caption),
                    QString::fromStdString(m.text), QMessageBox::Ok, parent);
    box.exec();
}

QMessageBox::StandardButton
QtDialogs::question(const Message& m, QMessageBox::StandardButtons buttons, QWidget* parent) {
    QMessageBox box(ToQtIcon(m.icon), QString::fromStdString(m.caption),
                    QString::fromStdString(m.text), buttons, parent);
    // A question that can be cancelled is cancelled by Enter as well.
    if (buttons.testFlag(QMessageBox::Cancel)) box.setDefaultButton(QMessageBox::Cancel);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QString QtDialogs::chooseFile(AppContext& ctx, const QString& pattern, const QString& current,
                              QWidget* parent) {
    SelectFIle dlg(ctx, parent);
    dlg.setPattern(pattern);
    if (!current.isEmpty()) dlg.setCurrentFile(current);
    dlg.exec();
    return dlg.SelectedFile();
}

QString QtDialogs::saveAs(const QString& folder, const QString& proposed, QWidget* parent) {
    return AskSaveFile(parent, "Save As", folder, "Data Files (*.txt)", "txt", proposed);
}

bool QtDialogs::setUpPrinter(QPrinter& printer, const QString& folder, QWidget* parent) {
    if (!QPrinterInfo::availablePrinters().isEmpty()) {
        QPrintDialog dlg(&printer, parent);
        return dlg.exec() == QDialog::Accepted;
    }
    QString file = QFileDialog::getSaveFileName(parent, "Print to PDF file",
                                                folder + "/PRNTFILE.pdf", "PDF Files (*.pdf)");
    if (file.isEmpty()) return false;
    if (!file.endsWith(".pdf", Qt::CaseInsensitive)) file += ".pdf";
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    return true;
}

QString QtDialogs::newNamesFile(const QString& folder, QWidget* parent) {
    return AskSaveFile(parent, "Make new .FIL file", folder, "Data Files (*.FIL)", "fil",
                       "NEW.FIL");
}

} // namespace kal::ui
