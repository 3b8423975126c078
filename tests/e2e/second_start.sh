#!/usr/bin/env bash
# Only one instance runs: a second start ends at once without a window of its own, and a second start
# with --toggle hides the running window, and the next one shows it again.
source "$(dirname "$0")/lib.sh" "$@"

start_display
start_program
first=$PROGRAM_PID
wait_main_window "$first"
main=$MAIN_ID

# A plain second start.
t0=$SECONDS
status=0
timeout 5 "$PERCHDOCK" >>"$LOG" 2>&1 || status=$?
[ "$status" -ne 124 ] || fail "the second start did not end within 5 s"
[ "$status" -eq 0 ] || fail "the second start ended with status $status"
log "second start ended with 0 after $((SECONDS - t0)) s"
alive "$first" || fail "the first instance ended"
windows=$(visible_main_windows | wc -l)
[ "$windows" -eq 1 ] || fail "$windows main windows are shown after the second start"
xdotool search --onlyvisible --name '^Perchdock$' | grep -qx "$main" || fail "the first window is no longer shown"

# --toggle hides the running window...
status=0
timeout 5 "$PERCHDOCK" --toggle >>"$LOG" 2>&1 || status=$?
[ "$status" -eq 0 ] || fail "perchdock --toggle ended with status $status"
wait_window_hidden "$main" 10 || fail "the window is still shown after --toggle"
! xdotool search --onlyvisible --name '^Perchdock$' | grep -qx "$main" || fail "the window is still listed as visible"
log "hidden by --toggle"

# ...and the next one shows it again.
status=0
timeout 5 "$PERCHDOCK" --toggle >>"$LOG" 2>&1 || status=$?
[ "$status" -eq 0 ] || fail "the second perchdock --toggle ended with status $status"
end=$((SECONDS + 10))
until xdotool search --onlyvisible --name '^Perchdock$' | grep -qx "$main"; do
  [ $SECONDS -lt $end ] || fail "the window is not shown again after the second --toggle"
  sleep 0.2
done
log "shown again by --toggle"

alive "$first" || fail "the first instance ended"
stop_program "$first"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
log "passed"
