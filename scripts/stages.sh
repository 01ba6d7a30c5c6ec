# shellcheck shell=bash
# Doing things one after the other, saying what is done, how long it took and what went wrong.
# Read with `source` from the top folder.

logs=build/logs
summary=()

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
