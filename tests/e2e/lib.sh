# Shared steps of the end-to-end tests: a private X server with a window
# manager, optionally a private PulseAudio with a null sink, and the program
# started as a user starts it. Source this file; every process it starts is
# stopped by its PID, in reverse order, when the test script exits.
set -euo pipefail

E2E_PIDS=()
E2E_DIR=""

e2e_cleanup() {
  local i
  for ((i = ${#E2E_PIDS[@]} - 1; i >= 0; i--)); do
    kill "${E2E_PIDS[i]}" 2>/dev/null || true
    kill -CONT "${E2E_PIDS[i]}" 2>/dev/null || true  # a stopped process ends only once woken
    wait "${E2E_PIDS[i]}" 2>/dev/null || true
  done
  [ -n "$E2E_DIR" ] && rm -rf "$E2E_DIR"
}

e2e_fail() { echo "FAIL: $*" >&2; exit 1; }

# Fails unless $1 is $2; $3 says what was compared.
e2e_expect_eq() { [ "$1" = "$2" ] || e2e_fail "$3: expected '$2', got '$1'"; }

# Polls a command for up to $1 seconds; "!" before it waits for it to fail.
e2e_wait_for() {
  local deadline=$((SECONDS + $1)) want=0
  shift
  [ "$1" != '!' ] || { want=1 && shift; }
  until { "$@"; [ $? = $want ]; } >/dev/null 2>&1; do
    [ $SECONDS -lt $deadline ] || return 1
    sleep 0.1
  done
}

# A fresh home for the run: settings, runtime folder, temporary files.
e2e_home() {
  E2E_DIR=$(mktemp -d /tmp/nautrix-e2e.XXXXXX)
  trap e2e_cleanup EXIT
  export HOME=$E2E_DIR/home XDG_CONFIG_HOME=$E2E_DIR/config
  export XDG_RUNTIME_DIR=$E2E_DIR/run TMPDIR=$E2E_DIR/tmp
  mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR" "$TMPDIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  unset DBUS_SESSION_BUS_ADDRESS WAYLAND_DISPLAY SESSION_MANAGER
  export QT_QPA_PLATFORM=xcb
  # No sound server unless a test asks for one.
  export PULSE_SERVER=unix:$XDG_RUNTIME_DIR/no-such-server
  printf 'autospawn = no\n' >"$E2E_DIR/pulse-client.conf"
  export PULSE_CLIENTCONFIG=$E2E_DIR/pulse-client.conf
}

# A fresh home, an X server and a window manager on it. Rarely a server
# started just as another one ends turns the manager away; a second desktop
# is tried.
e2e_setup() {
  local try xvfb openbox taken='xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
  e2e_home
  for try in 1 2; do
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$E2E_DIR/display" 2>/dev/null &
    xvfb=$!
    e2e_wait_for 10 test -s "$E2E_DIR/display" || e2e_fail "Xvfb did not start"
    export DISPLAY=":$(head -n1 "$E2E_DIR/display")"
    openbox --sm-disable >"$E2E_DIR/openbox.log" 2>&1 &
    openbox=$!
    E2E_PIDS+=($xvfb $openbox)
    e2e_wait_for 20 sh -c "$taken || ! kill -0 $openbox" && sh -c "$taken" && return 0
    kill $openbox $xvfb 2>/dev/null || true
    wait $openbox $xvfb 2>/dev/null || true
    unset 'E2E_PIDS[-1]' 'E2E_PIDS[-1]'
  done
  e2e_fail "openbox did not take the display $DISPLAY: $(cat "$E2E_DIR/openbox.log")"
}

# A private PulseAudio whose only output is the null sink "nautrix"; E2E_AUDIO
# is its PID.
e2e_start_audio() {
  export PULSE_SERVER=unix:$XDG_RUNTIME_DIR/pulse.sock
  pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no \
    --load="module-native-protocol-unix socket=$XDG_RUNTIME_DIR/pulse.sock" \
    --load="module-null-sink sink_name=nautrix" >>"$E2E_DIR/pulse.log" 2>&1 &
  E2E_AUDIO=$!
  E2E_PIDS+=($E2E_AUDIO)
  e2e_wait_for 10 pactl info || e2e_fail "PulseAudio did not start"
  pactl set-default-sink nautrix
}

# Records the null sink's monitor, raw 8 kHz mono, into the file $1 (by
# default the one e2e_beat_heard reads) and waits until it listens. An idle
# null sink delivers in long blocks: a suspend and resume then makes it run
# in real time.
e2e_record() {
  local listeners
  listeners=$(pactl list short source-outputs | wc -l)
  parec --device=nautrix.monitor --format=s16le --rate=8000 --channels=1 --latency-msec=20 \
    "${1:-$E2E_DIR/level.raw}" &
  E2E_PIDS+=($!)
  e2e_wait_for 10 sh -c "[ \$(pactl list short source-outputs | wc -l) -gt $listeners ]" ||
    e2e_fail "no listener on the sink"
  pactl suspend-sink nautrix 1
  pactl suspend-sink nautrix 0
}

# The beeps of a raw recording on standard input, one line each, in
# milliseconds from its start: 10 ms windows at 8 kHz; a beep begins where
# the level rises above 5 % of full scale after lying below 1 %.
e2e_onsets() {
  od -An -v -td2 -w2 |
    awk -v window=80 '
      { sum += $1 * $1; n++ }
      n == window {
        rms = sqrt(sum / n) / 32768
        if (!on && rms > 0.05) { on = 1; print int(NR / 8) }
        else if (on && rms < 0.01) on = 0
        sum = 0; n = 0
      }'
}

# True once the last three seconds on the null sink (e2e_record) hold Game
# A's beat: at least 10 beeps after the first (which may be cut), at its
# 220 ms pace within 5 %.
e2e_beat_heard() {
  tail -c 48000 "$E2E_DIR/level.raw" | e2e_onsets | awk -v beat=220 '
    NR == 2 { first = $1 }
    NR >= 2 { last = $1; n++ }
    END { exit !(n >= 10 && (last - first) >= (n - 1) * beat * 0.95 && (last - first) <= (n - 1) * beat * 1.05) }'
}

e2e_store() { echo "$XDG_CONFIG_HOME/Tickplay Simulator.ini"; }

# Starts the program ($@: it and its arguments) without the right to set the
# clock, what it prints added to the file e2e_expect_quiet reads, and waits
# for its own window; E2E_APP is its PID, E2E_WIN its window.
e2e_start_app() {
  setpriv --bounding-set -sys_time --inh-caps -sys_time "$@" >>"$E2E_DIR/said" 2>&1 &
  E2E_APP=$!
  E2E_PIDS+=($E2E_APP)
  e2e_wait_for 15 e2e_device_window || { e2e_alive "at start" && e2e_fail "the device window did not appear"; }
  E2E_WIN=$(e2e_device_window)
}
e2e_device_window() {
  xdotool search --all --onlyvisible --pid "$E2E_APP" --name '^Nautrix$' 2>/dev/null | head -n1 | grep .
}

e2e_alive() { kill -0 "$E2E_APP" 2>/dev/null || e2e_fail "the program ended $1"; }

# Fails if the program printed anything ($1: when).
e2e_expect_quiet() {
  [ ! -s "$E2E_DIR/said" ] || e2e_fail "the program printed $1: $(head -n 5 "$E2E_DIR/said")"
}

# Ends the program by its PID and forgets it.
e2e_stop_app() {
  local signal=${1:-TERM}
  kill "-$signal" "$E2E_APP" 2>/dev/null || true
  wait "$E2E_APP" 2>/dev/null || true
}

# The client area's position on the screen, "x y", of the device window or
# of the window $1.
e2e_window_position() {
  xwininfo -id "${1:-$E2E_WIN}" | awk '/Absolute upper-left X/ {x=$NF} /Absolute upper-left Y/ {y=$NF} END {print x, y}'
}

# Fails unless the device window comes to stand at "x y" ($1) within 2 s; $2
# says what was placed.
e2e_expect_position() {
  e2e_wait_for 2 e2e_placed "$1" || e2e_fail "$2: expected '$1', got '$(e2e_window_position)'"
}
e2e_placed() { [ "$(e2e_window_position)" = "$1" ]; }

# The value of the key $1 in the store file; nothing when it is missing.
e2e_setting() { sed -n "/^${1// /%20}=/{s///p;q}" "$(e2e_store)" 2>/dev/null || true; }

# True while the store's key $1 holds $2 (for waits, which poll it afresh).
e2e_setting_is() { [ "$(e2e_setting "$1")" = "$2" ]; }

# Fails unless the store's key $1 comes to hold $2 ($3 says after what): a
# write is on disk only after its sync, which a disk busy with other work
# delays by seconds.
e2e_expect_setting() {
  e2e_wait_for 10 e2e_setting_is "$1" "$2" || e2e_fail "$3: expected '$2', got '$(e2e_setting "$1")'"
}

# The number of keys in the store, all of the device's one group.
e2e_store_key_count() { grep -c = "$(e2e_store)"; }

e2e_focus() { xdotool windowactivate --sync "${1:-$E2E_WIN}" >/dev/null 2>&1 || true; }
e2e_key() { e2e_focus && xdotool key --window "$E2E_WIN" "$@"; }

# A fingerprint of what a client-area rectangle ($1 $2 $3 $4: x y w h) shows now.
e2e_region() {
  import -window "$E2E_WIN" png:- 2>/dev/null |
    /usr/bin/convert png:- -crop "${3}x${4}+${1}+${2}" +repage -depth 8 rgb:- | md5sum | cut -c1-32
}

# True while the client-area rectangle ($2 to $5: x y w h) shows the
# fingerprint $1.
e2e_region_is() { [ "$(e2e_region "${@:2}")" = "$1" ]; }

# A store of an earlier run ("Auto Show" there: no instructions at start),
# the client area at the screen's top left corner.
e2e_write_store() {
  printf '%s\n' '[Nautrix]' Sound=True Left=-45 Top=-330 Diver%20Speed=300 Game%20A%20Speed=220 \
    Game%20B%20Speed=170 Game%20A%20High%20Score=0 Game%20B%20High%20Score=0 'Alarm%20Time=120000 PM' \
    Alarm%20On=False Always%20on%20Top=False Auto%20Show=True >"$(e2e_store)"
}

# A private session bus for the program and the test's own clients.
e2e_start_session_bus() {
  dbus-daemon --session --nofork --print-address=3 3>"$E2E_DIR/bus" 2>/dev/null &
  E2E_PIDS+=($!)
  e2e_wait_for 10 test -s "$E2E_DIR/bus" || e2e_fail "no session bus"
  export DBUS_SESSION_BUS_ADDRESS=$(head -n1 "$E2E_DIR/bus")
}

# The program's shown windows, one a line: "id x y width height".
e2e_app_windows() {
  local w WINDOW X Y WIDTH HEIGHT SCREEN
  for w in $(xdotool search --onlyvisible --all --pid "$E2E_APP" 2>/dev/null); do
    eval "$(xdotool getwindowgeometry --shell "$w" 2>/dev/null)" && echo "$w $X $Y $WIDTH $HEIGHT"
  done
  return 0
}
