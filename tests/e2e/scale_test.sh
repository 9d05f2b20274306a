#!/usr/bin/env bash
# A bigger device, as a user gets it with QT_SCALE_FACTOR=2: the window is
# 666 x 396 pixels at twice its stored place; clicks on the keys at their
# doubled places set the alarm; a drag stores "Left" and "Top" in the
# device's own units, the same as the same drag at the usual size, and the
# next start puts the window back there.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)
export QT_SCALE_FACTOR=2

# Clicks the client point ($1, $2) of the device at its usual size.
click() {
  xdotool mousemove --window "$E2E_WIN" --sync $(($1 * 2)) $(($2 * 2)) click 1
  sleep 0.3
}

# The window stands at the screen point ($1, $2) with its doubled size.
expect_window_at() {
  local geometry=""
  for _ in $(seq 20); do
    geometry=$(xwininfo -id "$E2E_WIN" | awk '/Absolute upper-left X/ {x=$NF} /Absolute upper-left Y/ {y=$NF}
      /Width/ {w=$NF} /Height/ {h=$NF} END {print x, y, w, h}')
    [ "$geometry" = "$1 $2 666 396" ] && return
    sleep 0.1
  done
  e2e_fail "window at x y w h: expected '$1 $2 666 396', got '$geometry'"
}

# The client area at (100, 100) of the usual size.
printf '[Nautrix]\nAuto%%20Show=True\nLeft=1455\nTop=1170\n' >"$store"
e2e_start_app "$app"
expect_window_at 200 200

click 312 38   # ALARM: alarm setting at 12:00 PM
click 295 140  # right: the minute, 12:01
click 289 72   # TIME: stored
e2e_expect_setting 'Alarm Time' "120100 PM" "Alarm Time after clicks at scale 2"

# Dragged by the case 60 x 40 pixels, 30 x 20 at the usual size.
xdotool mousemove --window "$E2E_WIN" --sync 20 300 mousedown 1
for step in 1 2 3 4; do
  xdotool mousemove --sync $((200 + 20 + step * 15)) $((200 + 300 + step * 10))
  sleep 0.1
done
xdotool mouseup 1
e2e_expect_setting Left "1905" "Left after a drag at scale 2"
e2e_expect_setting Top "1470" "Top after a drag at scale 2"
expect_window_at 260 240

e2e_stop_app TERM
e2e_start_app "$app"
expect_window_at 260 240
e2e_stop_app TERM
echo "scale: 1 passed"
