// The program started offscreen with one of the files its windows read
// removed, each in turn: every window that reads a file is opened and every
// Data, Report, Keywords and Help command run. Nothing may crash or hang;
// every message the user sees names the missing file or is the documented
// message of its command.
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

class MissingFilesTest : public QObject {
    Q_OBJECT

  private slots:
    void eachFileTheWindowsReadRemovedInTurn_data();
    void eachFileTheWindowsReadRemovedInTurn();
};

void MissingFilesTest::eachFileTheWindowsReadRemovedInTurn_data() {
    QTest::addColumn<QString>("file");
    // The files the windows read themselves, and one of each kind of text.
    for (const char* f : {"glyphix.ttf", "NAMES.FIL", "GA_MA.LL", "TZ.DAT", "OPTIONS.OPT",
                          "OPTIONS.MST", "PERSONAL.NAM", "NATAL.ORB", "Dravik_Natal_Orbs.ORB",
                          "PHILO.HLP", "SIGN_Lib.TXT", "RISING.TXT", "KEY.TXT", "INTRO1.TXT",
                          "CLOSING.TXT", "Sun.TXT", "HCDATA.DAT", "RADIUS.DAT", "ephems"})
        QTest::newRow(f) << QString(f);
}

void MissingFilesTest::eachFileTheWindowsReadRemovedInTurn() {
    QFETCH(QString, file);
    const std::string name = file.toStdString();
    StartedProgram p([&](const test::ScratchAppDir& dir) { fs::remove(dir.path() / name); });
    // Start-up makes the ephemeris folder afresh, empty.
    QVERIFY(!fs::exists(p.dir.path() / name) || fs::is_empty(p.dir.path() / name));
    p.calculate(test::kExampleRecord);

    for (const char* item :
         {"mnuInputData", "mnuDataNatalData", "mnuDataNatalAspects", "mnuDataCosmicState",
          "mnuDataMeaningsNatal", "mnuReportNatal", "mnuHeader", "mnuOptionOptionSettings",
          "mnuKeywordsGeneral", "mnuKeywordsSystem", "mnuPhilosophyHelp", "mnuHelpAbout",
          "mnuWheelsSingleNatal", "mnuHousePorphyry", "mnuHousePlacidus"}) {
        p.trigger(item);
        QCoreApplication::processEvents();
    }
    for (auto w : {ui::win::Names, ui::win::Geograph, ui::win::TimeZone}) {
        QWidget* shown = p.ctx->showWindow(w);
        QVERIFY(shown);
        QCoreApplication::processEvents();
        p.ctx->unloadWindow(w);
    }
    // The options editor's Restore Default Settings.
    if (auto* options = p.ctx->window(ui::win::Options))
        if (auto* restore = options->findChild<QPushButton*>("cmdRestoreDefault")) restore->click();

    // The documented messages, each only where its own file is missing.
    const std::pair<const char*, Message> documented[] = {
        {"OPTIONS.OPT", {"File Not Found", "Warning!", Icon::Information}},
        {"PERSONAL.NAM", {"PERSONAL.NAM file Not Found", "Warning!", Icon::Information}},
        {"OPTIONS.MST",
         {"Error in operation. Cannot do what is requested.", "Warning!", Icon::Information}},
        {"TZ.DAT", {"The file TZ.DAT is corrupt.", "Error!", Icon::Critical}}};
    for (const Message& m : p.dialogs->messages) {
        bool known = m.text.find(name) != std::string::npos;
        for (const auto& [f, d] : documented) known = known || (f == name && m == d);
        QVERIFY2(known, (name + " gave: " + m.text).c_str());
    }
    for (const auto& [f, d] : documented) {
        const auto& all = p.dialogs->messages;
        QVERIFY2((std::find(all.begin(), all.end(), d) != all.end()) == (f == name), f);
    }
}

QTEST_MAIN(MissingFilesTest)
#include "missing_files_test.moc"
