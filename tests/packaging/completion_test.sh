#!/usr/bin/env bash
# The bash and zsh completions of velmo, run against the real program on a
# device with two tasks: each case is the words typed and what Tab must offer.
# usage: completion_test.sh SOURCE-DIR VELMO-BINARY
set -euo pipefail
source_dir=$1
velmo_bin=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/bin"
ln -s "$velmo_bin" "$work/bin/velmo"
export PATH="$work/bin:$PATH" VELMO_ROOT="$work/root" XDG_RUNTIME_DIR="$work"
velmo add "Buy milk" >/dev/null
velmo add "Call Ann" >/dev/null
ids=$(velmo list | cut -f1 | sort | tr '\n' ' ')
ids=${ids% }
failures=0

check() {  # shell, words, expected (sorted, space-separated), got
  if [[ $4 != "$3" ]]; then
    echo "FAIL $1: '$2' offered '$4', expected '$3'"
    failures=$((failures + 1))
  fi
}

# Cases: the words typed (the last one being completed) and the sorted offers.
cases=(
  "velmo li|list"
  "velmo list |active all completed future next overdue search today undated"
  "velmo list today --f|--filter"
  "velmo reg |export import"
  "velmo edit |$ids"
  "velmo --root $work/root edit |$ids"
  "velmo demo |"
  "velmo --ver|--version"
)
# Subcommands that take a task's identifier, when the program has them.
if ! velmo --help | grep -qE '^  edit ID'; then
  for n in "${!cases[@]}"; do [[ ${cases[n]} == *" edit |"* ]] && unset "cases[n]"; done
fi

source /usr/share/bash-completion/bash_completion
source "$source_dir/packaging/completion/velmo.bash"
for c in "${cases[@]}"; do
  [[ -n $c ]] || continue
  line=${c%%|*}
  expected=${c#*|}
  read -ra COMP_WORDS <<<"$line"
  [[ $line == *" " ]] && COMP_WORDS+=("")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMP_LINE=$line
  COMP_POINT=${#line}
  COMPREPLY=()
  _velmo || true
  got=$(printf '%s\n' "${COMPREPLY[@]}" | grep -v '^$' | sort | tr '\n' ' ' || true)
  check bash "$line" "$expected" "${got% }"
done

# zsh: the completion function with the completion system's calls recorded.
for c in "${cases[@]}"; do
  [[ -n $c ]] || continue
  line=${c%%|*}
  expected=${c#*|}
  got=$(zsh -f -c '
    setopt extendedglob
    offers=()
    compadd() { [[ $1 == -- ]] && shift; offers+=("$@") }
    _describe() { local name; for name in ${(P)${@[-1]}}; do offers+=(${name%%:*}); done }
    _files() { offers+=(FILES) }
    _directories() { offers+=(DIRS) }
    words=(${=1})
    [[ $1 == *" " ]] && words+=("")
    CURRENT=${#words}
    PREFIX=${words[CURRENT]}
    source "$2" >/dev/null 2>&1
    offers=()
    _velmo || true
    print -l -- ${(M)offers:#${PREFIX}*}' zsh "$line" "$source_dir/packaging/completion/_velmo" |
    sort | tr '\n' ' ')
  check zsh "$line" "$expected" "${got% }"
done

((failures == 0)) && echo "completion: all cases offered what they should"
exit $((failures > 0))
