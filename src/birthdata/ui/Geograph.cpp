#include "birthdata/ui/Geograph.h"

#include "ui_Geograph.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "birthdata/ui/InputD.h"
#include "birthdata/ui/ListPicks.h"
#include "birthdata/ui/Paths.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

Geograph::Geograph(AppContext& ctx, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), ui(std::make_unique<Ui::Geograph>()) {
    ui->setupUi(this);
    CitiesOnFile_ = ui->CitiesOnFile;
    lblCitiesOnFile_ = ui->lblCitiesOnFile;
    auto* names = ui->Command1;
    auto* edit = ui->cmdEditList;
    auto* change = ui->cmdNewFileList;

    connect(CitiesOnFile_, &QListWidget::itemClicked, this, &Geograph::CitiesOnFile_Click);
    PickOnKeyMoves(
        CitiesOnFile_, [this] { return loading_; }, [this] { CitiesOnFile_Click(); });
    connect(names, &QPushButton::clicked, this, &Geograph::Command1_Click);
    connect(edit, &QPushButton::clicked, this, &Geograph::cmdEditList_Click);
    connect(change, &QPushButton::clicked, this, &Geograph::cmdNewFileList_Click);
    connect(&ctx_, &AppContext::selectionListsEmptied, this, [this] {
        CitiesOnFile_->clear();
        places_.clear();
    });

    // Form_Load.
    LoadCitiesList();
    ShowListFileName();
}

Geograph::~Geograph() = default;

void Geograph::ShowListFileName() {
    lblCitiesOnFile_->setText(ListFileLabel(CitiesFile(ctx_)));
}

void Geograph::LoadCitiesList() {
    loading_ = true;
    CitiesOnFile_->setUpdatesEnabled(false);
    CitiesOnFile_->clear();
    CitiesList list = LoadCitiesFile(CitiesFile(ctx_));
    places_ = list.places;
    for (const auto& p : places_) CitiesOnFile_->addItem(QString::fromStdString(p.PlaceName));
    CitiesOnFile_->setUpdatesEnabled(true);
    CitiesOnFile_->update();
    loading_ = false;
    ctx_.showMessages(list.errors, this);
}

void Geograph::CitiesOnFile_Click() {
    QListWidgetItem* item = CitiesOnFile_->currentItem();
    if (!item) return;
    const int i = FindPlace(places_, item->text().toStdString());
    if (i < 0) return;
    auto* input = qobject_cast<InputD*>(ctx_.loadWindow(win::InputD));
    InputFields in = input ? input->fields() : ctx_.session().calc.input;
    auto err = TransferPlace(places_[static_cast<size_t>(i)], in);
    if (input) input->setFields(in);
    ctx_.session().calc.input = in;
    if (err) ctx_.showMessage(*err, this);
}

void Geograph::cmdNewFileList_Click() {
    QString file = ctx_.selectFile("*.LL", CitiesFile(ctx_), this);
    if (file.isEmpty()) return;
    ctx_.session().paths.CitiesFilePath = file.toStdString();
    LoadCitiesList();
    ShowListFileName();
}

void Geograph::cmdEditList_Click() {
    ctx_.showWindow(win::LongLat);
}

void Geograph::Command1_Click() {
    ctx_.unloadWindow(win::Geograph);
    ctx_.unloadWindow(win::Names);
    ctx_.showWindow(win::Names);
}

void Geograph::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return; // restored by the user: where the user left it
    if (auto* input = ctx_.windowAs<InputD>(win::InputD); input && input->isVisible())
        input->placeBeside(this);
}

} // namespace kal::ui
