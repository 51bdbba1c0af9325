#!/usr/bin/env bash
# demo.sh BUILD FOLDER: shows the whole job on a virtual display. Real songs, the prepared memory and
# the screenshots are left in FOLDER, those of the other branding in FOLDER/otherbranding.
# demo.sh BUILD --documentation: does the same somewhere else, in both brandings, for the pictures of
# each window in docs/screenshots and those of the help pages in resources/help/pictures.
set -euo pipefail

build=$(realpath "$1")
here=$(dirname "$(realpath "$0")")
root=$here/../..

# demonstrate PROGRAM FOLDER
demonstrate() (
  folder=$(realpath "$2")
  mkdir -p "$folder/screenshots" "$folder/memories/CARD" "$folder/config"
  cd "$folder"
  export XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder/config" HOME="$folder"
  export XDG_DATA_HOME="$folder/data"
  export KAVENA_MOUNT_DIRS="$folder/memories" LC_ALL=C.UTF-8
  chmod 700 "$folder/config"
  "$here/../support/on-display.sh" "$build/tests/$1" "$folder"
)

# depict PICTURE TARGET [CHANGES...]
depict() {
  convert "$1" -strip "${@:3}" -dither None -colors 128 -define png:compression-level=9 "PNG8:$2"
}

# Takes from FOLDER the pictures of the help that are in one language, or in one branding too.
take_help() {
  local folder=$1 place picture name target
  shift
  for place in "$@"; do
    mkdir -p "$root/resources/help/pictures/$place"
    for picture in "$folder/help/$place"/*.png; do
      name=$(basename "$picture" .png)
      grep -q "src=\"$name.png\"" "$root"/resources/help/*.html || continue
      target=$root/resources/help/pictures/$place/$name.png
      depict "$picture" "$target" -resize '640x>'
      # The program carries the picture of docs/screenshots where it is the same.
      if cmp -s "$target" "$root/docs/screenshots/$name-$place.png"; then rm "$target"; fi
    done
  done
}

if [ "$2" = --documentation ]; then
  # The pictures show paths; they are to be the same every time.
  folder=/tmp/kavena-demo
  mkdir "$folder"
  trap 'rm -rf "$folder"' EXIT
  rm -rf "$root/resources/help/pictures"
  for program in kavena-demo kavena-demo-otherbranding; do
    rm -rf "${folder:?}"/*
    demonstrate "$program" "$folder"
    if [ -d "$folder/help/kavena_it" ]; then
      # Its English windows are those of the other branding, but for the names in them.
      take_help "$folder" it kavena_it kavena_en
      # Of the others, a software centre shows two.
      mkdir -p "$root/docs/screenshots/kavena"
      for picture in "$folder"/documentation/{main,memorysongs}-*.png; do
        depict "$picture" "$root/docs/screenshots/kavena/$(basename "$picture")"
      done
      continue
    fi
    for picture in "$folder"/documentation/*.png; do
      depict "$picture" "$root/docs/screenshots/$(basename "$picture")"
    done
    take_help "$folder" de en quorvane_de quorvane_en
  done
  ls -l "$root/docs/screenshots" "$root"/resources/help/pictures/*
  exit
fi

mkdir -p "$2/otherbranding"
folder=$(realpath "$2")
other=$folder/otherbranding
# Both at once, each on a display of its own: most of the time they wait for what is to be seen.
demonstrate kavena-demo-otherbranding "$other" >"$other/output.txt" 2>&1 &
trap wait EXIT
demonstrate kavena-demo "$folder"
wait $! || { cat "$other/output.txt" >&2; exit 1; }
python3 "$here/../tools/check_memory.py" "$other/memories/CARD"
echo
echo "What the index on the memory now holds:"
python3 "$here/../tools/check_memory.py" --list "$folder/memories/CARD"
echo
echo "Everything is in $folder: the songs in music/, the player's memory in memories/CARD/,"
echo "$(find "$folder/screenshots" -name '*.png' | wc -l) screenshots in screenshots/."
echo "The same in the other branding is in $other."
