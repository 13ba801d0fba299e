#include "shell/ui/Options.h"

#include "base/TextFile.h"
#include "shell/EditorFile.h"
#include "shell/Startup.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/WindowLook.h"
#include "ui_Options.h"

namespace kal::ui {

Options::Options(AppContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), ui(std::make_unique<Ui::Options>()) {
    ui->setupUi(this);
    setWindowFlag(Qt::Window, true);
    QFont f = CourierFont();
    ui->txtContent->setFont(f);
    connect(ui->btnSave, &QPushButton::clicked, this, &Options::btnSave_Click);
    connect(ui->cmdRestoreDefault, &QPushButton::clicked, this, &Options::cmdRestoreDefault_Click);
    connect(ui->btnQuit, &QPushButton::clicked, this, &Options::btnQuit_Click);
    Form_Load();
}

Options::~Options() = default;

void Options::Form_Load() {
    auto lines = ReadLines(FindFile(ctx_.session().paths.AppPath, "OPTIONS.OPT"))
                     .value_or(std::vector<std::string>{});
    ui->txtContent->setPlainText(QString::fromStdString(EditorText(lines)));
}

void Options::btnSave_Click() {
    Session& s = ctx_.session();
    auto file = FindFile(s.paths.AppPath, "OPTIONS.OPT");
    WriteResult w = ReplaceFile(file, EditorSaveBytes(ui->txtContent->toPlainText().toStdString()));
    if (!w) {
        ctx_.showMessage(WriteFailedMessage(file, w), this);
        return;
    }
    s.ReadOptions();
    ctx_.display().TitlePrefix = BuildTitlePrefix();
}

void Options::cmdRestoreDefault_Click() {
    if (!RestoreDefaultOptions(ctx_.session().paths.AppPath)) {
        ctx_.showMessage(RestoreFailedMessage(), this);
        return;
    }
    ui->txtContent->clear();
    Form_Load();
}

void Options::btnQuit_Click() {
    close();
}

} // namespace kal::ui
