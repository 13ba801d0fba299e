#include "report/ui/P_Name.h"

#include "base/SafeWrite.h"
#include "base/TextFile.h"
#include "shell/DataFile.h"
#include "shell/EditorFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/WindowLook.h"
#include "ui_P_Name.h"

namespace kal::ui {

namespace {

std::filesystem::path HeaderFile(const Session& s) {
    return FindFile(s.paths.AppPath, "PERSONAL.NAM");
}

} // namespace

P_Name::P_Name(AppContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), ui(std::make_unique<Ui::P_Name>()) {
    ui->setupUi(this);
    setWindowFlag(Qt::Window, true);
    QFont f = CourierFont();
    ui->txtContent->setFont(f);
    connect(ui->btnSave, &QPushButton::clicked, this, &P_Name::btnSave_Click);
    connect(ui->btnQuit, &QPushButton::clicked, this, &P_Name::btnQuit_Click);
    Form_Load();
}

P_Name::~P_Name() = default;

void P_Name::Form_Load() {
    auto lines = ReadLines(HeaderFile(ctx_.session())).value_or(std::vector<std::string>{});
    ui->txtContent->setPlainText(QString::fromStdString(EditorText(lines)));
    setWindowTitle("Edit: PERSONAL.NAM");
}

void P_Name::btnSave_Click() {
    auto file = HeaderFile(ctx_.session());
    const std::string bytes = EditorSaveBytes(ui->txtContent->toPlainText().toStdString());
    if (WriteResult w = ReplaceFile(file, bytes); !w)
        ctx_.showMessage(WriteFailedMessage(file, w), this);
}

void P_Name::btnQuit_Click() {
    close();
}

void P_Name::Form_Paint() {
    DrawSunkenFrame(this, ui->txtContent);
}

void P_Name::paintEvent(QPaintEvent* e) {
    QWidget::paintEvent(e);
    Form_Paint();
}

} // namespace kal::ui
