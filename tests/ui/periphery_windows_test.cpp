// The help items and the tip-of-the-day window. Each help item of the main
// window and the data window shows its own shipped help file in the data
// window, line for line; the Help menu is walked as the user sees it, so an
// item added to it fails here until it is given its file. The tip window:
// start-up with option 42, Next Tip and Go Back around the file, the
// sentence for a missing file.
#include <QLabel>
#include <QtTest>

#include <map>

#include "ShellUiSupport.h"
#include "periphery/ui/frmTip.h"

using namespace kal;
using namespace kal::test;

namespace {

void CollectItems(QMenu* menu, QList<QAction*>& items) {
    for (QAction* a : menu->actions()) {
        if (a->isSeparator()) continue;
        if (a->menu())
            CollectItems(a->menu(), items);
        else
            items << a;
    }
}

// The data window's page after a help text: the file's lines unchanged,
// then the help text's blank line, the page's closing one and the buffer's
// spare element.
QString ExpectedPage(const std::vector<std::string>& lines) {
    QString page;
    for (const auto& l : lines) page += QString::fromStdString(l) + "\n";
    return page + "\n\n\n";
}

std::string CannotFind(const std::filesystem::path& file) {
    return "Cannot find the file called " + file.string() + ".";
}

// A program whose TIPOFDAY.TXT holds `n` numbered tips, option 42 set to `option42`.
void Tips(const ScratchAppDir& d, int n, const char* option42) {
    std::string s;
    for (int i = 1; i <= n; ++i) s += "Tip number " + std::to_string(i) + ".\r\n";
    d.Write("TIPOFDAY.TXT", s);
    auto lines = ReadLines(d.path() / "OPTIONS.OPT").value();
    lines.at(41) = std::string(option42) + "      Tip of the day window at start-up";
    WriteLines(d.path() / "OPTIONS.OPT", lines);
}

ui::frmTip* TipWindow(const StartedProgram& p) {
    return p.win<ui::frmTip>(ui::win::frmTip);
}

QString Shown(QWidget* w) {
    return w->findChild<QLabel*>("lblTipText")->text();
}

} // namespace

class PeripheryWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void everyHelpItemShowsItsFile() {
        StartedProgram p;
        const std::map<QString, std::string> files = {
            {"mnuMainMenuHelp", "Kaltrova.HLP"},  {"mnuPhilosophyHelp", "PHILO.HLP"},
            {"mnuHelpInputD", "INPUTD.HLP"},      {"mnuHelpNames", "NAMES.HLP"},
            {"mnuHelpCities", "GEOGRAPH.HLP"},    {"mnuHelpOptions", "OPTIONS.HLP"},
            {"mnuHelpOutputD1", "OUTPUTD1.HLP"},  {"mnuHelpWheels", "WHEELS.HLP"},
            {"mnuHelpNameedit", "NAMEEDIT.HLP"},  {"mnuHelpLongLat", "LONGLAT.HLP"},
            {"mnuHelpSelect", "SELECT.HLP"},      {"mnuHelpPrntfile", "PRNTFILE.HLP"},
            {"mnuHintsHow", "HOW_DO_I.HLP"},      {"mnuHintsReadingList", "READING.HLP"},
            {"mnuHintsTips", "TIPS.HLP"},         {"mnuShortcutKeys", "SHORTCUT.HLP"},
            {"mnuHelpRevisions", "REVISION.HLP"},
        };
        // These two open windows of their own.
        const QStringList windows = {"mnuHelpTipoftheDay", "mnuHelpAbout"};

        QList<QAction*> items;
        CollectItems(p.main->findChild<QMenu*>("mnuHelp"), items);
        size_t reached = 0;
        for (QAction* item : items) {
            const QString name = item->objectName();
            if (windows.contains(name)) continue;
            QVERIFY2(files.count(name), qPrintable("no help file known for " + name));
            const std::string& file = files.at(name);
            const auto path = FindFile(p.dir.path(), file);
            const auto lines = ReadLines(path);
            p.dialogs->messages.clear();
            item->trigger();
            ++reached;
            if (!lines) {
                // Only the chart wheel's text may be absent, while the wheel
                // window is not part of the program; the item then says so.
                QVERIFY2(file == "WHEELS.HLP" && !p.ctx->isRegistered(ui::win::Wheels),
                         file.c_str());
                QCOMPARE(p.dialogs->messages.size(), size_t(1));
                QCOMPARE(p.dialogs->messages[0].text, CannotFind(path));
                continue;
            }
            QVERIFY2(p.dialogs->messages.empty(), file.c_str());
            auto* data = p.win<ui::OutputD1>(ui::win::OutputD1);
            QVERIFY(data && data->isVisible());
            QCOMPARE(data->RichText1->toPlainText(), ExpectedPage(*lines));
            SaveScreenshot(data, QString::fromStdString("help_" + file));
        }
        // Every item of the table was reached through the menu.
        QCOMPARE(reached, files.size());

        // The data window's own Help, over another text.
        auto* data = p.win<ui::OutputD1>(ui::win::OutputD1);
        data->findChild<QAction*>("mnuHelp")->trigger();
        QVERIFY(p.dialogs->messages.empty());
        const QString own = ExpectedPage(*ReadLines(FindFile(p.dir.path(), "OUTPUTD1.HLP")));
        QCOMPARE(data->RichText1->toPlainText(), own);

        // A missing help file is reported and the window keeps its text.
        std::filesystem::remove(FindFile(p.dir.path(), "REVISION.HLP"));
        p.trigger("mnuHelpRevisions");
        QCOMPARE(p.dialogs->messages.size(), size_t(1));
        QCOMPARE(p.lastMessage(), CannotFind(p.dir.path() / "REVISION.HLP"));
        QCOMPARE(data->RichText1->toPlainText(), own);
    }

    void tipWindowAtStartupAndThroughTheFile() {
        // Off by option 42: closed at start-up, shown by the Help menu.
        {
            StartedProgram p([](const ScratchAppDir& d) { Tips(d, 19, "0"); });
            QVERIFY(!TipWindow(p));
            p.trigger("mnuHelpTipoftheDay");
            QVERIFY(TipWindow(p) && TipWindow(p)->isVisible());
            QVERIFY(p.dialogs->messages.empty());
        }
        // No file: the window itself says so, whatever the button, and no
        // message box.
        {
            StartedProgram p([](const ScratchAppDir& d) {
                std::filesystem::remove(FindFile(d.path(), "TIPOFDAY.TXT"));
            });
            ui::frmTip* w = TipWindow(p);
            QVERIFY(w && w->isVisible());
            const QString sentence("that the TIPOFDAY.TXT file was not found?");
            QCOMPARE(Shown(w), sentence);
            Click(w, "cmdNextTip");
            Click(w, "Command1");
            QCOMPARE(Shown(w), sentence);
            QVERIFY(p.dialogs->messages.empty());
            SaveScreenshot(w, "frmTip_missing");
        }
        StartedProgram p([&](const ScratchAppDir& d) { Tips(d, 5, "1"); });
        ui::frmTip* w = TipWindow(p);
        QVERIFY(w && w->isVisible());
        const auto tip = [](int n) { return QString("Tip number %1.").arg(n); };
        QCOMPARE(w->windowTitle(), QString("Tip of the Day"));
        QCOMPARE(w->findChild<QLabel*>("Label1")->text(), QString("Did you know..."));
        QCOMPARE(w->findChild<QPushButton*>("cmdNextTip")->text(), QString("&Next Tip of 19"));
        QCOMPARE(w->findChild<QPushButton*>("Command1")->text(), QString("Go &Back"));
        QCOMPARE(w->findChild<QPushButton*>("cmdOK")->text(), QString("OK"));
        QCOMPARE(w->findChild<QLabel*>("lblLabel2")->text(),
                 QString("Change option #42 to remove Tips at startup"));
        QVERIFY(w->findChild<QWidget*>("Picture1"));
        QCOMPARE(Shown(w), tip(1));
        SaveScreenshot(w, "frmTip");

        // Go Back and Next Tip wrap around the file.
        Click(w, "Command1");
        QCOMPARE(Shown(w), tip(5));
        Click(w, "Command1");
        QCOMPARE(Shown(w), tip(4));
        for (int i = 0; i < 2; ++i) Click(w, "cmdNextTip");
        QCOMPARE(Shown(w), tip(1));

        // OK releases the window; the menu item opens it afresh at the first tip.
        Click(w, "cmdNextTip");
        Click(w, "cmdOK");
        QVERIFY(!TipWindow(p));
        p.trigger("mnuHelpTipoftheDay");
        QCOMPARE(Shown(TipWindow(p)), tip(1));
    }
};

QTEST_MAIN(PeripheryWindowsTest)
#include "periphery_windows_test.moc"
