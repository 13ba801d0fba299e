#!/usr/bin/env bash
# Builds the fuzz targets of the file readers (clang, libFuzzer, address and
# undefined-behaviour sanitizers) and runs each for a while.
#
#   tools/fuzz.sh [SECONDS] [TARGET...]
#
# SECONDS per target (default 5); TARGET names (fuzz_names_file ...) pick
# targets, default all. The build directory is build-san (KALTROVA_BUILD_SAN
# overrides it), shared with the sanitizer build of the test suite. Corpora
# are seeded from data/ and tests/fuzz/seeds/ and grow in
# <build>/fuzz/corpus/<target>; an input that fails is kept in
# <build>/fuzz/findings/<target>/ and the script exits 1. Each target's
# executions and findings are printed at the end.
#
# KALTROVA_FUZZ_RUNS=N runs each target N times from a fixed seed instead of
# for SECONDS: the same inputs on every machine, so a result does not hang on
# the machine's speed or on luck (the test command runs it so).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
seconds=${1:-5}
shift || true
build=${KALTROVA_BUILD_SAN:-$root/build-san}

if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DKALTROVA_SANITIZE=ON -DKALTROVA_FUZZ=ON >/dev/null
fi
cmake --build "$build" -j"$(nproc)" --target fuzz_targets appdir >/dev/null

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for t in "$build"/fuzz/fuzz_*; do
    [ -f "$t" ] && [ -x "$t" ] && targets+=("$(basename "$t")")
  done
fi

# Seeds, once a target's corpus folder is new: the shipped files it reads,
# cut into pieces of 40 lines so that each run stays short (the fuzzer joins
# and grows them).
seed() { # target files...
  local dir=$build/fuzz/corpus/$1
  shift
  [ -d "$dir" ] && return
  mkdir -p "$dir"
  local f
  for f in "$@"; do
    split -l 40 -a 3 "$f" "$dir/seed-$(basename "$f")-"
  done
}
seed_meanings() { # the texts with the five bytes that choose the lookups
  local dir=$build/fuzz/corpus/fuzz_meanings_texts
  [ -d "$dir" ] && return
  mkdir -p "$dir"
  local k=0 f
  for f in "$@"; do
    k=$((k + 1))
    { printf "\\$(printf %03o $((k % 12)))\\$(printf %03o $((k % 12)))\\000\\001\\002"
      head -n 60 "$f"; } >"$dir/seed-$(basename "$f")"
  done
}
seed fuzz_names_file data/NAMES.FIL tests/oracle/edge_records.txt
seed fuzz_cities_file data/GA_MA.LL
seed fuzz_tz_dat data/TZ.DAT
seed fuzz_orb_file data/NATAL.ORB data/Dravik_Natal_Orbs.ORB
seed fuzz_options data/OPTIONS.OPT data/OPTIONS.MST
seed fuzz_settings tests/fuzz/seeds/Kaltrova.INI tests/fuzz/seeds/Kaltrova-fractions.INI
seed fuzz_wheel_tables data/HCDATA.DAT data/RADIUS.DAT
seed fuzz_report_texts data/RISING.TXT data/SIGN_*.TXT data/HOUSE_*.TXT data/Sun.TXT \
  data/Moon.TXT data/PERSONAL.NAM data/PHILO.HLP
seed_meanings data/SIGN_*.TXT data/HOUSE_?.TXT data/RISING.TXT data/Mars.TXT data/ARI.TXT \
  data/1.TXT data/The_Sun.TXT

export ASAN_OPTIONS=${ASAN_OPTIONS:-halt_on_error=1:detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-halt_on_error=1:print_stacktrace=1}
export TZ=America/New_York
status=0
summary=()
for t in "${targets[@]}"; do
  corpus=$build/fuzz/corpus/$t
  findings=$build/fuzz/findings/$t
  mkdir -p "$corpus" "$findings"
  mkdir -p "$build/fuzz/logs"
  log=$build/fuzz/logs/$t.log
  set +e
  if [ -n "${KALTROVA_FUZZ_RUNS:-}" ]; then
    limit=(-runs="$KALTROVA_FUZZ_RUNS" -seed=1)
  else
    limit=(-max_total_time="$seconds")
  fi
  "$build/fuzz/$t" "$corpus" "${limit[@]}" -max_len=16384 -timeout=20 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/" >"$log" 2>&1
  rc=$?
  set -e
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  found=$(find "$findings" -type f | wc -l)
  summary+=("$(printf '%-22s %10s executions %3d findings' "$t" "${runs:-?}" "$found")")
  if [ $rc -ne 0 ] || [ "$found" -ne 0 ]; then
    status=1
    echo "== $t failed (exit $rc); the input is in $findings; the log ends:" >&2
    tail -n 40 "$log" >&2
  fi
done
printf '%s\n' "${summary[@]}"
exit $status
