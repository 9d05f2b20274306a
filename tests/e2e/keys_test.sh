#!/usr/bin/env bash
# The device worked from the keyboard as a user works it, in a real X
# server. Keys held under the X server's own auto-repeat, at a slow and a fast rate,
# are each one press and one release: S held toggles the sound once; ALARM
# held and then TIME leave "Alarm On" as it was; Right held in alarm setting
# steps the minute as the held-key repeat does (one step at the press, then
# one a tick from the fourth 200 ms tick on). Other keyboard
# layouts, switched with setxkbmap: the digit row counts by its place, letters
# as the layout prints them, and by their place where it prints Cyrillic.
# (GAME A held, by either route, is the key action tests'; a pointer slid
# off a key the pointer tracking tests'; a double click on the case the
# device window's.)
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
readout=(149 52 57 13)  # the four digits, the colon and AM/PM

# The program on a store of an earlier run, with no instructions at start.
start() {
  e2e_write_store
  e2e_start_app "$app"
  e2e_focus
}

# --- Holds of real keys.
hold() { xdotool keydown "$1" sleep "$2" keyup "$1"; }
for rate in "660 25" "200 60"; do
  xset r rate $rate
  start
  at="at rate $rate"
  hold s 1.2
  e2e_expect_setting Sound False "Sound after S held $at"
  # ALARM held: alarm entry, alarm set at its release. Right held there.
  hold a 1.2
  begin=${EPOCHREALTIME/./}
  hold Right 2
  held=$(((${EPOCHREALTIME/./} - begin) / 1000))  # in milliseconds
  xdotool key t
  e2e_wait_for 10 ! e2e_setting_is "Alarm Time" "120000 PM" || true  # stored at the release of TIME
  e2e_expect_eq "$(e2e_setting 'Alarm On')" False "Alarm On after ALARM held and TIME $at"
  alarm=$(e2e_setting 'Alarm Time')
  [[ $alarm =~ ^12([0-5][0-9])00\ PM$ ]] || e2e_fail "Alarm Time after Right held $at: $alarm"
  steps=$((10#${BASH_REMATCH[1]}))
  ticks=$((held / 200))  # within one of the ticks the hold really saw
  [ $steps -ge $((ticks - 4)) ] && [ $steps -le $((ticks - 1)) ] ||
    e2e_fail "Right held $held ms $at stepped $steps minutes, not about $((ticks - 2))"
  e2e_alive "$at"
  e2e_stop_app
done
xset r rate 660 25

# --- Layouts. On US the 1 key starts Game A; on French the key that types
# "&" starts Game A and A (where US has Q) is ALARM; on Russian the keys
# where S, A and T stand toggle the sound and set the alarm.
# The program takes the new key map in a moment; nothing shows when it has.
layout() { setxkbmap "$1" && sleep 0.3; }
# Taps keys with the real keyboard of the X server, as the layout has them.
tap() { local k; for k; do xdotool key "$k" sleep 0.15; done; }
# Key $1 starts Game A, seen by the game's score; $3 and $4 (R, T) end it.
expect_game_start() {
  tap "$1"
  e2e_wait_for 3 e2e_region_is "$game" "${readout[@]}" || e2e_fail "$1 on $2 did not start Game A"
  tap "$3" "$4"
}
start
layout us
idle=$(e2e_region "${readout[@]}")
tap 1
e2e_wait_for 3 ! e2e_region_is "$idle" "${readout[@]}" || e2e_fail "1 on us did not start Game A"
game=$(e2e_region "${readout[@]}")
tap r t
layout fr
expect_game_start ampersand fr r t
tap a Right t
e2e_expect_setting 'Alarm Time' "120100 PM" "Alarm Time after A, Right, T on fr"
layout ru
sound=$(e2e_setting Sound)
tap Cyrillic_yeru
e2e_wait_for 10 ! e2e_setting_is Sound "$sound" || e2e_fail "the S place on ru did not toggle the sound"
tap Cyrillic_ef Right Cyrillic_ie
e2e_expect_setting 'Alarm Time' "120200 PM" "Alarm Time after the A, Right, T places on ru"
expect_game_start 1 ru Cyrillic_ka Cyrillic_ie
e2e_alive "on other layouts"
