#!/usr/bin/env bash
# nocatalogue.sh PROGRAM: the built program started where no temporary file can be made, so that it
# cannot open its catalogue. It has to say so, and to stay.
set -euo pipefail

if [ "${SMOKE_DISPLAY:-}" != yes ]; then
  folder=$(mktemp -d "${TMPDIR:-/tmp}/kavena-nocatalogue.XXXXXX")
  trap 'rm -rf "$folder"' EXIT
  program=$(realpath "$1")
  script=$(realpath "$0")
  cd "$folder"
  mkdir config runtime
  chmod 700 runtime
  export HOME=$folder XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder/runtime
  export LC_ALL=C.UTF-8 SMOKE_DISPLAY=yes
  "$(dirname "$script")/../support/on-display.sh" "$script" "$program"
  exit
fi

fail() { echo "FAIL: $1" >&2; exit 1; }

# Tries a command for 30 seconds.
soon() {
  local tries
  for tries in $(seq 150); do "$@" && return; sleep 0.2; done
  return 1
}

window_named() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
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
window_named '^RB27 Utility$' || fail "the window is gone"
kill -0 $program || fail "the program ended: $(cat output.txt)"
echo "start without a catalogue passed"
