#!/usr/bin/env bash
# The Debian package of a build folder installs, starts and is removed again, as on a user's machine.
#
# `cpack -G DEB` in the build folder makes perchdock_<version>_<arch>.deb; `apt-get install -y ./...deb`
# installs it with its dependencies. The installed /usr/bin/perchdock (the link to /usr/lib/perchdock)
# then starts on a private Xvfb display with a fresh HOME and data folder (tests/e2e/lib.sh): its window
# must appear, the data folder must be made with the themes copied from the installed program's folder
# (so the program found its own files through the link), and a screenshot goes to the artefact folder.
# `perchdock --toggle` from the PATH must hide the window and show it again. SIGTERM ends it; the
# workspace file must be written. The package is removed however the test ends.
#
# Needs root (or sudo) and Debian 12 with apt; CI runs it from scripts/test.sh on build-ci.
# Usage: deb_install.sh <build folder>
set -uo pipefail
BUILD=$(cd "${1:?usage: $0 <build folder>}" && pwd) || exit 1
HERE=$(cd "$(dirname "$0")" && pwd)
ID=io.github.perchdock.Perchdock
ARTIFACTS=${PERCHDOCK_ARTIFACTS:-$BUILD/artifacts}

early_fail() { printf 'FAIL: deb_install: %s\n' "$*" >&2; exit 1; }

sudo=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null 2>&1 || early_fail "installing a package needs root or sudo"
  sudo=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
# Another apt or dpkg run on the machine holds the lock for a while; wait for it instead of failing.
APT=("${sudo[@]}" apt-get -o DPkg::Lock::Timeout=300 -qq)

echo "deb_install: cpack -G DEB in $BUILD"
rm -f "$BUILD"/perchdock_*.deb
if ! (cd "$BUILD" && cpack -G DEB >"$BUILD/cpack.log" 2>&1); then
  cat "$BUILD/cpack.log" >&2
  early_fail "cpack -G DEB failed"
fi
shopt -s nullglob
debs=("$BUILD"/perchdock_*.deb)
[ ${#debs[@]} -eq 1 ] || early_fail "cpack made ${#debs[@]} packages named perchdock_*.deb"
DEB=${debs[0]}
echo "deb_install: $(basename "$DEB"), $(stat -c %s "$DEB") bytes"
dpkg-deb -f "$DEB" Package Version Depends

INSTALLED=0
remove_package() {
  [ "$INSTALLED" -eq 1 ] || return 0
  INSTALLED=0
  "${APT[@]}" remove -y --purge perchdock >"$BUILD/apt-remove.log" 2>&1 || {
    cat "$BUILD/apt-remove.log" >&2
    echo "FAIL: deb_install: apt-get remove perchdock failed" >&2
    return 1
  }
}
trap 'remove_package' EXIT

# apt-get needs a path with a slash to take a file rather than a package name.
INSTALLED=1
if ! (cd "$BUILD" && "${APT[@]}" install -y --no-install-recommends "./$(basename "$DEB")") >"$BUILD/apt-install.log" 2>&1; then
  cat "$BUILD/apt-install.log" >&2
  early_fail "apt-get install ./$(basename "$DEB") failed"
fi
dpkg-query -W -f='${Status}\n' perchdock | grep -q 'install ok installed' || early_fail "perchdock is not installed after apt-get install"
for f in /usr/lib/perchdock/perchdock /usr/lib/perchdock/Reloader /usr/share/applications/$ID.desktop \
         /usr/share/icons/hicolor/scalable/apps/$ID.svg /usr/share/icons/hicolor/48x48/apps/$ID.png \
         /usr/share/metainfo/$ID.metainfo.xml; do
  [ -e "$f" ] || early_fail "the package did not install $f"
done
[ -L /usr/bin/perchdock ] || early_fail "/usr/bin/perchdock is not the launcher link"

# From here on the end-to-end helpers: private display, HOME and XDG folders, cleanup at exit.
source "$HERE/../e2e/lib.sh" /usr/bin/perchdock
# lib.sh's exit handler ends what it started; the package goes first, and the exit status is kept.
trap 'status=$?; remove_package || status=1; (exit $status); e2e_cleanup' EXIT

mkdir -p "$ARTIFACTS" || fail "cannot make the artefact folder $ARTIFACTS"
[ ! -e "$DATA" ] || fail "the data folder $DATA exists before the start"
start_display
start_program
wait_main_window "$PROGRAM_PID" 30
log "window $MAIN_ID of /usr/bin/perchdock (pid $PROGRAM_PID) is shown"
[ "$(readlink -f "/proc/$PROGRAM_PID/exe")" = /usr/lib/perchdock/perchdock ] || fail "the running program is $(readlink -f "/proc/$PROGRAM_PID/exe")"
[ -d "$DATA" ] || fail "no data folder $DATA after the start"
themes=("$DATA"/Skin/*.pkt)
[ ${#themes[@]} -ge 1 ] || fail "no themes copied from /usr/lib/perchdock/Skin into $DATA/Skin"
sleep 0.5
screenshot "$ARTIFACTS/deb-install.png"
log "screenshot $ARTIFACTS/deb-install.png"

# The command that desktops bind (the desktop entry's action, a Wayland shortcut), found on the PATH:
# it hides the running window, and the next one shows it again.
[ "$(command -v perchdock)" = /usr/bin/perchdock ] || fail "perchdock on the PATH is $(command -v perchdock)"
timeout 10 perchdock --toggle >>"$LOG" 2>&1 || fail "perchdock --toggle ended with status $?"
wait_window_hidden "$MAIN_ID" 10 || fail "the window is still shown after perchdock --toggle"
timeout 10 perchdock --toggle >>"$LOG" 2>&1 || fail "the second perchdock --toggle ended with status $?"
end=$((SECONDS + 10))
until is_viewable "$MAIN_ID"; do
  [ $SECONDS -lt $end ] || fail "the window is not shown again after the second perchdock --toggle"
  sleep 0.2
done
log "perchdock --toggle hid the window and showed it again"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ -f "$INI" ] || fail "no workspace file $INI after the exit"
starts_with "$INI" "$INI_HEAD" || fail "the workspace file does not start as the program writes it: $(head -c 40 "$INI" | od -c | head -3)"

remove_package || fail "the package could not be removed"
[ ! -e /usr/bin/perchdock ] && [ ! -e /usr/lib/perchdock ] || fail "files of the package are left after its removal"
log "passed: installed, started, wrote its workspace file, removed"
