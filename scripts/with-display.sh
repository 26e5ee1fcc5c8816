#!/bin/sh
# with-display.sh WIDTHxHEIGHT COMMAND [ARGUMENT...]
# Runs COMMAND on an X display of its own and returns its exit code. The X server picks the display's number itself, so
# that any number of them may start at the same moment; 127 when it does not start.
set -u
size=$1
shift

private=$(mktemp -d)
server=
end() {
    [ -z "$server" ] || kill "$server" 2>/dev/null
    rm -rf "$private"
}
trap end EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

mkfifo "$private/number"
Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset 3>"$private/number" >"$private/log" 2>&1 &
server=$!
read -r number <"$private/number" || {
    cat "$private/log" >&2
    exit 127
}

unset WAYLAND_DISPLAY
export DISPLAY=":$number"
"$@"
