// The chart wheel's windows: the glyph font, the wheel window's life, menu,
// scale, style and options, the time steps through the calculation, the
// aspects window, the orb file commands, printing, and screenshots of both
// styles for crowded charts.
#include <QFontDatabase>
#include <QPainter>
#include <QPrinter>
#include <QRawFont>
#include <QtTest>

#include <cerrno>
#include <filesystem>

#include "ShellUiSupport.h"
#include "birthdata/ui/InputD.h"
#include "wheel/FontMetrics.h"
#include "wheel/Glyphs.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/qt/QtCanvas.h"
#include "wheel/ui/CWAspect.h"
#include "wheel/ui/OrbsEdit.h"
#include "wheel/ui/Wheels.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

// The charts of the screenshots: an ordinary one, five planets in the first
// house, four intercepted signs, and latitude 60 under Koch.
struct Picture {
    const char* name;
    const char* record;
    char houses;
};
const Picture kPictures[] = {
    {"ordinary", "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org", 'P'},
    {"stellium", "Stellium,04 Feb 1962,6.30,A,-5.5,-077.12,28.36,", 'P'},
    {"intercepted", "Northern,18 May 1909,4.10,A,10,132.22,58.34,", 'P'},
    {"latitude60koch", "Helsinki,06 Dec 1917,12.00,P,-2,-024.56,60.10,", 'K'},
};

// Every glyph-font code the program draws.
std::vector<int> DrawnCodes() {
    std::vector<int> codes = {RetrogradeGlyph, SeparateMCGlyph, AspectsWindowAscGlyph,
                              AspectsWindowMCGlyph};
    for (int s = 1; s <= 12; ++s) codes.push_back(SignGlyph(s));
    for (int b = Sun; b <= MC; ++b) codes.push_back(BodyGlyph(b));
    for (int c = 2; c <= 17; ++c) codes.push_back(AspectGlyph(c));
    return codes;
}

// Picks a record into the input window and presses OK.
ui::Wheels* OpenWheel(StartedProgram& p, const char* record, char houses = 'P') {
    p.session.calc.HouseSystem = houses;
    auto rec = ParseRecordLine(record);
    InputFields in;
    if (!rec || TransferRecord(*rec, p.session.regional.DateOrder, in)) return nullptr;
    if (auto* input = p.win<ui::InputD>(ui::win::InputD)) input->setFields(in);
    if (!p.ctx->calculate(in)) return nullptr;
    auto* w = p.win<ui::Wheels>(ui::win::Wheels);
    if (w && !QTest::qWaitForWindowExposed(w)) return nullptr;
    return w;
}

} // namespace

class WheelWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void glyphFontLoadsWithEveryCode() {
        int id = QFontDatabase::addApplicationFont(QString(KALTROVA_APPDIR) + "/glyphix.ttf");
        QVERIFY(id >= 0);
        QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{"Glyphix"});
        QRawFont raw(QString(KALTROVA_APPDIR) + "/glyphix.ttf", 32);
        QVERIFY(raw.isValid());
        for (int code : DrawnCodes()) {
            QString s = WheelQString(GlyphText(code), Face::Glyph);
            QVERIFY2(raw.supportsCharacter(s.at(0)), qPrintable(QString::number(code)));
        }
        // The header and the aspects window write letters and digits in it too.
        for (char c : std::string("0123456789 qdAPM.-()hmsnweNSEW"))
            QVERIFY2(raw.supportsCharacter(QChar(c)), qPrintable(QString(QChar(c))));
        QFontDatabase::removeApplicationFont(id);
    }

    void recordedMetricsMatchQt() {
        // The recording canvas measures with tables recorded from the fonts; a
        // changed glyph font or sans face shows here first.
        StartedProgram p;
        QImage image(10, 10, QImage::Format_RGB32);
        QPainter painter(&image);
        QtCanvas qt(painter, WindowView(10, 10), QRectF(0, 0, 10, 10));
        RecordingCanvas recorded;
        std::vector<std::pair<std::string, Font>> samples;
        for (int code : DrawnCodes()) samples.push_back({GlyphText(code), {Face::Glyph, 14}});
        for (bool bold : {false, true})
            samples.push_back({"0123456789 Example - natal 12 May 1959", {Face::Sans, 8, bold}});
        for (const auto& [text, font] : samples) {
            TextSize a = qt.measure(text, font);
            TextSize b = recorded.measure(text, font);
            QVERIFY2(std::fabs(a.width - b.width) < 0.01 * a.width + 0.01, text.c_str());
            QVERIFY(std::fabs(a.height - b.height) < 0.01 * a.height);
            QVERIFY(std::fabs(a.ascent - b.ascent) < 0.01 * a.ascent);
        }
    }

    void wheelWindowThroughItsMenu() {
        StartedProgram p;
        ui::Wheels* w = OpenWheel(p, test::kExampleRecord);
        QVERIFY(w && w->isVisible());
        QTRY_COMPARE(w->windowTitle(), QString("Kaltrova (Tropical zodiac) - Chartwheels"));
        // The menu in its order, with captions and shortcuts.
        const std::vector<std::tuple<const char*, const char*, QKeySequence>> items = {
            {"mnuUpdateAddDay", "&Add a Day", QKeySequence(Qt::SHIFT | Qt::Key_F1)},
            {"mnuUpdateSubDay", "&Go back a day", QKeySequence(Qt::SHIFT | Qt::Key_F2)},
            {"mnuUpdateAddHour", "Add an &hour", QKeySequence(Qt::SHIFT | Qt::Key_F3)},
            {"mnuUpdateSubHour", "Go &back an hour", QKeySequence(Qt::SHIFT | Qt::Key_F4)},
            {"mnuUpdateAddMinute", "Add a &minute", QKeySequence(Qt::SHIFT | Qt::Key_F5)},
            {"mnuUpdateSubMinute", "Go bac&k a minute", QKeySequence(Qt::SHIFT | Qt::Key_F6)},
            {"mnuAspects", "&Aspects", QKeySequence()},
            {"mnuOrbsChange", "&Select new orb file", QKeySequence(Qt::Key_F11)},
            {"mnuOrbsEdit", "&Edit orb file", QKeySequence(Qt::Key_F12)},
            {"mnuOptionAspectLines", "&3 Degree Orbs for Wheel Aspect Lines",
             QKeySequence(Qt::CTRL | Qt::Key_F11)},
            {"mnuOptionDisplaySextiles", "&Display sextiles", QKeySequence(Qt::CTRL | Qt::Key_F12)},
            {"mnuPrintChartwheel", "&Print", QKeySequence()},
            {"mnuCTAmerican", "&American", QKeySequence(Qt::Key_F7)},
            {"mnuCTEuropean", "&European", QKeySequence(Qt::Key_F8)},
            {"mnuHelp", "&Help", QKeySequence()}};
        for (const auto& [name, caption, keys] : items) {
            auto* a = w->findChild<QAction*>(name);
            QVERIFY2(a, name);
            QCOMPARE(a->text(), QString(caption));
            QCOMPARE(a->shortcut(), keys);
        }
        QVERIFY(w->mnuCTAmerican->isChecked() && !w->mnuCTEuropean->isChecked());
        QVERIFY(!w->mnuOptionAspectLines->isChecked() && w->mnuOptionDisplaySextiles->isChecked());

        // Help shows the window's own help text in the data window, and that
        // text names every shortcut the menu has.
        w->mnuHelp->trigger();
        const QString help = p.dataText();
        QVERIFY(help.startsWith("THE CHARTWHEELS WINDOW\n"));
        for (const auto& [name, caption, keys] : items)
            if (!keys.isEmpty()) QVERIFY2(help.contains("(" + keys.toString() + ")"), name);

        // R = 225·W/H for a wide drawing area, 244 for a tall one.
        QWidget* area = w->findChild<QWidget*>("WheelArea");
        w->resize(600, 400 + w->height() - area->height());
        QTRY_COMPARE(area->size(), QSize(600, 400));
        QCOMPARE(w->StartScale, short(338));
        QCOMPARE(p.ctx->display().settings.StartScale, short(338));
        w->resize(300, 500);
        QTRY_COMPARE(w->StartScale, short(244));

        // The wheel copies the chart it opened on; glyphs for every body but
        // the Ascendant.
        w->repaint();
        QCOMPARE(w->chart().WheelLong, p.session.calc.chart.NatalLong);
        QCOMPARE(w->layout().places.size(), size_t(NumBodies - 1));

        auto european = [&] {
            for (const GlyphPlace& g : w->layout().places)
                if (g.body == MC) return g.theta;
            return -1.0;
        };
        double american = european();
        w->mnuCTEuropean->trigger();
        QVERIFY(w->mnuCTEuropean->isChecked() && !w->mnuCTAmerican->isChecked());
        QCOMPARE(p.ctx->display().settings.TypeChart, short(1));
        QVERIFY(european() != american);
        w->mnuCTAmerican->trigger();
        QCOMPARE(p.ctx->display().settings.TypeChart, short(0));

        // Without sextiles no 60-degree line is drawn; with fixed 3-degree
        // windows the lines follow those.
        auto count = [&](int code) {
            w->repaint();
            int n = 0;
            for (const AspectLine& l : w->layout().lines) n += l.code == code;
            return n;
        };
        QVERIFY(count(3) > 0);
        w->mnuOptionDisplaySextiles->trigger();
        QCOMPARE(count(3), 0);
        w->mnuOptionDisplaySextiles->trigger();
        w->mnuOptionAspectLines->trigger();
        w->repaint();
        QVERIFY(!w->layout().lines.empty());
        for (const AspectLine& l : w->layout().lines) {
            const WheelChart& c = w->chart();
            double d = Separation(c.WheelLong[static_cast<size_t>(l.bodyA)],
                                  c.WheelLong[static_cast<size_t>(l.bodyB)]);
            QVERIFY(std::fabs(d - AspectAngle[static_cast<size_t>(l.code)]) <= 3 + 1e-6);
        }

        // The aspects window, and the orb file commands.
        w->mnuAspects->trigger();
        auto* a = p.win<ui::CWAspect>(ui::win::CWAspect);
        QVERIFY(a && a->isVisible());
        QCOMPARE(a->windowTitle(), QString("Aspects"));
        QCOMPARE(a->Text1->font().family(), QString("Glyphix"));
        QStringList lines = a->Text1->toPlainText().split('\n');
        QCOMPARE(lines.first(), QString());
        // Each pair is listed from both sides, so the aspects come in pairs.
        QVERIFY(lines.size() > 10 && (lines.size() - 2) % 2 == 0);

        // A new orb file with exact-only orbs leaves only exact aspects.
        const fs::path orbs = p.dir.path() / "EXACT.ORB";
        std::string exact;
        for (int k = 0; k < 16; ++k) exact += "0\r\n";
        p.dir.Write("EXACT.ORB", exact);
        p.dialogs->onChooseFile = [&](const QString& pattern) {
            return pattern == "*.ORB" ? QString::fromStdString(orbs.string()) : QString();
        };
        w->mnuOrbsChange->trigger();
        QCOMPARE(p.session.paths.OrbFilePath, orbs);
        a = p.win<ui::CWAspect>(ui::win::CWAspect);
        QVERIFY(a->Text1->toPlainText().trimmed().isEmpty());

        // Edit orb file: the current file in the editor; Save writes it whole.
        w->mnuOrbsEdit->trigger();
        auto* e = p.win<ui::OrbsEdit>(ui::win::OrbsEdit);
        QVERIFY(e && e->isVisible());
        QCOMPARE(e->windowTitle(), "Edit: " + QString::fromStdString(orbs.string()));
        e->txtContent->setPlainText("3.5    conjunct\n2\n");
        e->btnSave->click();
        QCOMPARE(ReadFileBytes(orbs).value(), std::string("3.5    conjunct\r\n2\r\n"));
        // A disk that fills: the file keeps what it held and the user is told.
        e->txtContent->setPlainText("9\n");
        {
            test::WriteFault full(WriteStep::Write, 1, ENOSPC);
            e->btnSave->click();
        }
        QCOMPARE(ReadFileBytes(orbs).value(), std::string("3.5    conjunct\r\n2\r\n"));
        QVERIFY(p.lastMessage().find("EXACT.ORB could not be written (the disk is full)") !=
                std::string::npos);

        // A missing orb file is told before the chooser opens, and the chooser
        // does not open.
        fs::remove(orbs);
        p.dialogs->messages.clear();
        p.dialogs->chosenFrom.clear();
        w->mnuOrbsChange->trigger();
        QVERIFY(p.dialogs->chosenFrom.isEmpty());
        QCOMPARE(p.dialogs->messages, Messages{OrbFileMissing(orbs)});

        // Escape hands the keyboard to the main window.
        w->activateWindow();
        QTest::keyClick(w, Qt::Key_Escape);
        QTRY_VERIFY(p.main->isActiveWindow());

        // The main window's command opens it afresh on the natal chart and
        // the natal orb file.
        p.trigger("mnuWheelsSingleNatal");
        QTRY_VERIFY(p.ctx->window(ui::win::Wheels) && p.ctx->window(ui::win::Wheels) != w);
        QCOMPARE(p.session.paths.OrbFilePath, NatalOrbPath(p.dir.path()));
    }

    void minuteStepsRunThroughTheCalculation() {
        StartedProgram p;
        ui::Wheels* w = OpenWheel(p, "New Year,31 Dec 1999,11.59,P,5,071.04,42.21,");
        QVERIFY(w);
        const double sunBefore = w->chart().WheelLong[Sun];
        QCOMPARE(p.session.calc.UpdateMode, short(0));

        // 11:59 P.M. on 31 December and a minute on: 12:00 A.M. on 1 January
        // (the carries themselves are the time steps' own tests).
        w->mnuUpdateAddMinute->trigger();
        QCOMPARE(p.session.calc.UpdateMode, short(1));
        const SteppedRecord& r = p.session.calc.upd;
        QCOMPARE(std::make_tuple(r.UpdYear, r.UpdDay, r.UpdHour, r.UpdPM),
                 std::make_tuple(short(2000), short(1), 12.0f, short(0)));
        // The wheel is the same window, on the new chart, with the header of
        // update mode; the data page was rebuilt.
        QCOMPARE(p.win<ui::Wheels>(ui::win::Wheels), w);
        QCOMPARE(w->chart().HeaderLines[1], std::string("New Year - in update mode - natal"));
        // The Sun moves about a degree a day.
        QVERIFY(std::fabs(w->chart().WheelLong[Sun] - sunBefore - 360.0 / 365.25 / 1440) < 1e-4);
        QVERIFY(p.lastPage().find("in update mode") != std::string::npos);

        // Later steps go on from the stepped moment, back across midnight.
        w->mnuUpdateSubMinute->trigger();
        w->mnuUpdateSubMinute->trigger();
        QCOMPARE(std::make_tuple(r.UpdYear, r.UpdMonth, r.UpdDay, r.UpdHour, r.UpdMinute, r.UpdPM),
                 std::make_tuple(short(1999), short(12), short(31), 11.0f, 58.0f, short(1)));

        // The Input command ends update mode: the next step starts from the
        // input window again.
        p.trigger("mnuInputData");
        QCOMPARE(p.session.calc.UpdateMode, short(0));
    }

    void printingFullAndHalfPage() {
        StartedProgram p;
        p.dir.Write("PERSONAL.NAM", "Jane Astrologer\r\nConsultations\r\n");
        ui::Wheels* w = OpenWheel(p, test::kExampleRecord);
        QVERIFY(w);
        QMessageBox::StandardButton answer = QMessageBox::Cancel;
        Message asked;
        p.dialogs->onQuestion = [&](const Message& m) {
            asked = m;
            return answer;
        };
        int printers = 0;
        fs::path pdf;
        p.dialogs->onPrinter = [&](QPrinter& printer) {
            ++printers;
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(pdf.string()));
            return true;
        };

        w->mnuPrintChartwheel->trigger();
        QCOMPARE(asked, (Message{"Click 'YES' for full page chartwheel. Click 'NO' for half page "
                                 "chartwheel.",
                                 "Full page or half page chartwheel", Icon::Question}));
        QCOMPARE(printers, 0); // cancelled: nothing printed

        for (auto [button, name] :
             {std::pair{QMessageBox::Yes, "full"}, {QMessageBox::No, "half"}}) {
            answer = button;
            pdf = fs::path(KALTROVA_SCREENSHOTS) / (std::string("wheel_print_") + name + ".pdf");
            fs::create_directories(pdf.parent_path());
            fs::remove(pdf);
            w->mnuPrintChartwheel->trigger();
            QVERIFY(fs::exists(pdf) && fs::file_size(pdf) > 2000);
            QVERIFY(!w->WheelToPrinter && !w->PrintFormMode);
        }
        QCOMPARE(printers, 2);

        // The half page is drawn on white with black house lines.
        QImage half = w->halfPageImage();
        QCOMPARE(half.pixelColor(2, half.height() - 2), QColor(Qt::white));
    }

    void screenshotsOfBothStyles() {
        for (const Picture& pic : kPictures) {
            StartedProgram p;
            ui::Wheels* w = OpenWheel(p, pic.record, pic.houses);
            QVERIFY(w);
            w->resize(900, 720);
            for (QAction* style : {w->mnuCTAmerican, w->mnuCTEuropean}) {
                style->trigger();
                test::SaveScreenshot(w,
                                     QString("wheel_%1_%2")
                                         .arg(pic.name)
                                         .arg(style == w->mnuCTAmerican ? "american" : "european"));
                QCOMPARE(w->layout().places.size(), size_t(NumBodies - 1));
            }
            if (QString(pic.name) == "intercepted") QVERIFY(w->layout().intercepted.size() >= 2);
        }
    }
};

QTEST_MAIN(WheelWindowsTest)
#include "wheel_windows_test.moc"
