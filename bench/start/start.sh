#!/usr/bin/env bash
# How long the desktop takes to start, as a ratio to an empty Qt window in the same run: medians of
# alternating starts, with 5,000 and with 50,000 sessions, from main() until the window is painted
# and takes input. Under Xvfb, whose platform costs both sides the same; the offscreen platform has
# no display to reach, so that an empty window there is no measure of anything.
# Usage: start.sh START_BENCH [STARTS]
set -euo pipefail
bench=$(realpath "$1")
starts=${2:-21}
folder=$(mktemp -d)
coproc Xvfb (exec Xvfb -displayfd 1 -screen 0 1280x800x24 2>/dev/null)
trap 'kill "$Xvfb_PID"; rm -rf "$folder"' EXIT
read -r display <&"${Xvfb[0]}"
export DISPLAY=:$display QT_QPA_PLATFORM=xcb

sizes=(5000 50000)
for sessions in "${sizes[@]}"; do
  mkdir "$folder/$sessions"
  "$bench" --make "$folder/$sessions" "$sessions"
done

usable() { "$bench" "$1" 2>/dev/null | sed -E 's/.* ([0-9.]+) ms$/\1/'; }
median() { sort -n "$1" | sed -n "$((starts / 2 + 1))p"; }

usable --empty >/dev/null  # what the disk has to bring first
for ((i = 0; i < starts; ++i)); do
  usable --empty >>"$folder/empty"
  for sessions in "${sizes[@]}"; do usable "$folder/$sessions" >>"$folder/times$sessions"; done
done

empty=$(median "$folder/empty")
echo "empty window: $empty ms"
for sessions in "${sizes[@]}"; do
  time=$(median "$folder/times$sessions")
  echo "$sessions sessions: $time ms, $(awk "BEGIN { printf \"%.2f\", $time / $empty }") times as long"
done
