#!/usr/bin/env bash
# Start-up from the command line and the store, as a user starts the
# program: help, version and refusals answer without a display or a store; an
# empty store is filled with the twelve keys and the window sits at the
# screen's top left corner; nothing is written at shut-down. (The defaults,
# repair key by key and junk read as defaults are the core's start-up tests;
# a copy killed while it writes is the store sharing test's.) A bigger
# device, in the two ways a user
# gets one: started with --scale 2, and on a desktop scaled to 150 % (the
# resource Xft.dpi 144). The window is the device's size times the factor, at
# its stored place times the factor; a drag stores "Left" and "Top" in the device's own
# units, the same as the same drag at the usual size.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)

# --- The command line, with no display at all.
while IFS='|' read -r args status text; do
  out=$(env -u DISPLAY "$app" $args 2>&1) && got=0 || got=$?
  [ "$got" = "$status" ] && [[ $out == *"$text"* ]] || e2e_fail "nautrix $args: status $got, said '$out'"
  [ "$status" != 1 ] || [ "$(wc -l <<<"$out")" = 1 ] || e2e_fail "nautrix $args said more than a line: $out"
done <<'CASES'
--help|0|--scale FACTOR
--version|0|nautrix 1.
--no-such-option|2|unknown option '--no-such-option'
--scale 0|2|--scale takes a factor
|1|no X server at DISPLAY and no Wayland compositor at WAYLAND_DISPLAY
-platform xcb|1|DISPLAY
CASES
[ ! -e "$XDG_CONFIG_HOME/Tickplay Simulator.ini" ] || e2e_fail "the command line wrote the store"

# --- An empty store: the first run, on the display Qt's own option names.
printf '#!/bin/sh\nunset DISPLAY\nexec "%s" "$@"\n' "$app" >"$E2E_DIR/no-display"
chmod +x "$E2E_DIR/no-display"
e2e_start_app "$E2E_DIR/no-display" -display "$DISPLAY"
e2e_wait_for 10 test -s "$store" || e2e_fail "no store file after start"
e2e_expect_position "0 0" "window position of a first run"
# Their names and values: the core's start-up tests.
[ "$(e2e_store_key_count)" = 12 ] || e2e_fail "keys of a first run: $(cat "$store")"

# Shut-down writes nothing.
before=$(md5sum "$store")
sleep 1  # the running program writes nothing either
e2e_stop_app TERM
e2e_expect_eq "$(md5sum "$store")" "$before" "store after shut-down"

# --- Scaled.
# Screen pixels of $1 device pixels at the factor $F.
px() { awk -v v="$1" -v f="$F" 'BEGIN {printf "%d", v * f + 0.5}'; }

# The window stands at the device point ($1, $2), with the scaled size.
expect_window_at() {
  e2e_expect_position "$(px "$1") $(px "$2")" "the window at $F"
  e2e_expect_eq "$(xwininfo -id "$E2E_WIN" | awk '/Width/ {w=$NF} /Height/ {h=$NF} END {print w, h}')" \
    "$(px 333) $(px 198)" "the window's size at $F"
}

# factor  how the scale is set
while read -r F how; do
  rm -f "$store"
  [ "$how" = --scale ] && args=(--scale "$F") || { args=() && echo "Xft.dpi: $(px 96)" | xrdb -merge; }
  # The client area at (100, 100) of the usual size.
  printf '[Nautrix]\nAuto%%20Show=True\nLeft=1455\nTop=1170\n' >"$store"
  e2e_start_app "$app" "${args[@]}"
  expect_window_at 100 100

  # Dragged by the case 30 x 20 pixels of the usual size.
  xdotool mousemove --window "$E2E_WIN" --sync "$(px 10)" "$(px 150)" mousedown 1 \
    mousemove --sync "$(px 125)" "$(px 260)" mousemove --sync "$(px 140)" "$(px 270)" mouseup 1
  e2e_expect_setting Left "1905" "Left after a drag at $F"
  e2e_expect_setting Top "1470" "Top after a drag at $F"
  expect_window_at 130 120
  e2e_stop_app TERM
done <<'CASES'
2 --scale
1.5 Xft.dpi
CASES
