// The help items of the main window show the shipped help files in the data
// window, each item its own file, line for line.
#include <QPlainTextEdit>
#include <QtTest>

#include "ShellUiSupport.h"
#include "base/TextFile.h"
#include "shell/ui/OutputD1.h"

using namespace kal;
using kal::test::StartedProgram;

class HelpItemsTest : public QObject {
    Q_OBJECT

  private slots:
    void itemsShowTheirFiles();
};

void HelpItemsTest::itemsShowTheirFiles() {
    StartedProgram p;
    const std::pair<const char*, const char*> items[] = {
        {"mnuMainMenuHelp", "Kaltrova.HLP"}, {"mnuPhilosophyHelp", "PHILO.HLP"},
        {"mnuHelpInputD", "INPUTD.HLP"},     {"mnuHelpNames", "NAMES.HLP"},
        {"mnuHelpCities", "GEOGRAPH.HLP"},   {"mnuHelpOptions", "OPTIONS.HLP"},
        {"mnuHelpOutputD1", "OUTPUTD1.HLP"}, {"mnuHelpNameedit", "NAMEEDIT.HLP"},
        {"mnuHelpLongLat", "LONGLAT.HLP"},   {"mnuHelpSelect", "SELECT.HLP"},
        {"mnuHelpPrntfile", "PRNTFILE.HLP"}, {"mnuHintsReadingList", "READING.HLP"},
    };
    for (const auto& [item, file] : items) {
        p.trigger(item);
        QVERIFY2(p.dialogs->messages.empty(), file);
        auto* data = p.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
        QVERIFY(data && data->isVisible());
        // The file's lines unchanged, then the help text's blank line, the
        // page's closing one and the buffer's spare element.
        const auto lines = ReadLines(FindFile(p.dir.path(), file));
        QVERIFY2(lines, file);
        QString expected;
        for (const auto& l : *lines) expected += QString::fromStdString(l) + "\n";
        expected += "\n\n\n";
        QCOMPARE(data->RichText1->toPlainText(), expected);
    }
    test::SaveScreenshot(p.ctx->window(ui::win::OutputD1), "help_READING");
}

QTEST_MAIN(HelpItemsTest)
#include "periphery_help_test.moc"
