#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the device core, the
# Qt shell under the offscreen platform, and the whole program in a private X
# server (started by the tests themselves).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh --tests
scripts/build.sh --tests
cd build
ctest --output-on-failure -j "$(nproc)"
