#!/bin/bash
# Lets every fuzzer invent inputs for long: ./scripts/fuzz.sh [RUNS [PICTURES [TARGET…]]]
#
# RUNS executions (10 million unless told otherwise) of each target that reads text or reckons, and
# PICTURES (200,000) of the one that draws. The fuzzers come from: cmake --workflow --preset fuzz.
# What fails is kept beside them in build/fuzz/tests/fuzz.
set -euo pipefail
cd "$(dirname "$0")/../build/fuzz/tests/fuzz"
runs="${1:-10000000}" pictures="${2:-200000}"
targets=("${@:3}")
[ "${#targets[@]}" -gt 0 ] || targets=(clock defaults focus displays driver renderer)
export ASAN_OPTIONS="detect_leaks=1:strict_string_checks=1" UBSAN_OPTIONS="print_stacktrace=1"

for target in "${targets[@]}"; do
    number="$runs" longest=64 start="$SECONDS"
    case "$target" in
        defaults) longest=512 ;;
        renderer) number="$pictures" longest=700 ;;
    esac
    mkdir -p "found/$target"
    nice "./velmora_${target}_fuzzer" -runs="$number" -max_len="$longest" -timeout=30 -print_final_stats=1 \
        -artifact_prefix="$target-" -verbosity=0 "found/$target" \
        "../../../../tests/fuzz/corpus/$target" >"$target.log" 2>&1 </dev/null \
        || { tail -n 40 "$target.log"; exit 1; }
    done_runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$target.log")"
    [ "${done_runs:-0}" -ge "$number" ] || { tail -n 40 "$target.log"; exit 1; }
    printf '%s: %s executions in %s s, no finding\n' "$target" "$done_runs" "$((SECONDS - start))"
done
