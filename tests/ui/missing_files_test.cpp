// The program started offscreen with one of the files its windows read
// removed, each in turn: every window that reads a file is opened and every
// Data, Report, Keywords and Help command run. Nothing may crash or hang;
// every message the user sees names the missing file or is the documented
// message of its command.
#include <QPushButton>
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"
#include "birthdata/TimeZones.h"
#include "shell/EditorFile.h"

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

    const Messages documented = {OptionsFileNotFoundMessage(), HeaderFileNotFoundMessage(),
                                 RestoreFailedMessage(), TzCorruptMessage()};
    for (const Message& m : p.dialogs->messages) {
        const bool named = m.text.find(name) != std::string::npos;
        const bool known = std::find(documented.begin(), documented.end(), m) != documented.end();
        QVERIFY2(named || known, (name + " gave: " + m.text).c_str());
    }
    // The documented messages only where their own file is missing.
    auto saw = [&](const Message& m) { return p.dialogs->saw(m.text); };
    QCOMPARE(saw(OptionsFileNotFoundMessage()), name == "OPTIONS.OPT");
    QCOMPARE(saw(HeaderFileNotFoundMessage()), name == "PERSONAL.NAM");
    QCOMPARE(saw(RestoreFailedMessage()), name == "OPTIONS.MST");
    QCOMPARE(saw(TzCorruptMessage()), name == "TZ.DAT");
}

QTEST_MAIN(MissingFilesTest)
#include "missing_files_test.moc"
