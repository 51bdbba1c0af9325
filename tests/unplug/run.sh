#!/usr/bin/env bash
# Takes a USB stick away while the program works on it, PULLS times for each of its jobs, and judges
# what is left: run.sh [PULLS]. By hand, before a release; a good half hour for 30.
#   UNPLUG_DRIVER  the driver (default: that of the preset "release", which is built)
#   UNPLUG_JOBS    only these of the jobs "empty over sync update remove inline"
#   UNPLUG_SEED    a number; another one gives other moments
#   UNPLUG_WORK    the work folder (default: build/unplug)
# The kernel is Debian's: its package is downloaded and unpacked in the work folder, not installed.
# What a pull has left behind when something was lost stays in its folder "findings".
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
work=${UNPLUG_WORK:-$root/build/unplug}

"$root/packaging/ensure-packages.sh" build unplug
driver=${UNPLUG_DRIVER:-$root/build/release/tests/kavena-unplug-driver}
if [ -z "${UNPLUG_DRIVER:-}" ]; then
  (cd "$root" && cmake --preset release &&
    cmake --build --preset release --target kavena-unplug-driver)
fi
mkdir -p "$work"
cd "$work"

if ! ls kernel/boot/vmlinuz-* >/dev/null 2>&1; then
  image=$(apt-cache depends linux-image-amd64 | sed -n 's/.*Depends: \(linux-image-[0-9].*\)/\1/p')
  rm -rf kernel
  apt-get download "$image"
  dpkg-deb -x "$image"_*.deb kernel
  rm "$image"_*.deb
fi
modules=(kernel/lib/modules/*)

# The guest: busybox, the driver with its libraries, the modules for the stick.
rm -rf guest songs
mkdir -p guest/{bin,dev,proc,sys,mnt,kavena/lib,kavena/plugins/sqldrivers}
"$driver" make "$work/songs" 2>make.log
cp "$here/init" guest/
cp "$(command -v busybox)" guest/bin/
cp -r songs/library songs/songsdb_debug guest/kavena/
cp "$driver" guest/kavena/driver
plugin=$(qmake6 -query QT_INSTALL_PLUGINS)/sqldrivers/libqsqlite.so
cp "$plugin" guest/kavena/plugins/sqldrivers/
ldd "$driver" "$plugin" | sed -n 's/.*=> \(\/[^ ]*\).*/\1/p' | sort -u | xargs cp -Lt guest/kavena/lib
mkdir guest/lib64
cp -L /lib64/ld-linux-x86-64.so.2 guest/lib64/
mkdir -p guest/lib/modules
(cd kernel/lib/modules && find */kernel \( -path '*/fs/fat/*' -o -path '*/fs/nls/*' \
  -o -path '*/drivers/usb/c*' -o -path '*/usb/host/xhci*' -o -path '*/usb/storage/*' \
  -o -path '*/drivers/scsi/s*' -o -path '*/block/t10*' -o -path '*/crypto/crc*' \
  -o -path '*/lib/crc*' \) -name '*.ko' -print0 |
  xargs -0 cp --parents -t "$work/guest/lib/modules")
busybox depmod -b guest "$(basename "${modules[0]}")"
(cd guest && find . | cpio --quiet -o -H newc) >guest.cpio

exec nice -n 10 python3 "$here/unplug.py" --pulls "${1:-30}" --seed "${UNPLUG_SEED:-1}" \
  --driver "$driver" --work "$work" --jobs "${UNPLUG_JOBS:-empty over sync update remove inline}"
