#include "BenchCharts.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <swephexp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <random>
#include <set>
#include <unistd.h>

#include "base/TextFile.h"
#include "birthdata/Record.h"

extern char** environ;

namespace kal::bench {

std::vector<std::string> RandomRecordLines(std::size_t n, std::uint64_t seed) {
    static const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::mt19937_64 rng(seed);
    auto uniform = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    std::set<std::string> moments;
    std::vector<std::string> lines;
    while (lines.size() < n) {
        int year = uniform(1900, 2050), month = uniform(1, 12);
        int day = uniform(1, kDays[month - 1]);
        int hour = uniform(1, 12), minute = uniform(0, 59);
        char half = uniform(0, 1) ? 'P' : 'A';
        int lonDeg = uniform(0, 179), lonMin = uniform(0, 59);
        bool west = uniform(0, 1) == 1;
        int latDeg = uniform(0, 65), latMin = uniform(0, 59);
        bool south = uniform(0, 4) < 2;
        // The zone of the longitude, now and then half an hour off; a West
        // longitude never takes a zone below -2.
        int zone = (lonDeg * 60 + lonMin + 450) / 900 * (west ? 1 : -1);
        char buf[160];
        std::snprintf(buf, sizeof buf, "%02d %s %04d,%d.%02d,%c", day, kMonths[month - 1], year,
                      hour, minute, half);
        if (!moments.insert(buf).second) continue;
        std::string zoneText =
            std::to_string(zone) + (zone > -12 && zone < 12 && uniform(0, 3) == 0 ? ".5" : "");
        std::string line = "Chart" + std::to_string(lines.size()) + "," + buf + "," + zoneText;
        std::snprintf(buf, sizeof buf, ",%s%03d.%02d,%s%02d.%02d,", west ? "" : "-", lonDeg, lonMin,
                      south ? "-" : "", latDeg, latMin);
        lines.push_back(line + buf);
    }
    return lines;
}

namespace {
std::size_t chartCount = 1024;
constexpr char kHouseLetters[] = "PKRCOBT";
} // namespace

Session& BenchSession() {
    static Session s = [] {
        Session x;
        x.Open(KALTROVA_APPDIR);
        return x;
    }();
    return s;
}

const ChartSet& BenchCharts() {
    static const ChartSet set = [] {
        ChartSet c;
        Session& s = BenchSession();
        c.lines = RandomRecordLines(chartCount);
        for (std::size_t i = 0; i < c.lines.size(); ++i) {
            auto rec = ParseRecordLine(c.lines[i]);
            InputFields in;
            if (!rec || TransferRecord(*rec, 0, in)) {
                std::cerr << "bench: record not taken: " << c.lines[i] << "\n";
                std::exit(1);
            }
            s.calc.HouseSystem = kHouseLetters[i % 7];
            if (!s.Calculate(in).calculated) {
                std::cerr << "bench: record refused: " << c.lines[i] << "\n";
                std::exit(1);
            }
            const Chart& ch = s.calc.chart;
            c.inputs.push_back(in);
            c.houses.push_back(s.calc.HouseSystem);
            c.charts.push_back(ch);
            c.moments.push_back({ch.JulDayUT + swe_deltat(ch.JulDayUT), ch.JulDayUT, ch.GeoLat,
                                 ch.GeoLong, ch.HouseSystem});
        }
        return c;
    }();
    return set;
}

void EphemerisOnly(const Moment& m) {
    double xx[6];
    char serr[256];
    for (int body = SE_SUN; body <= SE_MEAN_NODE; ++body) {
        swe_calc(m.et, body, SEFLG_SWIEPH | SEFLG_SPEED, xx, serr);
        benchmark::DoNotOptimize(xx[0]);
    }
    double cusps[13], ascmc[10];
    swe_houses(m.ut, m.lat, m.lon, m.houses, cusps, ascmc);
    benchmark::DoNotOptimize(cusps[1]);
}

namespace {

void BM_Baseline_Ephemeris(benchmark::State& state) {
    const ChartSet& set = BenchCharts();
    std::size_t i = 0;
    for (auto _ : state) EphemerisOnly(set.moments[i++ % set.moments.size()]);
}

// The console table with each figure's ratio to the baseline of the same
// run: CPU time against CPU time, or real time against real time for the
// figures that measure real time (the processes).
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    // In colour on a terminal; the ratio follows each figure as
    // "x_baseline=...".
    RatioReporter() : ConsoleReporter(isatty(1) ? OO_Color : OO_None) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> out = runs;
        for (Run& r : out) {
            const std::string kind = r.aggregate_name;
            double mul = benchmark::GetTimeUnitMultiplier(r.time_unit);
            double cpu = r.GetAdjustedCPUTime() / mul, real = r.GetAdjustedRealTime() / mul;
            if (r.run_name.function_name == "BM_Baseline_Ephemeris") {
                cpu_[kind] = cpu;
                real_[kind] = real;
                continue;
            }
            if (kind != "" && kind != "mean" && kind != "median") continue;
            auto& base = r.run_name.function_name.rfind("BM_Process", 0) == 0 ? real_ : cpu_;
            auto b = base.find(kind);
            if (b == base.end() || b->second <= 0) continue;
            double t = &base == &real_ ? real : cpu;
            // A figure of many charts at once says how many.
            double charts = 1;
            if (auto c = r.counters.find("charts"); c != r.counters.end() && c->second.value > 0)
                charts = c->second.value;
            r.counters["x_baseline"] = benchmark::Counter(t / (charts * b->second));
        }
        ConsoleReporter::ReportRuns(out);
    }

  private:
    std::map<std::string, double> cpu_, real_;
};

} // namespace

} // namespace kal::bench

// Under callgrind started with --instr-atstart=no --collect-atstart=no,
// only this loop is counted (outside valgrind the requests do nothing).
extern "C" __attribute__((noinline)) void kaltrova_counted_run(const kal::bench::Workload* w,
                                                               std::size_t n) {
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_TOGGLE_COLLECT;
    for (std::size_t i = 0; i < n; ++i) w->run(i);
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_STOP_INSTRUMENTATION;
}

namespace kal::bench {

bool RunProcess(const std::vector<std::string>& args, bool quiet) {
    return RunProcessTimed(args, quiet).has_value();
}

std::optional<ProcessTimes> RunProcessTimed(const std::vector<std::string>& args, bool quiet) {
    std::vector<char*> argv;
    for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    if (quiet) posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    int rc = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (rc != 0) return std::nullopt;
    int status = 0;
    struct rusage usage {};
    if (wait4(pid, &status, 0, &usage) != pid) return std::nullopt;
    const auto end = std::chrono::steady_clock::now();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return ProcessTimes{std::chrono::duration<double>(end - start).count(),
                        seconds(usage.ru_utime) + seconds(usage.ru_stime)};
}

void TimeProcesses(benchmark::State& state,
                   const std::function<std::vector<std::string>(std::size_t)>& argsOf, bool quiet) {
    std::vector<double> wall, cpu;
    std::size_t i = 0;
    for (auto _ : state) {
        auto t = RunProcessTimed(argsOf(i++), quiet);
        if (!t) {
            state.SkipWithError("the process failed");
            return;
        }
        wall.push_back(t->wall);
        cpu.push_back(t->cpu);
    }
    auto medianMs = [](std::vector<double>& v) {
        if (v.empty()) return 0.0;
        auto mid = v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2);
        std::nth_element(v.begin(), mid, v.end());
        return *mid * 1000;
    };
    state.counters["wall_ms"] = medianMs(wall);
    state.counters["cpu_ms"] = medianMs(cpu);
}

int Main(int argc, char** argv, const std::function<void()>& registerFigures,
         const Workloads& workloads) {
    if (argc == 4 && std::strcmp(argv[1], "--count") == 0) {
        auto w = workloads.find(argv[2]);
        std::size_t n = std::strtoul(argv[3], nullptr, 10);
        if (w == workloads.end() || n == 0 || n > chartCount) {
            std::cerr << "usage: " << argv[0] << " --count WORKLOAD N (N up to " << chartCount
                      << "); workloads:";
            for (const auto& [name, _] : workloads) std::cerr << " " << name;
            std::cerr << "\n";
            return 64;
        }
        chartCount = n; // only the charts counted
        BenchCharts();
        if (w->second.prepare) w->second.prepare();
        kaltrova_counted_run(&w->second, n);
        return 0;
    }
    if (argc == 4 && std::strcmp(argv[1], "--names") == 0) {
        const std::size_t n = std::strtoul(argv[2], nullptr, 10);
        std::string text;
        for (const auto& line : RandomRecordLines(n, kNamesSeed)) text += line + "\r\n";
        if (n == 0 || !ReplaceFile(argv[3], text)) {
            std::cerr << "usage: " << argv[0] << " --names N FILE (N random records)\n";
            return 64;
        }
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RegisterBenchmark("BM_Baseline_Ephemeris", BM_Baseline_Ephemeris)
        ->Unit(benchmark::kMicrosecond);
    registerFigures();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

} // namespace kal::bench
