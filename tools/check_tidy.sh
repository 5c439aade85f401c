#!/bin/bash
# check_tidy.sh: reads all of src with clang-tidy, a folder at a time; the findings are on its output.
# check_tidy.sh --self-test: plants faults in two files of a folder and makes sure that both are found.
set -euo pipefail
cd "$(dirname "$0")/.."

jobs=$(nproc)

# clang-tidy counts the warnings that it keeps to itself on its error stream.
run_tidy() {
    clang-tidy --quiet --checks=-bugprone-suspicious-include "$@" 2>>build/tidy.log
}

self_test() {
    local folder
    folder=$(mktemp -d)
    trap "rm -rf '$folder'" EXIT
    mkdir "$folder/src"
    echo 'int *none() { return 0; }' >"$folder/src/first.cpp"
    echo 'long product(int a, int b) { return static_cast<long>(a * b); }' >"$folder/src/second.cpp"
    printf '#include "%s"\n' "$folder"/src/*.cpp >"$folder/all.cxx"
    local found
    found=$(run_tidy --config-file=.clang-tidy "$folder/all.cxx" -- -std=c++20) && {
        echo "self-test: planted faults were passed" >&2
        return 1
    }
    grep -q 'first.cpp.*modernize-use-nullptr' <<<"$found" && grep -q 'second.cpp.*bugprone-misplaced-widening-cast' <<<"$found" \
        || { echo "self-test: a planted fault was not found" >&2; return 1; }
    echo "self-test: planted faults are found"
}

mkdir -p build
: >build/tidy.log
if [[ "${1:-}" == --self-test ]]; then
    self_test
    exit
fi

cmake --preset tidy >/dev/null
mapfile -t units < <(sed -nE 's#^ *"file": "(.*/tarnwick(_store|_form|_pictures)?\.dir/Unity/.*\.cxx|.*/src/.*\.cpp)",?$#\1#p' \
    build/tidy/compile_commands.json)
read_files=$({ cat "${units[@]}"; printf '#include "%s"\n' "${units[@]}"; } | grep -c '^#include "/.*/src/.*\.cpp"')
all_files=$(find src -name '*.cpp' | wc -l)
[[ $read_files -eq $all_files ]] || { echo "$read_files of $all_files files would be read" >&2; exit 1; }
export -f run_tidy
printf '%s\n' "${units[@]}" | xargs -P "$jobs" -I{} bash -c 'run_tidy -p build/tidy "$1"' _ {}
echo "clang-tidy finds nothing in $all_files files"
