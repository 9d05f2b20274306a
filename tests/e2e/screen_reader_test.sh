#!/usr/bin/env bash
# The device as a screen reader reads it over the accessibility bus: a frame
# of a read-only readout and seven named keys; a key pressed by its action
# acts as under a click and the new readout is announced once, whole; a key
# held on the keyboard shows in the text; the turned case says so and hides
# its keys; every control of the dialogs has a name of its own, each leaflet
# page its number, title and print.
source "$(dirname "$0")/lib.sh"
app=$1
reader() { /usr/bin/python3 "$(dirname "$0")/screen_reader.py" "$E2E_APP" "$@"; }
e2e_setup
e2e_write_store
e2e_start_session_bus
/usr/libexec/at-spi-bus-launcher --launch-immediately 2>/dev/null &
E2E_PIDS+=($!)
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
e2e_start_app "$app"

tree() { reader tree >"$E2E_DIR/tree" && cat "$E2E_DIR/tree"; }
# True when a line of the tree, read afresh, matches $1.
tree_has() { tree | grep -E "$1" >/dev/null; }
# The readout's text, with "time" for the device clock's time of day (the
# computer's, as no offset is set): "h:mm AM".
clock() { date -d "-$1 sec" '+%-I:%M %p'; }
as_heard() { sed -E "s/(^|;)($(clock 0)|$(clock 8))(;|$)/\1time\3/g"; }
readout() { tree | awk -F'|' '$2 == "Time or score" {print $3}' | as_heard; }
readout_is() { [ "$(readout)" = "$1" ]; }
e2e_wait_for 10 readout_is time || e2e_fail "the readout reads '$(readout)', not the time"
e2e_expect_eq "$(tree | sed -n '2,10p' | cut -d'|' -f1-2,4 | tr '\n' ';')" \
  "frame|Nautrix|;text|Time or score|read-only;push button|GAME A|;push button|GAME B|;push button|TIME|;push button|ALARM|;push button|ACL|;push button|Walk back, set hour|;push button|Walk forward, set minute|;" \
  "the device's parts"

# ALARM, the hour key and TIME through their actions: the alarm is set to
# 1:00 PM and stored, and each readout is heard once.
heard=""
for key in ALARM "Walk back, set hour" TIME; do heard+="$(reader press "$key" | tr '\n' ';')"; done
e2e_expect_eq "$(as_heard <<<"$heard")" "12:00 PM;1:00 PM;time;" "heard"
e2e_expect_setting "Alarm Time" "010000 PM" "the alarm set through the keys' actions"

# TIME held on the keyboard shows the stored alarm until it comes up.
e2e_focus
xdotool keydown t
e2e_wait_for 3 readout_is "1:00 PM" || e2e_fail "TIME held reads '$(readout)'"
xdotool keyup t
e2e_wait_for 3 readout_is time || e2e_fail "TIME let go reads '$(readout)'"

# The back: said by the frame, the parts hidden, a key's action dead.
e2e_key b
e2e_wait_for 3 tree_has '^frame\|Nautrix\|\|\|The back of the device is shown' ||
  e2e_fail "the frame does not say its back is shown"
[ "$(grep -c '|invisible' "$E2E_DIR/tree")" = 8 ] || e2e_fail "parts shown on the back"
e2e_expect_eq "$(reader press "GAME A")" "" "GAME A pressed on the back"
e2e_key b

# Options: the bars by what they set, the sound options by their meaning.
e2e_key o
e2e_wait_for 5 tree_has '^dialog\|Nautrix Options' || e2e_fail "no Options dialog on the bus"
e2e_expect_eq "$(grep -E '^(scroll bar|radio button)' "$E2E_DIR/tree" | cut -d'|' -f2 | tr '\n' ';')" \
  "Game A speed;Game B speed;Diver scenes speed;Sound on;Sound off;" "the Options controls"
xdotool key Escape

# The leaflet: each page named and described with its print.
e2e_key i
e2e_wait_for 5 tree_has '^dialog\|Page 1: Cover\|\|\|.*LCD GAME WITH ALARM CLOCK' ||
  e2e_fail "the cover is not named and read: $(grep '^dialog' "$E2E_DIR/tree")"
xdotool key End
e2e_wait_for 5 tree_has '^dialog\|Page 9: Using keyboard\|\|\|.*Popup Menu = Enter Key' ||
  e2e_fail "the last page is not named and read: $(grep '^dialog' "$E2E_DIR/tree")"
xdotool key Escape

# About: the frame of thanks has a name, as every other control there.
xdotool mousemove --window "$E2E_WIN" 34 46 click 1
e2e_wait_for 5 tree_has '^dialog\|Nautrix Simulator' || e2e_fail "no About dialog on the bus"
unnamed=$(sed -n '/^dialog|Nautrix Simulator/,$p' "$E2E_DIR/tree" | awk -F'|' '$2 == ""')
e2e_expect_eq "$unnamed" "" "unnamed About controls"
e2e_expect_quiet "under a screen reader"
