#!/usr/bin/env bash
# Builds Kaltrova and its tests with clang's address and undefined-behaviour
# sanitizers (with the fuzz targets, which share the build directory) and
# runs every test there, windows included. Any report stops the program
# that made it and fails its test; leaks are reported too, and the only
# ones let through are listed with their reasons in tools/lsan.supp.
#
#   tools/sanitize.sh [ctest arguments...]
#
# The build directory is build-san (KALTROVA_BUILD_SAN overrides it).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=${KALTROVA_BUILD_SAN:-$root/build-san}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DKALTROVA_SANITIZE=ON -DKALTROVA_FUZZ=ON >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=halt_on_error=1:abort_on_error=0:detect_leaks=1:detect_stack_use_after_return=1:strict_init_order=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export LSAN_OPTIONS=suppressions=$root/tools/lsan.supp:print_suppressions=0
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build" --output-on-failure -j"$(nproc)" "$@"
