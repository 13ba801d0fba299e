#include "browsers/ui/KEY_WORD.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "browsers/Keywords.h"
#include "browsers/ui/BrowserState.h"
#include "browsers/ui/OptionGroup.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

KEY_WORD::KEY_WORD(AppContext& ctx, QWidget* parent) : QMainWindow(parent), ctx_(ctx) {
    setObjectName("KEY_WORD");
    setWindowFlag(Qt::Window, true);
    setWindowTitle("Delineation by Keywords");

    connect(AddFileExitMenu(this), &QAction::triggered, this, &KEY_WORD::mnuFileExit_Click);

    auto* central = new QWidget(this);
    setCentralWidget(central);
    Option1 = new OptionGroup("Option1", "Sign", CaptionList(SignCaptions), 2, central);
    Option2 = new OptionGroup("Option2", "House", CaptionList(HouseCaptions), 2, central);
    Option3 = new OptionGroup("Option3", "Planet", CaptionList(LessonPlanetCaptions), 2, central);
    OKSign1 = NamedButton("OKSign1", "Sign", central);
    OKHouse1 = NamedButton("OKHouse1", "House", central);
    OKPlanet1 = NamedButton("OKPlanet1", "Planet", central);
    OKIntro1 = NamedButton("OKIntro1", "Intro", central);
    OKIntro2 = NamedButton("OKIntro2", "Steps", central);
    OKKey1 = NamedButton("OKKey1", "Key", central);
    OKGeneral1 = NamedButton("OKGeneral1", "General", central);
    OKExample1 = NamedButton("OKExample1", "Example", central);
    OKExample2 = NamedButton("OKExample2", "Summary", central);
    OKAspects = NamedButton("OKAspects", "Aspects", central);
    Command2 = NamedButton("Command2", "Help", central);

    // Each group with its own button under it; the general lessons in a
    // column on the right.
    auto* groups = new QGridLayout;
    groups->addWidget(Option1, 0, 0);
    groups->addWidget(OKSign1, 1, 0);
    groups->addWidget(Option2, 0, 1);
    groups->addWidget(OKHouse1, 1, 1);
    groups->addWidget(Option3, 0, 2);
    groups->addWidget(OKPlanet1, 1, 2);
    auto* general = new QVBoxLayout;
    for (QPushButton* b :
         {OKIntro1, OKIntro2, OKKey1, OKGeneral1, OKExample1, OKExample2, OKAspects})
        general->addWidget(b);
    general->addStretch(1);
    general->addWidget(Command2);
    auto* layout = new QHBoxLayout(central);
    layout->addLayout(groups);
    layout->addSpacing(8);
    layout->addLayout(general);

    connect(Option1, &OptionGroup::gotFocus, this, &KEY_WORD::Option1_GotFocus);
    connect(Option2, &OptionGroup::gotFocus, this, &KEY_WORD::Option2_GotFocus);
    connect(Option3, &OptionGroup::gotFocus, this, &KEY_WORD::Option3_GotFocus);
    connect(Option1, &OptionGroup::dblClick, this, &KEY_WORD::Option1_DblClick);
    connect(Option2, &OptionGroup::dblClick, this, &KEY_WORD::Option2_DblClick);
    connect(Option3, &OptionGroup::dblClick, this, &KEY_WORD::Option3_DblClick);
    connect(OKSign1, &QPushButton::clicked, this, &KEY_WORD::OKSign1_Click);
    connect(OKHouse1, &QPushButton::clicked, this, &KEY_WORD::OKHouse1_Click);
    connect(OKPlanet1, &QPushButton::clicked, this, &KEY_WORD::OKPlanet1_Click);
    connect(OKIntro1, &QPushButton::clicked, this, &KEY_WORD::OKIntro1_Click);
    connect(OKIntro2, &QPushButton::clicked, this, &KEY_WORD::OKIntro2_Click);
    connect(OKKey1, &QPushButton::clicked, this, &KEY_WORD::OKKey1_Click);
    connect(OKGeneral1, &QPushButton::clicked, this, &KEY_WORD::OKGeneral1_Click);
    connect(OKExample1, &QPushButton::clicked, this, &KEY_WORD::OKExample1_Click);
    connect(OKExample2, &QPushButton::clicked, this, &KEY_WORD::OKExample2_Click);
    connect(OKAspects, &QPushButton::clicked, this, &KEY_WORD::OKAspects_Click);
    connect(Command2, &QPushButton::clicked, this, &KEY_WORD::Command2_Click);
    Form_Load();
}

void KEY_WORD::Form_Load() {
    BrowserSelections& s = BrowserState::selectionsOf(ctx_);
    s.SelSign = 6;    // Libra
    s.SelHouse = 6;   // 7th
    s.SelPlanet = 4;  // Mars
    s.SelAspect = 0;  // the meanings window's "blending"
    s.SelPlanet2 = 1; // and its second planet, the Moon
    Option1->mark(s.SelSign);
    Option2->mark(s.SelHouse);
    Option3->mark(s.SelPlanet);
    // The next Save of the data window or the report viewer asks for a name.
    ctx_.session().paths.OutputFileName.clear();
}

void KEY_WORD::Option1_GotFocus(int index) {
    BrowserState::selectionsOf(ctx_).SelSign = static_cast<short>(index);
}
void KEY_WORD::Option2_GotFocus(int index) {
    BrowserState::selectionsOf(ctx_).SelHouse = static_cast<short>(index);
}
void KEY_WORD::Option3_GotFocus(int index) {
    BrowserState::selectionsOf(ctx_).SelPlanet = static_cast<short>(index);
}

void KEY_WORD::Option1_DblClick(int) {
    OKSign1_Click();
}
void KEY_WORD::Option2_DblClick(int) {
    OKHouse1_Click();
}
void KEY_WORD::Option3_DblClick(int) {
    OKPlanet1_Click();
}

void KEY_WORD::lesson(std::string_view file) {
    Session& s = ctx_.session();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Messages msgs =
        ShowLesson(s.listing.out, s.paths.AppPath, BrowserState::selectionsOf(ctx_), file);
    QApplication::restoreOverrideCursor();
    ShowBrowserPage(ctx_, msgs, this);
}

void KEY_WORD::OKSign1_Click() {
    lesson(SignLessonFile(BrowserState::selectionsOf(ctx_).SelSign));
}
void KEY_WORD::OKHouse1_Click() {
    lesson(HouseLessonFile(BrowserState::selectionsOf(ctx_).SelHouse));
}
void KEY_WORD::OKPlanet1_Click() {
    // The planet buttons stop at Pluto: a selection the meanings window
    // left on the Ascendant has no lesson.
    short planet = BrowserState::selectionsOf(ctx_).SelPlanet;
    if (planet < 0 || planet >= static_cast<short>(LessonPlanetCaptions.size())) return;
    lesson(PlanetLessonFile(planet));
}
void KEY_WORD::OKIntro1_Click() {
    lesson(IntroLesson);
}
void KEY_WORD::OKIntro2_Click() {
    lesson(StepsLesson);
}
void KEY_WORD::OKKey1_Click() {
    lesson(KeyLesson);
}
void KEY_WORD::OKGeneral1_Click() {
    lesson(GeneralLesson);
}
void KEY_WORD::OKExample1_Click() {
    lesson(ExampleLesson);
}
void KEY_WORD::OKExample2_Click() {
    lesson(SummaryLesson);
}
void KEY_WORD::OKAspects_Click() {
    lesson(AspectsLesson);
}

void KEY_WORD::Command2_Click() {
    ctx_.showMessage(KeywordSystemHelpMessage(), this);
}

void KEY_WORD::mnuFileExit_Click() {
    close();
}

} // namespace kal::ui
