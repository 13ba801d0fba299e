#!/usr/bin/env bash
# Instructions per chart, counted by callgrind: the steady figures of the
# calculation path, beside the baseline (eleven swe_calc and one swe_houses
# on the same distinct charts). Then whole processes: kaltrova-cli page for
# one record, start-up included, and swetest for the same chart.
#
#   tools/bench/count_instructions.sh [BUILD_DIR] [CHARTS]
#
# BUILD_DIR is a build with the benchmarks (cmake --preset bench gives
# build-bench, the default); CHARTS how many distinct charts each workload
# runs (200 by default, at most 1024).
set -euo pipefail
build=${1:-build-bench}
n=${2:-200}
bench=$build/tools/bench/bench_calc
cli=$build/appdir/kaltrova-cli
[ -x "$bench" ] || { echo "no $bench: cmake --preset bench && cmake --build $build" >&2; exit 1; }

# Instructions callgrind collected for a command (stderr "Collected : N").
collected() {
  valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" 2>&1 >/dev/null |
    sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}
per_chart() {
  local total
  total=$(collected --instr-atstart=no --collect-atstart=no "$bench" --count "$1" "$n")
  echo $((total / n))
}

base=$(per_chart baseline)
printf '%-10s %12s %9s\n' workload "Ir/chart" x_baseline
printf '%-10s %12d %9.2f\n' baseline "$base" 1
for w in calc shown header career aspects natal cosmic pagetext; do
  ir=$(per_chart "$w")
  printf '%-10s %12d %9.2f\n' "$w" "$ir" "$(awk "BEGIN { print $ir / $base }")"
done

# The natal report with the shipped texts (calculation and data page
# included), on 50 of the charts.
report=$build/tools/bench/bench_report
if [ -x "$report" ]; then
  total=$(collected --instr-atstart=no --collect-atstart=no "$report" --count report 50)
  printf '%-10s %12d %9.2f\n' report $((total / 50)) "$(awk "BEGIN { print $total / 50 / $base }")"
fi

# batch page on one thread, per record: 1,000 random records, the whole
# process (start, names file, pages, LASTPAGE.TXT) divided among them.
names=$(mktemp --suffix=.fil)
trap 'rm -f "$names"' EXIT
"$bench" --names 1000 "$names"
total=$(collected "$cli" --dir "$build/appdir" batch --jobs 1 --names "$names" page)
printf '%-10s %12d %9.2f\n' batch $((total / 1000)) "$(awk "BEGIN { print $total / 1000 / $base }")"

record="Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org"
printf '\n%-26s %12s\n' process Ir
printf '%-26s %12d\n' "kaltrova-cli page" \
  "$(collected "$cli" --dir "$build/appdir" page --record "$record")"
if command -v swetest >/dev/null; then
  printf '%-26s %12d\n' "swetest (same chart)" \
    "$(collected swetest -b12.5.1959 -ut16:43 -p0123456789m -house-75.383,39.75,P -head \
      "-edir$build/appdir/ephems")"
fi
