#!/bin/sh
# velmo-todo as a whole process, from its start to its first full screen, on a
# device of 2,550 tasks:
#   headless: the text screen; with standard input at its end the program
#             closes as soon as the first screen is out.
#   tmux:     an 80 x 24 terminal; the time from starting the program in a new
#             tmux server until capture-pane shows the full title, against the
#             same for a program that prints that title at once (tmux's share).
# Usage: bench/first_screen.sh [BUILD_DIR]   (default build/release)
set -eu
BIN=$(cd "${1:-build/release}" && pwd)
ROOT=$(mktemp -d)
trap 'rm -rf "$ROOT"' EXIT
export VELMO_ROOT="$ROOT" XDG_RUNTIME_DIR="$ROOT"
"$BIN/velmo" demo 2549 >/dev/null
# The first run makes the welcome task (the 2,550th) and saves the settings.
VELMO_SCREEN=headless "$BIN/velmo-todo" </dev/null >/dev/null

hyperfine -N --warmup 3 --runs 30 \
  "sh -c 'VELMO_SCREEN=headless $BIN/velmo-todo </dev/null >/dev/null'"

WAIT=$ROOT/wait-for-title.sh
cat >"$WAIT" <<'SCRIPT'
#!/bin/sh
# Starts $1 in a new tmux server and waits until the pane shows "Tasks [2550]".
S=velmo-bench-$$
tmux -L "$S" new-session -d -x 80 -y 24 "$1"
until tmux -L "$S" capture-pane -p 2>/dev/null | grep -qF 'Tasks [2550]'; do :; done
tmux -L "$S" kill-server
SCRIPT
chmod +x "$WAIT"
hyperfine -N --warmup 2 --runs 20 \
  "$WAIT '$BIN/velmo-todo'" \
  "$WAIT 'echo \" Tasks [2550]\"; sleep 10'"
