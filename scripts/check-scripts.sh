#!/bin/bash
# Fails when a shell script holds what shellcheck warns of, or a Python file does not compile.
set -euo pipefail
cd "$(dirname "$0")/.."

shellcheck --external-sources scripts/*.sh packaging/*.sh .ci/run
find packaging tests scripts resources translations -name '*.py' -print0 | xargs --null --no-run-if-empty /usr/bin/python3 -c '
import sys
for path in sys.argv[1:]:
    with open(path, "rb") as source:
        compile(source.read(), path, "exec")
'
