// What every benchmark of Kaltrova is measured against: distinct random
// charts, and the ephemeris work of one chart (eleven swe_calc and one
// swe_houses) as the baseline taken in the same run. Each figure a run
// prints carries its ratio to that baseline ("x_baseline"); a ratio is only
// meaningful within the run that printed it.
//
// A benchmark program hands main over to Main with a function that
// registers its figures (benchmark::RegisterBenchmark); Main registers the
// baseline before them, so that it runs first:
//
//   int main(int argc, char** argv) { return kal::bench::Main(argc, argv, Register, workloads); }
//
// The wheel paint, the time step and the report join as further figures of
// the same kind: a benchmark over BenchCharts() (one chart a step, taken in
// turn) and, for callgrind, a workload of the same name.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "chart/Chart.h"
#include "chart/InputFields.h"
#include "shell/Session.h"

namespace kal::bench {

// Names-file lines of n random births, 1900 to 2050, anywhere up to 66
// degrees of latitude, every one at another moment; the same for the same
// seed.
std::vector<std::string> RandomRecordLines(std::size_t n, std::uint64_t seed = 1);
// The seed of the names files of batch figures (`--names N FILE` writes one).
constexpr std::uint64_t kNamesSeed = 16000;

// What the ephemeris is asked for one chart.
struct Moment {
    double et = 0;  // ephemeris time (Julian day) of the bodies
    double ut = 0;  // universal time (Julian day) of the houses
    double lat = 0; // geographic latitude, North positive
    double lon = 0; // geographic longitude, East positive
    char houses = 'P';
};

struct ChartSet {
    std::vector<std::string> lines;  // the records
    std::vector<InputFields> inputs; // each moved into the input fields
    std::vector<Moment> moments;     // what the ephemeris is asked for each
    std::vector<Chart> charts;       // each calculated
    std::vector<char> houses;        // the house system of each (all seven in turn)
};

// 1024 charts, made once. A benchmark takes them in turn, one a step, so
// that no two consecutive steps ask the ephemeris for the same moment.
const ChartSet& BenchCharts();
// A session on the build's program directory (reports/LASTPAGE.TXT is
// written there).
Session& BenchSession();

// Runs a program to its end, its output thrown away (its standard error too
// when `quiet`); false when it could not be started or did not exit with 0.
bool RunProcess(const std::vector<std::string>& args, bool quiet = false);

// The wall time of one process from start to exit and the processor time it
// used (user and system), in seconds.
struct ProcessTimes {
    double wall = 0, cpu = 0;
};

// RunProcess, timed; nothing when it failed.
std::optional<ProcessTimes> RunProcessTimed(const std::vector<std::string>& args,
                                            bool quiet = false);

// A benchmark of whole processes: each iteration starts the command
// `argsOf(i)` gives, and the figures reported are the medians of the runs'
// wall and processor times (wall_ms, cpu_ms), which one slow start on a
// shared machine does not move as it moves a mean.
void TimeProcesses(benchmark::State& state,
                   const std::function<std::vector<std::string>(std::size_t)>& argsOf,
                   bool quiet = false);

// The baseline: eleven swe_calc and one swe_houses for one moment.
void EphemerisOnly(const Moment& m);

// A piece of work on chart i, by name: what a benchmark times and what
// callgrind counts (count_instructions.sh). `prepare`, when given, makes
// what the work reads (before any timing or counting).
struct Workload {
    std::function<void(std::size_t i)> run;
    std::function<void()> prepare;
};
using Workloads = std::map<std::string, Workload>;

// `--names N FILE` writes a names file of N random records (kNamesSeed) and
// nothing else. `--count NAME N` runs workload NAME on charts 0..N-1 in the function
// kaltrova_counted_run, which alone callgrind counts (see
// count_instructions.sh), and nothing else; otherwise the baseline (BM_Baseline_Ephemeris) and then
// the figures `registerFigures` registers run, each printed with its ratio to the baseline. The
// figures of processes are named BM_Process_...: they measure real time and are compared with the
// baseline's real time. A figure that does many charts an iteration sets the counter "charts"; its
// ratio is then to that many baselines.
int Main(int argc, char** argv, const std::function<void()>& registerFigures,
         const Workloads& workloads);

} // namespace kal::bench
