// The meanings window, the keywords grid and delineation by keywords: the
// marked selections, the refusal messages, lookups by button and by double
// click into the data window, missing files, the grid's topics and the
// lessons; screenshots.
#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"
#include "browsers/ui/KEY_WORD.h"
#include "browsers/ui/Keywords.h"
#include "browsers/ui/MEANINGS.h"
#include "browsers/ui/OptionGroup.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

ui::MEANINGS* OpenMeanings(StartedProgram& p) {
    p.ctx->unloadWindow(ui::win::MEANINGS);
    return qobject_cast<ui::MEANINGS*>(p.ctx->showWindow(ui::win::MEANINGS));
}

void Pick(ui::OptionGroup* group, int index) {
    QTest::mouseClick(group->button(index), Qt::LeftButton);
    QVERIFY(group->button(index)->isChecked());
}

} // namespace

class BrowserWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void meaningsWindow() {
        StartedProgram p;
        QVERIFY(p.calculate(test::kExampleRecord));
        p.trigger("mnuDataMeaningsNatal");
        auto* m = p.win<ui::MEANINGS>(ui::win::MEANINGS);
        QVERIFY(m && m->isVisible());
        QCOMPARE(m->windowTitle(), QString("Natal Chart Meanings"));
        QCOMPARE(QList<int>({m->Option1->marked(), m->Option2->marked(), m->Option3->marked(),
                             m->Option4->marked(), m->Option5->marked()}),
                 QList<int>({6, 6, 0, 2, 1}));
        QCOMPARE(m->Option1->button(9)->text(), QString("Capricorn"));
        QCOMPARE(m->Option3->button(10)->text(), QString("Ascendant"));
        QCOMPARE(m->Option1->button(9)->objectName(), QString("Option1"));
        // Beside the data window, on the screen.
        const auto& st = p.ctx->display().settings;
        QCOMPARE(m->x(), std::min(ui::AppContext::toPixels(st.DataLeft + st.DataWidth),
                                  QGuiApplication::primaryScreen()->availableGeometry().right() -
                                      m->width()));
        test::SaveScreenshot(m, "meanings_window");

        // Refusals leave the data window alone.
        const QString page = p.dataText();
        Pick(m->Option3, 9); // Pluto
        m->OKSigns->click();
        QCOMPARE(p.dialogs->messages.back(),
                 (Message{"Uranus - Pluto sign positions are not delineated.", "Information",
                          Icon::Exclamation}));
        // Moon on the left, Sun on the right.
        Pick(m->Option3, 1);
        Pick(m->Option5, 0);
        m->OKAspects->click();
        QCOMPARE(p.lastMessage(),
                 std::string("Please select a higher planet on the left than on the right."));
        QCOMPARE(p.dataText(), page);
        m->Command1->click();
        QCOMPARE(p.dialogs->messages.back(),
                 (Message{"1. Double-click on Sign/Asc Sign for interpretation.\n"
                          "2. Double-click on House for interpretation.\n"
                          "3. Double-click on Aspect for interpretation.",
                          "Helpful Hints", Icon::Information}));

        // The Sun in Capricorn: the window's "SIGN_Cap.TXT" finds SIGN_Cpr.TXT.
        const size_t messages = p.dialogs->messages.size();
        Pick(m->Option3, 0);
        Pick(m->Option1, 9);
        m->OKSigns->click();
        QVERIFY(p.dataText().startsWith("\n  SUN IN CAPRICORN\n"));
        QCOMPARE(p.session.listing.out.PageLines.front(), std::string());
        // A double click on a sign shows that sign's rising passage.
        QTest::mouseDClick(m->Option1->button(0), Qt::LeftButton);
        QVERIFY(p.dataText().startsWith("\n  ARIES RISING\n"));
        // On a house, the selected planet in that house.
        QTest::mouseDClick(m->Option2->button(9), Qt::LeftButton);
        QVERIFY(p.dataText().startsWith("\n  SUN IN THE TENTH HOUSE\n"));
        // On an aspect: the Sun blending with the Ascendant, the key the report
        // forms as "Sun blending with Asc".
        Pick(m->Option5, 10);
        QTest::mouseDClick(m->Option4->button(0), Qt::LeftButton);
        QVERIFY(p.dataText().startsWith("\n  SUN BLENDING WITH ASCENDANT\n"));
        // The Ascendant with "Planet in sign" gives the rising sign.
        Pick(m->Option3, 10);
        Pick(m->Option1, 4);
        m->OKSigns->click();
        QVERIFY(p.dataText().startsWith("\n  LEO RISING\n"));
        QCOMPARE(p.dialogs->messages.size(), messages);
        QCOMPARE(ReadLines(LastPagePath(p.dir.path()))->at(1), "  LEO RISING");

        m->findChild<QAction*>("mnuFileExit")->trigger();
        QTRY_VERIFY(!p.ctx->window(ui::win::MEANINGS));
    }

    void keywordsGridAndLessons() {
        StartedProgram p;
        p.trigger("mnuKeywordsGeneral");
        auto* k = p.win<ui::Keywords>(ui::win::Keywords);
        QVERIFY(k && k->isVisible());
        QCOMPARE(k->grdOutput->rowCount(), 12);
        QCOMPARE(k->grdOutput->columnCount(), 4);
        QCOMPARE(k->grdOutput->columnWidth(0), 80);
        QCOMPARE(k->grdOutput->item(11, 0)->text(), QString("Symbolism"));
        QCOMPARE(k->Label1->text(), QString("NOTE: Click on a topic for information"));
        test::SaveScreenshot(k, "keywords_window");

        auto click = [&](int row, int column) {
            QRect cell = k->grdOutput->visualItemRect(k->grdOutput->item(row, column));
            QTest::mouseClick(k->grdOutput->viewport(), Qt::LeftButton, {}, cell.center());
        };
        click(1, 0);
        const Message& moon = p.dialogs->messages.back();
        QCOMPARE(moon.caption, std::string("Moon"));
        QCOMPARE(moon.icon, Icon::Information);
        QVERIFY(moon.text.find("which are disturbing") != std::string::npos);
        // The empty cells of the last column show nothing.
        const size_t before = p.dialogs->messages.size();
        click(4, 3);
        click(8, 3);
        QCOMPARE(p.dialogs->messages.size(), before);
        click(10, 0);
        QCOMPARE(p.dialogs->messages.back().caption, std::string("Aspects"));

        // Delineation by keywords.
        p.session.paths.OutputFileName = (p.dir.path() / "saved.txt").string();
        p.trigger("mnuKeywordsSystem");
        auto* kw = p.win<ui::KEY_WORD>(ui::win::KEY_WORD);
        QVERIFY(kw && kw->isVisible());
        QCOMPARE(kw->windowTitle(), QString("Delineation by Keywords"));
        // Opening it makes the next Save ask for a file name.
        QVERIFY(p.session.paths.OutputFileName.empty());
        QCOMPARE(QList<int>({kw->Option1->marked(), kw->Option2->marked(), kw->Option3->marked()}),
                 QList<int>({6, 6, 4}));
        QCOMPARE(kw->Option3->button(0)->text(), QString("The_Sun"));
        test::SaveScreenshot(kw, "keyword_system_window");

        Pick(kw->Option1, 9);
        kw->OKSign1->click();
        QVERIFY(p.dataText().startsWith("\n  CAPRICORN: UTILITY"));
        QTest::mouseDClick(kw->Option3->button(0), Qt::LeftButton);
        QVERIFY(p.dataText().startsWith("\n  THE SUN: WILL"));
        QTest::mouseDClick(kw->Option2->button(11), Qt::LeftButton);
        QCOMPARE(p.session.listing.out.PageLines[1],
                 "  " + ReadLines(p.dir.path() / "12.TXT")->at(0));
        kw->OKIntro1->click();
        QVERIFY(p.dataText().startsWith("\n  THE KEYWORD METHOD: AN INTRODUCTION\n"));
        kw->Command2->click();
        QCOMPARE(p.dialogs->messages.back(),
                 (Message{"1. Double-click on Sign for further study.\n"
                          "2. Double-click on House for further study.\n"
                          "3. Double-click on Planet for further study.",
                          "Helpful Hints", Icon::Information}));

        // The selections are one set: a planet picked here is the meanings
        // window's planet while both are open.
        auto* m = OpenMeanings(p);
        QCOMPARE(m->Option3->marked(), 0);
        Pick(kw->Option3, 6); // Saturn
        Pick(kw->Option1, 9); // Capricorn
        m->OKSigns->click();
        QVERIFY(p.dataText().startsWith("\n  SATURN IN CAPRICORN\n"));

        // A missing file: the page is still shown, its opening blank line
        // and the closing one.
        fs::remove(p.dir.path() / "RISING.TXT");
        m->OKRisingSign->click();
        const Message expected{"Cannot find the file called " +
                                   (p.dir.path() / "RISING.TXT").string() + ".",
                               "Warning!", Icon::Critical};
        QCOMPARE(p.dialogs->messages.back(), expected);
        QCOMPARE(p.session.listing.out.PageLines, (std::vector<std::string>{"", "", ""}));
        QVERIFY(p.ctx->window(ui::win::OutputD1));
    }
};

QTEST_MAIN(BrowserWindowsTest)
#include "browsers_windows_test.moc"
