#!/usr/bin/env bash
# Installs what is missing, builds, and opens LedgerMinder. Without a display it does a demo month
# on the command line instead. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-packages.sh build
cmake --preset release -DLEDGERMINDER_TESTS=OFF >/dev/null
cmake --build --preset release

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || [ "$(uname)" = Darwin ]; then
  exec build/release/bin/ledgerminder "$@"
fi

demo=${LEDGERMINDER_DEMO:-$PWD/build/demo}
echo "There is no display here, so LedgerMinder does a demo month on the command line."
rm -rf "$demo"
exec build/release/bin/ledgerminder-cli demo "$demo"
