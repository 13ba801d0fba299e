// Benchmarks of the calculation path: one chart through the ephemeris, and
// a whole calculation with its data page (what every OK and every wheel time
// step costs). Report figures as ratios taken in one run.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "birthdata/Record.h"
#include "chart/Calc.h"
#include "shell/Session.h"

namespace {

kal::Session& BenchSession() {
    static kal::Session s = [] {
        kal::Session x;
        x.Open(KALTROVA_APPDIR);
        auto rec = kal::ParseRecordLine("Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org");
        kal::TransferRecord(*rec, 0, x.calc.input);
        return x;
    }();
    return s;
}

void BM_CalcEphemeris(benchmark::State& state) {
    kal::Session& s = BenchSession();
    kal::Chart c;
    kal::FillIdentityFromInput(c, s.calc.input, 0);
    kal::SetCalcInputsFromInput(c, s.calc.input);
    for (auto _ : state) {
        kal::CalcEphemeris(c);
        kal::FindPlanetHouses(c);
        benchmark::DoNotOptimize(c.PlanetLong);
    }
}
BENCHMARK(BM_CalcEphemeris);

void BM_CalcChartWithPage(benchmark::State& state) {
    kal::Session& s = BenchSession();
    const kal::InputFields input = s.calc.input;
    for (auto _ : state) {
        benchmark::DoNotOptimize(s.Calculate(input).calculated);
    }
}
BENCHMARK(BM_CalcChartWithPage);

void BM_NatalAspects(benchmark::State& state) {
    kal::Session& s = BenchSession();
    s.Calculate(kal::InputFields(s.calc.input));
    for (auto _ : state) {
        s.listing.out.ClearAllLines();
        benchmark::DoNotOptimize(s.CmdNatalAspects());
    }
}
BENCHMARK(BM_NatalAspects);

} // namespace

BENCHMARK_MAIN();
