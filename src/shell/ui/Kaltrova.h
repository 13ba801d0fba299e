// The main window: a menu strip across the top of the screen from which
// every command is reached, with the clock in its caption. Form_Load runs
// the program's start-up and mnuFileExit its shut-down.
#pragma once

#include <QMainWindow>

#include <array>
#include <filesystem>

class QAction;
class QTimer;

namespace kal::ui {

class AppContext;

class Kaltrova : public QMainWindow {
    Q_OBJECT

  public:
    explicit Kaltrova(AppContext& ctx, QWidget* parent = nullptr);
    ~Kaltrova() override;

    struct StartupChoices {
        // Wait for the title window's Continue (tests go straight on).
        bool waitForTitle = true;
        // Screen width in pixels; 0 takes the primary screen's.
        int screenWidthPx = 0;
        // The folder the data files were shipped in, where the atlas is
        // read when the program directory (a user's copy) has none.
        std::filesystem::path shippedDir;
    };
    // The start-up sequence, from the program directory to the first
    // windows. The main window is shown on the way.
    void Form_Load(const std::filesystem::path& appPath, const StartupChoices& choices);
    void Form_Load(const std::filesystem::path& appPath) { Form_Load(appPath, StartupChoices{}); }

    // The shut-down has run (the settings file is written once).
    bool isShutDown() const { return shutDown_; }

    QTimer* Timer1 = nullptr;

  public slots:
    void Timer1_Timer();

    void mnuFileNewFil_Click();
    void mnuFileExit_Click();
    void mnuInputData_Click();
    void mnuHousePlacidus_Click();
    void mnuHouseRegiomontanus_Click();
    void mnuHouseKoch_Click();
    void mnuHouseCampanus_Click();
    void mnuHousePorphyry_Click();
    void mnuHouseAlcabitus_Click();
    void mnuHouseTopocentric_Click();
    void mnuDataNatalData_Click();
    void mnuDataNatalAspects_Click();
    void mnuDataCosmicState_Click();
    void mnuData_KaltrovalFactors_Click();
    void mnuWheelsSingleNatal_Click();
    void mnuDataMeaningsNatal_Click();
    void mnuKeywordsGeneral_Click();
    void mnuKeywordsSystem_Click();
    void mnuReportNatal_Click();
    void mnuOptionOptionSettings_Click();
    void mnuHeader_Click();
    void mnuHelpTipoftheDay_Click();
    void mnuMainMenuHelp_Click();
    void mnuPhilosophyHelp_Click();
    void mnuHelpInputD_Click();
    void mnuHelpNames_Click();
    void mnuHelpCities_Click();
    void mnuHelpOptions_Click();
    void mnuHelpOutputD1_Click();
    void mnuHelpWheels_Click();
    void mnuHelpNameedit_Click();
    void mnuHelpLongLat_Click();
    void mnuHelpSelect_Click();
    void mnuHelpPrntfile_Click();
    void mnuHintsHow_Click();
    void mnuHintsReadingList_Click();
    void mnuHintsTips_Click();
    void mnuShortcutKeys_Click();
    void mnuHelpRevisions_Click();
    void mnuHelpAbout_Click();

    // Enables the chart-dependent menu items after a calculation.
    void EnableChartMenus();

  protected:
    void closeEvent(QCloseEvent* e) override;

  private:
    void buildMenus();
    void ReadIntlSettings();
    void HouseToggle();
    // Checks the item of the house system `letter` only.
    void showHouseSystem(char letter);
    void ShowHelp(const char* helpFileName);
    void placeFromSettings();
    void recordPlace();
    void registerFonts();
    void removeFonts();

    AppContext& ctx_;
    std::array<QAction*, 7> houseItems_{};
    bool shutDown_ = false;
    int glyphFontId_ = -1;
    int sansFontId_ = -1;
};

// The house system the checked items of the Houses menu select (in menu
// order): the first checked item after Placidus, else Placidus.
char HouseLetterFromChecks(const std::array<bool, 7>& checked);

} // namespace kal::ui
