#!/bin/bash
# Checks the types of the macOS adapters on a machine that is no Mac: type-check.sh adapters|controls
#
# The compiler takes them for a Mac's, against the project's own declarations of the interfaces that
# they use. Nothing is linked or run, and the declarations are only as right as their authors read
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

# The standard library is this machine's own. Its headers expect what the compiler defines for this
# machine and not for a Mac, and must be free to use a name that it defines for a Mac alone.
library=(-nostdinc++ -D_GNU_SOURCE -U__nonnull)
while read -r folder; do
    library+=(-isystem "$folder")
done < <("$clang" -v -E -x c++ /dev/null 2>&1 >/dev/null \
    | sed -n '/^#include <...> search starts here/,/^End of search list/s/^ //p')

check() {
    "$clang" -target x86_64-apple-macos12 -x objective-c++ -std=c++20 -fno-objc-arc -fsyntax-only \
        "${warnings[@]}" -I . -isystem tests/macos/declarations "${library[@]}" "$1"
}

check_adapters() {
    local file built found status=0
    built="$(grep -o '[A-Za-z]*\.mm' Velmora/platform/macos/CMakeLists.txt | sort)"
    found="$(find Velmora/platform/macos -name '*.mm' -printf '%f\n' | sort)"
    if [ "$built" != "$found" ]; then
        echo "The build does not list exactly the adapters that are there."
        status=1
    fi
    for file in Velmora/platform/macos/*.mm; do
        if check "$file"; then echo "agrees: $file"; else status=1; fi
    done
    return "$status"
}

check_controls() {
    local file first output accepted status=0
    for file in tests/macos/controls/*.mm; do
        first="$(head -n 1 "$file")"
        accepted=yes
        output="$(check "$file" 2>&1)" || accepted=no
        if [ "$first" = "// accepted" ] && [ "$accepted" = yes ]; then
            echo "accepted, as it must be: $file"
        elif [ "$accepted" = no ] && [[ "$first" = "// refused: "* ]] \
            && grep -qF "error: ${first#// refused: }" <<<"$output"; then
            echo "refused, as it must be: $file"
        else
            printf 'Not as its first line says: %s\n%s\n' "$file" "$output"
            status=1
        fi
    done
    return "$status"
}

"check_$1"
