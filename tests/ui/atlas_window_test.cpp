// The atlas window reached from the input window: the search as the user
// types, Lookup into the input window's fields, a name several places
// share, local mean time, and a birth at a change of the clocks.
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"
#include "atlas/ui/ACS_Atlas.h"
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
    return p.win<ui::InputD>(ui::win::InputD);
}

// The birth in the input window, as a user types it.
void TypeBirth(StartedProgram& p, const char* month, const char* day, const char* year,
               const char* hour, const char* minute, bool am) {
    InputFields in = Input(p)->fields();
    in.txtName = "Test";
    std::tie(in.txtMonth, in.txtDay, in.txtYear) = std::tuple(month, day, year);
    std::tie(in.txtBirthHour, in.txtBirthMinute, in.optAM) = std::tuple(hour, minute, am);
    Input(p)->setFields(in);
}

// The zone and the place in the input window: "TZ long min E|W lat min N|S".
std::string Place(StartedProgram& p) {
    const InputFields in = Input(p)->fields();
    return in.txtTZ + " " + in.txtLongDeg + " " + in.txtLongMin + (in.optEast ? " E " : " W ") +
           in.txtLatDeg + " " + in.txtLatMin + (in.optSouth ? " S" : " N");
}

// Presses the input window's "ACS Atlas" and types the place into the atlas window.
ui::ACS_Atlas* OpenAtlas(StartedProgram& p, const QString& place) {
    Input(p)->findChild<QPushButton*>("cmdACS_Atlas")->click();
    auto* atlas = p.win<ui::ACS_Atlas>(ui::win::ACS_Atlas);
    if (atlas) QTest::keyClicks(atlas->findChild<QLineEdit*>("txtPlace"), place);
    return atlas;
}

QTreeWidget* List(ui::ACS_Atlas* a) {
    return a->findChild<QTreeWidget*>("lstPlaces");
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
    QCoreApplication::processEvents();
}

} // namespace

class AtlasWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void buttonOnlyWithAnAtlas() {
        StartedProgram p;
        QVERIFY(!p.session.paths.AtlasAvailable);
        QVERIFY(Input(p)->findChild<QPushButton*>("cmdACS_Atlas")->isHidden());
        Input(p)->cmdACS_Atlas_Click();
        QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
        QVERIFY(p.dialogs->messages.empty());
    }

    void munichFoundAsTypedAndLookedUp() {
        StartedProgram p(WithAtlas);
        QVERIFY(p.session.paths.AtlasAvailable);
        auto* button = Input(p)->findChild<QPushButton*>("cmdACS_Atlas");
        QVERIFY(!button->isHidden());
        QCOMPARE(button->text(), QString("ACS Atlas"));
        TypeBirth(p, "8", "1", "1944", "10", "0", true);
        const std::string before = Place(p);

        // Closed without Lookup: nothing changes.
        ui::ACS_Atlas* atlas = OpenAtlas(p, "muenchen");
        atlas->close();
        QCoreApplication::processEvents();
        QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
        QCOMPARE(Place(p), before);
        QCOMPARE(p.session.atlas.results.AtlasFound, short(0));

        // Each letter searches again; after the whole word Munich leads.
        atlas = OpenAtlas(p, "mu");
        QVERIFY(atlas && atlas->isVisible() && atlas->isModal());
        QCOMPARE(atlas->windowTitle(), QString("ACS Atlas"));
        QCOMPARE(atlas->findChild<QPushButton*>("cmdLookup")->text(), QString("Lookup"));
        QCOMPARE(atlas->birthClock().hour, 10);
        QCOMPARE(atlas->birthClock().year, 1944);
        QVERIFY(List(atlas)->topLevelItemCount() > 10);
        QTest::keyClicks(atlas->findChild<QLineEdit*>("txtPlace"), "enchen");
        QTreeWidgetItem* first = List(atlas)->topLevelItem(0);
        QVERIFY(first && first->text(0).startsWith("Munich"));
        QCOMPARE(first->text(1) + "," + first->text(2), QString("Bavaria,Germany"));
        QVERIFY(QLocale().toULongLong(first->text(3)) > 1000000);
        QCOMPARE(List(atlas)->currentItem(), first);
        QVERIFY(atlas->findChild<QLabel*>("lblPlace")->text().contains("zone -2"));
        QCoreApplication::processEvents();
        test::SaveScreenshot(atlas, "atlas_munich");

        Lookup(atlas);
        QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
        QCOMPARE(p.session.atlas.results.AtlasFound, short(1));
        QCOMPARE(p.session.atlas.results.AtlasResult, short(6));
        QVERIFY2(Place(p) == "-2 11 34 E 48 8 N" || Place(p) == "-2 11 35 E 48 8 N",
                 Place(p).c_str());
        // The rest of the record stays as typed.
        const InputFields after = Input(p)->fields();
        QCOMPARE(after.txtName + " " + after.txtMonth + "/" + after.txtDay + "/" + after.txtYear +
                     " " + after.txtBirthHour,
                 std::string("Test 8/1/1944 10"));
        QVERIFY(p.dialogs->messages.empty());
    }

    void sharedNamesAndLocalMeanTime() {
        StartedProgram p(WithAtlas);
        TypeBirth(p, "7", "4", "1976", "3", "15", false);
        ui::ACS_Atlas* atlas = OpenAtlas(p, "Springfield");
        QVERIFY(List(atlas)->topLevelItemCount() >= 10);
        QVERIFY(
            atlas->findChild<QLabel*>("lblFound")->text().contains("places are named Springfield"));
        QCoreApplication::processEvents();
        test::SaveScreenshot(atlas, "atlas_springfield");

        // A place whose name others share: the window stays, and the fields
        // wait for it to close.
        QVERIFY(Pick(atlas, "Springfield", "Massachusetts", "United States"));
        Lookup(atlas);
        QCOMPARE(atlas->windowTitle(), QString("THIS IS A DUPLICATE CITY"));
        QVERIFY(atlas->isVisible());
        QVERIFY(Input(p)->fields().txtTZ != "4");
        test::SaveScreenshot(atlas, "atlas_duplicate");
        // Another of them, looked up and closed: the last lookup is taken.
        // Springfield, Illinois, in central daylight time that July.
        QVERIFY(Pick(atlas, "Springfield", "Illinois", "United States"));
        Lookup(atlas);
        QVERIFY(atlas->isVisible());
        atlas->findChild<QPushButton*>("cmdClose")->click();
        QCoreApplication::processEvents();
        QVERIFY(!p.ctx->window(ui::win::ACS_Atlas));
        QCOMPARE(Place(p), std::string("5 89 39 W 39 48 N"));

        // Before standard time, Dallas' own mean time, 96 deg 48 min West:
        // 6 h 27 min behind Greenwich, not the zone's reference city's.
        TypeBirth(p, "6", "1", "1870", "12", "0", false);
        atlas = OpenAtlas(p, "Dallas, Texas");
        QCOMPARE(List(atlas)->currentItem()->text(0), QString("Dallas"));
        Lookup(atlas);
        QCOMPARE(p.dialogs->messages,
                 (std::vector<Message>{{"LMT is used", "LMT used", Icon::Exclamation}}));
        QCOMPARE(atlas->windowTitle(), QString("THIS IS A DUPLICATE CITY"));
        atlas->close();
        QCoreApplication::processEvents();
        QVERIFY2(Place(p).starts_with("6.45") && Place(p).ends_with(" 96 48 W 32 47 N"),
                 Place(p).c_str());
    }

    void clockChangeReadingIsChosenByTheUser() {
        StartedProgram p(WithAtlas);
        // New York's clocks went from 2:00 to 3:00 A.M. on 11 March 2007.
        TypeBirth(p, "3", "11", "2007", "2", "30", true);
        ui::ACS_Atlas* atlas = OpenAtlas(p, "New York City");
        auto* firstReading = atlas->findChild<QRadioButton*>("optFirstReading");
        auto* secondReading = atlas->findChild<QRadioButton*>("optSecondReading");
        QVERIFY(atlas->findChild<QGroupBox*>("fraClockChange")->isVisible());
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
        QCOMPARE(Input(p)->fields().txtTZ, std::string("4"));

        // The hour shown twice when the clocks went back, 4 November 2007.
        TypeBirth(p, "11", "4", "2007", "1", "30", true);
        atlas = OpenAtlas(p, "New York City");
        firstReading = atlas->findChild<QRadioButton*>("optFirstReading");
        QVERIFY(atlas->findChild<QGroupBox*>("fraClockChange")->isVisible());
        QVERIFY(!firstReading->isChecked());
        firstReading->click();
        Lookup(atlas);
        QCOMPARE(Input(p)->fields().txtTZ, std::string("4"));
    }
};

QTEST_MAIN(AtlasWindowTest)
#include "atlas_window_test.moc"
