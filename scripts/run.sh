#!/usr/bin/env bash
# Builds Perchdock and starts it. Without a display ($DISPLAY empty) it runs on a virtual X display
# (Xvfb, 1280x800); then it can be watched with e.g. `import -display :N -window root shot.png`.
# Arguments are passed to the program (e.g. --toggle).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${PERCHDOCK_BUILD_DIR:-$root/build-run}

"$root/scripts/install-deps.sh"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DPERCHDOCK_TESTS=OFF -DPERCHDOCK_BENCH=OFF -DPERCHDOCK_FUZZ=OFF >/dev/null
cmake --build "$build" -j "$(nproc)"

if [ -z "${DISPLAY:-}" ]; then
  tmp=$(mktemp -d)
  xvfb_pid=
  cleanup() {
    [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
    rm -rf "$tmp"
  }
  trap cleanup EXIT
  # Xvfb picks a free display number and writes it to fd 3 once it accepts connections. It runs in a
  # session of its own, so that Ctrl+C reaches only the program, which then saves and ends.
  setsid Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$tmp/display" 2>"$tmp/xvfb.log" &
  xvfb_pid=$!
  for _ in $(seq 100); do
    [ -s "$tmp/display" ] && break
    kill -0 "$xvfb_pid" 2>/dev/null || { cat "$tmp/xvfb.log" >&2; exit 1; }
    sleep 0.1
  done
  [ -s "$tmp/display" ] || { echo "run: Xvfb did not start" >&2; exit 1; }
  export DISPLAY=":$(head -n1 "$tmp/display")"
  export QT_QPA_PLATFORM=xcb
  if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    # The folder Qt would take, made beforehand so that Qt does not warn about it.
    export XDG_RUNTIME_DIR=/tmp/runtime-$(id -un)
    mkdir -p -m 700 "$XDG_RUNTIME_DIR"
  fi
  echo "run: no display given; Perchdock runs on the virtual display $DISPLAY (Ctrl+C ends it)"
  status=0
  "$build/src/perchdock" "$@" || status=$?
  exit "$status"
fi
exec "$build/src/perchdock" "$@"
