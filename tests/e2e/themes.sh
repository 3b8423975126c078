#!/usr/bin/env bash
# The workspace in each theme that ships with the program, and the Display Properties dialog.
#
# For every Skin/*.pkt beside the program a fresh data folder gets a workspace file in the theme's
# colours, wallpaper (stretched) and button set, and three containers in its container and note
# colours: one with shortcuts, one note and one folded. The first run copies the program's Skin folder
# into the data folder, so the wallpaper and buttons are found there. A screenshot of the window is
# kept as theme-<name>.png; the colours of a title bar, a note and the window's background band are
# checked on it. Then F4 opens the Display Properties dialog, kept as properties.png, and Cancel
# closes it.
#
# The screenshots go to the folder named by PERCHDOCK_ARTIFACTS (CTest passes <build>/artifacts).
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

ARTIFACTS=${PERCHDOCK_ARTIFACTS:-$E2E_TMP/artifacts}
mkdir -p "$ARTIFACTS" || fail "cannot make the artefact folder $ARTIFACTS"
SKIN=$(dirname "$PERCHDOCK")/Skin
shopt -s nullglob
THEMES=("$SKIN"/*.pkt)
[ ${#THEMES[@]} -ge 4 ] || fail "only ${#THEMES[@]} themes beside the program in $SKIN"

rgb() { printf '%02X%02X%02X' $(($1 & 255)) $((($1 >> 8) & 255)) $((($1 >> 16) & 255)); }
# Replaces the value line after key $2 in file $1 (CR LF lines) with $3.
set_key() {
  local tmp=$1.tmp
  awk -v key="$2" -v value="$3" 'BEGIN {RS = "\r\n"; ORS = "\r\n"} skip {print value; skip = 0; next}
    {print} $0 == key {skip = 1}' "$1" >"$tmp" && mv "$tmp" "$1"
}
trimmed() { local v=$1; v=${v#"${v%%[! ]*}"}; printf '%s' "${v%"${v##*[! ]}"}"; }
theme_value() { trimmed "$(ini_value "$1" "$2")"; }
# True when colours $1 and $2 (RRGGBB) differ by at most 10 in each channel.
near() {
  local a=$1 b=$2 c d
  [[ $a =~ ^[0-9A-F]{6}$ ]] || return 1
  for c in 0 2 4; do
    d=$((16#${a:c:2} - 16#${b:c:2}))
    [ "${d#-}" -le 10 ] || return 1
  done
}
# A pixel of the window for a place in twips on the workspace (50 twips inside the window, 15 a pixel).
px() { echo $(((50 + $1) / 15)); }

start_display

for theme in "${THEMES[@]}"; do
  name=$(basename "$theme" .pkt)
  slug=${name// /-}
  SHOT=$ARTIFACTS/theme-$slug.png
  rm -rf "$DATA" "$SHOT"
  write_workspace_file 1500 1500 15000 9000 0
  for key in Background PictureBorder ContainerFor ContainerLabel ContainerTextBack ContainerTextFor Foreground; do
    set_key "$INI" "[$key]" " $(theme_value "$theme" "[$key]") "
  done
  set_key "$INI" '[Wallpaper]' "$DATA/Skin/Wallpaper/$(theme_value "$theme" '[Wallpaper]')"
  set_key "$INI" '[Stretch]' 1
  set_key "$INI" '[Buttons]' "$(theme_value "$theme" '[Buttons]')"
  CONTAINER=$(theme_value "$theme" '[ContainerFor]')
  LABEL=$(theme_value "$theme" '[ContainerLabel]')
  NOTE_BACK=$(theme_value "$theme" '[ContainerTextBack]')
  con_defaults
  CON_NAME="Everyday" CON_BACK=$CONTAINER CON_FORE=$LABEL CON_X=600 CON_Y=600 CON_W=3300 CON_H=3000 CON_LINKS=4 CON_LINK_X=420
  write_container_file 0
  con_defaults
  CON_NAME="Notes" CON_BACK=$CONTAINER CON_FORE=$LABEL CON_X=4500 CON_Y=600 CON_W=3300 CON_H=3000
  CON_NOTE_ON=1 CON_NOTE=$'Water the plants\nCall the garage at ten\nBuy stamps'
  write_container_file 1
  con_defaults
  CON_NAME="Archive" CON_BACK=$CONTAINER CON_FORE=$LABEL CON_X=8400 CON_Y=600 CON_W=3300 CON_H=3000 CON_FOLDED=1
  CON_LINKS=2 CON_LINK_X=420
  write_container_file 2

  start_program
  wait_main_window "$PROGRAM_PID"
  main=$MAIN_ID
  window_geometry "$main"
  [ -f "$DATA/Skin/Wallpaper/$(theme_value "$theme" '[Wallpaper]')" ] || fail "$name: the skin was not installed"

  checks=(
    "title $((600 + 2400)) $((600 + 175)) $(rgb "$CONTAINER")"
    "note  $((4500 + 1650)) $((600 + 2000)) $(rgb "$NOTE_BACK")"
    "title2 $((8400 + 2400)) $((600 + 175)) $(rgb "$CONTAINER")"
  )
  end=$((SECONDS + 10))
  while :; do
    import -window "$main" "$SHOT" 2>>"$E2E_TMP/import.log" || fail "$name: no screenshot"
    format=
    for c in "${checks[@]}"; do
      set -- $c
      format+="%[hex:u.p{$(px "$2"),$(px "$3")}] "
    done
    read -r -a colours < <(convert "$SHOT" -depth 8 -format "$format\n" info:- 2>>"$E2E_TMP/import.log")
    bad=() i=0
    for c in "${checks[@]}"; do
      set -- $c
      got=$(tr a-f A-F <<<"${colours[i]:-none}")
      i=$((i + 1))
      near "$got" "$4" || bad+=("$1 at ($(px "$2"),$(px "$3")): #$got, not #$4")
    done
    [ ${#bad[@]} -eq 0 ] && break
    [ $SECONDS -ge $end ] && fail "$name: the screenshot ($SHOT) does not show the theme's colours:
$(printf '  %s\n' "${bad[@]}")"
    sleep 0.5
  done
  log "$name: $SHOT (${WW}x$WH)"

  if [ "$theme" = "${THEMES[-1]}" ]; then
    # The Display Properties dialog on F4, over the workspace in this theme.
    # A press on the bare background first takes the keyboard from the note's text.
    window_geometry "$main"
    xdotool mousemove $((WX + 700)) $((WY + 500)) click 1
    sleep 0.5
    focus_window "$main"
    xdotool key F4
    wait_window '^Display Properties$' _NET_WM_WINDOW_TYPE_UTILITY 10
    dialog=$FOUND_ID
    sleep 1
    DSHOT=$ARTIFACTS/properties.png
    import -window "$dialog" "$DSHOT" 2>>"$E2E_TMP/import.log" || fail "no screenshot of the dialog"
    window_geometry "$dialog"
    log "dialog: $DSHOT (${WW}x$WH)"
    [ "$WW" -ge 500 ] && [ "$WH" -ge 300 ] || fail "the dialog is only ${WW}x$WH"
    shot_all=$ARTIFACTS/properties-over-workspace.png
    screenshot "$shot_all"
    focus_window "$dialog"
    xdotool key Escape
    wait_window_hidden "$dialog" 10 || fail "Escape did not close the dialog"
  fi

  stop_program "$PROGRAM_PID"
  [ "$EXIT_STATUS" -eq 0 ] || fail "$name: exit status $EXIT_STATUS after SIGTERM"
  # The exit save keeps the theme's button set and wallpaper.
  [ "$(ini_value "$INI" '[Buttons]' | tr -d '\r')" = "$(theme_value "$theme" '[Buttons]')" ] ||
    fail "$name: the button set was not kept"
done
log "passed"
