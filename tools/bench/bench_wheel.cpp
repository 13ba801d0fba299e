// Benchmarks of the chart wheel beside the baseline of the same run
// (BenchCharts.h): the paint on a recording canvas over distinct random
// charts, the paint through the Qt adapter into an image the size of a large
// window, and a whole time step in the running windows (the step, the
// calculation with all listings, the data window's page, the wheel's
// repaint), offscreen. In a build with the windows and benchmarks:
//   build/tools/bench/bench_wheel --benchmark_repetitions=9
//       --benchmark_report_aggregates_only=true      (one command line)
//   build/tools/bench/bench_wheel --count wheel 200   (for callgrind)
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cstdlib>
#include <memory>

#include "BenchCharts.h"
#include "app/Windows.h"
#include "birthdata/Record.h"
#include "birthdata/ui/InputD.h"
#include "shell/Session.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelPaint.h"
#include "wheel/WheelTables.h"
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

// The wheels of the benchmark charts, with the shipped orbs and label
// tables.
struct Wheels {
    std::vector<kal::WheelChart> charts;
    kal::WheelTables tables;
};
Wheels& BenchWheels() {
    static Wheels w = [] {
        Wheels w;
        kal::Session& s = kal::bench::BenchSession();
        const auto& set = kal::bench::BenchCharts();
        kal::LoadWheelTables(s.paths.AppPath, w.tables);
        kal::LoadWheelOrbs(s.paths.OrbFilePath, s.listing.orbs);
        for (std::size_t i = 0; i < set.inputs.size(); ++i) {
            s.calc.HouseSystem = set.houses[i];
            s.Calculate(set.inputs[i]);
            w.charts.push_back(
                kal::WheelChartOf(s.calc.chart, s.listing.HeaderLines, s.listing.HeaderLines2));
        }
        return w;
    }();
    return w;
}

// The wheel of chart i painted on a recording canvas the size of a large
// window.
void PaintRecorded(std::size_t i) {
    Wheels& w = BenchWheels();
    kal::Session& s = kal::bench::BenchSession();
    kal::RecordingCanvas canvas;
    const kal::WheelStyle style;
    kal::WheelPaintInput in{w.charts[i], style,  s.options, s.listing.orbs.WheelOrbs,
                            w.tables,    nullptr};
    benchmark::DoNotOptimize(kal::PaintWheel(canvas, kal::WindowView(1200, 880), in));
}

const kal::bench::Workloads& Workloads() {
    static const kal::bench::Workloads w = {
        {"wheel", {PaintRecorded, [] { BenchWheels(); }}},
    };
    return w;
}

void BM_WheelPaintRecording(benchmark::State& state) {
    const std::size_t n = BenchWheels().charts.size();
    std::size_t i = 0;
    for (auto _ : state) PaintRecorded(i++ % n);
}

void BM_WheelPaintQt(benchmark::State& state) {
    Program& p = TheProgram();
    QImage image(1200, 880, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        benchmark::DoNotOptimize(p.wheel->paintWheel(painter, image.rect()));
    }
}

void BM_TimeStep(benchmark::State& state) {
    Program& p = TheProgram();
    for (auto _ : state) {
        p.wheel->mnuUpdateAddMinute->trigger();
        p.wheel->repaint();
        QApplication::processEvents();
    }
}
void Register() {
    benchmark::RegisterBenchmark("BM_WheelPaintRecording", BM_WheelPaintRecording)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_WheelPaintQt", BM_WheelPaintQt)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_TimeStep", BM_TimeStep)->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    return kal::bench::Main(argc, argv, Register, Workloads());
}
