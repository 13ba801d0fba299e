// The tip-of-the-day window: start-up with option 42, the Help menu item,
// Next Tip and Go Back around the file, the sentence for a missing file.
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"
#include "base/TextFile.h"
#include "periphery/ui/frmTip.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

std::string NumberedTips(int n) {
    std::string s;
    for (int i = 1; i <= n; ++i) s += "Tip number " + std::to_string(i) + ".\r\n";
    return s;
}

void SetOption42(const test::ScratchAppDir& d, const char* value) {
    auto lines = ReadLines(d.path() / "OPTIONS.OPT").value();
    lines.at(41) = std::string(value) + "      Tip of the day window at start-up";
    WriteLines(d.path() / "OPTIONS.OPT", lines);
}

ui::frmTip* TipWindow(const StartedProgram& p) {
    return p.ctx->windowAs<ui::frmTip>(ui::win::frmTip);
}

QString Shown(ui::frmTip* w) {
    return w->findChild<QLabel*>("lblTipText")->text();
}

void Click(ui::frmTip* w, const char* button) {
    auto* b = w->findChild<QPushButton*>(button);
    QVERIFY2(b, button);
    b->click();
}

} // namespace

class TipWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void opensAtStartupUnlessOption42IsOff();
    void nextAndGoBackWrapAroundTheTips();
    void shorterFileGoesBackToItsLastTip();
    void missingFileGivesTheSentence();
};

void TipWindowTest::opensAtStartupUnlessOption42IsOff() {
    {
        StartedProgram p([](const test::ScratchAppDir& d) {
            d.Write("TIPOFDAY.TXT", NumberedTips(19));
            SetOption42(d, "0");
        });
        QVERIFY(!TipWindow(p));
        // The Help menu shows it whatever the option says.
        p.trigger("mnuHelpTipoftheDay");
        QVERIFY(TipWindow(p) && TipWindow(p)->isVisible());
        QVERIFY(p.dialogs->messages.empty());
    }
    StartedProgram p([](const test::ScratchAppDir& d) {
        d.Write("TIPOFDAY.TXT", NumberedTips(19));
        SetOption42(d, "1");
    });
    ui::frmTip* w = TipWindow(p);
    QVERIFY(w && w->isVisible());
    QCOMPARE(w->windowTitle(), QString("Tip of the Day"));
    QCOMPARE(w->findChild<QLabel*>("Label1")->text(), QString("Did you know..."));
    QCOMPARE(w->findChild<QPushButton*>("cmdNextTip")->text(), QString("&Next Tip of 19"));
    QCOMPARE(w->findChild<QPushButton*>("Command1")->text(), QString("Go &Back"));
    QCOMPARE(w->findChild<QPushButton*>("cmdOK")->text(), QString("OK"));
    QCOMPARE(w->findChild<QLabel*>("lblLabel2")->text(),
             QString("Change option #42 to remove Tips at startup"));
    QVERIFY(w->findChild<QWidget*>("Picture1"));
    QCOMPARE(Shown(w), QString("Tip number 1."));
    test::SaveScreenshot(w, "frmTip");

    // OK releases the window; the menu item opens it afresh at the first tip.
    Click(w, "cmdNextTip");
    Click(w, "cmdOK");
    QVERIFY(!TipWindow(p));
    p.trigger("mnuHelpTipoftheDay");
    QCOMPARE(Shown(TipWindow(p)), QString("Tip number 1."));
}

void TipWindowTest::nextAndGoBackWrapAroundTheTips() {
    StartedProgram p(
        [](const test::ScratchAppDir& d) { d.Write("TIPOFDAY.TXT", NumberedTips(19)); });
    ui::frmTip* w = TipWindow(p);
    QVERIFY(w);
    for (int i = 0; i < 18; ++i) Click(w, "cmdNextTip");
    QCOMPARE(Shown(w), QString("Tip number 19."));
    Click(w, "cmdNextTip");
    QCOMPARE(Shown(w), QString("Tip number 1."));
    Click(w, "Command1");
    QCOMPARE(Shown(w), QString("Tip number 19."));
    Click(w, "Command1");
    QCOMPARE(Shown(w), QString("Tip number 18."));
}

void TipWindowTest::shorterFileGoesBackToItsLastTip() {
    StartedProgram p(
        [](const test::ScratchAppDir& d) { d.Write("TIPOFDAY.TXT", NumberedTips(5)); });
    ui::frmTip* w = TipWindow(p);
    QVERIFY(w);
    Click(w, "Command1");
    QCOMPARE(Shown(w), QString("Tip number 5."));
    Click(w, "cmdNextTip");
    QCOMPARE(Shown(w), QString("Tip number 1."));
}

void TipWindowTest::missingFileGivesTheSentence() {
    StartedProgram p(
        [](const test::ScratchAppDir& d) { fs::remove(FindFile(d.path(), "TIPOFDAY.TXT")); });
    ui::frmTip* w = TipWindow(p);
    QVERIFY(w && w->isVisible());
    const QString sentence("that the TIPOFDAY.TXT file was not found?");
    QCOMPARE(Shown(w), sentence);
    Click(w, "cmdNextTip");
    Click(w, "Command1");
    QCOMPARE(Shown(w), sentence);
    // No message box: the window itself says it.
    QVERIFY(p.dialogs->messages.empty());
    test::SaveScreenshot(w, "frmTip_missing");
}

QTEST_MAIN(TipWindowTest)
#include "periphery_tip_test.moc"
