#!/usr/bin/env bash
# The same workspace shown twice by the real program: once on a 1280x800 screen at one device pixel per
# logical pixel, once on a 2560x1600 screen with QT_SCALE_FACTOR=2. At 2x the main window covers twice
# the pixels each way at twice the place (the same logical geometry, from the same twips), the twins of
# our images are drawn, and after SIGTERM the program's files are byte for byte those of the 1x run:
# twips count logical pixels, so nothing moves or grows in the files.
#
# The screenshots of the main window are kept as hidpi-1x.png and hidpi-2x.png in the folder named by
# PERCHDOCK_ARTIFACTS (CTest passes <build>/artifacts).
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

ARTIFACTS=${PERCHDOCK_ARTIFACTS:-$E2E_TMP/artifacts}
mkdir -p "$ARTIFACTS" || fail "cannot make the artefact folder $ARTIFACTS"
PROGRAM_DIR=$(cd "$(dirname "$PERCHDOCK")" && pwd)
[ -f "$PROGRAM_DIR/Skin/Buttons/Plain White on Blue/fold@2x.png" ] ||
  fail "the button twins are not beside the program ($PROGRAM_DIR/Skin/Buttons/Plain White on Blue/fold@2x.png)"

# The workspace: a 1000x600 window at (100,100) with the Graphite Mint wallpaper stretched over it, an
# open container with two shortcuts (a folder and a picture file), a folded one and one with a note.
write_workspace_file 1500 1500 15000 9000 3158064
WALLPAPER=$PROGRAM_DIR/Skin/Wallpaper/GraphiteMint.jpg
awk -v wp="$WALLPAPER" 'BEGIN { RS = ORS = "\r\n" } prev == "[Wallpaper]" { $0 = wp } prev == "[Stretch]" { $0 = "1" }
  { prev = $0; print }' "$INI" >"$INI.new" && mv "$INI.new" "$INI"
con_defaults
CON_NAME="Sharp" CON_BACK=192 CON_X=600 CON_Y=600 CON_W=4500 CON_H=4200 CON_LINKS=2
write_container_file 0
sed -i -e "s|https://example.org/0/0|$E2E_TMP/home|" -e "s|https://example.org/0/1|$PROGRAM_DIR/alarmclock.gif|" \
  -e 's|^Page 0.0\r$|Home folder\r|' -e 's|^Page 0.1\r$|Alarm clock picture\r|' -e 's|^ 120 \r$| 600 \r|' "$CON_DIR/0.con"
con_defaults
CON_NAME="Folded" CON_X=6000 CON_Y=600 CON_W=3000 CON_H=3000 CON_FOLDED=1 CON_LINKS=1
write_container_file 1
con_defaults
CON_NAME="Note" CON_X=6000 CON_Y=2400 CON_W=4200 CON_H=2700 CON_NOTE_ON=1 CON_NOTE=$'Twice the pixels,\nthe same twips'
write_container_file 2
cp -a "$DATA" "$E2E_TMP/start-data"

# Starts Xvfb with a screen of $1 (WxH) on a free display, in place of the one before.
start_sized_display() {
  local fd_file=$E2E_TMP/display i
  [ -n "$XVFB_PID" ] && { kill "$XVFB_PID" 2>/dev/null; wait "$XVFB_PID" 2>/dev/null; }
  rm -f "$fd_file"
  Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp -noreset 3>"$fd_file" 2>"$E2E_TMP/xvfb.log" &
  XVFB_PID=$!
  for i in $(seq 200); do
    [ -s "$fd_file" ] && break
    kill -0 "$XVFB_PID" 2>/dev/null || { cat "$E2E_TMP/xvfb.log" >&2; fail "Xvfb did not start"; }
    sleep 0.1
  done
  [ -s "$fd_file" ] || fail "Xvfb did not report a display within 20 s"
  export DISPLAY=":$(head -n1 "$fd_file")"
  log "display $DISPLAY ($1)"
}

# One run: starts the program on the workspace above, takes the screenshot $1 of its main window once
# it has painted (sets WX WY WW WH), ends it with SIGTERM and keeps a listing of its files' sums in $2.
run_once() {
  local shot=$1 sums=$2 end size
  rm -rf "$DATA" && cp -a "$E2E_TMP/start-data" "$DATA"
  start_program
  wait_main_window "$PROGRAM_PID" 40
  window_geometry "$MAIN_ID"
  log "main window at $WX,$WY, ${WW}x$WH"
  # The window paints its first frames after it appears: wait until the container's colour shows in
  # the middle of its title band (600 + 2250 twips across, 600 + 175 down, 50 twips of frame).
  local cx=$(((50 + 600 + 2250) * WW / 15000)) cy=$(((50 + 600 + 175) * WH / 9000))
  end=$((SECONDS + 20))
  while :; do
    import -window "$MAIN_ID" "$shot" 2>>"$E2E_TMP/import.log" || fail "no screenshot of the window"
    size=$(identify -format '%wx%h' "$shot" 2>/dev/null)
    [ "$size" = "${WW}x$WH" ] && [ "$(pixel_colour "$shot" "$cx" "$cy")" = C00000 ] && break
    [ $SECONDS -lt $end ] || fail "the window did not show the container's title at ($cx,$cy) within 20 s (size $size, colour $(pixel_colour "$shot" "$cx" "$cy"))"
    sleep 0.5
  done
  stop_program "$PROGRAM_PID" 30
  [ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
  (cd "$DATA" && find . -type f ! -path './Skin/*' -print0 | sort -z | xargs -0 md5sum) >"$sums"
}

SHOT1=$ARTIFACTS/hidpi-1x.png SHOT2=$ARTIFACTS/hidpi-2x.png
rm -f "$SHOT1" "$SHOT2"

start_sized_display 1280x800
run_once "$SHOT1" "$E2E_TMP/sums-1x"
X1=$WX Y1=$WY W1=$WW H1=$WH
[ "${W1}x$H1" = "1000x600" ] || fail "at 1x the main window is ${W1}x$H1, not the 1000x600 of its 15000x9000 twips"

start_sized_display 2560x1600
export QT_SCALE_FACTOR=2
run_once "$SHOT2" "$E2E_TMP/sums-2x"
unset QT_SCALE_FACTOR
[ "$WX,$WY,${WW}x$WH" = "$((2 * X1)),$((2 * Y1)),$((2 * W1))x$((2 * H1))" ] ||
  fail "at 2x the main window is at $WX,$WY, ${WW}x$WH, not at twice the place and size of 1x ($X1,$Y1, ${W1}x$H1)"
log "at 2x: $WX,$WY, ${WW}x$WH: twice the 1x window"

# The same files, to the byte: the same twips at both ratios.
diff -u "$E2E_TMP/sums-1x" "$E2E_TMP/sums-2x" >&2 ||
  fail "the program's files after the 2x run differ from those after the 1x run"
log "$(wc -l <"$E2E_TMP/sums-2x") files the same after both runs"

# The 2x screenshot has detail finer than a logical pixel (text, icons, the buttons' twins): in many of
# its aligned 2x2 blocks the four pixels differ. In the 1x screenshot scaled up by 2 every block is one
# colour; it is measured the same way as a control. A block counts when the pixel that stands for it
# differs from one of the other three by more than 25 % of the grey scale.
fine_blocks() {
  convert "$1" -colorspace gray \( +clone -filter point -resize 50% -resize 200% \) -compose difference \
    -composite -threshold 25% -format '%[fx:round(mean*w*h)]' info:
}
convert "$SHOT1" -filter point -resize 200% "$E2E_TMP/1x-up.png" || fail "cannot scale the 1x screenshot"
fine=$(fine_blocks "$SHOT2") control=$(fine_blocks "$E2E_TMP/1x-up.png")
log "pixels finer than a logical pixel: $fine in the 2x screenshot, $control in the 1x one scaled up"
[ "${fine:-0}" -gt 2000 ] && [ "${fine:-0}" -gt $((10 * ${control:-0})) ] ||
  fail "the 2x screenshot has no more detail than the 1x one scaled up ($fine against $control)"
log "screenshots: $SHOT1, $SHOT2"
log "passed"
