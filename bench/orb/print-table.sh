#!/bin/sh
# Prints what a frame of the orb costs, of every look at every size and scale: microseconds,
# instructions, allocations, and the ratios to clearing the picture and to the reference's slow
# drawing.
# usage: print-table.sh <folder of the built benchmarks> [options of the benchmark]
set -eu

folder=$1
shift
here=$(dirname "$0")
counts=$(mktemp)
trap 'rm -f "$counts"' EXIT

if command -v valgrind >/dev/null; then
    "$folder/velmora_counted_frames" | while read -r name; do
        echo "$name $(sh "$here/count-instructions.sh" "$folder/velmora_counted_frames" "$name")"
    done >"$counts"
else
    echo "Instructions are left out: they are counted by valgrind, which is not installed." >&2
fi
VELMORA_ORB_INSTRUCTIONS=$counts \
    "$folder/velmora_orb_benchmark" --benchmark_counters_tabular=true "$@"
