#!/usr/bin/env bash
# Three containers written by hand: an open one showing its note, a folded one and one shrunk to its
# tile. The program shows them where their files put them: a screenshot of the main window shows each
# container's colour at its place, the note's colour inside the open one, and the workspace colour
# below the folded one's title bar, beside and below the tile, and below the open container.
#
# The screenshot is kept as containers.png in the folder named by PERCHDOCK_ARTIFACTS (CTest passes
# <build>/artifacts), so that CI keeps it for people to look at.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

ARTIFACTS=${PERCHDOCK_ARTIFACTS:-$E2E_TMP/artifacts}
mkdir -p "$ARTIFACTS" || fail "cannot make the artefact folder $ARTIFACTS"
SHOT=$ARTIFACTS/containers.png
rm -f "$SHOT"

# Colours as the files store them (0x00BBGGRR) and as the screen shows them (RRGGBB).
BACKGROUND=3158064   # 0x303030, grey
OPEN_COLOUR=192      # red
FOLDED_COLOUR=12582912 # blue
TILE_COLOUR=49152    # green
NOTE_BACK=14810623   # the note's back colour of the workspace file ([ContainerTextBack])
rgb() { printf '%02X%02X%02X' $(($1 & 255)) $((($1 >> 8) & 255)) $((($1 >> 16) & 255)); }

# The window: 1000 by 600 pixels at (100, 100), all of it on the 1280x800 screen.
write_workspace_file 1500 1500 15000 9000 "$BACKGROUND"
con_defaults
CON_NAME="Open note" CON_BACK=$OPEN_COLOUR CON_X=600 CON_Y=600 CON_W=3000 CON_H=3000
CON_NOTE_ON=1 CON_NOTE=$'Shopping list\nbread, milk\ncall the plumber'
write_container_file 0
con_defaults
CON_NAME="Folded" CON_BACK=$FOLDED_COLOUR CON_X=4500 CON_Y=600 CON_W=3000 CON_H=3000 CON_FOLDED=1 CON_LINKS=2
write_container_file 1
con_defaults
CON_NAME="Tile" CON_BACK=$TILE_COLOUR CON_X=8500 CON_Y=600 CON_W=3000 CON_H=3000 CON_SHRINK=1 CON_LINKS=1
write_container_file 2

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"
log "main window at $WX,$WY, ${WW}x$WH"
[ "$WX" -eq 100 ] && [ "$WY" -eq 100 ] && [ "$WW" -eq 1000 ] && [ "$WH" -eq 600 ] ||
  fail "the main window is at $WX,$WY, ${WW}x$WH, not where the workspace file puts it (100,100, 1000x600)"

# A pixel of the window for a place in twips on the workspace: the workspace lies 50 twips inside the
# window, and a pixel is 15 twips.
px() { echo $(((50 + $1) / 15)); }

# Each check: a name, a place in twips of the workspace, and the colour expected there.
checks=(
  "open-title    $((600 + 2200)) $((600 + 175))          $(rgb $OPEN_COLOUR)"
  "open-note     $((600 + 1500)) $((600 + 1500))         $(rgb $NOTE_BACK)"
  "open-below    $((600 + 1500)) $((600 + 3000 + 200))   $(rgb $BACKGROUND)"
  "folded-bar    $((4500 + 2200)) $((600 + 175))         $(rgb $FOLDED_COLOUR)"
  "folded-below  $((4500 + 1500)) $((600 + 350 + 200))   $(rgb $BACKGROUND)"
  "folded-middle $((4500 + 1500)) $((600 + 1500))        $(rgb $BACKGROUND)"
  "folded-bottom $((4500 + 1500)) $((600 + 2900))        $(rgb $BACKGROUND)"
  "tile          $((8500 + 350)) $((600 + 600))          $(rgb $TILE_COLOUR)"
  "tile-right    $((8500 + 700 + 200)) $((600 + 475))    $(rgb $BACKGROUND)"
  "tile-below    $((8500 + 350)) $((600 + 950 + 200))    $(rgb $BACKGROUND)"
  "workspace     12000 6000                              $(rgb $BACKGROUND)"
)

# True when colours $1 and $2 (RRGGBB) differ by at most 8 in each channel.
near() {
  local a=$1 b=$2 c d
  [[ $a =~ ^[0-9A-F]{6}$ ]] || return 1
  for c in 0 2 4; do
    d=$((16#${a:c:2} - 16#${b:c:2}))
    [ "${d#-}" -le 8 ] || return 1
  done
}

# The window may still be painting its first frames: look again for up to 10 s.
end=$((SECONDS + 10))
while :; do
  import -window "$main" "$SHOT" 2>>"$E2E_TMP/import.log" || fail "no screenshot of the window"
  size=$(identify -format '%wx%h' "$SHOT" 2>/dev/null)
  # All the pixels in one call of convert: each call costs a good part of a second.
  format=
  for c in "${checks[@]}"; do
    set -- $c
    format+="%[hex:u.p{$(px "$2"),$(px "$3")}] "
  done
  read -r -a colours < <(convert "$SHOT" -depth 8 -format "$format\n" info:- 2>>"$E2E_TMP/import.log")
  bad=() seen=() i=0
  for c in "${checks[@]}"; do
    set -- $c
    x=$(px "$2") y=$(px "$3") got=$(tr a-f A-F <<<"${colours[i]:-none}")
    i=$((i + 1))
    seen+=("$1 at ($x,$y): #$got (expected #$4)")
    near "$got" "$4" || bad+=("$1 at ($x,$y): #$got, not #$4")
  done
  [ "$size" = "${WW}x$WH" ] && [ ${#bad[@]} -eq 0 ] && break
  if [ $SECONDS -ge $end ]; then
    [ "$size" = "${WW}x$WH" ] || fail "the screenshot is $size, not the window's ${WW}x$WH"
    fail "the screenshot ($SHOT) does not show the containers where their files put them:
$(printf '  %s\n' "${bad[@]}")"
  fi
  sleep 0.5
done
for c in "${seen[@]}"; do log "$c"; done
log "screenshot: $SHOT ($size)"

stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
# The exit save keeps the three states.
[ "$(ini_value "$CON_DIR/0.con" '[NOTE ON]')" = 1 ] || fail "0.con lost its note after the exit"
[ "$(ini_value "$CON_DIR/1.con" '[Folded]')" = 1 ] || fail "1.con is no longer folded after the exit"
[ "$(ini_value "$CON_DIR/2.con" '[Shrink]')" = 1 ] || fail "2.con is no longer shrunk after the exit"
log "passed"
