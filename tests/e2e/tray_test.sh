#!/usr/bin/env bash
# The tray and the popup menu as a user meets them, in a real X server with a
# real X11 tray: with no tray "&Hide" cannot be chosen, a tray that comes
# later gets the icon; a double click on the icon hides and shows the device,
# also one the window manager minimised; a right click on the case opens the
# menu at the pointer, the icon's at the right button's release (Enter's at
# the device is the menu test's); the letters choose; Always on Top
# restacks the one window, which lives on across hiding; the tray restarting
# gets the icon back, a tray gone for good brings the window back; the alarm
# brings a hidden window back; "&Exit" ends with status 0 and leaves the store
# as it was; the next start is on top. The icon in a StatusNotifier tray, the
# kind on D-Bus that most current panels are: a host of the tests' own on a
# private session bus sees the item register with the tip "Nautrix"; its
# activation hides the device and a second shows it; the item's menu, as the
# host draws it, has the device's items and marks as they are when it opens,
# and its items act (Always on Top restacks the window, Exit ends the program
# and leaves the store whole); the host's context request is answered at
# once and opens the device's menu where the host said; a host that restarts
# gets the item again.
source "$(dirname "$0")/lib.sh"
app=$1
host="$(dirname "$app")/nautrix_status_notifier_host"
[ -x "$host" ] || e2e_fail "no StatusNotifier host beside $app"
e2e_setup
e2e_write_store
e2e_start_app "$app"

# True while the device window is on the screen, or the window manager keeps
# it above the others, or it is the one window named Nautrix shown.
shown() { xdotool search --onlyvisible --name '^Nautrix$' >/dev/null 2>&1; }
on_top() { xprop -id "$E2E_WIN" _NET_WM_STATE | grep -q _NET_WM_STATE_ABOVE; }
the_window() { [ "$(xdotool search --onlyvisible --name '^Nautrix$')" = "$E2E_WIN" ]; }
# True while a popup menu of the program is open: a visible window of its
# PID that the window manager does not frame (not a dialog) and taller than
# a tooltip. Prints its place, "x y".
menu_open() {
  local w x y width height
  while read -r w x y width height; do
    [ "$height" -gt 60 ] && xwininfo -id "$w" | grep -q 'Override Redirect State: yes' && echo "$x $y" && return 0
  done < <(e2e_app_windows)
  return 1
}
# An X11 system tray at the bottom right of the screen. A tray that is
# stopped has given up its selection when stop_tray ends, so that the next
# tray can take it.
start_tray() {
  trayer --edge bottom --align right --widthtype pixel --width 100 --heighttype pixel --height 24 >/dev/null 2>&1 &
  TRAY=$!
  E2E_PIDS+=($TRAY)
}
stop_tray() { kill "$TRAY" && wait "$TRAY" 2>/dev/null || true; }
# The program's icon docked in the tray: a small window of its PID in the
# tray's strip. Prints its window and centre, "id x y"; fails with no icon.
tray_icon() {
  e2e_app_windows | awk '!found && $3 >= 700 && $4 <= 24 && $5 <= 24 {print $1, $2 + int($4 / 2), $3 + int($5 / 2); found = 1}
    END {exit !found}'
}
# The icon in a tray that has just started, once the tray has settled its
# strip: a user clicks the icon where it stays.
icon_steady() { local at; at=$(tray_icon) && sleep 0.3 && [ "$(tray_icon)" = "$at" ]; }
# Moves the pointer to a screen point ($1 $2) and waits until it is there;
# xdotool's own wait never ends when the pointer is there already.
pointer_to() {
  local X Y SCREEN WINDOW
  eval "$(xdotool getmouselocation --shell)"
  [ "$X $Y" = "$1 $2" ] || xdotool mousemove --sync "$1" "$2"
}
# Puts the pointer on the icon in the tray, and clicks it: xdotool's click
# arguments.
to_icon() {
  local icon
  icon=($(tray_icon)) || e2e_fail "no icon in the tray"
  pointer_to "${icon[1]}" "${icon[2]}"
}
click_icon() { to_icon && xdotool click "$@"; }
double_click_icon() { click_icon --repeat 2 --delay 80 1; }
# Opens the menu by Enter and chooses an item by its letter.
menu_enter() { { e2e_key Return && e2e_wait_for 3 menu_open; } || e2e_fail "Enter opened no menu"; xdotool key "$1"; }
# Runs the command $@ that chooses "&Exit" and waits for the program's end:
# status 0, and the store as it was before.
expect_exit() {
  local status=0 before
  before=$(md5sum "$(e2e_store)")
  "$@"
  wait "$E2E_APP" || status=$?
  [ "$status" = 0 ] || e2e_fail "$* ended the program with status $status"
  [ "$(md5sum "$(e2e_store)")" = "$before" ] || e2e_fail "$* wrote the store"
}
# Plays the steps on standard input, one a line: an action, what comes to
# hold within 10 s of it, and what went wrong when either fails.
steps() {
  local act check what
  while IFS='|' read -r act check what; do
    eval "$act" </dev/null && e2e_wait_for 10 eval "$check" || e2e_fail "$what"
  done
}

# --- No tray: "&Hide" cannot be chosen from Enter's menu. A tray that comes
#     later gets the icon.
pointer_to 700 500
menu_enter h
sleep 0.3  # H, taken, hides the window at once
shown || e2e_fail "the window hid with no tray to come back from"
steps <<'STEPS'
xdotool key Escape|! menu_open|Escape did not close the menu
e2e_key Menu|menu_open|the Menu key opened no menu
xdotool key Escape|! menu_open|Escape did not close the Menu key's menu
e2e_key shift+F10|menu_open|Shift+F10 opened no menu
xdotool key Escape|! menu_open|Escape did not close the menu of Shift+F10
start_tray|icon_steady|no icon in a tray that came after start-up
double_click_icon|! shown|a double click on the icon did not hide the window
double_click_icon|shown|a second double click did not show the window
xdotool windowminimize "$E2E_WIN"|! shown|the window manager did not minimise the window
double_click_icon|shown|a double click did not bring the minimised window back
xdotool windowminimize "$E2E_WIN"|! shown|the window manager did not minimise the window again
click_icon 3|menu_open|a right click on the icon opened no menu
xdotool key h|shown|Hide from the icon's menu did not bring the minimised window back
pointer_to 200 180; xdotool click 3|[ "$(menu_open)" = "200 180" ]|a right click on the case opened no menu at the pointer
xdotool key t|on_top && the_window|Always on Top did not restack the one window
menu_enter h|! shown|Hide from the menu did not hide the window
STEPS
e2e_expect_setting 'Always on Top' True "Always on Top stored"

# --- The icon's menu opens at the right button's release, not at its press;
#     its Hide shows the one window, still on top and in place.
to_icon
xdotool mousedown 3
sleep 0.5  # the press held: a menu opened at the press would show by now
! menu_open >/dev/null || e2e_fail "the icon's menu opened at the right press"
steps <<'STEPS'
xdotool mouseup 3|menu_open|the right release on the icon opened no menu
xdotool key h|shown && the_window && on_top|Hide from the tray's menu did not show the one window on top
STEPS
e2e_expect_position "0 0" "the window across hiding"

# --- The tray restarts: the icon is back and works. A tray gone for good
#     brings the hidden window back.
steps <<'STEPS'
stop_tray; start_tray|icon_steady|no icon after the tray restarted
double_click_icon|! shown|the icon in the restarted tray did not hide the window
stop_tray|shown|the window stayed hidden with no tray
start_tray|icon_steady|no icon in the tray started again
STEPS

# --- The alarm brings the hidden window back. The device's clock goes to
#     12:00 PM, the alarm at 12:00 PM is armed, and the back of the device
#     holds the tick still until the window is hidden.
e2e_key r
e2e_key Left Left Left Left Left Left Left Left Left Left Left Left
e2e_key t a a b t
e2e_expect_setting 'Alarm On' True "the alarm armed"
steps <<'STEPS'
double_click_icon|! shown|the window did not hide for the alarm
click_icon 3|menu_open|no menu from the icon for the front
xdotool key b|shown|the ringing alarm did not bring the window back
STEPS

# --- Exit: status 0, the store untouched. The next start is on top from the
#     store.
expect_exit menu_enter e
e2e_start_app "$app"
e2e_wait_for 3 on_top || e2e_fail "the stored Always on Top did not stack the window at start-up"

# --- A StatusNotifier tray on the session bus, in place of the X11 tray.
e2e_stop_app
stop_tray
e2e_write_store
e2e_start_session_bus

# The host prints the bus name of each item that registers, into $1.
start_host() {
  "$host" >"$1" &
  HOST=$!
  E2E_PIDS+=($HOST)
  e2e_wait_for 10 dbus-send --session --print-reply --dest=org.freedesktop.DBus / \
    org.freedesktop.DBus.GetNameOwner string:org.kde.StatusNotifierWatcher ||
    e2e_fail "the host did not take the watcher's name"
}
# Calls the item's method $1 at the screen point 600 300; $2... are
# dbus-send's options.
item() {
  dbus-send --session --type=method_call "${@:2}" --dest="$ITEM" /StatusNotifierItem "org.kde.StatusNotifierItem.$1" int32:600 int32:300
}

start_host "$E2E_DIR/items"
e2e_start_app "$app"
e2e_wait_for 5 test -s "$E2E_DIR/items" || e2e_fail "the item did not register"
ITEM=$(head -n1 "$E2E_DIR/items")
dbus-send --session --print-reply --dest="$ITEM" /StatusNotifierItem \
  org.freedesktop.DBus.Properties.Get string:org.kde.StatusNotifierItem string:ToolTip |
  grep -q '"Nautrix"' || e2e_fail "the item's tip is not Nautrix"
steps <<'STEPS'
item Activate|! shown|the activation did not hide the window
item Activate|shown|a second activation did not show the window
STEPS

# The menu as the host shows it, after telling the item it is about to:
# "ID<tab>caption", a "+" after a checked one, a "!" before one not offered.
menu() {
  gdbus call --session --dest "$ITEM" --object-path /MenuBar \
    --method com.canonical.dbusmenu.AboutToShow 0 >/dev/null
  gdbus call --session --dest "$ITEM" --object-path /MenuBar \
    --method com.canonical.dbusmenu.GetLayout -- 0 -1 '[]' | grep -o "<([0-9]*, {[^}]*}" |
    sed -E "s/'type': <'separator'>/'label': <'-'>/" |
    awk '{ label = $0; sub(/.*.label.: <./, "", label); sub(/.>.*/, "", label)
           id = $1; sub(/<\(/, "", id); sub(/,/, "", id)
           print id "\t" (/enabled.: <false>/ ? "!" : "") label (/toggle-state.: <1>/ ? "+" : "") }'
}
click() {
  local id
  id=$(menu | awk -F '\t' -v c="$1" '$2 ~ "^" c { print $1 }')
  gdbus call --session --dest "$ITEM" --object-path /MenuBar \
    --method com.canonical.dbusmenu.Event -- "$id" clicked '<0>' 0 >/dev/null
}
e2e_expect_eq "$(menu | cut -f2 | paste -sd,)" \
  "_Hide,_Sound+,A_uto Show+,Always on _Top,_Back,-,_Options...,_Instructions...,_About...,-,_Exit" \
  "the item's menu"
e2e_key s b
e2e_expect_eq "$(menu | cut -f2 | head -n 5 | paste -sd,)" "_Hide,_Sound,A_uto Show+,Always on _Top,_Back+" \
  "the marks after S and B"
# The host's context request is answered at once (within a second).
steps <<'STEPS'
click "Always on _Top"|on_top|Always on Top from the item's menu did not restack the window
pointer_to 100 100; item ContextMenu --print-reply --reply-timeout=1000 >/dev/null|[ "$(menu_open)" = "600 300" ]|the context request was not answered at once with a menu at 600 300
xdotool key Escape|! menu_open|Escape did not close the menu
STEPS

kill "$HOST" && wait "$HOST" 2>/dev/null || true  # a new host takes the name once it is free
start_host "$E2E_DIR/items-again"
e2e_wait_for 5 test -s "$E2E_DIR/items-again" || e2e_fail "the item did not come back to a new host"
expect_exit click "_Exit"
