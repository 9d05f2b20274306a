#!/usr/bin/env bash
# Start-up from the command line and the store, as a user starts the
# program: help, version and refusals answer without a display or a store; an
# empty store is filled with the twelve defaults and the window sits at the
# screen's top left corner; a store is repaired key by key; junk never stops
# the program; a place off the screen comes up on it; nothing is written at
# shut-down, and a killed program has lost nothing.
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
E2E_ARGS="-display $DISPLAY" e2e_start_app "$E2E_DIR/no-display"
e2e_wait_for 2 test -s "$store" || e2e_fail "no store file after start"
for _ in $(seq 20); do [ "$(e2e_window_position)" = "0 0" ] && break; sleep 0.1; done
e2e_expect_eq "$(e2e_window_position)" "0 0" "window position of a first run"
expected_keys="Alarm On
Alarm Time
Always on Top
Auto Show
Diver Speed
Game A High Score
Game A Speed
Game B High Score
Game B Speed
Left
Sound
Top"
e2e_expect_eq "$(e2e_store_keys)" "$expected_keys" "keys of a first run"
e2e_expect_eq "$(e2e_setting Sound)" "True" "Sound"
e2e_expect_eq "$(e2e_setting 'Game A Speed')" "220" "Game A Speed"
e2e_expect_eq "$(e2e_setting 'Alarm Time')" "120000 PM" "Alarm Time"
e2e_expect_eq "$(e2e_setting Left)" "-45" "Left"
e2e_expect_eq "$(e2e_setting Top)" "-330" "Top"

# Shut-down writes nothing.
before=$(md5sum "$store")
sleep 1
e2e_stop_app TERM
e2e_expect_eq "$(md5sum "$store")" "$before" "store after shut-down"

# --- A store with "Seconds", some keys deleted, "Alarm Time" without "Alarm On".
sed -i -e '/^Game%20B%20Speed=/d' -e '/^Alarm%20On=/d' -e '/^Auto%20Show=/d' "$store"
sed -i -e 's/^Alarm%20Time=.*/Alarm%20Time=063000 AM/' -e 's/^Game%20A%20Speed=.*/Game%20A%20Speed=150/' "$store"
printf 'Seconds=True\n' >>"$store"
e2e_start_app "$app"
e2e_wait_for 3 sh -c "grep -q '^Auto%20Show=' '$store'" || e2e_fail "Auto Show not repaired"
sleep 0.5
e2e_expect_eq "$(e2e_setting Seconds)" "<missing>" "Seconds after start"
e2e_expect_eq "$(e2e_setting 'Game B Speed')" "170" "repaired Game B Speed"
e2e_expect_eq "$(e2e_setting 'Game A Speed')" "150" "kept Game A Speed"
e2e_expect_eq "$(e2e_setting 'Alarm Time')" "063000 AM" "kept Alarm Time"
e2e_expect_eq "$(e2e_setting 'Alarm On')" "<missing>" "Alarm On without repair"

# --- A program killed outright has lost nothing it wrote.
e2e_stop_app KILL
rm -f "$store"
e2e_start_app "$app"
e2e_wait_for 3 sh -c "grep -q '^Auto%20Show=' '$store'" || e2e_fail "first-run keys not written"
e2e_stop_app KILL
e2e_expect_eq "$(e2e_store_keys)" "$expected_keys" "keys after SIGKILL"

# --- A place off every screen (a monitor unplugged): the device comes up
# wholly on the screen, the store keeps the place through a click on the case
# and takes the new one from a drag.
e2e_write_store
sed -i -e 's/^Left=.*/Left=30000/' -e 's/^Top=.*/Top=20010/' "$store"
e2e_start_app "$app"
for _ in $(seq 20); do [ "$(e2e_window_position)" = "691 570" ] && break; sleep 0.1; done
e2e_expect_eq "$(e2e_window_position)" "691 570" "window from a place off the screen"
xdotool mousemove --window "$E2E_WIN" --sync 10 150 click 1
sleep 0.5
e2e_expect_eq "$(e2e_setting Left) $(e2e_setting Top)" "30000 20010" "the place after a click"
xdotool mousedown 1 mousemove --sync 690 710 mousemove --sync 671 700 mouseup 1
e2e_expect_setting Left "9870" "Left after a drag"
e2e_expect_setting Top "7920" "Top after a drag"
e2e_stop_app TERM

# --- Junk in a hand-edited store: the program comes up and keeps running.
cat >"$store" <<'INI'
[Nautrix]
Sound=loud
Left=abc
Top=-99999999999
Diver%20Speed=-5
Game%20A%20Speed=fast
Game%20B%20Speed=99999999999
Game%20A%20High%20Score=lots
Game%20B%20High%20Score=-3
Alarm%20Time=
Alarm%20On=yes
Always%20on%20Top=1, 2
Auto%20Show=False
INI
e2e_start_app "$app"
sleep 2
kill -0 "$E2E_APP" || e2e_fail "the program ended on a junk store"
e2e_expect_eq "$(e2e_window_position)" "0 0" "window position from a junk Left"
e2e_key 1
sleep 0.5
kill -0 "$E2E_APP" || e2e_fail "the program ended on GAME A with a junk store"
e2e_stop_app TERM
echo "startup store: 1 passed, 0 failed"
