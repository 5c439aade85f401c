#!/bin/bash
# No source, script or document may pass 1000 lines, none of the program itself 600: past that nobody finds his way
# in it.
set -euo pipefail
cd "$(dirname "$0")/.."

long=$(find .ci Makefile CMakeLists.txt src tests tools bench docs ./*.md -type f \
    ! -name '*.svg' ! -name '*.png' ! -name '*.ico' -exec wc -l {} + \
    | awk '{ limit = $2 ~ /^src\// ? 600 : 1000 }
           $2 != "total" && $1 > limit { print $2 ": " $1 " lines, more than " limit }')
if [[ -n "$long" ]]; then
    echo "$long" >&2
    exit 1
fi
