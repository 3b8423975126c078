#!/usr/bin/env bash
# "Ignore Changes && Restart": after a yes the program ends without saving, the restart helper beside
# it starts it again, and the workspace file is the one from before the changes.
source "$(dirname "$0")/lib.sh" "$@"

[ -n "$RELOADER" ] || fail "usage: $0 <perchdock> <Reloader>"
[ -x "$RELOADER" ] || fail "no restart helper at $RELOADER"
[ "$(dirname "$RELOADER")" -ef "$(dirname "$PERCHDOCK")" ] || fail "the restart helper does not lie beside the program"

start_display

# A clean workspace file, with a line that only this test writes: a save by the program drops it.
start_program
wait_main_window "$PROGRAM_PID"
stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] && [ -f "$INI" ] || fail "the first run did not end cleanly (status $EXIT_STATUS)"
printf '[Test Marker]\r\nkept\r\n' >>"$INI"
cp "$INI" "$E2E_TMP/before.ini"

start_program
old=$PROGRAM_PID
wait_main_window "$old"
main=$MAIN_ID

# A change: Settings > Containers > Fold on Click, saved to the recovery file.
open_main_menu "$old" "$main"
menu_choose "$old" g c f
end=$((SECONDS + 10))
until [ -f "$REC" ]; do
  [ $SECONDS -lt $end ] || fail "no Perchdock.REC after a setting was changed from the menu"
  sleep 0.2
done
[ "$(ini_value "$REC" '[FoldOnClick]')" != "$(ini_value "$INI" '[FoldOnClick]')" ] ||
  fail "Settings > Containers > Fold on Click did not change [FoldOnClick]"

# Ignore Changes && Restart, and yes to its question.
open_main_menu "$old" "$main"
menu_choose "$old" i
wait_window '^Perchdock$' _NET_WM_WINDOW_TYPE_DIALOG 10
box=$FOUND_ID
log "the restart question is shown"
focus_window "$box"
xdotool key alt+y

end=$((SECONDS + 15))
while alive "$old"; do
  [ $SECONDS -lt $end ] || fail "the program did not end after the restart was confirmed"
  sleep 0.1
done
status=0
wait "$old" 2>/dev/null || status=$?
[ "$status" -eq 0 ] || fail "the old program ended with status $status"
log "the old program (pid $old) ended"

# The helper starts a new instance with a new window.
end=$((SECONDS + 20))
new=
while [ -z "$new" ]; do
  [ $SECONDS -lt $end ] || fail "no new main window within 20 s of the restart"
  for id in $(visible_main_windows); do
    pid=$(xdotool getwindowpid "$id" 2>/dev/null) || continue
    [ "$pid" != "$old" ] && new=$pid && STARTED_PIDS+=("$new")
  done
  sleep 0.2
done
log "the program runs again as pid $new"

cmp -s "$INI" "$E2E_TMP/before.ini" || fail "Perchdock.ini changed across the restart"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after the restart"

kill -TERM "$new"
wait_gone "$new" 15 || fail "the restarted program did not end within 15 s of SIGTERM"
log "passed"
