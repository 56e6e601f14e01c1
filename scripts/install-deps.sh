#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the program need.
set -euo pipefail
packages=(
  build-essential cmake pkg-config
  libsqlite3-dev libncurses-dev libicu-dev libical-dev libsystemd-dev
  libgdk-pixbuf-2.0-dev
  googletest libgtest-dev libbenchmark-dev
  tmux dbus dbus-user-session clang libclang-rt-14-dev
  sqlite3 hyperfine taskwarrior jq xdg-utils
  dpkg-dev lintian desktop-file-utils man-db groff-base zsh bash-completion
  radicale vdirsyncer todoman
  python3-dbusmock
)
missing=()
for p in "${packages[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo_cmd=()
  [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
  export DEBIAN_FRONTEND=noninteractive
  "${sudo_cmd[@]}" apt-get update -qq
  "${sudo_cmd[@]}" apt-get install -y -qq "${missing[@]}"
fi
