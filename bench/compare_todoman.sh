#!/bin/sh
# Whole-process time of `velmo list` beside todoman's `todoman list` on the same
# tasks: a fresh device filled by `velmo demo N`, written as a folder of task
# files by `velmo sync --no-command`, which todoman then reads; both timed by
# hyperfine.
#   bench/compare_todoman.sh [VELMO-BINARY] [N]
set -eu
velmo=${1:-build/release/velmo}
count=${2:-2550}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

export VELMO_ROOT="$work/device"
"$velmo" demo "$count" >/dev/null
mkdir -p "$work/cal/tasks"
"$velmo" sync --folder "$work/cal/tasks" --no-command >/dev/null

# todoman reads its configuration as Python, from a file ending in .py.
cat >"$work/todoman.py" <<CONF
path = "$work/cal/*"
cache_path = "$work/todoman.cache"
date_format = "%Y-%m-%d"
time_format = "%H:%M"
default_list = "tasks"
CONF
todo="todoman --config $work/todoman.py"
echo "files: $(ls "$work/cal/tasks" | wc -l), velmo: $("$velmo" list | wc -l) tasks," \
  "todoman: $($todo --porcelain list --status ANY | jq length) tasks"

hyperfine --warmup 2 --export-json "$work/hyperfine.json" \
  "'$velmo' list" "$todo list --status ANY"
jq -r '.results | "ratio (velmo / todoman): \(.[0].mean / .[1].mean * 1000 | round / 1000)"' \
  "$work/hyperfine.json"
