#!/bin/bash
# make_help_pictures.sh BUILD: draws the pictures of the help anew, from the window as it is now.
set -euo pipefail
build=$(realpath "$1")
sources=$(realpath "$(dirname "$0")/..")

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$build/bin/ico" "$folder/"
mkdir -p "$folder/twdata"
"$build/tools/make_database" "$folder/twdata/groc.mdb"
"$build/tools/load_household" "$sources/tools/sample/household" "$folder/twdata/groc.mdb"
XDG_CONFIG_HOME="$folder/config" "$sources/tools/on_display.sh" "$build/tools/shots" "$folder" \
    "$sources/resources/help" help
