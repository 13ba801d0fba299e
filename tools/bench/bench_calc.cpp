// Benchmarks of the calculation path, each beside the baseline of the same
// run (BenchCharts.h): the calculation with its whole data page, each
// listing alone, the page text, and a whole kaltrova-cli process.
//
//   cmake --preset bench && cmake --build build-bench --target bench_calc
//   build-bench/tools/bench/bench_calc --benchmark_repetitions=9
//       --benchmark_report_aggregates_only=true      (one command line)
//   tools/bench/count_instructions.sh build-bench   (callgrind: per chart)
#include <benchmark/benchmark.h>
#include <swephexp.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "BenchCharts.h"
#include "analyses/Listings.h"
#include "analyses/NatalData.h"
#include "base/OutputBuffer.h"
#include "base/TextFile.h"

namespace {

using namespace kal;
using kal::bench::BenchCharts;
using kal::bench::BenchSession;
using kal::bench::RunProcess;

// The calculation of OK: input checks, chart and the whole data page in the
// buffer.
void CalcChart(std::size_t i) {
    const auto& set = BenchCharts();
    Session& s = BenchSession();
    s.calc.HouseSystem = set.houses[i];
    benchmark::DoNotOptimize(s.Calculate(set.inputs[i]));
}

// The same with the page shown: written to reports/LASTPAGE.TXT.
void CalcChartShown(std::size_t i) {
    CalcChart(i);
    BenchSession().ShowDataPage();
}

// One listing on a calculated chart, into an empty buffer.
template <class F> void OneListing(std::size_t i, F listing) {
    static OutputBuffer out;
    Session& s = BenchSession();
    out.ClearAllLines();
    out.ClearDataPage();
    ListingTables t = s.Tables();
    listing(BenchCharts().charts[i], t, out);
    benchmark::DoNotOptimize(out.PageLines.data());
}

void Header(std::size_t i) {
    OneListing(i, [](const Chart& c, ListingTables& t, OutputBuffer& out) {
        ChartHeader(c, t.dateOrder, out);
        return Messages{};
    });
}
void Career(std::size_t i) {
    OneListing(i, CareerFactorsListing);
}
void Aspects(std::size_t i) {
    OneListing(i, NatalAspectsListing);
}
void Natal(std::size_t i) {
    OneListing(i, NatalDataListing);
}
void Cosmic(std::size_t i) {
    OneListing(i, CosmicStateListing);
}

// The whole calculation page of each chart, composed.
std::vector<OutputBuffer>& Pages() {
    static std::vector<OutputBuffer> pages;
    return pages;
}
void ComposePages() {
    Session& s = BenchSession();
    for (std::size_t k = Pages().size(); k < BenchCharts().charts.size(); ++k) {
        OutputBuffer out;
        ListingTables t = s.Tables();
        CalculationPage(BenchCharts().charts[k], t, out);
        out.AppendBlankLine();
        Pages().push_back(std::move(out));
    }
}
// The text of a composed page.
void PageOfText(std::size_t i) {
    benchmark::DoNotOptimize(PageText(Pages()[i], "\r\n"));
}

const bench::Workloads& Workloads() {
    static const bench::Workloads w = {
        {"baseline", {[](std::size_t i) { bench::EphemerisOnly(BenchCharts().moments[i]); }}},
        {"calc", {CalcChart}},
        {"shown", {CalcChartShown}},
        {"header", {Header}},
        {"career", {Career}},
        {"aspects", {Aspects}},
        {"natal", {Natal}},
        {"cosmic", {Cosmic}},
        {"pagetext", {PageOfText, ComposePages}},
    };
    return w;
}

// Runs a workload on the charts in turn.
void OverCharts(benchmark::State& state, const char* name) {
    const bench::Workload& w = Workloads().at(name);
    if (w.prepare) w.prepare();
    const std::size_t n = BenchCharts().charts.size();
    std::size_t i = 0;
    for (auto _ : state) w.run(i++ % n);
}

// `kaltrova-cli page` for one record, process start to exit.
void BM_Process_CliPage(benchmark::State& state) {
    const auto& set = BenchCharts();
    bench::TimeProcesses(state, [&](std::size_t i) -> std::vector<std::string> {
        const std::size_t k = i % set.lines.size();
        return {
            KALTROVA_CLI, "--dir",    KALTROVA_APPDIR, "--houses", std::string(1, set.houses[k]),
            "page",       "--record", set.lines[k]};
    });
}

// The floor of any process here: /bin/true.
void BM_Process_True(benchmark::State& state) {
    bench::TimeProcesses(state,
                         [](std::size_t) -> std::vector<std::string> { return {"/bin/true"}; });
}

// `kaltrova-cli batch page` over a names file of 16,000 random records
// (written once), its pages thrown away; state.range(0) threads, 0 for the
// program's own choice (all the cores). The ratio is to 16,000 baseline
// charts on one core.
void BM_Process_BatchPage(benchmark::State& state) {
    constexpr std::size_t records = 16000;
    static const std::string file = [] {
        const auto path = std::filesystem::temp_directory_path() / "kaltrova_bench_16000.fil";
        std::string text;
        for (const auto& line : bench::RandomRecordLines(records, bench::kNamesSeed))
            text += line + "\r\n";
        (void)ReplaceFile(path, text);
        return path.string();
    }();
    std::vector<std::string> args = {KALTROVA_CLI, "--dir",   KALTROVA_APPDIR,
                                     "batch",      "--names", file};
    if (state.range(0) > 0) {
        args.push_back("--jobs");
        args.push_back(std::to_string(state.range(0)));
    }
    args.push_back("page");
    for (auto _ : state) {
        if (!RunProcess(args, true)) {
            state.SkipWithError("kaltrova-cli batch failed");
            break;
        }
    }
    state.counters["charts"] = records;
}

// For comparison: one swetest process for the same moment (bodies and
// houses), where swetest is installed.
void BM_Process_Swetest(benchmark::State& state) {
    const auto& set = BenchCharts();
    const std::string ephe = std::string("-edir") + KALTROVA_APPDIR + "/ephems";
    bench::TimeProcesses(state, [&](std::size_t i) -> std::vector<std::string> {
        const bench::Moment& m = set.moments[i % set.moments.size()];
        int y = 0, mo = 0, d = 0;
        double h = 0;
        swe_revjul(m.ut, SE_GREG_CAL, &y, &mo, &d, &h);
        char date[64], time[64], house[96];
        std::snprintf(date, sizeof date, "-b%d.%d.%d", d, mo, y);
        std::snprintf(time, sizeof time, "-ut%.6f", h);
        std::snprintf(house, sizeof house, "-house%.6f,%.6f,%c", m.lon, m.lat, m.houses);
        return {"/usr/bin/swetest", date, time, "-p0123456789m", house, "-head", ephe};
    });
}

void Register() {
    auto figure = [](const char* bm, const char* workload) {
        benchmark::RegisterBenchmark(bm, OverCharts, workload)->Unit(benchmark::kMicrosecond);
    };
    figure("BM_CalcChart", "calc");
    figure("BM_CalcChart_Shown", "shown");
    figure("BM_Listing_Header", "header");
    figure("BM_Listing_Career", "career");
    figure("BM_Listing_Aspects", "aspects");
    figure("BM_Listing_NatalData", "natal");
    figure("BM_Listing_CosmicState", "cosmic");
    figure("BM_PageText", "pagetext");
    // The processes side by side, each 200 times: the medians of wall and
    // processor time are the figures (wall_ms, cpu_ms).
    auto process = [](const char* name, void (*fn)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, fn)
            ->Iterations(200)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    process("BM_Process_True", BM_Process_True);
    process("BM_Process_CliPage", BM_Process_CliPage);
    if (std::filesystem::exists("/usr/bin/swetest"))
        process("BM_Process_Swetest", BM_Process_Swetest);
    benchmark::RegisterBenchmark("BM_Process_BatchPage", BM_Process_BatchPage)
        ->ArgName("jobs")
        ->Arg(1)
        ->Arg(0)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

} // namespace

int main(int argc, char** argv) {
    return kal::bench::Main(argc, argv, Register, Workloads());
}
