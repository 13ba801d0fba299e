#include "wheel/ui/OrbsEdit.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/SafeWrite.h"
#include "base/TextFile.h"
#include "shell/EditorFile.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

OrbsEdit::OrbsEdit(AppContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("OrbsEdit");
    txtContent = new QPlainTextEdit(this);
    txtContent->setObjectName("txtContent");
    QFont f("Courier New");
    f.setStyleHint(QFont::TypeWriter);
    txtContent->setFont(f);
    btnSave = new QPushButton("&Save", this);
    btnSave->setObjectName("btnSave");
    btnQuit = new QPushButton("&Quit", this);
    btnQuit->setObjectName("btnQuit");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnSave);
    buttons->addWidget(btnQuit);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtContent);
    layout->addLayout(buttons);
    resize(520, 400);
    connect(btnSave, &QPushButton::clicked, this, &OrbsEdit::btnSave_Click);
    connect(btnQuit, &QPushButton::clicked, this, &OrbsEdit::btnQuit_Click);
    Form_Load();
}

void OrbsEdit::Form_Load() {
    Session& s = ctx_.session();
    file_ = s.paths.OrbFilePath.empty() ? NatalOrbPath(s.paths.AppPath) : s.paths.OrbFilePath;
    auto lines = ReadLines(file_);
    if (!lines) ctx_.showMessage(OrbFileMissing(file_), this);
    txtContent->setPlainText(
        QString::fromStdString(EditorText(lines.value_or(std::vector<std::string>{}))));
    setWindowTitle("Edit: " + QString::fromStdString(file_.string()));
}

void OrbsEdit::btnSave_Click() {
    // The orb tables are read again by the next listing or wheel paint.
    const std::string bytes = EditorSaveBytes(txtContent->toPlainText().toStdString());
    if (WriteResult w = ReplaceFile(file_, bytes); !w)
        ctx_.showMessage(WriteFailedMessage(file_, w), this);
}

void OrbsEdit::btnQuit_Click() {
    close();
}

} // namespace kal::ui
