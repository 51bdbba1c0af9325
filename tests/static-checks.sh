#!/usr/bin/env bash
# clang-tidy, clazy and cppcheck over the program's own sources; any finding fails. The presets
# "release" and "asan" must have been built: their compile commands and generated headers are used.
#   static-checks.sh           what is asked of every change: two minutes
#   static-checks.sh --paths   also follows the paths through each function: seven minutes more
set -euo pipefail
cd "$(dirname "$0")/.."
case $* in
  '') follows_paths=false ;;
  --paths) follows_paths=true ;;
  *)
    echo "usage: static-checks.sh [--paths]" >&2
    exit 2
    ;;
esac

# What cppcheck is not asked about:
#   useStlAlgorithm        a loop is often the clearer text
#   constVariable          it wants arrays of pointers to be const that already are
#   unassignedVariable     it takes an object without members for a variable without a value
#   unusedStructMember     it does not see uses through an algorithm's result
#   ignoredReturnErrorCode a statement that could not be prepared says so when it is executed
echo "== cppcheck"
cppcheck --quiet -j "$(nproc)" --std=c++17 --language=c++ --library=qt --inline-suppr -I . \
  --enable=warning,style,performance,portability '-DQ_DISABLE_COPY_MOVE(Class)=' \
  --suppress=useStlAlgorithm --suppress=constVariable --suppress=unassignedVariable \
  --suppress=unusedStructMember --suppress=ignoredReturnErrorCode \
  --error-exitcode=1 storage formats library devindex sound windows app cli

# Everything but the paths through the code is asked of all sources of a layer at once, so that Qt's
# headers are read once a layer. The paths are followed file by file, which also tells whether each
# file includes what it uses; leaks are not asked about there, because a call that Qt queues is taken
# for one. The tests under the sanitizers find them.
echo "== clang-tidy"
layers='(storage|formats|library|devindex|sound|sound/module|windows|app|cli)'
tidy() { # tidy BUILD CHECKS FILES [OPTION...]
  run-clang-tidy -p "$1" -j "$(nproc)" -quiet -checks="$2" "${@:4}" "$3" >build/clang-tidy.log 2>&1 || {
    grep -E -A 4 '(warning|error):' build/clang-tidy.log >&2
    exit 1
  }
  grep -q "^clang-tidy" build/clang-tidy.log || { echo "clang-tidy was given no file" >&2; exit 1; }
}
tidy build/asan '-clang-analyzer-*,-bugprone-suspicious-include' \
  "^$PWD/(build/asan/$layers/.*/unity_0_cxx.cxx|cli/(arguments|help).cpp|sound/soundmodule.cpp)\$" \
  -header-filter="^$PWD/$layers/[a-z0-9]+\.(h|cpp)\$" \
  -extra-arg=-fno-sanitize=all -extra-arg=-Wno-error
if $follows_paths; then
  tests/tools/single_commands.py build/release build/single
  tidy build/single '-*,clang-analyzer-*,-clang-analyzer-cplusplus.NewDeleteLeaks' \
    "^$PWD/$layers/[a-z0-9]+\.cpp\$"
fi

# What clazy is not asked about:
#   connect-by-name                the names of these slots are part of the interface
#   non-pod-global-static          it takes a text that the compiler lays out for an allocated one
#   qstring-insensitive-allocation texts in upper case are not equal to texts compared without case
echo "== clazy"
rm -rf build/clazy
mkdir build/clazy
lint() {
  log=build/clazy/$(echo "$1" | tr / -).log
  clazy-standalone -p build/asan \
    -checks=level0,level1,no-connect-by-name,no-non-pod-global-static,no-qstring-insensitive-allocation \
    -header-filter="^$PWD/$layers/" --extra-arg=-fno-sanitize=all --extra-arg=-w \
    --extra-arg=-Wno-error "$1" >"$log" 2>&1 || {
    tail -n 20 "$log" >&2
    exit 1
  }
}
export -f lint
export layers
find build/asan -path '*/Unity/unity_0_cxx.cxx' -printf '%s %p\n' | sort -rn | cut -d' ' -f2 | # largest first
  xargs -P "$(nproc)" -I{} bash -euo pipefail -c 'lint {}'
if cat build/clazy/*.log | grep -E -A 3 "^$PWD/$layers/.*(warning|error):" >&2; then exit 1; fi
echo "no findings"
