#!/bin/bash
# Checks the types of the macOS adapters on a machine that is no Mac: type-check.sh adapters|controls
#
# The compiler takes them for a Mac's, with either of its processors, against the project's own
# declarations of the interfaces that they use. Nothing is linked or run, and the declarations are only as right as their authors read
# the documentation. The controls are small files of which all but those marked as accepted must be
# refused, each for its own reason: they show that the check can fail.
set -euo pipefail
cd "$(dirname "$0")/../.."

clang="$(command -v clang++ || true)"
if [ -z "$clang" ]; then
    echo "There is no clang++ here, so nothing was checked."
    exit 77
fi

warnings=(
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wformat=2 -Wundef
    -Wno-missing-field-initializers
    -Wunguarded-availability -Wundeclared-selector -Wobjc-method-access -Werror
)

processors=(x86_64 arm64)

# The standard library is this machine's own. Its headers expect what the compiler defines for this
# machine and not for a Mac, and must be free to use a name that it defines for a Mac alone. What
# they ask of this machine's processor the other does not have, and nothing is run.
library=(-nostdinc++ -D_GNU_SOURCE -U__nonnull "-D__$(uname -m)__=1")
while read -r folder; do
    library+=(-isystem "$folder")
done < <("$clang" -v -E -x c++ /dev/null 2>&1 >/dev/null \
    | sed -n '/^#include <...> search starts here/,/^End of search list/s/^ //p')

# check FILE PROCESSOR
check() {
    local here=()
    [ "$2" = x86_64 ] || here=("-D__builtin_ia32_pause()=static_cast<void>(0)")
    "$clang" -target "$2-apple-macos12" -x objective-c++ -std=c++20 -fno-objc-arc -fsyntax-only \
        "${warnings[@]}" -I . -isystem tests/macos/declarations "${library[@]}" "${here[@]}" "$1"
}

check_adapters() {
    local file processor built found status=0
    built="$(grep -o '[A-Za-z]*\.mm' Velmora/platform/macos/CMakeLists.txt | sort)"
    found="$(find Velmora/platform/macos -name '*.mm' -printf '%f\n' | sort)"
    if [ "$built" != "$found" ]; then
        echo "The build does not list exactly the adapters that are there."
        status=1
    fi
    for processor in "${processors[@]}"; do
        for file in Velmora/platform/macos/*.mm; do
            if check "$file" "$processor"; then echo "agrees: $file ($processor)"; else status=1; fi
        done
    done
    return "$status"
}

# check_control FILE PROCESSOR
check_control() {
    local first output accepted=yes
    first="$(head -n 1 "$1")"
    output="$(check "$1" "$2" 2>&1)" || accepted=no
    if [ "$first" = "// accepted" ] && [ "$accepted" = yes ]; then
        echo "accepted, as it must be: $1 ($2)"
    elif [ "$accepted" = no ] && [[ "$first" = "// refused: "* ]] \
        && grep -qF "error: ${first#// refused: }" <<<"$output"; then
        echo "refused, as it must be: $1 ($2)"
    else
        printf 'Not as its first line says: %s (%s)\n%s\n' "$1" "$2" "$output"
        return 1
    fi
}

check_controls() {
    local file processor status=0
    for processor in "${processors[@]}"; do
        for file in tests/macos/controls/*.mm; do
            check_control "$file" "$processor" || status=1
        done
    done
    return "$status"
}

"check_$1"
