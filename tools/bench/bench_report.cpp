// Benchmarks of the natal report with the shipped texts: the whole command
// (data page and report) for the Example record, and the paging that Save
// and Print apply to it. Run with repetitions and read the medians:
//   cmake --preset bench && cmake --build build-bench --target bench_report
//   build-bench/tools/bench/bench_report --benchmark_repetitions=9
//       --benchmark_report_aggregates_only=true   (one command line)
#include <benchmark/benchmark.h>

#include <filesystem>

#include "birthdata/Record.h"
#include "report/NatalReport.h"
#include "shell/Session.h"

namespace {

// A session on the program directory with the Example record calculated.
kal::Session& Example() {
    static kal::Session* s = [] {
        auto* session = new kal::Session;
        session->Open(KALTROVA_APPDIR);
        auto rec = kal::ParseRecordLine("Example,12 May 1959,10.43,A,6,75.23,39.45,");
        kal::InputFields in;
        kal::TransferRecord(*rec, session->regional.DateOrder, in);
        session->Calculate(in);
        return session;
    }();
    return *s;
}

void BM_NatalReport(benchmark::State& state) {
    kal::Session& s = Example();
    for (auto _ : state) {
        auto msgs = s.CmdNatalReport();
        benchmark::DoNotOptimize(s.report.ReportLineCount());
    }
    state.counters["lines"] = static_cast<double>(s.report.ReportLineCount());
}
BENCHMARK(BM_NatalReport)->Unit(benchmark::kMillisecond);

void BM_ReportPages(benchmark::State& state) {
    kal::Session& s = Example();
    s.CmdNatalReport();
    for (auto _ : state) {
        auto lines = kal::ReportPagedLines(s.report, s.options);
        benchmark::DoNotOptimize(lines.data());
    }
}
BENCHMARK(BM_ReportPages)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
