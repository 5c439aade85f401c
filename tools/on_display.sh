#!/bin/bash
# on_display.sh COMMAND...: runs a command on a display of its own, an Xvfb with openbox as its window manager, and ends
# both with it. The exit code is the command's. SCREEN_SIZE=3200x2400 before it makes another screen than 1600x1200.
set -euo pipefail

longest_wait=15 # seconds for server and window manager to come up
folder=$(mktemp -d)
mkdir -m 700 "$folder/runtime"
server=
manager=
command=

fail() {
    echo "on_display.sh: $*" >&2
    cat "$folder"/*.log >&2
    exit 125
}

end() {
    if [[ -n $command ]]; then
        kill "$command" 2>/dev/null || true
        wait "$command" 2>/dev/null || true
    fi
    close_display
    rm -rf "$folder"
}
trap end EXIT
trap 'exit 143' TERM INT HUP

# wait_until PROCESS COMMAND...: tries a command until it succeeds, as long as the process lives.
wait_until() {
    local process=$1 end=$((SECONDS + longest_wait))
    shift
    until "$@" >/dev/null 2>&1; do
        kill -0 "$process" 2>/dev/null && [[ $SECONDS -lt $end ]] || return 1
        sleep 0.05
    done
}

# Should this script be killed, the server dies with it, and all that is on the display with the server. The window
# manager comes with its own settings, not those of the user.
open_display() {
    : >"$folder/display"
    setpriv --pdeathsig TERM -- Xvfb -displayfd 3 -screen 0 "${SCREEN_SIZE:-1600x1200}x24" \
        3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
    server=$!
    wait_until "$server" grep -q . "$folder/display" || return 1
    DISPLAY=:$(<"$folder/display")
    XDG_CONFIG_HOME="$folder" openbox --sm-disable >"$folder/openbox.log" 2>&1 &
    manager=$!
    wait_until "$manager" xdotool get_num_desktops
}

close_display() {
    local process
    for process in $manager $server; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    manager=
    server=
}

# Two servers that look for a free number in the same moment may take the same one, so a display that does not come up
# is tried anew.
export DISPLAY XDG_RUNTIME_DIR="$folder/runtime" QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY XAUTHORITY
for attempt in 1 2 3; do
    open_display && break
    [[ $attempt -lt 3 ]] || fail "no display comes up"
    close_display
done

# In the background, so that a signal is acted on at once.
"$@" <&0 &
command=$!
status=0
wait "$command" || status=$?
command=
exit "$status"
