#!/usr/bin/env bash
# Builds and runs every benchmark; each prints its figures and the ratios that it is held to, and
# fails when it misses one.
set -euo pipefail
cd "$(dirname "$0")/.."

packaging/ensure-packages.sh build test bench
cmake --preset release -DKAVENA_BENCHMARKS=ON >/dev/null
cmake --build --preset release >/dev/null
export QT_QPA_PLATFORM=offscreen
missed=()
for source in benchmarks/bench_*.cpp; do
  name=$(basename "$source" .cpp)
  echo "== $name"
  "build/release/benchmarks/$name" || missed+=("$name")
done
echo "== bench_cli"
benchmarks/bench_cli.py build/release/cli/kavena || missed+=(bench_cli)
if [ ${#missed[@]} -gt 0 ]; then
  echo "LIMITS MISSED: ${missed[*]}"
  exit 1
fi
echo "ALL LIMITS HELD"
