#!/usr/bin/env bash
# The shell exchange with another program, a small Qt stand-in for a file manager (shell_helper):
# - a folder-link container that refreshes on unfolding mirrors a real folder (files, then subfolders);
# - two files dragged from the helper onto the background (XDND, text/uri-list) become shortcuts;
# - "&Copy" on one of them puts the selected files on the clipboard, and the helper's Paste copies them
#   into a folder;
# - a file dragged onto the folder-link container is copied into its folder, and the new shortcut points
#   at the copy;
# - a shortcut dragged out of the folder-link container leaves as a file drag that the helper takes;
# - with Ctrl held at the drop the file is moved: copied in, and the source goes to the trash.
# Arguments: <perchdock> <Reloader> <shell_helper>
HELPER=${3:?usage: $0 <perchdock> <Reloader> <shell_helper>}
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"
[ -x "$HELPER" ] || fail "no helper at $HELPER"

FOLDER=$E2E_TMP/home/Mirror
SRC=$E2E_TMP/home/src
PASTED=$E2E_TMP/home/pasted
mkdir -p "$FOLDER/sub" "$SRC" "$PASTED"
echo alpha >"$FOLDER/b.txt"
echo beta >"$FOLDER/a.txt"
echo one >"$SRC/drop1.txt"
echo two >"$SRC/drop2.txt"
echo new >"$SRC/new.txt"
echo moved >"$SRC/move.txt"

# The window: 1000 by 600 pixels at (100, 100). Container 0, "Mirror", at (300, 100) in the window, 200 by
# 200 pixels, folded, linked to the folder and refreshed when it unfolds.
write_workspace_file 1500 1500 15000 9000 3158064
con_defaults
CON_NAME=Mirror CON_X=4500 CON_Y=1500 CON_FOLDED=1
write_container_file 0
awk -v folder="$FOLDER" '{
    line = $0; sub(/\r$/, "", line)
    if (prev == "[CopyPath]") print folder "\r"
    else if (prev == "[RefreshOnExpand]") print "True\r"
    else print
    prev = line
  }' "$CON_DIR/0.con" >"$CON_DIR/0.new" && mv "$CON_DIR/0.new" "$CON_DIR/0.con"
grep -q "Mirror" "$CON_DIR/0.con" || fail "could not write the container file"

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
window_geometry "$main"
log "main window at $WX,$WY, ${WW}x$WH"

# Waits until the saved workspace (the recovery file and the container files) holds every one of the given
# texts. $1: seconds; the rest: the texts.
wait_rec() {
  local limit=$1 end text missing
  shift
  end=$((SECONDS + limit))
  while :; do
    missing=
    for text in "$@"; do
      cat "$REC" "$CON_DIR"/*.con 2>/dev/null | grep -qF -- "$text" || { missing=$text; break; }
    done
    [ -z "$missing" ] && return 0
    [ $SECONDS -lt $end ] || return 1
    sleep 0.2
  done
}

# 1. A double click on the folded container's title unfolds it, and it reads its folder.
tx=$((WX + 300 + 60)) ty=$((WY + 100 + 8))
xdotool mousemove "$tx" "$ty"
sleep 0.4
xdotool click --repeat 2 --delay 80 1
wait_rec 15 "$FOLDER/a.txt" "$FOLDER/b.txt" "$FOLDER/sub" || fail "the folder-link container did not mirror its folder"
order=$(grep -aoE "$FOLDER/(a\.txt|b\.txt|sub)" "$CON_DIR/0.con" | tr '\n' ' ')
[ "$order" = "$FOLDER/a.txt $FOLDER/b.txt $FOLDER/sub " ] || fail "the mirror's order is '$order'"
log "the container mirrors its folder: files, then the subfolder"

# Drags from the helper window's middle to the screen point ($1, $2), with the left button held,
# in small steps as a hand would; then waits for the helper's answer.
drag_from_helper() {
  local x=$1 y=$2 out=$E2E_TMP/helper.out hx=1170 hy=675 i
  shift 2
  : >"$out"
  "$HELPER" drag "$@" >"$out" 2>>"$LOG" &
  STARTED_PIDS+=("$!")
  wait_window '^Drag Source$' _NET_WM_WINDOW_TYPE_NORMAL 20
  sleep 0.5
  xdotool mousemove "$hx" "$hy"
  sleep 0.3
  xdotool mousedown 1
  sleep 0.2
  for i in $(seq 1 20); do
    xdotool mousemove $((hx + (x - hx) * i / 20)) $((hy + (y - hy) * i / 20))
    sleep 0.05
  done
  sleep 0.5
  if [ -n "${DRAG_BEFORE_RELEASE:-}" ]; then
    "$DRAG_BEFORE_RELEASE"
    sleep 0.2
  fi
  xdotool mousemove "$x" "$y"
  sleep 0.3
  xdotool mouseup 1
  local end=$((SECONDS + 10))
  until grep -q '^drop-action' "$out"; do
    [ $SECONDS -lt $end ] || fail "the helper's drag did not end"
    sleep 0.2
  done
  DROP_ACTION=$(sed -n 's/^drop-action //p' "$out")
}

# 2. Two files dragged onto the background become shortcuts there.
bx=$((WX + 150)) by=$((WY + 400))
drag_from_helper "$bx" "$by" "$SRC/drop1.txt" "$SRC/drop2.txt"
[ "$DROP_ACTION" = 1 ] || fail "the workspace answered the drag with action $DROP_ACTION, not a copy"
wait_rec 10 "$SRC/drop1.txt" "$SRC/drop2.txt" || fail "the dropped files did not become shortcuts"
[ -f "$SRC/drop1.txt" ] || fail "the dropped file went away"
log "a drag from another program made two shortcuts"

# 3. "&Copy" on the first of them; the helper pastes the selection into a folder.
xdotool mousemove $((bx + 14)) $((by + 7))
sleep 0.4
xdotool click 3
wait_popup "$PROGRAM_PID"
sleep 0.3
menu_choose "$PROGRAM_PID" c
sleep 0.5
"$HELPER" paste "$PASTED" >"$E2E_TMP/paste.out" 2>>"$LOG" || { cat "$E2E_TMP/paste.out" >&2; fail "the clipboard listed no files"; }
cat "$E2E_TMP/paste.out"
grep -q '^formats .*text/uri-list' "$E2E_TMP/paste.out" || fail "the clipboard holds no text/uri-list"
grep -q "^gnome-copied-files copy|file://$SRC/drop" "$E2E_TMP/paste.out" || fail "the clipboard holds no x-special/gnome-copied-files list"
[ -f "$PASTED/drop1.txt" ] || fail "drop1.txt was not pasted"
[ "$(cat "$PASTED/drop1.txt")" = one ] || fail "the pasted file is not the copied one"
log "the copied shortcuts' files pasted into a folder"

# 4. A file dragged onto the folder-link container is copied into its folder.
cx=$((WX + 300 + 150)) cy=$((WY + 100 + 170))
drag_from_helper "$cx" "$cy" "$SRC/new.txt"
end=$((SECONDS + 15))
until [ -f "$FOLDER/new.txt" ]; do
  [ $SECONDS -lt $end ] || fail "the file dropped on the folder-link container was not copied into its folder"
  sleep 0.2
done
[ "$(cat "$FOLDER/new.txt")" = new ] || fail "the copy differs from its source"
[ -f "$SRC/new.txt" ] || fail "a plain drop moved the source"
wait_rec 10 "$FOLDER/new.txt" || fail "the new shortcut does not point at the copy"
log "a file dropped on the folder-link container was copied into its folder"

# 5. A shortcut dragged out of the folder-link container leaves, over the background, as a file drag that
#    another program takes. Where the label of a.txt stands: its container's place, the rim, its own place.
read -r lx ly < <(tr -d '\r' <"$CON_DIR/0.con" | awk -v path="$FOLDER/a.txt" '
  prev == "[LinkX]" { x = $1 } prev == "[LinkY]" { y = $1 } prev == "[LinkPath]" && $0 == path { print x, y; exit }
  { prev = $0 }')
[ -n "${lx:-}" ] || fail "no place of the a.txt shortcut in the container file"
ax=$((WX + (4500 + 20 + lx) / 15 + 8)) ay=$((WY + (1500 + 20 + ly) / 15 + 6))
out=$E2E_TMP/drop.out
"$HELPER" drop >"$out" 2>>"$LOG" &
STARTED_PIDS+=("$!")
wait_window '^Drop Target$' _NET_WM_WINDOW_TYPE_NORMAL 20
sleep 0.5
xdotool mousemove "$ax" "$ay"
sleep 0.3
xdotool mousedown 1
sleep 0.2
# Out of the container to the left, over the background, then on to the helper's window.
path_points=()
for i in $(seq 1 15); do path_points+=("$((ax - 12 * i)) $ay"); done
bgx=$((ax - 180))
for i in $(seq 1 25); do path_points+=("$((bgx + (1185 - bgx) * i / 25)) $((ay + (695 - ay) * i / 25))"); done
for p in "${path_points[@]}"; do
  # shellcheck disable=SC2086
  xdotool mousemove $p
  sleep 0.06
done
sleep 0.5
xdotool mousemove 1185 695
sleep 0.4
xdotool mouseup 1
end=$((SECONDS + 10))
until grep -q '^dropped' "$out"; do
  [ $SECONDS -lt $end ] || fail "the shortcut dragged out of the folder-link container did not reach the other program as a file"
  sleep 0.2
done
cat "$out"
grep -q "^dropped file://$FOLDER/a.txt" "$out" || fail "the file drag did not carry a.txt first"
log "a shortcut dragged out of the folder-link container left as a file drag"

# 6. Ctrl held at the drop on the folder-link container: the file is copied in and its source trashed.
drag_ctrl() { xdotool keydown ctrl; }
DRAG_BEFORE_RELEASE=drag_ctrl
drag_from_helper "$cx" "$cy" "$SRC/move.txt"
DRAG_BEFORE_RELEASE=
xdotool keyup ctrl
end=$((SECONDS + 15))
until [ -f "$FOLDER/move.txt" ] && [ ! -e "$SRC/move.txt" ]; do
  [ $SECONDS -lt $end ] || fail "a Ctrl-drop on the folder-link container did not move the file (copy: $([ -f "$FOLDER/move.txt" ] && echo yes || echo no), source left: $([ -e "$SRC/move.txt" ] && echo yes || echo no))"
  sleep 0.2
done
[ -f "$XDG_DATA_HOME/Trash/files/move.txt" ] || fail "the moved file's source is not in the trash"
[ "$(cat "$XDG_DATA_HOME/Trash/files/move.txt")" = moved ] || fail "the trash holds another file"
wait_rec 10 "$FOLDER/move.txt" || fail "the moved file's shortcut does not point at the copy"
log "a Ctrl-drop moved the file into the folder and its source to the trash"

stop_program "$PROGRAM_PID"
log "PASS"
