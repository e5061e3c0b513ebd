#!/usr/bin/env bash
# Installs what building for Windows takes, from Debian 12 alone.
#   packages.sh          to build and test without the desktop
#   packages.sh qt       what Qt takes as well
set -euo pipefail
packages=(g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev libz-mingw-w64-dev wine wine64 zip
          cmake ninja-build ccache dpkg-dev nlohmann-json3-dev libgtest-dev
          python3 qpdf poppler-utils zbar-tools)
[ "${1:-}" != qt ] || packages+=(qt6-base-dev qt6-base-dev-tools fonts-liberation xvfb xauth imagemagick)
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
sources=/etc/apt/sources.list.d/ledgerminder-sources.sources
[ ${#missing[@]} -gt 0 ] || apt-cache showsrc pugixml >/dev/null 2>&1 || missing=(dpkg-dev)
[ ${#missing[@]} -gt 0 ] || exit 0

asroot=()
[ "$(id -u)" -eq 0 ] || asroot=(sudo)
grep -qs '^Types:.*deb-src' /etc/apt/sources.list.d/*.sources ||
  sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources |
  "${asroot[@]}" tee $sources >/dev/null
"${asroot[@]}" apt-get update -qq
"${asroot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
