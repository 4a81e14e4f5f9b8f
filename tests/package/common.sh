# shellcheck shell=bash disable=SC2034
# For the scripts beside this one: sets `source` and `build`, the directories they are called with,
# and `scratch`, a directory that is gone when the script ends, as are the processes it `started`.
set -euo pipefail
export LC_ALL=C.UTF-8

source=$(cd -- "$1" && pwd)
build=$(cd -- "$2" && pwd)
scratch=$(mktemp -d)
started=()
clean_up() {
    local process
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    rm -rf -- "$scratch"
}
trap clean_up EXIT

fail() {
    printf 'FAILED: %s\n' "$*" >&2
    exit 1
}

# wait_for WHAT COMMAND...: until the command succeeds. The limit is for a broken machine only.
wait_for() {
    local what=$1 deadline=$((SECONDS + 60))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || fail "waited in vain for $what"
        sleep 0.05
    done
}

# Starts an X server of the test's own with a window manager, and sets DISPLAY.
start_display() {
    mkfifo "$scratch/display"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -ac 3>"$scratch/display" \
        >"$scratch/xvfb.log" 2>&1 &
    started+=($!)
    local number
    read -r number <"$scratch/display"
    export DISPLAY=:$number
    HOME=$scratch openbox --sm-disable >"$scratch/openbox.log" 2>&1 &
    started+=($!)
    wait_for "the window manager" window_manager_runs
}

window_manager_runs() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}
