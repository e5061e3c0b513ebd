#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests.
#   --asan    under the address and undefined behaviour sanitizers
#   --clang   builds all but the desktop with clang, and gives the fuzz targets their seeds
# With CI set in the environment, warnings of the compiler are errors, but for the sanitizers' build.
set -euo pipefail
cd "$(dirname "$0")"

preset=release
[ "${1:-}" = --asan ] && preset=asan
[ "${1:-}" = --clang ] && preset=fuzz

tools/install-packages.sh test
[ "$preset" != fuzz ] || tools/install-packages.sh clang
# Under the sanitizers GCC warns of what is not there, in the library's own headers.
strict=OFF
[ -z "${CI:-}" ] || [ "$preset" = asan ] || strict=ON
settings=(-DCMAKE_COMPILE_WARNING_AS_ERROR="$strict")
# Optimising for a few seconds of running would only take minutes here.
[ "$preset" = fuzz ] && settings+=(-DCMAKE_BUILD_TYPE=Debug) || settings+=(-DLEDGERMINDER_TESTS=ON)
cmake --preset "$preset" "${settings[@]}"
cmake --build --preset "$preset"

if [ "$preset" = fuzz ]; then
  for target in build/fuzz/bin/*_fuzzer; do
    subject=$(basename "$target" _fuzzer)
    "$target" -runs=0 "fuzz/corpus/$subject"
  done
  exit
fi
export QT_QPA_PLATFORM=offscreen
ctest --preset "$preset" --no-tests=error
