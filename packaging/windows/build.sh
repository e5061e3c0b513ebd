#!/usr/bin/env bash
# Builds LedgerMinder for Windows on Debian 12 and packs it: build/windows/LedgerMinder-4.0.0-windows.zip.
#   build.sh [--tests] [--no-desktop]
# The libraries, Qt among them (about an hour, once), are kept in the folder that
# LEDGERMINDER_WINDOWS names, by default ~/.cache/ledgerminder-windows.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
source=$(realpath "$here/../..")
kept=${LEDGERMINDER_WINDOWS:-$HOME/.cache/ledgerminder-windows}
prefix=$kept/prefix
build=$source/build/windows
desktop=ON tests=OFF
for word; do
  case $word in
    --tests) tests=ON ;;
    --no-desktop) desktop=OFF build=$source/build/windows-cli ;;
    *) echo "build.sh [--tests] [--no-desktop]" >&2; exit 2 ;;
  esac
done

"$here/packages.sh" $([ $desktop = OFF ] || echo qt)
mkdir -p "$kept/wine"
export WINEPREFIX=$kept/wine WINEDEBUG=-all  # the build runs two of its own tools
"$here/libraries.sh" "$kept/work" "$prefix"
[ $desktop = OFF ] || "$here/qt.sh" "$kept/work" "$prefix"

cmake -G Ninja -S "$source" -B "$build" -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_TOOLCHAIN_FILE="$here/mingw64.cmake" -DLM_WINDOWS_ROOT="$prefix" \
  -DCMAKE_PREFIX_PATH="$prefix" -DQT_HOST_PATH=/usr \
  -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
  -Dnlohmann_json_DIR="$prefix/share/cmake/nlohmann_json" \
  -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a \
  -DLEDGERMINDER_DESKTOP=$desktop -DLEDGERMINDER_TESTS=$tests \
  -DCMAKE_COMPILE_WARNING_AS_ERROR="$([ -z "${CI:-}" ] && echo OFF || echo ON)"
cmake --build "$build"

# The folder as it stands on the user's disk.
out=$build/LedgerMinder
rm -rf "$out"
mkdir -p "$out"
cp "$build"/bin/ledgerminder*.exe "$source/LICENSE" "$out"
runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
cp "$runtime/libstdc++-6.dll" "$runtime/libgcc_s_seh-1.dll" \
  /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll "$out"
if [ $desktop = ON ]; then
  for library in Core Gui Widgets PrintSupport; do cp "$prefix/bin/Qt6$library.dll" "$out"; done
  for plugin in platforms/qwindows styles/qwindowsvistastyle; do
    mkdir -p "$out/$(dirname $plugin)"
    cp "$prefix/plugins/$plugin.dll" "$out/$plugin.dll"
  done
  mkdir -p "$out/Guide"
  cp -r "$source"/docs/{user-guide,templates,file-formats}.md "$source/docs/images" "$out/Guide"
fi
x86_64-w64-mingw32-strip "$out"/*.exe "$out"/*.dll
version=$(sed -n 's/^project(LedgerMinder VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")
archive=$build/LedgerMinder-$version-windows.zip
rm -f "$archive"
(cd "$build" && zip -qr9 "$archive" LedgerMinder)
echo "$archive ($(du -k "$archive" | cut -f1) KB)"
