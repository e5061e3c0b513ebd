#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests.
#   --clang   all but the desktop with clang, under the address and undefined behaviour sanitizers,
#             and the fuzz targets
#   --asan    everything with GCC under the same sanitizers
#   --windows the Windows programs, cross-built and run under Wine; the desktop too where Qt for
#             Windows was built before, or with a second --desktop
# With CI set in the environment, warnings of the compiler are errors, but for --asan.
set -euo pipefail
cd "$(dirname "$0")"

[ "${1:-}" != --windows ] || exec packaging/windows/test.sh "${@:2}"

preset=release
[ "${1:-}" = --asan ] && preset=asan
[ "${1:-}" = --clang ] && preset=fuzz

tools/install-packages.sh test
[ "$preset" != fuzz ] || tools/install-packages.sh clang
# Under the sanitizers GCC warns of what is not there, in the library's own headers.
strict=OFF
[ -z "${CI:-}" ] || [ "$preset" = asan ] || strict=ON
settings=(-DCMAKE_COMPILE_WARNING_AS_ERROR="$strict" -DLEDGERMINDER_TESTS=ON)
# Optimising for a minute of running would only take minutes here.
[ "$preset" != fuzz ] || settings+=(-DCMAKE_BUILD_TYPE=Debug)
cmake --preset "$preset" "${settings[@]}"
cmake --build --preset "$preset"
export QT_QPA_PLATFORM=offscreen
ctest --preset "$preset" --no-tests=error
