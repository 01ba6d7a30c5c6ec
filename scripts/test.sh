#!/bin/bash
# Installs what is missing and runs every test: ./scripts/test.sh [--all]
#
# With --all the long matrix of desktop tests runs as well.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/stages.sh
source scripts/stages.sh
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

selection="not long" matrix=()
for argument in "$@"; do
    case "$argument" in
        --all) selection="long or not long" matrix=("${packages_matrix[@]}") ;;
        *) fail "usage: scripts/test.sh [--all]" ;;
    esac
done

# Most of the time these tests wait for something to be seen, so one more runs than there are cores.
desktop_tests() {
    /usr/bin/python3 -m pytest tests/desktop -c tests/desktop/pytest.ini -m "$selection" \
        --program build/dev/velmora --numprocesses "$(($(nproc) + 1))" --durations=10
}

install_packages "${packages_build[@]}" "${packages_run[@]}" "${packages_test[@]}" \
    "${packages_desktop[@]}" "${packages_lint[@]}" "${matrix[@]}"
stage "Checking how the sources are formatted" format scripts/check-format.sh
stage "Building and testing the rooms without Qt" engine cmake --workflow --preset engine
stage "Building and testing everything" dev cmake --workflow --preset dev
stage "Testing under the address and undefined-behaviour sanitizers" asan cmake --workflow --preset asan
stage "Linting" lint cmake --workflow --preset lint
stage "Testing the program on virtual desktops" desktop desktop_tests

say
say "Everything passed in $((SECONDS / 60)) min $((SECONDS % 60)) s."
printf '%s\n' "${summary[@]}"
