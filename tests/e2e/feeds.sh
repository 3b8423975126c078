#!/usr/bin/env bash
# Feed containers end to end, against a feed server on the loopback (tests/e2e/feed_server.py): five
# feeds (RSS, RDF, Atom, one that answers 404, one that never answers) are added through the real
# "Add RSS News Feeds" dialog with xdotool, all are refreshed with F11, the
# search window finds a term. Throughout, the program notes every stall of its event loop (the
# PERCHDOCK_STALL_LOG probe); the longest one during the refresh is reported and must stay well below
# the hanging feed's time-out. After SIGTERM the container files hold the five feeds.
source "$(dirname "$0")/lib.sh" "$@"
source "$(dirname "$0")/container_files.sh"

command -v python3 >/dev/null || fail "needs python3"
write_workspace_file 1500 1500 15000 9000 3158064

PORT_FILE=$E2E_TMP/port
python3 "$(dirname "$0")/feed_server.py" --port-file "$PORT_FILE" >"$E2E_TMP/server.log" 2>&1 &
STARTED_PIDS+=("$!")
end=$((SECONDS + 10))
until [ -s "$PORT_FILE" ]; do
  [ $SECONDS -lt $end ] || fail "the feed server did not start"
  sleep 0.1
done
BASE=http://127.0.0.1:$(cat "$PORT_FILE")
FEEDS=("$BASE/rss.xml" "$BASE/rdf.xml" "$BASE/atom.xml" "$BASE/missing.xml" "$BASE/hang")

export PERCHDOCK_STALL_LOG=$E2E_TMP/stalls.log
now_ms() { date +%s%3N; }
# The longest stall noted after time $1 (ms since the epoch); 0 for none.
longest_stall_since() { awk -v t="$1" '$1 >= t && $2 == "stall" && $3 > m {m = $3} END {print m + 0}' "$PERCHDOCK_STALL_LOG"; }

start_display
start_program
wait_main_window "$PROGRAM_PID"
main=$MAIN_ID
sleep 1

# Ctrl+E opens the dialog; each address typed and entered goes into the list; Alt+P processes them.
t_add=$(now_ms)
focus_window "$main"
xdotool key ctrl+e
wait_window '^Add RSS News Feeds$' _NET_WM_WINDOW_TYPE_DIALOG 20
dialog=$FOUND_ID
focus_window "$dialog"
# The first address is typed with a final "/", which the dialog drops.
for url in "${FEEDS[0]}/" "${FEEDS[@]:1}"; do
  xdotool key ctrl+a
  xdotool type "$url"
  xdotool key Return
  sleep 0.3
done
xdotool key alt+p
wait_window_hidden "$dialog" 20 || fail "the dialog did not close after Process"
log "five feeds added through the dialog"

# The container files name the five feeds (the save at the dialog's end).
end=$((SECONDS + 10))
until [ "$(grep -l '^\[RSS\]' "$CON_DIR"/*.con 2>/dev/null | wc -l)" -ge 5 ]; do
  [ $SECONDS -lt $end ] || fail "the container files do not hold five feeds: $(ls "$CON_DIR" 2>&1)"
  sleep 0.2
done
for url in "${FEEDS[@]}"; do
  grep -qF "$url"$'\r' "$CON_DIR"/*.con || fail "no container file holds $url (its final / dropped)"
done
sleep 2

# F11 refreshes all five at once; the hanging one ends at its time-out (15 s).
t_refresh=$(now_ms)
focus_window "$main"
xdotool key F11
end=$((SECONDS + 45))
until awk -v t="$t_refresh" '$1 >= t && $2 == "refresh-all-done" {f = 1} END {exit !f}' "$PERCHDOCK_STALL_LOG"; do
  [ $SECONDS -lt $end ] || fail "Refresh All did not end within 45 s"
  alive "$PROGRAM_PID" || fail "the program ended during Refresh All"
  sleep 0.2
done
t_done=$(now_ms)
refresh_ms=$((t_done - t_refresh))
stall_refresh=$(longest_stall_since "$t_refresh")
log "Refresh All of five feeds (one hanging until its time-out): ${refresh_ms} ms, longest stall ${stall_refresh} ms"
[ "$stall_refresh" -lt 3000 ] || fail "the window froze for $stall_refresh ms during Refresh All"

# The search by its key, Ctrl+S on the workspace.
sleep 1
focus_window "$main"
xdotool key ctrl+s
wait_window '^Search RSS$' _NET_WM_WINDOW_TYPE_DIALOG 10
search=$(xdotool search --onlyvisible --name '^Search RSS$' | head -n1)
focus_window "$search"
xdotool type --delay 20 "story 3"
end=$((SECONDS + 10))
# RSS stories 3 and 30 to 39 (the 40th, a feed's last, would not be searched), RDF and Atom story 3.
until xdotool search --onlyvisible --name '^Results: 13$' >/dev/null 2>&1; do
  [ $SECONDS -lt $end ] || fail "the search did not find the 13 items with 'story 3': $(xdotool getwindowname "$search")"
  sleep 0.2
done
log "search: $(xdotool getwindowname "$search")"
xdotool key Escape
sleep 0.5

# Last, as the viewer takes the focus and the workspace then docks: F12 opens the viewer on the first
# feed with more than one item.
focus_window "$main"
xdotool key F12
wait_window '^RSS Viewer$' _NET_WM_WINDOW_TYPE_NORMAL 20
viewer=$FOUND_ID
log "viewer open"
sleep 0.5
focus_window "$viewer"
xdotool key Escape
wait_window_hidden "$viewer" 10 || fail "Escape did not close the viewer"

stall_all=$(longest_stall_since "$t_add")
log "longest stall of the event loop from the first add to the end: ${stall_all} ms"

stop_program "$PROGRAM_PID" 15
[ "$(grep -l '^\[RSS\]' "$CON_DIR"/*.con 2>/dev/null | wc -l)" -eq 5 ] || fail "after SIGTERM the container files do not hold the five feeds"
for url in "${FEEDS[@]}"; do
  grep -qF "$url"$'\r' "$CON_DIR"/*.con || fail "after SIGTERM no container file holds $url"
done
# The search term was kept.
grep -q $'^\\[RSS Search0\\]\r$' "$INI" && [ "$(ini_value "$INI" '[RSS Search0]')" = "story 3" ] || fail "the search term was not stored"
log "files hold the five feeds and the search term after SIGTERM"
