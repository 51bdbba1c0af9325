#!/usr/bin/env bash
# Runs the fuzzers: run.sh SECONDS [fuzzer...]; each for so many seconds, all of them by default.
# Fails when one of them finds anything. Inputs, findings and logs stay in the work folder, so that
# a later run goes on from where this one ended.
#   FUZZ_SEED      makes the search the same each time (default: another one each time)
#   JOBS           how many run at a time (default: one for each processor)
#   FUZZ_TIMEOUT   seconds that one input may take (default: 10); more on a machine that is busy
#   FUZZ_BINARIES  where the fuzzers are (default: build/fuzz/tests/fuzz, built by preset "fuzz")
#   FUZZ_WORK      the work folder (default: build/fuzz/work)
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
seconds=${1:?usage: run.sh SECONDS [fuzzer...]}
shift
export binaries=${FUZZ_BINARIES:-$root/build/fuzz/tests/fuzz}
export work=${FUZZ_WORK:-$root/build/fuzz/work}
export seconds
export UBSAN_OPTIONS=print_stacktrace=1

fuzzers=("$@")
if [ ${#fuzzers[@]} -eq 0 ]; then
  for source in "$here"/fuzz_*.cpp; do
    fuzzers+=("$(basename "$source" .cpp)")
  done
fi

fuzz() {
  local fuzzer=$1 length=4096
  case $fuzzer in
    fuzz_lzhuffexpand | fuzz_metasong | fuzz_memory) length=16384 ;;
  esac
  mkdir -p "$work/corpus/$fuzzer" "$work/findings"
  local log=$work/$fuzzer.log
  if "$binaries/$fuzzer" -max_total_time="$seconds" -seed="${FUZZ_SEED:-0}" \
      -timeout="${FUZZ_TIMEOUT:-10}" -rss_limit_mb=2048 \
      -max_len=$length -dict="$work/seeds/$fuzzer.dict" -print_final_stats=1 \
      -artifact_prefix="$work/findings/$fuzzer-" \
      "$work/corpus/$fuzzer" "$work/seeds/$fuzzer" >"$log" 2>&1; then
    echo "$fuzzer: $(sed -n 's/^Done \(.*\)/\1/p' "$log")"
  else
    echo "$fuzzer: FOUND SOMETHING, see $log" >&2
    grep -E -A 12 'broken:|ERROR|runtime error' "$log" | head -30 >&2
    return 1
  fi
}
export -f fuzz

python3 "$here/seeds.py" "$work/seeds"
printf '%s\n' "${fuzzers[@]}" | xargs -P "${JOBS:-$(nproc)}" -I{} bash -euo pipefail -c 'fuzz {}'
