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

e2e_fail() {
  echo "FAIL: $*" >&2
  exit 1
}

# Fails unless $1 is $2; $3 says what was compared.
e2e_expect_eq() {
  [ "$1" = "$2" ] || e2e_fail "$3: expected '$2', got '$1'"
}

# Polls a command for up to $1 seconds.
e2e_wait_for() {
  local seconds=$1
  shift
  local deadline=$((SECONDS + seconds))
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

# Records the null sink's monitor into $1 until e2e_stop_recording.
e2e_start_recording() {
  E2E_RECORDING=$1
  parecord --device=nautrix.monitor --file-format=wav "$E2E_RECORDING" &
  E2E_RECORDER=$!
  E2E_PIDS+=($E2E_RECORDER)
  sleep 0.3
  # An idle null sink delivers in long blocks: a suspend and resume makes
  # the recording run in real time.
  pactl suspend-sink nautrix 1
  pactl suspend-sink nautrix 0
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

e2e_store() { echo "$XDG_CONFIG_HOME/Tickplay Simulator.ini"; }

# Starts the program ($1, with the words of E2E_ARGS as its arguments)
# without the right to set the clock, its output into the file $2 if given,
# and waits for its window; E2E_APP is its PID, E2E_WIN its window.
e2e_start_app() {
  if [ -n "${2:-}" ]; then
    setpriv --bounding-set -sys_time --inh-caps -sys_time "$1" ${E2E_ARGS:-} >"$2" 2>&1 &
  else
    setpriv --bounding-set -sys_time --inh-caps -sys_time "$1" ${E2E_ARGS:-} &
  fi
  E2E_APP=$!
  E2E_PIDS+=($E2E_APP)
  E2E_WIN=""
  local deadline=$((SECONDS + 15))
  while [ -z "$E2E_WIN" ]; do
    [ $SECONDS -lt $deadline ] || e2e_fail "the device window did not appear"
    kill -0 "$E2E_APP" 2>/dev/null || e2e_fail "the program ended at start"
    E2E_WIN=$(xdotool search --onlyvisible --name '^Nautrix$' 2>/dev/null | head -n1 || true)
    [ -n "$E2E_WIN" ] || sleep 0.1
  done
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

# Fails unless the store's key $1 comes to hold $2 within 3 s ($3 says after
# what): a write is on disk only after its sync, which a busy disk delays.
e2e_expect_setting() {
  e2e_wait_for 3 e2e_setting_is "$1" "$2" || e2e_fail "$3: expected '$2', got '$(e2e_setting "$1")'"
}

# Keys of the store's [Nautrix] group, one per line, sorted.
e2e_store_keys() {
  awk '/^\[/ {group=$0; next} group=="[Nautrix]" && /=/ {sub(/=.*/, ""); gsub(/%20/, " "); print}' \
    "$(e2e_store)" | sort
}

e2e_key() { xdotool windowactivate --sync "$E2E_WIN" >/dev/null 2>&1 || true; xdotool key --window "$E2E_WIN" "$@"; }

e2e_shot() { import -window "$E2E_WIN" "$1"; }

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
  parec --device=nautrix.monitor --format=s16le --rate=8000 --channels=1 --latency-msec=20 >"$E2E_LEVEL" 2>/dev/null &
  E2E_PIDS+=($!)
  sleep 0.3
  pactl suspend-sink nautrix 1
  pactl suspend-sink nautrix 0
}

# The RMS amplitude (0 to 1) of the last $1 seconds on the null sink.
e2e_level() {
  tail -c $(($1 * 16000)) "$E2E_LEVEL" | sox -t raw -r 8000 -e signed -b 16 -c 1 - -n stat 2>&1 |
    awk '/RMS +amplitude/ {print $3}'
}

# True when the last $1 seconds were silent.
e2e_silent() { awk -v l="$(e2e_level "$1")" 'BEGIN {exit !(l < 0.001)}'; }

# A store of an earlier run ("Auto Show" there: no instructions at start),
# the client area at the screen's top left corner.
e2e_write_store() {
  cat >"$(e2e_store)" <<'INI'
[Nautrix]
Sound=True
Left=-45
Top=-330
Diver%20Speed=300
Game%20A%20Speed=220
Game%20B%20Speed=170
Game%20A%20High%20Score=0
Game%20B%20High%20Score=0
Alarm%20Time=120000 PM
Alarm%20On=False
Always%20on%20Top=False
Auto%20Show=True
INI
}

# A private session bus for the program and the test's own clients.
e2e_start_session_bus() {
  dbus-daemon --session --nofork --print-address=3 3>"$E2E_DIR/bus" 2>/dev/null &
  E2E_PIDS+=($!)
  e2e_wait_for 10 test -s "$E2E_DIR/bus" || e2e_fail "no session bus"
  export DBUS_SESSION_BUS_ADDRESS=$(head -n1 "$E2E_DIR/bus")
}

# An X11 system tray at the bottom right of the screen; E2E_TRAY is its PID.
e2e_start_tray() {
  trayer --edge bottom --align right --widthtype pixel --width 100 \
    --heighttype pixel --height 24 >/dev/null 2>&1 &
  E2E_TRAY=$!
  E2E_PIDS+=($E2E_TRAY)
}

# The program's icon docked in the tray: a small window of its PID in the
# tray's strip. Prints its window and centre, "id x y"; fails with no icon.
e2e_tray_icon() {
  local w WINDOW X Y WIDTH HEIGHT SCREEN
  for w in $(xdotool search --onlyvisible --all --pid "$E2E_APP" 2>/dev/null); do
    eval "$(xdotool getwindowgeometry --shell "$w" 2>/dev/null)" || continue
    if [ "$Y" -ge 700 ] && [ "$WIDTH" -le 24 ] && [ "$HEIGHT" -le 24 ]; then
      echo "$w $((X + WIDTH / 2)) $((Y + HEIGHT / 2))"
      return 0
    fi
  done
  return 1
}

# Moves the pointer to a screen point ($1 $2) and waits until it is there;
# xdotool's own wait never ends when the pointer is there already.
e2e_pointer_to() {
  local X Y SCREEN WINDOW
  eval "$(xdotool getmouselocation --shell)"
  [ "$X $Y" = "$1 $2" ] || xdotool mousemove --sync "$1" "$2"
}

# True while the device window is on the screen.
e2e_window_shown() { xdotool search --onlyvisible --name '^Nautrix$' >/dev/null 2>&1; }

# True while a popup menu of the program is open: a visible window of its
# PID that the window manager does not frame (not a dialog) and taller than
# a tooltip. Prints its place, "x y".
e2e_menu_open() {
  local w WINDOW X Y WIDTH HEIGHT SCREEN
  for w in $(xdotool search --onlyvisible --all --pid "$E2E_APP" 2>/dev/null); do
    eval "$(xdotool getwindowgeometry --shell "$w" 2>/dev/null)" || continue
    [ "$HEIGHT" -gt 60 ] && xwininfo -id "$w" 2>/dev/null | grep -q 'Override Redirect State: yes' || continue
    echo "$X $Y"
    return 0
  done
  return 1
}
