#include "birthdata/ui/TimeZone.h"

#include "ui_TimeZone.h"

#include <QFontMetrics>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/TextFile.h"
#include "birthdata/ui/InputD.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

TimeZone::TimeZone(AppContext& ctx, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), ui(std::make_unique<Ui::TimeZone>()) {
    ui->setupUi(this);
    lstTimeZones_ = ui->lstTimeZones;
    QFont mono = lstTimeZones_->font();
    mono.setStyleHint(QFont::Monospace);
    mono.setFixedPitch(true);
    lstTimeZones_->setFont(mono);
    auto* quit = ui->Command1;
    connect(quit, &QPushButton::clicked, this, &TimeZone::Command1_Click);
    connect(lstTimeZones_, &QListWidget::itemClicked, this, &TimeZone::lstTimeZones_Click);

    // Form_Load.
    lstTimeZones_->setUpdatesEnabled(false);
    zones_ = LoadZoneTable(FindFile(ctx_.session().paths.AppPath, "TZ.DAT"));
    for (size_t i = 0; i < zones_.ZoneName.size(); ++i)
        lstTimeZones_->addItem(QString::fromStdString(
            ZoneListLine(zones_.ZoneName[i], zones_.ZoneCode[i], zones_.ZoneOffset[i])));
    lstTimeZones_->setUpdatesEnabled(true);
    lstTimeZones_->update();
    if (zones_.corrupt) ctx_.showMessage(TzCorruptMessage(), this);

    // Wide enough for a whole line of the list.
    QFontMetrics fm(lstTimeZones_->font());
    resize(fm.horizontalAdvance(QString(46, 'M')) + 60, 440);
}

TimeZone::~TimeZone() = default;

void TimeZone::lstTimeZones_Click() {
    QListWidgetItem* item = lstTimeZones_->currentItem();
    if (!item) return;
    auto* input = qobject_cast<InputD*>(ctx_.loadWindow(win::InputD));
    InputFields in = input ? input->fields() : ctx_.session().calc.input;
    if (auto err = ApplyZone(zones_, item->text().toStdString(), in)) {
        ctx_.showMessage(*err, this);
        return;
    }
    if (input) input->setFields(in);
    ctx_.session().calc.input = in;
}

void TimeZone::Command1_Click() {
    ctx_.unloadWindow(win::TimeZone);
}

} // namespace kal::ui
