#!/usr/bin/env bash
# check_deb.sh CONFIGURATION VERSION CPACK PACKAGE TOOLS PRODUCT: makes the Debian packages of a
# configuration of CPack, which have these names, holds what is in them against the rules for such
# files, starts the program as the desktop's menu would, and runs the command line.
set -euo pipefail

configuration=$(realpath "$1")
version=$2
cpack=$3
names=("$4" "$5")
product=$6
here=$(dirname "$(realpath "$0")")
folder=$(mktemp -d "${TMPDIR:-/tmp}/kavena-package.XXXXXX")
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "FAIL: $1" >&2; exit 1; }

"$cpack" --config "$configuration" -B . >cpack.txt 2>&1 || fail "$(cat cpack.txt)"
package=$(echo "${names[0]}"_"$version"_*.deb)
[ -f "$package" ] || fail "no package of this name: $(ls)"

tools=$(echo "${names[1]}"_"$version"_*.deb)
[ -f "$tools" ] || fail "no package of this name: $(ls)"
[ "$(ls *.deb | wc -l)" -eq 2 ] || fail "more packages than two: $(ls)"

field() { dpkg-deb -f "$package" "$1"; }
[ "$(field Version)" = "$version" ] || fail "version $(field Version)"
for needed in libqt6sql6-sqlite libqt6gui6 libqt6widgets6 libqt6core5compat6 libqt6multimedia6 \
              libfluidsynth3; do
  field Depends | grep -q "$needed" || fail "the package does not ask for $needed"
done
field Recommends | grep -q timgm6mb-soundfont || fail "the package does not recommend a sound font"
# Of the tags below an error or a warning, none is about what makes a package fail.
lintian --fail-on error,warning "$package" "$tools" 2>/dev/null || fail "lintian is not content"

dpkg-deb -x "$package" root
share=root/usr/share
desktop=$share/applications/org.kavena.KavenaPC.desktop
desktop-file-validate "$desktop"
grep -qx "Name=$product" "$desktop" || fail "the menu has another name than \"$product\""
grep -q "<name>$product</name>" "$share"/metainfo/*.xml || fail "the metainfo has another name"
appstreamcli validate --no-net "$share"/metainfo/*.xml >appstream.txt || fail "$(cat appstream.txt)"
grep -q "<release version=\"$version\" date=\"20[0-9-]*\">" "$share"/metainfo/*.xml ||
  fail "the metainfo does not name this release"
grep -q "<li>" <(sed -n '/<releases>/,$p' "$share"/metainfo/*.xml) ||
  fail "the metainfo does not tell what is new"
for picture in $(grep -o 'screenshots/[a-z/]*-[a-z]*\.png' "$share"/metainfo/*.xml); do
  [ -s "$here/../../docs/$picture" ] || fail "$picture is no picture of ours"
done
for page in "$share"/man/man1/kavena-pc.1.gz "$share"/man/de/man1/kavena-pc.1.gz; do
  gunzip -c "$page" >page.1
  mandoc -Tlint -Wwarning page.1 || fail "$page has mistakes"
  grep -q "$product $version" page.1 || fail "$page is of another version"
done

icon=$(sed -n 's/^Icon=//p' "$desktop")
for size in 16 22 24 32 48 64 128 256 512; do
  picture=$share/icons/hicolor/${size}x$size/apps/$icon.png
  [ "$(identify -format '%wx%h' "$picture")" = "${size}x$size" ] || fail "$picture is not $size"
done
[ -s "$share/icons/hicolor/scalable/apps/$icon.svg" ] || fail "no scalable icon"

# The command line needs nothing of the windows, and shares no file with their package.
needed=$(dpkg-deb -f "$tools" Depends)
grep -q libqt6sql6-sqlite <<<"$needed" || fail "kavena-tools does not ask for SQLite: $needed"
! grep -E 'widgets|libqt6gui|kavena-pc' <<<"$needed" || fail "kavena-tools asks for windows: $needed"
dpkg-deb -x "$tools" tools
(cd root && find . -type f) | sort >files-pc
(cd tools && find . -type f) | sort >files-tools
[ -z "$(comm -12 files-pc files-tools)" ] || fail "the packages share files"
for page in tools/usr/share/man/man1/kavena.1.gz tools/usr/share/man/de/man1/kavena.1.gz; do
  gunzip -c "$page" >page.1
  mandoc -Tlint -Wwarning page.1 || fail "$page has mistakes"
  grep -q "$product $version" page.1 || fail "$page is of another version"
done

# One name for one thing: nothing that a user reads names the product or the player of the other
# branding.
case $product in
  "RB27 Utility") other=Kavena examples_in_german=Beispiele ;;
  *) other=RB27 examples_in_german=Examples ;; # German is not among the languages
esac
cat "$desktop" "$share"/metainfo/*.xml >texts
dpkg-deb -f "$package" >>texts
dpkg-deb -f "$tools" >>texts
gunzip -c {root,tools}/usr/share/man/{,de/}man1/*.gz >>texts
! grep -w "$other" texts || fail "the packages name $other"

"$here/check_completion.sh" tools/usr/share/bash-completion/completions/kavena
[ "$(env -u DISPLAY -u WAYLAND_DISPLAY tools/usr/bin/kavena --version)" = "kavena $version" ] ||
  fail "the command line does not start"
LC_ALL=de_DE.UTF-8 tools/usr/bin/kavena --help | grep "^$examples_in_german:" >/dev/null ||
  fail "the command line is of another branding"

# With both packages the command line finds the sound; with its own alone it says what is missing.
printf 'MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\014\0\x90\x3c\x64\x60\x80\x3c\0\0\xff\x2f\0' >song.mid
! tools/usr/bin/kavena render song.mid --to song.wav 2>sound.txt || fail "sound without its package"
grep -q "not installed\|nicht installiert" sound.txt || fail "no word of the sound: $(cat sound.txt)"
cp -a tools/usr/bin/kavena root/usr/bin/
root/usr/bin/kavena render song.mid --to song.wav || fail "the command line does not find the sound"
rm root/usr/bin/kavena
[ "$(stat -c %s song.wav)" -gt 80000 ] || fail "the sound is too short"

"$here/start_from_menu.sh" root
echo "$package and $tools are in order, and the programs in them start"
