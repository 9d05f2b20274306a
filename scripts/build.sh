#!/usr/bin/env bash
# Configures and builds into build/. Usage: scripts/build.sh [--tests]
# Without --tests it builds the program alone; with --tests it asks for the
# tests and the benchmarks and builds everything.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "${1:-}" = "--tests" ]; then
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DNAUTRIX_TESTS=ON -DNAUTRIX_BENCH=ON >/dev/null
  cmake --build build -j "$(nproc)"
else
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build build -j "$(nproc)" --target nautrix
fi
