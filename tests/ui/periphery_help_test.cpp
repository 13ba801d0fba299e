// The help items of the main window and the data window show the shipped
// help files in the data window, each item its own file, line for line.
// The Help menu is walked as the user sees it, so an item added to it
// fails here until it is given its file.
#include <QMenu>
#include <QPlainTextEdit>
#include <QtTest>

#include <map>

#include "ShellUiSupport.h"
#include "base/TextFile.h"
#include "shell/ui/OutputD1.h"
#include "shell/ui/WindowNames.h"

using namespace kal;
using kal::test::StartedProgram;

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

} // namespace

class HelpItemsTest : public QObject {
    Q_OBJECT

  private slots:
    void everyHelpItemShowsItsFile();
    void dataWindowHelpShowsItsFile();
};

void HelpItemsTest::everyHelpItemShowsItsFile() {
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
            QVERIFY2(file == "WHEELS.HLP" && !p.ctx->isRegistered(ui::win::Wheels), file.c_str());
            QCOMPARE(p.dialogs->messages.size(), size_t(1));
            QCOMPARE(p.dialogs->messages[0].text,
                     "Cannot find the file called " + path.string() + ".");
            continue;
        }
        QVERIFY2(p.dialogs->messages.empty(), file.c_str());
        auto* data = p.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
        QVERIFY(data && data->isVisible());
        QCOMPARE(data->RichText1->toPlainText(), ExpectedPage(*lines));
        test::SaveScreenshot(data, QString::fromStdString("help_" + file));
    }
    // Every item of the table was reached through the menu.
    QCOMPARE(reached, files.size());
}

void HelpItemsTest::dataWindowHelpShowsItsFile() {
    StartedProgram p;
    p.trigger("mnuHintsTips"); // opens the data window on another text
    auto* data = p.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
    QVERIFY(data);
    data->findChild<QAction*>("mnuHelp")->trigger();
    QVERIFY(p.dialogs->messages.empty());
    const auto lines = ReadLines(FindFile(p.dir.path(), "OUTPUTD1.HLP"));
    QVERIFY(lines);
    QCOMPARE(data->RichText1->toPlainText(), ExpectedPage(*lines));
}

QTEST_MAIN(HelpItemsTest)
#include "periphery_help_test.moc"
