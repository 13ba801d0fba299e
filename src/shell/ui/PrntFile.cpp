#include "shell/ui/PrntFile.h"

#include <QApplication>
#include <QPrinter>

#include "base/TextFile.h"
#include "shell/DataFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/PrintText.h"
#include "shell/ui/WindowLook.h"
#include "ui_PrntFile.h"

namespace kal::ui {

PrntFile::PrntFile(AppContext& ctx, QWidget* parent)
    : QDialog(parent), ctx_(ctx), ui(std::make_unique<Ui::PrntFile>()) {
    ui->setupUi(this);
    QFont f = CourierFont();
    ui->RichtxtContent->setFont(f);
    connect(ui->btnPrint, &QPushButton::clicked, this, &PrntFile::btnPrint_Click);
    connect(ui->btnCancel, &QPushButton::clicked, this, &PrntFile::btnCancel_Click);
    Form_Load();
}

PrntFile::~PrntFile() = default;

void PrntFile::Form_Load() {
    Session& s = ctx_.session();
    PrintWidthClass = 0;
    auto lines = ReadLines(PrintFilePath(s.paths.AppPath)).value_or(std::vector<std::string>{});
    PrintWidthClass = kal::PrintWidthClass(lines, s.options[117], s.options[118]);
    QString text;
    for (const auto& l : lines) text += QString::fromStdString(l) + "\n";
    ui->RichtxtContent->setPlainText(text);
}

void PrntFile::btnPrint_Click() {
    Session& s = ctx_.session();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName("Kaltrova");
    if (!ctx_.dialogs().setUpPrinter(printer, QString::fromStdString(s.paths.AppPath.string()),
                                     this))
        return;

    QApplication::setOverrideCursor(Qt::WaitCursor);
    // The edited text goes back to the print file, which is then printed.
    QString text = ui->RichtxtContent->toPlainText();
    std::string bytes = text.toStdString();
    std::string crlf;
    for (char c : bytes) {
        if (c == '\n')
            crlf += "\r\n";
        else
            crlf += c;
    }
    // What is printed is the box's text, also when the print file could not
    // take it.
    const auto file = PrintFilePath(s.paths.AppPath);
    if (WriteResult w = ReplaceFile(file, crlf); !w)
        ctx_.showMessage(WriteFailedMessage(file, w), this);
    auto pages = PrintPages(SplitLines(crlf), s.options[30]);

    PrintTextPages(printer, pages, PrintFontSize(PrintWidthClass));
    QApplication::restoreOverrideCursor();
    close();
}

void PrntFile::btnCancel_Click() {
    close();
}

} // namespace kal::ui
