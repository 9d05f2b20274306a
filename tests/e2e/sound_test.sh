#!/usr/bin/env bash
# A Game A heard at the speakers, through a private sound server's null sink.
# A game left to run beeps at every beat of its 220 ms pace, none dropped; the
# null sink hands its sound over in blocks, so single intervals jitter: the
# pace is judged by the count of beeps over their span and by their mean
# interval. S switches the sound off until the voice sleeps (its stream
# corked), and S again: the next beat, played on the sleeping voice, must be
# heard, three times over. The audio server as desktops treat it: a server
# that first appears after start-up is heard; killed and started again
# mid-game, it hears the beat again; one that is stalled when the program
# starts holds up neither the game nor the keys, and hears the beat once it
# goes on; without the server's library the game runs silent. The program
# prints nothing throughout.
source "$(dirname "$0")/lib.sh"
app=$1

expect_beat() {
  e2e_record
  e2e_wait_for 15 e2e_beat_heard || e2e_fail "$1: the beat is not heard"
}

kill_audio() { { kill -KILL "$E2E_AUDIO" && wait "$E2E_AUDIO"; } 2>/dev/null || true; }
start_game() { e2e_start_app "$app" && e2e_key 1; }
stop_game() { e2e_stop_app && e2e_expect_quiet "with the audio server coming and going"; }

e2e_setup
# Where the server will be; none is there yet.
export PULSE_SERVER=unix:$XDG_RUNTIME_DIR/pulse.sock

start_game
sleep 1.5  # the game runs with no server for a while
e2e_start_audio
expect_beat "a server that appears after start-up"

kill_audio
sleep 1.5  # the game runs on with its server gone
e2e_alive "with its audio server"
e2e_start_audio
expect_beat "a server killed and started again"
stop_game

# A server that takes connections but never answers them.
kill_audio
e2e_start_audio
kill -STOP "$E2E_AUDIO"
start_game
sleep 0.5  # the program is reaching the stalled server
for sound in False True; do
  e2e_key s
  e2e_expect_setting Sound $sound "S with a stalled audio server"
done
kill -CONT "$E2E_AUDIO"
expect_beat "a stalled server that goes on"
stop_game

# --- A game heard beat by beat, and the sleeping voice woken.
beat_ms=220 seconds=8 wakes=3
e2e_start_app "$app"
e2e_record "$E2E_DIR/game.raw"
e2e_key 1  # GAME A: the game starts at the release
sleep $seconds  # the game's span in the recording
for ((wake = 0; wake < wakes; wake++)); do
  xdotool key s
  e2e_wait_for 5 sh -c 'pactl list sink-inputs | grep -q "Corked: yes"' ||
    e2e_fail "the voice did not sleep with the sound off"
  xdotool key s
  sleep 0.8  # the next beats, heard on the woken voice
done
e2e_alive "during the game"
e2e_onsets <"$E2E_DIR/game.raw" >"$E2E_DIR/onsets"

# The game's beeps are the first unbroken run; each wake starts a run apart.
read -r onsets first last wake_runs < <(
  awk -v gap=$((beat_ms * 5 / 2)) '
    NR == 1 { first = last = previous = $1; count = 1; next }
    !broken && $1 - last <= gap { last = previous = $1; count++; next }
    { if (!broken || $1 - previous > gap) wakes++; broken = 1; previous = $1 }
    END { printf "%d %d %d %d\n", count, first, last, wakes }' "$E2E_DIR/onsets")

[ "$onsets" -ge 2 ] || e2e_fail "no game beats in the recording ($onsets onsets)"
span=$((last - first))
mean=$((span / (onsets - 1)))
expected=$(((span + beat_ms / 2) / beat_ms + 1))
echo "sound: $onsets beeps over ${span} ms, mean interval ${mean} ms, $expected beats in that span"
[ "$onsets" -ge $((seconds * 1000 * 8 / 10 / beat_ms)) ] ||
  e2e_fail "too few beeps: $onsets in a ${seconds} s game"
[ "$onsets" -ge "$expected" ] || e2e_fail "$((expected - onsets)) beats dropped"
[ "$onsets" -le "$expected" ] || e2e_fail "$((onsets - expected)) beeps more than beats: a beep broke up"
[ "$mean" -ge $((beat_ms * 97 / 100)) ] && [ "$mean" -le $((beat_ms * 103 / 100)) ] ||
  e2e_fail "mean interval $mean ms, not the game's $beat_ms ms"
# The voice sleeps after a second of silence and wakes for the next beep.
[ "$wake_runs" -eq $wakes ] || e2e_fail "$wake_runs of $wakes wakes of the sleeping voice heard"
stop_game

# A machine without the audio server's library (hidden in a mount namespace
# of the program's own): the game runs and takes its keys, in silence.
unshare -m true 2>/dev/null || { echo "sound: no library skipped: no mount namespace"; exit 0; }
library=$(ldconfig -p | awk '/libpulse\.so\.0 / {found = $NF} END {print found}')
printf '#!/bin/sh\nmount --bind /dev/null "%s" && exec "%s"\n' "$library" "$app" >"$E2E_DIR/bare"
printf '#!/bin/sh\nexec unshare -m --propagation private sh "%s"\n' "$E2E_DIR/bare" >"$E2E_DIR/bare-app"
chmod +x "$E2E_DIR/bare-app"
app=$E2E_DIR/bare-app start_game  # heard by the stalled server's part's recorder
e2e_key s
e2e_expect_setting Sound False "S without the library"
e2e_key s
sleep 3  # three seconds of a game heard would hold its beat
! e2e_beat_heard || e2e_fail "without the library, the beat is heard"
stop_game
