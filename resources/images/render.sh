#!/usr/bin/env bash
# render.sh: makes the PNG images of this folder from the drawings in source/ (rsvg-convert of the
# package librsvg2-bin, fonts-dejavu-core). Run it after changing a drawing, and commit both.
set -euo pipefail
cd "$(dirname "$0")"

# Each picture is drawn at twice the size in which it is shown, so that it is sharp at 2x as well.
for drawing in source/*.svg; do
  name=$(basename "$drawing" .svg)
  case $name in kavena-pc*) continue ;; esac
  rsvg-convert "$drawing" -o "$name.png"
done

# The icon of the program. Below 32 pixels a simpler drawing is more legible.
for size in 16 22 24 32 48 64 128 256 512; do
  drawing=source/kavena-pc.svg
  if [ "$size" -lt 32 ]; then drawing=source/kavena-pc_small.svg; fi
  rsvg-convert -w "$size" -h "$size" "$drawing" -o "kavena-pc_$size.png"
done
