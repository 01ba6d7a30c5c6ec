#!/bin/sh
# Fails when a frame of the orb takes over 5 % more instructions than committed.
# usage: check-instructions.sh <velmora_counted_frames>
# Figures are of a RelWithDebInfo build by g++ 12 on x86-64.
set -eu

program=$1
figures=$(dirname "$0")/instructions.txt

count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" 2>&1 |
        sed -n 's/.*Collected : //p'
}

status=0
while read -r name look committed; do
    # The difference of two runs leaves the program's own start out.
    few=$(count 10 "$look")
    many=$(count 30 "$look")
    measured=$(((many - few) / 20))
    limit=$((committed + committed / 20))
    echo "$name: $measured instructions a frame, committed $committed, limit $limit"
    [ "$measured" -gt 0 ] && [ "$measured" -le "$limit" ] || status=1
done <"$figures"
exit $status
