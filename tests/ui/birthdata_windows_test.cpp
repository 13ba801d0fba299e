// The birth-data windows: the input window, the names window with its
// editor and record writer, the cities window, the time-zone list, and the
// typical request from a pick to the data page.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QtTest>

#include <cerrno>

#include "ShellUiSupport.h"
#include "birthdata/CitiesFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/ui/Names.h"

using namespace kal;
using namespace kal::test;
namespace fs = std::filesystem;

namespace {

QWidget* Input(StartedProgram& p) {
    return p.win(ui::win::InputD);
}
QWidget* Names(StartedProgram& p) {
    return p.win(ui::win::Names);
}
QLineEdit* Field(StartedProgram& p, const char* name) {
    return Input(p)->findChild<QLineEdit*>(name);
}
bool Checked(StartedProgram& p, const char* name) {
    return Input(p)->findChild<QRadioButton*>(name)->isChecked();
}
QString Path(const fs::path& f) {
    return QString::fromStdString(f.string());
}
void DoubleClickCurrent(StartedProgram& p) {
    auto* list = Names(p)->findChild<QListWidget*>("NamesOnFile");
    emit list->itemDoubleClicked(list->currentItem());
    QCoreApplication::processEvents();
}

} // namespace

class BirthDataWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void typicalRequestFromPickToPage() {
        StartedProgram p;
        QVERIFY(Input(p) && Input(p)->isVisible() && Names(p) && Names(p)->isVisible());
        QCOMPARE(Field(p, "txtName")->text(), QString("Now"));
        QCOMPARE(Names(p)->findChild<QLabel*>("lblNamesOnFile")->text(), QString("NAMES.FIL"));
        // The list sets its first current item by itself when it takes the
        // focus; that is no pick, and the input window keeps "Now".
        Names(p)->activateWindow();
        Names(p)->findChild<QListWidget*>("NamesOnFile")->setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(Field(p, "txtName")->text(), QString("Now"));

        Pick(Names(p), "NamesOnFile", "Example");
        QCOMPARE(Field(p, "txtName")->text() + " " + Field(p, "txtMonth")->text() + "/" +
                     Field(p, "txtDay")->text() + " " + Field(p, "txtBirthHour")->text() + ":" +
                     Field(p, "txtBirthMinute")->text(),
                 QString("Example 5/12 10:43"));
        SaveScreenshot(Input(p), "birthdata_InputD");
        SaveScreenshot(Names(p), "birthdata_Names");

        Click(Input(p), "cmdOK");
        QVERIFY(!Input(p)->isVisible() && !Names(p)->isVisible());
        QVERIFY(p.win(ui::win::OutputD1) && p.win(ui::win::OutputD1)->isVisible());
        QVERIFY(p.lastPage().find("Example") != std::string::npos);

        // The Input command brings the windows back with the fields kept.
        p.trigger("mnuInputData");
        QVERIFY(Input(p)->isVisible() && Names(p) && Names(p)->isVisible());
        QCOMPARE(Field(p, "txtName")->text(), QString("Example"));

        // A double click calculates at once and, like OK, leaves the data
        // window alone on the screen.
        Pick(Names(p), "NamesOnFile", "Albert Einstein");
        DoubleClickCurrent(p);
        QVERIFY(p.lastPage().find("Albert Einstein") != std::string::npos);
        QVERIFY(!Input(p)->isVisible() && (!Names(p) || !Names(p)->isVisible()));
        QVERIFY(p.win(ui::win::OutputD1)->isVisible());

        // A locked list picks its entry again when the Input command re-reads it.
        p.trigger("mnuInputData");
        Pick(Names(p), "NamesOnFile", "Sigmund Freud"); // row 2
        Names(p)->findChild<QCheckBox*>("Check1")->click();
        Click(Input(p), "cmdOK");
        Field(p, "txtName")->setText("Typed over");
        p.trigger("mnuInputData");
        QCOMPARE(Names(p)->findChild<QListWidget*>("NamesOnFile")->currentRow(), 2);
        QCOMPARE(Field(p, "txtName")->text(), QString("Sigmund Freud"));
        QVERIFY(Names(p)->findChild<QCheckBox*>("Check1")->isChecked());
    }

    void newPersonSavedAndSavedAgain() {
        StartedProgram p;
        const fs::path names = p.dir.path() / "NAMES.FIL";
        const size_t before = LoadNamesFile(names).records.size();
        QStringList patterns;
        p.dialogs->onChooseFile = [&](const QString& pattern) {
            patterns << pattern;
            return Path(names);
        };
        std::vector<Message> asked;
        p.dialogs->onQuestion = [&](const Message& m) {
            asked.push_back(m);
            return QMessageBox::No;
        };

        // A comma in the name is refused before any file is asked for.
        Field(p, "txtName")->setText("Smith, John");
        Click(Input(p), "cmdSave");
        QVERIFY(p.dialogs->saw(
            "You cannot have a comma in the name. Please remove the comma and try again."));
        QVERIFY(patterns.isEmpty());

        Click(Input(p), "cmdNow");
        Field(p, "txtName")->setText("Jane Doe");
        Click(Input(p), "cmdSave");
        QVERIFY(asked.empty());
        QVERIFY(ListTexts(Names(p), "NamesOnFile").contains("Jane Doe"));
        QCOMPARE(LoadNamesFile(names).records.size(), before + 1);
        QCOMPARE(patterns, QStringList({"*.FIL"}));

        // The same name again, answered No: both records stay, with a backup.
        Click(Input(p), "cmdSave");
        QCOMPARE(asked.size(), size_t(1));
        QCOMPARE(asked[0].caption, std::string("Jane Doe already exists"));
        QCOMPARE(LoadNamesFile(names).records.size(), before + 2);

        // A save the disk refuses: the message, the list read again after
        // the file selection emptied it, the fields kept.
        const QStringList listed = ListTexts(Names(p), "NamesOnFile");
        p.dialogs->onChooseFile = [&](const QString&) {
            emit p.ctx->selectionListsEmptied();
            return Path(names);
        };
        Field(p, "txtName")->setText("Not Saved");
        {
            WriteFault full(WriteStep::Write, 1, ENOSPC);
            Click(Input(p), "cmdSave");
        }
        QVERIFY(p.lastMessage().find("NAMES.FIL has not been changed") != std::string::npos);
        QCOMPARE(ListTexts(Names(p), "NamesOnFile"), listed);
        QCOMPARE(Field(p, "txtName")->text(), QString("Not Saved"));
    }

    void malformedNamesLineIsReported() {
        StartedProgram p([](const ScratchAppDir& d) {
            d.Write("NAMES.FIL", "Example,12 May 1959,10.43,A,6,75.23,39.45,e@x.org\r\n"
                                 "Broken line without fields\r\n"
                                 "Ann Lee,3 Feb 1971,4.05,P,5,71.04,42.21,\r\n");
        });
        QVERIFY(p.dialogs->saw(NamesFileLineError().text));
        QCOMPARE(ListTexts(Names(p), "NamesOnFile"), QStringList({"Example", "Ann Lee"}));

        // A record that cannot be converted: the format error, later fields kept.
        p.dialogs->messages.clear();
        Field(p, "txtEmail")->setText("kept@x.org");
        auto* names = p.win<ui::Names>(ui::win::Names);
        const_cast<std::vector<BirthRecord>&>(names->records())[1].RecLat = "4x";
        Pick(names, "NamesOnFile", "Ann Lee");
        QVERIFY(p.dialogs->saw(RecordFormatError().text));
        QCOMPARE(Field(p, "txtLongDeg")->text(), QString("71"));
        QCOMPARE(Field(p, "txtEmail")->text(), QString("kept@x.org"));
    }

    void inputFieldRulesAndTheTimeZoneList() {
        StartedProgram p;
        auto* input = Input(p);
        input->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(input));

        // The key filter and the birth-hour check are wired to the fields.
        auto* month = Field(p, "txtMonth");
        month->clear();
        month->setFocus();
        QTest::keyClicks(month, "1a.-2");
        QCOMPARE(month->text(), QString("12"));
        auto* hour = Field(p, "txtBirthHour");
        input->findChild<QRadioButton*>("optAM")->setChecked(true);
        hour->clear();
        QCOMPARE(p.lastMessage(), std::string("Please fill in a value for birth hour."));
        QTest::keyClicks(hour, "17");
        QCOMPARE(hour->text(), QString("5"));
        QVERIFY(Checked(p, "optPM"));
        Field(p, "txtTZ")->setText("5");
        input->findChild<QRadioButton*>("optEast")->click();
        QCOMPARE(Field(p, "txtTZ")->text(), QString("-5"));

        // Down walks from the birth hour to the e-mail and stops; Up walks back.
        hour->setFocus();
        for (int i = 0; i < 8; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget()->objectName(), QString("txtEmail"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget()->objectName(), QString("txtLatMin"));
        // Focus selects the whole text.
        auto* latMin = Field(p, "txtLatMin");
        latMin->setText("45");
        hour->setFocus();
        latMin->setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(latMin->selectedText(), QString("45"));

        // The time-zone list opens beside the window and stays for another pick.
        input->move(100, 120);
        input->findChild<QLabel*>("Label1")->setFocus();
        QTest::mouseClick(input->findChild<QLabel*>("Label1"), Qt::LeftButton);
        auto* tz = p.win(ui::win::TimeZone);
        QVERIFY(tz && tz->isVisible());
        QCOMPARE(tz->x(), input->frameGeometry().right() + 1);
        SaveScreenshot(tz, "birthdata_TimeZone");
        const auto india =
            ListTexts(tz, "lstTimeZones").filter(QRegularExpression("^India Standard Time"));
        QCOMPARE(india.size(), 1);
        Pick(tz, "lstTimeZones", india[0]);
        QCOMPARE(Field(p, "txtTZ")->text(), QString("-5.5"));
        QVERIFY(Checked(p, "optEast") && tz->isVisible());
        // OK unloads the list.
        Click(input, "cmdOK");
        QCoreApplication::processEvents();
        QVERIFY(!p.win(ui::win::TimeZone));
    }

    void citiesPickAndEditor() {
        StartedProgram p;
        Click(Names(p), "Command1");
        QCoreApplication::processEvents();
        auto* geo = p.win(ui::win::Geograph);
        QVERIFY(geo && geo->isVisible() && !Names(p));
        QCOMPARE(geo->findChild<QLabel*>("lblCitiesOnFile")->text(), QString("GA_MA.LL"));
        SaveScreenshot(geo, "birthdata_Geograph");

        // Taking the focus is no pick: the home place stays in the input window.
        const QString homeLong = Field(p, "txtLongDeg")->text();
        auto* cities = geo->findChild<QListWidget*>("CitiesOnFile");
        QApplication::setActiveWindow(geo);
        cities->setFocus();
        QCoreApplication::processEvents();
        QVERIFY(cities->hasFocus() && cities->currentRow() == 0);
        QCOMPARE(Field(p, "txtLongDeg")->text(), homeLong);

        Field(p, "txtName")->setText("Someone");
        Pick(geo, "CitiesOnFile", "Sydney,Australia");
        QCOMPARE(Field(p, "txtLongDeg")->text() + " " + Field(p, "txtLatDeg")->text(),
                 QString("151 33"));
        QVERIFY(Checked(p, "optEast") && Checked(p, "optSouth"));
        QCOMPARE(Field(p, "txtName")->text(), QString("Someone"));

        // The editor saves the text, a last line typed without a line break
        // whole, and Quit re-reads the list.
        Click(geo, "cmdEditList");
        auto* editor = p.win(ui::win::LongLat);
        QVERIFY(editor && editor->windowTitle().startsWith("Edit: "));
        SaveScreenshot(editor, "birthdata_LongLat");
        Content(editor)->setPlainText("Lagos,NG,03E24,06N27,-1\nBad,XX");
        Click(editor, "btnSave");
        QCOMPARE(*ReadFileBytes(p.dir.path() / "GA_MA.LL"),
                 std::string("Lagos,NG,03E24,06N27,-1\r\nBad,XX\r\n"));
        Click(editor, "btnQuit");
        QCoreApplication::processEvents();
        QCOMPARE(ListTexts(p.win(ui::win::Geograph), "CitiesOnFile"), QStringList({"Lagos,NG"}));
        QVERIFY(p.dialogs->saw(CitiesFileLineError().text));
    }

    void fileSelectionStartsOnTheFileInUse() {
        StartedProgram p([](const ScratchAppDir& d) {
            d.Write("NEWTEST.FIL", "Other,1 Jan 1960,1.00,P,5,71.04,42.21,\r\n");
            d.Write("MINE.LL", "Lagos,NG,03E24,06N27,-1\r\n");
        });
        const QString newtest = Path(p.dir.path() / "NEWTEST.FIL");
        const QString mine = Path(p.dir.path() / "MINE.LL");
        p.dialogs->onChooseFile = [&](const QString& pattern) {
            return pattern == "*.LL" ? mine : newtest;
        };

        // Change List opens on NAMES.FIL; Save to disk then opens on the list
        // chosen, so that Select keeps it.
        Click(Names(p), "cmdNewFileList");
        QCOMPARE(p.dialogs->chosenFrom, QStringList({Path(p.dir.path() / "NAMES.FIL")}));
        QCOMPARE(Names(p)->findChild<QLabel*>("lblNamesOnFile")->text(), QString("NEWTEST.FIL"));
        Field(p, "txtName")->setText("Saved Here");
        Click(Input(p), "cmdSave");
        QCOMPARE(p.dialogs->chosenFrom.last(), newtest);
        QCOMPARE(ListTexts(Names(p), "NamesOnFile"), QStringList({"Other", "Saved Here"}));

        // The cities window with its own file.
        Click(Names(p), "Command1");
        QCoreApplication::processEvents();
        Click(p.win(ui::win::Geograph), "cmdNewFileList");
        QVERIFY(p.dialogs->chosenFrom.last().endsWith("GA_MA.LL"));
        Click(p.win(ui::win::Geograph), "cmdNewFileList");
        QCOMPARE(p.dialogs->chosenFrom.last(), mine);

        // A new names file holds the example record; the file in use stays.
        const fs::path made = p.dir.path() / "NEW.FIL";
        QString offered;
        p.dialogs->onNewNamesFile = [&](const QString& folder) {
            offered = folder;
            return Path(made);
        };
        p.trigger("mnuFileNewFil");
        QCOMPARE(offered, Path(p.dir.path()));
        const auto made1 = LoadNamesFile(made).records;
        QVERIFY(made1.size() == 1 && made1[0].RecName == "Example");
        QCOMPARE(p.session.paths.NamesFilePath.filename().string(), std::string("NEWTEST.FIL"));
    }

    void windows1252NamesFileRoundTrips() {
        const std::string bytes = "Example,12 May 1959,10.43,A,6,75.23,39.45,\r\n"
                                  "Jos\xe9 M\xfcller,3 Feb 1971,4.05,P,3,46.38,23.33,\r\n";
        StartedProgram p([&](const ScratchAppDir& d) { d.Write("NAMES.FIL", bytes); });
        const fs::path names = p.dir.path() / "NAMES.FIL";
        const QString jose = QString::fromUtf8("José Müller");
        QCOMPARE(ListTexts(Names(p), "NamesOnFile"), QStringList({"Example", jose}));

        // Picked and calculated: the person of the line, not the one before.
        Pick(Names(p), "NamesOnFile", "Example");
        Pick(Names(p), "NamesOnFile", jose);
        QCOMPARE(Field(p, "txtName")->text(), jose);
        QCOMPARE(Field(p, "txtLongDeg")->text(), QString("46"));
        DoubleClickCurrent(p);
        QVERIFY(p.lastPage().find("José Müller") != std::string::npos);
        QCOMPARE(*ReadFileBytes(names), bytes);

        // The editor shows the letters and its Save writes the same bytes.
        p.trigger("mnuInputData");
        Click(Names(p), "cmdEditList");
        auto* editor = p.win(ui::win::NameEdit);
        QVERIFY(editor && Content(editor)->toPlainText().contains(jose));
        Click(editor, "btnSave");
        QCOMPARE(*ReadFileBytes(names), bytes);
    }
};

QTEST_MAIN(BirthDataWindowsTest)
#include "birthdata_windows_test.moc"
