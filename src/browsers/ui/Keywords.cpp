#include "browsers/ui/Keywords.h"

#include <QHeaderView>

#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "browsers/Keywords.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/WindowLook.h"

namespace kal::ui {

namespace {

// The grid's cells: every column 1200 twips wide, every row 250 twips high.
constexpr int ColumnTwips = 1200;
constexpr int RowTwips = 250;

} // namespace

Keywords::Keywords(AppContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("Keywords");
    setWindowFlag(Qt::Window, true);
    setWindowTitle("Keywords");

    Label2 = new QLabel(
        QString::fromLatin1(KeywordColumnHeadings.data(), qsizetype(KeywordColumnHeadings.size())),
        this);
    Label2->setObjectName("Label2");
    grdOutput = new QTableWidget(KeywordRows, KeywordColumns, this);
    grdOutput->setObjectName("grdOutput");
    grdOutput->horizontalHeader()->hide();
    grdOutput->verticalHeader()->hide();
    grdOutput->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdOutput->setSelectionMode(QAbstractItemView::SingleSelection);
    grdOutput->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grdOutput->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grdOutput->setFrameShape(QFrame::NoFrame);
    // Rows never lower than the cell font needs.
    const int columnWidth = AppContext::toPixels(ColumnTwips);
    const int rowHeight = std::max(AppContext::toPixels(RowTwips), fontMetrics().height() + 4);
    grdOutput->verticalHeader()->setMinimumSectionSize(1);
    grdOutput->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grdOutput->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    for (int c = 0; c < KeywordColumns; ++c) grdOutput->setColumnWidth(c, columnWidth);
    for (int r = 0; r < KeywordRows; ++r) grdOutput->setRowHeight(r, rowHeight);
    grdOutput->setFixedSize(columnWidth * KeywordColumns + 1, rowHeight * KeywordRows + 1);
    Label1 = new QLabel("NOTE: Click on a topic for information", this);
    Label1->setObjectName("Label1");
    Label1->setFont(QFont("Verdana"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 10, 14, 10);
    layout->addWidget(Label2);
    layout->addWidget(grdOutput);
    layout->addSpacing(4);
    layout->addWidget(Label1);
    connect(grdOutput, &QTableWidget::cellClicked, this, &Keywords::grdOutput_Click);
    Form_Load();
}

void Keywords::Form_Load() {
    for (int r = 0; r < KeywordRows; ++r)
        for (int c = 0; c < KeywordColumns; ++c) {
            auto cell = KeywordGrid[static_cast<size_t>(r)][static_cast<size_t>(c)];
            grdOutput->setItem(
                r, c,
                new QTableWidgetItem(QString::fromLatin1(cell.data(), qsizetype(cell.size()))));
        }
}

void Keywords::grdOutput_Click(int row, int column) {
    QTableWidgetItem* item = grdOutput->item(row, column);
    if (!item) return;
    if (auto m = KeywordTopicMessage(item->text().toStdString())) DisplayMsgBox(*m);
}

void Keywords::DisplayMsgBox(const Message& m) {
    ctx_.showMessage(m, this);
}

void Keywords::Form_Paint() {
    DrawSunkenFrame(this, grdOutput);
}

void Keywords::paintEvent(QPaintEvent* e) {
    QWidget::paintEvent(e);
    Form_Paint();
}

} // namespace kal::ui
