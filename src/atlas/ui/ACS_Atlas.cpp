#include "atlas/ui/ACS_Atlas.h"

#include "ui_ACS_Atlas.h"

#include <QKeyEvent>
#include <QLocale>

#include <array>
#include <cmath>
#include <cstdlib>

#include "base/VbText.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

namespace {

constexpr const char* kCaption = "ACS Atlas";
constexpr const char* kDuplicateCaption = "THIS IS A DUPLICATE CITY";

QString Q(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

// "48°08′N" from seconds of arc, minutes rounded as the lookup rounds them.
QString AngleText(double arcSeconds, char positive, char negative) {
    DegreesMinutes dm = ToDegreesMinutes(arcSeconds);
    return QString("%1°%2′%3")
        .arg(dm.degrees)
        .arg(dm.minutes, 2, 10, QChar('0'))
        .arg(QChar(dm.negative ? negative : positive));
}

// The clock's offset from universal time: "UT+2", "UT-4", "UT+5:30",
// "UT-6:27:14".
QString UtText(int seconds) {
    const int a = std::abs(seconds);
    QString t = QString("UT%1%2").arg(seconds < 0 ? '-' : '+').arg(a / 3600);
    if (a % 3600) t += QString(":%1").arg(a / 60 % 60, 2, 10, QChar('0'));
    if (a % 60) t += QString(":%1").arg(a % 60, 2, 10, QChar('0'));
    return t;
}

QString ZoneText(float hours) {
    return Q(NumText(hours, Precision::Single));
}

// One reading of the clock: "CEST, one hour of daylight time (UT+2): zone -2".
QString ReadingText(const ZoneReading& r) {
    AtlasZoneValue z = AtlasZoneFromKind(r.zone900, r.kindOfTime);
    QString kind = z.localMeanTime ? QString("local mean time of the place's longitude")
                                   : Q(KindOfTimeText(r.kindOfTime));
    return QString("%1, %2 (%3): zone %4")
        .arg(Q(r.abbreviation), kind, UtText(r.offsetSeconds), ZoneText(z.hours));
}

QString ClockText(const LocalClock& c) {
    static const std::array<const char*, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    QString time = QString("%1:%2").arg(c.hour).arg(c.minute, 2, 10, QChar('0'));
    if (c.month < 1 || c.month > 12)
        return QString("month %1, day %2, year %3 at %4")
            .arg(c.month)
            .arg(c.day)
            .arg(c.year)
            .arg(time);
    return QString("%1 %2 %3 at %4").arg(c.day).arg(months[c.month - 1]).arg(c.year).arg(time);
}

QString HintText() {
    return "Type the birth place. A country or region after a comma narrows the list: "
           "\"Paris, FR\", \"Paris, Texas\".";
}

} // namespace

ACS_Atlas::ACS_Atlas(AppContext& ctx, QWidget* parent)
    : QDialog(parent), ctx_(ctx), ui(std::make_unique<Ui::ACS_Atlas>()) {
    ui->setupUi(this);
    ui->lstPlaces->header()->setStretchLastSection(false);
    ui->lstPlaces->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui->lstPlaces->setColumnWidth(1, 170);
    ui->lstPlaces->setColumnWidth(2, 150);
    ui->lstPlaces->setColumnWidth(3, 90);
    ui->lstPlaces->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    ui->txtPlace->installEventFilter(this);

    connect(ui->txtPlace, &QLineEdit::textChanged, this, &ACS_Atlas::txtPlace_Change);
    connect(ui->lstPlaces, &QTreeWidget::currentItemChanged, this, &ACS_Atlas::showPickedPlace);
    connect(ui->lstPlaces, &QTreeWidget::itemActivated, this, &ACS_Atlas::cmdLookup_Click);
    connect(ui->cmdLookup, &QPushButton::clicked, this, &ACS_Atlas::cmdLookup_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &ACS_Atlas::cmdClose_Click);
    Form_Load();
}

ACS_Atlas::~ACS_Atlas() = default;

// The birth date and time as the input window holds them, the hour brought
// to the 24-hour clock; the atlas index, read on the first lookup of the
// program's run.
void ACS_Atlas::Form_Load() {
    const InputFields in = ctx_.currentInput();
    clock_ = BirthClock(in.txtMonth, in.txtDay, in.txtYear, in.txtBirthHour, in.txtBirthMinute,
                        in.optPM());
    ui->lblBirth->setText(
        QString("The time in force is looked up for the birth on %1 (24-hour clock), as the "
                "input window gives it.")
            .arg(ClockText(clock_)));
    ui->fraClockChange->hide();
    index_ = ctx_.session().atlas.Index();
    if (!index_) {
        const std::string& error = ctx_.session().atlas.Error();
        ui->lblFound->setText(Q(error));
        ui->txtPlace->setEnabled(false);
        ui->cmdLookup->setEnabled(false);
        ctx_.showMessage({error, "Error!", Icon::Critical});
        return;
    }
    PrepareZoneData();
    ui->lblFound->setText(HintText());
    ui->txtPlace->setFocus();
}

void ACS_Atlas::txtPlace_Change() {
    const std::string typed = ui->txtPlace->text().toStdString();
    matches_ = index_ ? index_->search(typed, kListLimit) : std::vector<PlaceMatch>{};

    QTreeWidget* list = ui->lstPlaces;
    list->setUpdatesEnabled(false);
    {
        const QSignalBlocker quiet(list);
        list->clear();
        QList<QTreeWidgetItem*> items;
        items.reserve(static_cast<qsizetype>(matches_.size()));
        const QLocale locale;
        for (std::size_t i = 0; i < matches_.size(); ++i) {
            const PlaceMatch& m = matches_[i];
            AtlasPlace p = index_->place(m.place);
            QString name = Q(p.name);
            // Found under another of its names: that name beside its own.
            if (m.slot >= 2) {
                std::string_view other = index_->matchedName(m);
                if (index_->fold(other) != index_->fold(p.name)) name += " (" + Q(other) + ")";
            }
            auto* item = new QTreeWidgetItem(
                {name, Q(p.region), Q(p.country), locale.toString(qulonglong(p.population))});
            item->setData(0, Qt::UserRole, static_cast<int>(i));
            item->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
            items.append(item);
        }
        list->addTopLevelItems(items);
        if (!items.isEmpty()) list->setCurrentItem(items.first());
    }
    list->setUpdatesEnabled(true);

    QString found;
    const QString name = Q(Trim(typed.substr(0, typed.find(','))));
    if (index_ && index_->fold(typed.substr(0, typed.find(','))).empty()) {
        found = HintText();
    } else if (matches_.empty()) {
        found = QString("No place of the atlas is called \"%1\".").arg(name);
    } else {
        // Places that bear the typed name as their own.
        int named = 0;
        for (const PlaceMatch& m : matches_)
            if (m.kind == MatchKind::Exact && m.slot < 2) ++named;
        if (named > 1)
            found = QString("%1 places are named %2: check the region and country before Lookup.")
                        .arg(named)
                        .arg(Q(index_->place(matches_.front().place).name));
        else if (matches_.size() == kListLimit)
            found = QString("The first %1 places found: type more of the name, or a country or "
                            "region after a comma.")
                        .arg(kListLimit);
        else
            found = matches_.size() == 1 ? QString("1 place found.")
                                         : QString("%1 places found.").arg(matches_.size());
    }
    ui->lblFound->setText(found);
    showPickedPlace();
}

void ACS_Atlas::showPickedPlace() {
    QTreeWidgetItem* item = ui->lstPlaces->currentItem();
    if (!item || !index_) {
        picked_.reset();
        ui->lblPlace->clear();
        ui->fraClockChange->hide();
        return;
    }
    const std::uint32_t place = matches_.at(item->data(0, Qt::UserRole).toUInt()).place;
    if (picked_ == place) return;
    picked_ = place;
    answer_ = LookupPlace(*index_, place, clock_);

    AtlasPlace p = index_->place(place);
    QString where = Q(p.name);
    for (std::string_view part : {p.region, p.country})
        if (!part.empty()) where += ", " + Q(part);
    QString text = QString("%1: %2 %3, time zone %4.")
                       .arg(where, AngleText(answer_.latitudeSeconds, 'N', 'S'),
                            AngleText(answer_.longitudeSeconds, 'W', 'E'), Q(p.zone));
    const ZoneInForce& z = answer_.zone;
    if (!z.error.empty())
        text += "\n" + Q(z.error);
    else if (z.fit == ClockFit::Unique)
        text += "\nAt the birth: " + ReadingText(z.first) + ".";
    else
        text += "\nThe clocks were changed at the birth time: choose a reading below.";
    ui->lblPlace->setText(text);

    const bool change = z.error.empty() && z.fit != ClockFit::Unique;
    ui->fraClockChange->setVisible(change);
    if (!change) return;
    ui->lblClockChange->setText(
        z.fit == ClockFit::Gap
            ? "The clocks of this place jumped over the birth time on this date: that time was "
              "never shown. Choose the reading in which the birth time was written down."
            : "The clocks of this place were turned back on this date and showed the birth time "
              "twice. Choose which of the two it was.");
    ui->optFirstReading->setText("Before the change: " + ReadingText(z.first));
    ui->optSecondReading->setText("After the change: " + ReadingText(z.second));
    // Neither is chosen until the user chooses.
    for (QRadioButton* o : {ui->optFirstReading, ui->optSecondReading}) {
        o->setAutoExclusive(false);
        o->setChecked(false);
        o->setAutoExclusive(true);
    }
}

const ZoneReading* ACS_Atlas::chosenReading() const {
    const ZoneInForce& z = answer_.zone;
    if (z.fit == ClockFit::Unique) return &z.first;
    if (ui->optFirstReading->isChecked()) return &z.first;
    if (ui->optSecondReading->isChecked()) return &z.second;
    return nullptr;
}

void ACS_Atlas::cmdLookup_Click() {
    if (!picked_) {
        ctx_.showMessage({"Type the birth place and pick it in the list first.", "Information",
                          Icon::Information},
                         this);
        return;
    }
    if (!answer_.zone.error.empty()) {
        ctx_.showMessage({answer_.zone.error, "Warning!", Icon::Exclamation}, this);
        return;
    }
    const ZoneReading* reading = chosenReading();
    if (!reading) {
        ctx_.showMessage({kChooseReadingText, "Information", Icon::Information}, this);
        return;
    }
    AtlasResults& r = ctx_.session().atlas.results;
    r.AtlasLong = AtlasLongText(answer_.longitudeSeconds);
    r.AtlasLat = AtlasLatText(answer_.latitudeSeconds);
    const bool duplicate = answer_.duplicate >= 1000;
    setWindowTitle(duplicate ? kDuplicateCaption : kCaption);
    AtlasZoneValue zone = AtlasZoneFromKind(reading->zone900, reading->kindOfTime);
    if (zone.localMeanTime)
        ctx_.showMessage({std::string(kLmtText), std::string(kLmtCaption), Icon::Exclamation},
                         this);
    r.AtlasZone = zone.hours;
    r.AtlasResult = 6;
    r.AtlasFound = 1;
    if (!duplicate) {
        accept();
        return;
    }
    // The window stays open so that another place of the name can be
    // picked; closing it hands over this one.
    ui->lblFound->setText(
        QString("Other places are named %1 too. Close this window to take the one looked up "
                "into the input window, or pick another and press Lookup.")
            .arg(Q(index_->place(*picked_).name)));
}

void ACS_Atlas::cmdClose_Click() {
    close();
}

bool ACS_Atlas::eventFilter(QObject* watched, QEvent* event) {
    // The arrow and page keys in the search box move in the list.
    if (watched == ui->txtPlace && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(ui->lstPlaces, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace kal::ui
