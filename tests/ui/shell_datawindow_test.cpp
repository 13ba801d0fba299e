// The data window and the print window: saved bytes, Save As, the buffer
// messages, font steps, Escape, printing to a PDF file; screenshots.
#include <QFileInfo>
#include <QPrinter>
#include <QStatusBar>
#include <QtTest>

#include <cerrno>
#include <filesystem>

#include "ShellUiSupport.h"
#include "shell/DataFile.h"
#include "shell/ui/PrntFile.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

ui::OutputD1* DataWindow(StartedProgram& p) {
    return p.win<ui::OutputD1>(ui::win::OutputD1);
}

QAction* DataAction(StartedProgram& p, const char* name) {
    return DataWindow(p)->findChild<QAction*>(name);
}

} // namespace

class DataWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void pageNeverStaleAndSavedUnderTheFirstName() {
        StartedProgram p;
        QVERIFY(p.calculate(test::kExampleRecord));
        const std::string before = p.lastPage();
        const fs::path pageFile = LastPagePath(p.dir.path());

        // The disk fills while the next person's page is written: the user is
        // told, and the data window shows Mary's page, not Example's.
        {
            test::WriteFault full(WriteStep::Write, 1, ENOSPC);
            QVERIFY(p.calculate(test::kMaryRecord));
        }
        QCOMPARE(p.lastMessage(),
                 "The page could not be written to " + pageFile.string() +
                     " (the disk is full); the file still holds the page before it.");
        QCOMPARE(p.lastPage(), before);
        QVERIFY(p.dataText().contains("Mary Jane Smith") && !p.dataText().contains("Example"));
        // A listing command the same way.
        {
            test::WriteFault full(WriteStep::Rename, 1, EROFS);
            p.trigger("mnuDataCosmicState");
        }
        QVERIFY(p.lastMessage().find("(the disk is read-only)") != std::string::npos);
        QVERIFY(p.dataText().contains("Mary Jane Smith"));
        QCOMPARE(p.lastPage(), before);

        QString folder, proposed;
        p.dialogs->onSaveAs = [&](const QString& f, const QString& name) {
            folder = f;
            proposed = name;
            return QString();
        };
        // Save with no file name yet runs Save As; cancelling writes nothing.
        DataAction(p, "mnuFileSave")->trigger();
        QCOMPARE(proposed, QString("Mary.txt"));
        QCOMPARE(folder.toStdString(), p.dir.path().string());
        QVERIFY(p.session.paths.OutputFileName.empty());

        const fs::path chosen = p.dir.path() / "Mary.txt";
        p.dialogs->onSaveAs = [&](const QString&, const QString&) {
            return QString::fromStdString(chosen.string());
        };
        DataAction(p, "mnuFileSaveAs")->trigger();
        QCOMPARE(p.session.paths.OutputFileName, chosen.string());
        QCOMPARE(ReadFileBytes(chosen).value(),
                 SavedDataBytes(p.session.listing.out.AllLines, p.session.options[45]));

        // Save writes the same file again without asking, paged by option 45.
        p.dialogs->onSaveAs = nullptr;
        for (int i = 1; i <= 100; ++i) p.session.listing.out.Append("line " + std::to_string(i));
        p.session.options[45] = 60;
        DataAction(p, "mnuFileSave")->trigger();
        const auto saved = ReadFileBytes(chosen).value();
        QCOMPARE(saved, SavedDataBytes(p.session.listing.out.AllLines, 60));
        QVERIFY(saved.find("\f") != std::string::npos);

        // Clear Buffer.
        const QString shown = p.dataText();
        const size_t pageCount = p.session.listing.out.PageCount();
        DataAction(p, "mnuClearBuffer")->trigger();
        QCOMPARE(p.dialogs->messages.back(),
                 (Message{"All data cleared from buffer.", "Information!", Icon::Exclamation}));
        QCOMPARE(p.session.listing.out.AllCount(), size_t(0));
        // The page and the text stay, through Escape and a right click too.
        QCOMPARE(p.session.listing.out.PageCount(), pageCount);
        auto* text = DataWindow(p)->RichText1;
        text->setFocus();
        QTest::keyClick(text, Qt::Key_Escape);
        QTest::mouseClick(text->viewport(), Qt::RightButton);
        QCOMPARE(text->toPlainText(), shown);

        p.dialogs->messages.clear();
        DataAction(p, "mnuFileSave")->trigger();
        DataAction(p, "mnuPrintData")->trigger();
        QCOMPARE(p.dialogs->messages,
                 (Messages{{"No data to write to file.", "Information", Icon::Exclamation},
                           {"No data to print.", "Information", Icon::Exclamation}}));

        // Printing an empty page does nothing at all.
        p.session.listing.out.ClearDataPage();
        p.dialogs->messages.clear();
        DataAction(p, "mnuPrint")->trigger();
        QVERIFY(p.dialogs->messages.empty());
        QVERIFY(!p.ctx->window(ui::win::PrntFile));
    }

    void printWindowAndFontSteps() {
        StartedProgram p;
        QVERIFY(p.calculate(test::kExampleRecord));
        auto* data = DataWindow(p);
        p.main->move(0, 0);
        data->move(0, p.main->frameGeometry().bottom() + 1);
        test::SaveScreenshot(p.main.get(), "main_window");
        test::SaveScreenshot(data, "data_window_chart_page");

        DataAction(p, "mnuPrint")->trigger();
        auto* print = p.ctx->windowAs<ui::PrntFile>(ui::win::PrntFile);
        QVERIFY(print && print->isVisible());
        QCOMPARE(print->windowTitle(), QString("Data To Be Printed"));
        auto* box = print->findChild<QPlainTextEdit*>("RichtxtContent");
        QVERIFY(box);
        QCOMPARE(box->toPlainText(), QString::fromStdString(PageText(p.session.listing.out, "\n")));
        test::SaveScreenshot(print, "print_window");

        // Edit, print to a PDF file; the edited text goes back to the print file.
        box->moveCursor(QTextCursor::Start);
        box->insertPlainText("EDITED FIRST LINE\n\f\n");
        const QString pdf = QString::fromStdString((p.dir.path() / "printed.pdf").string());
        p.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(pdf);
            return true;
        };
        print->findChild<QPushButton*>("btnPrint")->click();
        QVERIFY(QFileInfo(pdf).size() > 1000);
        auto printed = ReadFileBytes(PrintFilePath(p.dir.path())).value();
        QVERIFY(printed.rfind("EDITED FIRST LINE\r\n\f\r\n", 0) == 0);
        QTRY_VERIFY(!p.ctx->window(ui::win::PrntFile));

        // Cancel closes without printing.
        DataAction(p, "mnuPrint")->trigger();
        print = p.ctx->windowAs<ui::PrntFile>(ui::win::PrntFile);
        QVERIFY(print);
        fs::remove(pdf.toStdString());
        print->findChild<QPushButton*>("btnCancel")->click();
        QVERIFY(!fs::exists(pdf.toStdString()));
        QTRY_VERIFY(!p.ctx->window(ui::win::PrntFile));

        // Print data holds every line since the last clear. Over option 117
        // (80) but not 118 (100): the last long line decides the font class.
        p.session.options[117] = 80;
        p.session.options[118] = 100;
        p.session.listing.out.Append(std::string(120, 'x'));
        p.session.listing.out.Append(std::string(90, 'y'));
        DataAction(p, "mnuPrintData")->trigger();
        print = p.ctx->windowAs<ui::PrntFile>(ui::win::PrntFile);
        QVERIFY(print);
        QCOMPARE(print->PrintWidthClass, 1);
        const QString text = print->findChild<QPlainTextEdit*>("RichtxtContent")->toPlainText();
        QVERIFY(text.startsWith(QString(80, '-')) && text.contains(QString(90, 'y')));

        QAction* inc = DataAction(p, "mnuFontsIncrease");
        QAction* dec = DataAction(p, "mnuFontsDecrease");

        // Steps of half the wheel scale between 8 and 12; a step may end past
        // the bound but none starts beyond it.
        p.ctx->display().settings.ListFontSize = 11.5;
        inc->trigger();
        QCOMPARE(data->RichText1->font().pointSizeF(), 12.25);
        QVERIFY(!inc->isEnabled() && dec->isEnabled());
        inc->trigger();
        QCOMPARE(p.ctx->display().settings.ListFontSize, 12.25);

        p.ctx->display().settings.ListFontSize = 8.75;
        dec->trigger();
        QCOMPARE(p.ctx->display().settings.ListFontSize, 8.0);
        QVERIFY(!dec->isEnabled() && inc->isEnabled());
        p.ctx->display().WheelScale = 1.2;
        inc->trigger();
        QCOMPARE(p.ctx->display().settings.ListFontSize, 8.6);

        QAction* bold = DataAction(p, "mnuFontsBold");
        bold->trigger();
        QCOMPARE(p.ctx->display().settings.ListFontBold, -1.0);
        QVERIFY(bold->isChecked() && data->RichText1->font().bold());
        bold->trigger();
        QCOMPARE(p.ctx->display().settings.ListFontBold, 0.0);
        QVERIFY(!data->RichText1->font().bold());
        DataAction(p, "mnuFontsItalic")->trigger();
        QCOMPARE(p.ctx->display().settings.ListFontItalic, -1.0);
        QVERIFY(data->RichText1->font().italic());

        // The page is shown again after each step, in a fixed-pitch face.
        QVERIFY(data->RichText1->toPlainText().contains("Example"));
        QVERIFY(QFontInfo(data->RichText1->font()).fixedPitch());
    }

    void whatTheEphemerisSaysReachesTheUser() {
        // No ephemeris folder: the analytical model stands in, named once in
        // the data window's status line.
        StartedProgram p([](const test::ScratchAppDir& d) { fs::remove(d.path() / "ephems"); });
        QVERIFY(p.calculate(test::kExampleRecord));
        QVERIFY(p.dialogs->messages.empty());
        auto* status = DataWindow(p)->findChild<QStatusBar*>();
        QVERIFY(status);
        QCOMPARE(status->currentMessage().toStdString(),
                 "positions from the analytical model: no ephemeris file for this date in " +
                     (p.dir.path() / "ephems").string());
        QCoreApplication::processEvents();
        test::SaveScreenshot(DataWindow(p), "data_window_analytical_model");
        p.trigger("mnuInputData");
        QVERIFY(p.calculate(test::kMaryRecord));
        auto* again = DataWindow(p)->findChild<QStatusBar*>();
        QVERIFY(!again || again->currentMessage().isEmpty());

        // A damaged planet file: an error, the chart and the page as they were.
        StartedProgram d([](const test::ScratchAppDir& dir) {
            fs::remove(dir.path() / "ephems");
            fs::create_directory(dir.path() / "ephems");
            for (const auto& e : fs::directory_iterator(test::AppDir() / "ephems"))
                if (e.path().filename() != "sepl_18.se1")
                    fs::create_symlink(fs::canonical(e.path()),
                                       dir.path() / "ephems" / e.path().filename());
            dir.Write("ephems/sepl_18.se1", std::string(1000, 'x'));
        });
        QVERIFY(!d.calculate(test::kExampleRecord));
        QCOMPARE(d.dialogs->messages.size(), size_t(1));
        QVERIFY(d.dialogs->messages[0].text.starts_with(
            "The positions could not be calculated for this date (Ephemeris file "));
        QCOMPARE(d.dialogs->messages[0].caption, std::string("Error!"));
        QVERIFY(!fs::exists(d.dir.path() / "reports" / "LASTPAGE.TXT"));
        QVERIFY(!d.action("mnuData")->isEnabled());
    }
};

QTEST_MAIN(DataWindowTest)
#include "shell_datawindow_test.moc"
