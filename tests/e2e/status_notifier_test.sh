#!/usr/bin/env bash
# The icon in a StatusNotifier tray, the kind on D-Bus that most current
# panels are: a host of the tests' own on a private session bus sees the item
# register with the tip "Nautrix"; its activation hides the device and a
# second shows it; its context request opens the menu; a host that restarts
# gets the item again.
source "$(dirname "$0")/lib.sh"
app=$1
host="$(dirname "$app")/nautrix_status_notifier_host"
[ -x "$host" ] || e2e_fail "no StatusNotifier host beside $app"
e2e_setup
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
hidden() { ! e2e_window_shown; }

start_host "$E2E_DIR/items"
e2e_start_app "$app"
e2e_wait_for 5 test -s "$E2E_DIR/items" || e2e_fail "the item did not register"
ITEM=$(head -n1 "$E2E_DIR/items")
dbus-send --session --print-reply --dest="$ITEM" /StatusNotifierItem \
  org.freedesktop.DBus.Properties.Get string:org.kde.StatusNotifierItem string:ToolTip |
  grep -q '"Nautrix"' || e2e_fail "the item's tip is not Nautrix"

item Activate
e2e_wait_for 3 hidden || e2e_fail "the activation did not hide the window"
item Activate
e2e_wait_for 3 e2e_window_shown || e2e_fail "a second activation did not show the window"

e2e_pointer_to 500 400
item ContextMenu
e2e_wait_for 3 e2e_menu_open || e2e_fail "the context request opened no menu"
xdotool key Escape
e2e_wait_for 3 eval '! e2e_menu_open' || e2e_fail "Escape did not close the menu"

kill "$HOST"
start_host "$E2E_DIR/items-again"
e2e_wait_for 5 test -s "$E2E_DIR/items-again" || e2e_fail "the item did not come back to a new host"
