#!/bin/sh
# Prints how many instructions a frame of a case takes, by a tool that counts the same on every run.
# usage: count-instructions.sh <velmora_counted_frames> <case>
set -eu

count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$1" "$2" "$3" 2>&1 |
        sed -n 's/.*Collected : //p'
}

# The difference of two runs leaves the program's own start out.
few=$(count "$1" "$2" 10)
many=$(count "$1" "$2" 30)
echo $(((many - few) / 20))
