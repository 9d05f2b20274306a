#!/usr/bin/env bash
# The device worked from the keyboard and the pointer as a user works it, in a
# real X server: ACL slid off resets nothing and R erases the high scores;
# GAME A by keyboard plays a game to its end by itself; a click on GAME A
# shows the high score while held and starts the game at the release; a
# double click turns the device over and back.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
e2e_start_audio
e2e_start_level_monitor
store=$(e2e_store)

# A store of an earlier run, with a high score, and no instructions at start.
e2e_write_store
sed -i 's/^Game%20A%20High%20Score=.*/Game%20A%20High%20Score=7/' "$store"

e2e_start_app "$app"
sleep 1

# --- ACL pressed by the pointer and slid off before its release resets
# nothing; R, the ACL reset, erases the high scores.
xdotool mousemove --window "$E2E_WIN" --sync 312 61 mousedown 1 sleep 0.2 \
  mousemove --window "$E2E_WIN" 200 180 sleep 0.2 mouseup 1
sleep 0.3
e2e_expect_eq "$(e2e_setting 'Game A High Score')" "7" "Game A High Score after ACL slid off"
e2e_key r
e2e_expect_setting 'Game A High Score' "0" "Game A High Score after R"
e2e_key t            # leave clock setting: the device is idle again
sleep 0.5

# --- A click on GAME A: the high score and the GAME A mark while held, the
# game at the release. The idle device is silent.
sed -i 's/^Game%20A%20High%20Score=.*/Game%20A%20High%20Score=7/' "$store"
sleep 1.2
e2e_silent 1 || e2e_fail "the idle device is not silent"
idle_mark=$(e2e_region 92 135 22 5)
idle_hour=$(e2e_region 169 52 8 13)
xdotool mousemove --window "$E2E_WIN" --sync 289 27 mousedown 1
e2e_wait_for 3 e2e_region_not "$idle_mark" 92 135 22 5 || e2e_fail "no GAME A mark while GAME A is held"
e2e_wait_for 3 e2e_region_not "$idle_hour" 169 52 8 13 ||
  e2e_fail "the readout still shows the time while GAME A is held"
sleep 1
e2e_silent 1 || e2e_fail "the game started at the press"
xdotool mouseup 1
e2e_wait_for 3 eval '! e2e_silent 1' || e2e_fail "no game beats after the release of GAME A"
# T ends nothing in a running game; R ends it (the reset), and T goes idle.
e2e_key r
e2e_key t
e2e_wait_for 3 e2e_silent 1 || e2e_fail "the reset did not end the game"

# --- A double click on the case turns the device over; one on the back
# turns it back.
case_spot=(60 165 50 25)
front=$(e2e_region "${case_spot[@]}")
xdotool mousemove --window "$E2E_WIN" --sync 80 175 click --repeat 2 --delay 80 1
e2e_wait_for 3 e2e_region_not "$front" "${case_spot[@]}" ||
  e2e_fail "a double click on the case did not turn the device over"
xdotool click --repeat 2 --delay 80 1
e2e_wait_for 3 e2e_region_is "$front" "${case_spot[@]}" || e2e_fail "a double click on the back did not turn it back"

# --- GAME A by keyboard, left alone, runs to game over: the game-over minute
# is silent, while a game beeps at every beat. Fast speeds, as the options can
# set them, bring the game over within seconds.
sed -i -e 's/^Game%20A%20Speed=.*/Game%20A%20Speed=40/' -e 's/^Diver%20Speed=.*/Diver%20Speed=40/' "$store"
sleep 0.3
e2e_key 1
e2e_wait_for 3 eval '! e2e_silent 1' || e2e_fail "no game beats after the 1 key"
deadline=$((SECONDS + 120))
until e2e_silent 3; do
  [ $SECONDS -lt $deadline ] || e2e_fail "the game did not reach game over in 2 minutes"
  sleep 1
done
kill -0 "$E2E_APP" || e2e_fail "the program ended during the game"
e2e_stop_app TERM
echo "keys: 1 passed, 0 failed"
