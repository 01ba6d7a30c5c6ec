#!/bin/bash
# Measures what Velmora costs and writes it to docs/cost.md, and in short to README.md:
#     ./scripts/cost.sh [--peers]
#
# Takes about ten minutes on virtual desktops of its own; do nothing else with the machine meanwhile.
# With --peers the other break reminders that Debian has are installed and measured beside it;
# without, those that are installed already.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/stages.sh
source scripts/stages.sh
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

peers=()
for argument in "$@"; do
    case "$argument" in
        --peers) peers=(workrave safeeyes rsibreak) ;;
        *) fail "usage: scripts/cost.sh [--peers]" ;;
    esac
done

build_bare_window() {
    cmake -G Ninja -S bench/bare_window -B build/bare_window -DCMAKE_BUILD_TYPE=Release
    cmake --build build/bare_window
}

install_packages "${packages_build[@]}" "${packages_run[@]}" "${packages_desktop[@]}" "${peers[@]}"
stage "Building Velmora" release cmake --workflow --preset release
stage "Building a bare window to compare it with" bare-window build_bare_window
say "▸ Measuring …"
PYTHONPATH=tests/desktop exec /usr/bin/python3 -B scripts/cost/measure.py \
    build/release/velmora build/bare_window/bare_window docs/cost.md README.md
