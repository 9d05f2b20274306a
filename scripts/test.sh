#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the device core, the
# Qt shell under the offscreen platform, the whole program in a private X
# server (started by the tests themselves), and a short run of the wave
# decoder's fuzzer under the sanitizers, from a clang build of its own.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh --tests
scripts/build.sh --tests
CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DNAUTRIX_FUZZ=ON -DNAUTRIX_TESTS=OFF -DNAUTRIX_BENCH=OFF >/dev/null
cmake --build build-fuzz --target nautrix_wave_fuzz
ctest --test-dir build --output-on-failure -j "$(nproc)"
ctest --test-dir build-fuzz --output-on-failure
