#!/usr/bin/env bash
# Builds Qt's Core, Gui, Widgets, PrintSupport and Test for Windows from Debian's own source, with
# the tools (moc, rcc, uic) of Debian's qt6-base-dev, which must be of the same version. Takes about
# an hour of a processor; done once, kept in PREFIX.
#   qt.sh WORK PREFIX
set -euo pipefail
here=$(dirname "$(realpath "$0")")
mkdir -p "$1" "$2"
work=$(realpath "$1") prefix=$(realpath "$2")
[ ! -e "$prefix/plugins/platforms/qwindows.dll" ] || exit 0
cd "$work"
ls -d qt6-base-*/ >/dev/null 2>&1 || apt-get source qt6-base
source=$(echo "$work"/qt6-base-*/)

# MinGW takes the word behind declarations only, not behind these definitions.
sed -i 's/) noexcept$/)/' "$source/src/gui/text/windows/qwindowsfontenginedirectwrite.cpp"

# Debian's source lacks Wintab, so tablet events are off; zlib, PNG, JPEG, FreeType, HarfBuzz, PCRE
# and the rest are still in it.
off=(network sql dbus xml concurrent vulkan tabletevent qmake androiddeployqt zstd glib icu
     system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2
     system_doubleconversion)
features=("${off[@]/#/-DFEATURE_}")
features=("${features[@]/%/=OFF}")
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -G Ninja -S "$source" -B qt-build -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_TOOLCHAIN_FILE="$here/mingw64.cmake" -DLM_WINDOWS_ROOT="$prefix" \
  -DCMAKE_INSTALL_PREFIX="$prefix" -DQT_HOST_PATH=/usr \
  -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no "${launcher[@]}" \
  "${features[@]}"
cmake --build qt-build
cmake --install qt-build --strip
