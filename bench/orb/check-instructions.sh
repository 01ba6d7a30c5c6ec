#!/bin/sh
# Fails when a frame of the orb takes over 5 % more instructions than committed.
# usage: check-instructions.sh <velmora_counted_frames>
# Figures are of a RelWithDebInfo build by g++ 12 on x86-64.
set -eu

program=$1
here=$(dirname "$0")

status=0
while read -r name committed; do
    measured=$(sh "$here/count-instructions.sh" "$program" "$name")
    limit=$((committed + committed / 20))
    echo "$name: $measured instructions a frame, committed $committed, limit $limit"
    [ "$measured" -gt 0 ] && [ "$measured" -le "$limit" ] || status=1
done <"$here/instructions.txt"
exit $status
