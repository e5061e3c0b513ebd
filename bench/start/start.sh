#!/usr/bin/env bash
# How long the desktop takes to start, beside an empty Qt window in the same run: medians of
# alternating starts with 5,000 and 50,000 sessions, until the window is painted and takes input,
# from the launch of the program and from its main(). Under Xvfb: the offscreen platform has no
# display to reach, so that there an empty window is no measure of anything.
# Usage: start.sh BIN [STARTS], the folder of start_bench and empty_window
set -euo pipefail
bin=$(realpath "$1")
starts=${2:-21}
folder=$(mktemp -d)
coproc Xvfb (exec Xvfb -displayfd 1 -screen 0 1280x800x24 2>/dev/null)
trap 'kill "$Xvfb_PID"; rm -rf "$folder"' EXIT
read -r display <&"${Xvfb[0]}"
export DISPLAY=:$display QT_QPA_PLATFORM=xcb

sizes=(5000 50000)
for sessions in "${sizes[@]}"; do
  mkdir "$folder/$sessions"
  "$bin/start_bench" --make "$folder/$sessions" "$sessions"
done

launch() { LAUNCHED=$EPOCHREALTIME "$@" 2>/dev/null; }
median() { cut -d" " -f"$2" "$1" | sort -n | sed -n "$((starts / 2 + 1))p"; }

launch "$bin/empty_window" >/dev/null  # what the disk has to bring first
launch "$bin/start_bench" "$folder/5000" >/dev/null
for ((i = 0; i < starts; ++i)); do
  launch "$bin/empty_window" >>"$folder/empty"
  for sessions in "${sizes[@]}"; do
    launch "$bin/start_bench" "$folder/$sessions" >>"$folder/times$sessions"
  done
done

for field in 1 2; do
  [[ $field == 1 ]] && echo "From the launch:" || echo "From main():"
  empty=$(median "$folder/empty" $field)
  echo "  empty window: $empty ms"
  for sessions in "${sizes[@]}"; do
    time=$(median "$folder/times$sessions" $field)
    awk "BEGIN { printf \"  %d sessions: %.1f ms, %.2f times\\n\", $sessions, $time, $time / $empty }"
  done
done
