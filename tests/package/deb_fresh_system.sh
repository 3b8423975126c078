#!/usr/bin/env bash
# The Debian package on a fresh Debian 12 system, which has nothing of the build's packages: a minimal
# system made by debootstrap (variant minbase) in a folder, the package installed in it with apt-get
# (which fetches the Qt 6 runtime and the rest of its dependencies from the Debian mirror), and the
# installed /usr/bin/perchdock started inside it on an Xvfb display of the host, with a fresh HOME and
# data folder. Its window must appear, the data folder must be made with the themes copied from
# /usr/lib/perchdock, and the main menu must open (a right click on the title band); a screenshot of it
# goes to the artefact folder, to show that text is drawn with the fonts the package brought. SIGTERM
# ends it; the workspace file must be written. The package is removed at the end.
#
# Not part of CI: it downloads some 300 MB and takes about ten minutes. Run it by hand, as root:
#   tests/package/deb_fresh_system.sh <perchdock_*.deb> <folder for the system> [<artefact folder>]
# An empty or missing folder gets a new system; a folder that holds one from an earlier run is used
# again (the dependencies installed by that run are then already there).
set -uo pipefail
DEB=$(readlink -f "${1:?usage: $0 <perchdock_*.deb> <folder for the system> [<artefact folder>]}")
ROOT=$(readlink -m "${2:?usage: $0 <perchdock_*.deb> <folder for the system> [<artefact folder>]}")
ARTIFACTS=$(readlink -m "${3:-$(dirname "$DEB")/artifacts}")
HERE=$(cd "$(dirname "$0")" && pwd)
MIRROR=${DEBIAN_MIRROR:-http://deb.debian.org/debian}

early_fail() { printf 'FAIL: deb_fresh_system: %s\n' "$*" >&2; exit 1; }
[ "$(id -u)" -eq 0 ] || early_fail "needs root (debootstrap, chroot, mount)"
[ -f "$DEB" ] || early_fail "no package $DEB"
command -v debootstrap >/dev/null || early_fail "needs debootstrap (apt-get install debootstrap)"

if [ ! -x "$ROOT/usr/bin/apt-get" ]; then
  echo "deb_fresh_system: debootstrap --variant=minbase bookworm $ROOT"
  mkdir -p "$ROOT"
  debootstrap --variant=minbase bookworm "$ROOT" "$MIRROR" >"$ROOT.debootstrap.log" 2>&1 ||
    { tail -20 "$ROOT.debootstrap.log" >&2; early_fail "debootstrap failed (log: $ROOT.debootstrap.log)"; }
fi

MOUNTS=()
bind() { mkdir -p "$ROOT$2" && mount "${@:3}" "$1" "$ROOT$2" && MOUNTS=("$ROOT$2" "${MOUNTS[@]}"); }
PROGRAM=
INSTALLED=0
teardown() {
  [ -n "$PROGRAM" ] && kill -KILL "$PROGRAM" 2>/dev/null && sleep 0.5
  if [ "$INSTALLED" -eq 1 ]; then
    INSTALLED=0
    chroot "$ROOT" apt-get -qq remove -y --purge perchdock >/dev/null 2>&1 || echo "deb_fresh_system: the package could not be removed" >&2
  fi
  local m
  for m in "${MOUNTS[@]}"; do umount -l "$m" 2>/dev/null; done
  MOUNTS=()
}
trap teardown EXIT

bind proc /proc -t proc || early_fail "cannot mount /proc in $ROOT"
bind /dev /dev --bind || early_fail "cannot bind /dev into $ROOT"
bind /dev/pts /dev/pts --bind || early_fail "cannot bind /dev/pts into $ROOT"
cp /etc/resolv.conf "$ROOT/etc/resolv.conf"
cp "$DEB" "$ROOT/root/"
echo "deb_fresh_system: apt-get install ./$(basename "$DEB") in $ROOT"
INSTALLED=1
if ! chroot "$ROOT" env DEBIAN_FRONTEND=noninteractive bash -c \
     "apt-get -qq update && apt-get -qq install -y --no-install-recommends /root/$(basename "$DEB")" \
     >"$ROOT.apt.log" 2>&1; then
  tail -20 "$ROOT.apt.log" >&2
  early_fail "apt-get install failed in the fresh system (log: $ROOT.apt.log)"
fi
echo "deb_fresh_system: $(grep -c '^Setting up' "$ROOT.apt.log") packages set up"
[ -L "$ROOT/usr/bin/perchdock" ] || early_fail "no /usr/bin/perchdock in the fresh system"

# The helpers of the end-to-end tests; the program is started inside the system, so the host's test
# folder (HOME, XDG folders, log) and the X socket folder are bound to the same paths in it.
source "$HERE/../e2e/lib.sh" "$ROOT/usr/lib/perchdock/perchdock"
trap 'status=$?; teardown; (exit $status); e2e_cleanup' EXIT
bind "$E2E_TMP" "$E2E_TMP" --bind || fail "cannot bind $E2E_TMP into the system"
bind /tmp/.X11-unix /tmp/.X11-unix --bind || fail "cannot bind /tmp/.X11-unix into the system"
mkdir -p "$ARTIFACTS" || fail "cannot make the artefact folder $ARTIFACTS"

start_display
chroot "$ROOT" /usr/bin/perchdock >>"$LOG" 2>&1 &
PROGRAM=$!
STARTED_PIDS+=("$PROGRAM")
wait_main_window "$PROGRAM" 30
log "window $MAIN_ID of the fresh system's /usr/bin/perchdock"
[ "$(readlink -f "/proc/$PROGRAM/root")" = "$ROOT" ] || fail "the program does not run inside $ROOT"
themes=("$DATA"/Skin/*.pkt)
[ -f "${themes[0]}" ] || fail "no themes copied from /usr/lib/perchdock/Skin into the data folder"
open_main_menu "$PROGRAM" "$MAIN_ID"
screenshot "$ARTIFACTS/deb-fresh-system-menu.png"
log "screenshot $ARTIFACTS/deb-fresh-system-menu.png"
xdotool key Escape
wait_menu_closed "$PROGRAM" 5 || fail "the main menu did not close on Esc"

stop_program "$PROGRAM"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
starts_with "$INI" "$INI_HEAD" || fail "no workspace file written as the program writes it"
log "passed: installed on a fresh Debian 12 with its dependencies, started, drew its menu, wrote its workspace file"
