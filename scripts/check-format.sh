#!/bin/bash
# Fails when a C++ file is not written the way .clang-format asks.
set -euo pipefail
cd "$(dirname "$0")/.."

find Velmora tests bench -name '*.h' -o -name '*.cpp' | sort \
    | xargs --no-run-if-empty clang-format --dry-run -Werror
