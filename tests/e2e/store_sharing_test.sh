#!/usr/bin/env bash
# The store as copies of the program share it and machines treat it. Two
# copies side by side: an ACL reset in one puts out the other's note at once.
# SIGKILL at random moments of a burst of writes (S held) never leaves a
# store that fails to read or lost a key. (Copies writing in turn, each read
# seeing the other's writes, and a write that cannot reach the disk are the
# Qt store test's; the alarm setting reloaded from the store and an alarm
# silenced by a key are the core's.)
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)
note=(209 56 9 8)

# Starts copy $1 of the program and sets ${1}_PID and ${1}_WIN; keys, region
# and stop act on copy $1.
copy() {
  e2e_start_app "$app"
  printf -v "${1}_PID" %s "$E2E_APP"
  printf -v "${1}_WIN" %s "$E2E_WIN"
}
keys() {
  local w="${1}_WIN" k && local E2E_WIN=${!w} && shift
  for k; do e2e_key "$k" && sleep 0.1; done
  sleep 0.3
}
region() { local w="${1}_WIN" && local E2E_WIN=${!w} && shift && e2e_region "$@"; }
stop() { local p="${1}_PID" && kill "-${2:-TERM}" "${!p}" && wait "${!p}" 2>/dev/null || true; }

e2e_write_store
sed -i -e 's/^Sound=.*/Sound=False/' -e 's/^Alarm%20On=.*/Alarm%20On=True/' "$store"

# --- Two copies side by side.
copy A
copy B
xdotool windowmove --sync "$B_WIN" 400 300
sleep 0.5  # the note is read once both have drawn their moved windows
lit_note=$(region A "${note[@]}")
keys B r
e2e_wait_for 3 eval '[ "$(region B "${note[@]}")" != "$lit_note" ]' || e2e_fail "B's note is still lit after its reset"
dark_note=$(region B "${note[@]}")
e2e_wait_for 3 eval '[ "$(region A "${note[@]}")" = "$dark_note" ]' || e2e_fail "A's note is still lit after B's reset"
others=$(grep -v '^Sound=' "$store")
# Every key there, each but Sound as it was.
whole() {
  [ "$(e2e_store_key_count)" = 12 ] && [ "$(grep -v '^Sound=' "$store")" = "$others" ] &&
    grep -qE '^Sound=(True|False)$' "$store" || e2e_fail "$1: the store is not whole: $(cat "$store")"
}
stop A
stop B

# --- SIGKILL at a random moment of a burst of S presses, again and again.
# Each start writes at once: the killed copy holds nothing up, and what it
# was writing is cleared away.
for round in 1 2 3 4 5 6; do
  copy K
  before=$(e2e_setting Sound)
  keys K s
  e2e_wait_for 10 ! e2e_setting_is Sound "$before" || e2e_fail "round $round: S wrote nothing after a kill"
  ! ls "$store".[0-9]* >/dev/null 2>&1 || e2e_fail "round $round: the killed write's file is still there"
  xdotool key --repeat 400 --delay 2 s &
  burst=$!
  delay=0.$((RANDOM % 600 + 200))
  sleep "$delay"
  stop K KILL
  kill "$burst" && wait "$burst" 2>/dev/null || true
  xdotool keyup s  # a burst cut between a press and its release holds S down
  whole "round $round, killed after ${delay}s"
done

