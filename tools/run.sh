#!/bin/bash
# Builds the release preset and starts the program; without a display, draws its windows into PNG files.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release
cmake --build --preset release --target tarnwick program_folder shots load_household

if [[ -n "${DISPLAY:-}" || -n "${WAYLAND_DISPLAY:-}" ]]; then
    exec build/release/bin/tarnwick
fi
tools/make_shots.sh build/release build/pictures
echo "No display: the windows of the sample household are drawn in $PWD/build/pictures"
