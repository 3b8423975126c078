#!/usr/bin/env bash
# The main menu on the title band: a setting changed from the menu goes to the recovery file only,
# "Save Workspace" writes the workspace file and removes the recovery file. Then a recovery file left
# by an unclean exit is offered at the next start, and accepting it makes it the workspace file.
source "$(dirname "$0")/lib.sh" "$@"

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
[ ! -e "$INI" ] && [ ! -e "$REC" ] || fail "files in the data folder before any change"

# Settings > Containers > Fold on Click: the change is saved to the recovery file only.
open_main_menu "$PROGRAM_PID" "$main"
menu_choose "$PROGRAM_PID" g c f
end=$((SECONDS + 10))
until [ -f "$REC" ]; do
  [ $SECONDS -lt $end ] || fail "no Perchdock.REC after a setting was changed from the menu"
  sleep 0.2
done
[ ! -e "$INI" ] || fail "a setting's change wrote Perchdock.ini"
fold=$(ini_value "$REC" '[FoldOnClick]')
[ -n "$fold" ] || fail "Perchdock.REC has no [FoldOnClick]"
log "Settings > Containers > Fold on Click saved to Perchdock.REC: [FoldOnClick] $fold"

# Save Workspace by its key F8 (its menu letter S is shared with the feed entries), then the
# "Workspace Saved" box.
focus_window "$main"
xdotool key F8
wait_window '^Perchdock$' _NET_WM_WINDOW_TYPE_DIALOG 10
box=$FOUND_ID
log "message box after Save Workspace"
[ -f "$INI" ] || fail "no Perchdock.ini after Save Workspace"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after Save Workspace"
focus_window "$box"
xdotool key Return
wait_window_hidden "$box" 10 || fail "the message box did not close on Return"
starts_with "$INI" "$INI_HEAD" || fail "Perchdock.ini does not start with [1.05] [Hidden] 0"
ends_with_crlf "$INI" || fail "Perchdock.ini does not end with CR LF"
[ "$(ini_value "$INI" '[FoldOnClick]')" = "$fold" ] || fail "Perchdock.ini does not hold the changed [FoldOnClick] $fold"
alive "$PROGRAM_PID" || fail "the program ended after Save Workspace"
log "Save Workspace wrote Perchdock.ini and removed Perchdock.REC"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"

# An unclean exit: the recovery file holds another font than the workspace file.
[ "$(ini_value "$INI" '[Font Name]')" = Verdana ] || fail "Perchdock.ini does not hold [Font Name] Verdana"
awk '{ if (prev == "[Font Name]\r") { print "Courier\r"; } else print; prev = $0 }' "$INI" >"$REC"
[ "$(ini_value "$REC" '[Font Name]')" = Courier ] || fail "could not write the recovery file"

start_program
wait_window '^Perchdock - Recover Last Session$' _NET_WM_WINDOW_TYPE_DIALOG 20
box=$FOUND_ID
log "the recovery question is shown"
focus_window "$box"
# Yes is the default button; its mnemonic is Alt+Y.
xdotool key alt+y
wait_window_hidden "$box" 10 || fail "the recovery question did not close on Alt+Y"
wait_main_window "$PROGRAM_PID"
[ "$(ini_value "$INI" '[Font Name]')" = Courier ] || fail "the recovered Perchdock.ini does not hold [Font Name] Courier"
stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ "$(ini_value "$INI" '[Font Name]')" = Courier ] || fail "Perchdock.ini does not hold [Font Name] Courier after the exit"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"
log "passed"
