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
    local process
    for process in $command $manager $server; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap end EXIT
trap 'exit 143' TERM INT HUP

# wait_until WHAT PROCESS COMMAND...: tries a command until it succeeds, as long as the process lives.
wait_until() {
    local what=$1 process=$2 end=$((SECONDS + longest_wait))
    shift 2
    until "$@" >/dev/null 2>&1; do
        kill -0 "$process" 2>/dev/null && [[ $SECONDS -lt $end ]] || fail "$what does not come up"
        sleep 0.05
    done
}

# Should this script be killed, the server dies with it, and all that is on the display with the server.
setpriv --pdeathsig TERM -- Xvfb -displayfd 3 -screen 0 "${SCREEN_SIZE:-1600x1200}x24" 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
server=$!
wait_until Xvfb "$server" grep -q . "$folder/display"
DISPLAY=:$(<"$folder/display")
export DISPLAY XDG_RUNTIME_DIR="$folder/runtime" QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY XAUTHORITY

# With the window manager's own settings, not those of the user.
XDG_CONFIG_HOME="$folder" openbox --sm-disable >"$folder/openbox.log" 2>&1 &
manager=$!
wait_until openbox "$manager" xdotool get_num_desktops

# In the background, so that a signal is acted on at once.
"$@" <&0 &
command=$!
status=0
wait "$command" || status=$?
command=
exit "$status"
