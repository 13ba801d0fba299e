#include "shell/ui/Kaltrova.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLocale>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <fstream>

#include "periphery/HelpText.h"
#include "periphery/ui/TITLE.h"
#include "shell/EditorFile.h"
#include "shell/Settings.h"
#include "shell/Startup.h"
#include "shell/TextFile.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/BirthDataHooks.h"
#include "shell/ui/WindowRegistry.h"

namespace kal::ui {

namespace {

// Listings that other parts of the core add to the Session as they land.
template <class S> constexpr bool kHasCosmicState = requires(S& s) {
    s.CmdCosmicState();
};
template <class S> constexpr bool kHasCareerFactors = requires(S& s) {
    s.CmdCareerFactors();
};

template <class S> Messages CosmicState(S& s) {
    if constexpr (kHasCosmicState<S>)
        return s.CmdCosmicState();
    else
        return {};
}

template <class S> Messages CareerFactors(S& s) {
    if constexpr (kHasCareerFactors<S>)
        return s.CmdCareerFactors();
    else
        return {};
}

// Courier New and MS Sans Serif are met by free fonts of the same metrics.
void InstallFontSubstitutions() {
    QFont::insertSubstitution("Courier New", "Liberation Mono");
    QFont::insertSubstitution("MS Sans Serif", "Liberation Sans");
}

bool CanOpen(const std::filesystem::path& file) {
    std::ifstream f(file);
    return static_cast<bool>(f);
}

} // namespace

Kaltrova::Kaltrova(AppContext& ctx, QWidget* parent) : QMainWindow(parent), ctx_(ctx) {
    setObjectName("Kaltrova");
    ctx_.setMainWindow(this);
    InstallFontSubstitutions();
    buildMenus();
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &Kaltrova::Timer1_Timer);
    connect(&ctx_, &AppContext::chartCalculated, this, &Kaltrova::EnableChartMenus);
    RegisterProgramWindows(ctx_);
}

Kaltrova::~Kaltrova() {
    if (ctx_.mainWindow() == this) ctx_.setMainWindow(nullptr);
}

void Kaltrova::buildMenus() {
    QMenuBar* bar = menuBar();
    // The strip's menu in the small sans-serif face it was laid out for.
    bar->setFont(QFont("MS Sans Serif", 8));
    auto menu = [](QWidget* parent, const char* name, const char* caption) {
        QMenu* m = nullptr;
        if (auto* b = qobject_cast<QMenuBar*>(parent))
            m = b->addMenu(caption);
        else
            m = static_cast<QMenu*>(parent)->addMenu(caption);
        m->setObjectName(name);
        m->menuAction()->setObjectName(name);
        return m;
    };
    auto item = [this](QWidget* parent, const char* name, const char* caption,
                       void (Kaltrova::*slot)()) {
        QAction* a = nullptr;
        if (auto* b = qobject_cast<QMenuBar*>(parent))
            a = b->addAction(caption);
        else
            a = static_cast<QMenu*>(parent)->addAction(caption);
        a->setObjectName(name);
        connect(a, &QAction::triggered, this, slot);
        return a;
    };
    auto separator = [](QMenu* m, const char* name) { m->addSeparator()->setObjectName(name); };

    QMenu* file = menu(bar, "mnuFile", "&File");
    item(file, "mnuFileNewFil", "&Make new .FIL file", &Kaltrova::mnuFileNewFil_Click);
    item(file, "mnuFileExit", "E&xit", &Kaltrova::mnuFileExit_Click);
    QAction* input = item(bar, "mnuInputData", "&Input", &Kaltrova::mnuInputData_Click);

    QMenu* houses = menu(bar, "mnuHouseSystem", "Hou&ses");
    houseItems_ = {
        item(houses, "mnuHousePlacidus", "&Placidus", &Kaltrova::mnuHousePlacidus_Click),
        item(houses, "mnuHouseRegiomontanus", "&Regiomontanus",
             &Kaltrova::mnuHouseRegiomontanus_Click),
        item(houses, "mnuHouseKoch", "&Koch", &Kaltrova::mnuHouseKoch_Click),
        item(houses, "mnuHouseCampanus", "&Campanus", &Kaltrova::mnuHouseCampanus_Click),
        item(houses, "mnuHousePorphyry", "P&orphyry", &Kaltrova::mnuHousePorphyry_Click),
        item(houses, "mnuHouseAlcabitus", "Alca&bitus", &Kaltrova::mnuHouseAlcabitus_Click),
        item(houses, "mnuHouseTopocentric", "&Topocentric", &Kaltrova::mnuHouseTopocentric_Click),
    };
    for (QAction* a : houseItems_) a->setCheckable(true);
    // Each item keeps its own check: the menu is not an exclusive group.
    houses->setToolTipsVisible(false);

    QMenu* data = menu(bar, "mnuData", "&Data");
    item(data, "mnuDataNatalData", "&Natal Data", &Kaltrova::mnuDataNatalData_Click);
    item(data, "mnuDataNatalAspects", "Natal &Aspects", &Kaltrova::mnuDataNatalAspects_Click);
    item(data, "mnuDataCosmicState", "Cosmic State", &Kaltrova::mnuDataCosmicState_Click);
    item(data, "mnuData_KaltrovalFactors", "Kaltroval factors",
         &Kaltrova::mnuData_KaltrovalFactors_Click);
    QAction* wheel =
        item(bar, "mnuWheelsSingleNatal", "Chartwheel", &Kaltrova::mnuWheelsSingleNatal_Click);
    QAction* meanings =
        item(bar, "mnuDataMeaningsNatal", "Natal Meanings", &Kaltrova::mnuDataMeaningsNatal_Click);
    QMenu* keywords = menu(bar, "mnuKeywords", "&Keywords");
    item(keywords, "mnuKeywordsGeneral", "&General", &Kaltrova::mnuKeywordsGeneral_Click);
    item(keywords, "mnuKeywordsSystem", "&Keyword System", &Kaltrova::mnuKeywordsSystem_Click);
    QAction* report = item(bar, "mnuReportNatal", "Natal Report", &Kaltrova::mnuReportNatal_Click);
    item(bar, "mnuOptionOptionSettings", "&Option Settings",
         &Kaltrova::mnuOptionOptionSettings_Click);
    item(bar, "mnuHeader", "H&eader", &Kaltrova::mnuHeader_Click);

    QMenu* help = menu(bar, "mnuHelp", "&Help");
    item(help, "mnuHelpTipoftheDay", "Tip of the Day", &Kaltrova::mnuHelpTipoftheDay_Click);
    QMenu* windows = menu(help, "mnuHelpKaltrova", "&Kaltrova Window");
    item(windows, "mnuMainMenuHelp", "&Kaltrova Main Menu", &Kaltrova::mnuMainMenuHelp_Click);
    item(windows, "mnuPhilosophyHelp", "&Philosophy", &Kaltrova::mnuPhilosophyHelp_Click);
    separator(windows, "mnuSplit0");
    item(windows, "mnuHelpInputD", "Natal &Input Data Window", &Kaltrova::mnuHelpInputD_Click);
    item(windows, "mnuHelpNames", "&Names Window", &Kaltrova::mnuHelpNames_Click);
    item(windows, "mnuHelpCities", "Cities &Window", &Kaltrova::mnuHelpCities_Click);
    item(windows, "mnuHelpOptions", "&Options Window", &Kaltrova::mnuHelpOptions_Click);
    item(windows, "mnuHelpOutputD1", "Da&ta Window", &Kaltrova::mnuHelpOutputD1_Click);
    item(windows, "mnuHelpWheels", "&Chartwheels Window", &Kaltrova::mnuHelpWheels_Click);
    item(windows, "mnuHelpNameedit", "&Edit A Name File Window", &Kaltrova::mnuHelpNameedit_Click);
    item(windows, "mnuHelpLongLat", "Edit A Cit&y File Window", &Kaltrova::mnuHelpLongLat_Click);
    item(windows, "mnuHelpSelect", "&Select A File Window", &Kaltrova::mnuHelpSelect_Click);
    item(windows, "mnuHelpPrntfile", "&File To Print  Window", &Kaltrova::mnuHelpPrntfile_Click);
    separator(help, "mnuSplit1");
    QMenu* hints = menu(help, "mnuHelpHints", "&Hints");
    item(hints, "mnuHintsHow", "&How Do I...?", &Kaltrova::mnuHintsHow_Click);
    item(hints, "mnuHintsReadingList", "&Reading List", &Kaltrova::mnuHintsReadingList_Click);
    item(hints, "mnuHintsTips", "&Tips", &Kaltrova::mnuHintsTips_Click);
    item(help, "mnuShortcutKeys", "Shortcut &Keys", &Kaltrova::mnuShortcutKeys_Click);
    separator(help, "mnuSplit2");
    item(help, "mnuHelpRevisions", "Re&vision History", &Kaltrova::mnuHelpRevisions_Click);
    item(help, "mnuHelpAbout", "Abo&ut", &Kaltrova::mnuHelpAbout_Click);

    // Until the first calculation there is no chart to work on.
    for (QAction* a : {input, data->menuAction(), wheel, meanings, report}) a->setEnabled(false);
}

void Kaltrova::EnableChartMenus() {
    for (const char* name : {"mnuInputData", "mnuData", "mnuWheelsSingleNatal",
                             "mnuDataMeaningsNatal", "mnuReportNatal"}) {
        for (QAction* a : findChildren<QAction*>(name)) a->setEnabled(true);
    }
}

// --- start-up and shut-down ------------------------------------------------

void Kaltrova::registerFonts() {
    auto add = [&](const char* name) {
        QString file = QString::fromStdString(FindFile(ctx_.session().AppPath, name).string());
        // A font file that is not there is skipped quietly.
        return QFileInfo::exists(file) ? QFontDatabase::addApplicationFont(file) : -1;
    };
    glyphFontId_ = add("glyphix.ttf");
    sansFontId_ = add("sserife.fon");
}

void Kaltrova::removeFonts() {
    if (sansFontId_ >= 0) QFontDatabase::removeApplicationFont(sansFontId_);
    if (glyphFontId_ >= 0) QFontDatabase::removeApplicationFont(glyphFontId_);
    sansFontId_ = glyphFontId_ = -1;
}

void Kaltrova::ReadIntlSettings() {
    // Without a configured locale (C / POSIX) the settings stay at 0:
    // month-day-year and the 12-hour clock.
    QLocale locale = QLocale::system();
    const bool configured = locale.language() != QLocale::C;
    IntlSettings intl = IntlFromFormats(
        configured ? locale.dateFormat(QLocale::ShortFormat).toStdString() : "M/d/yy",
        configured ? locale.timeFormat(QLocale::LongFormat).toStdString() : "h:mm:ss AP",
        std::getenv("KALTROVA_IDATE"), std::getenv("KALTROVA_ITIME"));
    ctx_.session().DateOrder = intl.DateOrder;
    ctx_.session().TimeFormat = intl.TimeFormat;
}

void Kaltrova::placeFromSettings() {
    const Settings& st = ctx_.session().settings;
    // The strip is never narrower than its menu.
    int w = std::max(AppContext::toPixels(st.KaltrovaWidth), menuBar()->sizeHint().width());
    resize(w, AppContext::toPixels(st.KaltrovaHeight));
    move(AppContext::toPixels(st.KaltrovaLeft), AppContext::toPixels(st.KaltrovaTop));
}

void Kaltrova::recordPlace() {
    Settings& st = ctx_.session().settings;
    if (isMinimized()) return;
    st.KaltrovaTop = AppContext::toTwips(y());
    st.KaltrovaLeft = AppContext::toTwips(x());
    st.KaltrovaHeight = AppContext::toTwips(height());
    st.KaltrovaWidth = AppContext::toTwips(width());
}

void Kaltrova::Form_Load(const std::filesystem::path& appPath, const StartupChoices& choices) {
    Session& s = ctx_.session();
    // Program directory, its folders, the ephemeris path, the options.
    s.Open(appPath);
    registerFonts();
    s.TitlePrefix = BuildTitlePrefix();

    {
        TITLE title(this);
        title.setObjectName("TITLE");
        ctx_.runTitleTasks();
        title.showContinue();
        if (choices.waitForTitle) title.waitForContinue();
    }

    QApplication::setOverrideCursor(Qt::WaitCursor);
    s.ListFontName = "COURIER NEW";
    ReadSettings(s);
    placeFromSettings();
    ReadIntlSettings();

    int screenWidth = choices.screenWidthPx;
    if (screenWidth <= 0 && QGuiApplication::primaryScreen())
        screenWidth = QGuiApplication::primaryScreen()->geometry().width();
    s.out.ClearAllLines();
    s.UpdateMode = 0;
    WheelSize ws = ChooseWheelSize(screenWidth, AppContext::TwipsPerPixel);
    s.WheelScreenW = ws.WheelScreenW;
    s.WheelScale = ws.WheelScale;

    s.OrbFilePath = FindFile(s.AppPath, "NATAL.ORB");
    s.OutputFileName.clear();
    s.houseMenu = HouseMenuFromOption(s.options[27]);
    for (size_t i = 0; i < houseItems_.size(); ++i) houseItems_[i]->setChecked(s.houseMenu[i]);
    s.AtlasAvailable = AtlasConfigured(s.AppPath) ? 1 : 0;

    setWindowTitle(QString::fromStdString(s.TitlePrefix));
    show();
    Timer1->start();
    Timer1_Timer();

    StartupBirthDataWindows(ctx_);
    if (s.options[42] != 0 && ctx_.isRegistered("frmTip")) ctx_.showWindow("frmTip");
    QApplication::restoreOverrideCursor();
}

void Kaltrova::mnuFileExit_Click() {
    if (shutDown_) return;
    shutDown_ = true;
    Session& s = ctx_.session();
    Timer1->stop();
    recordPlace();
    s.Close();
    removeFonts();
    WriteSettings(s);
    // Every other window closes with the main window.
    for (const char* name : {"OutputD1", "Options", "PrntFile", "About"}) ctx_.unloadWindow(name);
    close();
    QApplication::closeAllWindows();
    QApplication::quit();
}

void Kaltrova::closeEvent(QCloseEvent* e) {
    if (!shutDown_) mnuFileExit_Click();
    e->accept();
}

void Kaltrova::Timer1_Timer() {
    std::time_t t = std::time(nullptr);
    std::tm now = *std::localtime(&t);
    setWindowTitle(QString::fromStdString(
        ClockCaption(ctx_.session().TitlePrefix, now, ctx_.session().TimeFormat)));
}

// --- commands ----------------------------------------------------------------

void Kaltrova::mnuFileNewFil_Click() {
    MakeNewNamesFile(ctx_);
}

void Kaltrova::mnuInputData_Click() {
    Session& s = ctx_.session();
    s.UpdateMode = 0;
    s.out.ClearAllLines();
    s.OutputFileName.clear();
    InputCommandWindows(ctx_);
}

void Kaltrova::HouseToggle(int item) {
    // The triggered item has already inverted its own check mark.
    Session& s = ctx_.session();
    for (size_t i = 0; i < houseItems_.size(); ++i) s.houseMenu[i] = houseItems_[i]->isChecked();
    (void)item;
    mnuInputData_Click();
    HouseToggleHideWindows(ctx_);
    s.out.ClearAllLines();
    s.out.ClearDataPage();
    CollectInputFields(ctx_);
    ctx_.calcChart(this);
}

void Kaltrova::mnuHousePlacidus_Click() {
    HouseToggle(0);
}
void Kaltrova::mnuHouseRegiomontanus_Click() {
    HouseToggle(1);
}
void Kaltrova::mnuHouseKoch_Click() {
    HouseToggle(2);
}
void Kaltrova::mnuHouseCampanus_Click() {
    HouseToggle(3);
}
void Kaltrova::mnuHousePorphyry_Click() {
    HouseToggle(4);
}
void Kaltrova::mnuHouseAlcabitus_Click() {
    HouseToggle(5);
}
void Kaltrova::mnuHouseTopocentric_Click() {
    HouseToggle(6);
}

void Kaltrova::mnuDataNatalData_Click() {
    ctx_.runListing([](Session& s) { return s.CmdNatalData(); }, this);
}

void Kaltrova::mnuDataNatalAspects_Click() {
    ctx_.runListing([](Session& s) { return s.CmdNatalAspects(); }, this);
}

void Kaltrova::mnuDataCosmicState_Click() {
    if (!kHasCosmicState<Session>) {
        ctx_.notAvailable("Cosmic State", this);
        return;
    }
    ctx_.runListing([](Session& s) { return CosmicState(s); }, this);
}

void Kaltrova::mnuData_KaltrovalFactors_Click() {
    if (!kHasCareerFactors<Session>) {
        ctx_.notAvailable("Kaltroval factors", this);
        return;
    }
    ctx_.runListing([](Session& s) { return CareerFactors(s); }, this);
}

void Kaltrova::mnuWheelsSingleNatal_Click() {
    ctx_.unloadWindow("Wheels");
    ctx_.showWindow("Wheels", "Chartwheel");
}

void Kaltrova::mnuDataMeaningsNatal_Click() {
    ctx_.unloadWindow("MEANINGS");
    ctx_.showWindow("MEANINGS", "Natal Meanings");
}

void Kaltrova::mnuKeywordsGeneral_Click() {
    ctx_.unloadWindow("Keywords");
    ctx_.showWindow("Keywords", "Keywords");
}

void Kaltrova::mnuKeywordsSystem_Click() {
    ctx_.unloadWindow("KEY_WORD");
    ctx_.showWindow("KEY_WORD", "Keyword System");
}

void Kaltrova::mnuReportNatal_Click() {
    ctx_.runCommand("mnuReportNatal", "Natal Report");
}

void Kaltrova::mnuOptionOptionSettings_Click() {
    if (!CanOpen(FindFile(ctx_.session().AppPath, "OPTIONS.OPT"))) {
        ctx_.showMessage(OptionsFileNotFoundMessage(), this);
        return;
    }
    ctx_.showWindow("Options");
}

void Kaltrova::mnuHeader_Click() {
    if (!CanOpen(FindFile(ctx_.session().AppPath, "PERSONAL.NAM"))) {
        ctx_.showMessage(HeaderFileNotFoundMessage(), this);
        return;
    }
    ctx_.showWindow("P_Name", "Header");
}

void Kaltrova::mnuHelpTipoftheDay_Click() {
    ctx_.unloadWindow("frmTip");
    ctx_.showWindow("frmTip", "Tip of the Day");
}

void Kaltrova::ShowHelp(const char* helpFileName) {
    std::string name = helpFileName;
    ctx_.runListing([name](Session& s) { return ShowHelpText(s, name); }, this);
}

void Kaltrova::mnuMainMenuHelp_Click() {
    ShowHelp("\\Kaltrova.HLP");
}
void Kaltrova::mnuPhilosophyHelp_Click() {
    ShowHelp("\\PHILO.HLP");
}
void Kaltrova::mnuHelpInputD_Click() {
    ShowHelp("\\INPUTD.HLP");
}
void Kaltrova::mnuHelpNames_Click() {
    ShowHelp("\\NAMES.HLP");
}
void Kaltrova::mnuHelpCities_Click() {
    ShowHelp("\\GEOGRAPH.HLP");
}
void Kaltrova::mnuHelpOptions_Click() {
    ShowHelp("\\OPTIONS.HLP");
}
void Kaltrova::mnuHelpOutputD1_Click() {
    ShowHelp("\\OUTPUTD1.HLP");
}
void Kaltrova::mnuHelpWheels_Click() {
    ShowHelp("\\WHEELS.HLP");
}
void Kaltrova::mnuHelpNameedit_Click() {
    ShowHelp("\\NAMEEDIT.HLP");
}
void Kaltrova::mnuHelpLongLat_Click() {
    ShowHelp("\\LONGLAT.HLP");
}
void Kaltrova::mnuHelpSelect_Click() {
    ShowHelp("\\SELECT.HLP");
}
void Kaltrova::mnuHelpPrntfile_Click() {
    ShowHelp("\\PRNTFILE.HLP");
}
void Kaltrova::mnuHintsHow_Click() {
    ShowHelp("\\HOW_DO_I.HLP");
}
void Kaltrova::mnuHintsReadingList_Click() {
    ShowHelp("\\READING.HLP");
}
void Kaltrova::mnuHintsTips_Click() {
    ShowHelp("\\TIPS.HLP");
}
void Kaltrova::mnuShortcutKeys_Click() {
    ShowHelp("\\SHORTCUT.HLP");
}
void Kaltrova::mnuHelpRevisions_Click() {
    ShowHelp("\\REVISION.HLP");
}

void Kaltrova::mnuHelpAbout_Click() {
    ctx_.showWindow("About");
}

} // namespace kal::ui
