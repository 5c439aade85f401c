#!/bin/bash
# make_shots.sh BUILD PICTURES [dark]: draws every window of the sample household under Xvfb and a window manager, in
# the colours of a dark desktop if asked. QT_SCALE_FACTOR=1.25 before it draws for a denser screen, which is then as much
# larger, so that windows have the same room. The program folder is a copy, so that the user's own database is left alone.
set -euo pipefail
build=$(realpath "$1")
pictures=$2
sources=$(realpath "$(dirname "$0")/..")

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$build/bin/ico" "$build/bin/help" "$folder/"
mkdir -p "$folder/twdata" "$pictures"
"$build/tools/make_database" "$folder/twdata/groc.mdb"
"$build/tools/load_household" "$sources/tools/sample/household" "$folder/twdata/groc.mdb"
rm -f "$pictures"/*.png "$pictures"/*.pdf

scale=${QT_SCALE_FACTOR:-1}
screen=$(awk -v scale="$scale" 'BEGIN { printf "%dx%d", 2800 * scale, 1200 * scale }')
SCREEN_SIZE=$screen XDG_CONFIG_HOME="$folder/config" "$sources/tools/on_display.sh" "$build/tools/shots" "$folder" "$pictures" "${@:3}"

# What was printed, as it lies on paper.
for file in "$pictures"/*.pdf; do
    pdftoppm -r 96 -png "$file" "${file%.pdf}"
done
