#!/usr/bin/env bash
# Builds Kaltrova and runs every test (core and windows).
set -euo pipefail
cd "$(dirname "$0")"
./deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build --output-on-failure -j"$(nproc)"
