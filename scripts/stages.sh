# shellcheck shell=bash
# Doing things one after the other, saying what is done, how long it took and what went wrong.
# Read with `source` from the top folder.

logs=build/logs
summary=()
companion=()

say() {
    printf '%s\n' "$*"
}

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# stage SENTENCE NAME COMMAND… runs the command with its output in a log of that name. When it fails,
# the end of the log is shown and the script ends.
stage() {
    local sentence="$1" name="$2" start="$SECONDS" status=0
    shift 2
    mkdir -p "$logs"
    say "▸ $sentence …"
    "$@" >"$logs/$name.log" 2>&1 </dev/null || status=$?
    report "$sentence" "$name" "$start" "$status"
}

# beside SENTENCE NAME COMMAND… begins a stage that gives way to those that follow; `join` waits for it
# and says how it went. Whatever ends the script ends it too.
beside() {
    local sentence="$1" name="$2"
    shift 2
    mkdir -p "$logs"
    # A process group of its own can be ended with all that it started.
    set -m
    nice "$@" >"$logs/$name.log" 2>&1 </dev/null &
    set +m
    companion=("$sentence" "$name" "$SECONDS" "$!")
    # shellcheck disable=SC2064 # The group is known now.
    trap "kill -- -$! 2>/dev/null || true" EXIT
    say "▸ $sentence, beside what follows …"
}

join() {
    local status=0
    say "▸ ${companion[0]}, to its end …"
    wait "${companion[3]}" || status=$?
    trap - EXIT
    report "${companion[@]:0:3}" "$status"
}

# report SENTENCE NAME START STATUS says how a stage went that began at that second.
report() {
    local sentence="$1" name="$2" start="$3" status="$4"
    if [ "$status" -ne 0 ]; then
        tail -n 60 "$logs/$name.log"
        fail "This failed after $((SECONDS - start)) s: $sentence. Its whole output is in $logs/$name.log."
    fi
    say "  done in $((SECONDS - start)) s"
    summarise "$name"
}

# Keeps the lines with which a test runner closes.
summarise() {
    local line
    while IFS= read -r line; do
        summary+=("$1: $line")
    done < <(grep -E '^[0-9]+% tests passed|^=+ .*(passed|failed|error).* =+$' "$logs/$1.log" || true)
}
