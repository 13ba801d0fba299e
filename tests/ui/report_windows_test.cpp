// The natal report's windows: the command with its data page and viewer,
// the viewer's moves by button and key, Save and Save As in n_report with
// the report's pages, printing to a PDF file, and the personal header
// editor; screenshots.
#include <QFileInfo>
#include <QPrinter>
#include <QRegularExpression>
#include <QtTest>

#include <filesystem>

#include "ShellUiSupport.h"
#include "report/ui/P_Name.h"
#include "report/ui/Report.h"
#include "shell/ui/StatusDlg.h"

using namespace kal;
using namespace kal::test;
namespace fs = std::filesystem;

namespace {

ui::Report* Viewer(StartedProgram& p) {
    return p.win<ui::Report>(ui::win::Report);
}

// A report of `n` lines "line 0" .. and the viewer opened on it.
ui::Report* OpenOn(StartedProgram& p, int n) {
    p.session.report.Lines.Clear();
    for (int k = 0; k < n; ++k) p.session.report.Lines.Append("line " + std::to_string(k));
    p.ctx->unloadWindow(ui::win::Report);
    return qobject_cast<ui::Report*>(p.ctx->showWindow(ui::win::Report));
}

QString FirstLine(ui::Report* r) {
    return Content(r)->toPlainText().section('\n', 0, 0);
}

int PdfPages(const QString& file) {
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly)) return -1;
    return static_cast<int>(
        QString::fromLatin1(f.readAll()).count(QRegularExpression("/Type\\s*/Page[^s]")));
}

} // namespace

class ReportWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void reportCommandShowsTheDataPageTheViewerAndPrints() {
        StartedProgram p;
        QVERIFY(p.calculate(test::kExampleRecord));
        p.trigger("mnuReportNatal");
        QVERIFY(p.dialogs->messages.empty());
        auto* viewer = Viewer(p);
        QVERIFY(viewer && viewer->isVisible());
        QCOMPARE(viewer->windowTitle(), QString("Kaltrova (Tropical zodiac) - REPORT"));
        // The first screen: 23 lines of the title page. The report's and the data
        // page's lines are the command's, compared in the command-line tests.
        const QString text = Content(viewer)->toPlainText();
        QCOMPARE(text.count('\n'), 23);
        QCOMPARE(text.section('\n', 7, 7), QString(37, ' ') + "EXAMPLE");
        // The data window shows the natal data and the natal aspects.
        auto* data = p.ctx->windowAs<ui::OutputD1>(ui::win::OutputD1);
        QVERIFY(data && data->isVisible());
        QVERIFY(data->RichText1->toPlainText().contains("NATAL PLANET ASPECTS TO NATAL PLANETS"));
        // The progress window has gone.
        QVERIFY(!p.main->findChild<ui::StatusDlg*>());

        // Down to the rising sign's passage for the picture.
        while (!Content(viewer)->toPlainText().contains("LEO RISING")) Click(viewer, "cmdPageDOWN");
        test::SaveScreenshot(viewer, "report_viewer");

        // Print gives one PDF page for each page of the saved report.
        auto* r = viewer;
        const QString pdf = QString::fromStdString((p.dir.path() / "report.pdf").string());
        p.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(pdf);
            return true;
        };
        Click(r, "btnPrint");
        const auto pages = SplitAtFormFeeds(ReportPagedLines(p.session.report, p.session.options));
        QCOMPARE(PdfPages(pdf), static_cast<int>(pages.size()));
        QVERIFY(QFileInfo(pdf).size() > 10000);

        // A cancelled printer prints nothing.
        fs::remove(pdf.toStdString());
        p.dialogs->onPrinter = nullptr;
        Click(r, "btnPrint");
        QVERIFY(!QFileInfo::exists(pdf));
    }

    void viewerMovesByButtonsAndKeys() {
        StartedProgram p;
        ui::Report* r = OpenOn(p, 100);
        QVERIFY(r);
        QCOMPARE(FirstLine(r), QString("line 0"));
        QCOMPARE(Content(r)->toPlainText().count('\n'), 23);

        // Moves by button (no key) and by key, in the text box (no widget
        // named), on the window and on the buttons alike: the top line after each.
        // clang-format off
        const struct { const char* widget; Qt::Key key; short top; } moves[] = {
            {"cmdPageDOWN", {}, 23}, {"cmdDown1", {}, 24}, {"cmdUp1", {}, 23},
            {"cmdPageUP", {}, 0}, {"cmdPageUP", {}, 0},
            {"", Qt::Key_PageDown, 23}, {"cmdPageDOWN", Qt::Key_End, 24},
            {"cmdPageUP", Qt::Key_Home, 23}, {"cmdSave", Qt::Key_PageUp, 0},
            {"window", Qt::Key_Home, 0}};
        // clang-format on
        for (const auto& m : moves) {
            QWidget* w = !*m.widget ? Content(r) : r->findChild<QWidget*>(m.widget);
            if (m.widget == std::string("window")) w = r;
            if (m.key)
                QTest::keyClick(w, m.key);
            else
                Click(r, m.widget);
            QCOMPARE(r->ReportTopLine, m.top);
            QCOMPARE(FirstLine(r), QString("line %1").arg(m.top));
        }

        // The last screen holds the empty line after the report; page down
        // stops once the screen would start beyond it.
        for (int k = 0; k < 10; ++k) QTest::keyClick(Content(r), Qt::Key_PageDown);
        QCOMPARE(FirstLine(r), QString("line 92"));
        QCOMPARE(Content(r)->toPlainText().count('\n'), 9);
        QTest::keyClick(Content(r), Qt::Key_End);
        QCOMPARE(r->ReportTopLine, short(92));

        Click(r, "btnCancel");
        QTRY_VERIFY(!Viewer(p));

        // 20 lines: 0 + 22 is beyond the report, page down does nothing.
        r = OpenOn(p, 20);
        Click(r, "cmdPageDOWN");
        Click(r, "cmdDown1");
        QCOMPARE(r->ReportTopLine, short(0));
        QCOMPARE(Content(r)->toPlainText().count('\n'), 21);
        // 22 lines: the screen may start just past the empty line after them.
        r = OpenOn(p, 22);
        Click(r, "cmdPageDOWN");
        QCOMPARE(r->ReportTopLine, short(23));
        Click(r, "cmdPageDOWN");
        QCOMPARE(r->ReportTopLine, short(23));
        // An empty report leaves the box as it is.
        r = OpenOn(p, 0);
        QVERIFY(Content(r)->toPlainText().isEmpty());
    }

    void saveAndSaveAsWriteTheReportsPages() {
        StartedProgram p;
        ui::Report* r = OpenOn(p, 0);
        p.dialogs->messages.clear();
        Click(r, "cmdSave");
        Click(r, "cmdSaveAs");
        Click(r, "btnPrint");
        const Message noData{"No data to write to file.", "Information", Icon::Exclamation};
        QCOMPARE(
            p.dialogs->messages,
            (Messages{noData, noData, {"No data to print.", "Information", Icon::Exclamation}}));

        r = OpenOn(p, 100);
        p.session.options[131] = 60;
        p.session.options[129] = 6;
        p.session.options[132] = 3;
        QString folder;
        const fs::path chosen = p.dir.path() / "n_report" / "report.txt";
        p.dialogs->onSaveAs = [&](const QString& f, const QString&) {
            folder = f;
            return QString();
        };
        // Save without a file name runs Save As in n_report; cancelled, nothing.
        Click(r, "cmdSave");
        QCOMPARE(folder.toStdString(), (p.dir.path() / "n_report").string());
        QVERIFY(p.session.paths.OutputFileName.empty());
        QVERIFY(!fs::exists(chosen));

        p.dialogs->onSaveAs = [&](const QString&, const QString&) {
            return QString::fromStdString(chosen.string());
        };
        Click(r, "cmdSaveAs");
        QCOMPARE(p.session.paths.OutputFileName, chosen.string());
        std::string expected;
        for (const auto& line : ReportPagedLines(p.session.report, p.session.options))
            expected += line + "\r\n";
        QCOMPARE(ReadFileBytes(chosen).value(), expected);

        // Save writes the shared file again, now with another report, without
        // asking.
        p.dialogs->onSaveAs = nullptr;
        r = OpenOn(p, 10);
        Click(r, "cmdSave");
        QCOMPARE(SplitLines(ReadFileBytes(chosen).value()).front(), std::string("line 0"));
        QCOMPARE(SplitLines(ReadFileBytes(chosen).value()).size(), size_t(60 + 1));
    }

    void headerEditor() {
        StartedProgram p;
        const fs::path file = p.dir.path() / "PERSONAL.NAM";
        const std::string original = ReadFileBytes(file).value();
        p.trigger("mnuHeader");
        auto* editor = p.ctx->windowAs<ui::P_Name>(ui::win::P_Name);
        QVERIFY(editor && editor->isVisible());
        QCOMPARE(editor->windowTitle(), QString("Edit: PERSONAL.NAM"));
        QVERIFY(Content(editor)->toPlainText().startsWith("Jo Marren, Astrologer\n"));
        test::SaveScreenshot(editor, "personal_header_editor");

        // An unchanged save keeps the file exactly; an edit is written with
        // CR LF and the window stays open.
        Click(editor, "btnSave");
        QCOMPARE(ReadFileBytes(file).value(), original);
        Content(editor)->setPlainText("A. N. Other\nConsulting Astrologer\n");
        Click(editor, "btnSave");
        QCOMPARE(ReadFileBytes(file).value(),
                 std::string("A. N. Other\r\nConsulting Astrologer\r\n"));
        QVERIFY(editor->isVisible());
        Content(editor)->setPlainText("not saved\n");
        Click(editor, "btnQuit");
        QTRY_VERIFY(!p.ctx->window(ui::win::P_Name));
        QCOMPARE(ReadFileBytes(file).value(),
                 std::string("A. N. Other\r\nConsulting Astrologer\r\n"));
    }
};

QTEST_MAIN(ReportWindowsTest)
#include "report_windows_test.moc"
