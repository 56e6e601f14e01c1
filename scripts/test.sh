#!/usr/bin/env bash
# Builds everything and runs every test: the normal build, then the same tests
# under AddressSanitizer and UndefinedBehaviorSanitizer, then each fuzzer for a
# bounded time.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --workflow --preset release
cmake --workflow --preset asan
scripts/fuzz.sh
