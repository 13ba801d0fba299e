#include "birthdata/ui/ListEditor.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/TextFile.h"
#include "birthdata/ui/BirthDataState.h"
#include "birthdata/ui/Paths.h"
#include "shell/EditorFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/WindowLook.h"

namespace kal::ui {

ListEditor::ListEditor(AppContext& ctx, const std::filesystem::path& file, WindowName listWindow,
                       WindowName editorName, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), file_(file), listWindow_(listWindow),
      editorName_(editorName) {
    setObjectName(editorName_.text());
    setWindowTitle("Edit: " + QString::fromStdString(file_.string()));
    auto* lay = new QVBoxLayout(this);
    txtContent_ = new QPlainTextEdit(this);
    txtContent_->setObjectName("txtContent");
    txtContent_->setFont(CourierFont());
    txtContent_->setLineWrapMode(QPlainTextEdit::NoWrap);
    lay->addWidget(txtContent_);
    auto* row = new QHBoxLayout;
    auto* hint = new QLabel("Ctrl-C to copy.  Ctrl-X to cut.  Ctrl-V to paste.", this);
    row->addWidget(hint, 1);
    auto* save = new QPushButton("Save", this);
    save->setObjectName("btnSave");
    auto* quit = new QPushButton("Quit", this);
    quit->setObjectName("btnQuit");
    row->addWidget(save);
    row->addWidget(quit);
    lay->addLayout(row);
    connect(save, &QPushButton::clicked, this, &ListEditor::btnSave_Click);
    connect(quit, &QPushButton::clicked, this, &ListEditor::btnQuit_Click);
    resize(640, 420);

    QApplication::setOverrideCursor(Qt::WaitCursor);
    auto lines = ReadTextLines(file_, &encoding_);
    txtContent_->setPlainText(
        QString::fromStdString(EditorText(lines ? *lines : std::vector<std::string>{})));
    QApplication::restoreOverrideCursor();
}

void ListEditor::btnSave_Click() {
    // Written back in the file's own encoding, so that a Windows-1252 file
    // keeps its bytes; text that encoding cannot hold is written as UTF-8.
    std::string bytes =
        EncodeTextOrUtf8(EditorSaveBytes(txtContent_->toPlainText().toStdString()), encoding_);
    if (WriteResult w = ReplaceFile(file_, bytes); !w) {
        ctx_.showMessage(WriteFailedMessage(file_, w), this);
        return;
    }
    saved();
}

void ListEditor::btnQuit_Click() {
    ctx_.unloadWindow(editorName_);
    ctx_.unloadWindow(listWindow_);
    ctx_.showWindow(listWindow_);
}

NameEdit::NameEdit(AppContext& ctx, QWidget* parent)
    : ListEditor(ctx, NamesFile(ctx), win::Names, win::NameEdit, parent) {}

void NameEdit::saved() {
    BirthDataState::flags(ctx_).KeepInputOnReload = 0;
}

LongLat::LongLat(AppContext& ctx, QWidget* parent)
    : ListEditor(ctx, CitiesFile(ctx), win::Geograph, win::LongLat, parent) {}

} // namespace kal::ui
