#!/usr/bin/env bash
# Builds Kaltrova and starts it. Without a display (or before the windows
# are built) it prints the listings of the first record of NAMES.FIL.
set -euo pipefail
cd "$(dirname "$0")"
./deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)"
app=build/appdir
if [ -x "$app/kaltrova" ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
  exec "$app/kaltrova" "$@"
fi
first=$(grep -m1 -v '^[[:space:]]*$' "$app/NAMES.FIL" | tr -d '\r')
echo "No display: the listings of the first record of NAMES.FIL ($first)."
for cmd in page; do
  "$app/kaltrova-cli" "$cmd" --record "$first"
done
echo
if [ -x "$app/kaltrova" ]; then
  echo "To start the windows, run ./run.sh on a desktop session, or: xvfb-run ./run.sh"
else
  echo "The desktop program is not built yet; kaltrova-cli --help lists what the core offers."
fi
