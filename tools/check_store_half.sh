#!/bin/bash
# check_store_half.sh [BUILD]: fails when a file of the store half includes a header of Qt Gui or Qt Widgets,
# itself or through any header, or when the program that links the store half alone (make_database of the given
# build folder) needs their libraries.
# check_store_half.sh --self-test: plants such includes and makes sure that they are found.
set -euo pipefail
cd "$(dirname "$0")/.."

window_modules='Qt(Gui|Widgets|Svg|SvgWidgets|PrintSupport|OpenGL)'

qt_headers() {
    local folder
    folder=/usr/include/$(g++ -print-multiarch)/qt6
    [[ -d $folder ]] || folder=$(qtpaths6 --query QT_INSTALL_HEADERS)
    echo "$folder"
}

# The files of the store half under a source folder, by the same names as in CMakeLists.txt.
store_files() {
    local src=$1
    shopt -s nullglob
    printf '%s\n' "$src"/data/*.cpp "$src"/household/*.cpp
}

# Prints every window header that a store file of the source folder reaches; succeeds when there is none.
check_includes() {
    local src=$1 qt file deps reached found=0
    qt=$(qt_headers)
    local flags=(-std=c++20 -fPIC -I "$src")
    local module
    for module in "$qt" "$qt"/Qt{Core,Gui,Widgets,Svg,PrintSupport}; do
        flags+=(-isystem "$module")
    done
    while read -r file; do
        if ! deps=$(g++ "${flags[@]}" -M "$file"); then
            found=1
            continue
        fi
        reached=$(tr ' ' '\n' <<<"$deps" | grep -E "/$window_modules/" | sed 's|.*/||' | sort -u || true)
        if [[ -n $reached ]]; then
            echo "$file reaches window headers: ${reached//$'\n'/ }" >&2
            found=1
        fi
    done < <(store_files "$src")
    return $found
}

check_link() {
    local program=$1/tools/make_database
    [[ -x $program ]] || { echo "$program is not built" >&2; return 1; }
    if readelf -d "$program" | grep NEEDED | grep -E "Qt6(Gui|Widgets|Svg|PrintSupport)"; then
        echo "the store half links a window library" >&2
        return 1
    fi
}

# expect_refusal FOLDER WHAT: the planted include must be found.
expect_refusal() {
    if check_includes "$1" 2>/dev/null; then
        echo "self-test: $2 was not found" >&2
        return 1
    fi
}

self_test() {
    local folder
    folder=$(mktemp -d)
    trap "rm -rf '$folder'" EXIT
    mkdir -p "$folder/data" "$folder/household" "$folder/lists"
    printf '#include <QString>\nQString clean();\n' >"$folder/data/clean.cpp"
    check_includes "$folder" || { echo "self-test: a clean file was refused" >&2; return 1; }

    printf '#include "lists/deep.h"\n' >"$folder/household/row_store.cpp"
    printf '#include "lists/deeper.h"\n' >"$folder/lists/deep.h"
    printf '#include <QWidget>\n' >"$folder/lists/deeper.h"
    expect_refusal "$folder" "a widget header behind two headers"
    printf '#include <QtGui/QColor>\n' >"$folder/lists/deeper.h"
    expect_refusal "$folder" "a Qt Gui header with its module's name"
    printf '#include <QDate>\n' >"$folder/lists/deeper.h"
    check_includes "$folder" || { echo "self-test: Qt Core was refused" >&2; return 1; }
    echo "self-test: planted includes are found"
}

if [[ "${1:-}" == --self-test ]]; then
    self_test
    exit
fi
check_includes src
[[ -z "${1:-}" ]] || check_link "$1"
echo "The store half has no window header: $(store_files src | wc -l) files"
