#include "shell/ui/SelectFIle.h"

#include <QDir>
#include <QFileSystemModel>
#include <QStorageInfo>

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
    QModelIndex idx = dirModel_->index(folder_);
    if (idx.isValid()) {
        QSignalBlocker block(ui->dirList->selectionModel());
        ui->dirList->setCurrentIndex(idx);
        ui->dirList->scrollTo(idx);
        ui->dirList->expand(idx);
    }
    fillFiles();
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
