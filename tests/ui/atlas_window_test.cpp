// The atlas window reached from the input window: the search as the user
// types, Lookup into the input window's fields, a name several places
// share, local mean time, and a birth at a change of the clocks.
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"
#include "atlas/ui/ACS_Atlas.h"
#include "base/TextFile.h"
#include "birthdata/ui/InputD.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

// A program whose directory holds the built atlas.
void WithAtlas(const test::ScratchAppDir& dir) {
    fs::create_directory_symlink(fs::canonical(test::AppDir() / "atlas"), dir.path() / "atlas");
}

ui::InputD* Input(StartedProgram& p) {
    return p.ctx->windowAs<ui::InputD>(ui::win::InputD);
}

// The birth in the input window, as a user types it.
void TypeBirth(StartedProgram& p, const char* month, const char* day, const char* year,
               const char* hour, const char* minute, bool am) {
    InputFields in = Input(p)->fields();
    in.txtName = "Test";
    in.txtMonth = month;
    in.txtDay = day;
    in.txtYear = year;
    in.txtBirthHour = hour;
    in.txtBirthMinute = minute;
    in.optAM = am;
    Input(p)->setFields(in);
}

// Presses the input window's "ACS Atlas" and returns the atlas window.
ui::ACS_Atlas* OpenAtlas(StartedProgram& p) {
    Input(p)->findChild<QPushButton*>("cmdACS_Atlas")->click();
    return p.ctx->windowAs<ui::ACS_Atlas>(ui::win::ACS_Atlas);
}

QTreeWidget* List(ui::ACS_Atlas* a) {
    return a->findChild<QTreeWidget*>("lstPlaces");
}

QString Label(ui::ACS_Atlas* a, const char* name) {
    return a->findChild<QLabel*>(name)->text();
}

void Type(ui::ACS_Atlas* a, const QString& text) {
    auto* box = a->findChild<QLineEdit*>("txtPlace");
    box->clear();
    QTest::keyClicks(box, text);
}

// Makes the first row whose place, region and country are these current.
bool Pick(ui::ACS_Atlas* a, const QString& place, const QString& region, const QString& country) {
    QTreeWidget* list = List(a);
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* it = list->topLevelItem(i);
        if (it->text(0) == place && it->text(1) == region && it->text(2) == country) {
            list->setCurrentItem(it);
            return true;
        }
    }
    return false;
}

void Lookup(ui::ACS_Atlas* a) {
    a->findChild<QPushButton*>("cmdLookup")->click();
}

QString Field(StartedProgram& p, const char* name) {
    return Input(p)->findChild<QLineEdit*>(name)->text();
}

bool Checked(StartedProgram& p, const char* name) {
    return Input(p)->findChild<QRadioButton*>(name)->isChecked();
}

} // namespace

class AtlasWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void buttonOnlyWithAnAtlas();
    void munichFoundAsTypedAndLookedUp();
    void sharedNameStaysOpenUntilClosed();
    void localMeanTimeIsSaid();
    void clockChangeReadingIsChosenByTheUser();
};

void AtlasWindowTest::buttonOnlyWithAnAtlas() {
    StartedProgram p;
    QVERIFY(!p.session.paths.AtlasAvailable);
    QVERIFY(Input(p)->findChild<QPushButton*>("cmdACS_Atlas")->isHidden());
    Input(p)->cmdACS_Atlas_Click();
    QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
    QVERIFY(p.dialogs->messages.empty());
}

void AtlasWindowTest::munichFoundAsTypedAndLookedUp() {
    StartedProgram p(WithAtlas);
    QVERIFY(p.session.paths.AtlasAvailable);
    auto* button = Input(p)->findChild<QPushButton*>("cmdACS_Atlas");
    QVERIFY(!button->isHidden());
    QCOMPARE(button->text(), QString("ACS Atlas"));
    TypeBirth(p, "8", "1", "1944", "10", "0", true);
    const InputFields before = Input(p)->fields();

    // Closed without Lookup: nothing changes.
    ui::ACS_Atlas* atlas = OpenAtlas(p);
    Type(atlas, "muenchen");
    atlas->close();
    QCoreApplication::processEvents();
    QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
    const InputFields closed = Input(p)->fields();
    QCOMPARE(closed.txtTZ + " " + closed.txtLongDeg + " " + closed.txtLatDeg,
             before.txtTZ + " " + before.txtLongDeg + " " + before.txtLatDeg);
    QCOMPARE(p.session.atlas.results.AtlasFound, short(0));

    atlas = OpenAtlas(p);
    QVERIFY(atlas && atlas->isVisible() && atlas->isModal());
    QCOMPARE(atlas->windowTitle(), QString("ACS Atlas"));
    QCOMPARE(atlas->findChild<QPushButton*>("cmdLookup")->text(), QString("Lookup"));
    QCOMPARE(atlas->birthClock().hour, 10);
    QCOMPARE(atlas->birthClock().year, 1944);

    // Each letter searches again; after the whole word Munich leads.
    QTest::keyClicks(atlas->findChild<QLineEdit*>("txtPlace"), "mu");
    QVERIFY(List(atlas)->topLevelItemCount() > 10);
    QTest::keyClicks(atlas->findChild<QLineEdit*>("txtPlace"), "enchen");
    QTreeWidgetItem* first = List(atlas)->topLevelItem(0);
    QVERIFY(first);
    QVERIFY2(first->text(0).startsWith("Munich"), qPrintable(first->text(0)));
    QCOMPARE(first->text(1), QString("Bavaria"));
    QCOMPARE(first->text(2), QString("Germany"));
    QVERIFY(QLocale().toULongLong(first->text(3)) > 1000000);
    QCOMPARE(List(atlas)->currentItem(), first);
    QVERIFY2(Label(atlas, "lblPlace").contains("zone -2"), qPrintable(Label(atlas, "lblPlace")));
    QCoreApplication::processEvents();
    test::SaveScreenshot(atlas, "atlas_munich");

    Lookup(atlas);
    QCoreApplication::processEvents();
    QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
    QCOMPARE(p.session.atlas.results.AtlasFound, short(1));
    QCOMPARE(p.session.atlas.results.AtlasResult, short(6));
    QCOMPARE(Field(p, "txtTZ"), QString("-2"));
    QCOMPARE(Field(p, "txtLongDeg"), QString("11"));
    QVERIFY(Field(p, "txtLongMin") == "34" || Field(p, "txtLongMin") == "35");
    QVERIFY(Checked(p, "optEast"));
    QCOMPARE(Field(p, "txtLatDeg"), QString("48"));
    QCOMPARE(Field(p, "txtLatMin"), QString("8"));
    QVERIFY(Checked(p, "optNorth"));
    // The rest of the record stays as typed.
    const InputFields after = Input(p)->fields();
    QCOMPARE(after.txtName, before.txtName);
    QCOMPARE(after.txtMonth + "/" + after.txtDay + "/" + after.txtYear + " " + after.txtBirthHour,
             std::string("8/1/1944 10"));
    QVERIFY(p.dialogs->messages.empty());

    // The chart is cast from the looked-up place and zone.
    Input(p)->findChild<QPushButton*>("cmdOK")->click();
    const std::string page = ReadFileBytes(p.dir.path() / "reports" / "LASTPAGE.TXT").value_or("");
    QVERIFY2(page.find("01 Aug 1944    TZ = -2.0      10.00 A.M.   11e3") != std::string::npos &&
                 page.find("48n08") != std::string::npos,
             page.substr(0, 300).c_str());
}

void AtlasWindowTest::sharedNameStaysOpenUntilClosed() {
    StartedProgram p(WithAtlas);
    TypeBirth(p, "7", "4", "1976", "3", "15", false);
    ui::ACS_Atlas* atlas = OpenAtlas(p);
    Type(atlas, "Springfield");
    QVERIFY(List(atlas)->topLevelItemCount() >= 10);
    QVERIFY2(Label(atlas, "lblFound").contains("places are named Springfield"),
             qPrintable(Label(atlas, "lblFound")));
    QCoreApplication::processEvents();
    test::SaveScreenshot(atlas, "atlas_springfield");

    QVERIFY(Pick(atlas, "Springfield", "Massachusetts", "United States"));
    Lookup(atlas);
    QCoreApplication::processEvents();
    QCOMPARE(atlas->windowTitle(), QString("THIS IS A DUPLICATE CITY"));
    QVERIFY(atlas->isVisible());
    // The fields wait for the window to close.
    QVERIFY(Field(p, "txtTZ") != "4");
    QCoreApplication::processEvents();
    test::SaveScreenshot(atlas, "atlas_duplicate");

    // Another of them, looked up and closed: the last lookup is taken.
    QVERIFY(Pick(atlas, "Springfield", "Illinois", "United States"));
    Lookup(atlas);
    QVERIFY(atlas->isVisible());
    atlas->findChild<QPushButton*>("cmdClose")->click();
    QCoreApplication::processEvents();
    QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
    // Springfield, Illinois: 39 deg 48 min North, 89 deg 39 min West, in
    // central daylight time (5 hours) that July.
    QCOMPARE(Field(p, "txtLatDeg") + " " + Field(p, "txtLatMin"), QString("39 48"));
    QCOMPARE(Field(p, "txtLongDeg") + " " + Field(p, "txtLongMin"), QString("89 39"));
    QVERIFY(Checked(p, "optWest") && Checked(p, "optNorth"));
    QCOMPARE(Field(p, "txtTZ"), QString("5"));
}

void AtlasWindowTest::localMeanTimeIsSaid() {
    StartedProgram p(WithAtlas);
    TypeBirth(p, "6", "1", "1870", "12", "0", false);
    ui::ACS_Atlas* atlas = OpenAtlas(p);
    Type(atlas, "Dallas, Texas");
    QCOMPARE(List(atlas)->currentItem()->text(0), QString("Dallas"));
    Lookup(atlas);
    QCoreApplication::processEvents();
    QCOMPARE(int(p.dialogs->messages.size()), 1);
    const Message& m = p.dialogs->messages.front();
    QCOMPARE(m.text, std::string("LMT is used"));
    QCOMPARE(m.caption, std::string("LMT used"));
    QVERIFY(m.icon == Icon::Exclamation);
    // Other places are called Dallas too: the window waits to be closed.
    QCOMPARE(atlas->windowTitle(), QString("THIS IS A DUPLICATE CITY"));
    atlas->close();
    QCoreApplication::processEvents();
    // Dallas' own mean time, 96 deg 48 min West: 6 h 27 min behind
    // Greenwich, not the zone's reference city's.
    QVERIFY2(Field(p, "txtTZ").startsWith("6.45"), qPrintable(Field(p, "txtTZ")));
    QCOMPARE(Field(p, "txtLongDeg"), QString("96"));
    QVERIFY(Checked(p, "optWest"));
}

void AtlasWindowTest::clockChangeReadingIsChosenByTheUser() {
    StartedProgram p(WithAtlas);
    // New York's clocks went from 2:00 to 3:00 A.M. on 11 March 2007.
    TypeBirth(p, "3", "11", "2007", "2", "30", true);
    ui::ACS_Atlas* atlas = OpenAtlas(p);
    Type(atlas, "New York City");
    auto* change = atlas->findChild<QGroupBox*>("fraClockChange");
    auto* firstReading = atlas->findChild<QRadioButton*>("optFirstReading");
    auto* secondReading = atlas->findChild<QRadioButton*>("optSecondReading");
    QVERIFY(change->isVisible());
    QVERIFY(!firstReading->isChecked() && !secondReading->isChecked());
    QVERIFY2(firstReading->text().contains("EST") && firstReading->text().contains("zone 5"),
             qPrintable(firstReading->text()));
    QVERIFY2(secondReading->text().contains("EDT") && secondReading->text().contains("zone 4"),
             qPrintable(secondReading->text()));
    QCoreApplication::processEvents();
    test::SaveScreenshot(atlas, "atlas_clock_change");

    // No reading chosen: nothing is handed over.
    Lookup(atlas);
    QVERIFY(p.dialogs->saw(ui::ACS_Atlas::kChooseReadingText));
    QCOMPARE(p.session.atlas.results.AtlasFound, short(0));
    QVERIFY(atlas->isVisible());

    secondReading->click();
    Lookup(atlas);
    QCoreApplication::processEvents();
    QCOMPARE(Field(p, "txtTZ"), QString("4"));

    // The hour shown twice when the clocks went back, 4 November 2007.
    TypeBirth(p, "11", "4", "2007", "1", "30", true);
    atlas = OpenAtlas(p);
    Type(atlas, "New York City");
    firstReading = atlas->findChild<QRadioButton*>("optFirstReading");
    QVERIFY(atlas->findChild<QGroupBox*>("fraClockChange")->isVisible());
    QVERIFY(!firstReading->isChecked());
    firstReading->click();
    Lookup(atlas);
    QCoreApplication::processEvents();
    QCOMPARE(Field(p, "txtTZ"), QString("4"));
}

QTEST_MAIN(AtlasWindowTest)
#include "atlas_window_test.moc"
