#!/usr/bin/env bash
# Builds the libraries that the Windows programs are linked with, all but Qt, from Debian's sources.
#   libraries.sh WORK PREFIX
set -euo pipefail
here=$(dirname "$(realpath "$0")")
mkdir -p "$1" "$2/include" "$2/lib" "$2/share/cmake"
work=$(realpath "$1") prefix=$(realpath "$2")
tool=x86_64-w64-mingw32

build() {  # build SOURCE NAME OPTION...
  local source=$1 name=$2
  shift 2
  cmake -G Ninja -S "$source" -B "$work/$name" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$here/mingw64.cmake" -DLM_WINDOWS_ROOT="$prefix" \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@"
  cmake --build "$work/$name" --target install
}

# Only headers: the host's package serves, but not from /usr, whose other headers would come too.
cp -r /usr/include/nlohmann "$prefix/include/"
cp -r /usr/share/cmake/nlohmann_json "$prefix/share/cmake/"

cd "$work"
for source in pugixml libdeflate; do
  ls -d $source-*/ >/dev/null 2>&1 || apt-get source $source
done
build "$(echo "$work"/pugixml-*/)" pugixml-build
build /usr/src/googletest gtest-build -DBUILD_GMOCK=OFF
make -C "$(echo "$work"/libdeflate-*/)" CC=$tool-gcc-posix AR=$tool-ar libdeflatestatic.lib
cp "$work"/libdeflate-*/libdeflatestatic.lib "$prefix/lib/libdeflate.a"
cp "$work"/libdeflate-*/libdeflate.h "$prefix/include/"
