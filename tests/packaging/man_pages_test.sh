#!/usr/bin/env bash
# The manual pages render without a warning from groff or man.
# usage: man_pages_test.sh PAGE...
set -uo pipefail
failures=0
for page in "$@"; do
  warnings=$(groff -ww -man -z "$page" 2>&1)
  [[ -z $warnings ]] || { echo "FAIL groff $page: $warnings"; failures=$((failures + 1)); }
  warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$page" 2>&1 >/dev/null)
  [[ -z $warnings ]] || { echo "FAIL man $page: $warnings"; failures=$((failures + 1)); }
  grep -q '^\.SH NAME' "$page" || { echo "FAIL $page has no NAME section"; failures=$((failures + 1)); }
done
((failures == 0)) && echo "man pages: $# render cleanly"
exit $((failures > 0))
