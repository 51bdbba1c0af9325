#!/usr/bin/env bash
# check_completion.sh FILE: what the completion offers in some places of a command.
set -euo pipefail

# shellcheck disable=SC1090
source "$1"
compopt() { :; } # there is no command line that is being edited

# offers WORDS...: the completions of the last word, on one line
offers() {
  COMP_WORDS=("$@")
  COMP_CWORD=$(($# - 1))
  _kavena
  echo "${COMPREPLY[*]}"
}

expect() {
  local wanted=$1
  shift
  local got
  got=$(offers "$@")
  [ "$got" = "$wanted" ] || { echo "FAIL: $* offers '$got', not '$wanted'" >&2; exit 1; }
}

expect "show set sync transfer index list remove eject catalogue history undo measure --help --version" kavena ""
expect "set" kavena se
expect "update rebuild check" kavena index ""
expect "find" kavena catalogue ""
expect "yes no" kavena transfer --replace ""
expect "title artist genre" kavena list --sort ""
expect "--dry-run" kavena sync --d
expect "--title" kavena set --t
expect "--in-line" kavena transfer --i
expect "--json" kavena index check --j
expect "--any-folder" kavena index update --a
expect "yes no" kavena remove --confirm ""
expect "--confirm" kavena remove --c
expect "yes no" kavena undo --changed ""
expect "--without-history" kavena set --w
expect "--apply" kavena measure --a
expect "--duplicates" kavena list --d
expect "--json" kavena eject --j
expect "" kavena show -- --j
