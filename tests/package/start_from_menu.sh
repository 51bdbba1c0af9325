#!/usr/bin/env bash
# start_from_menu.sh ROOT [chroot]: starts the program that is installed in ROOT as a desktop's menu
# would, on a virtual display and with nothing of this user's session; with "chroot", it sees nothing
# of this system either. Fails unless a window appears that has the name of the menu entry. Leaves
# screen.png in the working folder.
set -euo pipefail

if [ "${MENU_DISPLAY:-}" != yes ]; then
  MENU_DISPLAY=yes "$(dirname "$(realpath "$0")")/../support/on-display.sh" "$(realpath "$0")" "$@"
  exit
fi

root=$(realpath "$1")
entry=$root/usr/share/applications/org.kavena.KavenaPC.desktop
value() { sed -n "s/^$1=//p" "$entry"; }

home=$(mktemp -d "$root/tmp.XXXXXX")
program=
trap 'kill $program 2>/dev/null || true; rm -rf "$home"' EXIT
chmod 700 "$home"
if [ "${2:-}" = chroot ]; then
  inside=(chroot "$root")
  home_inside=${home#"$root"}
  path=/usr/bin:/bin
else
  inside=()
  home_inside=$home
  path=$root/usr/bin:/usr/bin:/bin
fi
"${inside[@]}" env -i HOME="$home_inside" XDG_RUNTIME_DIR="$home_inside" PATH="$path" \
  LANG=C.UTF-8 DISPLAY="$DISPLAY" DBUS_SESSION_BUS_ADDRESS=disabled: \
  sh -c "cd '$home_inside' && exec $(value Exec)" >"$home/output" 2>&1 &
program=$!

titles() {
  xdotool search --onlyvisible --class "^$(value StartupWMClass)\$" getwindowname %@ 2>/dev/null
}
for _ in $(seq 150); do
  title=$(titles || true)
  [ -z "$title" ] || break
  sleep 0.2
done

# It may take a while until the window is painted.
colours=0
for _ in $(seq 150); do
  import -window root screen.png
  colours=$(convert screen.png -format '%k' info:)
  if [ "$colours" -ge 50 ] || ! kill -0 $program 2>/dev/null; then
    break
  fi
  sleep 0.2
done
if ! kill -0 $program || [ -s "$home/output" ]; then
  echo "FAIL: the program ended or complains: $(cat "$home/output")" >&2
  exit 1
fi
if [ "$colours" -lt 50 ]; then
  echo "FAIL: no window is to be seen" >&2
  exit 1
fi
if [ "$title" != "$(value Name)" ]; then
  echo "FAIL: the menu entry is \"$(value Name)\", its window \"$title\"" >&2
  exit 1
fi
