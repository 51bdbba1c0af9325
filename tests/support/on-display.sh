#!/usr/bin/env bash
# on-display.sh COMMAND...: runs a command on a virtual display of its own with a window manager, away
# from the user's desktop.
set -euo pipefail

work=$(mktemp -d "${TMPDIR:-/tmp}/kavena-display.XXXXXX")
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT

# The server picks a free display itself, so that several can start at once. It must not start anew
# whenever its last client leaves: that would throw out a window manager which is just coming in.
Xvfb -displayfd 1 -noreset -screen 0 1280x900x24 -nolisten tcp >"$work/display" 2>"$work/errors" &
for _ in $(seq 300); do
  [ -s "$work/display" ] && break
  sleep 0.1
done
[ -s "$work/display" ] || { cat "$work/errors" >&2; exit 1; }

export DISPLAY=":$(head -n 1 "$work/display")" QT_QPA_PLATFORM=xcb
# Nothing is to wait for a message bus that this display has not got.
export DBUS_SESSION_BUS_ADDRESS=disabled: NO_AT_BRIDGE=1
unset WAYLAND_DISPLAY XAUTHORITY
openbox >"$work/openbox" 2>&1 &
# A window that asks to be shown while the window manager still starts may never be shown.
managed() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }
for _ in $(seq 300); do
  managed && break
  sleep 0.1
done
managed || { echo "no window manager: $(cat "$work/openbox")" >&2; exit 1; }
"$@"
