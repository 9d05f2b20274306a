#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need, and
# only those that are missing. Usage: scripts/install-deps.sh [--tests|--package]
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  qt6-base-dev qt6-svg-dev qt6-qpa-plugins libqt6svg6 libxcb-xkb-dev libpulse-dev
  fonts-dejavu-core
)
if [ "${1:-}" = "--tests" ]; then
  packages+=(
    libgtest-dev libgmock-dev libbenchmark-dev
    xvfb openbox xdotool x11-utils x11-xserver-utils x11-xkb-utils imagemagick
    pulseaudio pulseaudio-utils sox util-linux procps libxcb-damage0-dev
    desktop-file-utils appstream groff-base weston xwayland qt6-wayland
    trayer dbus-daemon dbus-bin at-spi2-core python3-pyatspi libglib2.0-bin
    clang libclang-rt-14-dev
  )
fi
if [ "${1:-}" = "--package" ]; then
  packages+=(dpkg-dev file lintian)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo=sudo
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
