#include "browsers/ui/MEANINGS.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

#include "browsers/ui/BrowserState.h"
#include "browsers/ui/OptionGroup.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

MEANINGS::MEANINGS(AppContext& ctx, QWidget* parent) : QMainWindow(parent), ctx_(ctx) {
    setObjectName("MEANINGS");
    setWindowFlag(Qt::Window, true);
    setWindowTitle("Natal Chart Meanings");

    connect(AddFileExitMenu(this), &QAction::triggered, this, &MEANINGS::mnuFileExit_Click);

    auto* central = new QWidget(this);
    setCentralWidget(central);
    Option1 = new OptionGroup("Option1", "Sign/Asc Sign", CaptionList(SignCaptions), 2, central);
    Option2 = new OptionGroup("Option2", "Houses", CaptionList(HouseCaptions), 2, central);
    Option3 = new OptionGroup("Option3", "Planets", CaptionList(PlanetCaptions), 1, central);
    Option4 = new OptionGroup("Option4", "Aspects", CaptionList(AspectCaptions), 1, central);
    Option5 = new OptionGroup("Option5", "2nd Planet", CaptionList(PlanetCaptions), 1, central);
    OKSigns = NamedButton("OKSigns", "Planet in &sign", central);
    OKHouses = NamedButton("OKHouses", "Planet &house", central);
    OKRisingSign = NamedButton("OKRisingSign", "&Rising sign", central);
    OKAspects = NamedButton("OKAspects", "&Aspects", central);
    Command1 = NamedButton("Command1", "Hel&p", central);

    auto* groups = new QGridLayout;
    groups->addWidget(Option1, 0, 0);
    groups->addWidget(Option2, 1, 0);
    groups->addWidget(Option3, 0, 1, 2, 1);
    auto* aspects = new QVBoxLayout;
    aspects->addWidget(Option4);
    aspects->addStretch(1);
    groups->addLayout(aspects, 0, 2, 2, 1);
    groups->addWidget(Option5, 0, 3, 2, 1);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {OKSigns, OKHouses, OKRisingSign, OKAspects}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    auto* layout = new QVBoxLayout(central);
    layout->addLayout(groups);
    layout->addLayout(buttons);

    connect(Option1, &OptionGroup::gotFocus, this, &MEANINGS::Option1_GotFocus);
    connect(Option2, &OptionGroup::gotFocus, this, &MEANINGS::Option2_GotFocus);
    connect(Option3, &OptionGroup::gotFocus, this, &MEANINGS::Option3_GotFocus);
    connect(Option4, &OptionGroup::gotFocus, this, &MEANINGS::Option4_GotFocus);
    connect(Option5, &OptionGroup::gotFocus, this, &MEANINGS::Option5_GotFocus);
    connect(Option1, &OptionGroup::dblClick, this, &MEANINGS::Option1_DblClick);
    connect(Option2, &OptionGroup::dblClick, this, &MEANINGS::Option2_DblClick);
    connect(Option4, &OptionGroup::dblClick, this, &MEANINGS::Option4_DblClick);
    connect(OKSigns, &QPushButton::clicked, this, &MEANINGS::OKSigns_Click);
    connect(OKHouses, &QPushButton::clicked, this, &MEANINGS::OKHouses_Click);
    connect(OKRisingSign, &QPushButton::clicked, this, &MEANINGS::OKRisingSign_Click);
    connect(OKAspects, &QPushButton::clicked, this, &MEANINGS::OKAspects_Click);
    connect(Command1, &QPushButton::clicked, this, &MEANINGS::Command1_Click);
    Form_Load();
}

BrowserSelections& MEANINGS::sel() {
    return BrowserState::selectionsOf(ctx_);
}

void MEANINGS::Form_Load() {
    BrowserSelections& s = sel();
    const BrowserSelections initial;
    s.SelSign = initial.SelSign;
    s.SelHouse = initial.SelHouse;
    s.SelPlanet = initial.SelPlanet;
    s.SelAspect = initial.SelAspect;
    s.SelPlanet2 = initial.SelPlanet2;
    Option1->mark(s.SelSign);
    Option2->mark(s.SelHouse);
    Option3->mark(s.SelPlanet);
    Option4->mark(s.SelAspect);
    Option5->mark(s.SelPlanet2);
    // Beside the data window, on its right, kept on the screen.
    const Settings& st = ctx_.display().settings;
    QPoint place(AppContext::toPixels(st.DataLeft + st.DataWidth),
                 AppContext::toPixels(st.DataTop));
    adjustSize();
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect avail = screen->availableGeometry();
        place.setX(std::max(avail.left(), std::min(place.x(), avail.right() - width())));
        place.setY(std::max(avail.top(), std::min(place.y(), avail.bottom() - height())));
    }
    move(place);
}

void MEANINGS::Option1_GotFocus(int index) {
    sel().SelSign = static_cast<short>(index);
}
void MEANINGS::Option2_GotFocus(int index) {
    sel().SelHouse = static_cast<short>(index);
}
void MEANINGS::Option3_GotFocus(int index) {
    sel().SelPlanet = static_cast<short>(index);
}
void MEANINGS::Option4_GotFocus(int index) {
    sel().SelAspect = static_cast<short>(index);
}
void MEANINGS::Option5_GotFocus(int index) {
    sel().SelPlanet2 = static_cast<short>(index);
}

void MEANINGS::Option1_DblClick(int) {
    OKRisingSign_Click();
}
void MEANINGS::Option2_DblClick(int) {
    OKHouses_Click();
}
void MEANINGS::Option4_DblClick(int) {
    OKAspects_Click();
}

void MEANINGS::showLookup(const LookupResult& lookup) {
    if (auto* refused = std::get_if<Message>(&lookup)) {
        ctx_.showMessage(*refused, this);
        return;
    }
    Session& s = ctx_.session();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Messages msgs = ShowLookup(s.listing.out, s.paths.AppPath, sel(), std::get<TextLookup>(lookup));
    QApplication::restoreOverrideCursor();
    ShowBrowserPage(ctx_, msgs, this);
}

void MEANINGS::OKSigns_Click() {
    showLookup(PlanetInSignLookup(sel()));
}
void MEANINGS::OKHouses_Click() {
    showLookup(PlanetInHouseLookup(sel()));
}
void MEANINGS::OKRisingSign_Click() {
    showLookup(RisingSignLookup(sel()));
}
void MEANINGS::OKAspects_Click() {
    showLookup(AspectLookup(sel()));
}

void MEANINGS::Command1_Click() {
    ctx_.showMessage(MeaningsHelpMessage(), this);
}

void MEANINGS::mnuFileExit_Click() {
    close();
}

} // namespace kal::ui
