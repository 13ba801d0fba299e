// The main window: start-up, the menu table, the chart-dependent items,
// house-system toggles, the settings file written at the end and window
// places kept on a screen.
#include <QFontInfo>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

#include <climits>
#include <cmath>
#include <filesystem>

#include "ShellUiSupport.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

const char* const kChartItems[] = {"mnuInputData", "mnuData", "mnuWheelsSingleNatal",
                                   "mnuDataMeaningsNatal", "mnuReportNatal"};

QString PageFileText(const StartedProgram& p) {
    return QString::fromStdString(ReadFileBytes(LastPagePath(p.dir.path())).value())
        .replace("\r\n", "\n");
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void startupMakesFoldersAndTheFullMenu() {
        StartedProgram p([](const test::ScratchAppDir& d) {
            fs::remove_all(d.path() / "reports");
            fs::remove(d.path() / "ephems");
        });
        for (const char* dir : {"ephems", "reports", "n_report"})
            QVERIFY(fs::is_directory(p.dir.path() / dir));
        QCOMPARE(p.ctx->display().WheelScreenW, 1024.0);
        QCOMPARE(p.ctx->display().WheelScale, 1.5);

        // Every item of the menu table under its name and caption.
        // clang-format off
        const std::vector<std::pair<const char*, const char*>> table = {
            {"mnuFile", "&File"}, {"mnuFileNewFil", "&Make new .FIL file"}, {"mnuFileExit", "E&xit"},
            {"mnuInputData", "&Input"}, {"mnuHouseSystem", "Hou&ses"},
            {"mnuHousePlacidus", "&Placidus"}, {"mnuHouseRegiomontanus", "&Regiomontanus"},
            {"mnuHouseKoch", "&Koch"}, {"mnuHouseCampanus", "&Campanus"},
            {"mnuHousePorphyry", "P&orphyry"}, {"mnuHouseAlcabitus", "Alca&bitus"},
            {"mnuHouseTopocentric", "&Topocentric"}, {"mnuData", "&Data"},
            {"mnuDataNatalData", "&Natal Data"}, {"mnuDataNatalAspects", "Natal &Aspects"},
            {"mnuDataCosmicState", "Cosmic State"}, {"mnuData_KaltrovalFactors", "Kaltroval factors"},
            {"mnuWheelsSingleNatal", "Chartwheel"}, {"mnuDataMeaningsNatal", "Natal Meanings"},
            {"mnuKeywords", "&Keywords"}, {"mnuKeywordsGeneral", "&General"},
            {"mnuKeywordsSystem", "&Keyword System"}, {"mnuReportNatal", "Natal Report"},
            {"mnuOptionOptionSettings", "&Option Settings"}, {"mnuHeader", "H&eader"},
            {"mnuHelp", "&Help"}, {"mnuHelpTipoftheDay", "Tip of the Day"},
            {"mnuHelpKaltrova", "&Kaltrova Window"}, {"mnuMainMenuHelp", "&Kaltrova Main Menu"},
            {"mnuPhilosophyHelp", "&Philosophy"}, {"mnuHelpInputD", "Natal &Input Data Window"},
            {"mnuHelpNames", "&Names Window"}, {"mnuHelpCities", "Cities &Window"},
            {"mnuHelpOptions", "&Options Window"}, {"mnuHelpOutputD1", "Da&ta Window"},
            {"mnuHelpWheels", "&Chartwheels Window"}, {"mnuHelpNameedit", "&Edit A Name File Window"},
            {"mnuHelpLongLat", "Edit A Cit&y File Window"}, {"mnuHelpSelect", "&Select A File Window"},
            {"mnuHelpPrntfile", "&File To Print  Window"}, {"mnuHelpHints", "&Hints"},
            {"mnuHintsHow", "&How Do I...?"}, {"mnuHintsReadingList", "&Reading List"},
            {"mnuHintsTips", "&Tips"}, {"mnuShortcutKeys", "Shortcut &Keys"},
            {"mnuHelpRevisions", "Re&vision History"}, {"mnuHelpAbout", "Abo&ut"}};
        // clang-format on
        for (const auto& [name, caption] : table) {
            QAction* a = p.action(name);
            QVERIFY2(a, name);
            QCOMPARE(a->text(), QString(caption));
        }
        for (const char* sep : {"mnuSplit0", "mnuSplit1", "mnuSplit2"})
            QVERIFY(p.action(sep)->isSeparator());

        // Nothing to work on before the first calculation.
        for (const char* name : kChartItems) QVERIFY2(!p.action(name)->isEnabled(), name);
        QVERIFY(p.action("mnuOptionOptionSettings")->isEnabled());

        // The caption clock.
        p.main->Timer1_Timer();
        QCOMPARE(p.main->Timer1->interval(), 1000);
        QRegularExpression clock(
            R"(^Kaltrova \(Tropical zodiac\) - \d\d [A-Z][a-z]{2} \d{4}     \d{1,2}:\d\d:\d\d( [AP]M)?$)");
        QVERIFY2(clock.match(p.main->windowTitle()).hasMatch(), qPrintable(p.main->windowTitle()));
    }

    void missingWindowsFacesAreDrawnInTheirStandIns() {
        StartedProgram p;
        // Whatever style and size is asked for, as the menus, the data
        // window and the editors ask for them.
        for (int size : {8, 10, 36}) {
            for (bool bold : {false, true}) {
                QFont sans("MS Sans Serif", size, bold ? QFont::Bold : QFont::Normal);
                QFont courier("Courier New", size, bold ? QFont::Bold : QFont::Normal);
                courier.setStyleHint(QFont::TypeWriter);
                QCOMPARE(QFontInfo(sans).family(), QString("Liberation Sans"));
                QCOMPARE(QFontInfo(courier).family(), QString("Liberation Mono"));
                QCOMPARE(QFontInfo(sans).bold(), bold);
            }
        }
    }

    void calculationEnablesChartItemsAndListingsShowPages() {
        StartedProgram p;
        QVERIFY(p.calculate(test::kExampleRecord));
        for (const char* name : kChartItems) QVERIFY2(p.action(name)->isEnabled(), name);

        auto* data = p.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
        QVERIFY(data && data->isVisible());
        QCOMPARE(data->windowTitle(), QString("Kaltrova (Tropical zodiac) - Data"));
        QCOMPARE(data->RichText1->toPlainText(),
                 QString::fromStdString(PageText(p.session.listing.out, "\n")));
        QVERIFY(data->RichText1->toPlainText().startsWith(QString(80, '-')));

        // Each listing replaces the page with its own, which is also the page file.
        QStringList pages;
        for (const char* item : {"mnuDataNatalData", "mnuDataNatalAspects", "mnuDataCosmicState",
                                 "mnuData_KaltrovalFactors"}) {
            p.dialogs->messages.clear();
            data->RichText1->clear();
            p.trigger(item);
            QVERIFY2(p.dialogs->messages.empty(), item);
            const QString shown = data->RichText1->toPlainText();
            QVERIFY2(shown.contains("12 May 1959"), item);
            QCOMPARE(PageFileText(p), shown);
            QVERIFY2(!pages.contains(shown), item);
            pages << shown;
        }
        // The listings pile up in the buffer.
        QVERIFY(p.session.listing.out.AllCount() > size_t(pages.join('\n').count('\n')));
    }

    void houseSystemsFromOption27AndToggles() {
        {
            StartedProgram p([](const test::ScratchAppDir& d) {
                auto lines = ReadLines(d.path() / "OPTIONS.OPT").value();
                lines.at(26) = "4      house system";
                WriteLines(d.path() / "OPTIONS.OPT", lines);
            });
            QVERIFY(p.action("mnuHouseCampanus")->isChecked());
            QVERIFY(!p.action("mnuHousePlacidus")->isChecked());
        }
        StartedProgram p;
        QVERIFY(p.calculate(test::kExampleRecord));
        QCOMPARE(p.session.calc.chart.HouseSystem, 'P');
        p.session.listing.out.Append("kept since the last clear");

        // A toggle inverts only its own check and recalculates on a cleared buffer.
        p.trigger("mnuHouseKoch");
        QVERIFY(p.action("mnuHousePlacidus")->isChecked());
        QVERIFY(p.action("mnuHouseKoch")->isChecked());
        QCOMPARE(p.session.calc.chart.HouseSystem, 'K');
        QVERIFY(p.lastPage().find("Koch") != std::string::npos);
        for (const auto& l : p.session.listing.out.AllLines)
            QVERIFY(l != "kept since the last clear");

        p.trigger("mnuHouseKoch");
        QVERIFY(!p.action("mnuHouseKoch")->isChecked());
        QCOMPARE(p.session.calc.chart.HouseSystem, 'P');
    }

    void settingsFileAfterARun() {
        test::ScratchAppDir keep;
        {
            StartedProgram p;
            const fs::path ini = p.dir.path() / "Kaltrova.INI";
            QVERIFY(!fs::exists(ini));
            QVERIFY(p.calculate(test::kExampleRecord));
            auto* data = p.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
            // The place kept is the client area's, without the frame.
            data->setGeometry(30, 120, 500, 400);
            data->findChild<QAction*>("mnuFontsIncrease")->trigger();
            data->findChild<QAction*>("mnuFontsBold")->trigger();
            p.trigger("mnuFileExit");
            QVERIFY(p.main->isShutDown());
            fs::copy_file(ini, keep.path() / "Kaltrova.INI", fs::copy_options::overwrite_existing);
        }
        // The file's layout is the settings' own test; here, what the run set.
        auto lines = ReadLines(keep.path() / "Kaltrova.INI").value();
        QCOMPARE(lines.size(), size_t(20));
        QCOMPARE(
            lines[1] + " " + lines[2] + " " + lines[9] + " " + lines[10] + " " + lines[11],
            std::string("FontSize=9.25 FontBold=-1 DataLeft=450 DataHeight=6000 DataWidth=7500"));

        // The next start takes the places and the font back.
        StartedProgram again([&](const test::ScratchAppDir& d) {
            fs::copy_file(keep.path() / "Kaltrova.INI", d.path() / "Kaltrova.INI",
                          fs::copy_options::overwrite_existing);
        });
        QVERIFY(again.calculate(test::kExampleRecord));
        auto* data = again.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
        QCOMPARE(data->geometry(), QRect(30, 120, 500, 400));
        QCOMPARE(data->RichText1->font().pointSizeF(), 9.25);
        QVERIFY(data->RichText1->font().bold());
    }

    void windowPlacesStayInRangeAndOnAScreen() {
        using ui::AppContext;
        // Conversions hold their results within range, whatever the file held.
        QCOMPARE(AppContext::toTwips(-22), -330);
        QCOMPARE(AppContext::toTwips(INT_MAX / 2), INT_MAX);
        QCOMPARE(AppContext::toTwips16(3000), short(32767));
        QCOMPARE(AppContext::toTwips16(-3000), short(-32768));
        QCOMPARE(AppContext::toPixels(-330), -22);
        QCOMPARE(AppContext::toPixels(157), 10);
        QCOMPARE(AppContext::toPixels(std::nan("")), 0);
        QVERIFY(AppContext::toPixels(1e300) > 1000000);
        QCOMPARE(AppContext::toTwips(AppContext::toPixels(-1e300)), -(1 << 24) * 15);

        // Two screens side by side: a place on either stays; one off both comes
        // onto the nearer, whole.
        const QList<QRect> screens{QRect(0, 0, 1280, 1024), QRect(1280, 0, 1920, 1080)};
        const std::pair<QRect, QRect> places[] = {
            {QRect(1500, 40, 724, 45), QRect(1500, 40, 724, 45)},
            {QRect(-50, 0, 724, 45), QRect(-50, 0, 724, 45)},
            {QRect(-60, 0, 724, 45), QRect(0, 0, 724, 45)},
            {QRect(16000000, -16000000, 724, 45), QRect(3200 - 724, 0, 724, 45)},
            {QRect(100, 2000, 5000, 400), QRect(0, 1024 - 400, 1280, 400)}};
        for (const auto& [asked, kept] : places)
            QCOMPARE(AppContext::keptOnScreen(asked, screens), kept);

        // A settings file of far-off places: the windows open on the screen.
        StartedProgram p([](const test::ScratchAppDir& d) {
            d.Write("Kaltrova.INI", "KaltrovaTop=-10000000000\r\nKaltrovaLeft=10000000000\r\n"
                                    "DataTop=32000\r\nDataLeft=-32000\r\n");
        });
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(screen.contains(p.main->geometry().topLeft()));
        QVERIFY(p.calculate(test::kExampleRecord));
        QVERIFY(screen.contains(p.ctx->window(ui::win::OutputD1)->geometry().topLeft()));
    }
};

QTEST_MAIN(MainWindowTest)
#include "shell_main_test.moc"
