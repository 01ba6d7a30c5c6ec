#!/bin/bash
# Proves that a built program carries the compiler's and the linker's protections:
# packaging/check-hardening.sh PROGRAM
#
# shellcheck disable=SC2016,SC2317 # patterns hold dollars, and the questions are asked by `holds`
set -euo pipefail
program="$1"
failures=0

# holds SENTENCE COMMAND… says whether the command succeeds.
holds() {
    local sentence="$1"
    shift
    if "$@" >/dev/null; then
        printf 'yes  %s\n' "$sentence"
    else
        printf 'NO   %s\n' "$sentence"
        failures=$((failures + 1))
    fi
}
header() { readelf --file-header --wide "$program" | grep -E "$1"; }
segments() { readelf --program-headers --wide "$program" | grep -E "$1"; }
dynamic() { readelf --dynamic --wide "$program" | grep -E "$1"; }
wants() { nm --dynamic --undefined-only "$program" | grep -E " U ($1)(@|$)"; }
code() { objdump --disassemble --no-show-raw-insn "$program" | grep -E "$1"; }
# at_least NUMBER COMMAND…
at_least() {
    local found
    found="$("${@:2}" | wc -l)"
    [ "$found" -ge "$1" ]
}
no() { ! "$@"; }

holds "position-independent (PIE)" header 'Position-Independent Executable'
holds "relocations read-only after start (RELRO)" segments 'GNU_RELRO'
holds "and all of them, because everything is bound at start (BIND_NOW)" dynamic 'FLAGS.*NOW'
holds "no memory that can be written and executed" no segments 'LOAD.* RWE|GNU_STACK.* RWE'
holds "no writing into code at start (TEXTREL)" no dynamic 'TEXTREL'
holds "no library path of its own (RPATH, RUNPATH)" no dynamic 'RPATH|RUNPATH'
holds "stack protector" wants '__stack_chk_fail'
holds "checked library calls (_FORTIFY_SOURCE)" wants '__(mem|str|s|sn|v|f|read|p)[a-z]*_chk'
holds "no shell: neither system nor popen" no wants 'system|popen|wordexp'
case "$(uname -m)" in
    x86_64)
        holds "large frames are probed page by page (stack clash)" \
            code 'or[ql] +\$0x0,(0x[0-9a-f]+)?\(%rsp'
        # Whether the file is marked depends on the C library's start files; the code is ours.
        holds "functions begin with a landing pad (CET)" at_least 500 code 'endbr64'
        ;;
esac
exit "$((failures > 0))"
