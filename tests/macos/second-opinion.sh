#!/bin/bash
# Compiles the macOS adapters that need Foundation alone against GNUstep's, and runs them.
#
# The notifications go through a daemon of this run's own, which ends with it.
set -euo pipefail
cd "$(dirname "$0")/../.."

gcc="$(dirname "$(gcc -print-libgcc-file-name 2>/dev/null || echo /none/)")"
if ! command -v clang++ >/dev/null || ! command -v gdnc >/dev/null \
    || [ ! -f "$gcc/libobjc.so" ] \
    || [ ! -f /usr/include/GNUstep/Foundation/Foundation.h ]; then
    echo "There is no clang++ or no GNUstep here, so there is no second opinion."
    exit 77
fi

own="$(mktemp -d /tmp/velmora-opinion-XXXXXX)"
daemon=
end() {
    [ -z "$daemon" ] || kill "$daemon" 2>/dev/null || true
    rm -rf "$own"
}
trap end EXIT

clang++ -x objective-c++ -std=c++20 -fobjc-runtime=gcc -fconstant-string-class=NSConstantString \
    -Wall -Wextra -Wundeclared-selector -Werror \
    -DGNUSTEP -DGNUSTEP_BASE_LIBRARY=1 -DGNU_RUNTIME=1 -D_NATIVE_OBJC_EXCEPTIONS -I . \
    -isystem tests/macos/gnustep -isystem /usr/include/GNUstep -isystem "$gcc/include" \
    tests/macos/gnustep/{Foundation,CoreFoundation}.mm Velmora/platform/macos/PreferenceObject.cpp \
    Velmora/platform/macos/{BundleResources,DistributedFocus,ProcessActivity}.mm \
    -L"$gcc" -lobjc -lgnustep-base -o "$own/opinion"

mkdir -m 700 "$own/home" "$own/tmp"
export HOME="$own/home" TMPDIR="$own/tmp" TEMP="$own/tmp" TMP="$own/tmp"
gdnc --no-fork >"$own/gdnc.log" 2>&1 &
daemon=$!
# Without it the first notification would start a daemon that outlives this run.
for _ in {1..100}; do
    [ -z "$(find "$own/tmp" -path '*/NSMessagePort/names/*' -print -quit)" ] || break
    sleep 0.1
done
"$own/opinion"
