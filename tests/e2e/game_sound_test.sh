#!/usr/bin/env bash
# A Game A heard at the speakers: the audio check program (the real window,
# platform and voice) starts a game and lets it run, a private sound server
# records what reaches its null sink, and the recording must hold a beep at
# every beat of the game's 220 ms pace, none dropped. The null sink hands
# its sound over in blocks, so single intervals jitter: the pace is judged by
# the count of beeps over their span and by their mean interval. After the
# game the check switches the sound off until the voice sleeps, and three
# beeps played on the sleeping voice must each be heard.
source "$(dirname "$0")/lib.sh"
app=$1
check="$(dirname "$app")/nautrix_game_sound_check"
[ -x "$check" ] || e2e_fail "no audio check program beside $app"
beat_ms=220
seconds=9

e2e_setup
e2e_start_audio
# A listener that asks for 20 ms keeps the null sink in real time, as a
# sound card is: without it the sink takes a new stream's sound in blocks
# of seconds.
e2e_start_level_monitor
recording=$E2E_DIR/game.wav
e2e_start_recording "$recording"
setpriv --bounding-set -sys_time --inh-caps -sys_time "$check" "$seconds" 3 >"$E2E_DIR/check.out" 2>&1 ||
  e2e_fail "the check program failed: $(cat "$E2E_DIR/check.out")"
sleep 0.5
e2e_stop_recording
sed 's/^/check: /' "$E2E_DIR/check.out"

e2e_onsets "$recording" >"$E2E_DIR/onsets"

# The game's beeps are the first unbroken run; the wake beeps follow, apart.
read -r onsets first last wake_beeps < <(
  awk -v gap=$((beat_ms * 5 / 2)) '
    NR == 1 { first = last = $1; count = 1; next }
    !broken && $1 - last <= gap { last = $1; count++; next }
    { broken = 1; wakes++ }
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
[ "$wake_beeps" -eq 3 ] || e2e_fail "$wake_beeps of 3 beeps heard from the sleeping voice"
echo "game sound: 1 passed, 0 failed"
