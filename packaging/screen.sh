# Sourced by the scripts that drive the program as a person does: a screen of its own with a window manager.
# Needs the packages xvfb, openbox, xdotool and x11-utils.

screen_processes=()

# start_screen WIDTHxHEIGHT: sets DISPLAY.
start_screen() {
    local number
    exec {number}< <(exec Xvfb -displayfd 1 -screen 0 "$1x24" -nolisten tcp 2>/dev/null)
    screen_processes+=($!)
    read -r -t 20 -u "$number" DISPLAY || { echo "Xvfb does not start." >&2; return 1; }
    export DISPLAY=:$DISPLAY
    openbox >/dev/null 2>&1 &
    screen_processes+=($!)
    local try
    for try in {1..100}; do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && return
        sleep 0.1
    done
    echo "The window manager does not start." >&2
    return 1
}

stop_screen() {
    local process
    for process in "${screen_processes[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    screen_processes=()
}

# window TITLE: the id of the window of exactly this title, as soon as it is there and has the keyboard.
window() {
    local id try
    for try in {1..60}; do # while one looks, windows come and go
        id=$(xdotool search --onlyvisible --name "^${1//./\\.}\$" 2>/dev/null | tail -n 1) || true
        if [ -n "$id" ] && timeout 10 xdotool windowactivate --sync "$id" 2>/dev/null; then
            sleep 0.3
            echo "$id"
            return
        fi
        sleep 0.5
    done
    echo "No window \"$1\" appears." >&2
    return 1
}

# Waits up to ten seconds until a command succeeds.
wait_until() {
    local try
    for try in {1..100}; do
        "$@" && return
        sleep 0.1
    done
    return 1
}
