// Benchmarks of the natal report with the shipped texts, beside the
// baseline of the same run (BenchCharts.h): the whole command (calculation,
// data page and report) on distinct random charts, and the paging that Save
// and Print apply to a report. Run with repetitions and read the medians:
//   cmake --preset bench && cmake --build build-bench --target bench_report
//   build-bench/tools/bench/bench_report --benchmark_repetitions=9
//       --benchmark_report_aggregates_only=true   (one command line)
//   build-bench/tools/bench/bench_report --count report 50   (for callgrind)
#include <benchmark/benchmark.h>

#include "BenchCharts.h"
#include "report/NatalReport.h"

namespace {

using kal::bench::BenchCharts;
using kal::bench::BenchSession;

// The Natal Report command on chart i: calculated as OK does, then the
// report with its data page.
void NatalReport(std::size_t i) {
    const auto& set = BenchCharts();
    kal::Session& s = BenchSession();
    s.calc.HouseSystem = set.houses[i];
    s.Calculate(set.inputs[i]);
    benchmark::DoNotOptimize(s.CmdNatalReport());
}

// The report of chart i paged as Save writes it.
void ReportPages(std::size_t i) {
    NatalReport(i);
    kal::Session& s = BenchSession();
    benchmark::DoNotOptimize(kal::ReportPagedLines(s.report, s.options).data());
}

const kal::bench::Workloads& Workloads() {
    static const kal::bench::Workloads w = {
        {"report", {NatalReport}},
        {"reportpages", {ReportPages}},
    };
    return w;
}

void OverCharts(benchmark::State& state, const char* name) {
    const kal::bench::Workload& w = Workloads().at(name);
    const std::size_t n = BenchCharts().charts.size();
    std::size_t i = 0;
    std::size_t lines = 0;
    for (auto _ : state) {
        w.run(i++ % n);
        lines += BenchSession().report.ReportLineCount();
    }
    state.counters["lines"] =
        benchmark::Counter(static_cast<double>(lines), benchmark::Counter::kAvgIterations);
}

void Register() {
    benchmark::RegisterBenchmark("BM_NatalReport", OverCharts, "report")
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_NatalReport_Paged", OverCharts, "reportpages")
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    return kal::bench::Main(argc, argv, Register, Workloads());
}
