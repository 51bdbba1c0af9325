#!/usr/bin/env bash
# Builds and starts Kavena PC. "./run.sh --demo" shows the whole job on a virtual display instead.
#   KAVENA_BRANDING  quorvane (the default) or kavena
set -euo pipefail
cd "$(dirname "$0")"

demo=no
case "${1:-}" in
  "") ;;
  --demo) demo=yes ;;
  *) echo "usage: $0 [--demo]" >&2; exit 2 ;;
esac
if [ "$demo" = no ] && [ "$(uname)" != Darwin ] &&
   [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "There is no display here: showing the demonstration on a virtual one."
  demo=yes
fi

if [ "$demo" = yes ]; then
  packaging/ensure-packages.sh build test
  targets=(kavena-demo kavena-demo-otherbranding)
else
  packaging/ensure-packages.sh build
  targets=(kavena-pc)
fi

mkdir -p build
if ! { cmake --preset release -DKAVENA_BRANDING="${KAVENA_BRANDING:-quorvane}" && cmake --build --preset release --target "${targets[@]}"; } \
     >build/run.log 2>&1; then
  tail -n 40 build/run.log >&2
  echo "The build failed; its whole output is in build/run.log" >&2
  exit 1
fi

if [ "$demo" = no ]; then
  program=build/release/app/kavena-pc
  if [ "$(uname)" = Darwin ]; then program=$program.app/Contents/MacOS/kavena-pc; fi
  exec "$program"
fi
exec tests/demo/demo.sh build/release "$(mktemp -d "${TMPDIR:-/tmp}/kavena-demo.XXXXXX")"
