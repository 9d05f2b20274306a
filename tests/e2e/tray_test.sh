#!/usr/bin/env bash
# The tray and the popup menu as a user meets them, in a real X server with a
# real X11 tray: with no tray "&Hide" cannot be chosen, a tray that comes
# later gets the icon; a double click on the icon hides and shows the device,
# also one the window manager minimised; a right click on the case opens the
# menu at the pointer, Enter at the device when the pointer is elsewhere, the
# icon's at the right button's release; the letters choose; Always on Top
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

# Puts the pointer on the icon in the tray, and clicks it: xdotool's click
# arguments.
to_icon() {
  local icon
  icon=($(e2e_tray_icon)) || e2e_fail "no icon in the tray"
  e2e_pointer_to "${icon[1]}" "${icon[2]}"
}
click_icon() { to_icon && xdotool click "$@"; }
double_click_icon() { click_icon --repeat 2 --delay 80 1; }
# Opens the menu by Enter and chooses an item by its letter.
menu_enter() {
  e2e_key Return
  e2e_wait_for 3 e2e_menu_open || e2e_fail "Enter opened no menu"
  xdotool key "$1"
}
# Waits for the icon in a tray that has just started, until the tray has
# settled its strip: a user clicks the icon where it stays.
icon_steady() { local at; at=$(e2e_tray_icon) && sleep 0.3 && [ "$(e2e_tray_icon)" = "$at" ]; }
icon_docks() { e2e_wait_for 10 icon_steady || e2e_fail "$1"; }

# --- No tray: "&Hide" cannot be chosen from Enter's menu, which opens at the
#     device with the pointer away. A tray that comes later gets the icon.
e2e_pointer_to 700 500
menu_enter h
read -r x y < <(e2e_menu_open)
[ "$x" -lt 333 ] && [ "$y" -lt 198 ] || e2e_fail "Enter's menu opened at $x $y, away from the device"
sleep 0.3  # H, taken, hides the window at once
e2e_window_shown || e2e_fail "the window hid with no tray to come back from"
xdotool key Escape
e2e_wait_for 3 eval '! e2e_menu_open' || e2e_fail "Escape did not close the menu"
e2e_start_tray
icon_docks "no icon in a tray that came after start-up"

# --- A double click on the icon hides the device, a second shows it.
double_click_icon
e2e_wait_for 3 e2e_hidden || e2e_fail "a double click on the icon did not hide the window"
double_click_icon
e2e_wait_for 3 e2e_window_shown || e2e_fail "a second double click did not show the window"

# --- The window manager minimises the device: the icon's double click, and
#     the tray's menu's Hide, bring it back.
minimize() {
  xdotool windowminimize "$E2E_WIN"
  e2e_wait_for 3 e2e_hidden || e2e_fail "the window manager did not minimise the window"
}
minimize
double_click_icon
e2e_wait_for 3 e2e_window_shown || e2e_fail "a double click did not bring the minimised window back"
minimize
click_icon 3
e2e_wait_for 3 e2e_menu_open || e2e_fail "a right click on the icon opened no menu"
xdotool key h
e2e_wait_for 3 e2e_window_shown || e2e_fail "Hide did not bring the minimised window back"

# --- A right click on the case opens the menu at the pointer; T sets Always
#     on Top on the same window and stores it.
e2e_pointer_to 200 180
xdotool click 3
e2e_wait_for 3 e2e_menu_open || e2e_fail "a right click on the case opened no menu"
e2e_expect_eq "$(e2e_menu_open)" "200 180" "the right click's menu"
xdotool key t
e2e_wait_for 3 e2e_on_top || e2e_fail "Always on Top did not reach the window manager"
[ "$(xdotool search --onlyvisible --name '^Nautrix$')" = "$E2E_WIN" ] ||
  e2e_fail "Always on Top made a new window"
e2e_expect_setting 'Always on Top' True "Always on Top stored"

# --- H from Enter's menu hides the window; it comes back from the tray's
#     menu, still on top.
# The icon's menu opens at the right button's release, not at its press.
menu_enter h
e2e_wait_for 3 e2e_hidden || e2e_fail "Hide from the menu did not hide the window"
to_icon
xdotool mousedown 3
sleep 0.5  # the press held: a menu opened at the press would show by now
! e2e_menu_open >/dev/null || e2e_fail "the icon's menu opened at the right press"
xdotool mouseup 3
e2e_wait_for 3 e2e_menu_open || e2e_fail "a right click on the icon opened no menu"
xdotool key h
e2e_wait_for 3 e2e_window_shown || e2e_fail "Hide from the tray's menu did not show the window"
e2e_expect_eq "$(xdotool search --onlyvisible --name '^Nautrix$')" "$E2E_WIN" "the window after hiding"
e2e_on_top || e2e_fail "the window lost Always on Top across hiding"
e2e_expect_position "0 0" "the window across hiding"

# --- The tray restarts: the icon is back and works. A tray gone for good
#     brings the hidden window back.
e2e_stop_tray
e2e_start_tray
icon_docks "no icon after the tray restarted"
double_click_icon
e2e_wait_for 3 e2e_hidden || e2e_fail "the icon in the restarted tray did not hide the window"
e2e_stop_tray
e2e_wait_for 10 e2e_window_shown || e2e_fail "the window stayed hidden with no tray"
e2e_start_tray
icon_docks "no icon in the tray started again"

# --- The alarm brings the hidden window back. The device's clock goes to
#     12:00 PM, the alarm at 12:00 PM is armed, and the back of the device
#     holds the tick still until the window is hidden.
e2e_key r
e2e_key Left Left Left Left Left Left Left Left Left Left Left Left
e2e_key t a a b t
e2e_expect_setting 'Alarm On' True "the alarm armed"
double_click_icon
e2e_wait_for 3 e2e_hidden || e2e_fail "the window did not hide for the alarm"
click_icon 3
e2e_wait_for 3 e2e_menu_open || e2e_fail "no menu from the icon for the front"
xdotool key b
e2e_wait_for 3 e2e_window_shown || e2e_fail "the ringing alarm did not bring the window back"

# --- Exit: status 0, the store untouched.
e2e_expect_exit menu_enter e

# --- The next start is on top from the store.
e2e_start_app "$app"
e2e_wait_for 3 e2e_on_top || e2e_fail "the stored Always on Top did not stack the window at start-up"

# --- A StatusNotifier tray on the session bus, in place of the X11 tray.
e2e_stop_app
e2e_stop_tray
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
item() {
  dbus-send --session --type=method_call --dest="$ITEM" /StatusNotifierItem "org.kde.StatusNotifierItem.$1" \
    int32:500 int32:400
}

start_host "$E2E_DIR/items"
e2e_start_app "$app"
e2e_wait_for 5 test -s "$E2E_DIR/items" || e2e_fail "the item did not register"
ITEM=$(head -n1 "$E2E_DIR/items")
dbus-send --session --print-reply --dest="$ITEM" /StatusNotifierItem \
  org.freedesktop.DBus.Properties.Get string:org.kde.StatusNotifierItem string:ToolTip |
  grep -q '"Nautrix"' || e2e_fail "the item's tip is not Nautrix"

item Activate
e2e_wait_for 3 e2e_hidden || e2e_fail "the activation did not hide the window"
item Activate
e2e_wait_for 3 e2e_window_shown || e2e_fail "a second activation did not show the window"

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
click "Always on _Top"
e2e_wait_for 3 e2e_on_top || e2e_fail "Always on Top from the item's menu did not restack the window"

e2e_pointer_to 100 100
dbus-send --session --print-reply --reply-timeout=1000 --dest="$ITEM" /StatusNotifierItem \
  org.kde.StatusNotifierItem.ContextMenu int32:600 int32:300 >/dev/null ||
  e2e_fail "the context request was not answered at once"
e2e_wait_for 3 e2e_menu_open || e2e_fail "the context request opened no menu"
e2e_expect_eq "$(e2e_menu_open)" "600 300" "the context request's menu"
xdotool key Escape
e2e_wait_for 3 eval '! e2e_menu_open' || e2e_fail "Escape did not close the menu"

kill "$HOST" && wait "$HOST" 2>/dev/null || true  # a new host takes the name once it is free
start_host "$E2E_DIR/items-again"
e2e_wait_for 5 test -s "$E2E_DIR/items-again" || e2e_fail "the item did not come back to a new host"

e2e_expect_exit click "_Exit"
