#!/usr/bin/env bash
# Builds the Debian package and leaves it in build/.
set -euo pipefail
cd "$(dirname "$0")/.."

packaging/ensure-packages.sh build package
cmake --preset package
cmake --build --preset package
cpack --config build/package/CPackConfig.cmake -B build/package/deb
mv build/package/deb/*.deb build/
ls -l "$PWD"/build/*.deb
