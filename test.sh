#!/usr/bin/env bash
# Builds Kaltrova and runs every test (core and windows); then builds it
# again with clang's address and undefined-behaviour sanitizers, runs every
# test there, and runs each fuzz target on a fixed series of inputs
# (tools/fuzz.sh; KALTROVA_FUZZ_RUNS sets how many, 400 by default).
# KALTROVA_SANITIZE=0 skips the second build.
set -euo pipefail
cd "$(dirname "$0")"
./deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build --output-on-failure -j"$(nproc)"

[ "${KALTROVA_SANITIZE:-1}" = 0 ] && exit 0
tools/sanitize.sh
KALTROVA_FUZZ_RUNS=${KALTROVA_FUZZ_RUNS:-400} tools/fuzz.sh
