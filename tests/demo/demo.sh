#!/usr/bin/env bash
# demo.sh BUILD FOLDER: shows the whole job on a virtual display. Real songs, the prepared memory and
# the screenshots are left in FOLDER.
set -euo pipefail

build=$(realpath "$1")
folder=$(realpath "$2")
here=$(dirname "$(realpath "$0")")

mkdir -p "$folder/screenshots" "$folder/memories/CARD" "$folder/config"
cd "$folder"
export XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder/config" HOME="$folder"
export KAVENA_MOUNT_DIRS="$folder/memories" LC_ALL=C.UTF-8
chmod 700 "$folder/config"

"$here/../support/on-display.sh" "$build/tests/kavena-demo" "$folder"

echo
echo "What the index on the memory now holds:"
python3 "$here/../tools/check_memory.py" --list memories/CARD
echo
echo "Everything is in $folder: the songs in music/, the player's memory in memories/CARD/,"
echo "$(find screenshots -name '*.png' | wc -l) screenshots in screenshots/."
