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

# Polls a command for up to $1 seconds.
e2e_wait_for() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
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

# An X server and a window manager on it; false, with both stopped, when the
# manager cannot take the display (openbox's complaint in $E2E_DIR/openbox.log).
e2e_start_desktop() {
  : >"$E2E_DIR/display"
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$E2E_DIR/display" 2>/dev/null &
  local xvfb=$!
  e2e_wait_for 10 test -s "$E2E_DIR/display" || e2e_fail "Xvfb did not start"
  export DISPLAY=":$(head -n1 "$E2E_DIR/display")"
  openbox --sm-disable >"$E2E_DIR/openbox.log" 2>&1 &
  local openbox=$!
  E2E_PIDS+=($xvfb $openbox)
  local taken='xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
  e2e_wait_for 20 sh -c "$taken || ! kill -0 $openbox" && sh -c "$taken" && return 0
  kill $openbox $xvfb 2>/dev/null || true
  wait $openbox $xvfb 2>/dev/null || true
  unset 'E2E_PIDS[-1]' 'E2E_PIDS[-1]'
  return 1
}

# A fresh home, an X server and a window manager. Rarely a server started
# just as another one ends turns the manager away; a second desktop is tried.
e2e_setup() {
  e2e_home
  e2e_start_desktop || e2e_start_desktop ||
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

# Starts a listener on the null sink's monitor (the command $@) and waits
# until it is attached. An idle null sink delivers in long blocks: a suspend
# and resume then makes it run in real time.
e2e_listen() {
  local listeners
  listeners=$(pactl list short source-outputs | wc -l)
  "$@" &
  E2E_PIDS+=($!)
  e2e_wait_for 10 e2e_listeners_above "$listeners" || e2e_fail "no listener on the sink: $*"
  pactl suspend-sink nautrix 1
  pactl suspend-sink nautrix 0
}
e2e_listeners_above() { [ "$(pactl list short source-outputs | wc -l)" -gt "$1" ]; }

# Records the null sink's monitor into $1 until e2e_stop_recording.
e2e_start_recording() {
  e2e_listen parecord --device=nautrix.monitor --file-format=wav "$1"
  E2E_RECORDER=${E2E_PIDS[-1]}
}

e2e_stop_recording() {
  kill -INT "$E2E_RECORDER"
  wait "$E2E_RECORDER" 2>/dev/null || true
}

# The beeps of a recording ($1), one line each, in milliseconds from its
# start: 10 ms windows at 8 kHz; a beep begins where the level rises above
# 5 % of full scale after lying below 1 %.
e2e_onsets() {
  sox "$1" -t raw -r 8000 -e signed -b 16 -c 1 - 2>/dev/null | od -An -v -td2 -w2 |
    awk -v window=80 '
      { sum += $1 * $1; n++ }
      n == window {
        rms = sqrt(sum / n) / 32768
        if (!on && rms > 0.05) { on = 1; print int(NR / 8) }
        else if (on && rms < 0.01) on = 0
        sum = 0; n = 0
      }'
}

# True once the last three seconds on the null sink (e2e_start_level_monitor)
# hold Game A's beat: at least 10 beeps after the first (which may be cut), at
# its 220 ms pace within 5 %.
e2e_beat_heard() {
  tail -c 48000 "$E2E_LEVEL" | sox -t raw -r 8000 -e signed -b 16 -c 1 - "$E2E_DIR/last.wav"
  e2e_onsets "$E2E_DIR/last.wav" | awk -v beat=220 '
    NR == 2 { first = $1 }
    NR >= 2 { last = $1; n++ }
    END { exit !(n >= 10 && (last - first) >= (n - 1) * beat * 0.95 && (last - first) <= (n - 1) * beat * 1.05) }'
}

e2e_store() { echo "$XDG_CONFIG_HOME/Tickplay Simulator.ini"; }

# Starts the program ($1, with the words of E2E_ARGS as its arguments)
# without the right to set the clock, what it prints added to the file $2
# (by default the one e2e_expect_quiet reads), and waits for its own window;
# E2E_APP is its PID, E2E_WIN its window.
e2e_start_app() {
  setpriv --bounding-set -sys_time --inh-caps -sys_time "$1" ${E2E_ARGS:-} >>"${2:-$E2E_DIR/said}" 2>&1 &
  E2E_APP=$!
  E2E_PIDS+=($E2E_APP)
  E2E_WIN=""
  local deadline=$((SECONDS + 15))
  while [ -z "$E2E_WIN" ]; do
    [ $SECONDS -lt $deadline ] || e2e_fail "the device window did not appear"
    e2e_alive "at start"
    E2E_WIN=$(xdotool search --all --onlyvisible --pid "$E2E_APP" --name '^Nautrix$' 2>/dev/null | head -n1 || true)
    [ -n "$E2E_WIN" ] || sleep 0.1
  done
}

# Runs the command $@ that chooses "&Exit" and waits for the program's end:
# status 0, and the store as it was before.
e2e_expect_exit() {
  local status=0 before
  before=$(md5sum "$(e2e_store)")
  "$@"
  wait "$E2E_APP" || status=$?
  [ "$status" = 0 ] || e2e_fail "$* ended the program with status $status"
  [ "$(md5sum "$(e2e_store)")" = "$before" ] || e2e_fail "$* wrote the store"
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

# Fails unless the device window (or the window $3) comes to stand at "x y"
# ($1) within 2 s; $2 says what was placed.
e2e_expect_position() {
  e2e_wait_for 2 e2e_placed "$1" "${3:-}" || e2e_fail "$2: expected '$1', got '$(e2e_window_position "${3:-}")'"
}
e2e_placed() { [ "$(e2e_window_position "$2")" = "$1" ]; }

# A value of the store file, or "<missing>".
e2e_setting() {
  local key=${1// /%20}
  local line
  line=$(grep -E "^${key}=" "$(e2e_store)" 2>/dev/null | head -n1 || true)
  if [ -z "$line" ]; then echo "<missing>"; else echo "${line#*=}"; fi
}

# True while the store's key $1 holds $2 (for waits, which poll it afresh).
e2e_setting_is() { [ "$(e2e_setting "$1")" = "$2" ]; }

# Fails unless the store's key $1 comes to hold $2 ($3 says after what): a
# write is on disk only after its sync, which a disk busy with other work
# delays by seconds.
e2e_expect_setting() {
  e2e_wait_for 10 e2e_setting_is "$1" "$2" || e2e_fail "$3: expected '$2', got '$(e2e_setting "$1")'"
}

# Keys of the store's [Nautrix] group, one per line, sorted.
e2e_store_keys() {
  awk '/^\[/ {group=$0; next} group=="[Nautrix]" && /=/ {sub(/=.*/, ""); gsub(/%20/, " "); print}' \
    "$(e2e_store)" | sort
}

e2e_focus() { xdotool windowactivate --sync "${1:-$E2E_WIN}" >/dev/null 2>&1 || true; }
e2e_key() { e2e_focus && xdotool key --window "$E2E_WIN" "$@"; }

# A fingerprint of what a client-area rectangle ($1 $2 $3 $4: x y w h) shows now.
e2e_region() {
  import -window "$E2E_WIN" png:- 2>/dev/null |
    /usr/bin/convert png:- -crop "${3}x${4}+${1}+${2}" +repage -depth 8 rgb:- | md5sum | cut -c1-32
}

# True while the client-area rectangle ($2 to $5: x y w h) shows the
# fingerprint $1 (e2e_region_is) or something else (e2e_region_not).
e2e_region_is() { [ "$(e2e_region "${@:2}")" = "$1" ]; }
e2e_region_not() { [ "$(e2e_region "${@:2}")" != "$1" ]; }

# Keeps the null sink's level in a raw file for e2e_level (needs e2e_start_audio).
e2e_start_level_monitor() {
  E2E_LEVEL=$E2E_DIR/level.raw
  e2e_listen parec --device=nautrix.monitor --format=s16le --rate=8000 --channels=1 --latency-msec=20 "$E2E_LEVEL"
}

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

# An X11 system tray at the bottom right of the screen; E2E_TRAY is its PID.
# A tray that is stopped has given up its selection when e2e_stop_tray ends,
# so that the next tray can take it.
e2e_start_tray() {
  trayer --edge bottom --align right --widthtype pixel --width 100 \
    --heighttype pixel --height 24 >/dev/null 2>&1 &
  E2E_TRAY=$!
  E2E_PIDS+=($E2E_TRAY)
}
e2e_stop_tray() { kill "$E2E_TRAY" && wait "$E2E_TRAY" 2>/dev/null || true; }

# The program's shown windows, one a line: "id x y width height".
e2e_app_windows() {
  local w WINDOW X Y WIDTH HEIGHT SCREEN
  for w in $(xdotool search --onlyvisible --all --pid "$E2E_APP" 2>/dev/null); do
    eval "$(xdotool getwindowgeometry --shell "$w" 2>/dev/null)" && echo "$w $X $Y $WIDTH $HEIGHT"
  done
  return 0
}

# The program's icon docked in the tray: a small window of its PID in the
# tray's strip. Prints its window and centre, "id x y"; fails with no icon.
e2e_tray_icon() {
  e2e_app_windows | awk '!found && $3 >= 700 && $4 <= 24 && $5 <= 24 {print $1, $2 + int($4 / 2), $3 + int($5 / 2); found = 1}
    END {exit !found}'
}

# Moves the pointer to a screen point ($1 $2) and waits until it is there;
# xdotool's own wait never ends when the pointer is there already.
e2e_pointer_to() {
  local X Y SCREEN WINDOW
  eval "$(xdotool getmouselocation --shell)"
  [ "$X $Y" = "$1 $2" ] || xdotool mousemove --sync "$1" "$2"
}

# True while the device window is on the screen (shown), or not (hidden), or
# the window manager keeps it above the others (on top).
e2e_window_shown() { xdotool search --onlyvisible --name '^Nautrix$' >/dev/null 2>&1; }
e2e_hidden() { ! e2e_window_shown; }
e2e_on_top() { xprop -id "$E2E_WIN" _NET_WM_STATE | grep -q _NET_WM_STATE_ABOVE; }

# True while a popup menu of the program is open: a visible window of its
# PID that the window manager does not frame (not a dialog) and taller than
# a tooltip. Prints its place, "x y".
e2e_menu_open() {
  local w x y width height
  while read -r w x y width height; do
    [ "$height" -gt 60 ] && xwininfo -id "$w" | grep -q 'Override Redirect State: yes' && echo "$x $y" && return 0
  done < <(e2e_app_windows)
  return 1
}
