#!/bin/bash
# Installs what is missing and runs every test: ./scripts/test.sh [--all]
#
# With --all the long matrix of desktop tests runs as well, clang's analyzer, the tests under the thread
# sanitizer, the desktop tests of a program built with the other sanitizers, the fuzzers for long, and an
# hour's run.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/stages.sh
source scripts/stages.sh
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

selection="not long" matrix=() all=
for argument in "$@"; do
    case "$argument" in
        --all) all=yes selection="not soak" matrix=("${packages_matrix[@]}") ;;
        *) fail "usage: scripts/test.sh [--all]" ;;
    esac
done

# Much of the time these tests wait for something to be seen, so two more run than there are cores.
desktop_tests() {
    /usr/bin/python3 -m pytest tests/desktop -c tests/desktop/pytest.ini -m "$selection" \
        --program build/dev/velmora --numprocesses "$(($(nproc) + 2))" --durations=10
}

# A sanitized program is slow, so only as many run at once as there are cores, and its costs are no one's.
sanitized_desktop_tests() {
    ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
        LSAN_OPTIONS="suppressions=$PWD/tests/desktop/leaks.supp:print_suppressions=0" \
        /usr/bin/python3 -m pytest tests/desktop -c tests/desktop/pytest.ini -m "not long" \
        --program build/asan/velmora --numprocesses "$(nproc)" --durations=10 --ignore tests/desktop/test_cost.py
}

soak() {
    /usr/bin/python3 -m pytest tests/desktop/test_faults_soak.py -c tests/desktop/pytest.ini -m soak \
        --program build/dev/velmora -s
}

install_packages "${packages_build[@]}" "${packages_run[@]}" "${packages_test[@]}" \
    "${packages_desktop[@]}" "${packages_lint[@]}" "${matrix[@]}"
stage "Checking how the sources are formatted" format scripts/check-format.sh
stage "Building and testing the rooms without Qt" engine cmake --workflow --preset engine
stage "Building and testing everything" dev cmake --workflow --preset dev
stage "Testing under the address and undefined-behaviour sanitizers" asan cmake --workflow --preset asan
# The linters compute while the desktop tests mostly wait.
beside "Linting" lint cmake --workflow --preset lint
stage "Testing the program on virtual desktops" desktop desktop_tests
join
if [ -n "$all" ]; then
    stage "Following every path through the code" lint-deep cmake --workflow --preset lint-deep
    stage "Testing under the thread sanitizer" tsan cmake --workflow --preset tsan
    stage "Testing a sanitized program on virtual desktops" desktop-asan sanitized_desktop_tests
    stage "Building the fuzzers and letting them loose for a short while" fuzz cmake --workflow --preset fuzz
    stage "Fuzzing for long" fuzz-long scripts/fuzz.sh
    stage "Running for an hour with a reminder every two minutes" soak soak
fi

say
say "Everything passed in $((SECONDS / 60)) min $((SECONDS % 60)) s."
printf '%s\n' "${summary[@]}"
