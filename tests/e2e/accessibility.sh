#!/usr/bin/env bash
# A screen reader's view of the workspace: the real program runs on Xvfb with a D-Bus session and the
# AT-SPI bus, over a prepared workspace (a container with two shortcuts and a note, and a feed container
# whose headlines come from the loopback feed server). A small AT-SPI client (accessible_tree.py) reads
# the program's accessible tree and must find a shortcut's label as a link described by its target, the
# container's title as a heading, the note as a text, a headline's text as a link and a picture button
# named by its tip.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

HERE=$(cd "$(dirname "$0")" && pwd)
for tool in dbus-daemon python3; do
  command -v "$tool" >/dev/null || fail "needs $tool (scripts/install-deps.sh installs it)"
done
BUS_LAUNCHER=
for f in /usr/libexec/at-spi-bus-launcher /usr/lib/at-spi2-core/at-spi-bus-launcher; do
  [ -x "$f" ] && BUS_LAUNCHER=$f && break
done
[ -n "$BUS_LAUNCHER" ] || fail "needs at-spi-bus-launcher (at-spi2-core; scripts/install-deps.sh installs it)"
# The AT-SPI client needs the system's Python with its GObject bindings, whichever python3 comes first.
PY=
for p in /usr/bin/python3 python3; do
  if "$p" -c 'import gi; gi.require_version("Atspi", "2.0"); from gi.repository import Atspi' 2>/dev/null; then
    PY=$p
    break
  fi
done
[ -n "$PY" ] || fail "needs python3-gi and gir1.2-atspi-2.0 (scripts/install-deps.sh installs them)"

# The feed server on the loopback.
PORT_FILE=$E2E_TMP/port
python3 "$HERE/feed_server.py" --port-file "$PORT_FILE" >"$E2E_TMP/server.log" 2>&1 &
STARTED_PIDS+=("$!")
end=$((SECONDS + 10))
until [ -s "$PORT_FILE" ]; do
  [ $SECONDS -lt $end ] || fail "the feed server did not start"
  sleep 0.1
done
FEED=http://127.0.0.1:$(cat "$PORT_FILE")/rss.xml

# The workspace: feeds load at the start.
write_workspace_file 1500 1500 15000 9000 3158064
awk 'BEGIN {RS = ORS = "\r\n"} prev == "[RSSLoadOnStartup]" {$0 = "1"} {prev = $0; print}' "$INI" >"$INI.new" &&
  mv "$INI.new" "$INI"
[ "$(ini_value "$INI" '[RSSLoadOnStartup]')" = 1 ] || fail "could not set the feeds to load at the start"
con_defaults
CON_NAME="Tools" CON_LINKS=2 CON_NOTE_ON=1 CON_NOTE="Buy milk" CON_X=600 CON_Y=600 CON_W=4500 CON_H=3600
write_container_file 0
con_defaults
CON_NAME="News" CON_X=5700 CON_Y=600 CON_W=6000 CON_H=4500
write_container_file 1
# A feed container's file starts with the feed's address, its title and its parent instead.
{
  crlf_lines '[1.05]' '[RSS]' "$FEED" 'News' -1
  tail -n +4 "$CON_DIR/1.con"
} >"$CON_DIR/1.con.new" && mv "$CON_DIR/1.con.new" "$CON_DIR/1.con"

# A D-Bus session of our own, and the accessibility bus on it.
dbus-daemon --session --nofork --nopidfile --print-address=3 3>"$E2E_TMP/bus" 2>"$E2E_TMP/dbus.log" &
STARTED_PIDS+=("$!")
end=$((SECONDS + 10))
until [ -s "$E2E_TMP/bus" ]; do
  [ $SECONDS -lt $end ] || fail "the D-Bus session did not start: $(cat "$E2E_TMP/dbus.log")"
  sleep 0.1
done
DBUS_SESSION_BUS_ADDRESS=$(head -n1 "$E2E_TMP/bus")
export DBUS_SESSION_BUS_ADDRESS
start_display
"$BUS_LAUNCHER" --launch-immediately >"$E2E_TMP/atspi.log" 2>&1 &
STARTED_PIDS+=("$!")
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1 NO_AT_BRIDGE=0

start_program
wait_main_window "$PROGRAM_PID" 60
log "the workspace is shown"

# The walk repeats until all are found: a slow build (sanitizers) takes longer to load the feed.
"$PY" "$HERE/accessible_tree.py" Perchdock --timeout 60 --dump "$E2E_TMP/tree.txt" \
  --expect link 'Page 0.0' 'https://example.org/0/0' \
  --expect link 'Page 0.1' 'https://example.org/0/1' \
  --expect heading Tools \
  --expect heading News \
  --expect 'push button' 'Turn ON Folder Link' \
  --expect text Note \
  --expect link 'RSS story 1' \
  --expect link 'RSS story 2' \
  >"$E2E_TMP/found.txt" 2>&1
status=$?
cat "$E2E_TMP/found.txt"
if [ $status -ne 0 ]; then
  echo "--- accessible tree (role, name, description, text)" >&2
  head -n 200 "$E2E_TMP/tree.txt" >&2
  fail "the accessible tree lacks what a screen reader needs"
fi
# The note's text is read as its value.
grep -q $'^text\tNote\t.*Buy milk' "$E2E_TMP/tree.txt" || fail "the note's text is not readable: $(grep -P '^text\tNote' "$E2E_TMP/tree.txt")"
log "a screen reader finds the shortcuts, the titles, the note and the headlines"

stop_program "$PROGRAM_PID" 30
