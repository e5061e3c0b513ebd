#!/usr/bin/env bash
# Builds for Windows and runs the tests under Wine: without a desktop, unless Qt was built already or
# --desktop asks for it.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
source=$(realpath "$here/../..")
kept=${LEDGERMINDER_WINDOWS:-$HOME/.cache/ledgerminder-windows}
prefix=$kept/prefix
options=(--tests --no-desktop) build=$source/build/windows-cli
if [ "${1:-}" = --desktop ] || { [ "${1:-}" != --no-desktop ] && [ -e "$prefix/bin/Qt6Widgets.dll" ]; }; then
  options=(--tests) build=$source/build/windows
fi
"$here/build.sh" "${options[@]}"

runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
export WINEPREFIX=$kept/wine WINEDEBUG=-all
export WINEPATH="Z:$runtime;Z:/usr/x86_64-w64-mingw32/lib;Z:$prefix/bin"
wineserver=/usr/lib/wine/wineserver64
$wineserver -p  # stays, so that not every test starts it anew

# Wine does not pass pipes on to a server that a test would start.
coproc web { exec python3 "$source/tests/shell/webserver.py"; }
read -r -u "${web[0]}" first
[[ $first == *' '* ]] || { read -r -u "${web[0]}" second; first="$first $second"; }
export LEDGERMINDER_WEBSERVER=$first
ended() {
  kill "$web_PID" 2>/dev/null || true
  $wineserver -k || true
}
trap ended EXIT

screen=()
if [[ " ${options[*]} " != *" --no-desktop "* ]]; then
  export QT_PLUGIN_PATH="Z:$prefix/plugins"
  screen=(xvfb-run -a -s '-screen 0 1280x900x24')
fi
"${screen[@]}" ctest --test-dir "$build" --output-on-failure --no-tests=error
