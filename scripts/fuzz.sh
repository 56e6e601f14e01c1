#!/usr/bin/env bash
# Builds the fuzzers (clang with AddressSanitizer and UndefinedBehaviorSanitizer)
# and runs each for a bounded time (VELMO_FUZZ_SECONDS, 15 by default). A crash,
# a sanitizer report, a leak or a broken round trip fails the run, with the
# fuzzer's last lines and the input that did it.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${VELMO_FUZZ_SECONDS:-15}"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
failed=0
for source in fuzz/*.cpp; do
  name="$(basename "$source" .cpp)"
  mkdir -p "$work/$name"
  seeds=()  # a fuzzer's starting inputs, when it keeps some in fuzz/corpus/
  [ -d "fuzz/corpus/$name" ] && seeds=("fuzz/corpus/$name")
  start=$SECONDS
  if build/fuzz/"$name" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=10 \
      -artifact_prefix="$work/$name-" "$work/$name" "${seeds[@]}" >"$work/$name.log" 2>&1; then
    echo "fuzz: $name ran $((SECONDS - start)) s, $(grep -o 'cov: [0-9]*' "$work/$name.log" | tail -1)"
  else
    failed=1
    echo "fuzz: $name FAILED" >&2
    tail -n 40 "$work/$name.log" >&2
    for input in "$work/$name"-*; do
      [ -e "$input" ] && { echo "input ($input):" >&2; od -c "$input" | head -n 20 >&2; }
    done
  fi
done
exit "$failed"
