#include "shell/ui/SelectFIle.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QStorageInfo>
#include <QTimer>

#include "shell/ui/AppContext.h"
#include "ui_SelectFIle.h"

namespace kal::ui {

SelectFIle::SelectFIle(AppContext& ctx, QWidget* parent)
    : QDialog(parent), ctx_(ctx), ui(std::make_unique<Ui::SelectFIle>()) {
    ui->setupUi(this);
    dirModel_ = new QFileSystemModel(this);
    dirModel_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    dirModel_->setRootPath(QDir::rootPath());
    ui->dirList->setModel(dirModel_);
    for (int c = 1; c < dirModel_->columnCount(); ++c) ui->dirList->hideColumn(c);

    connect(ui->cmdSelect, &QPushButton::clicked, this, &SelectFIle::cmdSelect_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &SelectFIle::cmdCancel_Click);
    connect(ui->drvList, &QComboBox::activated, this, &SelectFIle::drvList_Change);
    connect(ui->dirList->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SelectFIle::dirList_Change);
    connect(ui->filList, &QListWidget::itemDoubleClicked, this, &SelectFIle::filList_DblClick);
    // The folders are read, and then sorted, after the window opens: each
    // change to the tree scrolls the current folder back into view (once
    // the change is complete).
    auto* reveal = new QTimer(this);
    reveal->setSingleShot(true);
    reveal->setInterval(0);
    connect(reveal, &QTimer::timeout, this, &SelectFIle::revealFolder);
    auto later = [reveal] { reveal->start(); };
    connect(dirModel_, &QFileSystemModel::directoryLoaded, reveal, later);
    connect(dirModel_, &QAbstractItemModel::layoutChanged, reveal, later);
    connect(dirModel_, &QAbstractItemModel::rowsInserted, reveal, later);
    Form_Load();
}

SelectFIle::~SelectFIle() = default;

void SelectFIle::Form_Load() {
    // The drives are the mounted volumes; the list starts at the program
    // directory's volume and folder.
    QString app = QString::fromStdString(ctx_.session().paths.AppPath.string());
    QStringList roots;
    for (const QStorageInfo& v : QStorageInfo::mountedVolumes())
        if (v.isValid() && v.isReady() && !roots.contains(v.rootPath())) roots << v.rootPath();
    roots.sort();
    if (!roots.contains(QDir::rootPath())) roots.prepend(QDir::rootPath());
    ui->drvList->addItems(roots);
    ui->drvList->setCurrentText(QStorageInfo(app).rootPath());
    setFolder(app);
}

void SelectFIle::setPattern(const QString& pattern) {
    pattern_ = pattern;
    fillFiles();
}

void SelectFIle::setFolder(const QString& folder) {
    folder_ = QDir(folder).absolutePath();
    revealFolder();
    fillFiles();
}

void SelectFIle::setCurrentFile(const QString& file) {
    const QFileInfo info(file);
    setFolder(info.absolutePath());
    const auto found = ui->filList->findItems(info.fileName(), Qt::MatchFixedString);
    if (found.isEmpty()) return;
    ui->filList->setCurrentItem(found.first());
    ui->filList->scrollToItem(found.first());
    ui->filList->setFocus();
}

void SelectFIle::revealFolder() {
    QModelIndex idx = dirModel_->index(folder_);
    if (!idx.isValid()) return;
    QSignalBlocker block(ui->dirList->selectionModel());
    for (QModelIndex up = idx.parent(); up.isValid(); up = up.parent()) ui->dirList->expand(up);
    ui->dirList->setCurrentIndex(idx);
    ui->dirList->scrollTo(idx, QAbstractItemView::PositionAtCenter);
}

void SelectFIle::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // The view knows its height only now.
    QTimer::singleShot(0, this, &SelectFIle::revealFolder);
}

void SelectFIle::fillFiles() {
    ui->filList->clear();
    QDir dir(folder_);
    const QStringList files = dir.entryList(pattern_.split(';', Qt::SkipEmptyParts), QDir::Files,
                                            QDir::Name | QDir::IgnoreCase);
    ui->filList->addItems(files);
}

void SelectFIle::drvList_Change() {
    setFolder(ui->drvList->currentText());
}

void SelectFIle::dirList_Change() {
    QModelIndex idx = ui->dirList->currentIndex();
    if (!idx.isValid()) return;
    folder_ = dirModel_->filePath(idx);
    fillFiles();
}

void SelectFIle::cmdSelect_Click() {
    emit ctx_.selectionListsEmptied();
    auto* item = ui->filList->currentItem();
    if (item) {
        QString path = folder_;
        if (!path.endsWith('/')) path += '/';
        selectedFile_ = path + item->text();
    }
    accept();
}

void SelectFIle::filList_DblClick() {
    cmdSelect_Click();
}

void SelectFIle::cmdCancel_Click() {
    selectedFile_.clear();
    reject();
}

} // namespace kal::ui
