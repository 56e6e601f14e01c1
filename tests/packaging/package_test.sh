#!/usr/bin/env bash
# The Debian package: cpack makes it from the build; it holds the programs, the
# user units, the manual pages, the completions, the desktop entries and the
# icon; it installs into a private root and is removed from it leaving nothing
# of its own; lintian finds no error in it. Never touches the real system.
# usage: package_test.sh BUILD-DIR
set -euo pipefail
build_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

cpack -G DEB -B "$work/out" --config "$build_dir/CPackConfig.cmake" >"$work/cpack.log" 2>&1 ||
  { cat "$work/cpack.log"; exit 1; }
deb=$(ls "$work"/out/velmo-todo_*.deb)
contents=$(dpkg-deb -c "$deb" | awk '{print $6}' | sed 's|^\./|/|')

for path in /usr/bin/velmo-todo /usr/bin/velmo \
  /usr/lib/systemd/user/velmo-notifyd.service \
  /usr/share/man/man1/velmo-todo.1.gz /usr/share/man/man1/velmo.1.gz \
  /usr/share/bash-completion/completions/velmo /usr/share/zsh/vendor-completions/_velmo \
  /usr/share/applications/velmo-todo.desktop /usr/share/applications/velmo-import.desktop \
  /usr/share/icons/hicolor/scalable/apps/velmo-todo.svg \
  /usr/share/doc/velmo-todo/copyright /usr/share/doc/velmo-todo/changelog.gz \
  /usr/share/lintian/overrides/velmo-todo; do
  grep -qx -- "$path" <<<"$contents" || fail "the package lacks $path"
done
# Every file is the system's to own: root's, and nobody else may write it.
dpkg-deb -c "$deb" | awk '$2 != "root/root" || $1 ~ /^.{5}w|^.{8}w/ { print "FAIL: owner or mode of " $6; bad = 1 } END { exit bad }' ||
  failures=$((failures + 1))

depends=$(dpkg-deb -f "$deb" Depends)
[[ $depends == *libc6* ]] || fail "Depends does not name libc6: '$depends'"
[[ $(dpkg-deb -f "$deb" Recommends) == *libsystemd0* ]] || fail "Recommends lacks libsystemd0"

# Install into a private root and remove again.
root="$work/root"
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root/usr/bin"
touch "$root/var/lib/dpkg/status"
dpkg_root=(dpkg --root="$root" --force-not-root --force-depends --force-script-chrootless
  --log=/dev/null --no-triggers)
# A user's device in that root, which removing the package must leave alone.
device="$root/home/ann/.local/share/velmo-todo"
mkdir -p "$device/IPSM" && echo tasks >"$device/IPSM/mxip_initdb.vol"
"${dpkg_root[@]}" -i "$deb" >"$work/install.log" 2>&1 || { cat "$work/install.log"; fail "install"; }
[[ -x $root/usr/bin/velmo && -x $root/usr/bin/velmo-todo ]] || fail "the programs are not installed"
"$root/usr/bin/velmo" --version >/dev/null || fail "the installed velmo does not run"
"${dpkg_root[@]}" -r velmo-todo >"$work/remove.log" 2>&1 || { cat "$work/remove.log"; fail "remove"; }
left=$(cd "$root" && find . -path ./var -prune -o -path ./home -prune -o -type f -print)
[[ -z $left ]] || fail "files left after removal: $left"

[[ $(cat "$device/IPSM/mxip_initdb.vol" 2>/dev/null) == tasks ]] || fail "removal touched a device"

# An install into a prefix without write access fails with the installer's
# message and leaves the prefix as it was.
if command -v setpriv >/dev/null; then
  chmod 0755 "$work"
  mkdir -m 0555 "$work/locked"
  if setpriv --reuid=nobody --regid=nogroup --clear-groups \
    cmake --install "$build_dir" --prefix "$work/locked" >"$work/locked.log" 2>&1; then
    fail "an install into a locked prefix succeeded"
  fi
  grep -q "cannot\|Permission denied\|privileges" "$work/locked.log" ||
    { cat "$work/locked.log"; fail "the locked install gave no reason"; }
  [[ -z $(ls -A "$work/locked") ]] || fail "the locked install changed the prefix"
fi

if command -v lintian >/dev/null; then
  lintian --fail-on error "$deb" >"$work/lintian.log" 2>&1 ||
    { grep '^E:' "$work/lintian.log"; fail "lintian reports errors"; }
fi

((failures == 0)) && echo "package: $(basename "$deb") holds, installs and removes cleanly"
exit $((failures > 0))
