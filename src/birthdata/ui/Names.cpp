#include "birthdata/ui/Names.h"

#include "ui_Names.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>

#include "birthdata/NamesFile.h"
#include "birthdata/ui/BirthDataState.h"
#include "birthdata/ui/InputD.h"
#include "birthdata/ui/ListPicks.h"
#include "birthdata/ui/Paths.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

Names::Names(AppContext& ctx, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), ui(std::make_unique<Ui::Names>()) {
    ui->setupUi(this);
    NamesOnFile_ = ui->NamesOnFile;
    lblNamesOnFile_ = ui->lblNamesOnFile;
    Check1_ = ui->Check1;
    auto* cities = ui->Command1;
    auto* edit = ui->cmdEditList;
    auto* change = ui->cmdNewFileList;

    connect(NamesOnFile_, &QListWidget::itemClicked, this, &Names::NamesOnFile_Click);
    PickOnKeyMoves(
        NamesOnFile_, [this] { return loading_; }, [this] { NamesOnFile_Click(); });
    connect(NamesOnFile_, &QListWidget::itemDoubleClicked, this, &Names::NamesOnFile_DblClick);
    connect(Check1_, &QCheckBox::clicked, this, &Names::Check1_Click);
    connect(cities, &QPushButton::clicked, this, &Names::Command1_Click);
    connect(edit, &QPushButton::clicked, this, &Names::cmdEditList_Click);
    connect(change, &QPushButton::clicked, this, &Names::cmdNewFileList_Click);
    connect(&ctx_, &AppContext::selectionListsEmptied, this, [this] {
        NamesOnFile_->clear();
        records_.clear();
    });

    // Form_Load.
    NamesListState& st = BirthDataState::flags(ctx_);
    st.LockSync = 1;
    Check1_->setChecked(st.ListLocked != 0);
    st.LockSync = 0;
    ShowListFileName();
    LoadNamesList();
}

Names::~Names() = default;

void Names::ShowListFileName() {
    lblNamesOnFile_->setText(ListFileLabel(NamesFile(ctx_)));
}

void Names::LoadNamesList() {
    loading_ = true;
    NamesOnFile_->setUpdatesEnabled(false);
    NamesOnFile_->clear();
    NamesList list = LoadNamesFile(NamesFile(ctx_));
    records_ = list.records;
    for (const auto& r : records_) NamesOnFile_->addItem(QString::fromStdString(r.RecName));
    NamesOnFile_->setUpdatesEnabled(true);
    loading_ = false;
    ctx_.showMessages(list.errors, this);

    NamesListState& st = BirthDataState::flags(ctx_);
    if (Check1_->isChecked()) {
        ReloadSelection r = LockedReload(true, st.KeepInputOnReload != 0, st.LockedIndex,
                                         static_cast<int>(records_.size()));
        st.LockedIndex = static_cast<short>(r.lockedIndex);
        if (r.select) {
            if (QListWidgetItem* top = NamesOnFile_->item(r.topRow))
                NamesOnFile_->scrollToItem(top, QAbstractItemView::PositionAtTop);
            loading_ = true;
            NamesOnFile_->setCurrentRow(r.index);
            loading_ = false;
            NamesOnFile_Click();
        }
    }
    NamesOnFile_->update();
}

void Names::transfer() {
    NamesListState& st = BirthDataState::flags(ctx_);
    st.KeepInputOnReload = 0;
    QListWidgetItem* item = NamesOnFile_->currentItem();
    if (!item) return;
    const int i = FindRecord(records_, item->text().toStdString());
    if (i < 0) return;
    if (Check1_->isChecked()) st.LockedIndex = static_cast<short>(NamesOnFile_->currentRow());
    st.CurrentRecord = static_cast<short>(i);

    auto* input = qobject_cast<InputD*>(ctx_.loadWindow(win::InputD));
    InputFields in = input ? input->fields() : ctx_.session().calc.input;
    auto err =
        TransferRecord(records_[static_cast<size_t>(i)], ctx_.session().regional.DateOrder, in);
    if (input) input->setFields(in);
    ctx_.session().calc.input = in;
    if (err) ctx_.showMessage(*err, this);
}

void Names::NamesOnFile_Click() {
    transfer();
}

void Names::NamesOnFile_DblClick() {
    BirthDataState::flags(ctx_).KeepInputOnReload = 0;
    transfer();
    auto* input = qobject_cast<InputD*>(ctx_.window(win::InputD));
    ctx_.unloadWindow(win::Names);
    // Calculated as OK does, which hides the input window and its lists.
    if (input)
        input->cmdOK_Click();
    else
        ctx_.calculate(ctx_.session().calc.input);
}

void Names::Check1_Click() {
    NamesListState& st = BirthDataState::flags(ctx_);
    if (st.LockSync) return;
    if (st.ListLocked == 0) {
        st.ListLocked = 1;
        st.LockedIndex = static_cast<short>(std::max(0, NamesOnFile_->currentRow()));
    } else {
        st.ListLocked = 0;
    }
}

void Names::cmdNewFileList_Click() {
    QString file = ctx_.selectFile("*.FIL", NamesFile(ctx_), this);
    if (file.isEmpty()) return;
    NamesListState& st = BirthDataState::flags(ctx_);
    st.KeepInputOnReload = 0;
    ctx_.session().paths.NamesFilePath = file.toStdString();
    st.LockedIndex = 0;
    ShowListFileName();
    LoadNamesList();
}

void Names::cmdEditList_Click() {
    ctx_.showWindow(win::NameEdit);
}

void Names::Command1_Click() {
    ctx_.unloadWindow(win::Names);
    ctx_.unloadWindow(win::Geograph);
    ctx_.showWindow(win::Geograph);
}

void Names::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return; // restored by the user: where the user left it
    if (auto* input = ctx_.windowAs<InputD>(win::InputD); input && input->isVisible())
        input->placeBeside(this);
}

} // namespace kal::ui
