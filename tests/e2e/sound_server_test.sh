#!/usr/bin/env bash
# The audio server as desktops treat it, under a Game A left to run (a beep at
# every 220 ms beat): a server that first appears after start-up is heard;
# killed and started again mid-game, it hears the beat again; one that is
# stalled when the program starts holds up neither the game nor the keys, and
# hears the beat once it goes on. The program prints nothing throughout.
source "$(dirname "$0")/lib.sh"
app=$1

expect_beat() {
  e2e_start_level_monitor
  e2e_wait_for 15 e2e_beat_heard || e2e_fail "$1: the beat is not heard"
  echo "sound server: $1: the beat is heard"
}

kill_audio() {
  { kill -KILL "$E2E_AUDIO" && wait "$E2E_AUDIO"; } 2>/dev/null || true
}

start_game() {
  e2e_start_app "$app"
  e2e_key 1
}

stop_game() {
  e2e_stop_app
  e2e_expect_quiet "with the audio server coming and going"
}

e2e_setup
# Where the server will be; none is there yet.
export PULSE_SERVER=unix:$XDG_RUNTIME_DIR/pulse.sock

start_game
sleep 1.5
e2e_start_audio
expect_beat "a server that appears after start-up"

kill_audio
sleep 1.5
e2e_alive "with its audio server"
e2e_start_audio
expect_beat "a server killed and started again"
stop_game

# A server that takes connections but never answers them.
kill_audio
e2e_start_audio
kill -STOP "$E2E_AUDIO"
start_game
sleep 0.5
for sound in False True; do
  e2e_key s
  e2e_expect_setting Sound $sound "S with a stalled audio server"
done
kill -CONT "$E2E_AUDIO"
expect_beat "a stalled server that goes on"
stop_game

# A machine without the audio server's library (hidden in a mount namespace
# of the program's own): the game runs and takes its keys, in silence.
unshare -m true 2>/dev/null || { echo "sound server: no library skipped: no mount namespace"; exit 0; }
library=$(ldconfig -p | awk '/libpulse\.so\.0 / {found = $NF} END {print found}')
printf '#!/bin/sh\nmount --bind /dev/null "%s" && exec "%s"\n' "$library" "$app" >"$E2E_DIR/bare"
printf '#!/bin/sh\nexec unshare -m --propagation private sh "%s"\n' "$E2E_DIR/bare" >"$E2E_DIR/bare-app"
chmod +x "$E2E_DIR/bare-app"
app=$E2E_DIR/bare-app start_game
e2e_start_level_monitor
e2e_key s
e2e_expect_setting Sound False "S without the library"
e2e_key s
sleep 3  # three seconds of a game heard would hold its beat
! e2e_beat_heard || e2e_fail "without the library, the beat is heard"
stop_game
echo "sound server: without the library, the game runs silent"
echo "sound server: 1 passed, 0 failed"
