#!/bin/sh
# Runs a command on a private X display of 1600 x 1000 pixels with a window manager and returns its exit code.
#
#   with_display.sh COMMAND [ARGUMENT...]
set -u

patience=200 # looks for the window manager, a twentieth of a second apart

fail() {
    echo "with_display.sh: $1" >&2
    exit 127
}

manager_answers() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

wait_for_manager() {
    looks=0
    until manager_answers; do
        looks=$((looks + 1))
        [ "$looks" -lt "$patience" ] || fail "the window manager does not answer"
        kill -0 "$manager" 2>/dev/null || fail "the window manager has ended"
        sleep 0.05
    done
}

if [ "${1:-}" != --inside ]; then
    [ $# -gt 0 ] || fail "no command"
    for tool in Xvfb openbox xprop; do
        command -v "$tool" >/dev/null || fail "$tool is not installed"
    done
    exec "$(dirname "$0")/../../scripts/with-display.sh" 1600x1000 "$0" --inside "$@"
fi
shift

export QT_QPA_PLATFORM=xcb
openbox --sm-disable >/dev/null 2>&1 &
manager=$!
trap 'kill "$manager" 2>/dev/null' EXIT
wait_for_manager
"$@"
