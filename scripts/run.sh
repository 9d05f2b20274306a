#!/usr/bin/env bash
# Installs what is missing, builds, and starts the simulator.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
exec build/nautrix
