#!/usr/bin/env bash
# Fails on C++ that clang-format 14 would write otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-packages.sh format
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format-14 --dry-run -Werror
echo "The code is formatted."
