#!/usr/bin/env bash
# The dialogs as a user meets them: a first run's leaflet, above, dragged,
# and closed by Esc; Home and Enter in Options store the slowest Game B;
# About, its frame centred and its title without minimise or maximise, has a
# mail link that reaches the desktop's opener as "mailto:", and a talkative
# opener puts no word on the terminal. (The pages, the dialogs centred, a
# minimised dialog brought back, the pressed link's colour, no opener at all,
# one Options however often O is pressed and no leaflet once the store is
# whole are the dialogs' and the core's start-up tests.)
source "$(dirname "$0")/lib.sh"
app=$1
e2e_setup
# The desktop's opener, first on the PATH, writes down what it was given
# and complains as one that finds no program for it.
mkdir "$E2E_DIR/bin"
printf '#!/bin/sh\necho "$*" >>"%s"\necho "no method available" >&2\nexit 3\n' "$E2E_DIR/opened" >"$E2E_DIR/bin/xdg-open"
chmod +x "$E2E_DIR/bin/xdg-open"
export PATH=$E2E_DIR/bin:$PATH
unset BROWSER DEFAULT_BROWSER

# The program's shown window of this size, if any.
window_of_size() { e2e_app_windows | awk -v size="$1" '!found && $4 "x" $5 == size {print $1; found = 1} END {exit !found}'; }

# True when the frame of the window $1 stands at the screen's centre, within
# a pixel.
frame_centred() {
  local x y w h l r t b
  read -r x y < <(e2e_window_position "$1")
  read -r w h < <(xwininfo -id "$1" | awk '/Width/ {w=$NF} /Height/ {h=$NF} END {print w, h}')
  read -r l r t b < <(xprop -id "$1" _NET_FRAME_EXTENTS | tr -d , | awk '{print $3, $4, $5, $6}')
  [ $(((2 * (x - l) + w + l + r - 1024) ** 2 <= 1 && (2 * (y - t) + h + t + b - 768) ** 2 <= 1)) = 1 ]
}

# --- The first run: the leaflet, above.
e2e_start_app "$app"
e2e_wait_for 5 window_of_size 413x250 || e2e_fail "no leaflet at the first run"
leaflet=$(window_of_size 413x250)
xprop -id "$leaflet" _NET_WM_STATE | grep -q _NET_WM_STATE_ABOVE || e2e_fail "the leaflet is not above"

# A drag moves the sheet by the pointer's way. (Its pages by the keys and
# the pointer are the dialogs' tests.)
xdotool windowactivate --sync "$leaflet" mousemove --window "$leaflet" 200 120
read -r x y < <(e2e_window_position "$leaflet")
xdotool mousedown 1 sleep 0.1 mousemove_relative 10 5 sleep 0.1 mousemove_relative 20 15 sleep 0.1 mouseup 1
e2e_expect_eq "$(e2e_window_position "$leaflet")" "$((x + 30)) $((y + 20))" "the leaflet's place after the drag"
xdotool key Escape
e2e_wait_for 3 ! xwininfo -id "$leaflet" || e2e_fail "Esc left the leaflet open"

# --- Options: the focus on the Game B bar; Home, then Enter for OK, held
# as a hand holds it. Its release, which comes to the device window, is no
# Enter of the device's: no popup menu opens.
e2e_key o
e2e_wait_for 3 xdotool search --onlyvisible --name '^Nautrix Options$' || e2e_fail "O opened no options"
options=$(xdotool search --onlyvisible --name '^Nautrix Options$' | head -n1)
xdotool windowactivate --sync "$options" key Home keydown Return sleep 0.3 keyup Return
e2e_wait_for 3 ! xwininfo -id "$options" || e2e_fail "Enter left the options open"
e2e_expect_setting 'Game B Speed' 441 "Game B Speed after Home and OK"
sleep 0.3
e2e_expect_eq "$(xdotool search --onlyvisible --pid "$E2E_APP" | wc -l)" 1 "windows shown after OK by Enter"

# --- About from the logo; the mail link, clicked.
xdotool mousemove --window "$E2E_WIN" --sync 30 45 click 1
e2e_wait_for 3 xdotool search --onlyvisible --name '^Nautrix Simulator$' || e2e_fail "the logo opened no About"
about=$(xdotool search --onlyvisible --name '^Nautrix Simulator$' | head -n1)
e2e_wait_for 10 frame_centred "$about" || e2e_fail "About's frame stands off the centre: client at $(e2e_window_position "$about"), frame $(xprop -id "$about" _NET_FRAME_EXTENTS)"
read -r -a hints < <(xprop -id "$about" _MOTIF_WM_HINTS | tr -d , | cut -d= -f2)
e2e_expect_eq "$(((hints[1] & 0x18) | (hints[2] & 0x60)))" 0 "About's wish for minimise and maximise"
read -r x y < <(e2e_window_position "$about")
xdotool mousemove --sync $((x + 123)) $((y + 40)) click 1
e2e_wait_for 3 grep -q '^mailto:.*@' "$E2E_DIR/opened" || e2e_fail "the mail link reached no opener"

e2e_stop_app
e2e_expect_quiet "with the dialogs"
