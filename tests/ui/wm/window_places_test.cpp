// Window places on a real X server with a window manager (run by
// under_window_manager.sh): windows get frames and title bars, and the
// manager decides where a window goes from what the program asks. The
// places are read back from the X server, not from Qt's own bookkeeping.
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

#include <filesystem>
#include <optional>

#include "ShellUiSupport.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

namespace {

// The client area of a window as the X server has it on the screen.
QRect OnScreen(QWidget* w) {
    QProcess p;
    p.start("xwininfo", {"-id", QString::number(w->winId())});
    p.waitForFinished(5000);
    const QString out = QString::fromLocal8Bit(p.readAllStandardOutput());
    auto number = [&out](const char* label) {
        QRegularExpression re(QString(label) + R"(:\s+(-?\d+))");
        return re.match(out).captured(1).toInt();
    };
    return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
            number("Height")};
}

// The window with its frame, once the manager has framed it.
QRect Framed(QWidget* w) {
    if (!QTest::qWaitFor([w] { return w->frameGeometry() != w->geometry(); }, 5000))
        qWarning("no frame around %s", qPrintable(w->objectName()));
    return w->frameGeometry();
}

// The whole screen, frames and all.
void SaveScreen(const QString& name) {
    QDir().mkpath(KALTROVA_SCREENSHOTS);
    QGuiApplication::primaryScreen()->grabWindow(0).save(QString(KALTROVA_SCREENSHOTS) + "/" +
                                                         name + ".png");
}

bool Shown(QWidget* w) {
    return w && QTest::qWaitForWindowExposed(w) && !Framed(w).isEmpty();
}

// A program started on a fresh program directory holding the settings file
// the previous start left (none the first time).
std::unique_ptr<StartedProgram> Start(const std::optional<std::string>& ini) {
    return std::make_unique<StartedProgram>([&](const test::ScratchAppDir& d) {
        if (ini) d.Write("Kaltrova.INI", *ini);
    });
}

// Ends the program in order and gives the settings file it wrote.
std::string End(StartedProgram& p) {
    p.main->mnuFileExit_Click();
    return ReadFileBytes(p.dir.path() / "Kaltrova.INI").value_or("");
}

QWidget* Win(StartedProgram& p, ui::WindowName name) {
    return p.ctx->window(name);
}

// The list window is beside the input window: left of it nothing, and no
// part of the one over the other.
void ExpectBesideInput(StartedProgram& p, ui::WindowName list, const char* when) {
    QWidget* input = Win(p, ui::win::InputD);
    QWidget* w = Win(p, list);
    QVERIFY2(Shown(input) && Shown(w), when);
    QRect a, b;
    auto beside = [&] {
        a = Framed(input);
        b = Framed(w);
        return !a.intersects(b) && b.left() > a.right() && b.left() - a.right() < 8 &&
               b.top() == a.top();
    };
    // The manager may move a window once more when it frames it, later on a
    // loaded machine (a sanitizer build).
    const bool ok = QTest::qWaitFor(beside, 10000);
    const auto text = [](const QRect& r) {
        return QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    };
    QVERIFY2(ok, qPrintable(QString(when) + ": input " + text(a) + ", list " + text(b)));
}

} // namespace

class WindowPlacesTest : public QObject {
    Q_OBJECT

  private slots:
    void mainWindowComesBackWhereItWasLeft() {
        // The first start, at the default place; the user moves the strip.
        auto p = Start(std::nullopt);
        QVERIFY(Shown(p->main.get()));
        const QRect first = OnScreen(p->main.get());
        QVERIFY2(first.top() >= 0 && first.left() >= 0, "the menu strip is on the screen");
        // Moved as the user drags it (the frame's corner to 200,150), and
        // settled on the X server.
        p->main->move(200, 150);
        QTRY_COMPARE(Framed(p->main.get()).topLeft(), QPoint(200, 150));
        QTRY_COMPARE(OnScreen(p->main.get()), p->main->geometry());
        const QRect left = OnScreen(p->main.get());
        std::string ini = End(*p);
        p.reset();

        // Two more starts: the strip is where it was left each time, and the
        // settings file keeps the same place.
        for (int run = 2; run <= 3; ++run) {
            p = Start(ini);
            QVERIFY(Shown(p->main.get()));
            QCOMPARE(OnScreen(p->main.get()), left);
            SaveScreen(QString("wm_main_run%1").arg(run));
            const std::string again = End(*p);
            QCOMPARE(again, ini);
            p.reset();
        }
    }

    void aPlaceOffEveryScreenComesOntoTheScreen() {
        const QRect screen(0, 0, 1280, 1024);
        for (const char* place : {"KaltrovaTop=-10000000000\r\nKaltrovaLeft=10000000000\r\n",
                                  "KaltrovaTop=50000\r\nKaltrovaLeft=-3000\r\n"}) {
            auto p = Start(std::string(place));
            QVERIFY(Shown(p->main.get()));
            const QRect r = OnScreen(p->main.get());
            QVERIFY2(screen.contains(r.topLeft()), place);
            QVERIFY2(screen.contains(QPoint(r.left() + std::min(r.width(), 100) / 2, r.top())),
                     place);
            End(*p);
        }
    }

    void namesAndCitiesOpenBesideTheInputWindow() {
        auto p = Start(std::nullopt);
        const fs::path names = p->dir.path() / "NAMES.FIL";
        ExpectBesideInput(*p, ui::win::Names, "at the start");

        // Over to the cities and back.
        Win(*p, ui::win::Names)->findChild<QPushButton*>("Command1")->click();
        ExpectBesideInput(*p, ui::win::Geograph, "cities");
        Win(*p, ui::win::Geograph)->findChild<QPushButton*>("Command1")->click();
        ExpectBesideInput(*p, ui::win::Names, "back to the names");

        // After a calculation, the Input command.
        Win(*p, ui::win::InputD)->findChild<QPushButton*>("cmdOK")->click();
        p->trigger("mnuInputData");
        ExpectBesideInput(*p, ui::win::Names, "the Input command");

        // After a save.
        p->dialogs->onChooseFile = [&](const QString&) {
            return QString::fromStdString(names.string());
        };
        Win(*p, ui::win::InputD)->findChild<QPushButton*>("cmdSave")->click();
        ExpectBesideInput(*p, ui::win::Names, "a save");

        // After the editor's Quit.
        Win(*p, ui::win::Names)->findChild<QPushButton*>("cmdEditList")->click();
        QWidget* editor = Win(*p, ui::win::NameEdit);
        QVERIFY(editor);
        editor->findChild<QPushButton*>("btnQuit")->click();
        ExpectBesideInput(*p, ui::win::Names, "the editor's Quit");
        SaveScreen("wm_names_beside_input");
        End(*p);
    }
};

QTEST_MAIN(WindowPlacesTest)
#include "window_places_test.moc"
