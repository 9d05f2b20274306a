# Steps of the store's end-to-end tests, on top of lib.sh: several copies of
# the program at once, each known by a name.

expect_eq() {
  [ "$1" = "$2" ] || e2e_fail "$3: expected '$2', got '$1'"
}

# Starts a copy of the program ($app) and waits for its own window; sets
# ${1}_PID and ${1}_WIN.
store_start_copy() {
  e2e_start_app "$app"
  local win="" deadline=$((SECONDS + 15))
  until win=$(xdotool search --all --onlyvisible --pid "$E2E_APP" --name '^Nautrix$' 2>/dev/null | head -n1) &&
    [ -n "$win" ]; do
    [ $SECONDS -lt $deadline ] || e2e_fail "copy $1 has no window of its own"
    sleep 0.1
  done
  printf -v "${1}_PID" %s "$E2E_APP"
  printf -v "${1}_WIN" %s "$win"
}

# Types keys ($2...) into copy $1, one by one, and lets the last one act.
store_keys() {
  local win_var="${1}_WIN"
  local E2E_WIN=${!win_var}
  shift
  local key
  for key; do
    e2e_key "$key"
    sleep 0.1
  done
  sleep 0.3
}

# A fingerprint of a client-area rectangle ($2...: x y w h) of copy $1.
store_region() {
  local win_var="${1}_WIN"
  local E2E_WIN=${!win_var}
  shift
  e2e_region "$@"
}

# Ends copy $1 with signal $2 (TERM by default) and waits for it.
store_stop_copy() {
  local pid_var="${1}_PID"
  kill "-${2:-TERM}" "${!pid_var}" 2>/dev/null || true
  wait "${!pid_var}" 2>/dev/null || true
}
