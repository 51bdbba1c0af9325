#!/usr/bin/env bash
# sound_off.sh CMAKE SOURCES BUILD GENERATOR: configures the program without sound in a folder of its
# own, where the libraries of the sound cannot be found, and compiles the layer.
set -euo pipefail

cmake=$1
sources=$2
folder=$3/sound-off
generator=$4
trap 'rm -rf "$folder"' EXIT
rm -rf "$folder"

configure() {
  "$cmake" -S "$sources" -B "$folder" -G "$generator" -DBUILD_TESTING=OFF -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS=-O0 -DCMAKE_UNITY_BUILD=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt6Multimedia=ON \
    -DFLUIDSYNTH_LIBRARY=FLUIDSYNTH_LIBRARY-NOTFOUND "$@"
}

configure -DKAVENA_SOUND=OFF >"$3/sound-off.txt" 2>&1 || { cat "$3/sound-off.txt"; exit 1; }
if grep -rqi "fluidsynth\|Qt6Multimedia\.so" "$folder/build.ninja" "$folder/Makefile" 2>/dev/null; then
  echo "FAIL: the build without sound names its libraries" >&2
  exit 1
fi
"$cmake" --build "$folder" --target kavena_sound >"$3/sound-off.txt" 2>&1 ||
  { cat "$3/sound-off.txt"; exit 1; }
"$cmake" --build "$folder" --target help | grep -q "kavena-sound" &&
  { echo "FAIL: the module is built without being wanted" >&2; exit 1; }
echo "the program is built without sound"
