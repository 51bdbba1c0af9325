#!/usr/bin/env bash
# smoke.sh PROGRAM: the built program from its first start to a filled table, on a virtual display,
# with nothing but mouse, keyboard and screenshots.
set -euo pipefail

. "$(dirname "$(realpath "$0")")/program.sh"

# How many pixels of the screenshot have exactly this colour.
pixels() { convert "$1" -fill black +opaque "$2" -fill white -opaque "$2" -format '%[fx:int(mean*w*h+0.5)]' info:; }

mkdir music
for song in 1 2 3; do
  printf 'X:1\nT:Smoke tune %s\nM:4/4\nL:1/4\nK:C\nCDEF|GABc|]\n' "$song" >"music/$song.abc"
  abc2midi "music/$song.abc" -o "music/tune$song.mid" >/dev/null
done
echo "this is no song" >music/broken.mid

"$1" >output.txt 2>&1 &
program=$!
trap 'kill $program 2>/dev/null || true' EXIT

# The icon follows the name.
window_has_icon() {
  xprop -name 'RB27 Utility' _NET_WM_ICON | grep -q 'Icon (48 x 48)'
}

# A first start is in German, under the partner's name.
soon window_named '^RB27 Utility$' ||
  fail "no window appeared: $(cat output.txt; xwininfo -root -tree)"
soon grep -q 'language=de' config/kavena_pc/kravo.conf || fail "the first start stored no language"
soon window_has_icon || fail "the window has no icon"
# What is on the screen has arrived when two looks in a row see the same and the folder button, which is
# where the screen is folder-yellow, has its full size.
folder_button() {
  convert "$1" -fuzz 4% -fill black +opaque '#f5b942' -fill white -opaque '#f5b942' \
    -trim -format '%w %h %X %Y\n' info: | tr -d '+'
}
window_painted() {
  [ ! -e before.png ] || mv before.png earlier.png
  import -window root before.png
  cmp -s earlier.png before.png || return 1
  read -r width height x y < <(folder_button before.png)
  [ "$width" -gt 20 ] && [ "$width" -lt 200 ] && [ "$height" -gt 20 ] && [ "$height" -lt 200 ]
}
soon window_painted || fail "the folder button is not to be seen"
[ "$(convert before.png -format '%k' info:)" -gt 50 ] || fail "the screen is empty"
[ "$(pixels before.png '#e6e6e6')" -lt 5000 ] || fail "the table is not empty at the start"
xdotool mousemove $((x + width / 2)) $((y + height / 2)) click 1

# Keys reach a window only once it has the focus; the desktop gives it some time after it is shown.
focus_is_in() { xdotool getwindowfocus getwindowname 2>/dev/null | grep -qE "$1"; }
soon focus_is_in 'Songs ausw' || fail "no file dialog in German"
xdotool type --delay 5 "\"$PWD/music/tune1.mid\" \"$PWD/music/tune2.mid\" \"$PWD/music/tune3.mid\" \"$PWD/music/broken.mid\""
xdotool key Return

# Three rows of new songs: light and dark grey stripes, as wide as the table.
table_filled() {
  import -window root after.png
  [ "$(pixels after.png '#c8c8c8')" -gt 10000 ] && [ "$(pixels after.png '#e6e6e6')" -gt 5000 ]
}
soon table_filled || fail "the table stayed empty: $(cat output.txt)"
kill -0 $program || fail "the program ended: $(cat output.txt)"
[ ! -e log.txt ] || fail "a log was written although logging is off"
! grep -qiE 'error|cannot|No such' output.txt || fail "the program complained: $(cat output.txt)"
[ "$(xdotool search --onlyvisible --name . 2>/dev/null | wc -l)" -ge 1 ] || fail "no window is left"

# Quit from the keyboard, once the import's progress is gone: until then the window does not close.
soon focus_is_in '^RB27 Utility$' || fail "the window did not get the focus back"
xdotool key alt+F4
soon bash -c "! kill -0 $program 2>/dev/null" || fail "the window did not close"
echo "smoke test passed"
