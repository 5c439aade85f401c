#!/bin/bash
# check_program.sh BUILD: starts the real program under Xvfb and a window manager, first without settings and then with
# those of the first run, uses it by mouse and keyboard and leaves it by its close box and by its menu. Fails when it
# does not come up, does not end well, or leaves settings or database otherwise than it should. The program folder is a
# copy.
set -euo pipefail

longest_wait=30 # seconds for anything to happen
longest_run=$((6 * longest_wait))
program= # process id while one runs that has not been waited for

fail() {
    echo "check_program.sh: $*" >&2
    exit 1
}

# wait_until WHAT COMMAND...: tries a command until it succeeds.
wait_until() {
    local what=$1 end=$((SECONDS + longest_wait))
    shift
    until "$@"; do
        [[ $SECONDS -lt $end ]] || fail "$what"
        sleep 0.2
    done
}

# Puts the main window into $window. The splash before it is narrower, and a message has another name.
main_window() {
    local found name WIDTH
    if has_ended; then
        program=
        fail "the program has ended"
    fi
    for found in $(xdotool search --onlyvisible --name '^Tarnwick' 2>/dev/null || true); do
        name=$(xdotool getwindowname "$found" 2>/dev/null || true)
        WIDTH=0
        eval "$(xdotool getwindowgeometry --shell "$found" 2>/dev/null | grep '^WIDTH=' || true)"
        if [[ $name == Tarnwick* && $WIDTH -ge 500 ]]; then
            window=$found
            return 0
        fi
    done
    return 1
}

start_program() {
    "$folder/tarnwick" &
    program=$!
    wait_until "the main window does not come up" main_window
    xdotool windowfocus --sync "$window"
}

# menu KEYS...: opens the first menu with the mouse and goes on from there with the keyboard.
menu() {
    xdotool mousemove --window "$window" 20 10 click 1
    sleep 0.5
    xdotool key --delay 50 "$@"
}

has_ended() { ! kill -0 "$program" 2>/dev/null; }

# leave_program COMMAND...: leaves by what the command does.
leave_program() {
    local status=0
    "$@"
    wait_until "the program does not end" has_ended
    wait "$program" || status=$?
    program=
    [[ $status -eq 0 ]] || fail "the program ended with $status"
    [[ $(ls -A "$folder/twdata") == groc.mdb ]] || fail "left beside the database: $(ls -A "$folder/twdata")"
}

stored() { grep -qFx "prefs\\$1" "$XDG_CONFIG_HOME/tarnwick/settings.ini"; }

has_size() {
    local WIDTH=0 HEIGHT=0
    eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(WIDTH|HEIGHT)=')"
    [[ $WIDTH == "$1" && $HEIGHT == "$2" ]]
}

# A double click on the title bar of the maximised window.
take_from_full_screen() {
    stored fwidth=24000 || fail "the first run did not start maximised"
    xdotool mousemove --window "$window" 400 -8 click --repeat 2 --delay 60 1
    wait_until "the window does not leave the full screen" stored fwidth=9000
}

use_program() {
    start_program
    stored load=load && stored font=9 || fail "the first run has not written its settings"
    stored seprtr=4000 || fail "the first run has moved the separator"
    menu Right Right Right Right Down Return
    wait_until "the recipes were not chosen in the menu" stored tv_view=0
    take_from_full_screen
    xdotool windowsize "$window" 900 650
    wait_until "the size was not stored" stored fwidth=13500
    leave_program xdotool key alt+F4
    separator=$(grep -o 'seprtr=.*' "$XDG_CONFIG_HOME/tarnwick/settings.ini")
    stored wstate=0 || fail "the close box has not stored that the window was not maximised"

    start_program
    wait_until "the second start does not restore the size" has_size 900 650
    stored tv_view=0 || fail "the second start has lost the view"
    stored "$separator" || fail "the second start has moved the separator"
    leave_program menu Up Return
}

if [[ "${1:-}" == --on-display ]]; then
    folder=$2
    export XDG_CONFIG_HOME="$folder/config"
    trap '[[ -z $program ]] || kill "$program" 2>/dev/null || true' EXIT
    use_program
    exit
fi

build=$(realpath "$1")
sources=$(realpath "$(dirname "$0")/..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp "$build/bin/tarnwick" "$folder/"
cp -r "$build/bin/ico" "$folder/"
mkdir -p "$folder/twdata" "$folder/config"
"$build/tools/make_database" "$folder/twdata/groc.mdb"
status=0
timeout "$longest_run" "$sources/tools/on_display.sh" "$(realpath "$0")" --on-display "$folder" || status=$?
[[ $status -ne 124 ]] || fail "not done after $longest_run seconds"
[[ $status -eq 0 ]] || exit "$status"

# Opening the database checks it page by page, and the household shows that it can still be written.
"$build/tools/load_household" "$sources/tools/sample/household" "$folder/twdata/groc.mdb"
echo "The program starts, is used, ends and starts again"
