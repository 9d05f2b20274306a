#!/usr/bin/env bash
# A bigger device, in the two ways a user gets one: started with --scale 2,
# and on a desktop scaled to 150 % (the resource Xft.dpi 144). The window is
# the device's size times the factor, at its stored place times the factor;
# clicks on the keys at their scaled places set the alarm; a drag stores
# "Left" and "Top" in the device's own units, the same as the same drag at
# the usual size, and the next start puts the window back there.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)

# Screen pixels of $1 device pixels at the factor $F.
px() { awk -v v="$1" -v f="$F" 'BEGIN {printf "%d", v * f + 0.5}'; }

# Clicks the client point ($1, $2) of the device at its usual size.
click() {
  xdotool mousemove --window "$E2E_WIN" --sync "$(px "$1")" "$(px "$2")" click 1
  sleep 0.3
}

# The window stands at the device point ($1, $2), with the scaled size.
expect_window_at() {
  e2e_expect_position "$(px "$1") $(px "$2")" "the window at $F"
  e2e_expect_eq "$(xwininfo -id "$E2E_WIN" | awk '/Width/ {w=$NF} /Height/ {h=$NF} END {print w, h}')" \
    "$(px 333) $(px 198)" "the window's size at $F"
}

# factor  how the scale is set
while read -r F how; do
  rm -f "$store"
  E2E_ARGS=""
  case $how in
    --scale) E2E_ARGS="--scale $F" ;;
    Xft.dpi) echo "Xft.dpi: $(px 96)" | xrdb -merge ;;
  esac
  # The client area at (100, 100) of the usual size.
  printf '[Nautrix]\nAuto%%20Show=True\nLeft=1455\nTop=1170\n' >"$store"
  e2e_start_app "$app"
  expect_window_at 100 100

  click 312 38   # ALARM: alarm setting at 12:00 PM
  click 295 140  # right: the minute, 12:01
  click 289 72   # TIME: stored
  e2e_expect_setting 'Alarm Time' "120100 PM" "Alarm Time after clicks at $F"

  # Dragged by the case 30 x 20 pixels of the usual size.
  xdotool mousemove --window "$E2E_WIN" --sync "$(px 10)" "$(px 150)" mousedown 1 \
    mousemove --sync "$(px 125)" "$(px 260)" mousemove --sync "$(px 140)" "$(px 270)" mouseup 1
  e2e_expect_setting Left "1905" "Left after a drag at $F"
  e2e_expect_setting Top "1470" "Top after a drag at $F"
  expect_window_at 130 120

  e2e_stop_app TERM
  e2e_start_app "$app"
  expect_window_at 130 120
  e2e_stop_app TERM
  echo "scale: $F by $how passed"
done <<'CASES'
2 --scale
1.5 Xft.dpi
CASES
echo "scale: 2 passed"
