#!/bin/bash
# Makes the pictures in docs/images from the real program on a virtual desktop.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/stages.sh
source scripts/stages.sh
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

install_packages "${packages_build[@]}" "${packages_run[@]}" "${packages_desktop[@]}"
stage "Building Velmora" release cmake --workflow --preset release
stage "Taking pictures" pictures env VELMORA_PROGRAM="$PWD/build/release/velmora" \
    PYTHONPATH=tests/desktop /usr/bin/python3 scripts/take_pictures.py docs/images
say "Look at them: $PWD/docs/images"
