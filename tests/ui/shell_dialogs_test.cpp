// Windows by name, the options editor, the file-selection and progress
// windows, the title and about windows.
#include <QFileSystemModel>
#include <QLabel>
#include <QTreeView>
#include <QtTest>

#include <cerrno>
#include <filesystem>

#include "ShellUiSupport.h"
#include "periphery/ui/About.h"
#include "shell/ui/Dialogs.h"
#include "shell/ui/Options.h"
#include "shell/ui/SelectFIle.h"
#include "shell/ui/StatusDlg.h"
#include "shell/ui/TITLE.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

class DialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void contextOpensWindowsByName() {
        Session s;
        test::RecordingDialogs* recorded = nullptr;
        auto context = test::MakeContext(s, recorded);
        ui::AppContext& ctx = *context;
        const ui::WindowName probe{"Probe"};
        int made = 0;
        ctx.registerWindow(probe, [&](ui::AppContext&, QWidget* parent) {
            ++made;
            return new QWidget(parent);
        });

        // Loaded once: a second show gives the same window. (Hiding, unloading
        // and closing by the frame are seen through the program's windows.)
        QWidget* w = ctx.showWindow(probe);
        QVERIFY(w && w->isVisible() && w->isWindow());
        QCOMPARE(ctx.showWindow(probe), w);
        QCOMPARE(made, 1);

        // A window that does not exist says so, once, and nothing is loaded.
        const ui::WindowName missing{"Missing"};
        QVERIFY(!ctx.showWindow(missing, "Missing window"));
        QCOMPARE(recorded->messages, (Messages{{"Missing window is not available yet.",
                                                "Information", Icon::Information}}));
        const ui::CommandName probeCommand{"ProbeCommand"};
        ctx.runCommand(probeCommand, "Probe Command");
        QCOMPARE(recorded->messages.back().text,
                 std::string("Probe Command is not available yet."));
        int ran = 0;
        ctx.registerCommand(probeCommand, [&](ui::AppContext&) { ++ran; });
        ctx.runCommand(probeCommand, "Probe Command");
        QCOMPARE(ran, 1);
    }

    void optionsSaveRestoreAndAFullDisk() {
        StartedProgram p(
            [](const test::ScratchAppDir& d) { d.Write("Kaltrova.INI", "FontSize=9\r\n"); });
        const fs::path file = p.dir.path() / "OPTIONS.OPT";
        const std::string opt = ReadFileBytes(file).value();
        const float option45 = p.session.options[45];
        p.trigger("mnuOptionOptionSettings");
        auto* w = p.win<ui::Options>(ui::win::Options);
        QVERIFY(w);
        QCOMPARE(w->windowTitle(), QString("Edit: OPTIONS.OPT"));
        test::SaveScreenshot(w, "options_window");
        auto* box = test::Content(w);
        QStringList lines = box->toPlainText().split('\n');
        lines[44] = "20     Lines per page when data is saved to a file";
        box->setPlainText(lines.join('\n'));

        // The disk fills after the first block of the new OPTIONS.OPT: the
        // file and the options as they were.
        {
            test::WriteFault full(WriteStep::Write, 1, ENOSPC);
            test::Click(w, "btnSave");
        }
        QCOMPARE(p.lastMessage(), "The file " + file.string() +
                                      " could not be written (the disk is full). The file on the "
                                      "disk has not been changed.");
        QCOMPARE(ReadFileBytes(file).value(), opt);
        QCOMPARE(p.session.options[45], option45);

        // Saved: the file is rewritten and the option is in effect at once.
        test::Click(w, "btnSave");
        QCOMPARE(p.session.options[45], 20.0f);
        QVERIFY(ReadFileBytes(file)->find(
                    "\r\n20     Lines per page when data is saved to a file\r\n") !=
                std::string::npos);
        QCOMPARE(ReadLines(file)->size(), SplitLines(opt).size());
        QVERIFY(w->isVisible());
        // Restore puts the master copy back into the file and the box; the
        // options in memory wait for the next save.
        test::Click(w, "cmdRestoreDefault");
        QCOMPARE(ReadFileBytes(file).value(), ReadFileBytes(p.dir.path() / "OPTIONS.MST").value());
        QVERIFY(box->toPlainText().split('\n')[44].startsWith("45"));
        QCOMPARE(p.session.options[45], 20.0f);
        test::Click(w, "btnQuit");
        QTRY_VERIFY(!p.ctx->window(ui::win::Options));

        // Kaltrova.INI at the end of the run: the old file stays, the user is told.
        {
            test::WriteFault full(WriteStep::Sync, 1, ENOSPC);
            p.main->mnuFileExit_Click();
        }
        QCOMPARE(ReadFileBytes(p.dir.path() / "Kaltrova.INI").value(),
                 std::string("FontSize=9\r\n"));
        QVERIFY(p.lastMessage().find("Kaltrova.INI could not be written") != std::string::npos);
    }

    void selectFileFiltersAndReturnsThePath() {
        test::ScratchAppDir dir;
        dir.Write("FRIENDS.FIL", "x\r\n");
        dir.Write("lower.fil", "x\r\n");
        Session s;
        s.paths.AppPath = dir.path();
        ui::AppContext ctx(s);
        bool emptied = false;
        QObject::connect(&ctx, &ui::AppContext::selectionListsEmptied, [&] { emptied = true; });

        ui::SelectFIle dlg(ctx);
        QCOMPARE(dlg.windowTitle(), QString("Select a File"));
        dlg.setPattern("*.FIL");
        const QStringList names = test::ListTexts(&dlg, "filList");
        for (const char* name : {"FRIENDS.FIL", "lower.fil", "NAMES.FIL"})
            QVERIFY2(names.contains(name), name);
        QVERIFY(!names.contains("NATAL.ORB"));
        dlg.show();
        test::SaveScreenshot(&dlg, "select_file_window");

        dlg.findChild<QListWidget*>("filList")->setCurrentRow(names.indexOf("FRIENDS.FIL"));
        test::Click(&dlg, "cmdSelect");
        QCOMPARE(dlg.SelectedFile().toStdString(), (dir.path() / "FRIENDS.FIL").string());
        QVERIFY(emptied);

        ui::SelectFIle other(ctx);
        other.setPattern("*.ORB");
        test::Click(&other, "cmdCancel");
        QVERIFY(other.SelectedFile().isEmpty());

        // Through the context, modally, driven by a timer.
        QTimer::singleShot(0, [&] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* d = qobject_cast<ui::SelectFIle*>(w)) {
                    auto* list = d->findChild<QListWidget*>("filList");
                    list->setCurrentRow(0);
                    emit list->itemDoubleClicked(list->item(0));
                }
        });
        QString chosen = ctx.selectFile("*.ORB");
        QVERIFY(chosen.endsWith(".ORB", Qt::CaseInsensitive));
    }

    void selectFileOpensOnTheFileInUse() {
        // A folder deep enough that the tree must scroll to show it.
        test::ScratchAppDir dir;
        const fs::path deep = dir.path() / "a" / "b" / "c" / "d" / "e" / "f" / "g" / "h";
        fs::create_directories(deep);
        for (const char* name : {"AAA.FIL", "NEWTEST.FIL", "ZZZ.FIL"})
            dir.Write((deep / name).lexically_relative(dir.path()).string(), "x\r\n");
        Session s;
        s.paths.AppPath = dir.path();
        ui::AppContext ctx(s);
        const QString current = QString::fromStdString((deep / "NEWTEST.FIL").string());

        // Enter takes the file in use, not the first of the folder.
        ui::QtDialogs dialogs;
        QString seenFolder;
        bool folderInView = false;
        QTimer::singleShot(0, [&] {
            auto* dlg = qobject_cast<ui::SelectFIle*>(QApplication::activeModalWidget());
            if (!dlg) return;
            auto* tree = dlg->findChild<QTreeView*>("dirList");
            auto* model = qobject_cast<QFileSystemModel*>(tree->model());
            auto inView = [tree] {
                return tree->viewport()->rect().contains(tree->visualRect(tree->currentIndex()));
            };
            // The folder is selected and in view once the folders above it are
            // read (they push it down the tree after the window opens).
            QTest::qWaitFor([&] { return model->rowCount(model->index(QDir::rootPath())) > 3; });
            QTest::qWaitFor(inView);
            QTest::qWait(200);
            seenFolder = model->filePath(tree->currentIndex());
            folderInView = inView();
            test::SaveScreenshot(dlg, "select_file_on_current");
            // Enter where the window puts the focus: the default button answers.
            QTest::keyClick(dlg->focusWidget() ? dlg->focusWidget() : dlg, Qt::Key_Return);
            if (dlg->isVisible()) dlg->reject();
        });
        QCOMPARE(dialogs.chooseFile(ctx, "*.FIL", current, nullptr), current);
        QCOMPARE(seenFolder, QString::fromStdString(deep.string()));
        QVERIFY(folderInView);
    }

    void progressFillsFromTheLeft() {
        QCOMPARE(ui::ProgressPercent(1, 4), 25.0);
        QCOMPARE(ui::ProgressPercent(9, 4), 100.0);
        QCOMPARE(ui::ProgressPercent(1, 0), 0.0);
        ui::StatusDlg dlg;
        QVERIFY(dlg.isVisible());
        QCOMPARE(dlg.windowTitle(), QString("% Completed"));
        dlg.resize(400, 60);
        dlg.ShowProgress(1, 4);
        QImage img = dlg.Picture2->grab().toImage();
        const int y = img.height() / 2;
        QCOMPARE(QColor(img.pixel(5, y)), QColor(255, 0, 0));
        QCOMPARE(QColor(img.pixel(img.width() * 3 / 10, y)), QColor(Qt::white));
        QCOMPARE(QColor(img.pixel(img.width() * 2 / 10, y)), QColor(255, 0, 0));
    }

    void titleWaitsForContinue() {
        ui::TITLE title;
        QVERIFY(title.isVisible());
        auto* ok = title.findChild<QPushButton*>("cmdOK");
        QCOMPARE(ok->text(), QString("Continue"));
        QVERIFY(!ok->isVisible());
        QCOMPARE(title.findChild<QLabel*>("Label2")->text(), QString("Version 1.00"));
        QVERIFY(title.findChild<QLabel*>("Label6")->text().startsWith("For a listing of changes"));
        title.showContinue();
        QVERIFY(ok->isVisible());
        test::SaveScreenshot(&title, "title_window");
        QTimer::singleShot(0, ok, &QPushButton::click);
        title.waitForContinue();
        QCOMPARE(title.TitleDismissed(), 1);
        QVERIFY(!title.isVisible());
    }

    void aboutShowsTheVersionAndClosesOnClick() {
        ui::About about;
        about.show();
        QCOMPARE(about.findChild<QLabel*>("Label1")->text(), QString("Version  1.00"));
        // The atlas's data is credited.
        QVERIFY(about.findChild<QLabel*>("Label4")->text().contains("GeoNames (www.geonames.org)"));
        test::SaveScreenshot(&about, "about_window");
        // The name is drawn in yellow on top of its shadow.
        QImage img = about.grab().toImage();
        bool yellow = false;
        for (int x = 0; x < img.width() && !yellow; ++x)
            for (int y = 0; y < 110 && !yellow; ++y)
                yellow = QColor(img.pixel(x, y)) == QColor(255, 255, 0);
        QVERIFY(yellow);
        QTest::mouseClick(&about, Qt::LeftButton);
        QVERIFY(!about.isVisible());
    }
};

QTEST_MAIN(DialogsTest)
#include "shell_dialogs_test.moc"
