#!/bin/bash
# No source, script or document may pass 1000 lines: past that nobody finds his way in it.
set -euo pipefail
cd "$(dirname "$0")/.."

limit=1000
long=$(find .ci Makefile CMakeLists.txt src tests tools bench docs ./*.md -type f \
    ! -name '*.svg' ! -name '*.png' ! -name '*.ico' -exec wc -l {} + \
    | awk -v limit="$limit" '$2 != "total" && $1 > limit { print $2 ": " $1 " lines" }')
if [[ -n "$long" ]]; then
    echo "Over $limit lines:" >&2
    echo "$long" >&2
    exit 1
fi
