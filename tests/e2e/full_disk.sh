#!/usr/bin/env bash
# A disk that fills during a save. The data folder lies on a small file system of its own: a real
# tmpfs of 16 MiB when one can be mounted (in a private mount namespace when `unshare -m` works), or
# else, where mounting is not allowed, our LD_PRELOAD library (enospc_shim.cpp) makes the program's
# writes below the data folder run out of room after a budget of bytes. The output names the method.
#
# Twelve containers, the seventh with a note of about 20 KiB (six pages). Each round fills the disk,
# presses Ctrl+F2 (Fold/Unfold All, which rewrites every container file and the recovery file) and
# checks that the program is still running, that every file is either its last whole version or the
# new one, whole, that no temporary file is left, and then, with room again, that the next save (a
# setting changed from the menu) writes every change that the failed save could not. Round 1 leaves
# room for the small files but not for the big one; round 2 leaves no room at all. Last, a clean exit
# writes the workspace file and the next start loads the twelve containers.
#
# FULLDISK_METHOD=shim skips the mount and uses the library.
#
# Arguments: <perchdock> <Reloader> <enospc shim library>
if [ -z "${PERCHDOCK_FULLDISK_NS:-}" ] && [ "${FULLDISK_METHOD:-}" != shim ] && [ "$(id -u)" = 0 ] &&
  command -v unshare >/dev/null && unshare -m --propagation private true 2>/dev/null; then
  PERCHDOCK_FULLDISK_NS=1 exec unshare -m --propagation private bash "$0" "$@"
fi

source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"
source "$(dirname "$0")/save_checks.sh"

SHIM=${3:-}
COUNT=12 BIG=6
CONTROL=$E2E_TMP/space
FILLER=$XDG_DATA_HOME/filler
MOUNTED=0
METHOD=

full_disk_cleanup() {
  local status=$? pid
  for pid in "${STARTED_PIDS[@]}"; do kill -KILL "$pid" 2>/dev/null; done
  if [ "$MOUNTED" -eq 1 ]; then
    for pid in "${STARTED_PIDS[@]}"; do wait_gone "$pid" 5; done
    umount "$XDG_DATA_HOME" 2>/dev/null || umount -l "$XDG_DATA_HOME" 2>/dev/null
  fi
  (exit "$status")
  e2e_cleanup
}
trap full_disk_cleanup EXIT

# --- The small file system, or the library.
if [ "${FULLDISK_METHOD:-}" != shim ] && mount -t tmpfs -o size=16m,mode=0755 perchdock-full "$XDG_DATA_HOME" 2>/dev/null; then
  MOUNTED=1
  METHOD=tmpfs
  if [ -n "${PERCHDOCK_FULLDISK_NS:-}" ]; then
    log "method: a tmpfs of 16 MiB mounted on the data folder in a private mount namespace"
  else
    log "method: a tmpfs of 16 MiB mounted on the data folder"
  fi
else
  [ -n "$SHIM" ] && [ -f "$SHIM" ] || fail "no tmpfs could be mounted and there is no shim library at '$SHIM'"
  METHOD=shim
  echo free >"$CONTROL"
  if [ "${FULLDISK_METHOD:-}" = shim ]; then why="FULLDISK_METHOD=shim"; else why="mounting a tmpfs was not permitted"; fi
  log "method: LD_PRELOAD library $(basename "$SHIM") ($why)"
fi

# Leaves room for $1 more bytes (with the tmpfs: $1 rounded down to whole pages, at any one moment;
# with the library: $1 bytes written in all from now on).
TOKEN=0
limit_space() {
  if [ "$METHOD" = tmpfs ]; then
    rm -f "$FILLER"
    dd if=/dev/zero of="$FILLER" bs=4096 2>/dev/null
    local size
    size=$(stat -c %s "$FILLER")
    [ "$size" -gt "$1" ] || fail "the filler took only $size bytes"
    truncate -s $((size - $1 / 4096 * 4096)) "$FILLER"
  else
    TOKEN=$((TOKEN + 1))
    echo "full $1 round$TOKEN" >"$CONTROL"
  fi
}

free_space() {
  if [ "$METHOD" = tmpfs ]; then rm -f "$FILLER"; else echo free >"$CONTROL"; fi
}

start_with_method() {
  if [ "$METHOD" = shim ]; then
    # The library is not built with the sanitizers; a sanitized program must not insist on coming first.
    LD_PRELOAD=$SHIM PERCHDOCK_ENOSPC_DIR=$DATA PERCHDOCK_ENOSPC_CONTROL=$CONTROL \
      ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0 start_program
  else
    start_program
  fi
}

# --- The workspace.
NAMES=$E2E_TMP/names LINKS=$E2E_TMP/links
: >"$NAMES"; : >"$LINKS"
write_workspace_file 1500 1500 15000 9000 3158064
big_note=
for ((l = 0; l < 320; l++)); do big_note+="line $l of a long note that takes several pages on the disk"$'\n'; done
for ((n = 0; n < COUNT; n++)); do
  con_defaults
  CON_NAME="Box $n" CON_X=$(((n % 4) * 3200 + 100)) CON_Y=$(((n / 4) * 3100 + 100))
  CON_LINKS=$((n % 3))
  if [ "$n" -eq "$BIG" ]; then CON_NOTE_ON=1 CON_NOTE=$big_note; fi
  write_container_file "$n"
  printf '%s\n' "$CON_NAME" >>"$NAMES"
  echo "$CON_LINKS" >>"$LINKS"
done
check_container_files "$COUNT" "$NAMES" "$LINKS" >/dev/null || fail "the container files written by the test do not pass the check"
log "$COUNT containers; $BIG.con has $(stat -c %s "$CON_DIR/$BIG.con") bytes"

# Every file is whole, and none is left over from a write.
check_files() {
  local problems
  problems=$(check_container_files "$COUNT" "$NAMES" "$LINKS") || fail "$1: damaged container files:
$(head -n 10 <<<"$problems")"
  [ -e "$CON_DIR/$COUNT.con" ] && fail "$1: a container file past the $COUNT containers"
  [ -e "$REC" ] && check_whole_workspace_file "$REC"
  [ -e "$INI" ] && check_whole_workspace_file "$INI"
  [ -z "$(temporary_files)" ] || fail "$1: temporary files are left: $(temporary_files | tr '\n' ' ')"
}

# Compares the files with snapshot $1: prints "<new> <old>", the counts of container files that
# differ from it and that equal it (with $2 = loaded: that hold the same container as it loads).
compare_with() {
  local n fresh=0 same=0
  for ((n = 0; n < COUNT; n++)); do
    if [ "${2:-}" = loaded ]; then
      if same_container "$CON_DIR/$n.con" "$1/Containers/$n.con"; then same=$((same + 1)); else fresh=$((fresh + 1)); fi
    elif cmp -s "$CON_DIR/$n.con" "$1/Containers/$n.con"; then
      same=$((same + 1))
    else
      fresh=$((fresh + 1))
    fi
  done
  echo "$fresh $same"
}

press_fold_all() {
  focus_window "$MAIN_ID"
  xdotool key ctrl+F2
  sleep 0.5
  wait_settled 15 || fail "the files did not settle within 15 s after Ctrl+F2"
}

# A setting changed from the menu: a save with nothing new in the containers.
toggle_setting() {
  open_main_menu "$PROGRAM_PID" "$MAIN_ID"
  menu_choose "$PROGRAM_PID" g c f
  sleep 0.5
  wait_settled 15 || fail "the files did not settle within 15 s after the menu"
}

start_display
start_with_method
wait_main_window "$PROGRAM_PID" 60

# A first save with room: every file in the program's own hand.
press_fold_all
alive "$PROGRAM_PID" || fail "the program ended"
check_files "after the first save"
[ -e "$REC" ] || fail "no recovery file after Ctrl+F2"
snapshot_data "$E2E_TMP/s1"
log "Ctrl+F2 with room: every file written"

big_size=$(stat -c %s "$CON_DIR/$BIG.con")
small_sum=$(stat -c %s "$REC")
for ((n = 0; n < BIG; n++)); do small_sum=$((small_sum + $(stat -c %s "$CON_DIR/$n.con"))); done

# --- Round 1: room for the small files, the disk fills in the middle of the big one.
if [ "$METHOD" = tmpfs ]; then limit_space $((4 * 4096)); else limit_space $((small_sum + big_size / 2)); fi
press_fold_all
alive "$PROGRAM_PID" || fail "the program ended when the disk filled"
check_files "round 1, disk full"
read -r fresh same <<<"$(compare_with "$E2E_TMP/s1")"
cmp -s "$CON_DIR/$BIG.con" "$E2E_TMP/s1/Containers/$BIG.con" || fail "round 1: $BIG.con was replaced although it did not fit"
[ "$fresh" -ge 1 ] || fail "round 1: no container file was written before the disk filled (the fill came too early)"
log "round 1: the disk filled during the save: $fresh container files written, $same kept whole in their last version"
free_space
toggle_setting
alive "$PROGRAM_PID" || fail "the program ended"
check_files "round 1, after room was freed"
read -r fresh same <<<"$(compare_with "$E2E_TMP/s1")"
[ "$same" -eq 0 ] || fail "round 1: with room again, $same container files still hold the state before the failed save"
snapshot_data "$E2E_TMP/s2"
log "round 1: with room again the next save wrote all $fresh container files"

# --- Round 2: no room at all.
limit_space 0
press_fold_all
alive "$PROGRAM_PID" || fail "the program ended when the disk was full"
check_files "round 2, disk full"
read -r fresh same <<<"$(compare_with "$E2E_TMP/s2")"
[ "$fresh" -eq 0 ] || fail "round 2: $fresh container files changed on a full disk"
cmp -s "$REC" "$E2E_TMP/s2/Perchdock.REC" || fail "round 2: the recovery file changed on a full disk"
log "round 2: nothing fit; every file kept its last version"
free_space
toggle_setting
check_files "round 2, after room was freed"
read -r fresh same <<<"$(compare_with "$E2E_TMP/s2")"
[ "$same" -eq 0 ] || fail "round 2: with room again, $same container files still hold the state before the failed save"
log "round 2: with room again the next save wrote all $fresh container files"
snapshot_data "$E2E_TMP/s3"

# --- A clean exit, then a start that loads it all.
stop_program "$PROGRAM_PID" 30
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ -e "$INI" ] || fail "no workspace file after the clean exit"
check_files "after the clean exit"
[ "$(ini_value "$INI" '[FoldOnClick]')" = "$(ini_value "$E2E_TMP/s3/Perchdock.REC" '[FoldOnClick]')" ] ||
  fail "the workspace file does not hold the setting changed last"
start_with_method
wait_main_window "$PROGRAM_PID" 60
toggle_setting
check_files "after the restart"
read -r fresh same <<<"$(compare_with "$E2E_TMP/s3" loaded)"
if [ "$same" -ne "$COUNT" ]; then
  for ((n = 0; n < COUNT; n++)); do
    same_container "$CON_DIR/$n.con" "$E2E_TMP/s3/Containers/$n.con" && continue
    diff <(tr -d '\r' <"$E2E_TMP/s3/Containers/$n.con") <(tr -d '\r' <"$CON_DIR/$n.con") | head -n 8 >&2
    break
  done
  fail "after the restart, $fresh container files changed: not every container was loaded as saved"
fi
stop_program "$PROGRAM_PID" 30
log "passed ($METHOD)"
