#!/usr/bin/env bash
# Builds velmo-todo and starts it on the default device (arguments are passed on).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build --preset release --target velmo-todo velmo
exec build/release/velmo-todo "$@"
