#!/bin/sh
# Loading the tasks as a whole process beside SQLite's own shell reading the
# same records' bytes with one statement, on a device filled by `velmo demo N`:
# `velmo list` reads every record the way the program's load does (and prints
# it); the shell prints the stored bytes. Peak memory of `velmo list` follows.
# (bench/store_bench.cpp measures the same within one process: the table's
# load against one statement's read.)
#   bench/load_vs_sqlite.sh [VELMO-BINARY] [N]
set -eu
velmo=${1:-build/release/velmo}
count=${2:-2550}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

export VELMO_ROOT="$work/device"
"$velmo" demo "$count" >/dev/null
volume="$VELMO_ROOT/IPSM/mxip_initdb.vol"
db=$(sqlite3 -readonly "$volume" "SELECT oid FROM databases WHERE name = 'Tasks Database'")

hyperfine -N --warmup 5 --export-json "$work/hyperfine.json" \
  "$velmo list" \
  "sqlite3 -readonly $volume 'SELECT oid, props FROM records WHERE db = $db ORDER BY oid'"
jq -r '.results | "ratio (velmo list / sqlite3): \(.[0].mean / .[1].mean * 100 | round / 100)"' \
  "$work/hyperfine.json"
/usr/bin/time -f "peak memory of velmo list: %M KB" "$velmo" list >/dev/null
