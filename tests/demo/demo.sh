#!/usr/bin/env bash
# demo.sh BUILD FOLDER: shows the whole job on a virtual display. Real songs, the prepared memory and
# the screenshots are left in FOLDER.
# demo.sh BUILD --documentation: does the same somewhere else, for the pictures of each window in
# docs/screenshots.
set -euo pipefail

build=$(realpath "$1")
here=$(dirname "$(realpath "$0")")
documentation=no
folder=$2
if [ "$folder" = --documentation ]; then
  documentation=yes
  # The pictures show paths; they are to be the same every time.
  folder=/tmp/kavena-demo
  mkdir "$folder"
  trap 'rm -rf "$folder"' EXIT
fi
folder=$(realpath "$folder")

mkdir -p "$folder/screenshots" "$folder/memories/CARD" "$folder/config"
cd "$folder"
export XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder/config" HOME="$folder"
export XDG_DATA_HOME="$folder/data"
export KAVENA_MOUNT_DIRS="$folder/memories" LC_ALL=C.UTF-8
chmod 700 "$folder/config"

"$here/../support/on-display.sh" "$build/tests/kavena-demo" "$folder"

if [ "$documentation" = yes ]; then
  target=$here/../../docs/screenshots
  mkdir -p "$target"
  for picture in documentation/*.png; do
    convert "$picture" -strip -dither None -colors 128 -define png:compression-level=9 \
      "PNG8:$target/$(basename "$picture")"
  done
  ls -l "$target"
  exit
fi

echo
echo "What the index on the memory now holds:"
python3 "$here/../tools/check_memory.py" --list memories/CARD
echo
echo "Everything is in $folder: the songs in music/, the player's memory in memories/CARD/,"
echo "$(find screenshots -name '*.png' | wc -l) screenshots in screenshots/."
