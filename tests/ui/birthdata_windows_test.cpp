// The birth-data windows: the input window, the names window with its
// editor and record writer, the cities window, the time-zone list, and the
// typical request from a pick to the data page.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QtTest>

#include <cerrno>
#include <filesystem>

#include "ShellUiSupport.h"
#include "base/TextFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/ui/Geograph.h"
#include "birthdata/ui/InputD.h"
#include "birthdata/ui/Names.h"
#include "birthdata/ui/TimeZone.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

template <class T = QWidget> T* Win(StartedProgram& p, ui::WindowName name) {
    return qobject_cast<T*>(p.ctx->window(name));
}

QLineEdit* Field(StartedProgram& p, const char* name) {
    return Win(p, ui::win::InputD)->findChild<QLineEdit*>(name);
}

bool Checked(StartedProgram& p, const char* name) {
    return Win(p, ui::win::InputD)->findChild<QRadioButton*>(name)->isChecked();
}

void Click(QWidget* w, const char* button) {
    auto* b = w->findChild<QPushButton*>(button);
    QVERIFY2(b, button);
    b->click();
}

// Picks a list entry the way a mouse click does.
void Pick(QWidget* window, const char* list, const QString& text) {
    auto* l = window->findChild<QListWidget*>(list);
    QVERIFY(l);
    auto items = l->findItems(text, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(text));
    l->setCurrentItem(items.first());
    emit l->itemClicked(items.first());
}

QStringList ListTexts(QWidget* window, const char* list) {
    QStringList out;
    auto* l = window->findChild<QListWidget*>(list);
    for (int i = 0; i < l->count(); ++i) out << l->item(i)->text();
    return out;
}

std::string LastPage(StartedProgram& p) {
    return ReadFileBytes(p.dir.path() / "reports" / "LASTPAGE.TXT").value_or("");
}

} // namespace

class BirthDataWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void typicalRequestFromPickToPage();
    void newPersonSavedAndSavedAgain();
    void malformedNamesLineIsReported();
    void lockListReselectsOnReload();
    void inputFieldRules();
    void citiesPickAndEditor();
    void namesEditorKeepsTheLastLineAndTheFile();
    void fileSelectionStartsOnTheFileInUse();
    void refusedSaveReloadsTheList();
    void windows1252NamesFileRoundTrips();
    void timeZoneListBesideTheInputWindow();
    void makeNewNamesFile();
    void screenshots();
};

void BirthDataWindowsTest::typicalRequestFromPickToPage() {
    StartedProgram p;
    QVERIFY(Win(p, ui::win::InputD) && Win(p, ui::win::InputD)->isVisible());
    QVERIFY(Win(p, ui::win::Names) && Win(p, ui::win::Names)->isVisible());
    QCOMPARE(Field(p, "txtName")->text(), QString("Now"));
    QCOMPARE(Win(p, ui::win::Names)->findChild<QLabel*>("lblNamesOnFile")->text(),
             QString("NAMES.FIL"));
    // The list sets its first current item by itself when it takes the focus;
    // that is no pick, and the input window keeps "Now".
    Win(p, ui::win::Names)->activateWindow();
    Win(p, ui::win::Names)->findChild<QListWidget*>("NamesOnFile")->setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(Field(p, "txtName")->text(), QString("Now"));

    Pick(Win(p, ui::win::Names), "NamesOnFile", "Example");
    QCOMPARE(Field(p, "txtName")->text() + " " + Field(p, "txtMonth")->text() + "/" +
                 Field(p, "txtDay")->text() + " " + Field(p, "txtBirthHour")->text() + ":" +
                 Field(p, "txtBirthMinute")->text(),
             QString("Example 5/12 10:43"));

    Click(Win(p, ui::win::InputD), "cmdOK");
    QVERIFY(!Win(p, ui::win::InputD)->isVisible() && !Win(p, ui::win::Names)->isVisible());
    QVERIFY(Win(p, ui::win::OutputD1) && Win(p, ui::win::OutputD1)->isVisible());
    std::string page = LastPage(p);
    QVERIFY(page.find("Example") != std::string::npos);
    QVERIFY(page.find("Placidus") != std::string::npos);

    // A house-system toggle recalculates the same record with the new system.
    p.trigger("mnuHouseKoch");
    page = LastPage(p);
    QVERIFY(page.find("Example") != std::string::npos);
    QVERIFY(page.find("Koch") != std::string::npos);

    // The Input command brings the windows back with the fields kept.
    p.trigger("mnuInputData");
    QVERIFY(Win(p, ui::win::InputD)->isVisible() && Win(p, ui::win::Names) &&
            Win(p, ui::win::Names)->isVisible());
    QCOMPARE(Field(p, "txtName")->text(), QString("Example"));

    // A double click in the names list calculates at once, and like OK
    // leaves the data window alone on the screen.
    Pick(Win(p, ui::win::Names), "NamesOnFile", "Albert Einstein");
    auto* list = Win(p, ui::win::Names)->findChild<QListWidget*>("NamesOnFile");
    emit list->itemDoubleClicked(list->currentItem());
    QCoreApplication::processEvents();
    QVERIFY(LastPage(p).find("Albert Einstein") != std::string::npos);
    QVERIFY(!Win(p, ui::win::InputD)->isVisible());
    QVERIFY(!Win(p, ui::win::Names) || !Win(p, ui::win::Names)->isVisible());
    QVERIFY(Win(p, ui::win::OutputD1)->isVisible());
}

void BirthDataWindowsTest::newPersonSavedAndSavedAgain() {
    StartedProgram p;
    const fs::path names = p.dir.path() / "NAMES.FIL";
    const size_t before = LoadNamesFile(names).records.size();
    QStringList patterns;
    p.dialogs->onChooseFile = [&](const QString& pattern) {
        patterns << pattern;
        return QString::fromStdString(names.string());
    };
    std::vector<Message> asked;
    p.dialogs->onQuestion = [&](const Message& m) {
        asked.push_back(m);
        return QMessageBox::No;
    };

    // A comma in the name is refused before any file is asked for.
    auto* input = Win(p, ui::win::InputD);
    Field(p, "txtName")->setText("Smith, John");
    Click(input, "cmdSave");
    QVERIFY(p.dialogs->saw(
        "You cannot have a comma in the name. Please remove the comma and try again."));
    QVERIFY(patterns.isEmpty());

    Click(input, "cmdNow");
    Field(p, "txtName")->setText("Jane Doe");
    Click(input, "cmdSave");
    QVERIFY(asked.empty());
    QVERIFY(ListTexts(Win(p, ui::win::Names), "NamesOnFile").contains("Jane Doe"));
    QCOMPARE(LoadNamesFile(names).records.size(), before + 1);
    QCOMPARE(patterns, QStringList({"*.FIL"}));

    // The same name again, answered No: both records stay, with a backup.
    Click(input, "cmdSave");
    QCOMPARE(asked.size(), size_t(1));
    QCOMPARE(asked[0].caption, std::string("Jane Doe already exists"));
    auto recs = LoadNamesFile(names).records;
    QCOMPARE(recs.size(), before + 2);
    QCOMPARE(recs[recs.size() - 2].RecName, std::string("Jane Doe"));
    QCOMPARE(recs.back().RecName, std::string("Jane Doe"));
    QCOMPARE(LoadNamesFile(p.dir.path() / "NAMES.OLD").records.size(), before + 1);
}

void BirthDataWindowsTest::malformedNamesLineIsReported() {
    StartedProgram p([](const test::ScratchAppDir& d) {
        d.Write("NAMES.FIL", "Example,12 May 1959,10.43,A,6,75.23,39.45,e@x.org\r\n"
                             "Broken line without fields\r\n"
                             "Ann Lee,3 Feb 1971,4.05,P,5,71.04,42.21,\r\n");
    });
    QVERIFY(p.dialogs->saw(NamesFileLineError().text));
    QCOMPARE(ListTexts(Win(p, ui::win::Names), "NamesOnFile"), QStringList({"Example", "Ann Lee"}));

    // A record that cannot be converted: the format error, later fields kept.
    p.dialogs->messages.clear();
    Field(p, "txtEmail")->setText("kept@x.org");
    auto* names = Win<ui::Names>(p, ui::win::Names);
    const_cast<std::vector<BirthRecord>&>(names->records())[1].RecLat = "4x";
    Pick(names, "NamesOnFile", "Ann Lee");
    QVERIFY(p.dialogs->saw(RecordFormatError().text));
    QCOMPARE(Field(p, "txtLongDeg")->text(), QString("71"));
    QCOMPARE(Field(p, "txtEmail")->text(), QString("kept@x.org"));
}

void BirthDataWindowsTest::lockListReselectsOnReload() {
    StartedProgram p;
    auto* names = Win(p, ui::win::Names);
    Pick(names, "NamesOnFile", "Sigmund Freud"); // row 2
    names->findChild<QCheckBox*>("Check1")->click();
    Click(Win(p, ui::win::InputD), "cmdOK");
    QVERIFY(p.action("mnuData")->isEnabled());
    Field(p, "txtName")->setText("Typed over");

    // The Input command re-reads the list; a locked list picks the entry again.
    p.trigger("mnuInputData");

    auto* list = Win(p, ui::win::Names)->findChild<QListWidget*>("NamesOnFile");
    QCOMPARE(list->currentRow(), 2);
    QCOMPARE(Field(p, "txtName")->text(), QString("Sigmund Freud"));
    QVERIFY(Win(p, ui::win::Names)->findChild<QCheckBox*>("Check1")->isChecked());
}

void BirthDataWindowsTest::inputFieldRules() {
    StartedProgram p;
    auto* input = Win(p, ui::win::InputD);
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
    QCOMPARE(p.dialogs->messages.back().text,
             std::string("Please fill in a value for birth hour."));
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
}

void BirthDataWindowsTest::citiesPickAndEditor() {
    StartedProgram p;
    Click(Win(p, ui::win::Names), "Command1");
    QCoreApplication::processEvents();
    auto* geo = Win<ui::Geograph>(p, ui::win::Geograph);
    QVERIFY(geo && geo->isVisible() && !Win(p, ui::win::Names));
    QCOMPARE(geo->findChild<QLabel*>("lblCitiesOnFile")->text(), QString("GA_MA.LL"));

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

    // The editor saves the text and Quit re-reads the list.
    Click(geo, "cmdEditList");
    auto* editor = Win(p, ui::win::LongLat);
    QVERIFY(editor && editor->windowTitle().startsWith("Edit: "));
    editor->findChild<QPlainTextEdit*>("txtContent")
        ->setPlainText("Lagos,NG,03E24,06N27,-1\nBad,XX\n");
    Click(editor, "btnSave");
    QCOMPARE(*ReadFileBytes(p.dir.path() / "GA_MA.LL"),
             std::string("Lagos,NG,03E24,06N27,-1\r\nBad,XX\r\n"));
    Click(editor, "btnQuit");
    QCoreApplication::processEvents();
    geo = Win<ui::Geograph>(p, ui::win::Geograph);
    QCOMPARE(ListTexts(geo, "CitiesOnFile"), QStringList({"Lagos,NG"}));
    QVERIFY(p.dialogs->saw(CitiesFileLineError().text));
}

void BirthDataWindowsTest::namesEditorKeepsTheLastLineAndTheFile() {
    StartedProgram p;
    const fs::path names = p.dir.path() / "NAMES.FIL";
    const std::string before = *ReadFileBytes(names);
    Click(Win(p, ui::win::Names), "cmdEditList");
    auto* editor = Win(p, ui::win::NameEdit);
    QVERIFY(editor);
    auto* box = editor->findChild<QPlainTextEdit*>("txtContent");

    // A disk that fills while the new file is written: the names file is
    // whole and the user is told.
    box->setPlainText(box->toPlainText() + "Added,12 May 1959,10.43,A,6,75.23,39.45,\n");
    {
        test::WriteFault full(WriteStep::Write, 1, ENOSPC);
        Click(editor, "btnSave");
    }
    QCOMPARE(*ReadFileBytes(names), before);
    QVERIFY(p.dialogs->messages.back().text.find("NAMES.FIL could not be written (the disk is "
                                                 "full)") != std::string::npos);

    // A last line typed without a line break is saved whole.
    box->setPlainText("Broken,abc");
    Click(editor, "btnSave");
    QCOMPARE(*ReadFileBytes(names), std::string("Broken,abc\r\n"));
}

void BirthDataWindowsTest::fileSelectionStartsOnTheFileInUse() {
    StartedProgram p([](const test::ScratchAppDir& d) {
        d.Write("NEWTEST.FIL", "Other,1 Jan 1960,1.00,P,5,71.04,42.21,\r\n");
        d.Write("MINE.LL", "Lagos,NG,03E24,06N27,-1\r\n");
    });
    const QString newtest = QString::fromStdString((p.dir.path() / "NEWTEST.FIL").string());
    const QString names = QString::fromStdString((p.dir.path() / "NAMES.FIL").string());
    const QString mine = QString::fromStdString((p.dir.path() / "MINE.LL").string());
    p.dialogs->onChooseFile = [&](const QString& pattern) {
        return pattern == "*.LL" ? mine : newtest;
    };

    // Change List opens on NAMES.FIL; Save to disk then opens on the list
    // chosen, so that Select keeps it.
    Click(Win(p, ui::win::Names), "cmdNewFileList");
    QCOMPARE(p.dialogs->chosenFrom, QStringList({names}));
    Field(p, "txtName")->setText("Saved Here");
    Click(Win(p, ui::win::InputD), "cmdSave");
    QCOMPARE(p.dialogs->chosenFrom.last(), newtest);
    QVERIFY(ListTexts(Win(p, ui::win::Names), "NamesOnFile").contains("Saved Here"));

    // The cities window with its own file.
    Click(Win(p, ui::win::Names), "Command1");
    QCoreApplication::processEvents();
    Click(Win(p, ui::win::Geograph), "cmdNewFileList");
    QVERIFY(p.dialogs->chosenFrom.last().endsWith("GA_MA.LL"));
    Click(Win(p, ui::win::Geograph), "cmdNewFileList");
    QCOMPARE(p.dialogs->chosenFrom.last(), mine);
}

void BirthDataWindowsTest::refusedSaveReloadsTheList() {
    StartedProgram p;
    const fs::path names = p.dir.path() / "NAMES.FIL";
    const QStringList before = ListTexts(Win(p, ui::win::Names), "NamesOnFile");
    // The file selection empties the lists when it closes, as Select does.
    p.dialogs->onChooseFile = [&](const QString&) {
        emit p.ctx->selectionListsEmptied();
        return QString::fromStdString(names.string());
    };
    Field(p, "txtName")->setText("Not Saved");
    {
        test::WriteFault full(WriteStep::Write, 1, ENOSPC);
        Click(Win(p, ui::win::InputD), "cmdSave");
    }
    QVERIFY(p.dialogs->messages.back().text.find("NAMES.FIL has not been changed") !=
            std::string::npos);
    QCOMPARE(ListTexts(Win(p, ui::win::Names), "NamesOnFile"), before);
    QCOMPARE(Field(p, "txtName")->text(), QString("Not Saved"));
}

void BirthDataWindowsTest::windows1252NamesFileRoundTrips() {
    const std::string bytes = "Example,12 May 1959,10.43,A,6,75.23,39.45,\r\n"
                              "Jos\xe9 M\xfcller,3 Feb 1971,4.05,P,3,46.38,23.33,\r\n";
    StartedProgram p([&](const test::ScratchAppDir& d) { d.Write("NAMES.FIL", bytes); });
    const fs::path names = p.dir.path() / "NAMES.FIL";
    auto* list = Win(p, ui::win::Names)->findChild<QListWidget*>("NamesOnFile");
    QCOMPARE(ListTexts(Win(p, ui::win::Names), "NamesOnFile"),
             QStringList({"Example", QString::fromUtf8("José Müller")}));

    // Picked and calculated: the person of the line, not the one before.
    Pick(Win(p, ui::win::Names), "NamesOnFile", "Example");
    Pick(Win(p, ui::win::Names), "NamesOnFile", QString::fromUtf8("José Müller"));
    QCOMPARE(Field(p, "txtName")->text(), QString::fromUtf8("José Müller"));
    QCOMPARE(Field(p, "txtLongDeg")->text(), QString("46"));
    emit list->itemDoubleClicked(list->currentItem());
    QCoreApplication::processEvents();
    QVERIFY(LastPage(p).find("José Müller") != std::string::npos);
    QCOMPARE(*ReadFileBytes(names), bytes);

    // The editor shows the letters and its Save writes the same bytes.
    p.trigger("mnuInputData");
    Click(Win(p, ui::win::Names), "cmdEditList");
    auto* editor = Win(p, ui::win::NameEdit);
    QVERIFY(editor);
    auto* box = editor->findChild<QPlainTextEdit*>("txtContent");
    QVERIFY(box->toPlainText().contains(QString::fromUtf8("José Müller")));
    Click(editor, "btnSave");
    QCOMPARE(*ReadFileBytes(names), bytes);
}

void BirthDataWindowsTest::timeZoneListBesideTheInputWindow() {
    StartedProgram p;
    auto* input = Win<ui::InputD>(p, ui::win::InputD);
    input->move(100, 120);
    input->findChild<QLabel*>("Label1")->setFocus();
    QTest::mouseClick(input->findChild<QLabel*>("Label1"), Qt::LeftButton);
    auto* tz = Win<ui::TimeZone>(p, ui::win::TimeZone);
    QVERIFY(tz && tz->isVisible());
    QCOMPARE(tz->x(), input->frameGeometry().right() + 1);

    const auto india =
        ListTexts(tz, "lstTimeZones").filter(QRegularExpression("^India Standard Time"));
    QCOMPARE(india.size(), 1);
    Pick(tz, "lstTimeZones", india[0]);
    QCOMPARE(Field(p, "txtTZ")->text(), QString("-5.5"));
    QVERIFY(Checked(p, "optEast"));
    QVERIFY(tz->isVisible()); // stays open for another pick

    // OK unloads the list.
    Click(input, "cmdOK");
    QCoreApplication::processEvents();
    QVERIFY(!Win(p, ui::win::TimeZone));
}

void BirthDataWindowsTest::makeNewNamesFile() {
    StartedProgram p;
    const fs::path made = p.dir.path() / "NEW.FIL";
    QString offered;
    p.dialogs->onNewNamesFile = [&](const QString& folder) {
        offered = folder;
        return QString::fromStdString(made.string());
    };
    p.trigger("mnuFileNewFil");
    QCOMPARE(offered, QString::fromStdString(p.dir.path().string()));
    QCOMPARE(LoadNamesFile(made).records.size(), size_t(1));
    QCOMPARE(p.session.paths.NamesFilePath.filename().string(), std::string("NAMES.FIL"));

    // "Change List" opens it through the file selection.
    p.dialogs->onChooseFile = [&](const QString&) { return QString::fromStdString(made.string()); };
    Click(Win(p, ui::win::Names), "cmdNewFileList");
    QCOMPARE(Win(p, ui::win::Names)->findChild<QLabel*>("lblNamesOnFile")->text(),
             QString("NEW.FIL"));
    QCOMPARE(ListTexts(Win(p, ui::win::Names), "NamesOnFile"), QStringList({"Example"}));
}

void BirthDataWindowsTest::screenshots() {
    StartedProgram p;
    Pick(Win(p, ui::win::Names), "NamesOnFile", "Example");
    test::SaveScreenshot(Win(p, ui::win::InputD), "birthdata_InputD");
    test::SaveScreenshot(Win(p, ui::win::Names), "birthdata_Names");
    QTest::mouseClick(Win(p, ui::win::InputD)->findChild<QLabel*>("Label1"), Qt::LeftButton);
    test::SaveScreenshot(Win(p, ui::win::TimeZone), "birthdata_TimeZone");
    Click(Win(p, ui::win::Names), "Command1");
    QCoreApplication::processEvents();
    test::SaveScreenshot(Win(p, ui::win::Geograph), "birthdata_Geograph");
    Click(Win(p, ui::win::Geograph), "cmdEditList");
    test::SaveScreenshot(Win(p, ui::win::LongLat), "birthdata_LongLat");
    QVERIFY(fs::exists(fs::path(KALTROVA_SCREENSHOTS) / "birthdata_LongLat.png"));
}

QTEST_MAIN(BirthDataWindowsTest)
#include "birthdata_windows_test.moc"
