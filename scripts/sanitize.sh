#!/usr/bin/env bash
# Builds the core and Qt tests with AddressSanitizer and UndefinedBehaviorSanitizer
# into build-sanitize/ and runs them (the X server tier is left to the normal
# build). Any report of a sanitizer fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh --tests
cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DNAUTRIX_SANITIZE=ON -DNAUTRIX_TESTS=ON -DNAUTRIX_BENCH=OFF >/dev/null
cmake --build build-sanitize -j "$(nproc)" --target nautrix_tests nautrix_qt_tests
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export LSAN_OPTIONS="suppressions=$PWD/tests/leak-suppressions.txt:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --test-dir build-sanitize --output-on-failure -j "$(nproc)" -LE e2e
