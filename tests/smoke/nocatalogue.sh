#!/usr/bin/env bash
# nocatalogue.sh PROGRAM: the built program started where no temporary file can be made, so that it
# cannot open its catalogue. It has to say so, and to stay.
set -euo pipefail

. "$(dirname "$(realpath "$0")")/program.sh"

no_window_named() { ! window_named "$1"; }

TMPDIR=/dev/null "$1" >output.txt 2>&1 &
program=$!
trap 'kill $program 2>/dev/null || true' EXIT

# A first start is in German.
soon window_named '^Achtung$' || fail "nothing was told: $(cat output.txt; xwininfo -root -tree)"
[ -z "${KAVENA_PICTURE:-}" ] || import -window root "$KAVENA_PICTURE"
xdotool search --onlyvisible --name '^Achtung$' windowactivate --sync 2>/dev/null || true
xdotool key Return
soon no_window_named '^Achtung$' || fail "the box did not close"
soon window_named '^RB27 Utility$' || fail "the window is gone"
kill -0 $program || fail "the program ended: $(cat output.txt)"
echo "start without a catalogue passed"
