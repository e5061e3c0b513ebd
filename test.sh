#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests. --asan runs the tests without the desktop
# under the address and undefined behaviour sanitizers instead.
set -euo pipefail
cd "$(dirname "$0")"

preset=release
[ "${1:-}" = --asan ] && preset=asan

tools/install-packages.sh test
cmake --preset "$preset" -DLEDGERMINDER_TESTS=ON
cmake --build --preset "$preset"
export QT_QPA_PLATFORM=offscreen
ctest --preset "$preset" --no-tests=error
