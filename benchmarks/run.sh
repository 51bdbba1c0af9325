#!/usr/bin/env bash
# Builds and runs every benchmark; each prints its figures and the ratios that it is held to.
set -euo pipefail
cd "$(dirname "$0")/.."

packaging/ensure-packages.sh build test bench
cmake --preset release -DKAVENA_BENCHMARKS=ON >/dev/null
cmake --build --preset release >/dev/null
export QT_QPA_PLATFORM=offscreen
for bench in build/release/benchmarks/bench_*; do
  [ -x "$bench" ] && [ -f "$bench" ] || continue
  echo "== $(basename "$bench")"
  "$bench"
done
