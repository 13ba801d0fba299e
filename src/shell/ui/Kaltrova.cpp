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
#include <qpa/qplatformfontdatabase.h>

#include <algorithm>
#include <ctime>
#include <fstream>

#include "base/TextFile.h"
#include "shell/EditorFile.h"
#include "shell/Settings.h"
#include "shell/Startup.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Menus.h"
#include "shell/ui/TITLE.h"

namespace kal::ui {

namespace {

// Courier New and MS Sans Serif are met by free fonts of the same metrics.
struct StandIn {
    const char* face;      // as the windows and the settings name it
    const char* installed; // the free face drawn for it
};
constexpr StandIn kStandIns[] = {{"Courier New", "Liberation Mono"},
                                 {"MS Sans Serif", "Liberation Sans"}};

void InstallFontSubstitutions() {
    for (const StandIn& s : kStandIns) QFont::insertSubstitution(s.face, s.installed);
}

// Makes each missing face another name of its stand-in in Qt's font
// database, once at start-up. A substitution alone is tried only after the
// face itself was not found, and that miss runs fontconfig's fallback search
// over every installed font for each new style of the face. The alias finds
// the same face at once. A face that is installed keeps its own fonts.
void AliasMissingFaces() {
    const QStringList families = QFontDatabase::families();
    for (const StandIn& s : kStandIns) {
        if (!families.contains(s.face, Qt::CaseInsensitive) &&
            families.contains(s.installed, Qt::CaseInsensitive))
            QPlatformFontDatabase::registerAliasToFontFamily(s.installed, s.face);
    }
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
}

Kaltrova::~Kaltrova() {
    if (ctx_.mainWindow() == this) ctx_.setMainWindow(nullptr);
}

void Kaltrova::buildMenus() {
    QMenuBar* bar = menuBar();
    // The strip's menu in the small sans-serif face it was laid out for.
    bar->setFont(QFont("MS Sans Serif", 8));

    QMenu* file = AddMenu(bar, "mnuFile", "&File");
    AddItem(file, "mnuFileNewFil", "&Make new .FIL file", this, &Kaltrova::mnuFileNewFil_Click);
    AddItem(file, "mnuFileExit", "E&xit", this, &Kaltrova::mnuFileExit_Click);
    QAction* input = AddItem(bar, "mnuInputData", "&Input", this, &Kaltrova::mnuInputData_Click);

    QMenu* houses = AddMenu(bar, "mnuHouseSystem", "Hou&ses");
    houseItems_ = {
        AddItem(houses, "mnuHousePlacidus", "&Placidus", this, &Kaltrova::mnuHousePlacidus_Click),
        AddItem(houses, "mnuHouseRegiomontanus", "&Regiomontanus", this,
                &Kaltrova::mnuHouseRegiomontanus_Click),
        AddItem(houses, "mnuHouseKoch", "&Koch", this, &Kaltrova::mnuHouseKoch_Click),
        AddItem(houses, "mnuHouseCampanus", "&Campanus", this, &Kaltrova::mnuHouseCampanus_Click),
        AddItem(houses, "mnuHousePorphyry", "P&orphyry", this, &Kaltrova::mnuHousePorphyry_Click),
        AddItem(houses, "mnuHouseAlcabitus", "Alca&bitus", this,
                &Kaltrova::mnuHouseAlcabitus_Click),
        AddItem(houses, "mnuHouseTopocentric", "&Topocentric", this,
                &Kaltrova::mnuHouseTopocentric_Click),
    };
    for (QAction* a : houseItems_) a->setCheckable(true);
    // Each item keeps its own check: the menu is not an exclusive group.
    houses->setToolTipsVisible(false);

    QMenu* data = AddMenu(bar, "mnuData", "&Data");
    AddItem(data, "mnuDataNatalData", "&Natal Data", this, &Kaltrova::mnuDataNatalData_Click);
    AddItem(data, "mnuDataNatalAspects", "Natal &Aspects", this,
            &Kaltrova::mnuDataNatalAspects_Click);
    AddItem(data, "mnuDataCosmicState", "Cosmic State", this, &Kaltrova::mnuDataCosmicState_Click);
    AddItem(data, "mnuData_KaltrovalFactors", "Kaltroval factors", this,
            &Kaltrova::mnuData_KaltrovalFactors_Click);
    QAction* wheel = AddItem(bar, "mnuWheelsSingleNatal", "Chartwheel", this,
                             &Kaltrova::mnuWheelsSingleNatal_Click);
    QAction* meanings = AddItem(bar, "mnuDataMeaningsNatal", "Natal Meanings", this,
                                &Kaltrova::mnuDataMeaningsNatal_Click);
    QMenu* keywords = AddMenu(bar, "mnuKeywords", "&Keywords");
    AddItem(keywords, "mnuKeywordsGeneral", "&General", this, &Kaltrova::mnuKeywordsGeneral_Click);
    AddItem(keywords, "mnuKeywordsSystem", "&Keyword System", this,
            &Kaltrova::mnuKeywordsSystem_Click);
    QAction* report =
        AddItem(bar, "mnuReportNatal", "Natal Report", this, &Kaltrova::mnuReportNatal_Click);
    AddItem(bar, "mnuOptionOptionSettings", "&Option Settings", this,
            &Kaltrova::mnuOptionOptionSettings_Click);
    AddItem(bar, "mnuHeader", "H&eader", this, &Kaltrova::mnuHeader_Click);

    QMenu* help = AddMenu(bar, "mnuHelp", "&Help");
    AddItem(help, "mnuHelpTipoftheDay", "Tip of the Day", this,
            &Kaltrova::mnuHelpTipoftheDay_Click);
    QMenu* windows = AddMenu(help, "mnuHelpKaltrova", "&Kaltrova Window");
    AddItem(windows, "mnuMainMenuHelp", "&Kaltrova Main Menu", this,
            &Kaltrova::mnuMainMenuHelp_Click);
    AddItem(windows, "mnuPhilosophyHelp", "&Philosophy", this, &Kaltrova::mnuPhilosophyHelp_Click);
    AddSeparator(windows, "mnuSplit0");
    AddItem(windows, "mnuHelpInputD", "Natal &Input Data Window", this,
            &Kaltrova::mnuHelpInputD_Click);
    AddItem(windows, "mnuHelpNames", "&Names Window", this, &Kaltrova::mnuHelpNames_Click);
    AddItem(windows, "mnuHelpCities", "Cities &Window", this, &Kaltrova::mnuHelpCities_Click);
    AddItem(windows, "mnuHelpOptions", "&Options Window", this, &Kaltrova::mnuHelpOptions_Click);
    AddItem(windows, "mnuHelpOutputD1", "Da&ta Window", this, &Kaltrova::mnuHelpOutputD1_Click);
    AddItem(windows, "mnuHelpWheels", "&Chartwheels Window", this, &Kaltrova::mnuHelpWheels_Click);
    AddItem(windows, "mnuHelpNameedit", "&Edit A Name File Window", this,
            &Kaltrova::mnuHelpNameedit_Click);
    AddItem(windows, "mnuHelpLongLat", "Edit A Cit&y File Window", this,
            &Kaltrova::mnuHelpLongLat_Click);
    AddItem(windows, "mnuHelpSelect", "&Select A File Window", this,
            &Kaltrova::mnuHelpSelect_Click);
    AddItem(windows, "mnuHelpPrntfile", "&File To Print  Window", this,
            &Kaltrova::mnuHelpPrntfile_Click);
    AddSeparator(help, "mnuSplit1");
    QMenu* hints = AddMenu(help, "mnuHelpHints", "&Hints");
    AddItem(hints, "mnuHintsHow", "&How Do I...?", this, &Kaltrova::mnuHintsHow_Click);
    AddItem(hints, "mnuHintsReadingList", "&Reading List", this,
            &Kaltrova::mnuHintsReadingList_Click);
    AddItem(hints, "mnuHintsTips", "&Tips", this, &Kaltrova::mnuHintsTips_Click);
    AddItem(help, "mnuShortcutKeys", "Shortcut &Keys", this, &Kaltrova::mnuShortcutKeys_Click);
    AddSeparator(help, "mnuSplit2");
    AddItem(help, "mnuHelpRevisions", "Re&vision History", this, &Kaltrova::mnuHelpRevisions_Click);
    AddItem(help, "mnuHelpAbout", "Abo&ut", this, &Kaltrova::mnuHelpAbout_Click);

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
        QString file =
            QString::fromStdString(FindFile(ctx_.session().paths.AppPath, name).string());
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
    ctx_.session().regional.DateOrder = intl.DateOrder;
    ctx_.session().regional.TimeFormat = intl.TimeFormat;
}

void Kaltrova::placeFromSettings() {
    const Settings& st = ctx_.display().settings;
    // The strip is never narrower than its menu.
    const double width =
        std::max(st.KaltrovaWidth, double(AppContext::toTwips(menuBar()->sizeHint().width())));
    AppContext::restorePlace(this, {st.KaltrovaLeft, st.KaltrovaTop, width, st.KaltrovaHeight});
}

void Kaltrova::recordPlace() {
    Settings& st = ctx_.display().settings;
    if (isMinimized()) return;
    const AppContext::Place p = AppContext::placeOf(this);
    st.KaltrovaTop = p.top;
    st.KaltrovaLeft = p.left;
    st.KaltrovaHeight = p.height;
    st.KaltrovaWidth = p.width;
}

void Kaltrova::Form_Load(const std::filesystem::path& appPath, const StartupChoices& choices) {
    Session& s = ctx_.session();
    DisplayPrefs& d = ctx_.display();
    // Program directory, its folders, the ephemeris path, the options, the
    // paths and the house system at their start values.
    s.Open(appPath, choices.shippedDir);
    registerFonts();
    AliasMissingFaces();
    d.TitlePrefix = BuildTitlePrefix();

    {
        TITLE title(this);
        title.setObjectName("TITLE");
        ctx_.runTitleTasks();
        title.showContinue();
        if (choices.waitForTitle) title.waitForContinue();
    }

    QApplication::setOverrideCursor(Qt::WaitCursor);
    d.ListFontName = "COURIER NEW";
    ReadSettings(s.paths.AppPath, d.settings, s.paths.NamesFilePath, s.paths.CitiesFilePath);
    placeFromSettings();
    ReadIntlSettings();

    int screenWidth = choices.screenWidthPx;
    if (screenWidth <= 0 && QGuiApplication::primaryScreen())
        screenWidth = QGuiApplication::primaryScreen()->geometry().width();
    WheelSize ws = ChooseWheelSize(screenWidth, AppContext::TwipsPerPixel);
    d.WheelScreenW = ws.WheelScreenW;
    d.WheelScale = ws.WheelScale;
    showHouseSystem(s.calc.HouseSystem);

    setWindowTitle(QString::fromStdString(d.TitlePrefix));
    show();
    Timer1->start();
    Timer1_Timer();

    ctx_.runCommandIfAny(cmd::StartupInputWindows);
    if (s.options[42] != 0 && ctx_.isRegistered(win::frmTip)) ctx_.showWindow(win::frmTip);
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
    if (WriteResult w = WriteSettings(s.paths.AppPath, ctx_.display().settings,
                                      s.paths.NamesFilePath, s.paths.CitiesFilePath);
        !w)
        ctx_.showMessage(WriteFailedMessage(SettingsPath(s.paths.AppPath), w), this);
    // Every other window closes with the main window.
    for (WindowName name : {win::OutputD1, win::Options, win::PrntFile, win::About})
        ctx_.unloadWindow(name);
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
        ClockCaption(ctx_.display().TitlePrefix, now, ctx_.session().regional.TimeFormat)));
}

// --- commands ----------------------------------------------------------------

void Kaltrova::mnuFileNewFil_Click() {
    ctx_.runCommand(cmd::NewNamesFile, "Make new .FIL file");
}

void Kaltrova::mnuInputData_Click() {
    Session& s = ctx_.session();
    s.calc.UpdateMode = 0;
    s.listing.out.ClearAllLines();
    s.paths.OutputFileName.clear();
    ctx_.runCommand(cmd::InputCommandWindows, "The natal input window");
}

char HouseLetterFromChecks(const std::array<bool, 7>& checked) {
    for (size_t i = 1; i < checked.size(); ++i)
        if (checked[i]) return HouseSystems[i].letter;
    return 'P';
}

void Kaltrova::showHouseSystem(char letter) {
    for (size_t i = 0; i < houseItems_.size(); ++i)
        houseItems_[i]->setChecked(HouseSystems[i].letter == letter);
}

void Kaltrova::HouseToggle() {
    // The triggered item has already inverted its own check mark; the
    // first checked item after Placidus decides.
    std::array<bool, 7> checked{};
    for (size_t i = 0; i < houseItems_.size(); ++i) checked[i] = houseItems_[i]->isChecked();
    ctx_.session().calc.HouseSystem = HouseLetterFromChecks(checked);
    mnuInputData_Click();
    ctx_.runCommandIfAny(cmd::HouseToggleWindows);
    ctx_.calculate(ctx_.currentInput(), this);
}

void Kaltrova::mnuHousePlacidus_Click() {
    HouseToggle();
}
void Kaltrova::mnuHouseRegiomontanus_Click() {
    HouseToggle();
}
void Kaltrova::mnuHouseKoch_Click() {
    HouseToggle();
}
void Kaltrova::mnuHouseCampanus_Click() {
    HouseToggle();
}
void Kaltrova::mnuHousePorphyry_Click() {
    HouseToggle();
}
void Kaltrova::mnuHouseAlcabitus_Click() {
    HouseToggle();
}
void Kaltrova::mnuHouseTopocentric_Click() {
    HouseToggle();
}

void Kaltrova::mnuDataNatalData_Click() {
    ctx_.runListing([](Session& s) { return s.CmdNatalData(); }, this);
}

void Kaltrova::mnuDataNatalAspects_Click() {
    ctx_.runListing([](Session& s) { return s.CmdNatalAspects(); }, this);
}

void Kaltrova::mnuDataCosmicState_Click() {
    ctx_.runListing([](Session& s) { return s.CmdCosmicState(); }, this);
}

void Kaltrova::mnuData_KaltrovalFactors_Click() {
    ctx_.runListing([](Session& s) { return s.CmdCareerFactors(); }, this);
}

void Kaltrova::mnuWheelsSingleNatal_Click() {
    // The wheel always opens on the natal chart and the natal orb file.
    Session& s = ctx_.session();
    s.paths.OrbFilePath = NatalOrbPath(s.paths.AppPath);
    Chart& c = s.calc.chart;
    c.CuspTable = c.NatalCusp;
    c.PlanetLong = c.NatalLong;
    c.RetroFlags = c.NatalRetro;
    c.SiderealTime = c.NatalSidereal;
    ctx_.unloadWindow(win::Wheels);
    ctx_.showWindow(win::Wheels, "Chartwheel");
}

void Kaltrova::mnuDataMeaningsNatal_Click() {
    ctx_.unloadWindow(win::MEANINGS);
    ctx_.showWindow(win::MEANINGS, "Natal Meanings");
}

void Kaltrova::mnuKeywordsGeneral_Click() {
    ctx_.unloadWindow(win::Keywords);
    ctx_.showWindow(win::Keywords, "Keywords");
}

void Kaltrova::mnuKeywordsSystem_Click() {
    ctx_.unloadWindow(win::KEY_WORD);
    ctx_.showWindow(win::KEY_WORD, "Keyword System");
}

void Kaltrova::mnuReportNatal_Click() {
    ctx_.runCommand(cmd::ReportNatal, "Natal Report");
}

void Kaltrova::mnuOptionOptionSettings_Click() {
    if (!CanOpen(FindFile(ctx_.session().paths.AppPath, "OPTIONS.OPT"))) {
        ctx_.showMessage(OptionsFileNotFoundMessage(), this);
        return;
    }
    ctx_.showWindow(win::Options);
}

void Kaltrova::mnuHeader_Click() {
    if (!CanOpen(FindFile(ctx_.session().paths.AppPath, "PERSONAL.NAM"))) {
        ctx_.showMessage(HeaderFileNotFoundMessage(), this);
        return;
    }
    ctx_.showWindow(win::P_Name, "Header");
}

void Kaltrova::mnuHelpTipoftheDay_Click() {
    ctx_.unloadWindow(win::frmTip);
    ctx_.showWindow(win::frmTip, "Tip of the Day");
}

void Kaltrova::ShowHelp(const char* helpFileName) {
    std::string name = helpFileName;
    ctx_.runListing([name](Session& s) { return s.CmdHelpText(name); }, this);
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
    ctx_.showWindow(win::About);
}

} // namespace kal::ui
