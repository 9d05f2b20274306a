#!/usr/bin/env bash
# The icon in a StatusNotifier tray, the kind on D-Bus that most current
# panels are: a host of the tests' own on a private session bus sees the item
# register with the tip "Nautrix"; its activation hides the device and a
# second shows it; the item's menu, as the host draws it, has the device's
# items and marks as they are when it opens, and its items act (Always on
# Top restacks the window, Exit ends the program and leaves the store
# whole); the host's context request is answered at once and opens the
# device's menu where the host said; a host that restarts gets the item
# again.
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
