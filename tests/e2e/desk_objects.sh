#!/usr/bin/env bash
# Desk objects through the real menus: a picture from "New &Picture..." and its file dialog, and a
# reminder set a minute or two ahead in the "Reminder" dialog (typed into its fields, "&Done"). The
# reminder really rings: the alarm window "Perchdock Reminder" appears at the lower right of the screen;
# "&Snooze" takes it away and puts the icon back five minutes on. After SIGTERM the workspace file holds
# the picture and the snoozed reminder.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

# The window: 1000 by 600 pixels at (100, 100).
write_workspace_file 1500 1500 15000 9000 3158064

# A picture of our own making.
PICTURE=$E2E_TMP/home/red-square.gif
convert -size 60x40 xc:'#d02020' "$PICTURE" || fail "could not make the test picture"

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"
log "main window at $WX,$WY, ${WW}x$WH"

# --- a picture: right click on the background, "New &Picture...", the file dialog ---
bx=$((WX + 300)) by=$((WY + 250))
popup_at "$bx" "$by"
dialog_from_menu p '^Add Picture$'
dialog=$FOUND_ID
xdotool type --delay 20 "$PICTURE"
xdotool key Return
wait_window_hidden "$dialog" 10 || fail "the picture's file dialog did not close on Return"
end=$((SECONDS + 10))
until [ -f "$REC" ] && grep -q "red-square.gif" "$REC"; do
  [ $SECONDS -lt $end ] || fail "the new picture was not saved to Perchdock.REC"
  sleep 0.2
done
log "picture added and saved"

# --- a reminder: right click further right, "New R&eminder...", the dialog ---
popup_at $((bx + 300)) "$by"
dialog_from_menu e '^Reminder$'
dialog=$FOUND_ID
# One minute ahead, or two when the minute is about to turn (the present minute counts as past).
ahead=1
[ "$(date +%-S)" -lt 45 ] || ahead=2
due=$(date -d "+$ahead minute")
month=$(LC_ALL=C date -d "$due" +%b) day=$(date -d "$due" +%-d) year=$(date -d "$due" +%Y)
hour=$(date -d "$due" +%-I) minute=$(date -d "$due" +%M) ampm=$(LC_ALL=C date -d "$due" +%p)
log "setting the reminder for $month-$day-$year $hour:$minute $ampm"
# The fields in their tab order: month, day, year, hour, minute, AM/PM; each takes typed text.
for value in "$month" "$day" "$year" "$hour" "$minute" "$ampm"; do
  xdotool key ctrl+a
  xdotool type --delay 30 "$value"
  xdotool key Tab
  sleep 0.1
done
xdotool type --delay 30 "Water the plants"
xdotool key alt+d
wait_window_hidden "$dialog" 10 || { [ -n "${PERCHDOCK_ARTIFACTS:-}" ] && mkdir -p "$PERCHDOCK_ARTIFACTS" && screenshot "$PERCHDOCK_ARTIFACTS/desk_objects-dialog.png"; fail "the Reminder dialog did not close on Done"; }
end=$((SECONDS + 10))
until grep -q "Water the plants" "$REC"; do
  [ $SECONDS -lt $end ] || fail "the new reminder was not saved to Perchdock.REC"
  sleep 0.2
done
date_saved=$(ini_value "$REC" '[Date]')
time_saved=$(ini_value "$REC" '[Time]')
[ "$date_saved" = "$month-$day-$year" ] || fail "the reminder's date is '$date_saved', not $month-$day-$year"
[ "$time_saved" = "$(printf '%02d' "$hour"):$minute $ampm" ] || fail "the reminder's time is '$time_saved'"
log "reminder set and saved: $date_saved $time_saved"

# --- it rings within the minute after its time: nothing is advanced, the test waits ---
wait_window '^Perchdock Reminder$' _NET_WM_WINDOW_TYPE_UTILITY $((ahead * 60 + 70))
alarm=$FOUND_ID
log "the alarm rang at $(date +%T)"
sleep 1
window_geometry "$alarm"
log "alarm window at $WX,$WY, ${WW}x$WH"
# At the lower right: 200 twips (13 px) from the right edge, 700 twips (47 px) from the bottom.
right=$((1280 - WX - WW)) bottom=$((800 - WY - WH))
[ "$right" -ge 10 ] && [ "$right" -le 16 ] || fail "the alarm window's right edge is $right px from the screen's (13 expected)"
[ "$bottom" -ge 44 ] && [ "$bottom" -le 50 ] || fail "the alarm window's bottom is $bottom px above the screen's (47 expected)"

# --- Snooze: the alarm goes, the icon comes back five minutes on ---
focus_window "$alarm"
snoozed_at=$(date +%s)
xdotool key alt+s
wait_window_hidden "$alarm" 10 || fail "the alarm window did not close on Snooze"
end=$((SECONDS + 10))
until grep -q '/' <(ini_value "$REC" '[Date]'); do
  [ $SECONDS -lt $end ] || fail "the snoozed reminder was not saved to Perchdock.REC"
  sleep 0.2
done
alive "$PROGRAM_PID" || fail "the program ended after the snooze"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
grep -q "red-square.gif" "$INI" || fail "Perchdock.ini does not hold the picture"
[ "$(grep -c '^\[Reminder\]' "$INI")" -eq 1 ] || fail "Perchdock.ini should hold exactly the snoozed reminder"
grep -q "Water the plants" "$INI" || fail "Perchdock.ini does not hold the reminder's note"
date_saved=$(ini_value "$INI" '[Date]')
time_saved=$(ini_value "$INI" '[Time]')
# Five minutes after the press, in the snooze's form (Jan/05/2027, 08:10 PM); the press reaches the
# program within a few seconds of the key.
ok=0
for t in $((snoozed_at + 300)) $((snoozed_at + 305)); do
  want_date=$(LC_ALL=C date -d "@$t" +%b/%d/%Y) want_time=$(LC_ALL=C date -d "@$t" '+%I:%M %p')
  [ "$date_saved" = "$want_date" ] && [ "$time_saved" = "$want_time" ] && ok=1
done
[ "$ok" -eq 1 ] || fail "the snoozed reminder is at '$date_saved $time_saved', not five minutes after the snooze ($want_date $want_time)"
log "the file holds the snoozed reminder at $date_saved $time_saved"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"

# --- a reminder whose time passed while the program was not running rings at the start ---
printf '[Reminder]\r\n[PicX]\r\n 600 \r\n[PicY]\r\n 600 \r\n[Date]\r\nJan-1-2020\r\n[Time]\r\n08:05 PM\r\n[Note]\r\nLong ago\r\n[END Note]\r\n[PicPath]\r\n%s/alarmclockrd.gif\r\nTEMP\r\nTEMP\r\nTEMP\r\nTEMP\r\n' \
  "$(dirname "$PERCHDOCK")" >>"$INI"
start_program
wait_main_window "$PROGRAM_PID"
wait_window '^Perchdock Reminder$' _NET_WM_WINDOW_TYPE_UTILITY 10
log "the past reminder rang at the start"
# Ending with the alarm open loses that reminder; the snoozed one stays.
stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM with an alarm open"
grep -q "Long ago" "$INI" && fail "the rung reminder is still in Perchdock.ini"
grep -q "Water the plants" "$INI" || fail "the snoozed reminder is gone from Perchdock.ini"
log "passed"
