#!/usr/bin/env bash
# Damaged workspace files never stop the start: with each of them as Perchdock.ini the window comes up,
# a SIGTERM ends the program with status 0, and the workspace file it writes is a proper one.
source "$(dirname "$0")/lib.sh" "$@"

start_display

# A valid workspace file to damage: the one that a first run writes.
start_program
wait_main_window "$PROGRAM_PID"
stop_program "$PROGRAM_PID"
[ "$EXIT_STATUS" -eq 0 ] && [ -f "$INI" ] || fail "the first run did not end cleanly (status $EXIT_STATUS)"
cp "$INI" "$E2E_TMP/valid.ini"

inputs=$E2E_TMP/inputs
mkdir -p "$inputs"
head -c 100000 /dev/urandom >"$inputs/random-bytes"
# 50 MB of text lines of 1000 characters.
head -c 37500000 /dev/urandom | base64 -w 1000 >"$inputs/50-megabytes"
# 1 MB without a single line end.
head -c 750000 /dev/urandom | base64 -w 0 >"$inputs/no-line-ends"
# NUL bytes inside the key and value lines, and a run of them.
{ printf '[1.05]\r\n[Hidden]\r\n0\000\r\n[Font\000 Name]\r\nVer\000dana\r\n'; head -c 4096 /dev/zero; cat "$E2E_TMP/valid.ini"; } \
  >"$inputs/nul-bytes"
# A valid file that ends in the middle of a [Link] record.
{ cat "$E2E_TMP/valid.ini"
  printf '[Link]\r\n[Size]\r\n 10 \r\n[LinkX]\r\n 120 \r\n[LinkY]\r\n 360 \r\n[LinkLabel]\r\nHalf a lab'
} >"$inputs/cut-link-record"
[ "$(stat -c %s "$inputs/50-megabytes")" -ge 50000000 ] || fail "the 50 MB input is too small"

for name in random-bytes 50-megabytes no-line-ends nul-bytes cut-link-record; do
  rm -rf "$DATA"
  mkdir -p "$DATA"
  cp "$inputs/$name" "$INI"
  t0=$SECONDS
  start_program
  wait_main_window "$PROGRAM_PID" 30
  stop_program "$PROGRAM_PID" 20
  [ "$EXIT_STATUS" -eq 0 ] || fail "$name: exit status $EXIT_STATUS after SIGTERM"
  [ -f "$INI" ] || fail "$name: no Perchdock.ini after the exit"
  starts_with "$INI" $'[1.05]\r\n' || fail "$name: the new Perchdock.ini does not start with [1.05]"
  [ ! -e "$REC" ] || fail "$name: Perchdock.REC is left after a clean exit"
  log "$name: window shown, clean exit, new workspace file ($((SECONDS - t0)) s)"
done
log "passed"
