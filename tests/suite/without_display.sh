#!/bin/sh
# without_display.sh PROGRAM
# PROGRAM is started where there is no display: a picture of its frame is made, and nothing is written to the error stream.
set -eu
cd "$(dirname "$0")/../.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset DISPLAY WAYLAND_DISPLAY XDG_RUNTIME_DIR QT_QPA_PLATFORM
export HOME="$scratch" XDG_CONFIG_HOME="$scratch/config" XDG_DATA_HOME="$scratch/data" XDG_STATE_HOME="$scratch/state"

scripts/run-without-display.sh "$1" "$scratch/picture.png" >"$scratch/output" 2>"$scratch/errors" || {
    cat "$scratch/errors"
    exit 1
}
if [ -s "$scratch/errors" ]; then
    echo "The error stream is not empty:"
    cat "$scratch/errors"
    exit 1
fi
grep -q '^Screenshot: ' "$scratch/output"
colors=$(identify -format %k "$scratch/picture.png")
[ "$colors" -gt 50 ] || { echo "The picture has only $colors colours."; exit 1; }
