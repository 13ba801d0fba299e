#include "birthdata/ui/NewNamesFile.h"

#include <QFileDialog>

#include "birthdata/RecordWriter.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

namespace {

NewFileChooser& Chooser() {
    static NewFileChooser chooser;
    return chooser;
}

QString AskNewFile(const QString& folder, QWidget* parent) {
    QFileDialog dlg(parent, "Make new .FIL file", folder, "Data Files (*.FIL)");
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    dlg.setFileMode(QFileDialog::AnyFile);
    dlg.setDefaultSuffix("fil");
    dlg.selectFile("NEW.FIL");
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return {};
    return dlg.selectedFiles().first();
}

} // namespace

void SetNewNamesFileChooser(NewFileChooser chooser) {
    Chooser() = std::move(chooser);
}

void RunMakeNewNamesFile(AppContext& ctx, QWidget* parent) {
    const QString folder = QString::fromStdString(ctx.session().AppPath.string());
    const QString file = Chooser() ? Chooser()(folder, parent) : AskNewFile(folder, parent);
    if (file.isEmpty()) return;
    if (!WriteNewNamesFile(file.toStdString()))
        ctx.showMessage(
            {"The file " + file.toStdString() + " could not be written.", "Error!", Icon::Critical},
            parent);
}

} // namespace kal::ui
