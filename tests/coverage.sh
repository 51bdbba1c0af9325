#!/usr/bin/env bash
# Prints how many lines the last run of the tests has reached, folder by folder, and the files that
# are reached least; fails where it is less than nine tenths of a folder. The build must have
# counted them, as that of the preset "asan" does: coverage.sh [BUILD FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/asan}

# Without the module of the sound: no device is there to play on.
gcovr --root . --object-directory "$build" --json-summary \
  --filter 'storage/' --filter 'formats/' --filter 'library/' --filter 'devindex/' \
  --filter 'sound/[a-z0-9]*\.' \
  --filter 'windows/' --filter 'app/' --filter 'cli/' \
  "$build/storage" "$build/formats" "$build/library" "$build/devindex" "$build/sound" "$build/windows" \
  "$build/app" "$build/cli" "$build/tests" |
  python3 -c '
import collections, json, sys

least = 90.0
folders = collections.defaultdict(lambda: [0, 0])
files = json.load(sys.stdin)["files"]
for file in files:
    folder = folders[file["filename"].split("/")[0]]
    folder[0] += file["line_covered"]
    folder[1] += file["line_total"]
print("least covered files:")
for file in sorted(files, key=lambda file: file["line_percent"])[:8]:
    print("  %5.1f %%  %s" % (file["line_percent"], file["filename"]))
layers = ("storage", "formats", "library", "devindex", "sound", "windows", "app", "cli")
missed = [name for name in layers if not folders[name][1]]
for name, (covered, total) in sorted(folders.items()):
    percent = 100.0 * covered / total
    print("%-9s %5.1f %%  (%d of %d lines)" % (name, percent, covered, total))
    if percent < least:
        missed.append(name)
if missed:
    sys.exit("not enough lines are reached in: " + ", ".join(missed))
'
