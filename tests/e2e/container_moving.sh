#!/usr/bin/env bash
# Containers moved and sized with the mouse, as a person does it: a container dragged by its title
# across the alignment grid lands on the grid and its file holds the snapped place; a rim corner pulled
# out gives the container a new size in its file; a rectangle drawn on the background selects two
# containers, and a Ctrl-drag of one title moves both.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

# The window: 1000 by 600 pixels at (100, 100); the grid option on.
write_workspace_file 1500 1500 15000 9000 3158064
perl -0pi -e 's/\[Align\]\r\n0\r\n/[Align]\r\n1\r\n/' "$INI"
con_defaults
CON_NAME="First" CON_X=600 CON_Y=600
write_container_file 0
con_defaults
CON_NAME="Second" CON_X=4500 CON_Y=600
write_container_file 1
con_defaults
CON_NAME="Third" CON_X=9000 CON_Y=600
write_container_file 2

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"
log "main window at $WX,$WY, ${WW}x$WH"

# The screen pixel of a place on the workspace in twips: the workspace lies 50 twips inside the window
# and a pixel is 15 twips.
sx() { echo $((WX + (50 + $1) / 15)); }
sy() { echo $((WY + (50 + $1) / 15)); }

# The value of a key in container file $1, trimmed ("" when the file or key is missing).
con_value() { ini_value "$CON_DIR/$1.con" "$2" 2>/dev/null | tr -d ' '; }

# Waits until key $2 of container file $1 reads $3.
wait_con_value() {
  local end=$((SECONDS + 10)) v
  while :; do
    v=$(con_value "$1" "$2")
    [ "$v" = "$3" ] && return 0
    [ $SECONDS -lt $end ] || fail "$2 of container $1 is '$v', not $3"
    sleep 0.2
  done
}

# Drags with the left button from ($1, $2) by ($3, $4) pixels in nine steps.
drag() {
  local x=$1 y=$2 dx=$3 dy=$4 k
  xdotool mousemove "$x" "$y"
  sleep 0.3
  xdotool mousedown 1
  sleep 0.2
  # A first step of one pixel, as a hand makes: a rectangle starts where the pointer first moves.
  xdotool mousemove $((x + 1)) $((y + 1))
  sleep 0.08
  for k in 1 2 3 4 5 6 7 8; do
    xdotool mousemove $((x + dx * k / 8)) $((y + dy * k / 8))
    sleep 0.08
  done
  sleep 0.2
  xdotool mouseup 1
  sleep 0.3
}

# 1. The first container's title, grabbed 300 twips into the title, goes 67 pixels right and 20 down:
# its corner falls at 1605, 900 and lands 20 twips past the grid crossing up and left, at 1520, 770.
title_x=$(sx $((600 + 20 + 600 + 300))) title_y=$(sy $((600 + 20 + 40 + 100)))
drag "$title_x" "$title_y" 67 20
wait_con_value 0 '[X]' 1520
wait_con_value 0 '[Y]' 770
log "the title drag landed on the grid: 1520, 770"

# 2. The third container's lower-right corner: the outermost pixel of its rim, 30 pixels right and
# 20 down. 3000 twips and 450, 300 more.
corner_x=$(sx $((9000 + 3000 - 15))) corner_y=$(sy $((600 + 3000 - 15)))
xdotool mousemove $((corner_x - 3)) $((corner_y - 3))
sleep 0.2
drag "$corner_x" "$corner_y" 30 20
wait_con_value 2 '[W]' 3450
wait_con_value 2 '[H]' 3300
[ "$(con_value 2 '[X]')" = 9000 ] || fail "the corner drag moved the container to $(con_value 2 '[X]')"
log "the corner drag sized the container to 3450 by 3300"

# 3. A rectangle around the first two containers (not the third), then a Ctrl-drag of the second's
# title by 40 pixels: both move 600 twips, and with Ctrl held at the release neither snaps.
drag "$(sx 150)" "$(sy 450)" $(((8000 - 150) / 15)) $(((4200 - 450) / 15))
sleep 0.3
title_x=$(sx $((4500 + 20 + 600 + 300))) title_y=$(sy $((600 + 20 + 40 + 100)))
xdotool mousemove "$title_x" "$title_y"
sleep 0.3
xdotool keydown ctrl
sleep 0.2
drag "$title_x" "$title_y" 40 0
xdotool keyup ctrl
wait_con_value 1 '[X]' 5100
wait_con_value 0 '[X]' 2120
[ "$(con_value 2 '[X]')" = 9000 ] || fail "the container outside the rectangle moved to $(con_value 2 '[X]')"
[ "$(con_value 0 '[Y]')" = 770 ] && [ "$(con_value 1 '[Y]')" = 600 ] ||
  fail "the Ctrl-drag moved the containers up or down: $(con_value 0 '[Y]'), $(con_value 1 '[Y]')"
log "the rectangle selected two containers and a Ctrl-drag moved both"

stop_program "$PROGRAM_PID"
log "passed"
