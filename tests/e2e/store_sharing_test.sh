#!/usr/bin/env bash
# The store as copies of the program share it and machines treat it. Two
# copies side by side: the alarm one stores is the one the other steps from,
# an ACL reset in one puts out the other's note at once, the alarm armed in
# one rings in the other until a key silences it. SIGKILL at random moments
# of a burst of writes (S held) never leaves a store that fails to read or
# lost a key; two copies writing in turn leave every key and each one's latest
# value; a read-only folder and a full disk leave the run's values in memory
# and the program quiet.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)
note=(209 56 9 8) baby=(221 51 23 24)


# Starts copy $1 (of the program, or of $2) and waits for its own window;
# sets ${1}_PID and ${1}_WIN. keys, region and stop act on copy $1.
copy() {
  e2e_start_app "${2:-$app}"
  local win="" deadline=$((SECONDS + 15))
  until win=$(xdotool search --all --onlyvisible --pid "$E2E_APP" --name '^Nautrix$' 2>/dev/null | head -n1) &&
    [ -n "$win" ]; do
    [ $SECONDS -lt $deadline ] || e2e_fail "copy $1 has no window of its own"
    sleep 0.1
  done
  printf -v "${1}_PID" %s "$E2E_APP"
  printf -v "${1}_WIN" %s "$win"
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
sleep 0.5
lit_note=$(region A "${note[@]}")
keys A a Right Right t
e2e_expect_setting 'Alarm Time' "120200 PM" "Alarm Time stored by A"
keys B a Right t
e2e_expect_setting 'Alarm Time' "120300 PM" "Alarm Time stepped by B from A's"
keys B r
dark_note=$(region B "${note[@]}")
[ "$dark_note" != "$lit_note" ] || e2e_fail "B's note is still lit after its reset"
e2e_expect_eq "$(region A "${note[@]}")" "$dark_note" "A's note after B's reset"
# A arms the alarm at 12:00 AM; B's clock, at 12:00 AM from the reset, runs
# as B leaves clock setting.
keys A a Up Up Up Up Up Up Up Up Up Up Up Up a t
e2e_expect_setting 'Alarm Time' "120000 AM" "alarm time stored by A"
e2e_expect_setting 'Alarm On' True "alarm armed by A"
quiet=$(region B "${baby[@]}")
keys B t
b_rings() { [ "$(region B "${baby[@]}")" != "$quiet" ]; }
e2e_wait_for 3 b_rings || e2e_fail "B did not ring at the alarm armed by A"
# A key let go silences it for the rest of its minute.
keys B Left
e2e_wait_for 3 eval '! b_rings' || e2e_fail "B rang on after a key"
sleep 1.5
! b_rings || e2e_fail "B rang again after the key"

# --- Two copies press S in turn: each press is in the file, nothing else moves.
others=$(grep -v '^Sound=' "$store")
whole() {
  [ "$(e2e_store_keys | wc -l)" = 12 ] && [ "$(grep -v '^Sound=' "$store")" = "$others" ] &&
    grep -qE '^Sound=(True|False)$' "$store" || e2e_fail "$1: the store is not whole: $(cat "$store")"
}
for turn in 1 2 3 4 5 6; do
  for c in A B; do  # both started with the sound off: they flip it in step
    keys $c s
    e2e_expect_setting Sound "$( ((turn % 2)) && echo True || echo False)" "Sound after S in $c"
    whole "S in $c, turn $turn"
  done
done
stop A
stop B

# --- SIGKILL at a random moment of a burst of S presses, again and again.
# Each start writes at once: the killed copy holds nothing up, and what it
# was writing is cleared away.
for round in 1 2 3 4 5 6; do
  copy K
  before=$(e2e_setting Sound)
  keys K s
  e2e_wait_for 3 eval '! e2e_setting_is Sound "$before"' || e2e_fail "round $round: S wrote nothing after a kill"
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

# --- A read-only folder, a full disk: the program, walled off in a mount
# namespace of its own (root only), arms the alarm and shows the note from
# the value it keeps in memory; the file stays as it was.
unshare -m true 2>/dev/null || { echo "read-only folder and full disk skipped: no mount namespace"; exit 0; }
cat >"$E2E_DIR/walled" <<EOF
#!/bin/bash
set -e
if [ "\$WALL" = full ]; then
  saved=\$(cat "$store")
  mount -t tmpfs -o size=64k full "$XDG_CONFIG_HOME"
  printf '%s\n' "\$saved" >"$store"
  dd if=/dev/zero of="$XDG_CONFIG_HOME/filler" bs=4k 2>/dev/null || true
else
  mount --bind "$XDG_CONFIG_HOME" "$XDG_CONFIG_HOME"
  mount -o remount,bind,ro "$XDG_CONFIG_HOME"
fi
exec "$app" 2>"$E2E_DIR/stderr-\$WALL"
EOF
printf '#!/bin/sh\nexec unshare -m --propagation private bash "%s"\n' "$E2E_DIR/walled" >"$E2E_DIR/walled-app"
chmod +x "$E2E_DIR/walled-app"
sed -i 's/^Alarm%20On=.*/Alarm%20On=False/' "$store"
for wall in read-only full; do
  WALL=$wall copy W "$E2E_DIR/walled-app"
  original=$(md5sum <"/proc/$W_PID/root$store")
  dark=$(region W "${note[@]}")
  keys W a a t
  [ "$(region W "${note[@]}")" != "$dark" ] || e2e_fail "$wall: no note after arming the alarm"
  e2e_expect_eq "$(md5sum <"/proc/$W_PID/root$store")" "$original" "$wall: the store file"
  stop W
  [ ! -s "$E2E_DIR/stderr-$wall" ] || e2e_fail "$wall: the program printed: $(cat "$E2E_DIR/stderr-$wall")"
done
echo "store sharing: 1 passed, 0 failed"
