#!/usr/bin/env bash
# Builds the Debian packages and leaves them in build/.
#   KAVENA_BRANDING  quorvane (the default) or kavena
set -euo pipefail
cd "$(dirname "$0")/.."

packaging/ensure-packages.sh build package
cmake --preset package -DKAVENA_BRANDING="${KAVENA_BRANDING:-quorvane}"
cmake --build --preset package
cpack --config build/package/CPackConfig.cmake -B build/package/deb
mv build/package/deb/*.deb build/
ls -l "$PWD"/build/*.deb
