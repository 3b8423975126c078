#!/usr/bin/env bash
# The program starts on an empty data folder, shows its workspace in the workspace colour, and a
# SIGTERM ends it cleanly: the workspace file is written and no recovery file is left.
source "$(dirname "$0")/lib.sh" "$@"

start_display
start_program
wait_main_window "$PROGRAM_PID"
window_geometry "$MAIN_ID"
log "main window $MAIN_ID at $WX,$WY size ${WW}x$WH"
[ "$WW" -ge 100 ] && [ "$WH" -ge 100 ] || fail "the main window is only ${WW}x$WH"

# The part of the window that lies on the screen.
x0=$((WX < 0 ? 0 : WX)); y0=$((WY < 0 ? 0 : WY))
x1=$((WX + WW > 1280 ? 1280 : WX + WW)); y1=$((WY + WH > 800 ? 800 : WY + WH))
[ $((x1 - x0)) -ge 50 ] && [ $((y1 - y0)) -ge 50 ] || fail "the main window lies mostly off the screen"

# The window's own colour is the workspace colour 0x290700 (BGR), #000729 on the screen. The workspace
# picture inside it (the default theme's wallpaper) leaves a margin of 50 twips (3 px) along the
# window's edges, where that colour shows: check the middle of the left, right and bottom margins.
sleep 0.5
screenshot "$E2E_TMP/shot.png"
mid_y=$(((y0 + y1) / 2))
for point in "left $((WX + 1)) $mid_y" "right $((WX + WW - 2)) $mid_y" "bottom $(((x0 + x1) / 2)) $((WY + WH - 2))"; do
  set -- $point
  [ "$2" -ge 0 ] && [ "$2" -lt 1280 ] && [ "$3" -ge 0 ] && [ "$3" -lt 800 ] || continue
  colour=$(pixel_colour "$E2E_TMP/shot.png" "$2" "$3")
  log "$1 margin at ($2,$3): #$colour"
  [ "$colour" = 000729 ] || fail "the $1 margin of the window at ($2,$3) is #$colour, not the workspace colour #000729"
  checked=1
done
[ -n "${checked:-}" ] || fail "no margin of the window lies on the screen"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ -f "$INI" ] || fail "no Perchdock.ini after the exit"
starts_with "$INI" "$INI_HEAD" || fail "Perchdock.ini does not start with [1.05] [Hidden] 0 in CR LF lines: $(head -c 40 "$INI" | od -c | head -3)"
ends_with_crlf "$INI" || fail "Perchdock.ini does not end with CR LF"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"
log "passed"
