# Helpers of the end-to-end tests, sourced by each test script.
#
# Every test runs the real program on a private virtual X display (Xvfb, 1280x800x24) with a private,
# empty data folder and runtime folder, drives it with xdotool and looks at it with xprop, xwininfo
# and ImageMagick. Everything a test starts is ended when the script exits, however it exits.
#
# Usage in a test:  source "$(dirname "$0")/lib.sh" "$@"   (arguments: <perchdock> [<Reloader>])

set -uo pipefail

PERCHDOCK=${1:?usage: $0 <path of perchdock> [<path of Reloader>]}
RELOADER=${2:-}
TEST_NAME=$(basename "$0" .sh)

for tool in Xvfb xdotool xprop xwininfo import convert; do
  command -v "$tool" >/dev/null || { echo "FAIL: $TEST_NAME needs $tool (scripts/install-deps.sh installs it)" >&2; exit 1; }
done
[ -x "$PERCHDOCK" ] || { echo "FAIL: no program at $PERCHDOCK" >&2; exit 1; }

E2E_TMP=$(mktemp -d "${TMPDIR:-/tmp}/perchdock-e2e-$TEST_NAME.XXXXXX")
mkdir -p "$E2E_TMP"/{data,run,config,cache,home}
chmod 700 "$E2E_TMP/run"
export XDG_DATA_HOME=$E2E_TMP/data XDG_RUNTIME_DIR=$E2E_TMP/run XDG_CONFIG_HOME=$E2E_TMP/config \
       XDG_CACHE_HOME=$E2E_TMP/cache HOME=$E2E_TMP/home
# No session bus: Qt's D-Bus clients give up at once instead of trying to start one.
export DBUS_SESSION_BUS_ADDRESS=unix:path=$E2E_TMP/no-bus
export QT_QPA_PLATFORM=xcb LANG=C.UTF-8 LC_ALL=C.UTF-8
# Without a window manager no window gets the focus, and the workspace window would dock a second after
# it appears; the program then takes its own window as the one in front. Tests of docking unset it.
export PERCHDOCK_ASSUME_FOCUS=1
unset WAYLAND_DISPLAY SESSION_MANAGER QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR

DATA=$XDG_DATA_HOME/Perchdock
INI=$DATA/Perchdock.ini
REC=$DATA/Perchdock.REC
LOG=$E2E_TMP/program.log

# The start of every workspace file the program writes.
INI_HEAD=$'[1.05]\r\n[Hidden]\r\n0\r\n'

XVFB_PID=
STARTED_PIDS=()
E2E_FAILED=0

log() { printf '%s: %s\n' "$TEST_NAME" "$*"; }

fail() {
  E2E_FAILED=1
  printf 'FAIL: %s: %s\n' "$TEST_NAME" "$*" >&2
  exit 1
}

e2e_cleanup() {
  local status=$?
  local pid
  for pid in "${STARTED_PIDS[@]}"; do
    kill -KILL "$pid" 2>/dev/null
  done
  [ -n "$XVFB_PID" ] && kill "$XVFB_PID" 2>/dev/null
  if [ "$status" -ne 0 ] || [ "$E2E_FAILED" -ne 0 ]; then
    if [ -s "$LOG" ]; then
      echo "--- output of the program (last 40 lines)" >&2
      tail -n 40 "$LOG" >&2
    fi
    [ -d "$DATA" ] && { echo "--- data folder" >&2; ls -la "$DATA" >&2; }
  fi
  if [ -n "${E2E_KEEP:-}" ]; then
    echo "kept: $E2E_TMP" >&2
  else
    rm -rf "$E2E_TMP"
  fi
  exit "$status"
}
trap e2e_cleanup EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# Starts Xvfb on a free display number and exports DISPLAY.
start_display() {
  local fd_file=$E2E_TMP/display i
  Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$fd_file" 2>"$E2E_TMP/xvfb.log" &
  XVFB_PID=$!
  for i in $(seq 200); do
    [ -s "$fd_file" ] && break
    kill -0 "$XVFB_PID" 2>/dev/null || { cat "$E2E_TMP/xvfb.log" >&2; fail "Xvfb did not start"; }
    sleep 0.1
  done
  [ -s "$fd_file" ] || fail "Xvfb did not report a display within 20 s"
  export DISPLAY=":$(head -n1 "$fd_file")"
  log "display $DISPLAY"
}

# Starts the program in the background with the given arguments; sets PROGRAM_PID.
start_program() {
  echo "=== start $*" >>"$LOG"
  "$PERCHDOCK" "$@" >>"$LOG" 2>&1 &
  PROGRAM_PID=$!
  STARTED_PIDS+=("$PROGRAM_PID")
}

# True while the process runs (a zombie does not count: the restarted program is nobody's child here).
alive() {
  local state
  state=$(awk '{print $3}' "/proc/$1/stat" 2>/dev/null) || return 1
  [ -n "$state" ] && [ "$state" != Z ] && [ "$state" != X ]
}

# Window type of a window, e.g. _NET_WM_WINDOW_TYPE_UTILITY for the main window (a tool window),
# _NET_WM_WINDOW_TYPE_SPLASH for the splash, _NET_WM_WINDOW_TYPE_DIALOG for a message box.
window_type() { xprop -id "$1" _NET_WM_WINDOW_TYPE 2>/dev/null | sed -n 's/.*= *\([A-Z_]*\).*/\1/p'; }

is_viewable() { xwininfo -id "$1" 2>/dev/null | grep -q 'Map State: IsViewable'; }

# Sets FOUND_ID to the id of the program's main window (visible or not); false when there is none.
find_main_window() {
  local pid=$1 id
  FOUND_ID=
  for id in $(xdotool search --pid "$pid" --name '^Perchdock$' 2>/dev/null); do
    if [ "$(window_type "$id")" = _NET_WM_WINDOW_TYPE_UTILITY ]; then
      FOUND_ID=$id
      return 0
    fi
  done
  return 1
}

# Prints the ids of the visible main windows of every running instance.
visible_main_windows() {
  local id
  for id in $(xdotool search --onlyvisible --name '^Perchdock$' 2>/dev/null); do
    [ "$(window_type "$id")" = _NET_WM_WINDOW_TYPE_UTILITY ] && echo "$id"
  done
}

# Waits until the main window of process $1 is shown and sets MAIN_ID. $2: seconds (default 20).
wait_main_window() {
  local pid=$1 limit=${2:-20} end
  end=$((SECONDS + limit))
  MAIN_ID=
  while [ $SECONDS -lt $end ]; do
    alive "$pid" || fail "the program (pid $pid) ended before its window appeared"
    if find_main_window "$pid" && is_viewable "$FOUND_ID"; then
      MAIN_ID=$FOUND_ID
      return 0
    fi
    sleep 0.2
  done
  fail "no main window of pid $pid within $limit s"
}

# Waits until a visible window of type $2 whose name matches $1 appears and sets FOUND_ID.
# $3: seconds (default 20).
wait_window() {
  local pattern=$1 type=$2 limit=${3:-20} end id
  end=$((SECONDS + limit))
  FOUND_ID=
  while [ $SECONDS -lt $end ]; do
    for id in $(xdotool search --onlyvisible --name "$pattern" 2>/dev/null); do
      if [ "$(window_type "$id")" = "$type" ]; then
        FOUND_ID=$id
        return 0
      fi
    done
    sleep 0.2
  done
  fail "no window named '$pattern' of type $type within $limit s"
}

# Waits until window $1 is no longer viewable. $2: seconds.
wait_window_hidden() {
  local id=$1 limit=${2:-10} end
  end=$((SECONDS + limit))
  while [ $SECONDS -lt $end ]; do
    is_viewable "$id" || return 0
    sleep 0.2
  done
  return 1
}

# Sets WX WY WW WH to the geometry of window $1 on the screen.
window_geometry() {
  local X Y WIDTH HEIGHT WINDOW SCREEN
  eval "$(xdotool getwindowgeometry --shell "$1")" || fail "no geometry for window $1"
  WX=$X WY=$Y WW=$WIDTH WH=$HEIGHT
}

# Gives window $1 the keyboard focus (there is no window manager to do it).
focus_window() {
  xdotool windowfocus --sync "$1" 2>/dev/null || xdotool windowfocus "$1" 2>/dev/null
  sleep 0.2
}

# Sends SIGTERM to the program (our child) $1 and waits for its end; sets EXIT_STATUS.
# Fails when it has not ended within $2 seconds (default 15).
stop_program() {
  local pid=$1 limit=${2:-15} end
  kill -TERM "$pid" 2>/dev/null || fail "the program (pid $pid) had already ended"
  end=$((SECONDS + limit))
  while alive "$pid"; do
    [ $SECONDS -lt $end ] || { kill -KILL "$pid" 2>/dev/null; fail "the program did not end within $limit s of SIGTERM"; }
    sleep 0.1
  done
  EXIT_STATUS=0
  wait "$pid" 2>/dev/null || EXIT_STATUS=$?
}

# Waits until process $1 (not necessarily our child) has ended. $2: seconds.
wait_gone() {
  local pid=$1 limit=${2:-15} end
  end=$((SECONDS + limit))
  while alive "$pid"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.1
  done
}

# Takes a screenshot of the whole screen into $1.
screenshot() { import -window root "$1" 2>>"$E2E_TMP/import.log" || fail "screenshot failed"; }

# The colour of pixel ($2,$3) of image $1, as RRGGBB.
pixel_colour() {
  convert "$1" -crop "1x1+$2+$3" +repage -depth 8 -format '%[hex:u.p{0,0}]' info:- | tr a-f A-F
}

# True when file $1 begins with the bytes of $2.
starts_with() {
  local n=${#2}
  [ "$(head -c "$n" "$1" | od -An -c)" = "$(printf '%s' "$2" | od -An -c)" ]
}

ends_with_crlf() { [ "$(tail -c 2 "$1" | od -An -tx1 | tr -d ' ')" = 0d0a ]; }

# The value line that follows key line $2 in workspace file $1, without its CR.
ini_value() { awk -v key="$2" '{sub(/\r$/, "")} found {print; exit} $0 == key {found = 1}' "$1"; }

# Waits until process $1 shows a pop-up menu (an override-redirect window) and sets FOUND_ID.
# $2: seconds (default 10).
wait_popup() {
  local pid=$1 limit=${2:-10} end id
  end=$((SECONDS + limit))
  FOUND_ID=
  while [ $SECONDS -lt $end ]; do
    for id in $(xdotool search --onlyvisible --pid "$pid" --name '.*' 2>/dev/null); do
      if xwininfo -id "$id" 2>/dev/null | grep -q 'Override Redirect State: yes'; then
        FOUND_ID=$id
        return 0
      fi
    done
    sleep 0.2
  done
  fail "no pop-up menu of pid $pid within $limit s"
}

# Opens the main menu of the program $1 (pid) with a right click on the title band of its main
# window $2, and waits for the menu.
open_main_menu() {
  window_geometry "$2"
  # The title band lies 8 px from the window's left edge and about 5 px from its top edge.
  local x=$((WX + 30)) y=$((WY + 8))
  [ "$y" -ge 0 ] || y=0
  popup_at "$x" "$y" "$1"
}

# A right click at screen point $1, $2, then waits for the pop-up menu of process $3 (default: the
# program under test).
popup_at() {
  xdotool mousemove "$1" "$2"
  sleep 0.3
  xdotool click 3
  wait_popup "${3:-$PROGRAM_PID}"
  sleep 0.3
}

# Chooses the entry with mnemonic $1 in the open menu of the program under test and waits for the
# dialog whose title matches $2, which then gets the focus; its id is left in FOUND_ID.
dialog_from_menu() {
  menu_choose "$PROGRAM_PID" "$1"
  wait_window "$2" _NET_WM_WINDOW_TYPE_DIALOG 20
  focus_window "$FOUND_ID"
}

# True while process $1 shows a pop-up menu.
menu_open() {
  local id
  for id in $(xdotool search --onlyvisible --pid "$1" --name '.*' 2>/dev/null); do
    xwininfo -id "$id" 2>/dev/null | grep -q 'Override Redirect State: yes' && return 0
  done
  return 1
}

# Waits up to $2 seconds until process $1 shows no pop-up menu.
wait_menu_closed() {
  local end=$((SECONDS + $2))
  while menu_open "$1"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.2
  done
}

# Chooses an entry of the open menu of process $1 by the mnemonics (underlined letters) of its path,
# e.g. `menu_choose "$pid" g c f` for "Settin&gs" > "&Containers" > "&Fold on Click". Each letter must belong to one entry
# of its menu: then it triggers the entry or opens its submenu. A letter that several entries share only
# moves the highlight, the menu stays open, and the test fails here.
menu_choose() {
  local pid=$1 key
  shift
  for key in "$@"; do
    xdotool key "$key"
    sleep 0.3
  done
  wait_menu_closed "$pid" 5 && return 0
  xdotool key Escape Escape Escape
  fail "the menu is still open after the keys $* (no entry, or more than one, has that letter)"
}
