#!/usr/bin/env bash
# clang-tidy and cppcheck over the program's own sources; any finding fails. The preset "release"
# must have been built: its compile commands and generated headers are used.
set -euo pipefail
cd "$(dirname "$0")/.."

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
  --error-exitcode=1 storage formats library devindex windows app cli

echo "== clang-tidy"
run-clang-tidy -p build/release -j "$(nproc)" -quiet \
  "^$PWD/(storage|formats|library|devindex|windows|app|cli)/[a-z0-9]+\.cpp\$" >build/clang-tidy.log 2>&1 || {
  grep -E -A 4 '(warning|error):' build/clang-tidy.log >&2
  exit 1
}
echo "no findings"
