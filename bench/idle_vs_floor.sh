#!/usr/bin/env bash
# What the idle device costs against the floor, the least a Qt program that
# shows this clock can do (bench/floor_window.cpp). Both run in turn in one
# private X server with a window manager, an X11 tray and a private audio
# server, from a full store with the alarm armed (no first-run leaflet). For
# each: the time from the start to the first frame on the X server, the
# wake-ups a second of all its threads (their context switches, from /proc)
# and their CPU time over 20 s of the idle clock screen after 2 s of
# start-up, and the peak resident memory (VmHWM) at the end; the device
# also hidden in the tray. The two start STARTS times in turn for the first
# frame and run ROUNDS times in turn on the idle screen; the medians and
# their ratios are printed.
#
#   bench/idle_vs_floor.sh [BUILD_DIR]      (STARTS=9, ROUNDS=3 by default)
#
# The CPU time is each thread's run time in nanoseconds
# (/proc/PID/task/*/schedstat): /proc/PID/stat counts in 10 ms steps, a few
# steps in 20 s of idle. It is the program's own, whatever else the machine
# runs; the first frame is wall time, and the load average is printed with it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$root/build}" && pwd)
rounds=${ROUNDS:-3}
starts=${STARTS:-9}
idle_seconds=20
startup_seconds=2

cmake --build "$build" --target nautrix nautrix_floor nautrix_first_frame >/dev/null
device=$build/nautrix
floor=$build/bench/nautrix_floor
launcher=$build/bench/nautrix_first_frame

source "$root/tests/e2e/lib.sh"
e2e_setup
e2e_start_audio
e2e_start_tray
e2e_write_store
sed -i 's/^Alarm%20On=False/Alarm%20On=True/' "$(e2e_store)"

cpu_ns() { cat /proc/"$1"/task/*/schedstat 2>/dev/null | awk '{s += $1} END {printf "%d\n", s}'; }
# Every time a thread of the program was switched in: each is a wake-up.
switches() { cat /proc/"$1"/task/*/status 2>/dev/null | awk '/ctxt_switches/ {s += $2} END {print s}'; }
now_ns() { echo $((${EPOCHREALTIME/./} * 1000)); }

lines_at_least() { [ "$(wc -l <"$2")" -ge "$1" ]; }

# Starts a program and waits for its PID; the launcher is $launch_pid.
launch() {
  launch_out=$E2E_DIR/launch.out
  : >"$launch_out"
  "$launcher" 333x198 setpriv --bounding-set -sys_time --inh-caps -sys_time "$1" >"$launch_out" &
  launch_pid=$!
  e2e_wait_for 5 test -s "$launch_out" || e2e_fail "$1 did not start"
  app_pid=$(head -n1 "$launch_out")
}

stop() {
  kill "$app_pid"
  wait "$launch_pid" || true
}

# A start of a program: "first-frame-ms cpu-ms-by-then".
measure_start() {
  launch "$1"
  e2e_wait_for 35 lines_at_least 3 "$launch_out" || e2e_fail "no first frame from $1"
  stop
  local frame cpu
  frame=$(sed -n 2p "$launch_out") cpu=$(sed -n 3p "$launch_out")
  [ "$frame" -ge 0 ] || e2e_fail "no first frame from $1"
  echo "$frame $cpu"
}

# The idle screen after the start, with "hidden" as $2 in the tray (a double
# click on its icon): "idle-cpu-percent peak-rss-kB wake-ups-a-second".
measure_idle() {
  launch "$1"
  sleep "$startup_seconds"
  kill -0 "$app_pid" 2>/dev/null || e2e_fail "$1 ended at start"
  if [ "${2:-}" = hidden ]; then
    local icon
    E2E_APP=$app_pid
    e2e_wait_for 10 e2e_tray_icon || e2e_fail "no tray icon"
    icon=$(e2e_tray_icon)
    xdotool mousemove --sync ${icon#* } click --repeat 2 1
    e2e_wait_for 5 sh -c '! xdotool search --onlyvisible --name "^Nautrix\$"' || e2e_fail "not hidden"
    xdotool mousemove 500 300
    sleep 1
  fi
  local cpu0 t0 cpu1 t1 hwm w0 w1
  cpu0=$(cpu_ns "$app_pid") w0=$(switches "$app_pid") t0=$(now_ns)
  sleep "$idle_seconds"
  cpu1=$(cpu_ns "$app_pid") w1=$(switches "$app_pid") t1=$(now_ns)
  hwm=$(awk '/^VmHWM:/ {print $2}' /proc/"$app_pid"/status)
  stop
  awk -v c=$((cpu1 - cpu0)) -v t=$((t1 - t0)) -v m="$hwm" -v w=$((w1 - w0)) \
    'BEGIN {printf "%.4f %d %.2f\n", 100 * c / t, m, w * 1e9 / t}'
}

median() { sort -g | awk '{v[NR] = $1} END {print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2}'; }

echo "load average before: $(cut -d' ' -f1-3 /proc/loadavg) ($(nproc) cores)"
for name in floor device hidden; do
  : >"$E2E_DIR/$name.start"
  : >"$E2E_DIR/$name.idle"
done
for ((run = 1; run <= starts; run++)); do
  measure_start "$floor" >>"$E2E_DIR/floor.start"
  measure_start "$device" >>"$E2E_DIR/device.start"
done
printf 'first frame ms, CPU ms by then, floor: %s\n' "$(tr '\n' ' ' <"$E2E_DIR/floor.start")"
printf 'first frame ms, CPU ms by then, device: %s\n' "$(tr '\n' ' ' <"$E2E_DIR/device.start")"
for ((round = 1; round <= rounds; round++)); do
  measure_idle "$floor" >>"$E2E_DIR/floor.idle"
  measure_idle "$device" >>"$E2E_DIR/device.idle"
  measure_idle "$device" hidden >>"$E2E_DIR/hidden.idle"
  printf 'idle round %d: floor %s, device %s, hidden %s (CPU %% of a core, peak RSS kB, wake-ups/s)\n' \
    "$round" "$(tail -n1 "$E2E_DIR/floor.idle")" "$(tail -n1 "$E2E_DIR/device.idle")" \
    "$(tail -n1 "$E2E_DIR/hidden.idle")"
done
echo "load average after: $(cut -d' ' -f1-3 /proc/loadavg)"

column_median() { awk -v c="$2" '{print $c}' "$E2E_DIR/$1" | median; }
ff=$(column_median floor.start 1) df=$(column_median device.start 1)
fs=$(column_median floor.start 2) ds=$(column_median device.start 2)
fc=$(column_median floor.idle 1) dc=$(column_median device.idle 1)
fm=$(column_median floor.idle 2) dm=$(column_median device.idle 2)
fw=$(column_median floor.idle 3) dw=$(column_median device.idle 3)
hc=$(column_median hidden.idle 1) hw=$(column_median hidden.idle 3)
awk -v ff="$ff" -v df="$df" -v fs="$fs" -v ds="$ds" -v fc="$fc" -v dc="$dc" -v fm="$fm" -v dm="$dm" \
  -v fw="$fw" -v dw="$dw" -v hc="$hc" -v hw="$hw" -v starts="$starts" -v rounds="$rounds" 'BEGIN {
  printf "medians (%d starts, %d idle rounds)     floor    device\n", starts, rounds
  printf "idle wake-ups a second           %9.2f %9.2f   hidden in the tray %.2f\n", fw, dw, hw
  printf "idle CPU, %% of a core            %9.3f %9.3f   ratio %.2f, hidden %.3f\n", fc, dc, dc / fc, hc
  printf "peak RSS, MB                     %9.1f %9.1f   difference %+.1f MB\n", fm / 1024, dm / 1024, (dm - fm) / 1024
  printf "start to first frame, ms         %9d %9d   ratio %.2f\n", ff, df, df / ff
  printf "CPU to the first frame, ms       %9.1f %9.1f   ratio %.2f\n", fs, ds, ds / fs
}'
