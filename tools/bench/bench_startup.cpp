// The desktop program's start-up to its main window, beside the start-up of
// a minimal Qt program that shows one label: each a whole process (loading
// the libraries, the application object, the windows, the first events),
// run offscreen. The figure to read is the ratio of the two in one run.
//
// The same executable is the program started: `--start kaltrova` builds the
// program's windows as the desktop program does (with the title window not
// waiting for Continue) and quits once the main window is shown; `--start
// label` shows a QLabel and quits. `--start kaltrova --shots DIR` also
// saves the windows it shows (and the data window) as PNGs in DIR.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QTimer>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "BenchCharts.h"
#include "app/Windows.h"
#include "shell/Session.h"
#include "shell/Startup.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"

namespace {

std::string self;
// With --shots DIR, the windows shown at start-up are saved there as PNGs.
std::string shots;

int StartLabel(int argc, char** argv) {
    QApplication app(argc, argv);
    QLabel label("Kaltrova");
    label.show();
    QTimer::singleShot(0, &app, &QApplication::quit);
    return app.exec();
}

int StartKaltrova(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    kal::Session session;
    kal::ui::AppContext ctx(session);
    kal::ui::RegisterProgramWindows(ctx);
    kal::ui::Kaltrova main(ctx);
    kal::ui::Kaltrova::StartupChoices choices;
    choices.waitForTitle = false;
    main.Form_Load(KALTROVA_APPDIR, choices);
    if (!main.isVisible()) return 1;
    if (!shots.empty()) {
        // The help text of the main menu brings up the data window.
        main.mnuMainMenuHelp_Click();
        QApplication::processEvents();
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible() && !w->objectName().isEmpty())
                w->grab().save(QString::fromStdString(shots) + "/" + w->objectName() + ".png");
    }
    QTimer::singleShot(0, &app, &QApplication::quit);
    return app.exec();
}

void Start(benchmark::State& state, const char* what) {
    kal::bench::TimeProcesses(
        state,
        [what](std::size_t) -> std::vector<std::string> {
            return {self, "--start", what};
        },
        true);
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 5 && std::strcmp(argv[3], "--shots") == 0) {
        shots = argv[4];
        argc = 3;
    }
    if (argc == 3 && std::strcmp(argv[1], "--start") == 0) {
        if (std::strcmp(argv[2], "label") == 0) return StartLabel(argc, argv);
        if (std::strcmp(argv[2], "kaltrova") == 0) return StartKaltrova(argc, argv);
        return 64;
    }
    self = argv[0];
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RegisterBenchmark("BM_Process_StartLabel", Start, "label")
        ->Iterations(25)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("BM_Process_StartKaltrova", Start, "kaltrova")
        ->Iterations(25)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
