// Benchmarks of the atlas: loading the index, and a search as the user
// types, by the number of letters typed. Run with repetitions and read the
// medians:
//   cmake --preset bench && cmake --build build-bench --target bench_atlas
//   build-bench/tools/bench/bench_atlas --benchmark_repetitions=9
//       --benchmark_report_aggregates_only=true   (one command line)
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "atlas/AtlasLookup.h"
#include "atlas/PlaceIndex.h"

namespace {

const std::filesystem::path kFile = std::filesystem::path(KALTROVA_APPDIR) / kal::kAtlasFile;

const kal::PlaceIndex& Atlas() {
    static const kal::PlaceIndex atlas = std::move(*kal::PlaceIndex::Load(kFile).index);
    return atlas;
}

// What users type: the names of places spread over the whole atlas, from
// the biggest cities to villages, in their ASCII spelling.
const std::vector<std::string>& Names() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> v;
        const kal::PlaceIndex& a = Atlas();
        for (std::uint32_t i = 0; i < a.size(); i += 251) v.emplace_back(a.place(i).asciiName);
        return v;
    }();
    return names;
}

void BM_AtlasLoad(benchmark::State& state) {
    for (auto _ : state) {
        auto loaded = kal::PlaceIndex::Load(kFile);
        benchmark::DoNotOptimize(loaded.index->size());
    }
}
BENCHMARK(BM_AtlasLoad)->Unit(benchmark::kMillisecond);

// One search for the first `letters` letters of a name, names taken in turn.
void BM_AtlasSearch(benchmark::State& state) {
    const kal::PlaceIndex& a = Atlas();
    const auto& names = Names();
    const auto letters = static_cast<std::size_t>(state.range(0));
    std::size_t n = 0;
    for (auto _ : state) {
        const std::string& name = names[n++ % names.size()];
        auto found = a.search(std::string_view(name).substr(0, letters), 100);
        benchmark::DoNotOptimize(found.data());
    }
}
BENCHMARK(BM_AtlasSearch)->DenseRange(1, 8)->Arg(40)->Unit(benchmark::kMicrosecond);

// A search with a country or region after the comma.
void BM_AtlasSearchQualified(benchmark::State& state) {
    const kal::PlaceIndex& a = Atlas();
    for (auto _ : state) {
        auto found = a.search("Paris, Texas", 100);
        benchmark::DoNotOptimize(found.data());
    }
}
BENCHMARK(BM_AtlasSearchQualified)->Unit(benchmark::kMicrosecond);

// The zone in force on a date (the zone data read once before).
void BM_AtlasZoneOnDate(benchmark::State& state) {
    kal::PrepareZoneData();
    for (auto _ : state) {
        auto z = kal::FindZoneInForce("Europe/London", -0.126, {1941, 7, 1, 12, 0});
        benchmark::DoNotOptimize(z.first.zone900);
    }
}
BENCHMARK(BM_AtlasZoneOnDate)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
