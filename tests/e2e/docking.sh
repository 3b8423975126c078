#!/usr/bin/env bash
# Docking under a real window manager (openbox): the workspace window, put at the left edge with the
# dock menu, docks a second after the pointer has left it and another window has the focus, leaving a
# strip of the docking colour at the screen's left edge; the pointer on the strip brings it back; the
# hot key Super+S hides the window in front and brings it back; the tray icon shows in a tray host.
source "$(dirname "$0")/lib.sh" "$@"
unset PERCHDOCK_ASSUME_FOCUS

command -v openbox >/dev/null || fail "needs openbox (scripts/install-deps.sh installs it)"
command -v xmessage >/dev/null || fail "needs xmessage (x11-utils)"

start_display
openbox --sm-disable >"$E2E_TMP/openbox.log" 2>&1 &
STARTED_PIDS+=($!)
end=$((SECONDS + 15))
until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
  [ $SECONDS -lt $end ] || fail "openbox did not start within 15 s"
  sleep 0.2
done
log "openbox runs"

# A tray host, when one is installed: the program's tray icon docks into it.
TRAY=
if command -v trayer >/dev/null; then
  trayer --edge bottom --align right --widthtype pixel --width 120 --height 24 --SetDockType true \
         --transparent false >"$E2E_TMP/trayer.log" 2>&1 &
  STARTED_PIDS+=($!)
  TRAY=trayer
  sleep 1
fi

# Another program's window, to take the focus.
xmessage -geometry 300x100+700+500 -name other "another program" >/dev/null 2>&1 &
STARTED_PIDS+=($!)

start_program
pid=$PROGRAM_PID
wait_main_window "$pid"
main=$MAIN_ID

# The pointer on the window and the focus on it, so that it stays while the menu is used.
window_geometry "$main"
xdotool mousemove $((WX + 200)) $((WY + 150))
xdotool windowactivate --sync "$main" 2>/dev/null || focus_window "$main"
sleep 1.5
# The window may have docked at the top before it had the focus: the pointer on it brings it back.
window_geometry "$main"
xdotool mousemove $((WX + WW / 2)) $((WY + WH / 2))
sleep 1
window_geometry "$main"
log "window at $WX,$WY size ${WW}x$WH"

# "&Dock" > "&Left": the window is centred on the height and stands at Left = -100 (7 px off the screen).
# (The menu is chosen by its letters; the tray icon's own window would look like an open menu to
# menu_choose, so the test waits for the window's move instead.)
open_main_menu "$pid" "$main"
xdotool key d
sleep 0.3
xdotool key l
end=$((SECONDS + 5))
while :; do
  window_geometry "$main"
  [ "$WX" -le 0 ] && break
  [ $SECONDS -lt $end ] || fail "the window is not at the left edge after Dock > Left (x = $WX)"
  sleep 0.2
done
log "after Dock > Left: $WX,$WY size ${WW}x$WH"
full_w=$WW

# The pointer leaves and the other window takes the focus: within about a second the window slides
# off the left edge.
xdotool mousemove 1000 700
other=$(xdotool search --name '^another program$' 2>/dev/null | head -n1)
[ -n "$other" ] || other=$(xdotool search --class xmessage 2>/dev/null | head -n1)
[ -n "$other" ] || fail "the other window is not there"
xdotool windowactivate --sync "$other" 2>/dev/null || xdotool windowfocus "$other"
end=$((SECONDS + 8))
while :; do
  window_geometry "$main"
  [ "$WW" -le 10 ] && break
  [ $SECONDS -lt $end ] || fail "the window did not dock within 8 s (now $WX,$WY ${WW}x$WH)"
  sleep 0.2
done
log "docked: the window shows $WX,$WY ${WW}x$WH"
[ "$WX" -eq 0 ] || fail "the strip is not at the left edge (x = $WX)"
is_viewable "$main" || fail "the docked window is not viewable"

# The strip on the screen has the docking colour (pure blue by default).
shot=$E2E_TMP/docked.png
screenshot "$shot"
mid=$((WY + WH / 2))
for x in 0 1; do
  c=$(pixel_colour "$shot" "$x" "$mid")
  [ "$c" = 0000FF ] || fail "pixel ($x,$mid) of the strip is $c, not the docking colour 0000FF"
done
c=$(pixel_colour "$shot" 8 "$mid")
[ "$c" != 0000FF ] || fail "the strip is wider than it should be (pixel 8 is blue)"
if [ -n "${PERCHDOCK_ARTIFACTS:-}" ]; then mkdir -p "$PERCHDOCK_ARTIFACTS" && cp "$shot" "$PERCHDOCK_ARTIFACTS/docked.png"; fi
log "strip of the docking colour at x 0..1"

# The pointer on the strip: after the delay of half a second the window is back.
xdotool mousemove 1 "$mid"
sleep 0.1
xdotool mousemove 0 "$mid"
end=$((SECONDS + 5))
while :; do
  window_geometry "$main"
  [ "$WW" -ge $((full_w - 2)) ] && break
  [ $SECONDS -lt $end ] || fail "the window did not come back within 5 s (now $WX,$WY ${WW}x$WH)"
  sleep 0.2
done
log "back: $WX,$WY ${WW}x$WH"

# The hot key: the window in front goes away...
xdotool mousemove $((WX + 200)) $((WY + 150))
xdotool windowactivate --sync "$main" 2>/dev/null || focus_window "$main"
sleep 0.5
xdotool key super+s
wait_window_hidden "$main" 5 || fail "Super+S did not hide the window in front"
log "hidden by Super+S"
# ...and comes forward again (the window system may give the shown window a new id).
sleep 0.5
xdotool key super+s
end=$((SECONDS + 5))
until [ -n "$(visible_main_windows)" ]; do
  [ $SECONDS -lt $end ] || fail "Super+S did not bring the window back"
  sleep 0.2
done
main=$(visible_main_windows | head -n1)
log "shown by Super+S"

# The tray icon: a window of the program docked into the tray host.
if [ -n "$TRAY" ]; then
  end=$((SECONDS + 5))
  found=
  while [ $SECONDS -lt $end ] && [ -z "$found" ]; do
    for id in $(xdotool search --pid "$pid" --name '.*' 2>/dev/null); do
      if xprop -id "$id" _XEMBED_INFO 2>/dev/null | grep -q '='; then found=$id; break; fi
    done
    sleep 0.2
  done
  [ -n "$found" ] || fail "no tray icon of the program in $TRAY"
  log "tray icon $found in $TRAY"
else
  log "SKIP tray icon: no tray host installed"
fi

stop_program "$pid"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
log "passed"
