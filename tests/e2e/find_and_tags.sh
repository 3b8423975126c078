#!/usr/bin/env bash
# Type-to-find and tags on the real window. Two file shortcuts are made through the menus; their tags
# are put into the workspace file between two runs. Typing the first letters of one label on the
# window opens the search panel, which finds it, and Enter starts it (a script that writes a marker
# file). A tag chosen from the background's "&Tags" menu then hides the shortcut without that tag, and
# "Show All" brings it back. F2 on a selected shortcut opens "Shortcut Properties", whose OK keeps a new
# label.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

BACK=3158064 # 0x303030, the background's colour
write_workspace_file 1500 1500 15000 9000 "$BACK"
# No floating toolbar on a click on the background.
awk '{ if (prev == "[AddNewToolbar]\r") print "0\r"; else print; prev = $0 }' "$INI" >"$INI.new" && mv "$INI.new" "$INI"

TOOLS=$E2E_TMP/home/tools
mkdir -p "$TOOLS"
MARKER=$E2E_TMP/marker.txt
TARGET=$TOOLS/write-marker
cat >"$TARGET" <<SCRIPT
#!/bin/sh
printf 'started\n' >"$MARKER"
SCRIPT
chmod +x "$TARGET"
OTHER=$TOOLS/other-tool
printf '#!/bin/sh\nexit 0\n' >"$OTHER"
chmod +x "$OTHER"

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"
log "main window at $WX,$WY, ${WW}x$WH"

# Makes a file shortcut for $1 through the background's menu opened at ($2, $3).
add_file_shortcut() {
  popup_at "$2" "$3"
  dialog_from_menu l '^Add File Shortcut$'
  local dialog=$FOUND_ID
  xdotool type --delay 20 "$1"
  xdotool key Return
  wait_window_hidden "$dialog" 10 || fail "the file dialog did not close on Return"
  local end=$((SECONDS + 10))
  until [ -f "$REC" ] && grep -q "$(basename "$1")" "$REC"; do
    [ $SECONDS -lt $end ] || fail "the shortcut to $1 was not saved to Perchdock.REC"
    sleep 0.2
  done
}

bx=$((WX + 300)) by=$((WY + 250))
add_file_shortcut "$TARGET" "$bx" "$by"
add_file_shortcut "$OTHER" "$bx" $((by + 120))
log "two file shortcuts made"
stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"

# The tags: "work,alpha" on write-marker, "home" on other-tool, in the order the shortcuts were saved.
grep -q '^\[GROUP\]' "$INI" || fail "Perchdock.ini has no [GROUP] lines"
awk 'BEGIN { split("work,alpha|home", tags, "|") }
     { if (prev == "[GROUP]\r") { n++; print tags[n] "\r" } else print; prev = $0 }' "$INI" >"$INI.new" && mv "$INI.new" "$INI"
[ "$(grep -c 'home' "$INI")" -ge 1 ] || fail "could not put the tags into Perchdock.ini"

start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"

# --- type-to-find: "wri" and Enter start write-marker ---
focus_window "$main"
xdotool mousemove $((WX + 700)) $((WY + 500))
sleep 0.3
xdotool type --delay 120 "wri"
sleep 0.5
xdotool key Return
end=$((SECONDS + 15))
until [ -s "$MARKER" ]; do
  [ $SECONDS -lt $end ] || fail "typing 'wri' and Enter did not start write-marker"
  sleep 0.2
done
log "typing the first letters and Enter started the shortcut"
alive "$PROGRAM_PID" || fail "the program ended after the start"

# The label of write-marker shows text before the filter (more than one colour in its box).
colours_at() {
  local shot=$E2E_TMP/shot.png
  screenshot "$shot"
  convert "$shot" -crop "60x10+$1+$2" +repage -format '%k' info:-
}
window_geometry "$main"
before=$(colours_at $((bx + 20)) $((by + 2)))
[ "$before" -gt 1 ] || fail "the label of write-marker does not show before the filter ($before colours)"

# --- the tag filter from the real menu: "&Tags" > "home" ---
popup_at $((WX + 700)) $((WY + 450))
xdotool key t
sleep 0.5
# The submenu opens on "Show All"; below it a line, then the tags in order of first appearance:
# work, alpha, home.
xdotool key Down Down Down
sleep 0.3
xdotool key Return
wait_menu_closed "$PROGRAM_PID" 5 || { xdotool key Escape Escape Escape; fail "the tags menu did not close"; }
sleep 0.8
after=$(colours_at $((bx + 20)) $((by + 2)))
[ "$after" -eq 1 ] || fail "write-marker still shows after filtering by 'home' ($after colours in its box)"
other=$(colours_at $((bx + 20)) $((by + 122)))
[ "$other" -gt 1 ] || fail "other-tool, tagged 'home', is hidden by its own filter"
log "the filter by 'home' hid the other shortcut"

# "Show All" brings it back.
popup_at $((WX + 700)) $((WY + 450))
xdotool key t
sleep 0.5
# "Show All" is the entry the submenu opens on.
xdotool key Return
wait_menu_closed "$PROGRAM_PID" 5 || { xdotool key Escape Escape Escape; fail "the tags menu did not close"; }
sleep 0.8
again=$(colours_at $((bx + 20)) $((by + 2)))
[ "$again" -gt 1 ] || fail "Show All did not bring write-marker back"
log "Show All showed it again"

# --- F2 on the selected shortcut opens "Shortcut Properties"; a new label and Enter keep it ---
# A double click starts a shortcut here, so a single click only selects it.
xdotool mousemove $((bx + 40)) $((by + 126))
sleep 0.3
xdotool click 1
sleep 0.5
focus_window "$main"
xdotool key F2
wait_window '^Shortcut Properties$' _NET_WM_WINDOW_TYPE_DIALOG 20
dialog=$FOUND_ID
focus_window "$dialog"
# The label field has the focus with its text selected: typing replaces it.
xdotool type --delay 30 "renamed-tool"
xdotool key Return
wait_window_hidden "$dialog" 10 || fail "the properties window did not close on Enter"
end=$((SECONDS + 10))
until [ -f "$REC" ] && grep -q "renamed-tool" "$REC"; do
  [ $SECONDS -lt $end ] || fail "the new label was not saved after OK"
  sleep 0.2
done
log "F2 opened Shortcut Properties and OK kept the new label"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
grep -q 'work,alpha' "$INI" || fail "the tags were not kept in Perchdock.ini"
grep -q 'renamed-tool' "$INI" || fail "the new label was not kept in Perchdock.ini"
log "passed"
