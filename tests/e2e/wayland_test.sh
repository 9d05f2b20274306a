#!/usr/bin/env bash
# A Wayland session without a screen: weston's headless back end with
# XWayland. With no X server at all the program starts on Wayland itself: a
# 333 x 198 window "Nautrix" under the desktop id, drawn on (the colon
# blinks), nothing printed but the protocol log. With XWayland at hand the
# window is an X11 window and the program speaks no Wayland.
source "$(dirname "$0")/lib.sh"
app=$1

e2e_home
unset QT_QPA_PLATFORM DISPLAY
weston --backend=headless-backend.so --xwayland --socket=wayland-nautrix --idle-time=0 \
  >"$E2E_DIR/weston.log" 2>&1 &
E2E_PIDS+=($!)
e2e_wait_for 10 grep -q "xserver listening on display" "$E2E_DIR/weston.log" ||
  e2e_fail "weston did not start: $(tail -n 3 "$E2E_DIR/weston.log")"
export WAYLAND_DISPLAY=wayland-nautrix WAYLAND_DEBUG=client
x_display=$(sed -n 's/.*xserver listening on display \(:[0-9]*\).*/\1/p' "$E2E_DIR/weston.log")

# No X server: the native Wayland platform.
log=$E2E_DIR/native.log
setpriv --bounding-set -sys_time --inh-caps -sys_time "$app" 2>"$log" &
E2E_APP=$!
E2E_PIDS+=($E2E_APP)
e2e_wait_for 10 grep -q 'create_buffer(.*, 333, 198,' "$log" ||
  e2e_fail "no 333 x 198 window on Wayland: $(grep -v '^\[' "$log" | head -n 5)"
grep -q 'set_title("Nautrix")' "$log" || e2e_fail "the window is not titled Nautrix"
grep -q 'set_app_id("org.tickplaysim.Nautrix")' "$log" || e2e_fail "the window does not carry the desktop id"
first=$(grep -c 'wl_surface@[0-9]*\.commit' "$log")
sleep 2.5  # the frames of that time are counted
frames=$(($(grep -c 'wl_surface@[0-9]*\.commit' "$log") - first))
[ "$frames" -ge 2 ] || e2e_fail "$frames frames in 2.5 s: the device does not draw on"
e2e_alive "on Wayland"
e2e_stop_app
stray=$(grep -v '^\[' "$log" | grep -v '^ *$' || true)
[ -z "$stray" ] || e2e_fail "the program printed on Wayland: $stray"
echo "wayland: native window 333 x 198, $frames frames in 2.5 s, nothing printed"

# XWayland at hand: the program takes it.
export DISPLAY=$x_display
e2e_start_app "$app"  # its window found on the X server
sleep 1  # a second of running on XWayland
e2e_alive "on XWayland"
e2e_stop_app
e2e_expect_quiet "on XWayland (or spoke Wayland)"
