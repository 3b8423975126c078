#!/usr/bin/env bash
# Saves survive a hard kill. A workspace of 200 containers (names of several kinds, notes, shortcuts,
# folded and shrunk ones) is written by hand; then, many times over, the program is started, Ctrl+F2
# ("Fold/Unfold All", which rewrites every container file) is pressed once or a few times, and the
# program is killed with SIGKILL 0 to 300 ms after the last press, in the middle of a save as often as
# not. After each kill the data folder must hold exactly 0.con .. 199.con, each of them whole and still
# holding its container's name and shortcuts; a workspace or recovery file must be whole too. At the
# next start the question about the recovery file is answered Yes and No in turn, and the workspace
# file must then be the recovered one, or the old one. A last clean run keeps the 200 containers.
#
# CRASH_KILLS (default 25) sets the number of kills; past 60 s the test stops killing once it has
# killed 10 times, so that a slow build (sanitizers) stays within its time. CRASH_SEED repeats the
# random presses and delays of an earlier run (its log names the seed).
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

COUNT=200
KILLS=${CRASH_KILLS:-25}
MIN_KILLS=10
BUDGET=60
RECOVERY_TITLE='^Perchdock - Recover Last Session$'
SEED=${CRASH_SEED:-$$}
RANDOM=$SEED

# --- The workspace: a window of 1000 by 600 pixels at (100, 100), and 200 containers.
NAMES=$E2E_TMP/names LINKS=$E2E_TMP/links
: >"$NAMES"; : >"$LINKS"
write_workspace_file 1500 1500 15000 9000 3158064
for ((n = 0; n < COUNT; n++)); do
  con_defaults
  case $((n % 6)) in
    0) CON_NAME="Box $n" ;;
    1) CON_NAME="Notes $n" ;;
    2) CON_NAME="Projects & plans $n" ;;
    3) CON_NAME="Café $n – Ünïcödé" ;;
    4) CON_NAME="Reading list ($n)" ;;
    5) CON_NAME="  spaced   name $n" ;;
  esac
  CON_X=$(((n % 10) * 1400 + 100)) CON_Y=$(((n / 10) * 400 + 600))
  CON_BACK=$(((n * 2654435761) % 16777216))
  if ((n % 4 == 1)); then
    CON_NOTE_ON=1
    CON_NOTE=$'Note of container '"$n"$'\nsecond line with [brackets]\n\nafter a blank line'
  fi
  ((n % 10 == 2)) && CON_LINKS=$((n % 3 + 1))
  ((n % 7 == 0)) && CON_FOLDED=1
  ((n % 25 == 3)) && CON_SHRINK=1
  write_container_file "$n"
  printf '%s\n' "$CON_NAME" >>"$NAMES"
  echo "$CON_LINKS" >>"$LINKS"
done
check_container_files "$COUNT" "$NAMES" "$LINKS" || fail "the container files written by the test do not pass the check"
log "wrote $COUNT container files with $(awk '{s += $1} END {print s}' "$LINKS") shortcuts in them"

# --- Checks of the data folder after a kill.
TEMP_SEEN=0
check_data_folder() {
  local what=$1 entry temps=0 numbered=0 problems
  for entry in "$CON_DIR"/* "$CON_DIR"/.[!.]*; do
    [ -e "$entry" ] || continue
    entry=${entry##*/}
    if [[ $entry =~ ^(0|[1-9][0-9]*)\.con$ ]]; then
      [ "${BASH_REMATCH[1]}" -lt "$COUNT" ] || fail "$what: Containers/ holds $entry, past the $COUNT containers"
      numbered=$((numbered + 1))
    elif [[ $entry =~ ^[0-9]+\.con\.[A-Za-z0-9]{6}$ ]]; then
      # A temporary file of an atomic write that the kill cut short: never read as a container.
      temps=$((temps + 1))
    else
      fail "$what: Containers/ holds an unexpected entry '$entry'"
    fi
  done
  [ "$numbered" -eq "$COUNT" ] || fail "$what: Containers/ holds $numbered numbered files, not $COUNT"
  problems=$(check_container_files "$COUNT" "$NAMES" "$LINKS") || fail "$what: damaged container files:
$(head -n 10 <<<"$problems")"
  for entry in "$INI" "$REC"; do
    [ -e "$entry" ] || continue
    starts_with "$entry" "$INI_HEAD" || fail "$what: ${entry##*/} does not start with [1.05] [Hidden] 0"
    ends_with_crlf "$entry" || fail "$what: ${entry##*/} does not end with CR LF"
    [ -n "$(ini_value "$entry" '[RSSUseProxy]')" ] || fail "$what: ${entry##*/} is cut short (no [RSSUseProxy] value)"
  done
  for entry in "$DATA"/Perchdock.*; do
    case ${entry##*/} in
      Perchdock.ini | Perchdock.REC) ;;
      Perchdock.ini.?????? | Perchdock.REC.??????) temps=$((temps + 1)) ;;
      *) [ -e "$entry" ] && fail "$what: unexpected file ${entry##*/} in the data folder" ;;
    esac
  done
  TEMP_SEEN=$temps
}

# Starts the program and waits for its window. When a recovery file lies there, the recovery question
# must come first: it is answered with $1 (alt+y or alt+n) and the workspace file checked afterwards.
start_and_answer() {
  local answer=$1 had_rec=0 end id asked=0
  if [ -e "$REC" ]; then
    had_rec=1
    cp "$REC" "$E2E_TMP/rec-before"
  fi
  rm -f "$E2E_TMP/ini-before"
  [ -e "$INI" ] && cp "$INI" "$E2E_TMP/ini-before"
  start_program
  end=$((SECONDS + 30))
  MAIN_ID=
  while [ $SECONDS -lt $end ]; do
    alive "$PROGRAM_PID" || fail "the program ended during its start"
    if [ "$asked" -eq 0 ]; then
      for id in $(xdotool search --onlyvisible --name "$RECOVERY_TITLE" 2>/dev/null); do
        [ "$(window_type "$id")" = _NET_WM_WINDOW_TYPE_DIALOG ] || continue
        [ "$had_rec" -eq 1 ] || fail "the recovery question came without a recovery file"
        focus_window "$id"
        xdotool key "$answer"
        wait_window_hidden "$id" 10 || fail "the recovery question did not close on $answer"
        asked=1
      done
    fi
    if find_main_window "$PROGRAM_PID" && is_viewable "$FOUND_ID"; then
      MAIN_ID=$FOUND_ID
      break
    fi
    sleep 0.1
  done
  [ -n "$MAIN_ID" ] || fail "no main window within 30 s of the start"
  if [ "$had_rec" -eq 1 ]; then
    [ "$asked" -eq 1 ] || fail "a recovery file lay there, but the window came without the recovery question"
    if [ "$answer" = alt+y ]; then
      cmp -s "$INI" "$E2E_TMP/rec-before" || fail "after Yes, Perchdock.ini is not the recovery file"
      ANSWERED_YES=$((ANSWERED_YES + 1))
    else
      if [ -e "$E2E_TMP/ini-before" ]; then
        cmp -s "$INI" "$E2E_TMP/ini-before" || fail "after No, Perchdock.ini changed"
      fi
      ANSWERED_NO=$((ANSWERED_NO + 1))
    fi
  fi
}

# Drops a pid that has ended from the list that the clean-up kills.
forget_pid() {
  local keep=() p
  for p in "${STARTED_PIDS[@]}"; do [ "$p" = "$1" ] || keep+=("$p"); done
  STARTED_PIDS=("${keep[@]}")
}

kill_program() {
  kill -KILL "$PROGRAM_PID" 2>/dev/null || fail "the program had ended before the kill"
  wait "$PROGRAM_PID" 2>/dev/null
  forget_pid "$PROGRAM_PID"
}

# Files in Containers/ written since the marker was touched.
rewritten_since() { find "$CON_DIR" -maxdepth 1 -name '*.con' -newer "$1" | wc -l; }

start_display
log "random seed $SEED (CRASH_SEED=$SEED repeats this run)"
ANSWERED_YES=0 ANSWERED_NO=0

# --- First run: Ctrl+F2 saves every container file. 0.con starts folded and must come out open.
start_and_answer alt+y
focus_window "$MAIN_ID"
[ "$(ini_value "$CON_DIR/0.con" '[Folded]')" = 1 ] || fail "0.con is not folded before the first press"
xdotool key ctrl+F2
end=$((SECONDS + 15))
until [ "$(ini_value "$CON_DIR/0.con" '[Folded]')" = 0 ] && [ "$(ini_value "$CON_DIR/$((COUNT - 1)).con" '[Folded]')" = 1 ]; do
  [ $SECONDS -lt $end ] || fail "Ctrl+F2 did not rewrite the container files within 15 s"
  sleep 0.1
done
sleep 1 # the save is one step: once the last file is written, it is over
[ -e "$REC" ] || fail "no Perchdock.REC after Fold/Unfold All"
kill_program
check_data_folder "after the first kill"
log "Ctrl+F2 rewrote the container files and Perchdock.REC; killed after the save"

# --- Kills at random moments after the presses.
t0=$SECONDS
kills=1 rounds_with_writes=0 partial_saves=0 max_temps=$TEMP_SEEN
answer=alt+n
marker=$E2E_TMP/marker
for ((round = 1; round <= KILLS; round++)); do
  if [ "$round" -gt "$MIN_KILLS" ] && [ $((SECONDS - t0)) -gt "$BUDGET" ]; then
    log "stopping after $((round - 1)) kills: $((SECONDS - t0)) s used"
    break
  fi
  start_and_answer "$answer"
  [ "$answer" = alt+y ] && answer=alt+n || answer=alt+y
  focus_window "$MAIN_ID"
  touch "$marker"
  sleep 0.05 # file times have a coarse grain on some file systems
  presses=$((1 + RANDOM % 3))
  for ((p = 1; p <= presses; p++)); do
    xdotool key ctrl+F2
    if [ "$p" -lt "$presses" ]; then sleep "0.$((3 + RANDOM % 5))"; fi
  done
  delay=$((RANDOM % 301))
  sleep "$(printf '0.%03d' "$delay")"
  kill_program
  kills=$((kills + 1))
  written=$(rewritten_since "$marker")
  check_data_folder "kill $round ($presses presses, killed $delay ms after the last)"
  [ "$TEMP_SEEN" -gt "$max_temps" ] && max_temps=$TEMP_SEEN
  [ "$written" -gt 0 ] && rounds_with_writes=$((rounds_with_writes + 1))
  # Fold/Unfold All changes every container but the tiles: fewer files rewritten means a cut save.
  if [ "$written" -gt 0 ] && [ "$written" -lt $((COUNT - 8)) ]; then partial_saves=$((partial_saves + 1)); fi
  log "kill $round: $presses presses, killed $delay ms after the last; $written files rewritten; $TEMP_SEEN temporary files"
done
[ "$kills" -ge "$MIN_KILLS" ] || fail "only $kills kills"
[ "$rounds_with_writes" -gt 0 ] || fail "no round rewrote a container file: the presses did not reach the program"
log "$kills kills in $((SECONDS - t0)) s; $rounds_with_writes rounds rewrote files, $partial_saves of them were cut short"
log "recovery question answered Yes $ANSWERED_YES and No $ANSWERED_NO times; at most $max_temps temporary files at once"

# --- A last run ends cleanly: the 200 containers are still there.
start_and_answer alt+y
stop_program "$PROGRAM_PID"
forget_pid "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"
check_data_folder "after the clean exit"
log "after the clean exit: $COUNT whole container files, $TEMP_SEEN temporary files"
log "passed"
