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

expect "show set edit sync transfer index list remove eject catalogue history undo tags measure play render --help --version" kavena ""
expect "set" kavena se
expect "update rebuild check" kavena index ""
expect "find add export import" kavena catalogue ""
expect "--replace" kavena catalogue add --r
expect "--json" kavena catalogue find --j
expect "yes no" kavena transfer --replace ""
expect "title artist genre" kavena list --sort ""
expect "--dry-run" kavena sync --d
expect "--title" kavena set --t
expect "--in-line" kavena transfer --i
expect "--json" kavena index check --j
expect "--any-folder" kavena index update --a
expect "yes no" kavena remove --confirm ""
expect "--confirm" kavena remove --c
expect "--apply" kavena tags --a
expect "--sound-font" kavena play --s
expect "--to" kavena render --t
expect "yes no" kavena undo --changed ""
expect "--without-history" kavena set --w
expect "--pattern" kavena edit --p
expect "title upper lower first" kavena edit --case title ""
expect "genre" kavena edit --value g
expect "yes no" kavena edit --without-history ""
expect "--apply" kavena measure --a
expect "--duplicates" kavena list --d
expect "--json" kavena eject --j
expect "" kavena show -- --j
