#!/usr/bin/env bash
# A Game A heard at the speakers: the program, started as a user starts it,
# plays a game started with the 1 key, a private sound server records what
# reaches its null sink, and the recording must hold a beep at every beat of
# the game's 220 ms pace, none dropped. The null sink hands its sound over in
# blocks, so single intervals jitter: the pace is judged by the count of
# beeps over their span and by their mean interval. Then S switches the
# sound off until the voice sleeps (its stream corked), and S again: the
# next beat, played on the sleeping voice, must be heard, three times over.
source "$(dirname "$0")/lib.sh"
app=$1
beat_ms=220
seconds=8
wakes=3

e2e_setup
e2e_start_audio
# A listener that asks for 20 ms keeps the null sink in real time, as a
# sound card is: without it the sink takes a new stream's sound in blocks
# of seconds.
e2e_start_level_monitor
e2e_write_store
e2e_start_app "$app"
e2e_focus
sleep 0.5
recording=$E2E_DIR/game.wav
e2e_start_recording "$recording"
xdotool key 1  # GAME A: the game starts at the release
sleep $seconds
for ((wake = 0; wake < wakes; wake++)); do
  xdotool key s
  e2e_wait_for 5 sh -c 'pactl list sink-inputs | grep -q "Corked: yes"' ||
    e2e_fail "the voice did not sleep with the sound off"
  xdotool key s
  sleep 0.8
done
e2e_stop_recording
e2e_alive "during the game"

e2e_onsets "$recording" >"$E2E_DIR/onsets"

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
echo "game sound: $onsets beeps over ${span} ms, mean interval ${mean} ms, $expected beats in that span"
[ "$onsets" -ge $((seconds * 1000 * 8 / 10 / beat_ms)) ] ||
  e2e_fail "too few beeps: $onsets in a ${seconds} s game"
[ "$onsets" -ge "$expected" ] || e2e_fail "$((expected - onsets)) beats dropped"
[ "$onsets" -le "$expected" ] || e2e_fail "$((onsets - expected)) beeps more than beats: a beep broke up"
[ "$mean" -ge $((beat_ms * 97 / 100)) ] && [ "$mean" -le $((beat_ms * 103 / 100)) ] ||
  e2e_fail "mean interval $mean ms, not the game's $beat_ms ms"
# The voice sleeps after a second of silence and wakes for the next beep.
[ "$wake_runs" -eq $wakes ] || e2e_fail "$wake_runs of $wakes wakes of the sleeping voice heard"
echo "game sound: 1 passed, 0 failed"
