// Benchmarks of the chart wheel: the paint through the Qt adapter into an
// image the size of a large window, and a whole time step in the running windows (the step,
// the calculation with all listings, the data window's page, the wheel's
// repaint), offscreen. Report figures as ratios taken in one run.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cstdlib>
#include <memory>

#include "app/Windows.h"
#include "birthdata/Record.h"
#include "birthdata/ui/InputD.h"
#include "shell/Session.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"
#include "wheel/qt/WheelRender.h"
#include "wheel/ui/Wheels.h"

namespace {

// The program started on the built program directory, with the Example
// record calculated and the wheel open.
struct Program {
    kal::Session session;
    std::unique_ptr<kal::ui::AppContext> ctx;
    std::unique_ptr<kal::ui::Kaltrova> main;
    kal::ui::Wheels* wheel = nullptr;

    Program() {
        ctx = std::make_unique<kal::ui::AppContext>(session);
        kal::ui::RegisterProgramWindows(*ctx);
        main = std::make_unique<kal::ui::Kaltrova>(*ctx);
        kal::ui::Kaltrova::StartupChoices choices;
        choices.waitForTitle = false;
        main->Form_Load(KALTROVA_APPDIR, choices);
        auto rec = kal::ParseRecordLine("Example,12 May 1959,10.43,A,6,75.23,39.45,x");
        kal::InputFields in;
        kal::TransferRecord(*rec, 0, in);
        if (auto* input = ctx->windowAs<kal::ui::InputD>(kal::ui::win::InputD))
            input->setFields(in);
        ctx->calculate(in);
        wheel = ctx->windowAs<kal::ui::Wheels>(kal::ui::win::Wheels);
        wheel->resize(1200, 900);
        QApplication::processEvents();
    }
};

Program& TheProgram() {
    static Program p;
    return p;
}

void BM_WheelPaintQt(benchmark::State& state) {
    Program& p = TheProgram();
    QImage image(1200, 880, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        benchmark::DoNotOptimize(p.wheel->paintWheel(painter, image.rect()));
    }
}
BENCHMARK(BM_WheelPaintQt)->Unit(benchmark::kMillisecond);

void BM_TimeStep(benchmark::State& state) {
    Program& p = TheProgram();
    for (auto _ : state) {
        p.wheel->mnuUpdateAddMinute->trigger();
        p.wheel->repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(BM_TimeStep)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
