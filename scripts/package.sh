#!/usr/bin/env bash
# Builds the release programs and the Debian package of them:
# build/release/velmo-todo_<version>_<arch>.deb.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build --preset release --target velmo-todo velmo
cd build/release
cpack -G DEB
