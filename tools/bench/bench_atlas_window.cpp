// The atlas window as a user meets it: opening it, and typing a place name
// letter by letter, each letter a new search with the list filled and
// painted. The atlas itself is read once a run, while the title window
// shows (bench_atlas measures that read). Offscreen; read the medians:
//   cmake -S . -B build -DKALTROVA_BENCH=ON && cmake --build build --target bench_atlas_window
//   build/tools/bench/bench_atlas_window --benchmark_repetitions=15
//       --benchmark_report_aggregates_only=true   (one command line)
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QTreeWidget>

#include <memory>
#include <string>
#include <vector>

#include "atlas/ui/ACS_Atlas.h"
#include "shell/Session.h"
#include "shell/ui/AppContext.h"

namespace {

const std::filesystem::path kAppDir = KALTROVA_APPDIR;

// A session on the built program directory with a birth in the input
// fields, and its context.
struct Program {
    kal::Session session;
    std::unique_ptr<kal::ui::AppContext> ctx;
    Program() {
        session.Open(kAppDir);
        session.calc.input.txtMonth = "8";
        session.calc.input.txtDay = "1";
        session.calc.input.txtYear = "1944";
        session.calc.input.txtBirthHour = "10";
        session.calc.input.txtBirthMinute = "0";
        ctx = std::make_unique<kal::ui::AppContext>(session);
    }
};

// Opens the window and lets it paint.
std::unique_ptr<kal::ui::ACS_Atlas> Open(Program& p) {
    auto w = std::make_unique<kal::ui::ACS_Atlas>(*p.ctx);
    w->show();
    QCoreApplication::processEvents();
    return w;
}

// An opening with the atlas read.
void BM_AtlasWindowOpen(benchmark::State& state) {
    Program p;
    p.session.atlas.Index();
    for (auto _ : state) {
        auto w = Open(p);
        benchmark::DoNotOptimize(w.get());
    }
}
BENCHMARK(BM_AtlasWindowOpen)->Unit(benchmark::kMillisecond);

// One letter typed: the search, the list refilled, the picked place's zone
// on the birth date, the window painted. The names are typed in turn, all
// their letters.
void BM_AtlasWindowTypeALetter(benchmark::State& state) {
    static const std::vector<std::string> names = {
        "muenchen", "springfield", "paris, texas", "new york", "london",  "sao paulo",
        "kolkata",  "sydney",      "dallas",       "zurich",   "hamburg", "st. louis"};
    Program p;
    auto w = Open(p);
    auto* box = w->findChild<QLineEdit*>("txtPlace");
    std::size_t name = 0, letters = 1;
    std::size_t shown = 0;
    for (auto _ : state) {
        const std::string& n = names[name];
        box->setText(QString::fromStdString(n.substr(0, letters)));
        QCoreApplication::processEvents();
        shown +=
            static_cast<std::size_t>(w->findChild<QTreeWidget*>("lstPlaces")->topLevelItemCount());
        if (++letters > n.size()) {
            letters = 1;
            name = (name + 1) % names.size();
        }
    }
    benchmark::DoNotOptimize(shown);
}
BENCHMARK(BM_AtlasWindowTypeALetter)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
