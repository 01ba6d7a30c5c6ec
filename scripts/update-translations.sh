#!/bin/bash
# Brings the committed catalogues in translations/ up to the texts in the code: new texts are added,
# to be translated; what is gone from the code goes. A catalogue's opening comment is kept.
set -euo pipefail
cd "$(dirname "$0")/.."

for catalogue in translations/velmora_*.ts; do
    opening=$(grep '^<!--' "$catalogue" || true)
    /usr/lib/qt6/bin/lupdate -silent Velmora -I . -no-obsolete -locations none \
        -source-language en -ts "$catalogue"
    if [ -n "$opening" ]; then
        sed -i "/^<!DOCTYPE TS>/r /dev/stdin" "$catalogue" <<<"$opening"
    fi
    echo "$catalogue: $(grep -c 'type="unfinished"' "$catalogue" || true) texts to translate"
done
