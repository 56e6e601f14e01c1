#!/bin/sh
# Whole-process time of `velmo list overdue` beside Taskwarrior's `task overdue`
# on the same tasks: a fresh device filled by `velmo demo N`, its tasks imported
# into a fresh Taskwarrior data folder, both timed by hyperfine.
#   bench/compare_taskwarrior.sh [VELMO-BINARY] [N]
set -eu
velmo=${1:-build/release/velmo}
count=${2:-2550}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

export VELMO_ROOT="$work/device"
"$velmo" demo "$count" >/dev/null

# velmo list: oid, subject, start, due, reminder, completed, priority, categories.
export TASKDATA="$work/taskdata" TASKRC="$work/taskrc"
mkdir -p "$TASKDATA"
printf 'data.location=%s\nconfirmation=off\nverbose=nothing\n' "$TASKDATA" >"$TASKRC"
"$velmo" list | jq -R -s -c '
  def tw: if . == "" then null else (gsub("-"; "") | gsub(":"; "")
          | if test("T") then . + "00Z" else . + "T000000Z" end) end;
  def prio: {"high": "H", "normal": "M", "low": "L"}[.];
  split("\n") | map(select(length > 0) | split("\t")) | .[] |
  { description: (if .[1] == "" then "(no subject)" else .[1] end),
    status: (if .[5] == "" then "pending" else "completed" end),
    entry: "20240101T000000Z",
    scheduled: (.[2] | tw), due: (.[3] | tw), end: (.[5] | tw),
    priority: (.[6] | prio),
    tags: (.[7] | split(",") | map(gsub("^ +| +$"; "") | gsub("[^A-Za-z0-9_]"; "_"))
           | map(select(length > 0))) }
  | with_entries(select(.value != null and .value != []))' >"$work/tasks.json"
task import "$work/tasks.json" >/dev/null 2>&1
echo "imported into Taskwarrior: $(task count 2>/dev/null) tasks (velmo: $("$velmo" list | wc -l))"
echo "overdue: velmo $("$velmo" list overdue | tail -n +2 | wc -l), Taskwarrior $(task +OVERDUE count 2>/dev/null)"

hyperfine --warmup 3 --export-json "$work/hyperfine.json" \
  "'$velmo' list overdue" "task overdue"
jq -r '.results | "ratio (velmo / task): \(.[0].mean / .[1].mean * 1000 | round / 1000)"' \
  "$work/hyperfine.json"
