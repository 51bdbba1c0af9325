#!/usr/bin/env bash
# Builds Kavena PC and runs every test.
set -euo pipefail
cd "$(dirname "$0")"

packaging/ensure-packages.sh build test
cmake --preset release
cmake --build --preset release
if ctest --preset release; then
  echo "ALL TESTS PASSED"
else
  echo "TESTS FAILED: see the list above" >&2
  exit 1
fi
