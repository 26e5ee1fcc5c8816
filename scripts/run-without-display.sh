#!/bin/sh
# run-without-display.sh PROGRAM PICTURE
# Starts PROGRAM on a virtual display, keeps a picture of its frame and ends it again, since no user could reach it there.
set -eu
if [ -z "${DISPLAY:-}" ]; then
    echo "No display: starting on a virtual one."
    exec scripts/with-display.sh 1280x900 "$0" "$@"
fi
if [ ! -d "${XDG_RUNTIME_DIR:-}" ]; then
    XDG_RUNTIME_DIR=$(mktemp -d) # only a desktop's login makes one, and Qt warns without
    export XDG_RUNTIME_DIR
    made=$XDG_RUNTIME_DIR
fi
"$1" &
suite=$!
trap 'kill $suite 2>/dev/null || true; rm -rf "${made:-}"' EXIT
timeout 30 xdotool search --sync --onlyvisible --name "Quill-Office Tools" >/dev/null
sleep 1 # the frame is painted only after it is mapped
import -window root "$2"
echo "Screenshot: $2"
