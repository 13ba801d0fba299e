#!/usr/bin/env bash
# Runs a command on a private X server (Xvfb) with a window manager
# (openbox), as a user's desktop would: windows get frames and title bars,
# and the manager, not the program, has the last word on where they go.
# Exits 77 (a skipped test) when either is missing.
set -uo pipefail
for tool in Xvfb openbox xprop; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: $tool is not installed (./deps.sh installs it)"
    exit 77
  fi
done

work=$(mktemp -d)
xvfb_pid=""
wm_pid=""
finish() {
  [ -n "$wm_pid" ] && kill "$wm_pid" 2>/dev/null
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT

# Xvfb picks a free display and writes its number to the pipe.
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
xvfb_pid=$!
read -r -t 20 number <"$work/display" || { echo "Xvfb did not start"; cat "$work/xvfb.log"; exit 1; }
export DISPLAY=":$number"

HOME="$work" openbox --sm-disable >"$work/openbox.log" 2>&1 &
wm_pid=$!
# The manager is up when it names itself on the root window.
for _ in $(seq 100); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done
if ! xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; then
  echo "openbox did not start"
  cat "$work/openbox.log"
  exit 1
fi

export QT_QPA_PLATFORM=xcb
"$@"
