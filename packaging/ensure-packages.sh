#!/usr/bin/env bash
# Installs the Debian packages that are missing for the groups named as arguments (build, test,
# package, check, bench, unplug), as root or through sudo; where neither is possible, says in one
# line what to install.
set -euo pipefail

declare -A groups=(
  [build]="cmake ninja-build g++ qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev
           qt6-5compat-dev libqt6sql6-sqlite libcli11-dev qt6-tools-dev qt6-tools-dev-tools
           qt6-l10n-tools qt6-translations-l10n sqlite3 libtag1-dev libicu-dev libzstd-dev
           qt6-multimedia-dev libfluidsynth-dev"
  [test]="xvfb openbox xdotool imagemagick x11-utils fonts-dejavu-core midicsv abcmidi lame
          ffmpeg eyed3 fluidsynth sox libsox-fmt-mp3
          id3v2 openttd-openmsx python3 python3-mutagen clang-format
          zstd timgm6mb-soundfont gstreamer1.0-plugins-base gstreamer1.0-plugins-good
          mold dpkg-dev desktop-file-utils appstream mandoc lintian dbus python3-dbusmock
          python3-pyatspi at-spi2-core"
  [package]="dpkg-dev"
  [check]="clang libclang-rt-14-dev clang-tidy clazy cppcheck gcovr"
  [bench]="libbenchmark-dev lhasa time python3-mutagen kid3-cli"
  [unplug]="qemu-system-x86 dosfstools mtools busybox-static cpio python3"
)

# Without dpkg (macOS, other systems) the packages are the user's business; CMake says what it misses.
command -v dpkg-query >/dev/null || exit 0

missing=()
for group in "$@"; do
  for package in ${groups[$group]}; do
    status=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
  done
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
  as_root=()
elif sudo -n true 2>/dev/null; then
  as_root=(sudo)
else
  echo "Please install first: sudo apt-get install ${missing[*]}" >&2
  exit 1
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
