#!/usr/bin/env bash
# The store under stress, as users and their machines treat it: the program
# killed outright at random moments in a burst of writes (S held down) never
# leaves a store that fails to read or that lost a key; two copies writing
# in turn leave every key and each one's latest value; a read-only folder and
# a full disk leave the run's values in memory, the file untouched and the
# program quiet.
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
store=$(e2e_store)
source "$(dirname "$0")/store_lib.sh"

cat >"$store" <<'INI'
[Nautrix]
Sound=False
Left=-45
Top=-330
Diver%20Speed=300
Game%20A%20Speed=150
Game%20B%20Speed=170
Game%20A%20High%20Score=7
Game%20B%20High%20Score=12
Alarm%20Time=063000 AM
Alarm%20On=False
Always%20on%20Top=False
Auto%20Show=True
INI
others=$(grep -v '^Sound=' "$store")  # what no S ever touches

# The store holds the twelve keys, every one but "Sound" as it was.
store_whole() {
  [ "$(e2e_store_keys | wc -l)" = 12 ] || e2e_fail "$1: the store lost keys: $(cat "$store")"
  [ "$(grep -v '^Sound=' "$store")" = "$others" ] || e2e_fail "$1: keys changed: $(cat "$store")"
  case $(e2e_setting Sound) in True | False) ;; *) e2e_fail "$1: Sound unreadable: $(cat "$store")" ;; esac
}

# --- SIGKILL at a random moment of a burst of S presses, again and again.
# Each start writes at once, so a lock left by the killed copy holds nothing up.
for round in 1 2 3 4 5 6; do
  store_start_copy K
  before=$(e2e_setting Sound)
  store_keys K s
  [ "$(e2e_setting Sound)" != "$before" ] || e2e_fail "round $round: S wrote nothing after a kill"
  xdotool key --repeat 400 --delay 2 s &
  burst=$!
  E2E_PIDS+=($burst)
  delay=0.$((RANDOM % 600 + 200))
  sleep "$delay"
  store_stop_copy K KILL
  kill "$burst" 2>/dev/null || true
  wait "$burst" 2>/dev/null || true
  xdotool keyup s  # a burst cut between a press and its release holds S down
  store_whole "round $round, killed after ${delay}s"
done

# --- Two copies press S in turn: each press is in the file, nothing else moves.
store_start_copy A
store_start_copy B
xdotool windowmove --sync "$B_WIN" 400 300
a_sound=$(e2e_setting Sound) b_sound=$a_sound
for turn in 1 2 3 4 5 6 7 8; do
  for copy in A B; do
    store_keys "$copy" s
    if [ "$copy" = A ]; then
      a_sound=$([ "$a_sound" = True ] && echo False || echo True) && want=$a_sound
    else
      b_sound=$([ "$b_sound" = True ] && echo False || echo True) && want=$b_sound
    fi
    expect_eq "$(e2e_setting Sound)" "$want" "Sound after S in $copy, turn $turn"
    store_whole "turn $turn of $copy"
  done
done
store_stop_copy A
store_stop_copy B

# --- A read-only folder, a full disk: the program runs walled off in a mount
# namespace of its own (root only), arms the alarm, and shows the note from
# the value it keeps in memory.
if ! unshare -m --propagation private true 2>/dev/null; then
  echo "store stress: read-only folder and full disk skipped (no mount namespace)"
else
  cat >"$E2E_DIR/walled" <<EOF
#!/bin/bash
set -e
config=\$XDG_CONFIG_HOME
if [ "\$STORE_WALL" = full ]; then
  saved=\$(cat "$store")
  mount -t tmpfs -o size=64k nautrix-full "\$config"
  printf '%s\n' "\$saved" >"$store"
  dd if=/dev/zero of="\$config/filler" bs=4k 2>/dev/null || true
else
  mount --bind "\$config" "\$config"
  mount -o remount,bind,ro "\$config"
fi
exec "$app" 2>"$E2E_DIR/stderr-\$STORE_WALL"
EOF
  printf '#!/bin/sh\nexec unshare -m --propagation private bash "%s"\n' "$E2E_DIR/walled" >"$E2E_DIR/walled-app"
  chmod +x "$E2E_DIR/walled-app"
  for wall in read-only full; do
    export STORE_WALL=$wall
    app_before=$app
    app=$E2E_DIR/walled-app
    store_start_copy W
    app=$app_before
    seen_store="/proc/$W_PID/root$store"
    original=$(md5sum <"$seen_store")
    note=(209 56 9 8)
    dark=$(store_region W "${note[@]}")
    store_keys W a a t
    [ "$(store_region W "${note[@]}")" != "$dark" ] || e2e_fail "$wall: no note after arming the alarm"
    expect_eq "$(md5sum <"$seen_store")" "$original" "$wall: the store file"
    kill -0 "$W_PID" || e2e_fail "$wall: the program ended"
    store_stop_copy W
    [ ! -s "$E2E_DIR/stderr-$wall" ] || e2e_fail "$wall: the program printed: $(cat "$E2E_DIR/stderr-$wall")"
  done
fi
echo "store stress: 1 passed, 0 failed"
