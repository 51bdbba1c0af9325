#!/usr/bin/env bash
# links.sh KAVENA: the command line needs no libraries of windows, and no display.
set -euo pipefail

libraries=$(ldd "$1")
grep -q libQt6Core <<<"$libraries" || { echo "ldd says nothing of Qt: $libraries"; exit 1; }
if grep -E 'libQt6(Widgets|Gui)|libX11|libwayland|libGL' <<<"$libraries"; then
  echo "these libraries are for windows"
  exit 1
fi
env -u DISPLAY -u WAYLAND_DISPLAY "$1" --version
