#!/usr/bin/env bash
# Installs what Kaltrova needs to build, run and test on Debian 12.
# Does nothing when everything is already there.
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config libswe-dev swe-basic-data swetest
          googletest libgtest-dev qt6-base-dev qt6-base-private-dev qt6-svg-dev libgl-dev
          fonts-liberation2 fonts-dejavu-core xauth xvfb openbox x11-utils python3 clang-format
          libhowardhinnant-date-dev tzdata libbenchmark-dev valgrind clang libclang-rt-14-dev
          llvm)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo apt-get update
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
fi
