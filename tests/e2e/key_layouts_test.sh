#!/usr/bin/env bash
# The device's keys on other keyboard layouts, switched with setxkbmap as a
# user switches them: the digit row counts by its place, letters as the
# layout prints them, and by their place where it prints Cyrillic. On US the
# 1 key starts Game A and S toggles the sound; on French the key that types
# "&" starts Game A, A (where US has Q) is ALARM and Q is nothing; on German
# Y and Z, which work nothing, leave the device alone; on Russian the keys
# where S, A and T stand toggle the sound and set the alarm.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
readout=(149 52 57 13)  # the four digits, the colon and AM/PM
printf '[Nautrix]\nAuto%%20Show=True\n' >"$(e2e_store)"  # no instructions at start

layout() {
  setxkbmap "$1"
  sleep 0.3  # the program takes the new key map
}

# Taps keys with the real keyboard of the X server, as the layout has them.
tap() {
  local k
  for k in "$@"; do
    xdotool key "$k"
    sleep 0.15
  done
}

# The sound toggled by key $1.
expect_sound_toggle() {
  local before
  before=$(e2e_setting Sound)
  tap "$1"
  e2e_wait_for 3 eval '! e2e_setting_is Sound "$before"' || e2e_fail "$1 on $2 did not toggle the sound"
}

# Key $1 starts Game A, seen by the game's score on the readout; the keys
# $3 and $4 (R and T) end the game again with the reset.
expect_game_start() {
  tap "$1"
  e2e_wait_for 3 e2e_region_is "$game" "${readout[@]}" || e2e_fail "$1 on $2 did not start Game A"
  tap "$3" "$4"
}

e2e_start_app "$app"
xdotool windowactivate --sync "$E2E_WIN" >/dev/null 2>&1 || true
sleep 0.5

layout us
idle=$(e2e_region "${readout[@]}")
tap 1
e2e_wait_for 3 e2e_region_not "$idle" "${readout[@]}" || e2e_fail "1 on us did not start Game A"
game=$(e2e_region "${readout[@]}")
tap r t
expect_sound_toggle s us

layout fr
expect_game_start ampersand fr r t
expect_sound_toggle s fr
tap q Right t
sleep 0.2
e2e_expect_eq "$(e2e_setting 'Alarm Time')" "120000 PM" "Alarm Time after Q, Right, T on fr"
tap a Right t
e2e_expect_setting 'Alarm Time' "120100 PM" "Alarm Time after A, Right, T on fr"

layout de
tap z y
expect_sound_toggle s de
e2e_expect_eq "$(e2e_setting 'Alarm Time')" "120100 PM" "Alarm Time after Z and Y on de"
[ "$(e2e_region "${readout[@]}")" != "$game" ] || e2e_fail "Z or Y on de started a game"

layout ru
expect_sound_toggle Cyrillic_yeru ru
tap Cyrillic_ef Right Cyrillic_ie
e2e_expect_setting 'Alarm Time' "120200 PM" "Alarm Time after the A, Right, T places on ru"
expect_game_start 1 ru Cyrillic_ka Cyrillic_ie

kill -0 "$E2E_APP" || e2e_fail "the program ended"
e2e_stop_app TERM
echo "key layouts: us, fr, de, ru passed"
