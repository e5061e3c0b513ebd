#!/usr/bin/env bash
# Installs the Debian packages that are missing. Usage: install-packages.sh build|test|clang|format
set -euo pipefail

packages=(g++ cmake ninja-build ccache git ca-certificates
          qt6-base-dev libgl-dev nlohmann-json3-dev zlib1g-dev libdeflate-dev libpugixml-dev libcurl4-openssl-dev
          fonts-liberation fonts-dejavu-core)
case "${1:-build}" in
  test) packages+=(libgtest-dev libical-dev python3 qpdf poppler-utils zbar-tools
                   default-jre-headless libpdfbox2-java libactivation-java libjaxb-api-java
                   desktop-file-utils appstream shared-mime-info libxml2-utils man-db groff-base) ;;
  clang) packages+=(clang libclang-rt-14-dev) ;;
  format) packages=(git clang-format-14) ;;
esac

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

asroot=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "These packages are missing and sudo is not there to install them: ${missing[*]}" >&2; exit 1; }
  asroot=(sudo)
fi
echo "Installing: ${missing[*]}"
"${asroot[@]}" apt-get update -qq
"${asroot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
