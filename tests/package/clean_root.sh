#!/usr/bin/env bash
# clean_root.sh PACKAGE: installs the package into a Debian that holds nothing else, made for this
# purpose, and starts the program there from its menu entry. Needs root, mmdebstrap and some minutes
# of the Debian mirrors; for releases, not for every change.
set -euo pipefail

package=$(realpath "$1")
here=$(dirname "$(realpath "$0")")
folder=$(mktemp -d "${TMPDIR:-/tmp}/kavena-root.XXXXXX")
trap 'rm -rf "$folder"' EXIT

mmdebstrap --variant=minbase --mode=root \
  --customize-hook="copy-in '$package' /" \
  --customize-hook="chroot \"\$1\" apt-get install -y --no-install-recommends '/$(basename "$package")'" \
  bookworm "$folder/root.tar" </etc/apt/sources.list.d/debian.sources
mkdir "$folder/root"
tar -C "$folder/root" -xf "$folder/root.tar"
cd "$folder"
"$here/start_from_menu.sh" root chroot
echo "$(basename "$package") installs into a clean Debian and starts there"
