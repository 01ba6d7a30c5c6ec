#!/bin/bash
# Installs what is missing, builds Velmora and runs it with the arguments given.
#
# Without a display Velmora runs on a private virtual desktop, with a reminder under way, and the
# path of a screenshot is printed last.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/stages.sh
source scripts/stages.sh
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

headless=
[ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] || headless=yes

needed=("${packages_build[@]}" "${packages_run[@]}")
[ -z "$headless" ] || needed+=("${packages_desktop[@]}")
install_packages "${needed[@]}"
stage "Building Velmora" release cmake --workflow --preset release

program="$PWD/build/release/velmora"
if [ -z "$headless" ]; then
    say "▸ Running Velmora; look for the orb in the lower right corner and for its menu in the panel"
    exec "$program" "$@"
fi

say "▸ There is no display here, so Velmora runs on a virtual desktop of its own"
picture="$PWD/build/velmora-screenshot.png"
stage "Waiting for a reminder to be seen" showcase env PYTHONPATH=tests/desktop \
    /usr/bin/python3 -m harness.showcase "$program" "$picture" "$@"
say "The screenshot shows Velmora during a reminder:"
say "$picture"
