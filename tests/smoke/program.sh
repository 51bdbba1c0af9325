# What the tests of the started program share; they read this file first and get the program's path.
# It runs the test again on a display of its own, in an empty folder with empty settings, and ends.

if [ "${SMOKE_DISPLAY:-}" != yes ]; then
  folder=$(mktemp -d "${TMPDIR:-/tmp}/kavena-smoke.XXXXXX")
  trap 'rm -rf "$folder"' EXIT
  program=$(realpath "$1")
  script=$(realpath "$0")
  cd "$folder"
  mkdir config runtime
  chmod 700 runtime
  export HOME=$folder XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data
  export XDG_RUNTIME_DIR=$folder/runtime
  export LC_ALL=C.UTF-8 SMOKE_DISPLAY=yes
  "$(dirname "$script")/../support/on-display.sh" "$script" "$program"
  exit
fi

fail() { echo "FAIL: $1" >&2; exit 1; }

# Tries a command until it succeeds, for a minute.
soon() {
  local end=$((SECONDS + 60))
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.2
  done
}

window_named() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
