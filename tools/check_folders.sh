#!/bin/bash
# check_folders.sh [SRC]: fails when a file of a source folder includes a header of a folder above its own.
# check_folders.sh --self-test: plants such includes and makes sure that they are found.
set -euo pipefail
cd "$(dirname "$0")/.."

# From the ground up; folders of one line do not include each other.
floors=(
    "data"
    "household"
    "widgets"
    "dialogs"
    "stock lists recipes output"
    "window"
    "app"
)

# floor_of FOLDER: its number from the ground; nothing for a folder that no floor has.
floor_of() {
    local floor
    for floor in "${!floors[@]}"; do
        [[ " ${floors[$floor]} " == *" $1 "* ]] && { echo "$floor"; return; }
    done
    return 0
}

# Prints every include that goes up or to a folder of the same floor; succeeds when there is none.
check() {
    local src=$1 found=0 file line from to from_floor to_floor
    while IFS=: read -r file line; do
        from=${file#"$src"/}
        from=${from%%/*}
        to=${line#*\"}
        [[ $to == */* ]] || continue
        to=${to%%/*}
        [[ $from != "$to" ]] || continue
        from_floor=$(floor_of "$from")
        to_floor=$(floor_of "$to")
        if [[ -z $from_floor || -z $to_floor || $to_floor -ge $from_floor ]]; then
            echo "$file: $line" >&2
            found=1
        fi
    done < <(grep -rH '^#include "' "$src" --include='*.h' --include='*.cpp')
    return $found
}

# expect_refusal FOLDER WHAT: the planted include must be found.
expect_refusal() {
    if check "$1" 2>/dev/null; then
        echo "self-test: $2 was not found" >&2
        return 1
    fi
}

self_test() {
    local folder
    folder=$(mktemp -d)
    trap "rm -rf '$folder'" EXIT
    mkdir -p "$folder/household" "$folder/lists"
    echo '#include "data/query.h"' >"$folder/household/place.cpp"
    echo '#include "household/place.h"' >"$folder/lists/pane.cpp"
    check "$folder" || { echo "self-test: includes downwards were refused" >&2; return 1; }
    echo '#include "lists/pane.h"' >"$folder/household/place.h"
    expect_refusal "$folder" "an include upwards"
    echo '#include "recipes/page.h"' >"$folder/lists/pane.cpp"
    rm "$folder/household/place.h"
    expect_refusal "$folder" "an include of a folder beside"
    echo '#include "attic/box.h"' >"$folder/lists/pane.cpp"
    expect_refusal "$folder" "an include of a folder without a floor"
    echo "self-test: planted includes are found"
}

if [[ "${1:-}" == --self-test ]]; then
    self_test
    exit
fi
check "${1:-src}"
echo "Folders include downwards only"
