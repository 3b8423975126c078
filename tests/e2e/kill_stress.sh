#!/usr/bin/env bash
# Hard kills in the middle of a working session. The real program starts on a prepared workspace (eight
# containers, notes, shortcuts) and a script makes varied edits as a person would, with xdotool: new
# containers and notes by their keys, renames from a title's menu, titles dragged to new places, notes
# typed into, Fold/Unfold All and Shrink/Expand All, file shortcuts through the file dialog, web
# shortcuts through their dialog, settings switched in the menus, and (when the stand-in file manager is
# given) files dropped onto containers. After an edit the test waits until the files have settled and
# keeps a copy of the data folder: the last completed save.
#
# Now and then an edit is cut short: the program is killed with SIGKILL at a random moment, 0 to 1.5 s
# after the edit began or 0 to 80 ms after its last step (when its save runs). Then every file of the last completed save must still be on disk, and each must be either
# that save's version or a newer one as whole as the program writes them (CR LF lines, every key in its
# place, the workspace file with every setting it had); the container files must be numbered without a
# gap. The program is started again (the recovery question answered Yes, so that the newest settings
# load), and its first save, a setting switched by its key, must keep every container file as it was:
# each container was loaded just as it was written. A failed check counts as a loss; the run goes on and
# fails at the end when there was one. The last line gives the counts of edits, kills and losses.
#
# KILL_STRESS_FULL=1 makes the long run (300 edits, a kill every 7 edits on average, 30 kills at the
# least: the last edits are killed when too few were); KILL_EDITS, KILL_EVERY and KILL_MIN set them.
# The short run (the default: 30 edits, a kill every 2 on average) stops after 20 s once it has killed
# 3 times, so that a slow build (sanitizers) keeps within its time. KILL_SEED repeats the random
# choices of an earlier run (its log names the seed).
#
# Arguments: <perchdock> <Reloader> [<shell_helper>]
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"
source "$(dirname "$0")/save_checks.sh"
# The system's Python starts at once; a version manager's shim in PATH can take a second each time.
PYTHON=/usr/bin/python3
[ -x "$PYTHON" ] || PYTHON=$(command -v python3) || fail "needs python3"

HELPER=${3:-}
if [ -n "${KILL_STRESS_FULL:-}" ]; then
  EDITS=${KILL_EDITS:-300} EVERY=${KILL_EVERY:-7} BUDGET=0 MIN_KILLS=${KILL_MIN:-30}
else
  EDITS=${KILL_EDITS:-30} EVERY=${KILL_EVERY:-2} BUDGET=20 MIN_KILLS=3
fi
SEED=${KILL_SEED:-$$}
# The loop's own choices (which edit is killed, when) come from a generator of their own, so that the
# draws of the edits themselves (which container, where to) cannot bend them into a cycle.
LCG=$SEED
draw() { LCG=$(((LCG * 1103515245 + 12345) % 2147483648)); DRAW=$(((LCG >> 16) % $1)); }
RANDOM=$SEED
MAX_CONTAINERS=16
RECOVERY_TITLE='^Perchdock - Recover Last Session$'
FILES=$E2E_TMP/home/files
mkdir -p "$FILES"
# Should a click start a shortcut after all, nothing opens: the desktop's opener is a stand-in here.
mkdir -p "$E2E_TMP/bin"
printf '#!/bin/sh\necho "opened: $*" >>"%s"\n' "$E2E_TMP/opened" >"$E2E_TMP/bin/xdg-open"
chmod +x "$E2E_TMP/bin/xdg-open"
export PATH=$E2E_TMP/bin:$PATH
for k in 0 1 2 3 4 5 6 7 8 9; do echo "file $k" >"$FILES/document-$k.txt"; done

# --- The workspace: a window of 1000 by 600 pixels at (100, 100), and eight containers.
write_workspace_file 1500 1500 15000 9000 3158064
for ((n = 0; n < 8; n++)); do
  con_defaults
  CON_NAME="Start $n" CON_X=$(((n % 4) * 3500 + 300)) CON_Y=$(((n / 4) * 4200 + 300))
  CON_LINKS=$((n % 3))
  if ((n % 3 == 1)); then CON_NOTE_ON=1 CON_NOTE=$'Note '"$n"$'\nsecond line'; fi
  write_container_file "$n"
done

# --- The check of the data folder against the last completed save.
CHECKER=$E2E_TMP/check.py
cat >"$CHECKER" <<'PY'
import os, re, sys

snap, data, mode = sys.argv[1], sys.argv[2], sys.argv[3]
HEAD = ["[Container]", "[Name]", "[Backcolor]", "[Forecolor]", "[Icon]", "[CopyPath]", "[RefreshOnExpand]", "[NOTE ON]"]
TAIL = ["[Folded]", "[Flipped]", "[Shrink]", "[X]", "[Y]", "[W]", "[H]"]
LINK = ["[Size]", "[LinkX]", "[LinkY]", "[LinkLabel]", "[LinkType]", "[LinkPath]", "[LinkParam]", "[Color]", "[Bold]",
        "[Confirm]", "[Command]", "[Icon]", "[GROUP]", "[EXCLUSIVE]"]

def lines_of(raw):
    """The CR LF lines of a file, or an error text."""
    if not raw.endswith(b"\r\n"):
        return None, "does not end with CR LF (%d bytes)" % len(raw)
    try:
        text = raw.decode("utf-8")
    except UnicodeDecodeError:
        return None, "is not UTF-8"
    lines = text[:-2].split("\r\n")
    for i, l in enumerate(lines):
        if "\r" in l or "\n" in l:
            return None, "line %d holds a bare CR or LF" % (i + 1)
    return lines, None

def container(raw):
    """Checks a container file as the program writes it; returns (keys, error)."""
    lines, err = lines_of(raw)
    if err:
        return None, err
    if not lines or lines[0] != "[1.05]":
        return None, "does not start with [1.05]"
    i, keys = 1, []
    for key in HEAD:
        if i + 1 >= len(lines) or lines[i] != key:
            return None, "line %d is not %s" % (i + 1, key)
        keys.append(key); i += 2
    if i >= len(lines) or lines[i] != "[START Note]":
        return None, "no [START Note] at line %d" % (i + 1)
    try:
        i = lines.index("[END Note]", i) + 1
    except ValueError:
        return None, "no [END Note]"
    for key in TAIL:
        if i + 1 >= len(lines) or lines[i] != key:
            return None, "line %d is not %s" % (i + 1, key)
        keys.append(key); i += 2
    links = 0
    while i < len(lines):
        if lines[i] != "[Link]":
            return None, "line %d is %r, not a [Link] record" % (i + 1, lines[i])
        rec = lines[i + 1:i + 29]
        if len(rec) != 28 or [rec[k] for k in range(0, 28, 2)] != LINK:
            return None, "a [Link] record at line %d is cut short or out of order" % (i + 1)
        links += 1; i += 29
    return (keys, links), None

def workspace(raw):
    """Checks a workspace or recovery file; returns (setting keys, error)."""
    lines, err = lines_of(raw)
    if err:
        return None, err
    if lines[:3] != ["[1.05]", "[Hidden]", "0"] and lines[:3] != ["[1.05]", "[Hidden]", "1"]:
        return None, "does not start with [1.05] [Hidden]"
    keys, i = [], 1
    while i + 1 < len(lines):
        keys.append(lines[i])
        if lines[i] == "[RSSUseProxy]":
            return (keys, lines.count("[Link]")), None
        i += 2
    return None, "is cut short before [RSSUseProxy] and its value"

def as_loaded(raw):
    """A container file as the program loads it: a folded container comes back with its title on top,
    so the value of [Flipped] does not count while [Folded] is 1."""
    lines = raw.split(b"\r\n")
    try:
        if lines[lines.index(b"[Folded]") + 1] == b"1":
            lines[lines.index(b"[Flipped]") + 1] = b"-"
    except (ValueError, IndexError):
        pass
    return b"\r\n".join(lines)

def check(name, raw):
    return container(raw) if name.startswith("Containers/") else workspace(raw)

def files(root):
    out = {}
    for name in ("Perchdock.ini", "Perchdock.REC"):
        if os.path.isfile(os.path.join(root, name)):
            out[name] = os.path.join(root, name)
    cdir = os.path.join(root, "Containers")
    if os.path.isdir(cdir):
        for f in os.listdir(cdir):
            out["Containers/" + f] = os.path.join(cdir, f)
    return out

temp = re.compile(r"^(Perchdock\.(ini|REC)|Containers/(0|[1-9][0-9]*)\.con)\.[A-Za-z0-9]{6}$")
numbered = re.compile(r"^Containers/(0|[1-9][0-9]*)\.con$")
old, new = files(snap), files(data)
losses, same, newer, added, temps = [], 0, 0, 0, 0

if mode == "loaded":
    # After a restart and a save: every container file is as it was before the start.
    for name in sorted(set(old) | set(new)):
        if not numbered.match(name):
            continue
        if name not in new:
            losses.append("%s is gone after the restart: its container was not loaded" % name)
        elif name not in old:
            losses.append("%s appeared after the restart" % name)
        elif as_loaded(open(old[name], "rb").read()) != as_loaded(open(new[name], "rb").read()):
            losses.append("%s was rewritten after the restart: its container did not load as it was saved" % name)
        else:
            same += 1
    for l in losses:
        print("LOSS: " + l)
    print("loaded: %d container files kept" % same)
    sys.exit(1 if losses else 0)

for name, path in sorted(old.items()):
    if name not in new:
        losses.append("%s of the last save is missing" % name)
        continue
    a, b = open(path, "rb").read(), open(new[name], "rb").read()
    if a == b:
        same += 1
        continue
    keys, err = check(name, b)
    if err:
        losses.append("%s is damaged: it %s" % (name, err))
        continue
    before, _ = check(name, a)
    if before and not set(before[0]) <= set(keys[0]):
        losses.append("%s lost keys: %s" % (name, sorted(set(before[0]) - set(keys[0]))))
        continue
    newer += 1
for name, path in sorted(new.items()):
    if name in old:
        continue
    if temp.match(name):
        temps += 1
        continue
    if not (numbered.match(name) or name in ("Perchdock.ini", "Perchdock.REC")):
        losses.append("an unexpected file %s" % name)
        continue
    _, err = check(name, open(path, "rb").read())
    if err:
        losses.append("%s (new) is damaged: it %s" % (name, err))
    added += 1
# No edit deletes a shortcut, but one may move between the background and a container, or between
# containers: over the files that load (the recovery file if there is one, else the workspace file,
# and the container files), there are as many as in the last save, or more.
def shortcuts(files):
    total = 0
    main = "Perchdock.REC" if "Perchdock.REC" in files else "Perchdock.ini"
    for name, path in files.items():
        if name == main or numbered.match(name):
            total += open(path, "rb").read().count(b"\r\n[Link]\r\n")
    return total
if shortcuts(new) < shortcuts(old):
    losses.append("the files hold %d shortcuts in all, the last save %d" % (shortcuts(new), shortcuts(old)))
nums = sorted(int(numbered.match(n).group(1)) for n in new if numbered.match(n))
if nums != list(range(len(nums))):
    losses.append("the container files are not numbered without a gap: %s" % nums)
for l in losses:
    print("LOSS: " + l)
print("%d files as saved, %d newer and whole, %d new, %d temporary" % (same, newer, added, temps))
sys.exit(1 if losses else 0)
PY

# --- Driving the program. No step here fails the test: an edit that a kill or a stray window cut short
# just did less. Every function returns false when something it waited for did not come.

# The screen pixel of a place on the workspace in twips: the workspace lies 50 twips inside the window
# and a pixel is 15 twips.
sx() { echo $((WX + (50 + $1) / 15)); }
sy() { echo $((WY + (50 + $1) / 15)); }

# Reads the place and state of container file $1 into CX CY CFOLDED CSHRINK CNOTE.
read_container() {
  local f=$CON_DIR/$1.con
  [ -f "$f" ] || return 1
  eval "$(awk 'BEGIN {RS = "\r\n"} prev == "[X]" {printf "CX=%d\n", $1} prev == "[Y]" {printf "CY=%d\n", $1}
    prev == "[Folded]" {printf "CFOLDED=%s\n", $1} prev == "[Shrink]" {printf "CSHRINK=%s\n", $1}
    prev == "[NOTE ON]" {printf "CNOTE=%s\n", $1} prev == "[Flipped]" {printf "CFLIPPED=%s\n", $1} {prev = $0}' "$f")"
}

container_count() { find "$CON_DIR" -maxdepth 1 -name '*.con' | grep -cE '/[0-9]+\.con$'; }

# A random container that is neither shrunk nor flipped (its title lies on top), into C.
pick_container() {
  local tries n count
  count=$(container_count)
  [ "$count" -gt 0 ] || return 1
  for tries in 1 2 3 4 5 6; do
    n=$((RANDOM % count))
    read_container "$n" || continue
    [ "$CSHRINK" = 0 ] && [ "$CFLIPPED" = 0 ] || continue
    # Its title must lie in the window.
    [ "$CX" -le 12000 ] && [ "$CY" -le 7000 ] || continue
    C=$n
    return 0
  done
  return 1
}

popup_gone() { ! popup_shown; }

popup_shown() {
  local id
  for id in $(xdotool search --onlyvisible --pid "$PROGRAM_PID" --name '.*' 2>/dev/null); do
    xwininfo -id "$id" 2>/dev/null | grep -q 'Override Redirect State: yes' && return 0
  done
  return 1
}

wait_for() { # wait_for SECONDS COMMAND...
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.15
  done
}

dialog_shown() { # dialog_shown TITLE-PATTERN: sets DIALOG
  local id
  for id in $(xdotool search --onlyvisible --name "$1" 2>/dev/null); do
    [ "$(window_type "$id")" = _NET_WM_WINDOW_TYPE_DIALOG ] && { DIALOG=$id; return 0; }
  done
  return 1
}

# Presses keys in the open menu; closes it and returns false when it is still open after them.
choose() {
  local key
  for key in "$@"; do
    xdotool key "$key"
    sleep 0.25
  done
  wait_for 3 popup_gone && return 0
  xdotool key Escape Escape Escape
  return 1
}

# Right-clicks at ($1, $2) and waits for a menu.
menu_at() {
  xdotool mousemove "$1" "$2"
  sleep 0.2
  xdotool click 3
  wait_for 5 popup_shown || return 1
  sleep 0.2
}

# Types a name into the rename field and leaves it with a click elsewhere, which ends the rename and
# saves. (Not with Enter: if the field did not open, Enter would start the shortcut that type-to-find
# chose.)
type_name() {
  xdotool type --delay 15 "$1"
  sleep 0.1
  click_free_spot
}

edit_new_container() {
  [ "$(container_count)" -lt "$MAX_CONTAINERS" ] || { edit_fold_all; return; }
  focus_window "$MAIN_ID"
  xdotool key ctrl+c
  sleep 0.4
  type_name "Made $1"
}

edit_new_note() {
  [ "$(container_count)" -lt "$MAX_CONTAINERS" ] || { edit_rename "$1"; return; }
  focus_window "$MAIN_ID"
  xdotool key ctrl+n
  sleep 0.4
  type_name "Note $1"
}

# The title of container C: 300 twips into the name, 160 below the container's top.
title_point() { TX=$(sx $((CX + 920))) TY=$(sy $((CY + 160))); }

edit_rename() {
  pick_container || return 1
  title_point
  menu_at "$TX" "$TY" || return 1
  # "Rename" is the menu's first entry.
  choose Down Return || return 1
  sleep 0.3
  type_name "Renamed $1"
}

edit_drag() {
  pick_container || return 1
  title_point
  # A new place inside the window: 300 to 11000 twips across, 300 to 5400 down.
  local nx=$((300 + RANDOM % 10700)) ny=$((300 + RANDOM % 5100)) k dx dy
  dx=$(((nx - CX) / 15)) dy=$(((ny - CY) / 15))
  xdotool mousemove "$TX" "$TY"
  sleep 0.2
  xdotool mousedown 1
  sleep 0.15
  xdotool mousemove $((TX + 1)) $((TY + 1))
  sleep 0.05
  for k in 1 2 3 4 5 6; do
    xdotool mousemove $((TX + dx * k / 6)) $((TY + dy * k / 6))
    sleep 0.06
  done
  sleep 0.15
  xdotool mouseup 1
}

# A point of the workspace that the drags never reach, for clicks that take the focus away.
click_free_spot() {
  xdotool mousemove "$(sx 14500)" "$(sy 300)"
  sleep 0.1
  xdotool click 1
}

edit_note() {
  local tries n count
  count=$(container_count)
  for tries in 1 2 3 4 5 6 7 8; do
    n=$((RANDOM % count))
    read_container "$n" || continue
    [ "$CNOTE" = 1 ] && [ "$CFOLDED" = 0 ] && [ "$CSHRINK" = 0 ] && [ "$CFLIPPED" = 0 ] || continue
    xdotool mousemove "$(sx $((CX + 600)))" "$(sy $((CY + 800)))"
    sleep 0.2
    xdotool click 1
    sleep 0.2
    xdotool key ctrl+End
    xdotool type --delay 10 " edit $1"
    sleep 0.1
    click_free_spot
    return 0
  done
  edit_new_note "$1"
}

edit_fold_all() { focus_window "$MAIN_ID"; xdotool key ctrl+F2; }
edit_shrink_all() { focus_window "$MAIN_ID"; xdotool key ctrl+F1; }

# (Not "Dbl-Click to Start": with it off, a click on a shortcut would start it.)
SETTINGS=("g c f" "g c a" "g g d" "g g s")
edit_setting() {
  local keys=${SETTINGS[$((RANDOM % ${#SETTINGS[@]}))]}
  window_geometry "$MAIN_ID"
  menu_at $((WX + 30)) $((WY + 8)) || return 1
  # shellcheck disable=SC2086
  choose $keys
}

edit_setting_key() {
  focus_window "$MAIN_ID"
  xdotool key F9
}

edit_file_shortcut() {
  focus_window "$MAIN_ID"
  xdotool key ctrl+f
  wait_for 15 dialog_shown '^Add File Shortcut$' || return 1
  focus_window "$DIALOG"
  xdotool type --delay 10 "$FILES/document-$((RANDOM % 10)).txt"
  xdotool key Return
}

edit_web_shortcut() {
  focus_window "$MAIN_ID"
  xdotool key ctrl+w
  wait_for 15 dialog_shown '^Add URL$' || return 1
  focus_window "$DIALOG"
  xdotool type --delay 10 "https://example.org/page/$1"
  xdotool key Return
}

# A file dragged from the stand-in file manager onto a container's body.
edit_drop() {
  [ -n "$HELPER" ] || { edit_file_shortcut "$1"; return; }
  local tries n count
  count=$(container_count)
  for tries in 1 2 3 4 5 6; do
    n=$((RANDOM % count))
    read_container "$n" || continue
    [ "$CFOLDED" = 0 ] && [ "$CSHRINK" = 0 ] && [ "$CNOTE" = 0 ] || continue
    local x y out=$E2E_TMP/helper.out hx=1170 hy=675 i
    x=$(sx $((CX + 1500))) y=$(sy $((CY + 1500)))
    : >"$out"
    "$HELPER" drag "$FILES/document-$((RANDOM % 10)).txt" >"$out" 2>>"$LOG" &
    HELPER_PID=$!
    # An edit cut short by a kill runs in a subshell: the main loop ends the helper by this number.
    echo "$HELPER_PID" >"$E2E_TMP/helper.pid"
    wait_for 15 dialog_or_source || { kill "$HELPER_PID" 2>/dev/null; return 1; }
    sleep 0.3
    xdotool mousemove "$hx" "$hy"
    sleep 0.2
    xdotool mousedown 1
    sleep 0.2
    for i in 1 2 3 4 5 6 7 8 9 10; do
      xdotool mousemove $((hx + (x - hx) * i / 10)) $((hy + (y - hy) * i / 10))
      sleep 0.05
    done
    sleep 0.3
    xdotool mouseup 1
    wait_for 10 grep -q '^drop-action' "$out"
    kill "$HELPER_PID" 2>/dev/null
    wait "$HELPER_PID" 2>/dev/null
    rm -f "$E2E_TMP/helper.pid"
    return 0
  done
  edit_file_shortcut "$1"
}
dialog_or_source() { xdotool search --onlyvisible --name '^Drag Source$' >/dev/null 2>&1; }

# The kinds of edits and how often each comes, out of 100.
do_edit() {
  local r=$((RANDOM % 100)) n=$1
  if ((r < 12)); then EDIT_KIND=container; edit_new_container "$n"
  elif ((r < 18)); then EDIT_KIND=note; edit_new_note "$n"
  elif ((r < 30)); then EDIT_KIND=rename; edit_rename "$n"
  elif ((r < 50)); then EDIT_KIND=drag; edit_drag "$n"
  elif ((r < 60)); then EDIT_KIND=note-text; edit_note "$n"
  elif ((r < 68)); then EDIT_KIND=fold-all; edit_fold_all
  elif ((r < 71)); then EDIT_KIND=shrink-all; edit_shrink_all
  elif ((r < 78)); then EDIT_KIND=setting; edit_setting
  elif ((r < 81)); then EDIT_KIND=setting-key; edit_setting_key
  elif ((r < 87)); then EDIT_KIND=file-shortcut; edit_file_shortcut "$n"
  elif ((r < 93)); then EDIT_KIND=web-shortcut; edit_web_shortcut "$n"
  else EDIT_KIND=drop; edit_drop "$n"
  fi
}

# Closes whatever an edit left open (a menu, a dialog), so that the next one starts from the workspace.
tidy_up() {
  local id
  xdotool mouseup 1 2>/dev/null
  xdotool keyup ctrl shift alt 2>/dev/null
  for id in $(xdotool search --onlyvisible --pid "$PROGRAM_PID" --name '.*' 2>/dev/null); do
    [ "$id" = "$MAIN_ID" ] && continue
    if [ "$(window_type "$id")" = _NET_WM_WINDOW_TYPE_DIALOG ]; then
      focus_window "$id"
      xdotool key Escape
      sleep 0.3
    fi
  done
  popup_shown && { xdotool key Escape Escape Escape; sleep 0.2; }
  return 0
}

forget_pid() {
  local keep=() p
  for p in "${STARTED_PIDS[@]}"; do [ "$p" = "$1" ] || keep+=("$p"); done
  STARTED_PIDS=("${keep[@]}")
}

# Starts the program and waits for its window; a recovery question is answered Yes.
start_session() {
  local end id
  start_program
  end=$((SECONDS + 60))
  MAIN_ID=
  while [ $SECONDS -lt $end ]; do
    alive "$PROGRAM_PID" || fail "the program ended during its start"
    for id in $(xdotool search --onlyvisible --name "$RECOVERY_TITLE" 2>/dev/null); do
      [ "$(window_type "$id")" = _NET_WM_WINDOW_TYPE_DIALOG ] || continue
      focus_window "$id"
      xdotool key alt+y
      wait_window_hidden "$id" 10 || fail "the recovery question did not close on Alt+Y"
    done
    if find_main_window "$PROGRAM_PID" && is_viewable "$FOUND_ID"; then
      MAIN_ID=$FOUND_ID
      break
    fi
    sleep 0.1
  done
  [ -n "$MAIN_ID" ] || fail "no main window within 60 s of the start"
  window_geometry "$MAIN_ID"
}

LOSSES=0
LOSS_LOG=$E2E_TMP/losses
: >"$LOSS_LOG"
loss() {
  LOSSES=$((LOSSES + 1))
  printf 'LOSS: %s: %s\n' "$TEST_NAME" "$*" | tee -a "$LOSS_LOG" >&2
  # The data folder of the first loss is kept for a look.
  [ "$LOSSES" -eq 1 ] && cp -a "$DATA" "$E2E_TMP/first-loss" && E2E_KEEP=1
}

start_display
log "random seed $SEED (KILL_SEED=$SEED repeats this run); $EDITS edits, a kill every $EVERY on average"
start_session
# Fold/Unfold All twice: every container file is rewritten in the program's own hand (the test's
# files differ in small ways that the program normalises, such as an empty [EXCLUSIVE]), so that the
# check after each restart can ask for every file unchanged.
focus_window "$MAIN_ID"
for k in 1 2; do
  xdotool key ctrl+F2
  sleep 0.3
  wait_settled 10 || true
done
snapshot_data "$E2E_TMP/saved"

t0=$SECONDS
edits=0 kills=0 skipped=0 restarts=0
declare -A KIND_COUNT=()
for ((e = 1; e <= EDITS; e++)); do
  if [ "$BUDGET" -gt 0 ] && [ $((SECONDS - t0)) -gt "$BUDGET" ] && [ "$kills" -ge "$MIN_KILLS" ]; then
    log "stopping after $((e - 1)) edits: $((SECONDS - t0)) s used"
    break
  fi
  # The kind is drawn here, so that the same seed gives the same session whether or not an edit runs
  # in the background.
  draw 32768; state=$DRAW
  draw "$EVERY"; chance=$DRAW
  if [ "$chance" -eq 0 ] || [ $((EDITS - e)) -lt $((MIN_KILLS - kills)) ]; then
    draw 2
    if [ "$DRAW" -eq 0 ]; then
      # The edit is cut short by a kill 0 to 1.5 s after it began: in a menu, a dialog, a drag, a save.
      draw 1500; delay=$DRAW when="in"
      ( RANDOM=$state; do_edit "$e" ) >/dev/null 2>&1 &
      edit_pid=$!
    else
      # The kill comes 0 to 80 ms after the edit's last step, while its save runs or just after.
      draw 80; delay=$DRAW when="after its last step"
      ( RANDOM=$state; do_edit "$e" ) >/dev/null 2>&1
      edit_pid=
    fi
    sleep "$(printf '%d.%03d' $((delay / 1000)) $((delay % 1000)))"
    kill -KILL "$PROGRAM_PID" 2>/dev/null
    wait "$PROGRAM_PID" 2>/dev/null
    forget_pid "$PROGRAM_PID"
    if [ -n "$edit_pid" ]; then
      kill "$edit_pid" 2>/dev/null
      wait "$edit_pid" 2>/dev/null
    fi
    if [ -s "$E2E_TMP/helper.pid" ]; then
      kill "$(cat "$E2E_TMP/helper.pid")" 2>/dev/null
      rm -f "$E2E_TMP/helper.pid"
    fi
    xdotool mouseup 1 2>/dev/null
    xdotool keyup ctrl shift alt 2>/dev/null
    kills=$((kills + 1))
    edits=$((edits + 1))
    if out=$("$PYTHON" "$CHECKER" "$E2E_TMP/saved" "$DATA" after-kill 2>&1); then
      log "kill $kills (edit $e, $delay ms $when): $out"
    else
      loss "kill $kills (edit $e, $delay ms $when): $out"
    fi
    snapshot_data "$E2E_TMP/before-start"
    start_session
    restarts=$((restarts + 1))
    # The first save after the start: F9 switches a setting (Transparent). Every container file stays
    # as it was.
    if edit_setting_key; then
      sleep 0.2
      wait_settled 15 || log "restart $restarts: the files did not settle within 15 s"
      if out=$("$PYTHON" "$CHECKER" "$E2E_TMP/before-start" "$DATA" loaded 2>&1); then
        log "restart $restarts: $out"
      else
        loss "restart $restarts: $out"
      fi
      edits=$((edits + 1))
    else
      tidy_up
    fi
    snapshot_data "$E2E_TMP/saved"
    continue
  fi
  RANDOM=$state
  do_edit "$e" || skipped=$((skipped + 1))
  KIND_COUNT[$EDIT_KIND]=$((${KIND_COUNT[$EDIT_KIND]:-0} + 1))
  edits=$((edits + 1))
  sleep 0.2
  wait_settled 15 || log "edit $e ($EDIT_KIND): the files did not settle within 15 s"
  tidy_up
  alive "$PROGRAM_PID" || fail "the program ended by itself during edit $e ($EDIT_KIND)"
  snapshot_data "$E2E_TMP/saved"
done

# A last run ends cleanly: the workspace file and every container file are whole.
stop_program "$PROGRAM_PID" 30
forget_pid "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] || fail "exit status $EXIT_STATUS after SIGTERM"
[ ! -e "$REC" ] || fail "Perchdock.REC is left after a clean exit"
# The clean exit wrote the workspace file and removed the recovery file.
rm -f "$E2E_TMP/saved/Perchdock.REC"
out=$("$PYTHON" "$CHECKER" "$E2E_TMP/saved" "$DATA" after-kill 2>&1) || loss "after the clean exit: $out"
kinds=
for k in "${!KIND_COUNT[@]}"; do kinds+=" $k ${KIND_COUNT[$k]},"; done
log "edit kinds (not cut short):${kinds%,}; $skipped found nothing to act on"
log "$(container_count) containers at the end; $((SECONDS - t0)) s"
log "edits $edits, kills $kills, losses $LOSSES (seed $SEED)"
[ "$LOSSES" -eq 0 ] || fail "$LOSSES losses (data kept in $E2E_TMP):
$(cat "$LOSS_LOG")"
[ "$kills" -ge "$MIN_KILLS" ] || fail "only $kills kills"
log "passed"
