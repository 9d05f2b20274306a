#!/usr/bin/env bash
# Keys held for real under the X server's own auto-repeat, at a slow and a
# fast rate: each hold is one press and one release. S held toggles the
# sound once; ALARM held and then TIME leave "Alarm On" as it was; Right held
# in alarm setting steps the minute as the held-key repeat does (one step at
# the press, then one a tick from the fourth 200 ms tick on); GAME A held
# shows the high score until the release, and only the release starts the
# game.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)
readout=(149 52 57 13)  # the four digits, the colon and AM/PM

now_ms() { echo $(($(date +%s%N) / 1000000)); }

# Holds key $1 for $2 seconds with the real keyboard of the X server.
hold() {
  xdotool keydown "$1"
  sleep "$2"
  xdotool keyup "$1"
}

for rate in "660 25" "200 60"; do
  xset r rate $rate
  printf '[Nautrix]\nAuto%%20Show=True\nGame%%20A%%20High%%20Score=7\n' >"$store"
  e2e_start_app "$app"
  xdotool windowactivate --sync "$E2E_WIN" >/dev/null 2>&1 || true
  sleep 0.5
  at="at rate $rate"

  hold s 1.2
  e2e_expect_setting Sound False "Sound after S held $at"

  # ALARM held: alarm entry, alarm set at its release. Right held there.
  alarm_on=$(e2e_setting 'Alarm On')
  alarm_before=$(e2e_setting 'Alarm Time')
  hold a 1.2
  start=$(now_ms)
  hold Right 2
  held=$(($(now_ms) - start))
  xdotool key t
  e2e_wait_for 3 eval '! e2e_setting_is "Alarm Time" "$alarm_before"' || true  # stored at the release of TIME
  e2e_expect_eq "$(e2e_setting 'Alarm On')" "$alarm_on" "Alarm On after ALARM held and TIME $at"
  alarm=$(e2e_setting 'Alarm Time')
  [[ $alarm =~ ^12([0-5][0-9])00\ PM$ ]] || e2e_fail "Alarm Time after Right held $at: $alarm"
  steps=$((10#${BASH_REMATCH[1]}))
  ticks=$((held / 200))  # within one of the ticks the hold really saw
  [ $steps -ge $((ticks - 4)) ] && [ $steps -le $((ticks - 1)) ] ||
    e2e_fail "Right held $held ms $at stepped $steps minutes, not about $((ticks - 2))"

  # GAME A held: the high score, the same all through the hold; the game's
  # score at the release.
  idle=$(e2e_region "${readout[@]}")
  xdotool keydown 1
  sleep 0.3
  early=$(e2e_region "${readout[@]}")
  sleep 1
  late=$(e2e_region "${readout[@]}")
  xdotool keyup 1
  [ "$early" != "$idle" ] || e2e_fail "no high score while GAME A is held $at"
  [ "$late" = "$early" ] || e2e_fail "the readout changed while GAME A was held $at"
  e2e_wait_for 3 e2e_region_not "$late" "${readout[@]}" || e2e_fail "no game after the release of GAME A $at"
  kill -0 "$E2E_APP" || e2e_fail "the program ended $at"
  e2e_stop_app TERM
done
echo "key holds: 2 rates passed"
