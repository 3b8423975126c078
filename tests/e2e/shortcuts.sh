#!/usr/bin/env bash
# Shortcuts made through the real menus: a file shortcut from "New Fi&le Shortcut..." and its file
# dialog, a web shortcut from "New &Web Shortcut..." and the "Add URL" dialog. A single click on the
# file shortcut starts its target, a script that writes its arguments and working folder to a marker
# file; after SIGTERM the workspace file holds both shortcuts.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

# The window: 1000 by 600 pixels at (100, 100); a single click starts a shortcut.
write_workspace_file 1500 1500 15000 9000 3158064
awk '{ if (prev == "[Dbl-Click]\r") print "0\r"; else print; prev = $0 }' "$INI" >"$INI.new" && mv "$INI.new" "$INI"
[ "$(ini_value "$INI" '[Dbl-Click]')" = 0 ] || fail "could not switch double-click starts off"

TOOLS=$E2E_TMP/home/tools
mkdir -p "$TOOLS"
MARKER=$E2E_TMP/marker.txt
TARGET=$TOOLS/write-marker
cat >"$TARGET" <<SCRIPT
#!/bin/sh
printf '%s|%s\n' "\$(pwd)" "\$*" >"$MARKER"
SCRIPT
chmod +x "$TARGET"
URL=https://example.org/perchdock-e2e

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"
log "main window at $WX,$WY, ${WW}x$WH"

# A right click on the bare background opens the main menu; a new shortcut goes where it opened.
bx=$((WX + 300)) by=$((WY + 250))
popup_at "$bx" "$by"
dialog_from_menu l '^Add File Shortcut$'
dialog=$FOUND_ID
xdotool type --delay 20 "$TARGET"
xdotool key Return
wait_window_hidden "$dialog" 10 || fail "the file dialog did not close on Return"
end=$((SECONDS + 10))
until [ -f "$REC" ] && grep -q "write-marker" "$REC"; do
  [ $SECONDS -lt $end ] || fail "the new file shortcut was not saved to Perchdock.REC"
  sleep 0.2
done
log "file shortcut made and saved"

# The web shortcut, from a right click further down.
popup_at "$bx" $((by + 120))
dialog_from_menu w '^Add URL$'
dialog=$FOUND_ID
# The address line holds "http://", all selected: typing replaces it.
xdotool type --delay 20 "$URL"
xdotool key Return
wait_window_hidden "$dialog" 10 || fail "the Add URL dialog did not close after Add"
end=$((SECONDS + 10))
until grep -q "perchdock-e2e" "$REC"; do
  [ $SECONDS -lt $end ] || fail "the new web shortcut was not saved to Perchdock.REC"
  sleep 0.2
done
log "web shortcut made and saved"

# A click on the file shortcut's label, which starts at the point where the menu opened.
xdotool mousemove $((bx + 12)) $((by + 6))
sleep 0.5
xdotool click 1
end=$((SECONDS + 15))
until [ -s "$MARKER" ]; do
  [ $SECONDS -lt $end ] || fail "a click on the file shortcut did not start its program"
  sleep 0.2
done
marker=$(cat "$MARKER")
[ "$marker" = "$TOOLS|" ] || fail "the program started in '${marker%%|*}' with '${marker#*|}', not in $TOOLS with no arguments"
log "the click started the target in its own folder"
alive "$PROGRAM_PID" || fail "the program ended after the start"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
grep -q "$TARGET" "$INI" || fail "Perchdock.ini does not hold the file shortcut $TARGET"
grep -q "$URL" "$INI" || fail "Perchdock.ini does not hold the web shortcut $URL"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"
log "passed"
