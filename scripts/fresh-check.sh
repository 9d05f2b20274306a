#!/usr/bin/env bash
# Tries the README's two commands as a new user on a fresh Debian 12 would:
# builds a minimal Debian 12 with debootstrap from Debian's packages, clones
# this repository's committed HEAD into it, runs scripts/run.sh there against
# a private X server of this machine until the device window shows, and then
# scripts/test.sh. It takes many minutes, so it is not part of the CI run.
#
# Usage (as root): scripts/fresh-check.sh [--keep] [folder]
#   folder  a new folder for the work (default: one under /var/tmp); the new
#           system in its system/ is removed at the end unless --keep is given,
#           the logs (debootstrap.log, run.log, test.log) stay.
# The archive is the first Debian mirror of /etc/apt/sources.list*, or
# $FRESH_MIRROR. Prints the time of each step and a closing line
# "fresh check: passed" or "fresh check: failed at <step>".
set -euo pipefail

keep=false
if [ "${1:-}" = "--keep" ]; then keep=true; shift; fi
[ "$(id -u)" -eq 0 ] || { echo "fresh-check: run as root (debootstrap, chroot, mount)" >&2; exit 2; }
repo=$(cd "$(dirname "$0")/.." && pwd)
work=${1:-$(mktemp -d /var/tmp/nautrix-fresh.XXXXXX)}
mkdir -p "$work"
work=$(cd "$work" && pwd)
root=$work/system
mounts=()   # what this script mounted, unmounted in reverse order
xvfb=""     # the private X server's PID
app=""      # the PID (and process group) of a command in the new system
step="setting up"

unmount_all() {
  local i
  for ((i = ${#mounts[@]} - 1; i >= 0; i--)); do
    umount -R "${mounts[i]}" 2>/dev/null || umount -R -l "${mounts[i]}" 2>/dev/null || true
  done
  mounts=()
}

cleanup() {
  local status=$?
  [ -n "$app" ] && { kill -- -"$app" 2>/dev/null || true; wait "$app" 2>/dev/null || true; }
  [ -n "$xvfb" ] && { kill "$xvfb" 2>/dev/null || true; wait "$xvfb" 2>/dev/null || true; }
  unmount_all
  if [ $status -ne 0 ]; then echo "fresh check: failed at $step (logs in $work)"; fi
  if ! $keep && ! grep -q " $root/" /proc/mounts; then rm -rf --one-file-system "$root"; fi
  rm -f "$work/display"
}
trap cleanup EXIT

bind() {  # mounts like mount(8) and remembers the mount point
  mount "$@"
  mounts+=("${@: -1}")
}

elapsed() { printf '%dm%02ds' $(($1 / 60)) $(($1 % 60)); }

timed() {  # timed NAME COMMAND...: runs a step, prints its time
  step=$1
  shift
  local start=$SECONDS
  "$@"
  echo "$step: $(elapsed $((SECONDS - start)))"
}

# The first Debian archive (not the security one) the machine's apt reads.
debian_mirror() {
  local file
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -f "$file" ] || continue
    awk 'BEGIN {RS=""} /(^|\n)Suites:[^\n]* bookworm( |\n|$)/ {
           if (match($0, /(^|\n)URIs: *[^ \n]+/)) { u = substr($0, RSTART, RLENGTH); sub(/.*URIs: */, "", u); print u; exit }
         }' "$file"
  done
  cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null |
    awk '$1 == "deb" { i = 2; if ($i ~ /^\[/) while ($i !~ /\]$/) i++; if ($i ~ /^\[/ || $i ~ /\]$/) i++;
                       if ($(i + 1) == "bookworm") { print $i; exit } }'
}

host_tools() {
  local missing=() p
  for p in debootstrap xvfb xdotool x11-utils git; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

make_system() {
  local mirror=${FRESH_MIRROR:-$(debian_mirror | head -n1)}
  echo "mirror: ${mirror:=http://deb.debian.org/debian}"
  debootstrap --variant=minbase bookworm "$root" "$mirror" >"$work/debootstrap.log" 2>&1
  cp /etc/resolv.conf "$root/etc/resolv.conf"
  git clone --quiet "$repo" "$root/root/nautrix"
  git -C "$root/root/nautrix" checkout --quiet --detach "$(git -C "$repo" rev-parse HEAD)"
  echo "commit: $(git -C "$repo" log -1 --format='%h %s')"
  bind -t proc proc "$root/proc"
  bind -t sysfs sys "$root/sys"
  bind --rbind /dev "$root/dev"
  mount --make-rslave "$root/dev"
  mkdir -p "$root/run/user/0"
  chmod 700 "$root/run/user/0"
}

# Starts a command in the new system, in the environment of a fresh login and
# in a process group of its own; `app` is its PID.
start_in_system() {
  setsid chroot "$root" /usr/bin/env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    HOME=/root LANG=C.UTF-8 XDG_RUNTIME_DIR=/run/user/0 ${DISPLAY:+DISPLAY=$DISPLAY} \
    /bin/bash -c "cd /root/nautrix && exec $1" >"$2" 2>&1 &
  app=$!
}

run_until_window() {
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
  xvfb=$!
  local deadline=$((SECONDS + 10))
  until [ -s "$work/display" ]; do
    [ $SECONDS -lt $deadline ] || return 1
    sleep 0.1
  done
  export DISPLAY=":$(head -n1 "$work/display")"
  mkdir -p "$root/tmp/.X11-unix"
  bind --bind /tmp/.X11-unix "$root/tmp/.X11-unix"

  start_in_system scripts/run.sh "$work/run.log"
  # Installing and building on a fresh system takes a while.
  deadline=$((SECONDS + 3600))
  until xdotool search --onlyvisible --name '^Nautrix$' >/dev/null 2>&1; do
    kill -0 "$app" 2>/dev/null || { tail -n 20 "$work/run.log"; return 1; }
    [ $SECONDS -lt $deadline ] || return 1
    sleep 1
  done
  xwininfo -name Nautrix 2>/dev/null | awk '/Width|Height/ {printf "%s%s ", $1, $2} END {print ""}' || true
  sleep 2
  kill -0 "$app" || return 1  # still running with its window up
  kill -- -"$app"
  wait "$app" 2>/dev/null || true
  app=""
  kill "$xvfb"
  wait "$xvfb" 2>/dev/null || true
  xvfb=""
  unset DISPLAY
  # The tests start X servers of their own in the new system: they must not
  # see this machine's sockets.
  umount "$root/tmp/.X11-unix"
  unset 'mounts[${#mounts[@]}-1]'
}

run_tests() {
  start_in_system scripts/test.sh "$work/test.log"
  local status=0
  wait "$app" || status=$?
  app=""
  grep -E "tests passed|tests failed" "$work/test.log" | tail -n1 || tail -n 40 "$work/test.log"
  return $status
}

total=$SECONDS
timed "host tools" host_tools
timed "minimal Debian 12 made (debootstrap minbase)" make_system
timed "scripts/run.sh until the device window showed" run_until_window
timed "scripts/test.sh" run_tests
step="done"
echo "fresh check: passed in $(elapsed $((SECONDS - total)))"
