#!/usr/bin/env bash
# Builds the Debian package build/nautrix_<version>_<arch>.deb and checks it
# with lintian. The program is built anew in build/package/ with Debian's
# own compiler and linker flags (hardening included) and installed under
# /usr; dpkg-shlibdeps finds the packages of the libraries it links.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh --package

# CMake reads no CPPFLAGS: the preprocessor's flags (fortification) go with
# the compiler's.
eval "$(DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --export=sh)"
export CXXFLAGS="$CPPFLAGS $CXXFLAGS"
# The link to the program goes where Debian keeps its games, /usr/games.
cmake -S . -B build/package -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_INSTALL_BINDIR=games \
  -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON -DNAUTRIX_TESTS=OFF -DNAUTRIX_BENCH=OFF >/dev/null
cmake --build build/package -j "$(nproc)" --target nautrix nautrix_install_files
(cd build/package && cpack -B "$PWD/.." >/dev/null)
rm -rf build/_CPack_Packages

deb=$(ls -t build/nautrix_*.deb | head -n1)
echo "Built $deb"
# Errors and warnings fail the build; the rest is shown.
lintian --fail-on error,warning "$deb"
